#pragma once

#include <string>

#include <DOM/Public/Table.h>

namespace QV::Filters {

struct PageContext;

/// The room that the names of rows and columns take at the edges of a sheet, in points.
constexpr float RowHeadWidth = 36;
constexpr float ColumnHeadHeight = 15;

/// Appends what the frames of a sheet show, each at its place over the cells.
void writeFrames(const DOM::Table& table, const PageContext& context, std::string& page);

} // namespace QV::Filters
