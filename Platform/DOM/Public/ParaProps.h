#pragma once

#include <cstddef>
#include <cstdint>
#include <tuple>

#include <boost/optional.hpp>

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

/// How a paragraph looks. A property that is not set comes from the styles below.
class ParaProps
{
public:
    const boost::optional<HorizontalAlignment>& getHorizontalAlignment() const
    {
        return _horizontalAlignment;
    }

    void setHorizontalAlignment(const boost::optional<HorizontalAlignment>& alignment)
    {
        _horizontalAlignment = alignment;
    }

    static constexpr auto getFields() { return std::make_tuple(&ParaProps::_horizontalAlignment); }

    friend bool operator==(const ParaProps& a, const ParaProps& b) { return areEqual(a, b); }
    friend bool operator!=(const ParaProps& a, const ParaProps& b) { return !(a == b); }
    friend std::size_t hash_value(const ParaProps& props) { return hashProps(props); }

private:
    boost::optional<HorizontalAlignment> _horizontalAlignment;
};

} // namespace QV::DOM
