#include <Filters/Spreadsheet/Borders.h>

#include <memory>
#include <ostream>
#include <sstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Filters/Package/Colors.h>
#include <Filters/Package/Namespaces.h>
#include <Tests/Support/WorkbookBuilder.h>
#include <Tests/Support/XercesEnvironment.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using DOM::LineStyle;
using testing::IsEmpty;

class ReadBorder : public testing::Test
{
protected:
    CellLines read(const std::string& attributes, const std::string& content)
    {
        std::istringstream stream(
            "<border xmlns='" + Tests::SheetNamespace + "' " + attributes + ">" + content + "</border>");
        const auto root = FilterUtils::XMLElement::getRootElement(stream, boost::none);
        return readBorder(root, Names(Dialect::Transitional), Colors(), report);
    }

    OperationReport report;
};

struct KindRow
{
    const char* kind;
    LineStyle style;
    float width;
};

void PrintTo(const KindRow& row, std::ostream* out)
{
    *out << row.kind;
}

const KindRow KindRows[] = {
    {"thin",             LineStyle::Solid,        0.75F},
    {"medium",           LineStyle::Solid,        1.5F },
    {"thick",            LineStyle::Solid,        2.25F},
    {"double",           LineStyle::Double,       2.25F},
    {"hair",             LineStyle::Hair,         0.75F},
    {"dotted",           LineStyle::Dotted,       0.75F},
    {"dashed",           LineStyle::Dashed,       0.75F},
    {"dashDot",          LineStyle::DashDot,      0.75F},
    {"dashDotDot",       LineStyle::DashDotDot,   0.75F},
    {"mediumDashed",     LineStyle::Dashed,       1.5F },
    {"mediumDashDot",    LineStyle::DashDot,      1.5F },
    {"mediumDashDotDot", LineStyle::DashDotDot,   1.5F },
    {"slantDashDot",     LineStyle::SlantDashDot, 1.5F },
};

class ReadBorderKinds : public ReadBorder, public testing::WithParamInterface<KindRow>
{
};

TEST_P(ReadBorderKinds, KeepRow)
{
    const auto lines = read("", "<top style='" + std::string(GetParam().kind) + "'/>");
    ASSERT_TRUE(lines.borders);
    EXPECT_EQ(*lines.borders->getTop(), DOM::LineProps(GetParam().style, GetParam().width));
    EXPECT_EQ(lines.borders->getBottom(), nullptr);
    EXPECT_THAT(report.getMessages(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadBorderKinds, testing::ValuesIn(KindRows),
    [](const auto& row) { return std::string(row.param.kind); });

TEST_F(ReadBorder, NoTwoKindsAreAlike)
{
    for (const KindRow& a : KindRows)
        for (const KindRow& b : KindRows)
            EXPECT_EQ(a.style == b.style && a.width == b.width, &a == &b) << a.kind << " and " << b.kind;
}

TEST_F(ReadBorder, SidesWithoutALineAreNotSet)
{
    EXPECT_EQ(read("", "").borders, nullptr);
    EXPECT_EQ(
        read("", "<left/><right style='none'/><top style='none'><color auto='1'/></top>").borders, nullptr);
    EXPECT_THAT(report.getMessages(), IsEmpty());
    EXPECT_EQ(read("", "<left style='wavy'/>").borders, nullptr);
    ASSERT_EQ(report.getMessages().size(), 1U);
    EXPECT_EQ(report.getMessages().front().toString(), "Unknown kind of line wavy");
}

TEST_F(ReadBorder, EachSideHasItsOwnLine)
{
    const auto borders =
        read("", "<left style='thin'/><right style='medium'/><top style='thick'/><bottom style='double'/>"
                 "<vertical style='hair'/><horizontal style='dotted'/>")
            .borders;
    ASSERT_TRUE(borders);
    EXPECT_EQ(borders->getLeft()->getStyle(), LineStyle::Solid);
    EXPECT_EQ(borders->getRight()->getWidth(), 1.5F);
    EXPECT_EQ(borders->getTop()->getWidth(), 2.25F);
    EXPECT_EQ(borders->getBottom()->getStyle(), LineStyle::Double);
    EXPECT_EQ(borders->getVertical()->getStyle(), LineStyle::Hair);
    EXPECT_EQ(borders->getHorizontal()->getStyle(), LineStyle::Dotted);
    const auto strict = read("", "<start style='thin'/><end style='medium'/>").borders;
    ASSERT_TRUE(strict);
    EXPECT_EQ(strict->getLeft()->getWidth(), 0.75F);
    EXPECT_EQ(strict->getRight()->getWidth(), 1.5F);
}

TEST_F(ReadBorder, DiagonalsGoWhereTheBorderSays)
{
    const std::string diagonal = "<diagonal style='thin'/>";
    EXPECT_EQ(read("", diagonal).diagonalUp, nullptr);
    EXPECT_EQ(read("", diagonal).diagonalDown, nullptr);
    EXPECT_EQ(read("diagonalUp='0' diagonalDown='false'", diagonal).diagonalUp, nullptr);
    const auto up = read("diagonalUp='1'", diagonal);
    EXPECT_NE(up.diagonalUp, nullptr);
    EXPECT_EQ(up.diagonalDown, nullptr);
    const auto both = read("diagonalUp='true' diagonalDown='1'", diagonal);
    EXPECT_EQ(*both.diagonalUp, DOM::LineProps(LineStyle::Solid, 0.75F));
    EXPECT_EQ(both.diagonalUp, both.diagonalDown);
    EXPECT_EQ(read("diagonalDown='1'", "").diagonalDown, nullptr);
}

struct ColorRow
{
    const char* name;
    const char* color; // the attributes
    long rgb;          // -1: the automatic colour
};

void PrintTo(const ColorRow& row, std::ostream* out)
{
    *out << row.color;
}

const ColorRow ColorRows[] = {
    {"Rgb",     "rgb='FF112233'",                      0x112233},
    {"Theme",   "theme='4'",                           0x4F81BD},
    {"Tinted",  "theme='4' tint='0.7999816888943144'", 0xDCE6F1},
    {"Indexed", "indexed='10'",                        0xFF0000},
    {"System",  "indexed='64'",                        0x000000},
    {"Auto",    "auto='1'",                            -1      },
};

class ReadBorderColors : public ReadBorder, public testing::WithParamInterface<ColorRow>
{
};

TEST_P(ReadBorderColors, KeepRow)
{
    const std::string color = "<color " + std::string(GetParam().color) + "/>";
    const auto lines = read("", "<left style='thin'>" + color + "</left>");
    ASSERT_TRUE(lines.borders);
    const auto& actual = lines.borders->getLeft()->getColor();
    ASSERT_EQ(actual.has_value(), GetParam().rgb >= 0);
    if (actual) {
        EXPECT_EQ(actual->getRGBA().r << 16 | actual->getRGBA().g << 8 | actual->getRGBA().b, GetParam().rgb);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadBorderColors, testing::ValuesIn(ColorRows),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace QV::Filters
