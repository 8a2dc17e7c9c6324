#include <Filters/Text/TableConditions.h>

#include <cstddef>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include <DOM/Public/BordersProps.h>
#include <DOM/Public/CellProps.h>
#include <DOM/Public/CellStyle.h>
#include <DOM/Public/LineProps.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/RunProps.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Text/TableLook.h>
#include <Tests/Support/Printers.h>
#include <Tests/Support/TextPackageBuilder.h>
#include <Tests/Support/XercesEnvironment.h>
#include <Utils/Public/TableIndices/TableRange.h>

namespace QV::Filters {
namespace {

TablePartFormat& getPart(TableConditions& conditions, TablePart part)
{
    return conditions.parts[static_cast<std::size_t>(part)];
}

/// A look by six letters: first row, last row, first column, last column, stripes of rows and of columns; "-"
/// for what is not there.
TableLook makeLook(const std::string& letters)
{
    TableLook look;
    look.hasFirstRow = letters[0] != '-';
    look.hasLastRow = letters[1] != '-';
    look.hasFirstColumn = letters[2] != '-';
    look.hasLastColumn = letters[3] != '-';
    look.hasRowStripes = letters[4] != '-';
    look.hasColumnStripes = letters[5] != '-';
    return look;
}

std::string writeLook(const TableLook& look)
{
    std::string letters = "FLfl=|";
    const bool flags[] = {look.hasFirstRow, look.hasLastRow, look.hasFirstColumn, look.hasLastColumn,
        look.hasRowStripes, look.hasColumnStripes};
    for (std::size_t i = 0; i < letters.size(); ++i)
        if (!flags[i])
            letters[i] = '-';
    return letters;
}

struct LookRow
{
    const char* name;
    const char* attributes;
    const char* look;
};

void PrintTo(const LookRow& row, std::ostream* out)
{
    *out << row.attributes;
}

constexpr LookRow LookRows[] = {
    {"Nothing",               "",                                            "----=|"},
    {"UsualBits",             "w:val='04A0'",                                "F-f-=-"},
    {"AllBits",               "w:val='07E0'",                                "FLfl--"},
    {"FirstRowBit",           "w:val='0020'",                                "F---=|"},
    {"LastRowBit",            "w:val='0040'",                                "-L--=|"},
    {"FirstColumnBit",        "w:val='0080'",                                "--f-=|"},
    {"LastColumnBit",         "w:val='0100'",                                "---l=|"},
    {"NoRowStripesBit",       "w:val='0200'",                                "-----|"},
    {"NoColumnStripesBit",    "w:val='0400'",                                "----=-"},
    {"OtherBits",             "w:val='F81F'",                                "----=|"},
    {"NoNumber",              "w:val='look'",                                "----=|"},
    {"Attributes",            "w:firstRow='1' w:lastColumn='true'",          "F--l=|"},
    {"AttributesWinOverBits", "w:val='0420' w:firstRow='0' w:noVBand='off'", "----=|"},
    {"NegativeAttributes",    "w:noHBand='1' w:noVBand='on'",                "------"},
};

class ReadTableLook : public testing::TestWithParam<LookRow>
{
};

TEST_P(ReadTableLook, KeepsRow)
{
    for (const bool isStrict : {false, true}) {
        std::istringstream in(
            "<w:tblLook" + Tests::makeTextDeclarations(isStrict) + " " + GetParam().attributes + "/>");
        const auto element = FilterUtils::XMLElement::getRootElement(in, boost::none);
        ASSERT_TRUE(element.isValid());
        const Names names(isStrict ? Dialect::Strict : Dialect::Transitional);
        EXPECT_EQ(writeLook(readTableLook(element, names)), GetParam().look);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadTableLook, testing::ValuesIn(LookRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(TableLookTest, InvalidViewIsThatOfNoAttributes)
{
    EXPECT_EQ(writeLook(readTableLook({}, Names(Dialect::Transitional))), "----=|");
}

struct PlaceRow
{
    const char* name;
    const char* look;
    unsigned long stripe; // rows and columns of one
    unsigned long row;
    unsigned long column;
    TablePart part; // that the cell looks like
};

void PrintTo(const PlaceRow& row, std::ostream* out)
{
    *out << row.look << ", row " << row.row << ", column " << row.column;
}

// In a table of six rows and five columns.
constexpr PlaceRow PlaceRows[] = {
    {"NoParts",                  "------", 1, 0, 0, TablePart::WholeTable   },
    {"FirstRow",                 "FLfl=|", 1, 0, 2, TablePart::FirstRow     },
    {"LastRow",                  "FLfl=|", 1, 5, 2, TablePart::LastRow      },
    {"FirstColumn",              "FLfl=|", 1, 2, 0, TablePart::FirstColumn  },
    {"LastColumn",               "FLfl=|", 1, 2, 4, TablePart::LastColumn   },
    {"NorthWest",                "FLfl=|", 1, 0, 0, TablePart::NorthWestCell},
    {"NorthEast",                "FLfl=|", 1, 0, 4, TablePart::NorthEastCell},
    {"SouthWest",                "FLfl=|", 1, 5, 0, TablePart::SouthWestCell},
    {"SouthEast",                "FLfl=|", 1, 5, 4, TablePart::SouthEastCell},
    {"CornerNeedsBothFlags",     "F---=|", 1, 0, 0, TablePart::FirstRow     },
    {"ColumnsWinOverRows",       "-Lf-=|", 1, 0, 0, TablePart::FirstColumn  },
    {"FirstStripeBelowFirstRow", "F---=-", 1, 1, 0, TablePart::OddRows      },
    {"SecondStripe",             "F---=-", 1, 2, 0, TablePart::EvenRows     },
    {"FirstStripeIsFirstRow",    "----=-", 1, 0, 0, TablePart::OddRows      },
    {"LastRowIsAStripe",         "----=-", 1, 5, 0, TablePart::EvenRows     },
    {"HighStripe",               "F---=-", 2, 2, 0, TablePart::OddRows      },
    {"RowBehindHighStripe",      "F---=-", 2, 3, 0, TablePart::EvenRows     },
    {"StripesOfNothing",         "F---=-", 0, 2, 0, TablePart::WholeTable   },
    {"FirstColumnStripe",        "--f--|", 1, 0, 1, TablePart::OddColumns   },
    {"SecondColumnStripe",       "--f--|", 1, 0, 2, TablePart::EvenColumns  },
    {"WideColumnStripe",         "-----|", 2, 0, 1, TablePart::OddColumns   },
    {"ColumnBehindWideStripe",   "-----|", 2, 0, 2, TablePart::EvenColumns  },
    {"RowStripesWinOverColumns", "----=|", 1, 1, 1, TablePart::EvenRows     },
};

class MakeConditionalStyle : public testing::TestWithParam<PlaceRow>
{
};

TEST_P(MakeConditionalStyle, KeepsRow)
{
    const PlaceRow& row = GetParam();
    TableConditions conditions;
    conditions.rowStripe = row.stripe;
    conditions.columnStripe = row.stripe;
    for (std::size_t part = 0; part < TablePartsCount; ++part) {
        auto props = std::make_shared<DOM::RunProps>();
        props->setFontSize(static_cast<float>(part));
        conditions.parts[part].runProps = props;
    }
    const DOM::CellStyle style = makeConditionalStyle(
        conditions, makeLook(row.look), {row.row, row.column, row.row + 1, row.column + 1}, {0, 0, 6, 5});
    ASSERT_NE(style.getRunProps(), nullptr);
    EXPECT_EQ(style.getRunProps()->getFontSize(), static_cast<float>(row.part));
}

INSTANTIATE_TEST_SUITE_P(Rows, MakeConditionalStyle, testing::ValuesIn(PlaceRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(MakeConditionalStyleTest, PropertiesOfAllPartsCount)
{
    TableConditions conditions;
    auto bold = std::make_shared<DOM::RunProps>();
    bold->setBold(true);
    auto italic = std::make_shared<DOM::RunProps>();
    italic->setItalic(true);
    auto centered = std::make_shared<DOM::ParaProps>();
    centered->setAlignment(DOM::HorizontalAlignment::Center);
    getPart(conditions, TablePart::WholeTable).runProps = bold;
    getPart(conditions, TablePart::FirstRow).runProps = italic;
    getPart(conditions, TablePart::FirstRow).paraProps = centered;
    const DOM::CellStyle style =
        makeConditionalStyle(conditions, makeLook("F---=|"), {0, 0, 1, 1}, {0, 0, 2, 2});
    EXPECT_EQ(style.getRunProps()->getBold(), true);
    EXPECT_EQ(style.getRunProps()->getItalic(), true);
    EXPECT_TRUE(style.getParaProps()->getAlignment() == DOM::HorizontalAlignment::Center);
    EXPECT_EQ(style.getCellProps(), nullptr);
}

TEST(MakeConditionalStyleTest, NothingSaidIsAnEmptyStyle)
{
    EXPECT_TRUE(
        makeConditionalStyle(TableConditions(), makeLook("FLfl=|"), {0, 0, 1, 1}, {0, 0, 1, 1}).isEmpty());
}

TEST(MakeConditionalStyleTest, WideCellIsInTheLastColumnWhereItEnds)
{
    TableConditions conditions;
    auto bold = std::make_shared<DOM::RunProps>();
    bold->setBold(true);
    getPart(conditions, TablePart::LastColumn).runProps = bold;
    const TableRange table(0, 0, 3, 4);
    EXPECT_NE(
        makeConditionalStyle(conditions, makeLook("---l--"), {1, 1, 2, 4}, table).getRunProps(), nullptr);
    EXPECT_EQ(
        makeConditionalStyle(conditions, makeLook("---l--"), {1, 1, 2, 3}, table).getRunProps(), nullptr);
}

/// Sides by lines of these widths.
std::shared_ptr<const DOM::CellProps> makeBordersOfWidths()
{
    const auto makeLine = [](float width) {
        return std::make_shared<const DOM::LineProps>(DOM::LineStyle::Solid, width);
    };
    auto borders = std::make_shared<DOM::BordersProps>();
    borders->setLeft(makeLine(1));
    borders->setTop(makeLine(2));
    borders->setRight(makeLine(3));
    borders->setBottom(makeLine(4));
    borders->setVertical(makeLine(5));
    borders->setHorizontal(makeLine(6));
    auto props = std::make_shared<DOM::CellProps>();
    props->setBorders(borders);
    return props;
}

struct BordersRow
{
    const char* name;
    TableRange cell;
    const char* widths; // left, top, right, bottom
};

void PrintTo(const BordersRow& row, std::ostream* out)
{
    *out << row.cell;
}

const BordersRow BordersRows[] = {
    {"NorthWest",   {0, 0, 1, 1}, "1 2 5 6"},
    {"Inside",      {1, 1, 2, 2}, "5 6 5 6"},
    {"SouthEast",   {2, 2, 3, 3}, "5 6 3 4"},
    {"WholeRow",    {1, 0, 2, 3}, "1 6 3 6"},
    {"WholeColumn", {0, 1, 3, 2}, "5 2 5 4"},
    {"Everything",  {0, 0, 3, 3}, "1 2 3 4"},
};

class PlaceBorders : public testing::TestWithParam<BordersRow>
{
};

TEST_P(PlaceBorders, KeepsRow)
{
    const auto props = placeBorders(makeBordersOfWidths(), {0, 0, 3, 3}, GetParam().cell);
    ASSERT_NE(props, nullptr);
    const DOM::BordersProps& borders = *props->getBorders();
    std::ostringstream widths;
    widths << borders.getLeft()->getWidth() << ' ' << borders.getTop()->getWidth() << ' '
           << borders.getRight()->getWidth() << ' ' << borders.getBottom()->getWidth();
    EXPECT_EQ(widths.str(), GetParam().widths);
    EXPECT_EQ(borders.getVertical(), nullptr);
    EXPECT_EQ(borders.getHorizontal(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Rows, PlaceBorders, testing::ValuesIn(BordersRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(PlaceBordersTest, PropertiesWithoutBordersStayThemselves)
{
    const auto props = std::make_shared<const DOM::CellProps>();
    EXPECT_EQ(placeBorders(props, {0, 0, 3, 3}, {0, 0, 1, 1}), props);
    EXPECT_EQ(placeBorders(nullptr, {0, 0, 3, 3}, {0, 0, 1, 1}), nullptr);
}

TEST(PlaceBordersTest, CellThatNoLineTouchesHasNoBorders)
{
    auto borders = std::make_shared<DOM::BordersProps>();
    borders->setLeft(std::make_shared<const DOM::LineProps>(DOM::LineStyle::Solid, 1.0F));
    auto props = std::make_shared<DOM::CellProps>();
    props->setBorders(borders);
    EXPECT_EQ(placeBorders(props, {0, 0, 3, 3}, {1, 1, 2, 2})->getBorders(), nullptr);
}

} // namespace
} // namespace QV::Filters
