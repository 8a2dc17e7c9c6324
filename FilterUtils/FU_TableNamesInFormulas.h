#pragma once

/// @file
/// References to tables by name become references by identifier, which survive a new name of the table.

#include <functional>
#include <string>

#include <DOM/Public/FormulaExpr.h>
#include <FilterUtils/FU_Export.h>

namespace QV {
class UUID;
}
namespace QV::DOM {
class Document;
}

namespace QV::FilterUtils {

/// Puts the identifier of a table in the place of its name, in every reference and label of the formula that
/// has @p root: the one of a cell or label, both of a range.
///
///     const Formulas::TableContext tables = Formulas::TableContext::makeFor(document);
///     replaceTableNamesWithUUIDs(
///         [&](const std::string& name) { return tables.findTable(name); }, formula.getSyntaxTree());
///
/// @param resolver gives the identifier of the table with that name, to be copied at once, or null where
/// there
///     is none: the name stays then. Is not asked about the empty name, which is no table, nor about
///     addresses that are identifiers already. Is asked about tables of other documents like about any.
///
/// Nodes are visited from the root and from left to right, and each address is set, changed or not. What
/// @p resolver throws passes through, as does std::bad_function_call where it is empty and there is a name to
/// ask it about; nodes that were visited before stay changed. Constant stack.
FILTERUTILS_API void replaceTableNamesWithUUIDs(
    std::function<const UUID*(const std::string&)> resolver, DOM::FormulaSyntaxTree::Expr& root);

/// Does the same in the charts of all tables of @p document: in the formulas of titles, categories, names and
/// values. Each chart of a frame is replaced by a copy, even where nothing changed: whoever shares the old
/// one sees no change in it. Charts within groups are no frames of a table, and are left alone, as are
/// objects of classes derived from DOM::Table and DOM::ChartSpace.
///
/// What @p resolver throws passes through; the frame at hand keeps its chart then, and those before have
/// their new ones. A null frame asserts "plainPtr"; it is left out where the handler returns.
FILTERUTILS_API void replaceTableNamesWithUUIDsForCharts(
    std::function<const UUID*(const std::string&)> resolver, DOM::Document& document);

} // namespace QV::FilterUtils
