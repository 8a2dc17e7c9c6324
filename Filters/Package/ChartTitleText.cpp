#include <Filters/Package/ChartTitleText.h>

#include <FilterUtils/FU_XMLStreamReader.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Package/XmlParts.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLFlow;
using FilterUtils::XMLStep;
using FilterUtils::XMLStreamEnd;
using FilterUtils::XMLStreamStart;

enum Word : int
{
    PlotArea,
    Title,
    Rich,
    Paragraph,
    Text,
    Break,
};

const FilterUtils::XMLVocabulary& getTitleWords()
{
    static const FilterUtils::XMLVocabulary words(
        {
            makeXmlNamespace("c", Vocabulary::Chart), makeXmlNamespace("a", Vocabulary::Drawing)
    },
        {
            {PlotArea, "c:plotArea"},
            {Title, "c:title"},
            {Rich, "c:rich"},
            {Paragraph, "a:p"},
            {Text, "a:t"},
            {Break, "a:br"},
        });
    return words;
}

/// A tree tells children by their names alone, and so not in which order texts and breaks stand.
class TitleHandler final : public FilterUtils::XMLStreamHandler
{
public:
    XMLStep onStart(const XMLStreamStart& element) override
    {
        switch (element.getId()) {
        case PlotArea: // axes have titles of their own
            return XMLStep::Skip;
        case Title:
            _isInTitle = true;
            return XMLStep::Enter;
        case Rich:
            if (_isInTitle)
                _text = std::string();
            return XMLStep::Enter;
        case Paragraph:
            if (_text && _paragraphsCount++ > 0)
                *_text += '\n';
            return XMLStep::Enter;
        case Break:
            if (_text)
                *_text += '\n';
            return XMLStep::Skip;
        case Text:
            return XMLStep::EnterText;
        default:
            return XMLStep::Enter;
        }
    }

    XMLFlow onEnd(const XMLStreamEnd& element) override
    {
        if (element.getId() == Text && _text)
            element.appendText(*_text);
        if (element.getId() == Title)
            _isInTitle = false;
        return element.getId() == Rich && _text ? XMLFlow::Stop : XMLFlow::Continue;
    }

    const boost::optional<std::string>& getText() const { return _text; }

private:
    bool _isInTitle = false;
    unsigned long _paragraphsCount = 0;
    boost::optional<std::string> _text;
};

} // namespace

boost::optional<std::string> readRichTitle(Package& package, const std::string& part, OperationReport& report)
{
    TitleHandler handler;
    readXmlStream(package, part, getTitleWords(), handler, report);
    return handler.getText();
}

} // namespace QV::Filters
