#include <Filters/Spreadsheet/SheetBuilder.h>

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Table.h>
#include <Filters/Spreadsheet/CellFormats.h>
#include <Tests/Support/Printers.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A sheet under construction in a workbook of two shared strings and no formats.
class SheetBuilderTest : public testing::Test
{
protected:
    void addCell(std::u16string_view reference, CellType type, const std::string& value)
    {
        builder.startCell(reference, 0, type);
        builder.setValue(value);
        builder.endCell();
    }

    static std::vector<DOM::CellTextStock> makeStrings()
    {
        std::vector<DOM::CellTextStock> made;
        made.emplace_back(DOM::makePlainCellText("zero"));
        made.emplace_back(DOM::makePlainCellText("one"));
        return made;
    }

    const DOM::Cell* findCell(unsigned long row, unsigned long column) const
    {
        return table.findCell(RowIndex(row), ColumnIndex(column));
    }

    std::vector<std::string> listMessages() const
    {
        std::vector<std::string> texts;
        for (const OperationReport::Message& message : report.getMessages())
            texts.push_back(message.toString());
        return texts;
    }

    CellFormats formats;
    std::vector<DOM::CellTextStock> strings = makeStrings();
    FormulaContext formulas;
    WorkbookContext workbook{formats, strings, DateSystem::From1900, 7, formulas};
    DOM::Table table;
    OperationReport report;
    SheetBuilder builder{workbook, table, report};
};

TEST_F(SheetBuilderTest, ReadsEachTypeOfCell)
{
    builder.startRow(1UL);
    addCell(u"A1", CellType::Number, "1.5e3");
    addCell(u"B1", CellType::SharedString, "1");
    addCell(u"C1", CellType::Boolean, "1");
    addCell(u"D1", CellType::Error, "#DIV/0!");
    addCell(u"E1", CellType::String, "a_x000D_b");
    addCell(u"F1", CellType::Date, "2021-01-01");
    addCell(u"G1", CellType::Number, " 7\n");
    builder.finish();
    EXPECT_EQ(findCell(0, 0)->getNumber(), 1500);
    EXPECT_EQ(findCell(0, 1)->getText(), strings[1].getText().get());
    EXPECT_TRUE(findCell(0, 2)->getBoolean());
    EXPECT_EQ(findCell(0, 3)->getKind(), DOM::Cell::Kind::Error);
    EXPECT_EQ(findCell(0, 3)->getText()->getPlainText(), "#DIV/0!");
    EXPECT_EQ(findCell(0, 4)->getText()->getPlainText(), "a\rb");
    EXPECT_EQ(findCell(0, 5)->getNumber(), 44197);
    EXPECT_EQ(findCell(0, 6)->getNumber(), 7);
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(SheetBuilderTest, BadValuesAreReportedOnceAndKeptAsText)
{
    builder.startRow(1UL);
    addCell(u"A1", CellType::Number, "abc");
    addCell(u"B1", CellType::Number, "1e999");
    addCell(u"C1", CellType::Boolean, "2");
    addCell(u"D1", CellType::Date, "soon");
    builder.finish();
    EXPECT_THAT(listMessages(),
        ElementsAre("Cell A1 has a value that is no number: abc",
            "Cell B1 has a value that is no number: 1e999", "Cell C1 has a value that is no boolean: 2",
            "Cell D1 has a value that is no date: soon"));
    for (unsigned long column = 0; column < 4; ++column)
        EXPECT_EQ(findCell(0, column)->getKind(), DOM::Cell::Kind::Text);
    EXPECT_EQ(findCell(0, 1)->getText()->getPlainText(), "1e999");
}

TEST_F(SheetBuilderTest, SharedStringsThatAreNotThereAreReported)
{
    builder.startRow(1UL);
    for (const char* const index : {"2", "-1", "x", "1x", "99999999999999999999"})
        addCell(u"", CellType::SharedString, index);
    builder.finish();
    EXPECT_THAT(listMessages(),
        ElementsAre("Cell A1 has an unknown shared string 2", "Cell B1 has an unknown shared string -1",
            "Cell C1 has an unknown shared string x", "Cell D1 has an unknown shared string 1x",
            "Cell E1 has an unknown shared string 99999999999999999999"));
}

TEST_F(SheetBuilderTest, RowsAndCellsWithoutReferencesFollow)
{
    builder.startRow(boost::none);
    addCell(u"", CellType::Number, "1");
    addCell(u"D1", CellType::Number, "2");
    addCell(u"", CellType::Number, "3");
    builder.startRow(5UL);
    builder.startRow(boost::none);
    addCell(u"", CellType::Number, "4");
    builder.finish();
    EXPECT_EQ(findCell(0, 0)->getNumber(), 1);
    EXPECT_EQ(findCell(0, 3)->getNumber(), 2);
    EXPECT_EQ(findCell(0, 4)->getNumber(), 3);
    EXPECT_EQ(findCell(5, 0)->getNumber(), 4);
}

TEST_F(SheetBuilderTest, ReferenceThatIsNoneStandsWhereItWouldFollow)
{
    builder.startRow(3UL);
    addCell(u"?", CellType::Number, "1");
    builder.finish();
    EXPECT_EQ(findCell(2, 0)->getNumber(), 1);
    EXPECT_THAT(listMessages(), ElementsAre("Cell A3 stands in for the reference ?, which is none"));
}

TEST_F(SheetBuilderTest, CellsOutsideTheSheetAreLeftOut)
{
    builder.startRow(1UL);
    addCell(u"XFE1", CellType::Number, "1");
    addCell(u"XFD1048576", CellType::Number, "2");
    builder.startRow(1048577UL);
    addCell(u"", CellType::Number, "3");
    builder.finish();
    EXPECT_EQ(table.getLiveRowsCount(), 1048576U);
    EXPECT_EQ(table.getLiveColsCount(), 16384U);
    EXPECT_EQ(findCell(1048575, 16383)->getNumber(), 2);
    EXPECT_THAT(listMessages(), ElementsAre("Cell XFE1 lies outside of the sheet and is left out",
                                    "Cell A1048577 lies outside of the sheet and is left out"));
}

TEST_F(SheetBuilderTest, EmptyCellsCountForTheSizeAlone)
{
    builder.startRow(1UL);
    builder.startCell(u"C3", 0, CellType::Number);
    builder.endCell();
    addCell(u"B2", CellType::Number, "");
    builder.finish();
    EXPECT_EQ(findCell(2, 2), nullptr);
    EXPECT_EQ(table.getLiveRowsCount(), 3U);
    EXPECT_EQ(table.getLiveColsCount(), 3U);
}

TEST_F(SheetBuilderTest, UnknownFormatIsReported)
{
    builder.startRow(1UL);
    builder.startCell(u"A1", 3, CellType::Number);
    builder.setValue("1");
    builder.endCell();
    builder.finish();
    EXPECT_EQ(findCell(0, 0)->getNumber(), 1);
    EXPECT_THAT(listMessages(), ElementsAre("Cell A1 has an unknown format 3"));
}

TEST_F(SheetBuilderTest, OverlappingMergesAreRefused)
{
    builder.startRow(1UL);
    addCell(u"E5", CellType::Number, "1");
    builder.addMerge(u"A1:B2");
    builder.addMerge(u"B2:C3");
    builder.addMerge(u"C2:D2");
    builder.addMerge(u"nonsense");
    builder.finish();
    EXPECT_THAT(table.getMergedRanges(), ElementsAre(TableRange(0, 0, 2, 2), TableRange(1, 2, 2, 4)));
    EXPECT_THAT(listMessages(), ElementsAre("Merged range B2:C3 overlaps an earlier one and is left out",
                                    "Merged range nonsense is no range of a sheet"));
}

TEST_F(SheetBuilderTest, MergeOfWholeColumnsDoesNotMakeTheTableTaller)
{
    builder.startRow(1UL);
    addCell(u"A4", CellType::Number, "1");
    builder.addMerge(u"A1:B1048576");
    builder.finish();
    EXPECT_EQ(table.getLiveRowsCount(), 4U);
    EXPECT_THAT(table.getMergedRanges(), ElementsAre(TableRange(0, 0, 4, 2)));
}

TEST_F(SheetBuilderTest, SheetWithoutCellsHasOne)
{
    builder.finish();
    EXPECT_EQ(table.getLiveRowsCount(), 1U);
    EXPECT_EQ(table.getLiveColsCount(), 1U);
}

TEST_F(SheetBuilderTest, ColumnsBecomePoints)
{
    builder.setColumns(2, 3, 9.140625, false);
    builder.setColumns(5, 99999, boost::none, true);
    builder.setColumns(0, 1, 10.0, false);
    builder.setColumns(3, 2, 10.0, false);
    builder.setColumns(16385, 16385, 10.0, false);
    builder.setColumns(1, 1, 256.0, false);
    builder.finish();
    EXPECT_EQ(table.getColumnProps(ColumnIndex(1)).getWidth(), boost::optional<float>(48.0F));
    EXPECT_EQ(table.getColumnProps(ColumnIndex(2)).getWidth(), boost::optional<float>(48.0F));
    EXPECT_FALSE(table.getColumnProps(ColumnIndex(3)).getWidth());
    EXPECT_TRUE(table.getColumnProps(ColumnIndex(16383)).isHidden());
    EXPECT_EQ(table.getColumnPropsEnd(), ColumnIndex(16384));
    EXPECT_THAT(listMessages(),
        ElementsAre("Columns 0 to 1 are not columns of a sheet", "Columns 3 to 2 are not columns of a sheet",
            "Columns 16385 to 16385 are not columns of a sheet", "Unexpected column width 256"));
}

TEST_F(SheetBuilderTest, OneTroubleInManyCellsIsNamedAThousandTimes)
{
    builder.startRow(1UL);
    for (int i = 0; i < 1500; ++i)
        addCell(u"", CellType::Number, "x");
    builder.finish();
    ASSERT_EQ(report.getMessages().size(), 1001U);
    EXPECT_EQ(
        report.getMessages().back().toString(), "500 more times: Cell {} has a value that is no number: {}");
}

TEST_F(SheetBuilderTest, LongTextIsKeptAndReported)
{
    builder.startRow(1UL);
    addCell(u"A1", CellType::String, std::string(32768, 'a'));
    addCell(u"B1", CellType::String, std::string(32767, 'a'));
    builder.finish();
    EXPECT_EQ(findCell(0, 0)->getText()->getPlainText().size(), 32768U);
    EXPECT_THAT(listMessages(), ElementsAre("Cell A1 has more text than applications show: 32768 bytes"));
}

} // namespace
} // namespace QV::Filters
