#include <Filters/Text/TextTable.h>

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <map>
#include <string>

#include <DOM/Public/Cell.h>
#include <DOM/Public/CellRow.h>
#include <DOM/Public/CellStyle.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Color.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Properties.h>
#include <DOM/Public/SharedObjectFactory.h>
#include <DOM/Public/TableStyle.h>
#include <FilterUtils/FU_NamedStylesFactory.h>
#include <FilterUtils/FU_NonIntersectedRanges.h>
#include <FilterUtils/FU_StyleHierarchy.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Text/FormatValues.h>
#include <Filters/Text/GatheredTable.h>
#include <Filters/Text/TableConditions.h>
#include <Filters/Text/TableFormats.h>
#include <Filters/Text/TableLook.h>
#include <Filters/Text/TextContext.h>
#include <Filters/Text/TextLeftOut.h>
#include <Utils/Public/NumberText.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>
#include <Utils/Public/TableIndices/TableRange.h>
#include <Utils/Public/UUID.h>

namespace QV::Filters {
namespace {

bool isTransparentFilling(const boost::optional<DOM::Color>& color)
{
    return color && color->getRGBA().a == 0;
}

} // namespace

struct TextTable::State
{
    explicit State(TextContext& theContext)
        : context(theContext)
        , values(names, theContext.colors, theContext.theme, theContext.getReport(), &theContext.messages)
        , styleId(theContext.styles.factory.getDefaultTableStyleUUID())
    {
    }

    void detectDialect(const FilterUtils::XMLElement& element, std::initializer_list<const char*> children);
    unsigned long readColumnsCount(const FormatText& text, unsigned long otherwise);
    boost::optional<float> readWidth(const FilterUtils::XMLElement& element) const;
    CellMerge readMerge(const FilterUtils::XMLElement& cellProps, const char* name) const;
    unsigned long takeColumns(unsigned long count);
    void tellTooWide();

    const TableConditions* findConditions() const;
    DOM::CellStyle makeStyle(const GatheredRow& row, const GatheredCell& cell, const TableRange& place) const;
    void addRow(DOM::Table& table, std::size_t number, FilterUtils::NonIntersectedRanges& merges);
    void addColumns(DOM::Table& table) const;

    TextContext& context;
    Names names{Dialect::Transitional}; // of the properties' elements
    FormatValues values;                // with these names
    UUID styleId;
    TableLook look;
    std::shared_ptr<const DOM::CellProps> props;
    boost::optional<float> width;
    GatheredTable gathered;
    const TableConditions* conditions = nullptr; // of the style, once the table has ended
    bool isDialectKnown = false;
    bool isRowOpen = false;
    bool isCellOpen = false;
    bool isTooWide = false;          // which was told
    unsigned long columnsTaken = 64; // that a cell may span; so many are free
};

/// Properties may be in either dialect, and an element does not tell its namespace; its children do.
void TextTable::State::detectDialect(
    const FilterUtils::XMLElement& element, std::initializer_list<const char*> children)
{
    for (const Dialect dialect : {Dialect::Transitional, Dialect::Strict}) {
        const Names candidate(dialect);
        for (const char* const child : children) {
            if (isDialectKnown)
                return;
            isDialectKnown = element.getElement(candidate(Vocabulary::WordProcessing, child)).isValid();
            names = isDialectKnown ? candidate : names;
        }
    }
}

unsigned long TextTable::State::readColumnsCount(const FormatText& text, unsigned long otherwise)
{
    if (!text.text)
        return otherwise;
    std::size_t position = 0;
    const auto count = strToUlong(*text.text, &position, 10);
    if (!count || position != text.text->size() || text.text->find('-') != std::string::npos) {
        values.report("Unexpected value {} of {}", *text.text, text.name);
        return otherwise;
    }
    if (*count > GatheredTable::ColumnsMax)
        tellTooWide();
    return takeColumns(std::min(*count, GatheredTable::ColumnsMax));
}

/// As many of @p count columns as the document has left: they take room in what is made of the table, though
/// a number is all that they are in the file.
unsigned long TextTable::State::takeColumns(unsigned long count)
{
    if (count <= columnsTaken)
        return count;
    const unsigned long more = count - columnsTaken;
    if (more > context.wideColumnsLeft) {
        values.report("Cells of more than {} columns are narrowed", std::to_string(columnsTaken));
        return columnsTaken;
    }
    context.wideColumnsLeft -= more;
    columnsTaken = count;
    return count;
}

boost::optional<float> TextTable::State::readWidth(const FilterUtils::XMLElement& element) const
{
    const FormatText type = values.attribute(element, "type");
    if (type.text && *type.text != "dxa")
        return boost::none; // a share of a width that is not known here, or what the text needs
    const auto points = values.readMeasure(values.attribute(element, "w"));
    return points && *points > 0 ? boost::optional<float>(*points) : boost::none;
}

CellMerge TextTable::State::readMerge(const FilterUtils::XMLElement& cellProps, const char* name) const
{
    if (!values.find(cellProps, name).isValid())
        return CellMerge::None;
    constexpr FormatName<CellMerge> Kinds[] = {
        {"restart",  CellMerge::Restart },
        {"continue", CellMerge::Continue},
    };
    return values.readName(Kinds, values.value(cellProps, name)).value_or(CellMerge::Continue);
}

void TextTable::State::tellTooWide()
{
    if (!isTooWide)
        values.report("A table has more than {} columns", std::to_string(GatheredTable::ColumnsMax));
    isTooWide = true;
}

const TableConditions* TextTable::State::findConditions() const
{
    const auto found = context.styles.tableConditions.find(styleId);
    return found == context.styles.tableConditions.end() ? nullptr : &found->second;
}

DOM::CellStyle TextTable::State::makeStyle(
    const GatheredRow& row, const GatheredCell& cell, const TableRange& place) const
{
    // Rows of a table may begin and end in different columns; their first and last cells are at the edges.
    const TableRange table(
        0, row.cells.front().column, gathered.rows.size(), row.cells.back().column + row.cells.back().span);
    DOM::CellStyle style;
    if (conditions)
        style = makeConditionalStyle(*conditions, look, place, table);
    std::shared_ptr<DOM::CellProps> cellProps;
    FilterUtils::override(cellProps, style.getCellProps());
    FilterUtils::override(cellProps, placeBorders(row.exceptions, table, place));
    FilterUtils::override(cellProps, cell.props);
    const bool hasLayers = conditions || row.exceptions || (props && props->getBackgroundColor());
    if (cellProps && isTransparentFilling(cellProps->getBackgroundColor()) && !hasLayers)
        cellProps->setBackgroundColor(boost::none); // there is nothing to take away
    if (cellProps && DOM::isEmpty(*cellProps))
        cellProps.reset();
    style.setCellProps(std::move(cellProps));
    return style;
}

void TextTable::State::addRow(
    DOM::Table& table, std::size_t number, FilterUtils::NonIntersectedRanges& merges)
{
    GatheredRow& row = gathered.rows[number];
    for (GatheredCell& cell : row.cells) {
        if (cell.rows == 0)
            continue;
        const TableRange place(number, cell.column, number + cell.rows, cell.column + cell.span);
        DOM::Cell& made = table.getOrMakeCell(RowIndex(number), ColumnIndex(cell.column));
        if (!cell.blocks.empty())
            made.setText(DOM::SharedCellText(new DOM::CellText(std::move(cell.blocks))));
        const DOM::CellStyle style = makeStyle(row, cell, place);
        if (!style.isEmpty())
            made.setSharedStyle(context.run.getDocument().getSharedObjectFactory().getShared(style));
        if (cell.rows > 1 || cell.span > 1)
            merges.appendRange(place);
    }
    if (row.height) {
        DOM::RowProps rowProps;
        rowProps.setHeight(row.height);
        table.setRowProps(RowIndex(number), rowProps);
    }
}

/// The widths of the grid, those of cells where it has none; what is left of the table's width is for the
/// other columns.
void TextTable::State::addColumns(DOM::Table& table) const
{
    std::map<unsigned long, float> widths = gathered.cellWidths;
    for (std::size_t column = 0; column < gathered.grid.size(); ++column)
        if (gathered.grid[column])
            widths[column] = *gathered.grid[column];
    float rest = width.value_or(0);
    unsigned long others = table.getLiveColsCount();
    for (const auto& [column, points] : widths) {
        if (column >= table.getLiveColsCount())
            break;
        DOM::ColumnProps columnProps;
        columnProps.setWidth(points);
        table.setColumnsProps({ColumnIndex(column), ColumnIndex(column + 1)}, columnProps);
        rest -= points;
        --others;
    }
    if (others > 0 && rest > 0)
        table.setDefaultColumnWidth(rest / static_cast<float>(others));
}

TextTable::TextTable(TextContext& context)
    : _state(std::make_unique<State>(context))
{
}

TextTable::~TextTable() = default;

void TextTable::readTableProps(const FilterUtils::XMLElement& tableProps)
{
    _state->detectDialect(
        tableProps, {"tblStyle", "tblW", "tblLook", "tblBorders", "tblLayout", "jc", "tblInd", "shd"});
    const FormatValues& values = _state->values;
    const FormatText style = values.value(tableProps, "tblStyle");
    if (style.text) {
        const auto& ids = _state->context.styles.tableStyleIds;
        const auto known = ids.find(*style.text);
        if (known != ids.end())
            _state->styleId = known->second;
        else
            values.report("Table style {} is not there", *style.text);
    }
    _state->look = readTableLook(values.find(tableProps, "tblLook"), _state->names);
    _state->width = _state->readWidth(values.find(tableProps, "tblW"));
    _state->props = readTableFormat(tableProps, values);
}

void TextTable::readGrid(const FilterUtils::XMLElement& grid)
{
    _state->detectDialect(grid, {"gridCol"});
    auto& widths = _state->gathered.grid;
    _state->values.processElements(grid, "gridCol", [&](const FilterUtils::XMLElement& column) {
        if (widths.size() < GatheredTable::ColumnsMax)
            widths.push_back(_state->readWidth(column));
        else
            _state->tellTooWide();
    });
}

void TextTable::beginRow()
{
    endRow();
    _state->gathered.rows.emplace_back();
    _state->isRowOpen = true;
}

void TextTable::readRowProps(const FilterUtils::XMLElement& rowProps)
{
    if (!_state->isRowOpen)
        return;
    _state->detectDialect(
        rowProps, {"gridBefore", "trHeight", "gridAfter", "wBefore", "cantSplit", "tblHeader", "jc"});
    const FormatValues& values = _state->values;
    if (values.find(rowProps, "ins").isValid() || values.find(rowProps, "del").isValid())
        _state->context.run.leaveOut(TextLeftOut::ChangedTables);
    GatheredRow& row = _state->gathered.rows.back();
    row.gapBefore = _state->readColumnsCount(values.value(rowProps, "gridBefore"), 0);
    const FormatText rule = values.attribute(values.find(rowProps, "trHeight"), "hRule");
    const auto points = values.readMeasure(values.value(rowProps, "trHeight"));
    if (points && *points > 0 && rule.text != std::string("auto"))
        row.height = *points;
}

void TextTable::readRowExceptions(const FilterUtils::XMLElement& exceptions)
{
    if (!_state->isRowOpen)
        return;
    _state->detectDialect(exceptions, {"tblBorders", "shd", "tblW", "tblLook", "jc", "tblInd"});
    _state->gathered.rows.back().exceptions = readTableFormat(exceptions, _state->values);
}

void TextTable::endRow()
{
    endCell({});
    if (_state->isRowOpen && !_state->gathered.placeCells(_state->gathered.rows.back()))
        _state->tellTooWide();
    _state->isRowOpen = false;
}

void TextTable::beginCell()
{
    endCell({});
    if (!_state->isRowOpen)
        beginRow();
    _state->gathered.rows.back().cells.emplace_back();
    _state->isCellOpen = true;
}

void TextTable::readCellProps(const FilterUtils::XMLElement& cellProps)
{
    if (!_state->isCellOpen)
        return;
    _state->detectDialect(
        cellProps, {"tcW", "gridSpan", "vMerge", "hMerge", "tcBorders", "shd", "vAlign", "cnfStyle"});
    const FormatValues& values = _state->values;
    for (const char* const change : {"cellIns", "cellDel", "cellMerge"})
        if (values.find(cellProps, change).isValid())
            _state->context.run.leaveOut(TextLeftOut::ChangedTables);
    GatheredCell& cell = _state->gathered.rows.back().cells.back();
    cell.span = std::max(_state->readColumnsCount(values.value(cellProps, "gridSpan"), 1), 1UL);
    cell.vertical = _state->readMerge(cellProps, "vMerge");
    cell.horizontal = _state->readMerge(cellProps, "hMerge");
    cell.width = _state->readWidth(values.find(cellProps, "tcW"));
    cell.props = readCellFormat(cellProps, values);
}

void TextTable::endCell(std::vector<std::unique_ptr<DOM::Block>> blocks)
{
    if (_state->isCellOpen)
        _state->gathered.rows.back().cells.back().blocks = std::move(blocks);
    _state->isCellOpen = false;
}

std::unique_ptr<DOM::Table> TextTable::finish()
{
    endRow();
    auto table = std::make_unique<DOM::Table>();
    DOM::TableStyle style;
    style.setParentUUID(_state->styleId);
    style.setCellProps(_state->props);
    table->setStyle(style);
    GatheredTable& gathered = _state->gathered;
    const unsigned long columnsCount = gathered.countColumns();
    if (columnsCount == 0)
        return table;
    _state->conditions = _state->findConditions();
    gathered.mergeRows();
    table->ensureSize(gathered.rows.size(), columnsCount);
    FilterUtils::NonIntersectedRanges merges;
    for (std::size_t row = 0; row < gathered.rows.size(); ++row)
        _state->addRow(*table, row, merges);
    if (!merges.getRanges().empty()) {
        const unsigned long noLimit = MaxRowIndex.get() + 2; // every merge lies inside of the table
        FilterUtils::applyMergedPropsToTable(merges, noLimit, noLimit, *table);
    }
    _state->addColumns(*table);
    return table;
}

} // namespace QV::Filters
