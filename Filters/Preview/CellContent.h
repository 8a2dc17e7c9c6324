#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <DOM/Public/Block.h>
#include <DOM/Public/Cell.h>
#include <DOM/Public/CellFormat.h>
#include <Filters/Package/CellDisplays.h>

namespace QV::Filters {

/// What a cell shows by its number format, as HTML; empty for an empty cell. Text beyond @p bytesMax is cut,
/// which "…" shows.
/// @param format null for none
std::string makeCellContent(
    const DOM::Cell& cell, const DOM::CellFormat* format, CellDisplays& displays, std::size_t bytesMax);

/// The paragraphs of blocks in the same way, a line for each.
std::string makeBlocksContent(const std::vector<std::unique_ptr<DOM::Block>>& blocks, std::size_t bytesMax);

} // namespace QV::Filters
