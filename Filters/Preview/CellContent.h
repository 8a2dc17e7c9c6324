#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <DOM/Public/Block.h>
#include <DOM/Public/Cell.h>

namespace QV::Filters {

/// What a cell shows, as HTML; empty for an empty cell. Text beyond @p bytesMax is cut, which "…" shows.
std::string makeCellContent(const DOM::Cell& cell, std::size_t bytesMax);

/// The paragraphs of blocks in the same way, a line for each.
std::string makeBlocksContent(const std::vector<std::unique_ptr<DOM::Block>>& blocks, std::size_t bytesMax);

} // namespace QV::Filters
