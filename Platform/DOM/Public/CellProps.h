#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <tuple>
#include <utility>

#include <boost/optional.hpp>

#include <DOM/Public/BordersProps.h>
#include <DOM/Public/CellFormat.h>
#include <DOM/Public/Color.h>
#include <DOM/Public/LineProps.h>
#include <DOM/Public/Properties.h>

namespace QV::DOM {

/// Where the text of a cell stands between its top and its bottom.
enum class VerticalAlignment : std::uint8_t
{
    Top,
    Center,
    Bottom,
    Justify,
    Distributed,
};

/// How a cell looks apart from its text. A property that is not set comes from the styles below.
class CellProps
{
public:
    /// The colour that fills the cell; a transparent one (alpha 0) takes away the filling of a layer below.
    const boost::optional<Color>& getBackgroundColor() const { return _backgroundColor; }
    /// Null where no side is set.
    const std::shared_ptr<const BordersProps>& getBorders() const { return _borders; }
    /// The line from the bottom left to the top right; null where there is none.
    const std::shared_ptr<const LineProps>& getDiagonalUp() const { return _diagonalUp; }
    /// The line from the top left to the bottom right; null where there is none.
    const std::shared_ptr<const LineProps>& getDiagonalDown() const { return _diagonalDown; }
    const boost::optional<VerticalAlignment>& getVerticalAlignment() const { return _verticalAlignment; }
    /// Whether text that is too long for a line goes on in the next one.
    const boost::optional<bool>& getTextWrapping() const { return _textWrapping; }
    /// How values are shown; null where nothing is said.
    const std::shared_ptr<const CellFormat>& getFormat() const { return _format; }

    void setBackgroundColor(const boost::optional<Color>& color) { _backgroundColor = color; }
    void setBorders(std::shared_ptr<const BordersProps> borders) { _borders = std::move(borders); }
    void setDiagonalUp(std::shared_ptr<const LineProps> line) { _diagonalUp = std::move(line); }
    void setDiagonalDown(std::shared_ptr<const LineProps> line) { _diagonalDown = std::move(line); }
    void setVerticalAlignment(const boost::optional<VerticalAlignment>& alignment)
    {
        _verticalAlignment = alignment;
    }
    void setTextWrapping(const boost::optional<bool>& textWrapping) { _textWrapping = textWrapping; }
    void setFormat(std::shared_ptr<const CellFormat> format) { _format = std::move(format); }

    static constexpr auto getFields()
    {
        return std::make_tuple(&CellProps::_backgroundColor, &CellProps::_borders, &CellProps::_diagonalUp,
            &CellProps::_diagonalDown, &CellProps::_verticalAlignment, &CellProps::_textWrapping,
            &CellProps::_format);
    }

    friend bool operator==(const CellProps& a, const CellProps& b) { return areEqual(a, b); }
    friend bool operator!=(const CellProps& a, const CellProps& b) { return !(a == b); }
    friend std::size_t hash_value(const CellProps& props) { return hashProps(props); }

private:
    boost::optional<Color> _backgroundColor;
    std::shared_ptr<const BordersProps> _borders;
    std::shared_ptr<const LineProps> _diagonalUp;
    std::shared_ptr<const LineProps> _diagonalDown;
    boost::optional<VerticalAlignment> _verticalAlignment;
    boost::optional<bool> _textWrapping;
    std::shared_ptr<const CellFormat> _format;
};

/// Lays @p source over @p target: the properties that it sets replace those of the target, borders side by
/// side.
inline void override(CellProps& target, const CellProps& source)
{
    std::shared_ptr<const BordersProps> borders = source.getBorders();
    if (borders && target.getBorders()) {
        auto both = std::make_shared<BordersProps>(*target.getBorders());
        override(*both, *borders);
        borders = std::move(both);
    }
    override<CellProps>(target, source);
    if (borders)
        target.setBorders(std::move(borders));
}

} // namespace QV::DOM
