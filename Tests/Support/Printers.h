#pragma once

// How GoogleTest prints our types in a failure.

#include <ostream>

#include <boost/optional/optional_io.hpp>

#include <Utils/Public/TableIndices/RowColumnIndices.h>
#include <Utils/Public/TableIndices/TableRange.h>

namespace QV {

template <typename T, typename Tag>
void PrintTo(const TaggedValue<T, Tag>& value, std::ostream* out)
{
    *out << value.get();
}

inline std::ostream& operator<<(std::ostream& out, const CellIndex& cell)
{
    return out << "row " << cell.getRow().get() << ", column " << cell.getColumn().get();
}

inline std::ostream& operator<<(std::ostream& out, const TableRange& range)
{
    return out << "rows [" << range.getBeginRow() << ", " << range.getEndRow() << "), columns ["
               << range.getBeginColumn() << ", " << range.getEndColumn() << ")";
}

} // namespace QV
