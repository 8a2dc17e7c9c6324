#pragma once

#include <memory>

#include <boost/optional.hpp>

#include <DOM/Public/FormulaReferences.h>

namespace QV::Formulas {

class ReferenceScanner;

/// Takes the production REF of References.h from the front of the text. Null where the text does not go on
/// with a reference; the scanner is anywhere then.
std::unique_ptr<DOM::FormulaSyntaxTree::Expr> takeReference(ReferenceScanner& scanner);

/// The rows or columns between two ends, which are put in order.
template <RowOrColumnTag Axis>
DOM::FormulaSyntaxTree::CellRangeAxis<Axis> makeOrderedAxis(
    const DOM::FormulaSyntaxTree::AxisIndex<Axis>& a, const DOM::FormulaSyntaxTree::AxisIndex<Axis>& b)
{
    using Result = DOM::FormulaSyntaxTree::CellRangeAxis<Axis>;
    return a.getIndex() <= b.getIndex() ? Result(a, b) : Result(b, a);
}

/// The same for ends that have the axis both or not at all: the whole axis then.
template <RowOrColumnTag Axis>
DOM::FormulaSyntaxTree::CellRangeAxis<Axis> makeAxis(
    const boost::optional<DOM::FormulaSyntaxTree::AxisIndex<Axis>>& a,
    const boost::optional<DOM::FormulaSyntaxTree::AxisIndex<Axis>>& b)
{
    return a && b ? makeOrderedAxis(*a, *b) : DOM::FormulaSyntaxTree::CellRangeAxis<Axis>::makeWhole();
}

} // namespace QV::Formulas
