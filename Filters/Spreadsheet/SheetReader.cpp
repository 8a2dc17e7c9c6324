#include <Filters/Spreadsheet/SheetReader.h>

#include <cstddef>
#include <iterator>
#include <string_view>
#include <utility>

#include <boost/optional.hpp>

#include <DOM/Public/Table.h>
#include <FilterUtils/FU_XMLStreamReader.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/XmlParts.h>
#include <Filters/Spreadsheet/CellReferences.h>
#include <Filters/Spreadsheet/ColumnWidths.h>
#include <Filters/Spreadsheet/LeftOut.h>
#include <Filters/Spreadsheet/SheetBuilder.h>
#include <Filters/Spreadsheet/SpreadsheetWords.h>
#include <Filters/Spreadsheet/StringItems.h>
#include <OfficeUtils/Public/NumberParsing.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;
using FilterUtils::XMLFlow;
using FilterUtils::XMLStep;
using FilterUtils::XMLStreamElement;
using FilterUtils::XMLStreamEnd;
using FilterUtils::XMLStreamStart;

constexpr float UsualRowHeight = 15;     // points
constexpr unsigned UsualColumnWidth = 8; // characters
constexpr double RowHeightMax = 409.5;   // points
constexpr double ColumnWidthMax = 255;   // characters

const std::pair<int, const char*> LeftOutWords[] = {
    {Words::AutoFilter,            LeftOut::Filters           },
    {Words::ConditionalFormatting, LeftOut::ConditionalFormats},
    {Words::Controls,              LeftOut::EmbeddedObjects   },
    {Words::DataValidations,       LeftOut::DataValidations   },
    {Words::HeaderFooter,          LeftOut::HeadersFooters    },
    {Words::OleObjects,            LeftOut::EmbeddedObjects   },
    {Words::Picture,               LeftOut::SheetBackgrounds  },
    {Words::SheetProtection,       LeftOut::Protection        },
    {Words::SortState,             LeftOut::Filters           },
};

const std::pair<std::u16string_view, WrittenFormula::Kind> FormulaKinds[] = {
    {u"shared",    WrittenFormula::Kind::Shared   },
    {u"array",     WrittenFormula::Kind::Array    },
    {u"dataTable", WrittenFormula::Kind::DataTable},
};

class SheetHandler final : public FilterUtils::XMLStreamHandler
{
public:
    SheetHandler(const WorkbookContext& workbook, const Colors& colors, DOM::Table& table, FilterRun& run)
        : _workbook(workbook)
        , _table(table)
        , _run(run)
        , _builder(workbook, table, run.getReport())
        , _strings(colors, run)
    {
        _table.setDefaultRowHeight(UsualRowHeight);
        _table.setDefaultColumnWidth(getDefaultColumnWidth(UsualColumnWidth, workbook.maxDigitWidth));
    }

    XMLStep onStart(const XMLStreamStart& element) override
    {
        switch (element.getId()) {
        case Words::Cell:
            startCell(element);
            return XMLStep::Enter;
        case Words::Value:
            return XMLStep::EnterText;
        case Words::Formula:
            startFormula(element);
            return XMLStep::EnterText;
        case Words::Row:
            startRow(element);
            return XMLStep::Enter;
        case Words::InlineString:
            _strings.startItem();
            return XMLStep::Enter;
        case Words::Run:
        case Words::RunProps:
        case Words::Text:
        case Words::PhoneticRun:
            return _strings.onStart(element);
        default:
            return startOther(element);
        }
    }

    XMLFlow onEnd(const XMLStreamEnd& element) override
    {
        switch (element.getId()) {
        case Words::Value:
            element.appendText(_builder.startValue());
            break;
        case Words::Formula:
            element.appendText(_formula.text);
            _builder.setFormula(_formula);
            break;
        case Words::Cell:
            _builder.endCell();
            break;
        case Words::InlineString:
            _builder.setText(_strings.endItem());
            break;
        case Words::Worksheet:
            break;
        default:
            _strings.onEnd(element);
        }
        return XMLFlow::Continue;
    }

    XMLFlow onTree(const XMLStreamElement& element, const XMLElement& tree) override
    {
        _strings.onTree(element, tree);
        return XMLFlow::Continue;
    }

    /// Whether the part said that it is a worksheet, which nothing else is read of.
    bool isWorksheet() const { return _isWorksheet; }

    SheetReferences finish()
    {
        _builder.finish();
        return _references;
    }

private:
    XMLStep startOther(const XMLStreamStart& element)
    {
        switch (element.getId()) {
        case Words::Worksheet:
            _isWorksheet = true;
            return XMLStep::Enter;
        case Words::SheetData:
        case Words::Columns:
        case Words::MergeCells:
        case Words::Hyperlinks:
        case Words::TableParts:
        case Words::AlternateContent: // only what every reader understands is read: the fallback
        case Words::Fallback:
            return XMLStep::Enter;
        case Words::SheetFormatProps:
            readSheetFormat(element);
            return XMLStep::Skip;
        case Words::Column:
            readColumn(element);
            return XMLStep::Skip;
        case Words::MergeCell:
            _builder.addMerge(element.findAttribute(Words::Ref).value_or(std::u16string_view()));
            return XMLStep::Skip;
        case Words::Drawing:
            _references.drawingId = element.findAttributeText(Words::RelationshipId).value_or(std::string());
            return XMLStep::Skip;
        case Words::Hyperlink:
            _references.links.push_back({element.findAttributeText(Words::Ref).value_or(std::string()),
                element.findAttributeText(Words::RelationshipId).value_or(std::string()),
                element.findAttributeText(Words::Location).value_or(std::string())});
            return XMLStep::Skip;
        case Words::TablePart:
            _references.tableIds.push_back(
                element.findAttributeText(Words::RelationshipId).value_or(std::string()));
            return XMLStep::Skip;
        default:
            for (const auto& word : LeftOutWords)
                if (word.first == element.getId())
                    _run.leaveOut(word.second);
            return XMLStep::Skip;
        }
    }

    /// A number from 0 to @p max; anything else that stands there is reported.
    boost::optional<double> readNumber(
        const XMLStreamStart& element, int attribute, double max, const char* message)
    {
        const auto text = element.findAttributeText(attribute);
        if (!text)
            return boost::none;
        const auto number = OfficeUtils::stringToDouble(*text);
        if (!number || !(*number >= 0 && *number <= max)) {
            _builder.reportValue(message, *text);
            return boost::none;
        }
        return number;
    }

    static bool isTrue(const XMLStreamStart& element, int attribute)
    {
        const auto text = element.findAttribute(attribute);
        return text && (*text == u"1" || *text == u"true" || *text == u"on");
    }

    void startFormula(const XMLStreamStart& element)
    {
        _formula = WrittenFormula();
        const auto type = element.findAttribute(Words::Type);
        if (!type)
            return;
        for (const auto& kind : FormulaKinds)
            if (kind.first == *type)
                _formula.kind = kind.second;
        const auto read = [&](int attribute) {
            return element.findAttributeText(attribute).value_or(std::string());
        };
        _formula.sharedIndex = read(Words::SharedIndex);
        _formula.range =
            parseRangeReference(element.findAttribute(Words::Ref).value_or(std::u16string_view()));
        _formula.firstInput = read(Words::FirstInput);
        _formula.secondInput = read(Words::SecondInput);
        _formula.isRowInput = isTrue(element, Words::RowInput);
    }

    void readSheetFormat(const XMLStreamStart& element)
    {
        const auto height =
            readNumber(element, Words::DefaultRowHeight, RowHeightMax, "Unexpected row height {}");
        if (height)
            _table.setDefaultRowHeight(static_cast<float>(*height));
        if (isTrue(element, Words::ZeroHeight))
            _table.setDefaultRowHeight(0);
        const auto width =
            readNumber(element, Words::DefaultColumnWidth, ColumnWidthMax, "Unexpected column width {}");
        const auto base = readUnsigned(element.findAttribute(Words::BaseColumnWidth));
        if (width)
            _table.setDefaultColumnWidth(convertCharactersToPoints(*width, _workbook.maxDigitWidth));
        else if (base && *base <= 255)
            _table.setDefaultColumnWidth(
                getDefaultColumnWidth(static_cast<unsigned>(*base), _workbook.maxDigitWidth));
    }

    void readColumn(const XMLStreamStart& element)
    {
        const unsigned long first = readUnsigned(element.findAttribute(Words::Min)).value_or(0);
        const unsigned long last = readUnsigned(element.findAttribute(Words::Max)).value_or(first);
        const auto width = readNumber(element, Words::Width, ColumnWidthMax, "Unexpected column width {}");
        const unsigned long format = readFormatNumber(element, Words::ColumnStyle);
        _builder.setColumns(first, last, width, isTrue(element, Words::Hidden), format);
    }

    void startRow(const XMLStreamStart& element)
    {
        const auto number = element.findAttribute(Words::Reference);
        const auto row = readUnsigned(number);
        if (number && row.value_or(0) == 0)
            _builder.reportValue(
                "Row number {} is none", element.findAttributeText(Words::Reference).value_or(std::string()));
        _builder.startRow(row);
        DOM::RowProps props;
        if (element.findAttribute(Words::Height)) {
            const auto height = readNumber(element, Words::Height, RowHeightMax, "Unexpected row height {}");
            if (height)
                props.setHeight(static_cast<float>(*height));
        }
        props.setHidden(isTrue(element, Words::Hidden));
        if (isTrue(element, Words::CustomFormat))
            props.setSharedCellStyle(_builder.getLineStyle(readFormatNumber(element, Words::Style)));
        _builder.setRowProps(props);
    }

    unsigned long readFormatNumber(const XMLStreamStart& element, int attribute)
    {
        const auto text = element.findAttribute(attribute);
        const auto number = readUnsigned(text);
        if (text && !number)
            _builder.reportValue("Cell format number {} is none",
                element.findAttributeText(attribute).value_or(std::string()));
        return number.value_or(0);
    }

    void startCell(const XMLStreamStart& element)
    {
        CellType type = CellType::Number;
        if (const auto text = element.findAttribute(Words::Type)) {
            const auto known = readCellType(*text);
            if (!known)
                _builder.reportValue(
                    "Unknown cell type {}", element.findAttributeText(Words::Type).value_or(std::string()));
            type = known.value_or(CellType::String); // whatever it is, its text is kept
        }
        _builder.startCell(element.findAttribute(Words::Reference).value_or(std::u16string_view()),
            readFormatNumber(element, Words::Style), type);
    }

    const WorkbookContext& _workbook;
    DOM::Table& _table;
    FilterRun& _run;
    SheetBuilder _builder;
    StringItems _strings;
    SheetReferences _references;
    bool _isWorksheet = false;
    WrittenFormula _formula; // that is open
};

} // namespace

SheetReferences readSheet(Package& package, const std::string& part, const WorkbookContext& workbook,
    const Colors& colors, DOM::Table& table, FilterRun& run)
{
    SheetHandler handler(workbook, colors, table, run);
    const bool isWellFormed = readXmlStream(package, part, getSpreadsheetWords(), handler, run.getReport());
    if (isWellFormed && !handler.isWorksheet())
        run.getReport().emplace_back("Part {} is no worksheet", part);
    return handler.finish();
}

} // namespace QV::Filters
