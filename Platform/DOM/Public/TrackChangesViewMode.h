#pragma once

#include <cstdint>

namespace QV::DOM {

/// What a view of a document with tracked changes shows: a set of bits.
enum class TrackChangesViewMode : std::uint8_t
{
    Final = 0,                ///< as if every change were accepted
    ShowInsertions = 1,       ///< what was inserted is marked
    ShowDeletions = 2,        ///< what was deleted is there, and marked
    FollowTrackedParents = 4, ///< a tracked parent style stands in for the present one
};

constexpr TrackChangesViewMode operator|(TrackChangesViewMode a, TrackChangesViewMode b)
{
    return static_cast<TrackChangesViewMode>(static_cast<unsigned>(a) | static_cast<unsigned>(b));
}

/// Whether @p mode has every bit of @p bits.
constexpr bool hasBits(TrackChangesViewMode mode, TrackChangesViewMode bits)
{
    return (static_cast<unsigned>(mode) & static_cast<unsigned>(bits)) == static_cast<unsigned>(bits);
}

} // namespace QV::DOM
