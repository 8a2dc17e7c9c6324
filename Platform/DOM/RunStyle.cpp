#include <DOM/Public/RunStyle.h>

#include <boost/functional/hash.hpp>

#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::DOM {

bool RunStyle::isEmpty() const
{
    return !_parentUUID && !_trackedParent && !_trackedRunProps && !_change && !_fieldInstruction &&
           !_hyperlink && (!_runProps || DOM::isEmpty(*_runProps));
}

bool operator==(const RunStyle& a, const RunStyle& b)
{
    return a._parentUUID == b._parentUUID && a._trackedParent == b._trackedParent &&
           pointeesEqual(a._runProps, b._runProps) && pointeesEqual(a._trackedRunProps, b._trackedRunProps) &&
           pointeesEqual(a._change, b._change) && pointeesEqual(a._fieldInstruction, b._fieldInstruction) &&
           pointeesEqual(a._hyperlink, b._hyperlink);
}

std::size_t hash_value(const RunStyle& style)
{
    std::size_t seed = 0;
    boost::hash_combine(seed, style._parentUUID);
    boost::hash_combine(seed, style._trackedParent.value_or(UUID()));
    boost::hash_combine(seed, hashPointee(style._runProps));
    boost::hash_combine(seed, hashPointee(style._trackedRunProps));
    boost::hash_combine(seed, hashPointee(style._change));
    boost::hash_combine(seed, hashPointee(style._fieldInstruction));
    boost::hash_combine(seed, hashPointee(style._hyperlink));
    return seed;
}

const std::shared_ptr<const RunProps>& getRunPropsForViewMode(
    const RunStyle& style, TrackChangesViewMode mode)
{
    const bool isTracked =
        hasBits(mode, TrackChangesViewMode::FollowTrackedParents) && style.getTrackedRunProps();
    return isTracked ? style.getTrackedRunProps() : style.getRunProps();
}

bool isShown(const RunStyle& style, TrackChangesViewMode mode)
{
    const auto& change = style.getChange();
    if (!change)
        return true;
    if (change->isRemoval())
        return hasBits(mode, TrackChangesViewMode::ShowDeletions);
    return hasBits(mode, TrackChangesViewMode::ShowInsertions) ||
           !hasBits(mode, TrackChangesViewMode::FollowTrackedParents);
}

} // namespace QV::DOM
