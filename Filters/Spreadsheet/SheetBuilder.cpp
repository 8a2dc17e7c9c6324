#include <Filters/Spreadsheet/SheetBuilder.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

#include <fmt/format.h>

#include <FilterUtils/FU_CellQueries.h>
#include <FilterUtils/FU_TableIndices.h>
#include <Filters/Spreadsheet/CellFormats.h>
#include <Filters/Spreadsheet/CellReferences.h>
#include <Filters/Spreadsheet/ColumnWidths.h>
#include <Filters/Spreadsheet/EscapedText.h>
#include <OfficeUtils/Public/NumberParsing.h>
#include <Utils/Public/NumberText.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

constexpr unsigned long RowsMax = MaxRowIndex.get() + 1;
constexpr unsigned long ColumnsMax = MaxColumnIndex.get() + 1;
constexpr double StoredWidthMax = 255;

const std::pair<std::u16string_view, CellType> CellTypes[] = {
    {u"n",         CellType::Number      },
    {u"s",         CellType::SharedString},
    {u"b",         CellType::Boolean     },
    {u"e",         CellType::Error       },
    {u"str",       CellType::String      },
    {u"inlineStr", CellType::InlineString},
    {u"d",         CellType::Date        },
};

std::string convertAscii(std::u16string_view text)
{
    std::string ascii;
    for (const char16_t c : text)
        ascii += c < 0x80 ? static_cast<char>(c) : '?';
    return ascii;
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

void trimBlanks(std::string& text)
{
    while (!text.empty() && isBlank(text.back()))
        text.pop_back();
    if (!text.empty() && isBlank(text.front()))
        text.erase(0, text.find_first_not_of(" \t\n\r"));
}

} // namespace

boost::optional<CellType> readCellType(std::u16string_view text)
{
    const auto found = std::find_if(
        std::begin(CellTypes), std::end(CellTypes), [text](const auto& row) { return row.first == text; });
    return found == std::end(CellTypes) ? boost::none : boost::make_optional(found->second);
}

SheetBuilder::SheetBuilder(const WorkbookContext& workbook, DOM::Table& table, OperationReport& report)
    : _workbook(workbook)
    , _table(table)
    , _report(report)
    , _cells(table)
    , _formulas(workbook.formulas)
{
}

void SheetBuilder::setColumns(unsigned long firstNumber, unsigned long lastNumber,
    boost::optional<double> width, bool isHidden, unsigned long format)
{
    if (firstNumber == 0 || firstNumber > lastNumber || firstNumber > ColumnsMax) {
        constexpr const char* Pattern = "Columns {} to {} are not columns of a sheet";
        if (_reported.add(Pattern))
            _report.emplace_back(Pattern, std::to_string(firstNumber), std::to_string(lastNumber));
        return;
    }
    DOM::ColumnProps props;
    props.setHidden(isHidden);
    props.setSharedCellStyle(getLineStyle(format));
    if (width && *width >= 0 && *width <= StoredWidthMax)
        props.setWidth(convertCharactersToPoints(*width, _workbook.maxDigitWidth));
    else if (width)
        reportValue("Unexpected column width {}", fmt::format("{}", *width));
    const unsigned long end = std::min(lastNumber, ColumnsMax);
    _table.setColumnsProps({ColumnIndex(firstNumber - 1), ColumnIndex(end)}, props);
}

DOM::SharedCellStyle SheetBuilder::getLineStyle(unsigned long format)
{
    const CellFormats& formats = _workbook.formats;
    if (format >= formats.getCount()) {
        if (format != 0)
            reportValue("A row or column has an unknown format {}", std::to_string(format));
        return nullptr;
    }
    DOM::SharedCellStyle style = formats.getStyle(format);
    _hasLineStyles = _hasLineStyles || style;
    return style;
}

void SheetBuilder::startRow(boost::optional<unsigned long> number)
{
    _row = number && *number > 0 ? *number - 1 : _nextRow;
    _nextRow = _row + 1;
    _nextColumn = 0;
}

void SheetBuilder::setRowProps(const DOM::RowProps& props)
{
    if (!props.isEmpty() && _row < RowsMax)
        _table.setRowProps(RowIndex(_row), props);
}

void SheetBuilder::startCell(std::u16string_view reference, unsigned long format, CellType type)
{
    _place = CellIndex(RowIndex(_row), ColumnIndex(_nextColumn));
    if (!reference.empty()) {
        const auto place = parseCellReference(reference);
        if (place)
            _place = *place;
        else
            reportCell("Cell {} stands in for the reference {}, which is none", convertAscii(reference));
    }
    _isPlaced = isInGrid(_place);
    if (!_isPlaced)
        reportCell("Cell {} lies outside of the sheet and is left out");
    _nextColumn = _place.getColumn().get() + 1;
    _format = format;
    _type = type;
    _hasValue = false;
    _text = nullptr;
    _formula = boost::none;
}

std::string& SheetBuilder::startValue()
{
    _value.clear();
    _hasValue = true;
    return _value;
}

void SheetBuilder::setValue(const std::string& text)
{
    startValue() = text;
}

void SheetBuilder::setText(const DOM::SharedCellText& text)
{
    _text = text;
}

void SheetBuilder::setFormula(const WrittenFormula& written)
{
    if (!_isPlaced)
        return;
    CellFormulas::Result result = _formulas.make(written, _place);
    if (result.message)
        reportCell(result.message, result.detail);
    _formula = std::move(result.formula);
}

void SheetBuilder::endCell()
{
    if (!_isPlaced)
        return;
    DOM::SharedCellStyle style = findStyle();
    if (!_hasValue && !_text && !_formula && !_hasLineStyles) {
        DOM::Cell bare;
        bare.setSharedStyle(style);
        if (FilterUtils::isCellEmpty(bare)) {
            _table.ensureSize(_place.getRow().get() + 1, _place.getColumn().get() + 1);
            return;
        }
    }
    DOM::Cell& cell = _cells.appendCell(_place.getRow(), _place.getColumn());
    cell.setSharedStyle(std::move(style));
    if (_text)
        cell.setText(_text);
    else if (_hasValue)
        storeValue(cell);
    if (_formula)
        cell.setFormula(std::move(*_formula));
}

/// The style of the open cell. Null would make a cell look as its row or column does, so where these have
/// formats, a plain cell says that it is plain.
DOM::SharedCellStyle SheetBuilder::findStyle()
{
    const CellFormats& formats = _workbook.formats;
    if (_format >= formats.getCount() && _format != 0) {
        reportCell("Cell {} has an unknown format {}", std::to_string(_format));
        _format = 0;
    }
    DOM::SharedCellStyle style = _format < formats.getCount() ? formats.getStyle(_format) : nullptr;
    return style || !_hasLineStyles ? style : formats.getPlainStyle();
}

void SheetBuilder::storeValue(DOM::Cell& cell)
{
    if (_type != CellType::String && _type != CellType::InlineString) {
        trimBlanks(_value);
        if (_value.empty())
            return; // written so for formulas that gave nothing
    }
    switch (_type) {
    case CellType::Number:
        storeNumber(cell, OfficeUtils::stringToDouble(_value), "Cell {} has a value that is no number: {}");
        break;
    case CellType::Date:
        storeNumber(cell, convertIsoDateToSerial(_value, _workbook.dateSystem),
            "Cell {} has a value that is no date: {}");
        break;
    case CellType::SharedString:
        storeSharedString(cell);
        break;
    case CellType::Boolean:
        storeBoolean(cell);
        break;
    case CellType::Error: {
        DOM::SharedCellText& text = _errors[_value];
        if (!text)
            text = DOM::makePlainCellText(_value);
        cell.setError(text);
        break;
    }
    case CellType::String:
    case CellType::InlineString:
        cell.setText(makeText(_value));
        break;
    }
}

void SheetBuilder::storeNumber(DOM::Cell& cell, boost::optional<double> number, const char* message)
{
    if (number && std::isfinite(*number)) {
        cell.setNumber(*number);
        return;
    }
    reportCell(message, _value);
    cell.setText(makeText(_value)); // what the file says is not lost
}

void SheetBuilder::storeSharedString(DOM::Cell& cell)
{
    std::size_t position = 0;
    const auto index = strToUlong(_value, &position, 10);
    if (!index || position != _value.size() || *index >= _workbook.sharedStrings.size()) {
        reportCell("Cell {} has an unknown shared string {}", _value);
        return;
    }
    cell.setText(_workbook.sharedStrings[*index]);
}

void SheetBuilder::storeBoolean(DOM::Cell& cell)
{
    if (_value == "1" || _value == "true")
        cell.setBoolean(true);
    else if (_value == "0" || _value == "false")
        cell.setBoolean(false);
    else
        storeNumber(cell, boost::none, "Cell {} has a value that is no boolean: {}");
}

DOM::SharedCellText SheetBuilder::makeText(const std::string& text)
{
    std::string plain = text;
    unescapeText(plain);
    if (isTooLongForCell(plain))
        reportCell("Cell {} has more text than applications show: {} bytes", std::to_string(plain.size()));
    return DOM::makePlainCellText(plain);
}

std::string SheetBuilder::nameCell() const
{
    return FilterUtils::toAlphaIndex(_place);
}

void SheetBuilder::reportCell(const char* pattern, const std::string& detail)
{
    if (!_reported.add(pattern))
        return;
    if (detail.empty())
        _report.emplace_back(pattern, nameCell());
    else
        _report.emplace_back(pattern, nameCell(), detail);
}

void SheetBuilder::reportValue(const char* pattern, const std::string& value)
{
    if (_reported.add(pattern))
        _report.emplace_back(pattern, value);
}

void SheetBuilder::addMerge(std::u16string_view reference)
{
    const auto range = parseRangeReference(reference);
    if (!range || range->getBeginRow() >= RowsMax || range->getBeginColumn() >= ColumnsMax)
        reportValue("Merged range {} is no range of a sheet", convertAscii(reference));
    else if (!_merges.appendRange(*range))
        reportValue("Merged range {} overlaps an earlier one and is left out", convertAscii(reference));
}

void SheetBuilder::finish()
{
    _cells.finish();
    FilterUtils::applyMergedPropsToTable(_merges, RowsMax, ColumnsMax, _table);
    _reported.finish(_report);
}

} // namespace QV::Filters
