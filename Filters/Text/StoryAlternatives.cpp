#include <Filters/Text/StoryAlternatives.h>

#include <algorithm>
#include <cstddef>
#include <string_view>

#include <Filters/Package/Namespaces.h>
#include <Filters/Text/TextWords.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLStep;
using FilterUtils::XMLStreamStart;

bool isUnderstoodNamespace(std::u16string_view uri)
{
    std::string text; // known ones are ASCII
    for (const char16_t c : uri)
        text += c < 0x80 ? static_cast<char>(c) : '?';
    return getUnderstoodNamespaces().count(text) != 0 || findDialectOfNamespace(text).has_value();
}

// One that requires nothing is none, since it must require something.
bool isUnderstoodChoice(const XMLStreamStart& choice)
{
    constexpr std::u16string_view Blanks = u" \t\n\r";
    const std::u16string_view prefixes =
        choice.findAttribute(TextWords::Requires).value_or(std::u16string_view());
    bool isUnderstood = false;
    for (std::size_t begin = prefixes.find_first_not_of(Blanks); begin != std::u16string_view::npos;) {
        const std::size_t end = std::min(prefixes.find_first_of(Blanks, begin), prefixes.size());
        const auto uri = choice.findNamespace(prefixes.substr(begin, end - begin));
        if (!uri || !isUnderstoodNamespace(*uri))
            return false;
        isUnderstood = true;
        begin = prefixes.find_first_not_of(Blanks, end);
    }
    return isUnderstood;
}

} // namespace

const std::set<std::string>& getUnderstoodNamespaces()
{
    static const std::set<std::string> namespaces = {
        "http://schemas.microsoft.com/office/word/2010/wordprocessingShape",
        "http://schemas.microsoft.com/office/word/2010/wordprocessingGroup",
        "http://schemas.microsoft.com/office/word/2010/wordprocessingCanvas",
        "http://schemas.microsoft.com/office/word/2010/wordprocessingDrawing",
        "http://schemas.microsoft.com/office/word/2010/wordml",
        "http://schemas.microsoft.com/office/word/2012/wordml",
        "http://schemas.microsoft.com/office/drawing/2010/main",
        "urn:schemas-microsoft-com:vml",
        "urn:schemas-microsoft-com:office:office",
    };
    return namespaces;
}

boost::optional<XMLStep> StoryAlternatives::onStart(const XMLStreamStart& element)
{
    const int id = element.getId();
    if (id == TextWords::AlternateContent) {
        _areChosen.push_back(false);
        return XMLStep::Enter;
    }
    const bool isBranch = id == TextWords::Choice || id == TextWords::Fallback;
    if (element.getParentId() != TextWords::AlternateContent)
        return isBranch ? boost::make_optional(XMLStep::Enter) : boost::none;
    const bool isMeant =
        isBranch && !_areChosen.back() && (id == TextWords::Fallback || isUnderstoodChoice(element));
    if (!isMeant)
        return XMLStep::Skip;
    _areChosen.back() = true;
    return XMLStep::Enter;
}

bool StoryAlternatives::onEnd(const FilterUtils::XMLStreamEnd& element)
{
    if (element.getId() == TextWords::AlternateContent)
        _areChosen.pop_back();
    return element.getId() == TextWords::AlternateContent || element.getId() == TextWords::Choice ||
           element.getId() == TextWords::Fallback;
}

} // namespace QV::Filters
