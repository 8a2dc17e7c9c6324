#include <Filters/Spreadsheet/PivotReader.h>

#include <string_view>
#include <utility>

#include <FilterUtils/FU_Errors.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Package/XmlParts.h>
#include <Filters/Spreadsheet/CellReferences.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

/// The place as a range of a sheet; nothing for any other text.
boost::optional<TableRange> readPlace(const std::string& text)
{
    const auto range = parseRangeReference(text);
    const bool isOnSheet =
        range && isInGrid({RowIndex(range->getEndRow() - 1), ColumnIndex(range->getEndColumn() - 1)});
    return isOnSheet ? range : boost::none;
}

XMLElement findLocation(const XMLElement& root)
{
    for (const Dialect dialect : {Dialect::Transitional, Dialect::Strict}) {
        const XMLElement location = root.getElement(Names(dialect)(Vocabulary::Spreadsheet, "location"));
        if (location.isValid())
            return location;
    }
    return {};
}

} // namespace

boost::optional<DOM::PivotTable> readPivotTable(Package& package, const std::string& part, FilterRun& run)
{
    const XMLElement root = readXml(package, part, run.getReport());
    if (!root.isValid())
        return boost::none;
    const XMLElement location = findLocation(root);
    if (!location.isValid()) {
        run.getReport().emplace_back("Part {} is no pivot table", part);
        return boost::none;
    }
    DOM::PivotTable pivotTable(root.getAttributeValue("name").value_or(std::string()));
    const std::string reference = location.getAttributeValue("ref").value_or(std::string());
    const auto place = readPlace(reference);
    if (!place) {
        run.getReport().emplace_back(
            "Pivot table {} has no place {} on a sheet", pivotTable.getName(), reference);
        return boost::none;
    }
    pivotTable.setLocation({RowIndex(place->getBeginRow()), ColumnIndex(place->getBeginColumn())});
    pivotTable.setSize({numCast<int>(place->getEndColumn() - place->getBeginColumn()),
        numCast<int>(place->getEndRow() - place->getBeginRow())});
    return pivotTable;
}

} // namespace QV::Filters
