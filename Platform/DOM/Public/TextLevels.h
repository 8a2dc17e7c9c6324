#pragma once

/// @file
/// How the text of a shape looks, list level by list level.

#include <array>
#include <cstddef>
#include <string>
#include <tuple>

#include <boost/optional.hpp>

#include <DOM/Public/Color.h>
#include <DOM/Public/NumberedList.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/Properties.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/ValueStruct.h>

namespace QV::DOM {

/// What stands before a paragraph on a slide.
struct TextMarker : ValueStruct<TextMarker>
{
    NumListMarkerType type = NumListMarkerType::None;
    std::string text; ///< of a bullet, its characters; of a number, a pattern such as "%1."
    long start = 1;   ///< of a number

    auto tie() const { return std::tie(type, text, start); }
};

/// The marker, and how it looks where that differs from the paragraph's first run.
struct TextBullet
{
    boost::optional<TextMarker> marker;    ///< NumListMarkerType::None takes away one of a layer below
    boost::optional<std::string> fontName; ///< empty: that of the text, said explicitly
    boost::optional<Color> color;          ///< without opacity: that of the text, said explicitly
    boost::optional<float> sizeShare;      ///< of the text's size
    boost::optional<float> size;           ///< in points; goes before the share

    static constexpr auto getFields()
    {
        return std::make_tuple(&TextBullet::marker, &TextBullet::fontName, &TextBullet::color,
            &TextBullet::sizeShare, &TextBullet::size);
    }

    friend bool operator==(const TextBullet& a, const TextBullet& b) { return areEqual(a, b); }
    friend bool operator!=(const TextBullet& a, const TextBullet& b) { return !(a == b); }
};

/// How the paragraphs of one list level look.
struct TextLevel
{
    ParaProps paraProps;
    RunProps runProps;
    TextBullet bullet;
    /// Spaces that are shares of the height of the paragraph's lines; they go before those in points.
    boost::optional<float> spaceBeforeShare;
    boost::optional<float> spaceAfterShare;
};

/// From the outermost level on.
using TextLevels = std::array<TextLevel, 9>;

/// Lays @p source over @p target, property by property.
inline void overrideLevel(TextLevel& target, const TextLevel& source)
{
    override(target.paraProps, source.paraProps);
    override(target.runProps, source.runProps);
    override(target.bullet, source.bullet);
    if (source.bullet.sizeShare) // which would go behind a size of the target's
        target.bullet.size = source.bullet.size;
    if (source.spaceBeforeShare || source.paraProps.getSpaceBefore())
        target.spaceBeforeShare = source.spaceBeforeShare;
    if (source.spaceAfterShare || source.paraProps.getSpaceAfter())
        target.spaceAfterShare = source.spaceAfterShare;
}

inline void overrideLevels(TextLevels& target, const TextLevels& source)
{
    for (std::size_t level = 0; level < target.size(); ++level)
        overrideLevel(target[level], source[level]);
}

} // namespace QV::DOM
