#pragma once

/// @file
/// The nodes of a formula's syntax tree that refer to cells and names.

#include <memory>
#include <string>
#include <utility>

#include <boost/variant.hpp>

#include <DOM/Public/Export.h>
#include <DOM/Public/FormulaExpr.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>
#include <Utils/Public/TaggedValue.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM::FormulaSyntaxTree {

/// The table that a reference points into: by name, or by identifier, which survives a new name. The empty
/// name is no table.
using TableAddress = boost::variant<std::string, QV::UUID>;

struct DocumentAddressTag;
/// The document that a reference points into: its URL, or whatever the file has in the place of one.
using DocumentAddress = TaggedValue<std::string, DocumentAddressTag>;

/// The address of the formula's own document.
DOM_API extern const DocumentAddress EmptyDocumentAddress;

/// One row or column of a reference.
template <RowOrColumnTag Axis>
class AxisIndex
{
public:
    using Index = TaggedValue<unsigned long, TypeUtils::ValueTag<RowOrColumnTag, Axis>>;

    constexpr AxisIndex() = default;
    /// @param isAbsolute whether copies of the formula keep the index ("$")
    constexpr explicit AxisIndex(Index index, bool isAbsolute = false)
        : _index(index)
        , _isAbsolute(isAbsolute)
    {
    }

    constexpr Index getIndex() const { return _index; }
    constexpr bool isAbsolute() const { return _isAbsolute; }

    friend constexpr bool operator==(const AxisIndex& a, const AxisIndex& b)
    {
        return a._index == b._index && a._isAbsolute == b._isAbsolute;
    }
    friend constexpr bool operator!=(const AxisIndex& a, const AxisIndex& b) { return !(a == b); }

private:
    Index _index;
    bool _isAbsolute = false;
};

/// The rows or columns of a range, both ends included. Takes any indices: who needs them ordered and within
/// a sheet asks isValidRange.
template <RowOrColumnTag Axis>
class CellRangeAxis
{
public:
    using Index = typename AxisIndex<Axis>::Index;

    /// The largest index of a sheet.
    static constexpr Index Max = Index(Axis == RowTag ? MaxRowIndex.get() : MaxColumnIndex.get());

    constexpr CellRangeAxis(AxisIndex<Axis> first, AxisIndex<Axis> last)
        : _first(first)
        , _last(last)
    {
    }
    /// Plain indices.
    constexpr CellRangeAxis(Index first, Index last)
        : CellRangeAxis(AxisIndex<Axis>(first), AxisIndex<Axis>(last))
    {
    }
    /// All of the axis, as the rows of "A:C" are.
    static constexpr CellRangeAxis makeWhole()
    {
        CellRangeAxis axis(Index(0), Max);
        axis._isWhole = true;
        return axis;
    }

    constexpr const AxisIndex<Axis>& getFirst() const { return _first; }
    constexpr const AxisIndex<Axis>& getLast() const { return _last; }
    /// Whether the range is written without this axis.
    constexpr bool isWhole() const { return _isWhole; }

    friend constexpr bool operator==(const CellRangeAxis& a, const CellRangeAxis& b)
    {
        return a._first == b._first && a._last == b._last && a._isWhole == b._isWhole;
    }
    friend constexpr bool operator!=(const CellRangeAxis& a, const CellRangeAxis& b) { return !(a == b); }

private:
    AxisIndex<Axis> _first;
    AxisIndex<Axis> _last;
    bool _isWhole = false;
};

using ColumnAxisIndex = AxisIndex<ColumnTag>;
using RowAxisIndex = AxisIndex<RowTag>;
using ColumnAxis = CellRangeAxis<ColumnTag>;
using RowAxis = CellRangeAxis<RowTag>;

/// What refers to something that may lie in another document.
class DOM_API BaseReferenceExpr : public Expr
{
public:
    explicit BaseReferenceExpr(DocumentAddress document)
        : _document(std::move(document))
    {
    }

    /// Empty where the reference stays in its document.
    const std::string& getDocURL() const { return _document.get(); }
    void setDocumentAddress(DocumentAddress document) { _document = std::move(document); }

private:
    DocumentAddress _document;
};

/// A defined name, such as "Rate" or "Sheet1!Rate".
class DOM_API Label final : public ValueExpr<Label, BaseReferenceExpr>
{
public:
    /// @param table the empty name where the defined name belongs to the whole document
    Label(DocumentAddress document, TableAddress table, std::string name);

    const std::string& getName() const { return _name; }
    const TableAddress& getTableAddress() const { return _table; }
    void setTableAddress(TableAddress table) { _table = std::move(table); }

    bool equals(const Label& other) const;

private:
    TableAddress _table;
    std::string _name;
};

/// One cell, such as "$A1" or "Sheet1!A1".
class DOM_API CellAddress final : public ValueExpr<CellAddress, BaseReferenceExpr>
{
public:
    /// @param table the empty name where the cell lies in the formula's own table
    CellAddress(DocumentAddress document, TableAddress table, ColumnAxisIndex column, RowAxisIndex row);

    const TableAddress& getTableAddress() const { return _table; }
    void setTableAddress(TableAddress table) { _table = std::move(table); }
    const ColumnAxisIndex& getColumn() const { return _column; }
    const RowAxisIndex& getRow() const { return _row; }

    bool equals(const CellAddress& other) const;

private:
    TableAddress _table;
    ColumnAxisIndex _column;
    RowAxisIndex _row;
};

/// A rectangle of cells, such as "A1:B2", "Sheet1!A:C" or, through a row of tables, "Sheet1:Sheet3!A1".
class DOM_API CellRange final : public ValueExpr<CellRange, BaseReferenceExpr>
{
public:
    /// @param first the empty name where the range lies in the formula's own table
    /// @param second the last of a row of tables; the empty name where the range lies in one
    CellRange(DocumentAddress document, TableAddress first, TableAddress second, const ColumnAxis& columns,
        const RowAxis& rows);

    const TableAddress& getFirstTableAddress() const { return _firstTable; }
    void setFirstTableAddress(TableAddress table) { _firstTable = std::move(table); }
    const TableAddress& getSecondTableAddress() const { return _secondTable; }
    void setSecondTableAddress(TableAddress table) { _secondTable = std::move(table); }
    const ColumnAxis& getColumns() const { return _columns; }
    const RowAxis& getRows() const { return _rows; }

    bool equals(const CellRange& other) const;

private:
    TableAddress _firstTable;
    TableAddress _secondTable;
    ColumnAxis _columns;
    RowAxis _rows;
};

} // namespace QV::DOM::FormulaSyntaxTree
