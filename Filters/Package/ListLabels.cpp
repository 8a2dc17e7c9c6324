#include <Filters/Package/ListLabels.h>

#include <algorithm>
#include <limits>
#include <memory>

#include <boost/optional.hpp>

#include <DOM/Public/Document.h>
#include <Filters/Package/Utf8Cut.h>

namespace QV::Filters {
namespace {

constexpr std::size_t ListLabelBytesMax = 1024;

DOM::NumListMarkerType getMarkerType(const DOM::NumberingLevel& level)
{
    if (!level.getListMarker())
        return DOM::NumListMarkerType::None;
    return level.getListMarker()->getType().value_or(DOM::NumListMarkerType::Decimal);
}

bool isBulletType(DOM::NumListMarkerType type)
{
    return type == DOM::NumListMarkerType::Bullet || type == DOM::NumListMarkerType::PictureBullet;
}

/// Whether an item of the outer level @p item lets the level count anew.
bool restartsAfter(const DOM::NumberingLevel& level, std::size_t item)
{
    return !level.getRestartLevel() || item < *level.getRestartLevel();
}

/// @param isLegal whether numbers are decimal whatever their level says
std::string formatLevelNumber(const DOM::NumberingLevel& level, long number, bool isLegal)
{
    const DOM::NumListMarkerType type = getMarkerType(level);
    const bool isNumber = type != DOM::NumListMarkerType::None && !isBulletType(type);
    return formatListNumber(number, isLegal && isNumber ? DOM::NumListMarkerType::Decimal : type);
}

} // namespace

std::string ListLabels::next(const DOM::NumberingRef& reference)
{
    if (!reference.getNumListUUID())
        return {};
    const auto found = _document.getNumberedLists().find(*reference.getNumListUUID());
    if (found == _document.getNumberedLists().end() || found->second->getLevels().empty())
        return {};
    const DOM::NumberedList& list = *found->second;
    const auto& definitions = list.getLevels();
    const auto item = static_cast<std::size_t>(
        std::min<unsigned long>(reference.getLevel().value_or(0), definitions.size() - 1));

    const UUID tag = reference.getListTagUUID().value_or(UUID());
    Levels& levels = _counts[tag ? tag : list.getUUID()];
    if (levels.size() < definitions.size())
        levels.resize(definitions.size());
    count(list, item, levels);

    const DOM::NumberingLevel& definition = *definitions[item];
    if (!definition.getListMarker())
        return {};
    std::string label;
    const std::string& pattern = definition.getListMarker()->getText();
    const bool isPattern = !isBulletType(getMarkerType(definition));
    for (std::size_t i = 0; i < pattern.size() && label.size() <= ListLabelBytesMax; ++i) {
        const char digit = i + 1 < pattern.size() ? pattern[i + 1] : '\0';
        if (!isPattern || pattern[i] != '%' || digit < '1' || digit > '9') {
            label += pattern[i];
            continue;
        }
        ++i;
        const auto level = static_cast<std::size_t>(digit - '1');
        if (level > item)
            continue;
        label += formatLevelNumber(*definitions[level], levels[level].number, definition.isLegal());
    }
    cutUtf8(label, ListLabelBytesMax);
    return label;
}

void ListLabels::count(const DOM::NumberedList& list, std::size_t level, Levels& levels)
{
    const auto& definitions = list.getLevels();
    for (std::size_t outer = 0; outer < level; ++outer) // an item begins the levels around it, too
        if (!levels[outer].isActive) {
            levels[outer].number = definitions[outer]->getStart();
            levels[outer].isActive = true;
        }
    Level& counted = levels[level];
    if (isRestartedHere(list, level) || !counted.isActive)
        counted.number = definitions[level]->getStart();
    else if (counted.number < std::numeric_limits<long>::max())
        ++counted.number;
    counted.isActive = true;
    for (std::size_t deeper = level + 1; deeper < definitions.size(); ++deeper)
        if (restartsAfter(*definitions[deeper], level))
            levels[deeper].isActive = false;
}

bool ListLabels::isRestartedHere(const DOM::NumberedList& list, std::size_t level)
{
    const std::vector<unsigned long>& restarted = list.getRestartedLevels();
    if (!std::binary_search(restarted.begin(), restarted.end(), level))
        return false;
    std::vector<bool>& begun = _begun[list.getUUID()];
    if (begun.size() <= level)
        begun.resize(level + 1);
    const bool isFirst = !begun[level];
    begun[level] = true;
    return isFirst;
}

} // namespace QV::Filters
