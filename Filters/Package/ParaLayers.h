#pragma once

/// @file
/// Paragraph properties of several styles, one laid over the other.

#include <memory>

#include <DOM/Public/ParaProps.h>

namespace QV::Filters {

/// Lays @p source over @p target: what it sets replaces what is there. Borders do so side by side, and tab
/// stops place by place; stops of TabStop::Kind::Clear stay for layers to come, see dropClearedTabStops. Of
/// the stops of both that come together, the leftmost 64 stay, as in word processors.
void layParaPropsOver(DOM::ParaProps& target, const DOM::ParaProps& source);

/// The same; null changes nothing.
void layParaPropsOver(DOM::ParaProps& target, const std::shared_ptr<const DOM::ParaProps>& source);

/// Takes away the stops of TabStop::Kind::Clear, once all layers are there.
void dropClearedTabStops(DOM::ParaProps& props);

} // namespace QV::Filters
