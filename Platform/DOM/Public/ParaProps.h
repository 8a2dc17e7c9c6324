#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <tuple>
#include <utility>
#include <vector>

#include <boost/functional/hash.hpp>
#include <boost/optional.hpp>

#include <DOM/Public/BordersProps.h>
#include <DOM/Public/Color.h>
#include <DOM/Public/Properties.h>

namespace QV::DOM {

/// Where the lines of a paragraph stand between its edges.
enum class HorizontalAlignment : std::uint8_t
{
    General, ///< as the value asks for: text to the left, numbers to the right
    Left,
    Center,
    Right,
    Justify,
    Distributed,
    Fill,             ///< the text is repeated over the width of the cell
    CenterContinuous, ///< centred over the cell and the empty ones to its right
};

/// A place in a line that a tab leads to.
class TabStop
{
public:
    enum class Kind : std::uint8_t
    {
        Left,
        Center,
        Right,
        Decimal,
        Bar,   ///< a line at that place; no tab leads to it
        Clear, ///< takes away the stop that a style has at that place
    };

    /// @param position in points from the left edge of the text
    TabStop(Kind kind, float position)
        : _position(position)
        , _kind(kind)
    {
    }

    Kind getKind() const { return _kind; }
    float getPosition() const { return _position; }

    friend bool operator==(const TabStop& a, const TabStop& b)
    {
        return a._kind == b._kind && a._position == b._position;
    }
    friend bool operator!=(const TabStop& a, const TabStop& b) { return !(a == b); }
    friend std::size_t hash_value(const TabStop& stop)
    {
        std::size_t seed = boost::hash<float>()(stop._position);
        boost::hash_combine(seed, stop._kind);
        return seed;
    }

private:
    float _position;
    Kind _kind;
};

/// From left to right.
using TabStops = std::vector<TabStop>;

/// The distance from line to line.
class LineSpacing
{
public:
    enum class Kind : std::uint8_t
    {
        Multiple, ///< of the height of the font's lines
        AtLeast,  ///< in points
        Exact,    ///< in points
    };

    LineSpacing(Kind kind, float value)
        : _value(value)
        , _kind(kind)
    {
    }

    Kind getKind() const { return _kind; }
    float getValue() const { return _value; }

    friend bool operator==(const LineSpacing& a, const LineSpacing& b)
    {
        return a._kind == b._kind && a._value == b._value;
    }
    friend bool operator!=(const LineSpacing& a, const LineSpacing& b) { return !(a == b); }
    friend std::size_t hash_value(const LineSpacing& spacing)
    {
        std::size_t seed = boost::hash<float>()(spacing._value);
        boost::hash_combine(seed, spacing._kind);
        return seed;
    }

private:
    float _value;
    Kind _kind;
};

/// How a paragraph looks. A property that is not set comes from the styles below. Lengths are points.
class ParaProps
{
public:
    const boost::optional<HorizontalAlignment>& getAlignment() const { return _alignment; }
    /// From the edges of the text; a negative one leads beyond them.
    const boost::optional<float>& getLeftIndent() const { return _leftIndent; }
    const boost::optional<float>& getRightIndent() const { return _rightIndent; }
    /// Of the first line, from the left indent; negative where the line hangs out to the left.
    const boost::optional<float>& getFirstLineIndent() const { return _firstLineIndent; }
    const boost::optional<float>& getSpaceBefore() const { return _spaceBefore; }
    const boost::optional<float>& getSpaceAfter() const { return _spaceAfter; }
    /// Whether there is no space to neighbours of the same style.
    const boost::optional<bool>& getContextualSpacing() const { return _contextualSpacing; }
    const boost::optional<LineSpacing>& getLineSpacing() const { return _lineSpacing; }
    const boost::optional<bool>& getPageBreakBefore() const { return _pageBreakBefore; }
    /// 0 for the outermost heading, up to 8; 9 for text that is no heading.
    const boost::optional<unsigned long>& getOutlineLevel() const { return _outlineLevel; }
    /// Whether text runs from right to left.
    const boost::optional<bool>& getRightToLeft() const { return _rightToLeft; }
    const boost::optional<Color>& getBackgroundColor() const { return _backgroundColor; }
    /// Around the paragraph; the horizontal line stands between paragraphs of equal borders. Null where no
    /// side is set.
    const std::shared_ptr<const BordersProps>& getBorders() const { return _borders; }
    /// Null where none are set.
    const std::shared_ptr<const TabStops>& getTabStops() const { return _tabStops; }

    void setAlignment(const boost::optional<HorizontalAlignment>& alignment) { _alignment = alignment; }
    void setLeftIndent(const boost::optional<float>& points) { _leftIndent = points; }
    void setRightIndent(const boost::optional<float>& points) { _rightIndent = points; }
    void setFirstLineIndent(const boost::optional<float>& points) { _firstLineIndent = points; }
    void setSpaceBefore(const boost::optional<float>& points) { _spaceBefore = points; }
    void setSpaceAfter(const boost::optional<float>& points) { _spaceAfter = points; }
    void setContextualSpacing(const boost::optional<bool>& isContextual)
    {
        _contextualSpacing = isContextual;
    }
    void setLineSpacing(const boost::optional<LineSpacing>& spacing) { _lineSpacing = spacing; }
    void setPageBreakBefore(const boost::optional<bool>& breaks) { _pageBreakBefore = breaks; }
    void setOutlineLevel(const boost::optional<unsigned long>& level) { _outlineLevel = level; }
    void setRightToLeft(const boost::optional<bool>& isRightToLeft) { _rightToLeft = isRightToLeft; }
    void setBackgroundColor(const boost::optional<Color>& color) { _backgroundColor = color; }
    void setBorders(std::shared_ptr<const BordersProps> borders) { _borders = std::move(borders); }
    void setTabStops(std::shared_ptr<const TabStops> stops) { _tabStops = std::move(stops); }

    static constexpr auto getFields()
    {
        return std::make_tuple(&ParaProps::_alignment, &ParaProps::_leftIndent, &ParaProps::_rightIndent,
            &ParaProps::_firstLineIndent, &ParaProps::_spaceBefore, &ParaProps::_spaceAfter,
            &ParaProps::_contextualSpacing, &ParaProps::_lineSpacing, &ParaProps::_pageBreakBefore,
            &ParaProps::_outlineLevel, &ParaProps::_rightToLeft, &ParaProps::_backgroundColor,
            &ParaProps::_borders, &ParaProps::_tabStops);
    }

    friend bool operator==(const ParaProps& a, const ParaProps& b) { return areEqual(a, b); }
    friend bool operator!=(const ParaProps& a, const ParaProps& b) { return !(a == b); }
    friend std::size_t hash_value(const ParaProps& props) { return hashProps(props); }

private:
    boost::optional<HorizontalAlignment> _alignment;
    boost::optional<float> _leftIndent;
    boost::optional<float> _rightIndent;
    boost::optional<float> _firstLineIndent;
    boost::optional<float> _spaceBefore;
    boost::optional<float> _spaceAfter;
    boost::optional<bool> _contextualSpacing;
    boost::optional<LineSpacing> _lineSpacing;
    boost::optional<bool> _pageBreakBefore;
    boost::optional<unsigned long> _outlineLevel;
    boost::optional<bool> _rightToLeft;
    boost::optional<Color> _backgroundColor;
    std::shared_ptr<const BordersProps> _borders;
    std::shared_ptr<const TabStops> _tabStops;
};

} // namespace QV::DOM
