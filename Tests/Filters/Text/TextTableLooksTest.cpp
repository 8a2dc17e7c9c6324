#include <Filters/Text/TextTable.h>

#include <cstddef>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/BordersProps.h>
#include <DOM/Public/Cell.h>
#include <DOM/Public/CellProps.h>
#include <DOM/Public/LineProps.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TableStyle.h>
#include <Filters/Text/TableConditions.h>
#include <Filters/Text/TextContext.h>
#include <Tests/Support/Printers.h>
#include <Tests/Support/TextTableFixture.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>
#include <Utils/Public/UUID.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TextTableLooks : public Tests::TextTableFixture
{
};

TEST_F(TextTableLooks, StyleIsFoundByItsId)
{
    const UUID uuid(1, 2);
    context.styles.tableStyleIds.emplace("Grid", uuid);
    tableProps =
        "<w:tblStyle w:val='Grid'/><w:tblBorders><w:insideV w:val='single' w:sz='8'/></w:tblBorders>";
    makeTable({});
    EXPECT_EQ(table->getStyle().getParentUUID(), uuid);
    ASSERT_NE(table->getStyle().getCellProps(), nullptr);
    EXPECT_EQ(table->getStyle().getCellProps()->getBorders()->getVertical()->getWidth(), 1.0F);
    EXPECT_EQ(table->getLiveRowsCount(), 0U);
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(TextTableLooks, UnknownStyleIsTheDefaultOne)
{
    const UUID uuid(1, 2);
    context.styles.factory.setDefaultTableStyleUUID(uuid);
    tableProps = "<w:tblStyle w:val='Grid'/>";
    makeTable({});
    EXPECT_EQ(table->getStyle().getParentUUID(), uuid);
    EXPECT_THAT(listMessages(), ElementsAre("Table style Grid is not there"));
}

TEST_F(TextTableLooks, CellsLookAsTheStyleSaysOfTheirPlace)
{
    const UUID uuid(1, 2);
    context.styles.tableStyleIds.emplace("Grid", uuid);
    TableConditions& conditions = context.styles.tableConditions[uuid];
    conditions.parts[static_cast<std::size_t>(TablePart::FirstRow)].cellProps = makeFilling(10);
    conditions.parts[static_cast<std::size_t>(TablePart::OddRows)].cellProps = makeFilling(20);
    tableProps = "<w:tblStyle w:val='Grid'/><w:tblLook w:val='0020'/>";
    makeTable({
        {{{"a", ""}, {"b", "<w:shd w:val='clear' w:fill='1E0000'/>"}}, "", ""                                      },
        {{{"c", ""}, {"d", "<w:shd w:val='clear' w:fill='auto'/>"}},   "", ""                                      },
        {{{"e", ""}},                                                  "", "<w:shd w:val='clear' w:fill='280000'/>"}
    });
    EXPECT_EQ(getRed(0, 0), 10);
    EXPECT_EQ(getRed(0, 1), 30); // what is set directly stands
    EXPECT_EQ(getRed(1, 0), 20);
    ASSERT_TRUE(getProps(1, 1).getBackgroundColor());
    EXPECT_EQ(getProps(1, 1).getBackgroundColor()->getRGBA().a, 0); // and may take a filling away
    EXPECT_EQ(getRed(2, 0), 40);
}

TEST_F(TextTableLooks, NoFillingIsNothingWithoutAStyle)
{
    makeTable({
        {{{"a", "<w:shd w:val='clear' w:fill='auto'/>"}}, "", ""}
    });
    EXPECT_EQ(table->findCell(RowIndex(0), ColumnIndex(0))->getSharedStyle(), nullptr);
}

TEST_F(TextTableLooks, EqualCellsShareTheirStyle)
{
    const std::string props =
        "<w:vAlign w:val='bottom'/><w:tcBorders><w:tl2br w:val='single'/></w:tcBorders>";
    makeTable({
        {{{"a", props}, {"b", props}}, "", ""}
    });
    EXPECT_TRUE(getProps(0, 0).getVerticalAlignment() == DOM::VerticalAlignment::Bottom);
    EXPECT_NE(getProps(0, 0).getDiagonalDown(), nullptr);
    EXPECT_EQ(getProps(0, 0).getDiagonalUp(), nullptr);
    EXPECT_EQ(table->findCell(RowIndex(0), ColumnIndex(0))->getSharedStyle(),
        table->findCell(RowIndex(0), ColumnIndex(1))->getSharedStyle());
}

TEST_F(TextTableLooks, BordersOfARowStandAtItsEdgesAndBetweenItsCells)
{
    const std::string exceptions =
        "<w:tblBorders><w:start w:val='single' w:sz='8'/>"
        "<w:insideV w:val='single' w:sz='16'/><w:insideH w:val='nil'/></w:tblBorders>";
    makeTable({
        {{{"a", ""}, {"b", ""}}, "", exceptions},
        {{{"c", ""}, {"d", ""}}, "", ""        }
    });
    EXPECT_EQ(getBorders(0, 0).getLeft()->getWidth(), 1.0F);
    EXPECT_EQ(getBorders(0, 0).getRight()->getWidth(), 2.0F);
    EXPECT_EQ(getBorders(0, 0).getTop(), nullptr);
    EXPECT_EQ(getBorders(0, 0).getBottom()->getStyle(), DOM::LineStyle::None);
    EXPECT_EQ(getBorders(0, 1).getLeft()->getWidth(), 2.0F);
    EXPECT_EQ(getBorders(0, 1).getRight(), nullptr);
    EXPECT_EQ(getBorders(1, 0).getLeft(), nullptr);
}

TEST_F(TextTableLooks, MergedCellEndsWithTheLineOfTheLastOne)
{
    const std::string line = "<w:tcBorders><w:bottom w:val='single' w:sz='16'/></w:tcBorders>";
    makeTable({
        {{{"a", "<w:vMerge w:val='restart'/><w:tcBorders><w:top w:val='single' w:sz='8'/>"
                "<w:bottom w:val='nil'/></w:tcBorders>"}},
         "",                                                            ""},
        {{{"", "<w:vMerge/>" + line}},                              "", ""}
    });
    EXPECT_EQ(getBorders(0, 0).getTop()->getWidth(), 1.0F);
    EXPECT_EQ(getBorders(0, 0).getBottom()->getWidth(), 2.0F);
}

} // namespace
} // namespace QV::Filters
