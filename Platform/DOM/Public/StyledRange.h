#pragma once

#include <string>

#include <Utils/Public/TableIndices/TableRange.h>

namespace QV::DOM {

/// A rectangle of a sheet that is a table by itself: it has a name, and a table style over its cells.
struct StyledRange
{
    std::string name;      ///< as formulas refer to it; unique in a document
    TableRange range;      ///< with the rows of its head and its totals
    std::string styleName; ///< of a named table style, or of one that applications know; empty for none
};

} // namespace QV::DOM
