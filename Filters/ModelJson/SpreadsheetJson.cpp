#include <Filters/ModelJson/SpreadsheetJson.h>

#include <string>

#include <fmt/format.h>

#include <DOM/Public/ChartSpace.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Table.h>
#include <FilterUtils/FU_Colors.h>
#include <FilterUtils/FU_TableIndices.h>
#include <Filters/ModelJson/ChartJson.h>
#include <Filters/ModelJson/JsonWriter.h>
#include <Filters/ModelJson/PivotJson.h>
#include <Filters/Package/FilterRun.h>
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

void writeFormat(const DOM::CellStyle& style, JsonWriter& json)
{
    const auto& cellProps = style.getCellProps();
    if (cellProps && cellProps->getBackgroundColor())
        json.writeMember("fill", FilterUtils::convertRGBColor(cellProps->getBackgroundColor()->getRGBA()));
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

void writeCells(const DOM::Table& table, JsonWriter& json)
{
    json.writeKey("cells");
    json.beginArray();
    const auto cells = table.getTableIterators();
    for (auto it = cells.begin(); it != cells.end(); ++it) {
        const bool isFormatted = !it->getStyle().isEmpty();
        if (it->getKind() == DOM::Cell::Kind::Empty && !isFormatted)
            continue;
        json.beginObject();
        json.writeMember("ref", toAlphaIndex(it.getRowIndex(), it.getColIndex()));
        writeValue(*it, json);
        if (isFormatted)
            writeFormat(it->getStyle(), json);
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

void writeFrames(const DOM::Table& table, const Formulas::TableContext& tables, JsonWriter& json)
{
    json.writeKey("frames");
    json.beginArray();
    for (const auto& frame : table.getFrames()) {
        if (const auto* chart = dynamic_cast<const DOM::ChartSpace*>(frame->getGraphicalObject())) {
            json.beginObject();
            writeChart(*chart, tables, json);
            json.endObject();
            continue;
        }
        const auto* picture = dynamic_cast<const DOM::Picture*>(frame->getGraphicalObject());
        if (!picture)
            continue;
        json.beginObject();
        json.writeMember("kind", "picture");
        json.writeMember("media", picture->getMediaId());
        if (!picture->getMimeType().empty())
            json.writeMember("mimeType", picture->getMimeType());
        json.endObject();
    }
    json.endArray();
}

void writeTable(
    const DOM::Table& table, const std::string& id, const Formulas::TableContext& tables, JsonWriter& json)
{
    json.beginObject();
    json.writeMember("id", id);
    json.writeMember("name", table.getName());
    json.writeMember("rows", table.getLiveRowsCount());
    json.writeMember("columns", table.getLiveColsCount());
    json.writeMember("visible", table.isVisible());
    writeSizes(table, json);
    writeCells(table, json);
    writeMerges(table, json);
    writeFrames(table, tables, json);
    writePivotTables(table, json);
    json.endObject();
}

void writeMedia(const FilterRun& run, JsonWriter& json)
{
    json.writeKey("media");
    json.beginArray();
    for (const MediaItem& item : run.getMedia()) {
        json.beginObject();
        json.writeMember("id", item.id);
        if (!item.mimeType.empty())
            json.writeMember("mimeType", item.mimeType);
        json.writeMember("bytes", static_cast<unsigned long>(item.bytes));
        json.endObject();
    }
    json.endArray();
}

} // namespace

void writeSpreadsheetJson(FilterRun& run, std::ostream& out)
{
    const Formulas::TableContext tables = Formulas::TableContext::makeFor(run.getDocument());
    JsonWriter json(out);
    json.beginObject();
    json.writeMember("format", "xlsx");
    json.writeKey("tables");
    json.beginArray();
    for (const DOM::Block& block : run.getDocument().getBlocks()) {
        const auto* table = dynamic_cast<const DOM::Table*>(&block);
        if (table)
            writeTable(*table,
                run.getOptions().areIdsSequential ? run.generateId() : table->getUUID().toString(), tables,
                json);
    }
    json.endArray();
    json.writeKey("links");
    json.beginArray();
    for (const std::string& link : run.getLinks())
        json.write(link);
    json.endArray();
    writeMedia(run, json);
    json.endObject();
}

} // namespace QV::Filters
