#include <FilterUtils/FU_TableIndices.h>

#include <fmt/format.h>

#include <Formulas/Public/Utils.h>

namespace QV::FilterUtils {

std::string toAlphaIndex(RowIndex row, ColumnIndex column)
{
    return fmt::format("{}{}", Formulas::Utils::convertIndexToAlphaIndex(column.get()), row.get() + 1);
}

std::string toAlphaIndex(const CellIndex& cell)
{
    return toAlphaIndex(cell.getRow(), cell.getColumn());
}

} // namespace QV::FilterUtils
