#pragma once

/// @file
/// The colours that sections of format codes name.

#include <cstddef>
#include <string>

#include <boost/optional.hpp>
#include <boost/utility/string_ref.hpp>

#include <DOM/Public/Color.h>

namespace QV::OfficeUtils {

constexpr unsigned ColorsCount = 56;

/// The colours with names, which are the first ones of the palette.
constexpr const char* ColorNames[] = {"Black", "White", "Red", "Green", "Blue", "Yellow", "Magenta", "Cyan"};

/// The number of the colour whose name @p isSame accepts.
template <typename IsSame>
boost::optional<unsigned> findColorNumber(IsSame isSame)
{
    unsigned number = 1;
    for (const char* const name : ColorNames) {
        if (isSame(name))
            return number;
        ++number;
    }
    return boost::none;
}

/// "[Red]" or "[Color9]".
/// @param number from 1 to ColorsCount
std::string makeColorMark(unsigned number);

/// The colour itself; black for a number beyond the palette.
DOM::Color getPaletteColor(unsigned number);

} // namespace QV::OfficeUtils
