#include <DOM/Public/Table.h>

#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/TableBuilder.h>
#include <Tests/Support/Printers.h>

namespace QV::DOM {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

RowIndex row(unsigned long index)
{
    return RowIndex(index);
}

ColumnIndex column(unsigned long index)
{
    return ColumnIndex(index);
}

using Place = std::pair<unsigned long, unsigned long>;

std::vector<std::pair<Place, double>> listCells(const Table& table)
{
    std::vector<std::pair<Place, double>> cells;
    const auto range = table.getTableIterators();
    for (auto it = range.begin(); it != range.end(); ++it)
        cells.push_back({
            {it.getRowIndex().get(), it.getColIndex().get()},
            it->getNumber()
        });
    return cells;
}

TEST(Table, IsEmptyAtFirst)
{
    const Table table;
    EXPECT_EQ(table.getLiveRowsCount(), 0U);
    EXPECT_EQ(table.getLiveColsCount(), 0U);
    EXPECT_TRUE(table.isVisible());
    EXPECT_EQ(table.findCell(row(0), column(0)), nullptr);
    EXPECT_THAT(listCells(table), IsEmpty());
}

TEST(Table, GrowsButNeverShrinks)
{
    Table table;
    table.ensureSize(3, 2);
    table.ensureSize(1, 5);
    EXPECT_EQ(table.getLiveRowsCount(), 3U);
    EXPECT_EQ(table.getLiveColsCount(), 5U);
    EXPECT_THAT(listCells(table), IsEmpty()) << "growing makes no cells";
}

TEST(Table, LargestSizeTakesNoRoom)
{
    Table table;
    table.ensureSize(1048576, 16384);
    EXPECT_EQ(table.getAllocatedSize(), Table().getAllocatedSize());
}

TEST(Table, MakesACellOnce)
{
    Table table;
    table.getOrMakeCell(row(4), column(2)).setNumber(7);
    EXPECT_EQ(table.getLiveRowsCount(), 5U);
    EXPECT_EQ(table.getLiveColsCount(), 3U);
    EXPECT_EQ(table.getOrMakeCell(row(4), column(2)).getNumber(), 7);
    ASSERT_NE(table.findCell(row(4), column(2)), nullptr);
    EXPECT_EQ(table.findCell(row(4), column(1)), nullptr);
    EXPECT_EQ(table.findCell(row(3), column(2)), nullptr);
}

TEST(Table, KeepsCellsInOrderWhateverTheOrderOfMaking)
{
    Table table;
    table.getOrMakeCell(row(1), column(5)).setNumber(15);
    table.getOrMakeCell(row(0), column(3)).setNumber(3);
    table.getOrMakeCell(row(1), column(0)).setNumber(10);
    table.getOrMakeCell(row(1), column(2)).setNumber(12);
    EXPECT_THAT(
        listCells(table), ElementsAre(std::make_pair(Place(0, 3), 3.0), std::make_pair(Place(1, 0), 10.0),
                              std::make_pair(Place(1, 2), 12.0), std::make_pair(Place(1, 5), 15.0)));
}

TEST(Table, AgreesWithAMapOfCells)
{
    std::mt19937 random(20); // a fixed seed
    for (int round = 0; round < 200; ++round) {
        Table table;
        std::map<Place, double> model;
        for (int i = 0; i < 60; ++i) {
            const Place place(random() % 8, random() % 12);
            table.getOrMakeCell(row(place.first), column(place.second)).setNumber(i);
            model[place] = i;
        }
        EXPECT_THAT(listCells(table), testing::ElementsAreArray(model.begin(), model.end()));
        for (unsigned long r = 0; r < 9; ++r)
            for (unsigned long c = 0; c < 13; ++c) {
                const Cell* const cell = table.findCell(row(r), column(c));
                const auto expected = model.find({r, c});
                ASSERT_EQ(cell != nullptr, expected != model.end()) << r << ", " << c;
                if (cell) {
                    ASSERT_EQ(cell->getNumber(), expected->second);
                }
            }
    }
}

TEST(TableBuilder, AgreesWithAMapOfCellsInAnyOrder)
{
    std::mt19937 random(21);
    for (int round = 0; round < 200; ++round) {
        Table table;
        std::map<Place, double> model;
        TableBuilder builder(table);
        for (int i = 0; i < 60; ++i) {
            const Place place(random() % 8, random() % 12);
            builder.appendCell(row(place.first), column(place.second)).setNumber(i);
            model[place] = i; // the last one stays
        }
        builder.finish();
        EXPECT_THAT(listCells(table), testing::ElementsAreArray(model.begin(), model.end()));
    }
}

TEST(TableBuilder, GrowsTheTable)
{
    Table table;
    {
        TableBuilder builder(table);
        builder.appendCell(row(2), column(1)).setBoolean(true);
        builder.appendCell(row(2), column(3));
    }
    EXPECT_EQ(table.getLiveRowsCount(), 3U);
    EXPECT_EQ(table.getLiveColsCount(), 4U);
    EXPECT_TRUE(table.findCell(row(2), column(1))->getBoolean());
}

TEST(TableBuilder, MillionPlainNumbersTakeAtMost64BytesEach)
{
    Table table;
    TableBuilder builder(table);
    for (unsigned long r = 0; r < 50000; ++r)
        for (unsigned long c = 0; c < 20; ++c)
            builder.appendCell(row(r), column(c)).setNumber(1);
    builder.finish();
    EXPECT_LE(table.getAllocatedSize(), 64U * 1000000);
}

TEST(TableMerges, SetChangedAndTakenBack)
{
    Table table;
    table.setMergeProps(row(1), column(2), 3, 1);
    table.setMergeProps(row(0), column(0), 0, 1);
    EXPECT_EQ(table.getMergeProps(row(1), column(2)), MergeProps(3, 1));
    EXPECT_EQ(table.getMergeProps(row(1), column(3)), MergeProps());
    EXPECT_THAT(table.getMergedRanges(), ElementsAre(TableRange(1, 2, 5, 4), TableRange(0, 0, 1, 2)))
        << "in the order of marking";
    EXPECT_EQ(table.getLiveRowsCount(), 5U);
    EXPECT_EQ(table.getLiveColsCount(), 4U);

    table.setMergeProps(row(1), column(2), 0, 1);
    EXPECT_THAT(table.getMergedRanges(), ElementsAre(TableRange(1, 2, 2, 4), TableRange(0, 0, 1, 2)));
    table.setMergeProps(row(1), column(2), 0, 0);
    EXPECT_THAT(table.getMergedRanges(), ElementsAre(TableRange(0, 0, 1, 2)));
}

TEST(TableMerges, SingleCellIsNoMerge)
{
    Table table;
    table.setMergeProps(row(7), column(7), 0, 0);
    EXPECT_THAT(table.getMergedRanges(), IsEmpty());
    EXPECT_EQ(table.findCell(row(7), column(7)), nullptr);
}

TEST(TableMerges, KeepTheCellsValue)
{
    Table table;
    table.getOrMakeCell(row(0), column(0)).setNumber(5);
    table.setMergeProps(row(0), column(0), 1, 1);
    EXPECT_EQ(table.findCell(row(0), column(0))->getNumber(), 5);
}

TEST(TableRows, PropertiesStandWithoutCells)
{
    Table table;
    EXPECT_EQ(table.getRowPropsEnd(), row(0));
    RowProps props;
    props.setHeight(20.0F);
    props.setHidden(true);
    table.setRowProps(row(9), props);
    table.getOrMakeCell(row(12), column(0));
    EXPECT_EQ(table.getRowProps(row(9)).getHeight(), boost::optional<float>(20.0F));
    EXPECT_TRUE(table.getRowProps(row(9)).isHidden());
    EXPECT_TRUE(table.getRowProps(row(12)).isEmpty());
    EXPECT_EQ(table.getRowPropsEnd(), row(10));
}

std::string listWidths(const Table& table, unsigned long count)
{
    std::string text;
    for (unsigned long i = 0; i < count; ++i) {
        const auto width = table.getColumnProps(column(i)).getWidth();
        text += width ? std::to_string(static_cast<int>(*width)) : ".";
    }
    return text;
}

TEST(TableColumns, LaterPropertiesReplaceEarlierOnes)
{
    std::mt19937 random(22);
    for (int round = 0; round < 500; ++round) {
        Table table;
        std::string model(12, '.');
        for (int i = 0; i < 5; ++i) {
            const unsigned long begin = random() % 10;
            const unsigned long end = begin + random() % 4;
            ColumnProps props;
            props.setWidth(static_cast<float>(i));
            table.setColumnsProps({column(begin), column(end)}, props);
            for (unsigned long c = begin; c < end; ++c)
                model[c] = static_cast<char>('0' + i);
        }
        ASSERT_EQ(listWidths(table, 12), model);
        const std::size_t last = model.find_last_not_of('.');
        ASSERT_EQ(table.getColumnPropsEnd(), column(last == std::string::npos ? 0 : last + 1));
    }
}

} // namespace
} // namespace QV::DOM
