#include <Filters/ModelJson/SpreadsheetJson.h>

#include <cmath>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include <DOM/Public/Adapter/ResolvedCellStyle.h>
#include <DOM/Public/Adapter/TableCellIterator.h>
#include <DOM/Public/Cell.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/Table.h>
#include <FilterUtils/FU_CellBordersStyleResolver.h>
#include <FilterUtils/FU_CellQueries.h>
#include <FilterUtils/FU_Colors.h>
#include <FilterUtils/FU_TableIndices.h>
#include <FilterUtils/FU_Text.h>
#include <Filters/ModelJson/FramesJson.h>
#include <Filters/ModelJson/JsonWriter.h>
#include <Filters/ModelJson/MediaJson.h>
#include <Filters/ModelJson/PivotJson.h>
#include <Filters/Package/CellDisplays.h>
#include <Filters/Package/FilterRun.h>
#include <Formulas/Public/FormulaText.h>
#include <Formulas/Public/TableContext.h>

namespace QV::Filters {
namespace {

using FilterUtils::toAlphaIndex;

void writeValue(const DOM::Cell& cell, JsonWriter& json)
{
    switch (cell.getKind()) {
    case DOM::Cell::Kind::Empty:
        return;
    case DOM::Cell::Kind::Number:
        json.writeMember("type", "number");
        json.writeMember("value", cell.getNumber());
        return;
    case DOM::Cell::Kind::Boolean:
        json.writeMember("type", "boolean");
        json.writeMember("value", cell.getBoolean());
        return;
    case DOM::Cell::Kind::Text:
        json.writeMember("type", "text");
        json.writeMember("value", cell.getText()->getPlainText());
        return;
    case DOM::Cell::Kind::Error:
        json.writeMember("type", "error");
        json.writeMember("value", cell.getText()->getPlainText());
        return;
    }
}

/// The format's code, and what the cell shows of a number or a text where that is not the value itself.
void writeNumberFormat(
    const DOM::Cell& cell, const DOM::CellFormat* format, CellDisplays& displays, JsonWriter& json)
{
    if (format && format->getCode() != "General")
        json.writeMember("format", format->getCode());
    if (cell.getKind() == DOM::Cell::Kind::Text && format) {
        const std::string text = cell.getText()->getPlainText();
        const auto displayed = displays.displayText(text, format);
        if (displayed && displayed->text != text)
            json.writeMember("display", displayed->text);
    }
    if (cell.getKind() != DOM::Cell::Kind::Number)
        return;
    const double number = cell.getNumber();
    constexpr double ShownAsItIs = 1e10; // with room for a whole number's digits
    if (!format && std::fabs(number) < ShownAsItIs && std::trunc(number) == number && number != 0)
        return;
    const std::string display = displays.displayNumber(number, format).text;
    if (display != fmt::format("{}", number))
        json.writeMember("display", display);
}

const char* const LineStyleNames[] = { // in the order of the enumerators
    "none", "solid", "double", "hair", "dotted", "dashed", "dashDot", "dashDotDot", "slantDashDot"};

void writeLine(const char* side, const DOM::LineProps& line, JsonWriter& json)
{
    json.writeKey(side);
    json.beginObject();
    json.writeMember("width", line.getWidth());
    if (line.getColor())
        json.writeMember("color", FilterUtils::convertRGBColor(line.getColor()->getRGBA()));
    json.writeMember("style", LineStyleNames[static_cast<std::size_t>(line.getStyle())]);
    json.endObject();
}

/// @param borders may be null
/// @param props of the cell, for its diagonals; may be null
void writeBorders(const DOM::BordersProps* borders, const DOM::CellProps* props, JsonWriter& json)
{
    std::vector<std::pair<const char*, DOM::BordersProps::Line>> lines;
    if (borders)
        lines = {
            {"left",   borders->getLeft()  },
            {"top",    borders->getTop()   },
            {"right",  borders->getRight() },
            {"bottom", borders->getBottom()}
        };
    if (props) {
        lines.emplace_back("diagonalUp", props->getDiagonalUp());
        lines.emplace_back("diagonalDown", props->getDiagonalDown());
    }
    bool hasLine = false;
    for (const auto& line : lines) {
        if (!line.second || line.second->getStyle() == DOM::LineStyle::None)
            continue;
        if (!hasLine) {
            json.writeKey("borders");
            json.beginObject();
        }
        hasLine = true;
        writeLine(line.first, *line.second, json);
    }
    if (hasLine)
        json.endObject();
}

bool isVisible(const DOM::Color& color)
{
    return color.getRGBA().a != 0;
}

void writeFormat(const DOM::CellStyle& style, const DOM::BordersProps* borders, JsonWriter& json)
{
    const DOM::CellProps* const props = style.getCellProps().get();
    if (props && props->getBackgroundColor() && isVisible(*props->getBackgroundColor()))
        json.writeMember("fill", FilterUtils::convertRGBColor(props->getBackgroundColor()->getRGBA()));
    writeBorders(borders, props, json);
    const auto& font = style.getRunProps();
    if (!font)
        return;
    if (font->getBold())
        json.writeMember("bold", *font->getBold());
    if (font->getItalic())
        json.writeMember("italic", *font->getItalic());
    if (font->getFontSize())
        json.writeMember("fontSize", *font->getFontSize());
    if (font->getColor())
        json.writeMember("fontColor", FilterUtils::convertRGBColor(font->getColor()->getRGBA()));
    if (font->getFontName())
        json.writeMember("fontName", *font->getFontName());
}

void writeCells(const DOM::Table& table, const DOM::Styles& styles, const Formulas::TableContext& tables,
    CellDisplays& displays, JsonWriter& json)
{
    json.writeKey("cells");
    json.beginArray();
    const FilterUtils::CellBordersStyleResolver resolver(styles, table, true, nullptr);
    const auto cells = Adapter::getCellIterators(table);
    for (auto it = cells.begin(); it != cells.end(); ++it) {
        const DOM::CellStyle& style = Adapter::getResolvedCellStyle(it.getCellInfo(), styles);
        const bool isFormatted = !style.isEmpty();
        const auto link = FilterUtils::getCellHyperlink(*it);
        if (it->getKind() == DOM::Cell::Kind::Empty && !it->getFormula() && !isFormatted && !link)
            continue;
        json.beginObject();
        json.writeMember("ref", toAlphaIndex(it.getRowIndex(), it.getColIndex()));
        writeValue(*it, json);
        if (const DOM::Formula* const formula = it->getFormula())
            json.writeMember("formula", Formulas::toText(*formula, tables));
        writeNumberFormat(*it, displays.findFormat(style), displays, json);
        if (link)
            json.writeMember("hyperlink", FilterUtils::joinHyperlink(*link));
        if (isFormatted)
            writeFormat(style, resolver.resolve(it).get(), json);
        json.endObject();
    }
    json.endArray();
}

void writeSizes(const DOM::Table& table, JsonWriter& json)
{
    json.writeMember("defaultColumnWidth", table.getDefaultColumnWidth());
    json.writeMember("defaultRowHeight", table.getDefaultRowHeight());
    json.writeKey("columnWidths");
    json.beginArray();
    for (unsigned long i = 0; i < table.getColumnPropsEnd().get(); ++i) {
        const DOM::ColumnProps props = table.getColumnProps(ColumnIndex(i));
        json.write(props.isHidden() ? 0.0F : props.getWidth().value_or(table.getDefaultColumnWidth()));
    }
    json.endArray();
    json.writeKey("rowHeights");
    json.beginArray();
    for (unsigned long i = 0; i < table.getRowPropsEnd().get(); ++i) {
        const DOM::RowProps props = table.getRowProps(RowIndex(i));
        json.write(props.isHidden() ? 0.0F : props.getHeight().value_or(table.getDefaultRowHeight()));
    }
    json.endArray();
}

void writeMerges(const DOM::Table& table, JsonWriter& json)
{
    json.writeKey("merges");
    json.beginArray();
    for (const TableRange& range : table.getMergedRanges()) {
        const std::string first =
            toAlphaIndex(RowIndex(range.getBeginRow()), ColumnIndex(range.getBeginColumn()));
        const std::string last =
            toAlphaIndex(RowIndex(range.getEndRow() - 1), ColumnIndex(range.getEndColumn() - 1));
        json.write(fmt::format("{}:{}", first, last));
    }
    json.endArray();
}

void writeTable(const DOM::Table& table, const DOM::Styles& styles, CellDisplays& displays,
    const Formulas::TableContext& tables, const std::string& id, JsonWriter& json)
{
    json.beginObject();
    json.writeMember("id", id);
    json.writeMember("name", table.getName());
    json.writeMember("rows", table.getLiveRowsCount());
    json.writeMember("columns", table.getLiveColsCount());
    json.writeMember("visible", table.isVisible());
    writeSizes(table, json);
    writeCells(table, styles, tables, displays, json);
    writeMerges(table, json);
    json.writeKey("frames");
    writeFramesJson(table, tables, json);
    writePivotTables(table, json);
    json.endObject();
}

void writeDefinedNames(const DOM::Document& document, const Formulas::TableContext& tables, JsonWriter& json)
{
    if (document.getDefinedNames().empty())
        return;
    json.writeKey("definedNames");
    json.beginArray();
    for (const DOM::DefinedName& name : document.getDefinedNames()) {
        json.beginObject();
        json.writeMember("name", name.getName());
        const std::string* const table = name.getTable() ? tables.findName(*name.getTable()) : nullptr;
        if (table)
            json.writeMember("table", *table);
        json.writeMember("formula", Formulas::toText(name.getFormula(), tables));
        if (!name.isVisible())
            json.writeMember("visible", false);
        json.endObject();
    }
    json.endArray();
}

} // namespace

void writeSpreadsheetJson(FilterRun& run, std::ostream& out)
{
    const Formulas::TableContext tables = Formulas::TableContext::makeFor(run.getDocument());
    CellDisplays displays(run.getDocument());
    JsonWriter json(out);
    json.beginObject();
    json.writeMember("format", "xlsx");
    json.writeKey("tables");
    json.beginArray();
    for (const DOM::Block& block : run.getDocument().getBlocks()) {
        const auto* table = dynamic_cast<const DOM::Table*>(&block);
        if (table)
            writeTable(*table, run.getDocument().getStyles(), displays, tables,
                run.getOptions().areIdsSequential ? run.generateId() : table->getUUID().toString(), json);
    }
    json.endArray();
    writeDefinedNames(run.getDocument(), tables, json);
    writeLinksAndMediaJson(run, json);
    json.endObject();
}

} // namespace QV::Filters
