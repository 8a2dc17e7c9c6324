#pragma once

/// @file
/// The parents of styles as a file has them, made such that each chain ends.

#include <cstddef>
#include <limits>
#include <vector>

#include <Filters/Package/Export.h>

namespace QV::Filters {

/// Of each style its parent's place in the list of styles; NoStyleParent for none.
using StyleParents = std::vector<std::size_t>;
constexpr std::size_t NoStyleParent = std::numeric_limits<std::size_t>::max();

/// How many styles a chain may have, the style itself included.
constexpr std::size_t MaxStyleChain = 100;

/// Styles that lost their parents.
struct CutStyles
{
    std::vector<std::size_t> circular; ///< the parent derives from the style, or is the style
    std::vector<std::size_t> tooDeep;  ///< a chain through the parent would be longer than MaxStyleChain
};

/// Takes away the parents that close a circle or make a chain too long. Styles are looked at in their order,
/// so the result is the same for each run. O(n).
/// @param parents NoStyleParent, or places in the list
FILTERS_API CutStyles cutStyleParents(StyleParents& parents);

} // namespace QV::Filters
