#include <Filters/Text/TextTable.h>

#include <string>
#include <vector>

#include <boost/optional.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Table.h>
#include <Tests/Support/Printers.h>
#include <Tests/Support/TextTableFixture.h>
#include <Utils/Public/TableIndices/TableRange.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::CellOfTest;

class TextTableTest : public Tests::TextTableFixture
{
};

TEST_F(TextTableTest, ColumnsFollowTheSpansBefore)
{
    makeTable({
        {{{"a", ""}, {"b", "<w:gridSpan w:val='2'/>"}, {"c", ""}}, "", ""},
        {{{"d", ""}, {"e", ""}, {"f", ""}, {"g", ""}},             "", ""}
    });
    EXPECT_EQ(table->getLiveRowsCount(), 2U);
    EXPECT_THAT(listRow(0), ElementsAre("a", "b", "-", "c"));
    EXPECT_THAT(listRow(1), ElementsAre("d", "e", "f", "g"));
    EXPECT_THAT(table->getMergedRanges(), ElementsAre(TableRange(0, 1, 1, 3)));
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(TextTableTest, RowMayBeginBehindAGap)
{
    makeTable({
        {{{"a", ""}, {"b", ""}}, "<w:gridBefore w:val='2'/>", ""},
        {{{"c", ""}},            "<w:gridAfter w:val='3'/>",  ""}
    });
    EXPECT_THAT(listRow(0), ElementsAre("-", "-", "a", "b"));
    EXPECT_THAT(listRow(1), ElementsAre("c", "-", "-", "-"));
}

TEST_F(TextTableTest, VerticalMergeTakesTheTextOfCoveredCells)
{
    makeTable({
        {{{"a", "<w:vMerge w:val='restart'/>"}, {"b", ""}},  "", ""},
        {{{"", "<w:vMerge/>"}, {"c", ""}},                   "", ""},
        {{{"d", "<w:vMerge w:val='continue'/>"}, {"e", ""}}, "", ""},
        {{{"f", ""}, {"g", ""}},                             "", ""}
    });
    EXPECT_THAT(listRow(0), ElementsAre("a\nd", "b"));
    EXPECT_THAT(listRow(1), ElementsAre("-", "c"));
    EXPECT_THAT(listRow(2), ElementsAre("-", "e"));
    EXPECT_THAT(listRow(3), ElementsAre("f", "g"));
    EXPECT_THAT(table->getMergedRanges(), ElementsAre(TableRange(0, 0, 3, 1)));
}

TEST_F(TextTableTest, MergeBeginsAnewWithEachRestart)
{
    makeTable({
        {{{"a", "<w:vMerge w:val='restart'/>"}}, "", ""},
        {{{"", "<w:vMerge/>"}},                  "", ""},
        {{{"b", "<w:vMerge w:val='restart'/>"}}, "", ""},
        {{{"", "<w:vMerge/>"}},                  "", ""}
    });
    EXPECT_THAT(table->getMergedRanges(), ElementsAre(TableRange(0, 0, 2, 1), TableRange(2, 0, 4, 1)));
}

TEST_F(TextTableTest, ContinuationWithoutABeginningStandsByItself)
{
    makeTable({
        {{{"a", "<w:vMerge/>"}, {"b", "<w:vMerge w:val='restart'/>"}, {"c", ""}}, "", ""},
        {{{"d", "<w:vMerge/>"}, {"e", "<w:gridSpan w:val='2'/><w:vMerge/>"}},     "", ""}
    });
    EXPECT_THAT(listRow(0), ElementsAre("a", "b", "c"));
    EXPECT_THAT(listRow(1), ElementsAre("d", "e", "-"));
    EXPECT_THAT(table->getMergedRanges(), ElementsAre(TableRange(1, 1, 2, 3)));
}

TEST_F(TextTableTest, HorizontalMergeIsASpan)
{
    makeTable({
        {{{"a", "<w:hMerge w:val='restart'/>"}, {"b", "<w:hMerge/>"}, {"", "<w:hMerge w:val='continue'/>"},
             {"c", ""}, {"d", "<w:hMerge/>"}},
         "", ""}
    });
    EXPECT_THAT(listRow(0), ElementsAre("a\nb", "-", "-", "c", "d"));
    EXPECT_THAT(table->getMergedRanges(), ElementsAre(TableRange(0, 0, 1, 3)));
}

TEST_F(TextTableTest, MergeMayGoBothWays)
{
    const std::string wide = "<w:gridSpan w:val='2'/>";
    makeTable({
        {{{"a", wide + "<w:vMerge w:val='restart'/>"}, {"b", ""}}, "", ""},
        {{{"", wide + "<w:vMerge/>"}, {"c", ""}},                  "", ""}
    });
    EXPECT_THAT(table->getMergedRanges(), ElementsAre(TableRange(0, 0, 2, 2)));
    EXPECT_THAT(listRow(1), ElementsAre("-", "-", "c"));
}

TEST_F(TextTableTest, ColumnsAreAsWideAsTheGridSays)
{
    grid = "<w:gridCol w:w='1440'/><w:gridCol w:w='0'/><w:gridCol/><w:gridCol w:w='200'/>";
    tableProps = "<w:tblW w:w='4000' w:type='dxa'/>";
    makeTable({
        {{{"a", "<w:tcW w:w='100' w:type='dxa'/>"}, {"b", "<w:tcW w:w='300' w:type='dxa'/>"},
             {"c", "<w:tcW w:w='50' w:type='pct'/>"}},
         "",                                                        ""},
        {{{"d", ""}, {"e", "<w:tcW w:w='340'/>"}, {"f", ""}},   "", ""}
    });
    EXPECT_EQ(getWidth(0), 72.0F);
    EXPECT_EQ(getWidth(1), 17.0F); // the wider one of two cells
    EXPECT_EQ(getWidth(2), boost::none);
    EXPECT_EQ(table->getLiveColsCount(), 3U); // no cell stands in the fourth one
    EXPECT_EQ(table->getDefaultColumnWidth(), 111.0F);
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(TextTableTest, RowsAreAsHighAsTheySay)
{
    const std::vector<CellOfTest> cells = {
        {"a", ""}
    };
    makeTable({
        {cells, "<w:trHeight w:val='400'/>",                    ""},
        {cells, "<w:trHeight w:val='300' w:hRule='exact'/>",    ""},
        {cells, "<w:trHeight w:val='200' w:hRule='auto'/>",     ""},
        {cells, "<w:trHeight w:val='1in' w:hRule='atLeast'/>",  ""},
        {cells, "<w:cantSplit/>",                               ""},
        {cells, "<w:trHeight w:val='tall' w:hRule='atLeast'/>", ""}
    });
    EXPECT_EQ(getHeight(0), 20.0F);
    EXPECT_EQ(getHeight(1), 15.0F);
    EXPECT_EQ(getHeight(2), boost::none);
    EXPECT_EQ(getHeight(3), 72.0F);
    EXPECT_EQ(getHeight(4), boost::none);
    EXPECT_EQ(getHeight(5), boost::none);
    EXPECT_THAT(listMessages(), ElementsAre("Can't parse length value tall"));
}

TEST_F(TextTableTest, WidestCellFits)
{
    makeTable({
        {{{"a", "<w:gridSpan w:val='16384'/>"}}, "", ""}
    });
    EXPECT_EQ(table->getLiveColsCount(), 16384U);
    EXPECT_THAT(table->getMergedRanges(), ElementsAre(TableRange(0, 0, 1, 16384)));
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(TextTableTest, TableIsCutAtItsLastColumn)
{
    makeTable({
        {{{"a", ""}, {"b", "<w:gridSpan w:val='16384'/>"}, {"c", ""}}, "",                              ""},
        {{{"d", "<w:gridSpan w:val='99999'/>"}},                       "<w:gridBefore w:val='99999'/>", ""}
    });
    EXPECT_EQ(table->getLiveColsCount(), 16384U);
    EXPECT_EQ(getText(0, 1), "b\nc");
    EXPECT_EQ(getText(1, 16383), "d");
    EXPECT_THAT(table->getMergedRanges(), ElementsAre(TableRange(0, 1, 1, 16384)));
    EXPECT_THAT(listMessages(), ElementsAre("A table has more than 16384 columns"));
}

TEST_F(TextTableTest, NumbersOfColumnsThatAreNoneAreOne)
{
    makeTable({
        {{{"a", "<w:gridSpan w:val='0'/>"}, {"b", "<w:gridSpan w:val='-2'/>"},
             {"c", "<w:gridSpan w:val='2x'/>"}},
         "", ""}
    });
    EXPECT_THAT(listRow(0), ElementsAre("a", "b", "c"));
    EXPECT_THAT(
        listMessages(), ElementsAre("Unexpected value -2 of gridSpan", "Unexpected value 2x of gridSpan"));
}

TEST_F(TextTableTest, StrictElementsAreRead)
{
    isStrict = true;
    grid = "<w:gridCol w:w='1in'/>";
    makeTable({
        {{{"a", "<w:gridSpan w:val='2'/>"}}, "", ""}
    });
    EXPECT_EQ(getWidth(0), 72.0F);
    EXPECT_EQ(table->getLiveColsCount(), 2U);
}

TEST_F(TextTableTest, WhatIsOpenEndsWithTheTable)
{
    TextTable gathered(context);
    gathered.beginCell(); // in a row that nobody began
    gathered.endCell(makeBlocks("a"));
    gathered.beginCell();
    table = gathered.finish();
    EXPECT_THAT(listRow(0), ElementsAre("a", ""));
    EXPECT_EQ(table->getLiveRowsCount(), 1U);
}

TEST_F(TextTableTest, PropertiesOutsideOfRowsAndCellsAreNobodys)
{
    TextTable gathered(context);
    gathered.readRowProps(parse("trPr", "<w:trHeight w:val='400'/>"));
    gathered.readRowExceptions(parse("tblPrEx", "<w:shd w:val='clear' w:fill='FF0000'/>"));
    gathered.readCellProps(parse("tcPr", "<w:gridSpan w:val='4'/>"));
    gathered.endCell(makeBlocks("lost"));
    table = gathered.finish();
    EXPECT_EQ(table->getLiveRowsCount(), 0U);
}

} // namespace
} // namespace QV::Filters
