#include <Filters/Spreadsheet/DrawingReader.h>

#include <cstddef>

#include <FilterUtils/FU_XMLStreamReader.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/XmlParts.h>
#include <Filters/Spreadsheet/LeftOut.h>
#include <Filters/Spreadsheet/SpreadsheetWords.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLFlow;
using FilterUtils::XMLStep;
using FilterUtils::XMLStreamEnd;
using FilterUtils::XMLStreamStart;

class DrawingHandler final : public FilterUtils::XMLStreamHandler
{
public:
    explicit DrawingHandler(FilterRun& run)
        : _run(run)
    {
    }

    XMLStep onStart(const XMLStreamStart& element) override
    {
        switch (element.getId()) {
        case Words::DrawnPicture:
            _isInPicture = true;
            return XMLStep::Enter;
        case Words::Blip:
            if (_isInPicture)
                takePicture(element);
            return XMLStep::Skip;
        case Words::Shape:
        case Words::Connector:
            _run.leaveOut(LeftOut::Shapes);
            return XMLStep::Skip;
        case Words::GraphicFrame: // what it shows is another part
            return XMLStep::Skip;
        case Words::Choice: // only what every reader understands is read: the fallback
            return XMLStep::Skip;
        default:
            return XMLStep::Enter;
        }
    }

    XMLFlow onEnd(const XMLStreamEnd& element) override
    {
        if (element.getId() == Words::DrawnPicture)
            _isInPicture = false;
        return XMLFlow::Continue;
    }

    const std::vector<std::string>& getPictures() const { return _pictures; }

private:
    void takePicture(const XMLStreamStart& blip)
    {
        auto id = blip.findAttributeText(Words::Embed);
        if (!id || id->empty())
            id = blip.findAttributeText(Words::Link);
        if (!id || id->empty())
            return;
        _pictures.push_back(*id);
        _run.leaveOut(LeftOut::Anchors);
    }

    FilterRun& _run;
    std::vector<std::string> _pictures;
    bool _isInPicture = false;
};

} // namespace

std::vector<std::string> readDrawing(Package& package, const std::string& part, FilterRun& run)
{
    DrawingHandler handler(run);
    readXmlStream(package, part, getSpreadsheetWords(), handler, run.getReport());
    return handler.getPictures();
}

} // namespace QV::Filters
