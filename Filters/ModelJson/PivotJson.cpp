#include <Filters/ModelJson/PivotJson.h>

#include <string>

#include <DOM/Public/PivotTable.h>
#include <DOM/Public/Table.h>
#include <FilterUtils/FU_PivotTables.h>
#include <FilterUtils/FU_TableIndices.h>
#include <Filters/ModelJson/JsonWriter.h>

namespace QV::Filters {

using FilterUtils::toAlphaIndex;

void writePivotTables(const DOM::Table& table, JsonWriter& json)
{
    json.writeKey("pivotTables");
    json.beginArray();
    for (const DOM::PivotTable& pivotTable : table.getPivotTables()) {
        const auto range =
            FilterUtils::resolvePivotTableTargetRange(table, pivotTable, pivotTable.getLocation());
        const CellIndex first(
            range.getRows().getFirst().getIndex(), range.getColumns().getFirst().getIndex());
        const CellIndex last(range.getRows().getLast().getIndex(), range.getColumns().getLast().getIndex());
        json.beginObject();
        json.writeMember("name", pivotTable.getName());
        json.writeMember(
            "range", first == last ? toAlphaIndex(first) : toAlphaIndex(first) + ':' + toAlphaIndex(last));
        json.endObject();
    }
    json.endArray();
}

} // namespace QV::Filters
