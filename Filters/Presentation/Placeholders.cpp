#include <Filters/Presentation/Placeholders.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <iterator>
#include <limits>
#include <utility>

#include <FilterUtils/FU_XMLElement.h>
#include <Utils/Public/NumberText.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

const std::string TitleFamily = "title";
const std::string ContentFamily = "body";

bool isFooterType(const std::string& type)
{
    static const char* const FooterTypes[] = {"dt", "ftr", "sldNum", "hdr"};
    return std::find(std::begin(FooterTypes), std::end(FooterTypes), type) != std::end(FooterTypes);
}

/// The type that stands for all those that take over from one another.
const std::string& getPlaceholderFamily(const std::string& type)
{
    if (type == TitleFamily || type == "ctrTitle")
        return TitleFamily;
    return isFooterType(type) ? type : ContentFamily;
}

const PlaceholderSource* findFirstSource(const std::vector<PlaceholderSource>& sources,
    const std::function<bool(const DOM::Placeholder&)>& isWanted)
{
    const auto found = std::find_if(sources.begin(), sources.end(),
        [&](const PlaceholderSource& source) { return isWanted(source.placeholder); });
    return found == sources.end() ? nullptr : &*found;
}

} // namespace

TextStyleKind getTextStyleKind(const boost::optional<DOM::Placeholder>& placeholder)
{
    if (!placeholder)
        return TextStyleKind::Other;
    const std::string& family = getPlaceholderFamily(placeholder->type);
    if (family == TitleFamily)
        return TextStyleKind::Title;
    return family == ContentFamily ? TextStyleKind::Body : TextStyleKind::Other;
}

bool PlaceholderSources::add(PlaceholderSource source)
{
    if (_sources.size() == SourcesMax)
        return false;
    _sources.push_back(std::move(source));
    return true;
}

const PlaceholderSource* PlaceholderSources::findForSlide(const DOM::Placeholder& placeholder) const
{
    const std::string& family = getPlaceholderFamily(placeholder.type);
    const auto hasIndex = [&](const DOM::Placeholder& other) { return other.index == placeholder.index; };
    const auto isOfFamily = [&](const DOM::Placeholder& other) {
        return getPlaceholderFamily(other.type) == family;
    };
    const auto* found = findFirstSource(
        _sources, [&](const DOM::Placeholder& other) { return hasIndex(other) && isOfFamily(other); });
    // Indices change with the layout, and of all but contents there is one each; and 0 is what none is.
    if (!found && (family != ContentFamily || placeholder.index == 0))
        found = findFirstSource(_sources, isOfFamily);
    return found || placeholder.index == 0 ? found : findFirstSource(_sources, hasIndex);
}

const PlaceholderSource* PlaceholderSources::findForLayout(const DOM::Placeholder& placeholder) const
{
    const std::string& family = getPlaceholderFamily(placeholder.type);
    return findFirstSource(
        _sources, [&](const DOM::Placeholder& other) { return getPlaceholderFamily(other.type) == family; });
}

boost::optional<DOM::Placeholder> readPlaceholder(
    const FilterUtils::XMLElement& element, OperationReport& report)
{
    if (!element.isValid())
        return boost::none;
    DOM::Placeholder placeholder;
    placeholder.type = element.getAttributeValue("type").value_or(placeholder.type);
    const auto text = element.getAttributeValue("idx");
    if (!text)
        return placeholder;
    const bool isNumber = text->find_first_not_of("0123456789") == std::string::npos;
    const auto index = isNumber ? strToUlong(*text) : boost::none;
    if (index && *index <= std::numeric_limits<std::uint32_t>::max())
        placeholder.index = *index;
    else
        report.emplace_back("Placeholder index {} is none", *text);
    return placeholder;
}

} // namespace QV::Filters
