#pragma once

/// @file
/// Questions about one cell: whether it is empty, where it leads, and what its runs have in common.

#include <memory>

#include <boost/optional.hpp>

#include <DOM/Public/Color.h>
#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/RunProps.h>
#include <FilterUtils/FU_Export.h>

namespace QV::DOM {
class Cell;
class Styles;
} // namespace QV::DOM

namespace QV::FilterUtils {

/// Whether nothing would be lost without @p cell: it has no style, spans no other cell, and holds no text
/// blocks, or one paragraph without runs whose style and paragraph mark set nothing. A cell without a list of
/// text blocks (a number, say) is not empty.
FILTERUTILS_API bool isCellEmpty(const DOM::Cell& cell);

/// Where the first block of @p cell leads: a paragraph by its mark, else by its first run unless that is a
/// drawing; a field block by itself. Null where that leads nowhere; later blocks and runs do not count.
FILTERUTILS_API std::shared_ptr<const DOM::Hyperlink> getCellHyperlink(const DOM::Cell& cell);

/// What all runs of a cell share.
struct CellPropsFromRuns
{
    std::shared_ptr<const DOM::RunProps> runProps; ///< null where they differ
    boost::optional<DOM::Color> backgroundColor;   ///< nothing where they differ, or have none
};

/// What the text, tab and break runs of @p cell share, with what @p styles give them, tracked parents
/// followed. One run of another kind leaves no common properties; a common colour it leaves alone.
FILTERUTILS_API CellPropsFromRuns getCellPropsFromRuns(const DOM::Cell& cell, const DOM::Styles& styles);

} // namespace QV::FilterUtils
