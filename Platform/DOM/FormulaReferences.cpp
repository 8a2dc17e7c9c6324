#include <DOM/Public/FormulaReferences.h>

namespace QV::DOM::FormulaSyntaxTree {

const DocumentAddress EmptyDocumentAddress;

Label::Label(DocumentAddress document, TableAddress table, std::string name)
    : ValueExpr(std::move(document))
    , _table(std::move(table))
    , _name(std::move(name))
{
}

bool Label::equals(const Label& other) const
{
    return getDocURL() == other.getDocURL() && _table == other._table && _name == other._name;
}

CellAddress::CellAddress(
    DocumentAddress document, TableAddress table, ColumnAxisIndex column, RowAxisIndex row)
    : ValueExpr(std::move(document))
    , _table(std::move(table))
    , _column(column)
    , _row(row)
{
}

bool CellAddress::equals(const CellAddress& other) const
{
    return getDocURL() == other.getDocURL() && _table == other._table && _column == other._column &&
           _row == other._row;
}

CellRange::CellRange(DocumentAddress document, TableAddress first, TableAddress second,
    const ColumnAxis& columns, const RowAxis& rows)
    : ValueExpr(std::move(document))
    , _firstTable(std::move(first))
    , _secondTable(std::move(second))
    , _columns(columns)
    , _rows(rows)
{
}

bool CellRange::equals(const CellRange& other) const
{
    return getDocURL() == other.getDocURL() && _firstTable == other._firstTable &&
           _secondTable == other._secondTable && _columns == other._columns && _rows == other._rows;
}

} // namespace QV::DOM::FormulaSyntaxTree
