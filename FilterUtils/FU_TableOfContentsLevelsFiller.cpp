#include <FilterUtils/FU_TableOfContentsLevelsFiller.h>

#include <algorithm>
#include <array>

#include <boost/regex.hpp>
#include <fmt/format.h>

#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/TableOfContents.h>
#include <FieldsEngine/Public/GeneratedBookmarkPrefix.h>
#include <FilterUtils/FU_NamedStylesFactory.h>
#include <Utils/Public/Assertions.h>
#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::FilterUtils {

TableOfContentsLevelsFiller::TableOfContentsLevelsFiller(DOM::TableOfContentsInfo& tableOfContents,
    NamedStylesFactory& stylesFactory, NewStyles& newStyles, PredefinedStyles& predefinedStyles)
    : _tableOfContents(tableOfContents)
    , _stylesFactory(stylesFactory)
    , _newStyles(newStyles)
    , _predefinedStyles(predefinedStyles)
{
}

void TableOfContentsLevelsFiller::addTableOfContentsLevel(unsigned long level)
{
    addLevel(level);
}

void TableOfContentsLevelsFiller::addTableOfContentsLevel(const UUID& styleUUID, unsigned long level)
{
    QV_ASSERT(styleUUID);
    if (!styleUUID)
        return;
    if (_registeredStyleUUIDs.find(styleUUID) == _registeredStyleUUIDs.end()) {
        _tableOfContents.getHeadingStylesLevels().emplace_back(styleUUID, level);
        _registeredStyleUUIDs.insert(styleUUID);
    }
    addLevel(level);
}

UUID TableOfContentsLevelsFiller::findOrCreatePredefinedStyle(DOM::PredefinedStyleName name)
{
    const auto found = _predefinedStyles.find(name);
    if (found != _predefinedStyles.end())
        return deref(found->second).getUUID();
    const std::shared_ptr<const DOM::NamedTextStyle> style = _stylesFactory.makeNamedTextStyle(name);
    _newStyles.push_back(style);
    _predefinedStyles.emplace(name, style);
    return style->getUUID();
}

void TableOfContentsLevelsFiller::addLevel(unsigned long level)
{
    _tableOfContents.getLevelsStyleInfo().try_emplace(level);
}

bool isTableOfContentsBookmark(const std::string& name)
{
    // The prefix stands in its expression as it is: characters with a meaning there keep it.
    static const std::array<boost::regex, 3> expressions = {
        boost::regex(R"(^__RefHeading___Toc\d+_\d+$)"),
        boost::regex(R"(^_Toc\d+$)"),
        boost::regex(fmt::format(R"(^{}\d+$)", FieldsEngine::GeneratedBookmarkPrefix)),
    };
    return std::any_of(expressions.begin(), expressions.end(),
        [&](const boost::regex& expression) { return boost::regex_match(name, expression); });
}

} // namespace QV::FilterUtils
