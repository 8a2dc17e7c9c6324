#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/Cell.h>
#include <DOM/Public/CellRow.h>
#include <DOM/Public/CellStyle.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/DateSystem.h>
#include <DOM/Public/Formula.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TableBuilder.h>
#include <FilterUtils/FU_NonIntersectedRanges.h>
#include <Filters/Package/Export.h>
#include <Filters/Package/MessageCounts.h>
#include <Filters/Spreadsheet/CellFormulas.h>
#include <Filters/Spreadsheet/IsoDates.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

class CellFormats;

/// What the sheets of a workbook share.
struct WorkbookContext
{
    const CellFormats& formats;
    std::vector<DOM::CellTextStock>& sharedStrings;
    DateSystem dateSystem;
    int maxDigitWidth; ///< pixels; see getMaxDigitWidth
    FormulaContext& formulas;
};

/// How the text of a cell's value is meant.
enum class CellType
{
    Number,
    SharedString,
    Boolean,
    Error,
    String,
    InlineString,
    Date,
};

/// Reads a cell's "t" attribute; nothing for a type that there is not.
FILTERS_API boost::optional<CellType> readCellType(std::u16string_view text);

/// Puts the contents of one sheet into a table, as a reader meets them. Rows and cells without a reference
/// follow the one before. What cannot be read is reported and passed over; of one trouble in very many cells,
/// the first thousand are named and the others counted.
class FILTERS_API SheetBuilder
{
public:
    SheetBuilder(const WorkbookContext& workbook, DOM::Table& table, OperationReport& report);

    /// @param width in characters; nothing gives the columns the default width
    void setColumns(unsigned long firstNumber, unsigned long lastNumber, boost::optional<double> width,
        bool isHidden, unsigned long format = 0);

    /// The style that a whole row or column of a format gives to the cells that it does not have; null where
    /// that sets nothing. A number that there is not is reported.
    DOM::SharedCellStyle getLineStyle(unsigned long format);

    /// @param number one-based; nothing for the row after the last one
    void startRow(boost::optional<unsigned long> number);
    void setRowProps(const DOM::RowProps& props);

    /// @param reference such as u"B7"; empty for the cell after the last one
    void startCell(std::u16string_view reference, unsigned long format, CellType type);
    /// Takes the text of the cell's value, which is written into the string that this returns: empty, and
    /// kept from cell to cell.
    std::string& startValue();
    /// The same in one step.
    void setValue(const std::string& text);
    void setText(const DOM::SharedCellText& text);
    void setFormula(const WrittenFormula& written);
    void endCell();

    void addMerge(std::u16string_view reference);

    /// Reports a bad value of the sheet; of each pattern so many times, after which it is only counted.
    void reportValue(const char* pattern, const std::string& value);

    /// Completes the table: sorts its cells, and marks its merges.
    void finish();

private:
    DOM::SharedCellStyle findStyle();
    void storeValue(DOM::Cell& cell);
    void storeNumber(DOM::Cell& cell, boost::optional<double> number, const char* message);
    void storeSharedString(DOM::Cell& cell);
    void storeBoolean(DOM::Cell& cell);
    DOM::SharedCellText makeText(const std::string& text);
    std::string nameCell() const;
    void reportCell(const char* pattern, const std::string& detail = {});

    const WorkbookContext& _workbook;
    DOM::Table& _table;
    OperationReport& _report;
    DOM::TableBuilder _cells;
    FilterUtils::NonIntersectedRanges _merges;
    CellFormulas _formulas;
    std::unordered_map<std::string, DOM::SharedCellText> _errors; // few distinct ones, in many cells
    MessageCounts _reported;                                      // of this sheet

    unsigned long _nextRow = 0;
    unsigned long _nextColumn = 0;
    unsigned long _row = 0;      // of the row that is open
    bool _hasLineStyles = false; // some row or column so far has a format

    // The cell that is open.
    CellIndex _place;
    bool _isPlaced = false;
    unsigned long _format = 0;
    CellType _type = CellType::Number;
    bool _hasValue = false;
    std::string _value;
    DOM::SharedCellText _text;
    boost::optional<DOM::Formula> _formula;
};

} // namespace QV::Filters
