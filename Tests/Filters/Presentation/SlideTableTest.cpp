#include <Filters/Presentation/SlideTable.h>

#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include <boost/optional/optional_io.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/BordersProps.h>
#include <DOM/Public/CellProps.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/Table.h>
#include <Filters/Presentation/PresentationContext.h>
#include <Filters/Presentation/SlideLeftOut.h>

#include <Tests/Support/ShapeTreeFixture.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;

std::string makeTc(
    const std::string& text, const std::string& attributes = {}, const std::string& properties = {})
{
    return "<a:tc " + attributes + "><a:txBody><a:bodyPr/><a:p><a:r><a:t>" + text +
           "</a:t></a:r></a:p></a:txBody>" + properties + "</a:tc>";
}

std::string repeat(const std::string& text, unsigned long count)
{
    std::string all;
    for (unsigned long i = 0; i < count; ++i)
        all += text;
    return all;
}

std::string makeTbl(const std::string& props, const std::string& rows, unsigned long columns = 3)
{
    return "<a:tbl><a:tblPr " + props + "</a:tblPr><a:tblGrid>" + repeat("<a:gridCol w='127000'/>", columns) +
           "</a:tblGrid>" + rows + "</a:tbl>";
}

std::string makeTr(const std::string& cells)
{
    return "<a:tr h='254000'>" + cells + "</a:tr>";
}

std::string getHex(const boost::optional<DOM::Color>& color)
{
    if (!color)
        return "-";
    if (color->getRGBA().a == 0)
        return "none";
    std::ostringstream out;
    out << std::hex << std::uppercase;
    for (const unsigned channel : {color->getRGBA().r, color->getRGBA().g, color->getRGBA().b})
        out << channel / 16 << channel % 16;
    return out.str();
}

class SlideTable : public Tests::ShapeTreeFixture
{
protected:
    const DOM::Table& readTable(const std::string& content, bool isStrict = false)
    {
        const auto root = parse(content, isStrict);
        const auto scope = makeScope(root);
        std::string prefix = isStrict ? "http://purl.oclc.org/ooxml/drawingml/main:"
                                      : "http://schemas.openxmlformats.org/drawingml/2006/main:";
        table = readSlideTable(root.getElement(prefix + "tbl"), scope);
        return *table;
    }

    const DOM::CellProps& getProps(unsigned long row, unsigned long column) const
    {
        return *table->findCell(RowIndex(row), ColumnIndex(column))->getStyle().getCellProps();
    }

    /// "TEXT+ROWS+COLUMNS" of each cell, rows on lines of their own.
    std::string describeCells() const
    {
        std::string text;
        for (unsigned long row = 0; row < table->getLiveRowsCount(); ++row) {
            text += row == 0 ? "" : "/";
            for (unsigned long column = 0; column < table->getLiveColsCount(); ++column) {
                const DOM::Cell* const cell = table->findCell(RowIndex(row), ColumnIndex(column));
                const DOM::MergeProps merge = DOM::getCellMergeProps(cell);
                text += column == 0 ? "" : " ";
                text += cell && cell->getText() ? cell->getText()->getPlainText() : "-";
                if (merge != DOM::MergeProps())
                    text += "+" + std::to_string(merge.getCapturedRowsCount()) + "+" +
                            std::to_string(merge.getCapturedColsCount());
            }
        }
        return text;
    }

    /// The fills of the cells.
    std::string describeFills() const
    {
        std::string text;
        for (unsigned long row = 0; row < table->getLiveRowsCount(); ++row)
            for (unsigned long column = 0; column < table->getLiveColsCount(); ++column)
                text += (column > 0   ? " "
                            : row > 0 ? "/"
                                      : "") +
                        getHex(getProps(row, column).getBackgroundColor());
        return text;
    }

    std::unique_ptr<DOM::Table> table;
};

TEST_F(SlideTable, HasSizesAndTexts)
{
    const std::string content = makeTbl(">", makeTr(makeTc("a") + makeTc("b")) + makeTr(makeTc("c")), 2);
    for (const bool isStrict : {false, true}) {
        readTable(content, isStrict);
        EXPECT_EQ(describeCells(), "a b/c -");
        EXPECT_EQ(table->getColumnProps(ColumnIndex(1)).getWidth(), 10.0F);
        EXPECT_EQ(table->getRowProps(RowIndex(1)).getHeight(), 20.0F);
    }
    EXPECT_EQ(joinMessages(), "");
}

TEST_F(SlideTable, IsEmptyWithoutRowsOrCells)
{
    readTable(makeTbl(">", ""));
    EXPECT_EQ(table->getLiveRowsCount(), 0);
    readTable(makeTbl(">", makeTr(""), 0));
    EXPECT_EQ(table->getLiveColsCount(), 0);
}

TEST_F(SlideTable, GrowsWithItsCells)
{
    readTable(makeTbl(">", makeTr(makeTc("a") + makeTc("b")), 1));
    EXPECT_EQ(describeCells(), "a b");
}

struct MergeRow
{
    const char* name;
    std::string rows;
    const char* cells;
    const char* messages;
};

void PrintTo(const MergeRow& row, std::ostream* out)
{
    *out << row.rows;
}

const std::string Three = makeTc("d") + makeTc("e") + makeTc("f");

const MergeRow MergeRows[] = {
    {"Columns", makeTr(makeTc("a",         "gridSpan='2'") + makeTc("b", "hMerge='1'") + makeTc("c")),                                          "a+0+1 - c",
     ""},
    {"Rows",         makeTr(makeTc("a",                             "rowSpan='2'") + makeTc("b") + makeTc("c")) + makeTr(Three),
     "a+1+0 b c/- e f",              ""                                                                                                                                                                                                                     },
    {"Both",         makeTr(makeTc("a",                             "rowSpan='2' gridSpan='2'") + makeTc("b") + makeTc("c")) + makeTr(Three),
     "a+1+1 - c/- - f", ""                                                                                                                                                                                                                     },
    {"BeyondTheEdge",         makeTr(makeTc("a") + makeTc("b",                    "gridSpan='9' rowSpan='9'") + makeTc("c")),
     "a b+0+1 -",                 ""                                                                                                                                                                                                                           },
    {"OverAnother",
     makeTr(makeTc("a") + makeTc("b",                      "rowSpan='2'") + makeTc("c")) +
            makeTr(makeTc("d",                                    "gridSpan='2'") + makeTc("e") + makeTc("f")),
     "a b+1+0 c/d - f",                                                                                         ""},
    {"CoveredByNone",       makeTr(makeTc("a") + makeTc("b",                                "hMerge='1'") + makeTc("c",                                              "vMerge='1'")),                                                                              "a b c",
     ""},
    {"One",  makeTr(makeTc("a",                                   "gridSpan='1' rowSpan='1'") + makeTc("b") + makeTc("c")),                                                               "a b c",                                                                                                                                ""                                                                                                                                                                                                        },
    {"Zero",  makeTr(makeTc("a",                         "gridSpan='0'") + makeTc("b") + makeTc("c")),"a b c",
     "Table cell spans 0 rows or columns"},
    {"NoNumber",  makeTr(makeTc("a", "rowSpan='-2'") + makeTc("b") + makeTc("c")),                             "a b c",
     "Table cell spans -2 rows or columns"                                                                                                                                                                                                                                                                                                                                                                         },
};

class MergedCells : public SlideTable, public testing::WithParamInterface<MergeRow>
{
};

TEST_P(MergedCells, KeepsRow)
{
    readTable(makeTbl(">", GetParam().rows));
    EXPECT_EQ(describeCells(), GetParam().cells);
    EXPECT_EQ(joinMessages(), GetParam().messages);
}

INSTANTIATE_TEST_SUITE_P(Rows, MergedCells, testing::ValuesIn(MergeRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(SlideTable, IsCutWithOneMessageEach)
{
    const std::string cell = "<a:tc/>";
    readTable(makeTbl(">", makeTr(repeat(cell, 1000)) + makeTr(cell), 1000));
    EXPECT_EQ(joinMessages(), "");
    EXPECT_EQ(table->getLiveColsCount(), 1000);
    readTable(makeTbl(">", makeTr(repeat(cell, 1001)) + makeTr(repeat(cell, 1002)), 1001));
    EXPECT_EQ(table->getLiveColsCount(), 1000);
    EXPECT_EQ(joinMessages(), "A table has more than 1000 columns; the rest is left out");
    readTable(makeTbl(">", repeat("<a:tr/>", 10000), 1));
    EXPECT_EQ(table->getLiveRowsCount(), 10000);
    readTable(makeTbl(">", repeat("<a:tr/>", 10001), 1));
    EXPECT_EQ(table->getLiveRowsCount(), 10000);
    EXPECT_EQ(joinMessages(), "A table has more than 1000 columns; the rest is left out|"
                              "A table has more than 10000 rows; the rest is left out");
}

struct CellRow
{
    const char* name;
    const char* properties; // of the a:tcPr, attributes and content
    const char* fill;
    DOM::VerticalAlignment alignment;
};

void PrintTo(const CellRow& row, std::ostream* out)
{
    *out << row.properties;
}

const CellRow CellRows[] = {
    {"Nothing",  ">",                                                              "-",      DOM::VerticalAlignment::Top   },
    {"Solid",    "><a:solidFill><a:srgbClr val='FF0000'/></a:solidFill>",          "FF0000", DOM::VerticalAlignment::Top   },
    {"None",     "><a:noFill/>",                                                   "none",   DOM::VerticalAlignment::Top   },
    {"Gradient",
     "><a:gradFill><a:gsLst><a:gs pos='0'><a:srgbClr val='00FF00'/></a:gs><a:gs pos='100000'>"
        "<a:srgbClr val='0000FF'/></a:gs></a:gsLst><a:lin ang='0'/></a:gradFill>", "00FF00", DOM::VerticalAlignment::Top   },
    {"Middle",   "anchor='ctr'>",                                                  "-",      DOM::VerticalAlignment::Center},
    {"Bottom",   "anchor='b'>",                                                    "-",      DOM::VerticalAlignment::Bottom},
};

class CellOfTable : public SlideTable, public testing::WithParamInterface<CellRow>
{
};

TEST_P(CellOfTable, KeepsRow)
{
    const CellRow& row = GetParam();
    readTable(
        makeTbl(">", makeTr(makeTc("a", "", "<a:tcPr " + std::string(row.properties) + "</a:tcPr>")), 1));
    EXPECT_EQ(describeFills(), row.fill);
    EXPECT_TRUE(getProps(0, 0).getVerticalAlignment() == row.alignment);
    EXPECT_EQ(joinMessages(), "");
}

INSTANTIATE_TEST_SUITE_P(Rows, CellOfTable, testing::ValuesIn(CellRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(SlideTable, UnknownAlignmentsAreReported)
{
    readTable(makeTbl(">", makeTr(makeTc("a", "", "<a:tcPr anchor='up'/>")), 1));
    EXPECT_FALSE(getProps(0, 0).getVerticalAlignment());
    EXPECT_EQ(joinMessages(), "Table cell has an unknown alignment up");
}

TEST_F(SlideTable, MarginsAndTurnedTextAreLeftOut)
{
    readTable(makeTbl(">", makeTr(makeTc("a", "", "<a:tcPr/>")), 1));
    EXPECT_TRUE(run.getLeftOut().empty());
    readTable(makeTbl(">", makeTr(makeTc("a", "", "<a:tcPr marT='1'/>")), 1));
    EXPECT_THAT(run.getLeftOut(), ElementsAre(SlideLeftOut::CellLooks));
}

/// "WIDTH STYLE COLOR"
std::string getLine(const DOM::BordersProps::Line& line)
{
    if (!line)
        return "-";
    std::ostringstream out;
    out << line->getWidth() << ' ' << static_cast<int>(line->getStyle()) << ' ' << getHex(line->getColor());
    return out.str();
}

TEST_F(SlideTable, CellsHaveLines)
{
    const std::string red = "<a:solidFill><a:srgbClr val='FF0000'/></a:solidFill>";
    readTable(makeTbl(">",
        makeTr(makeTc("a", "",
            "<a:tcPr><a:lnL w='25400' cmpd='dbl'>" + red + "</a:lnL><a:lnR>" + red +
                "<a:prstDash val='dash'/></a:lnR><a:lnT><a:noFill/></a:lnT>"
                "<a:lnB w='12700'/></a:tcPr>")),
        1));
    const auto& borders = getProps(0, 0).getBorders();
    ASSERT_TRUE(borders);
    EXPECT_EQ(getLine(borders->getLeft()), "2 2 FF0000");
    EXPECT_EQ(getLine(borders->getRight()), "1 5 FF0000");
    EXPECT_EQ(getLine(borders->getTop()), "0 0 -");
    EXPECT_EQ(getLine(borders->getBottom()), "-");
}

std::string makeFillPart(const std::string& name, const std::string& color)
{
    return "<a:" + name + "><a:tcStyle><a:fill><a:solidFill><a:srgbClr val='" + color +
           "'/></a:solidFill></a:fill></a:tcStyle></a:" + name + ">";
}

struct LookRow
{
    const char* name;
    const char* flags;
    const char* fills;
};

void PrintTo(const LookRow& row, std::ostream* out)
{
    *out << row.flags;
}

const LookRow LookRows[] = {
    {"Whole",      "",                             "0 0 0/0 0 0/0 0 0/0 0 0"},
    {"FirstRow",   "firstRow='1'",                 "A A A/0 0 0/0 0 0/0 0 0"},
    {"LastRow",    "lastRow='true'",               "0 0 0/0 0 0/0 0 0/B B B"},
    {"FirstCol",   "firstCol='1'",                 "C 0 0/C 0 0/C 0 0/C 0 0"},
    {"LastCol",    "lastCol='1'",                  "0 0 D/0 0 D/0 0 D/0 0 D"},
    {"Off",        "firstRow='0' bandRow='false'", "0 0 0/0 0 0/0 0 0/0 0 0"},
    {"Bands",      "bandRow='1'",                  "1 1 1/2 2 2/1 1 1/2 2 2"},
    {"BandsFrom1", "bandRow='1' firstRow='1'",     "A A A/1 1 1/2 2 2/1 1 1"},
    {"BandsTo3",   "bandRow='1' lastRow='1'",      "1 1 1/2 2 2/1 1 1/B B B"},
    {"Columns",    "bandCol='1'",                  "3 4 3/3 4 3/3 4 3/3 4 3"},
    {"ColumnsIn",  "bandCol='1' firstCol='1'",     "C 3 4/C 3 4/C 3 4/C 3 4"},
    {"RowsOver",   "firstRow='1' firstCol='1'",    "E A A/C 0 0/C 0 0/C 0 0"},
    {"Corner",     "lastRow='1' lastCol='1'",      "0 0 D/0 0 D/0 0 D/B B F"},
};

class LookOfTable : public SlideTable, public testing::WithParamInterface<LookRow>
{
};

TEST_P(LookOfTable, KeepsRow)
{
    std::string style = "<a:tblStyleLst><a:tblStyle styleId='{S}'>";
    for (const char* const fill : {"wholeTbl:0", "band1H:1", "band2H:2", "band1V:3", "band2V:4", "firstRow:A",
             "lastRow:B", "firstCol:C", "lastCol:D", "nwCell:E", "seCell:F"}) {
        const std::string name(fill, std::string(fill).size() - 2);
        style += makeFillPart(name, std::string(6, fill[name.size() + 1]));
    }
    getContext().tableStyles.read(
        parse(style + "</a:tblStyle></a:tblStyleLst>")
            .getElement("http://schemas.openxmlformats.org/drawingml/2006/main:tblStyleLst"));
    const std::string row = makeTr(makeTc("") + makeTc("") + makeTc(""));
    readTable(
        makeTbl(std::string(GetParam().flags) + "><a:tableStyleId>{S}</a:tableStyleId>", repeat(row, 4)));
    std::string fills;
    const std::string described = describeFills();
    for (std::size_t i = 0; i < described.size(); i += 7)
        fills += described.substr(i, 1) + described.substr(i + 6, 1);
    EXPECT_EQ(fills, GetParam().fills);
    EXPECT_EQ(joinMessages(), "");
}

INSTANTIATE_TEST_SUITE_P(Rows, LookOfTable, testing::ValuesIn(LookRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(SlideTable, StyleOfTooManyElementsIsNone)
{
    const auto makeStyle = [](const std::string& identifier, unsigned long elements) { // with all below
        return "<a:tblStyle styleId='" + identifier + "'>" + makeFillPart("wholeTbl", "123456") +
               repeat("<a:x/>", elements - 6) + "</a:tblStyle>";
    };
    getContext().tableStyles.read(
        parse("<a:tblStyleLst>" + makeStyle("{S}", SlideTableStyles::ElementsMax) +
              makeStyle("{L}", SlideTableStyles::ElementsMax + 1) + "</a:tblStyleLst>")
            .getElement("http://schemas.openxmlformats.org/drawingml/2006/main:tblStyleLst"));
    readTable(makeTbl("><a:tableStyleId>{S}</a:tableStyleId>", makeTr(makeTc("")), 1));
    EXPECT_EQ(describeFills(), "123456");
    EXPECT_EQ(joinMessages(), "");
    readTable(makeTbl("><a:tableStyleId>{L}</a:tableStyleId>", makeTr(makeTc("")), 1));
    EXPECT_EQ(joinMessages(), "Table style {L} is not there");
}

TEST_F(SlideTable, LinesOfStylesStandAtEdgesAndBetweenCells)
{
    std::string lines;
    int width = 0;
    for (const char* const side : {"left", "right", "top", "bottom", "insideH", "insideV"})
        lines += "<a:" + std::string(side) + "><a:ln w='" + std::to_string(12700 * ++width) +
                 "'><a:solidFill><a:srgbClr val='FF0000'/></a:solidFill></a:ln></a:" + side + ">";
    const std::string row =
        makeTr(makeTc("") + makeTc("", "", "<a:tcPr><a:lnR><a:noFill/></a:lnR></a:tcPr>"));
    readTable(makeTbl("><a:tableStyle><a:wholeTbl><a:tcStyle><a:tcBdr>" + lines +
                          "</a:tcBdr></a:tcStyle></a:wholeTbl></a:tableStyle>",
        row + row, 2));
    const auto describe = [this](unsigned long cellRow, unsigned long column) {
        const auto& borders = *getProps(cellRow, column).getBorders();
        std::ostringstream out;
        out << borders.getLeft()->getWidth() << borders.getRight()->getWidth() << borders.getTop()->getWidth()
            << borders.getBottom()->getWidth();
        return out.str();
    };
    EXPECT_EQ(describe(0, 0), "1635");
    EXPECT_EQ(describe(0, 1), "6035");
    EXPECT_EQ(describe(1, 0), "1654");
    EXPECT_EQ(describe(1, 1), "6054");
}

TEST_F(SlideTable, KnowsTheUsualStyleByItself)
{
    readTable(makeTbl("firstRow='1' bandRow='1'><a:tableStyleId>{5C22544A-7EE6-4342-B048-85BDC9FD1C3A}"
                      "</a:tableStyleId>",
        makeTr(makeTc("head")) + makeTr(makeTc("x")) + makeTr(makeTc("y")), 1));
    const auto getRun = [this](unsigned long row) {
        const auto& blocks = table->findCell(RowIndex(row), ColumnIndex(0))->getText()->getBlocks();
        const auto& paragraph = dynamic_cast<const DOM::Paragraph&>(*blocks.front());
        return *paragraph.getRuns().front().getStyle().getRunProps();
    };
    EXPECT_EQ(getRun(0).getBold(), true);
    EXPECT_EQ(getHex(getRun(0).getColor()), "FFFFFF");
    EXPECT_EQ(getHex(getRun(1).getColor()), "000000");
    const std::string full = getHex(getProps(0, 0).getBackgroundColor());
    EXPECT_EQ(full, getHex(DOM::Color(*part->colors.findColor("accent1"))));
    EXPECT_NE(getHex(getProps(1, 0).getBackgroundColor()), full);
    EXPECT_NE(getHex(getProps(2, 0).getBackgroundColor()), getHex(getProps(1, 0).getBackgroundColor()));
    EXPECT_EQ(getLine(getProps(0, 0).getBorders()->getBottom()), "3 1 FFFFFF");
    EXPECT_EQ(joinMessages(), "");
}

TEST_F(SlideTable, UnknownStylesAreReported)
{
    readTable(makeTbl("><a:tableStyleId>{2D5ABB26-0587-4C30-8999-92F81FD0307C}</a:tableStyleId>", ""));
    EXPECT_EQ(joinMessages(), "");
    readTable(makeTbl("><a:tableStyleId>{X}</a:tableStyleId>", makeTr(makeTc("a")), 1));
    EXPECT_EQ(joinMessages(), "Table style {X} is not there");
}

} // namespace
} // namespace QV::Filters
