#pragma once

#include <DOM/Public/Adapter/CellInfo.h>
#include <DOM/Public/CellStyle.h>
#include <DOM/Public/Export.h>

namespace QV::DOM {
class Styles;
}

namespace QV::Adapter {

/// The style that a cell looks by: its own where it has one, else that of its row, else that of its column,
/// else the empty one. What its parent styles say is not in it. Valid as long as the table is unchanged.
DOM_API const DOM::CellStyle& getResolvedCellStyle(const CellInfo& cell, const DOM::Styles& styles);

} // namespace QV::Adapter
