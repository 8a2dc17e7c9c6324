// The examples of Docs/library.md about sheets: what stands between two marks is there word for word.

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional.hpp>
#include <boost/variant/get.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Adapter/TableCellIterator.h>
#include <DOM/Public/BordersProps.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Formula.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/LineProps.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/PivotTable.h>
#include <DOM/Public/Table.h>
#include <FilterUtils/FU_Anchors.h>
#include <FilterUtils/FU_AnchorsConverter.h>
#include <FilterUtils/FU_CellBordersStyleResolver.h>
#include <FilterUtils/FU_CellQueries.h>
#include <FilterUtils/FU_ChartQueries.h>
#include <FilterUtils/FU_DocumentLinks.h>
#include <FilterUtils/FU_MergedRegions.h>
#include <FilterUtils/FU_NonIntersectedRanges.h>
#include <FilterUtils/FU_PivotTables.h>
#include <FilterUtils/FU_TableDimensionsInfo.h>
#include <FilterUtils/FU_TableIndices.h>
#include <FilterUtils/FU_TableNamesInFormulas.h>
#include <Formulas/Public/FormulaText.h>
#include <Formulas/Public/References.h>
#include <Formulas/Public/TableContext.h>
#include <Utils/Public/UUID.h>

namespace QV::FilterUtils {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

TEST(Example, TableIndices)
{
    // example: FU_TableIndices
    EXPECT_EQ(toAlphaIndex(RowIndex(0), ColumnIndex(0)), "A1");
    EXPECT_EQ(toAlphaIndex(CellIndex(RowIndex(9), ColumnIndex(27))), "AB10");
    // end
}

TEST(Example, TableDimensionsInfo)
{
    // example: FU_TableDimensionsInfo
    DOM::Table table;
    DOM::RowProps tall;
    tall.setHeight(30.0F);
    table.setRowProps(RowIndex(1), tall); // row 0 has no height of its own
    const TableDimensionsInfo dimensions = getTableDimensionsInfo(table);
    EXPECT_THAT(dimensions.getRowsHeight(), ElementsAre(dimensions.getDefaultRowHeight(), 30));
    EXPECT_TRUE(dimensions.getColumnsWidth().empty()); // all columns have the default width
    // end
}

TEST(Example, Anchors)
{
    // example: FU_Anchors
    TableDimensionsInfo dimensions; // or getTableDimensionsInfo(table)
    dimensions.setColumnsWidths({10, 20});
    dimensions.setDefaultColumnWidth(50);
    dimensions.setDefaultRowHeight(15);
    const DOM::TableOffset cell = convertToTableOffset({35, 20}, dimensions); // 35 points right, 20 down
    EXPECT_EQ(toAlphaIndex(cell.getRowIndex(), cell.getColumnIndex()), "C2");
    EXPECT_EQ(cell.getColumnOffset(), 5); // into the cell
    EXPECT_EQ(cell.getRowOffset(), 5);
    EXPECT_EQ(convertTableOffsetToPoint(cell, dimensions), cinder::Vec2<float>(35, 20));
    // end
}

TEST(Example, AnchorsConverter)
{
    // example: FU_AnchorsConverter
    TableDimensionsInfo dimensions;
    dimensions.setRowsHeight(std::vector<float>(1000000, 15.0F));
    dimensions.setDefaultColumnWidth(50);
    AnchorsConverter converter(dimensions);
    for (unsigned long row = 0; row < 1000000; row += 1000) { // each in a moment, also far below
        DOM::OneCellAnchor anchor;
        anchor.setFrom({ColumnIndex(2), 0, RowIndex(row), 0});
        DOM::Frame frame;
        frame.setAnchor(anchor);
        const DOM::Frame placed = converter.convertToAbsoluteAnchor(frame);
        const auto& point = boost::get<DOM::AbsoluteAnchor>(placed.getAnchor()).getOffset();
        EXPECT_EQ(point, cinder::Vec2<float>(100, 15.0F * static_cast<float>(row)));
    }
    // end
}

TEST(Example, NonIntersectedRanges)
{
    // example: FU_NonIntersectedRanges
    NonIntersectedRanges merges;
    EXPECT_TRUE(merges.appendRange({0, 0, 2, 2}));  // A1:B2
    EXPECT_FALSE(merges.appendRange({1, 1, 3, 3})); // B2:C3 shares B2
    EXPECT_TRUE(merges.findRangeContainsCell({RowIndex(1), ColumnIndex(0)}));

    DOM::Table table;
    applyMergedPropsToTable(merges, 1048576, 16384, table);
    EXPECT_EQ(table.getLiveRowsCount(), 2U); // it has grown to hold them
    // end
}

TEST(Example, MergedRegions)
{
    // example: FU_MergedRegions
    MergedRegions regions;
    regions.addRegion({0, 1, 4, 2});                             // column 1 of rows 0 to 3
    regions.addRegion({2, 3, 4, 5});                             // columns 3 and 4 of rows 2 and 3
    EXPECT_EQ(regions.calculateColumnIndex(RowIndex(2), 2), 3U); // of its cells in 0, 2, 3, 5...
    EXPECT_TRUE(regions.isCellInRegions(RowIndex(3), ColumnIndex(4)));
    // end
}

TEST(Example, CellBordersStyleResolver)
{
    // example: FU_CellBordersStyleResolver
    DOM::Table table;
    table.getOrMakeCell(RowIndex(0), ColumnIndex(0)); // A1
    table.getOrMakeCell(RowIndex(1), ColumnIndex(0)); // A2
    auto lines = std::make_shared<DOM::BordersProps>();
    lines->setTop(std::make_shared<DOM::LineProps>(DOM::LineStyle::Solid, 3.0F));        // the outer edge
    lines->setHorizontal(std::make_shared<DOM::LineProps>(DOM::LineStyle::Solid, 1.0F)); // between rows
    const DOM::Styles styles;
    const CellBordersStyleResolver resolver(styles, table, true, lines);
    std::vector<float> tops;
    const auto cells = Adapter::getCellIterators(std::as_const(table));
    for (auto cell = cells.begin(); cell != cells.end(); ++cell)
        tops.push_back(resolver.resolve(cell)->getTop()->getWidth());
    EXPECT_THAT(tops, ElementsAre(3, 1));
    // end
}

TEST(Example, CellQueries)
{
    // example: FU_CellQueries
    DOM::Table table;
    DOM::Cell& cell = table.getOrMakeCell(RowIndex(0), ColumnIndex(0));
    std::vector<std::unique_ptr<DOM::Block>> blocks;
    blocks.push_back(std::make_unique<DOM::Paragraph>());
    cell.setText(DOM::SharedCellText(new DOM::CellText(std::move(blocks))));
    EXPECT_TRUE(isCellEmpty(cell)); // an empty paragraph says nothing
    EXPECT_FALSE(getCellHyperlink(cell));
    cell.setNumber(42);
    EXPECT_FALSE(isCellEmpty(cell));
    // end
}

TEST(Example, ChartQueries)
{
    // example: FU_ChartQueries
    Formulas::TableContext tables; // of a document: Formulas::TableContext::makeFor(document)
    tables.addTable(UUID(0, 1), "Orders");
    const std::vector<DOM::Formula> formulas = {
        *Formulas::parseReference("Orders!A1:A9"), *Formulas::parseReference("Gone!A1:A9")};
    const std::vector<DOM::Formula> valid = getValidFormulaList(formulas, tables);
    ASSERT_EQ(valid.size(), 1U);
    EXPECT_EQ(Formulas::toText(valid.front(), tables), "Orders!A1:A9");
    // end
}

TEST(Example, TableNamesInFormulas)
{
    // example: FU_TableNamesInFormulas
    Formulas::TableContext before;
    before.addTable(UUID(0, 1), "Orders");
    DOM::Formula formula = *Formulas::parseReference("Orders!A1");
    replaceTableNamesWithUUIDs(
        [&](const std::string& name) { return before.findTable(name); }, formula.getSyntaxTree());

    Formulas::TableContext after; // somebody has renamed the table
    after.addTable(UUID(0, 1), "Sales");
    EXPECT_EQ(Formulas::toText(formula, after), "Sales!A1");
    // end
}

TEST(Example, DocumentLinks)
{
    // example: FU_DocumentLinks
    DOM::Document document;
    auto table = std::make_unique<DOM::Table>();
    table->getOrMakeCell(RowIndex(0), ColumnIndex(0))
        .setFormula(*Formulas::parseReference("[rates.xlsx]Rates!A1"));
    document.getBlocks().append(std::move(table));
    EXPECT_THAT(findDocURLs(document), UnorderedElementsAre("rates.xlsx"));

    EXPECT_EQ(findFileURL("Samples/orders.xlsx", "report.docx"), "Samples/report.docx");
    EXPECT_EQ(findFileURL("Samples/orders.xlsx", "https://example.org/report.docx"), ""); // no local file
    // end
}

TEST(Example, PivotTables)
{
    // example: FU_PivotTables
    DOM::Table table;
    DOM::PivotTable pivotTable("Sales");
    pivotTable.setSize({3, 2});
    const auto range = resolvePivotTableTargetRange(table, pivotTable, {RowIndex(4), ColumnIndex(1)});
    EXPECT_EQ(range.getRows().getLast().getIndex(), RowIndex(5)); // B5:D6
    EXPECT_EQ(range.getColumns().getLast().getIndex(), ColumnIndex(3));
    // end
}

} // namespace
} // namespace QV::FilterUtils
