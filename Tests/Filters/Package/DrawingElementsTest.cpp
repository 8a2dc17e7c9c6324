#include <Filters/Package/DrawingElements.h>

#include <ostream>
#include <sstream>
#include <string>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include <FilterUtils/FU_XMLElement.h>
#include <Utils/Public/OperationReport.h>

#include <Tests/Support/FrameBuilder.h>
#include <Tests/Support/XercesEnvironment.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

/// An element with the usual prefixes, or with those of the strict dialect.
XMLElement parse(const std::string& content, const std::string& attributes = {}, bool isStrict = false)
{
    const std::string base = isStrict ? "http://purl.oclc.org/ooxml/drawingml/"
                                      : "http://schemas.openxmlformats.org/drawingml/2006/";
    std::istringstream stream("<root xmlns:a='" + base + "main' xmlns:xdr='" + base + "spreadsheetDrawing' " +
                              attributes + ">" + content + "</root>");
    return XMLElement::getRootElement(stream, boost::none);
}

std::string getOnlyMessage(const OperationReport& report)
{
    return report.getMessages().size() == 1 ? report.getMessages().front().toString()
                                            : std::to_string(report.getMessages().size()) + " messages";
}

struct CoordinateRow
{
    const char* name;
    const char* text;
    boost::optional<float> points;
    const char* message; // null for none
};

void PrintTo(const CoordinateRow& row, std::ostream* out)
{
    *out << '"' << row.text << '"';
}

const CoordinateRow CoordinateRows[] = {
    {"Zero",           "0",                    0.0F,           nullptr                                          },
    {"Point",          "12700",                1.0F,           nullptr                                          },
    {"Negative",       "-6350",                -0.5F,          nullptr                                          },
    {"Plus",           "+12700",               1.0F,           nullptr                                          },
    {"Largest",        "27273042329600",       2147483648.0F,  nullptr                                          },
    {"Smallest",       "-27273042329600",      -2147483648.0F, nullptr                                          },
    {"TooLarge",       "27273042329601",       boost::none,    "Drawing coordinate 27273042329601 is none"      },
    {"TooSmall",       "-27273042329601",      boost::none,    "Drawing coordinate -27273042329601 is none"     },
    {"BeyondALong",    "9223372036854775808",  boost::none,    "Drawing coordinate 9223372036854775808 is none" },
    {"FarBeyondALong", "99999999999999999999", boost::none,
     "Drawing coordinate 99999999999999999999 is none"                                                          },
    {"SmallestLong",   "-9223372036854775807", boost::none,    "Drawing coordinate -9223372036854775807 is none"},
    {"Inches",         "1.5in",                108.0F,         nullptr                                          },
    {"Points",         "-2pt",                 -2.0F,          nullptr                                          },
    {"EndlessInches",  "1e30in",               boost::none,    "Drawing coordinate 1e30in is none"              },
    {"InfiniteInches", "1e999in",              boost::none,    "Drawing coordinate 1e999in is none"             },
    {"UnknownUnit",    "1ell",                 boost::none,    "Can't parse length value 1ell"                  },
    {"Fraction",       "1.5",                  boost::none,    "Drawing coordinate 1.5 is none"                 },
    {"Empty",          "",                     boost::none,    "Drawing coordinate  is none"                    },
    {"SignAlone",      "-",                    boost::none,    "Drawing coordinate - is none"                   },
    {"TwoSigns",       "--1",                  boost::none,    "Drawing coordinate --1 is none"                 },
    {"Blank",          " 1",                   boost::none,    "Drawing coordinate  1 is none"                  },
    {"Hexadecimal",    "0x1",                  boost::none,    "Drawing coordinate 0x1 is none"                 },
};

class ReadCoordinate : public testing::TestWithParam<CoordinateRow>
{
};

TEST_P(ReadCoordinate, KeepsRow)
{
    const CoordinateRow& row = GetParam();
    OperationReport report;
    EXPECT_EQ(readCoordinate(row.text, report), row.points);
    EXPECT_EQ(getOnlyMessage(report), row.message ? row.message : "0 messages");
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadCoordinate, testing::ValuesIn(CoordinateRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ReadMarker, ReadsBothDialects)
{
    const std::string marker = "<xdr:col>2</xdr:col><xdr:colOff>12700</xdr:colOff><xdr:row>3</xdr:row>"
                               "<xdr:rowOff>-25400</xdr:rowOff>";
    for (const bool isStrict : {false, true}) {
        OperationReport report;
        EXPECT_EQ(readMarker(parse(marker, "", isStrict), report), makeOffset(2, 1, 3, -2));
        EXPECT_EQ(report.getMessages().size(), 0U);
    }
}

TEST(ReadMarker, TakesTheNearestCellThatThereIs)
{
    const auto read = [](const std::string& column, const std::string& row, OperationReport& report) {
        return readMarker(parse("<xdr:col>" + column + "</xdr:col><xdr:row>" + row + "</xdr:row>"), report);
    };
    OperationReport none;
    EXPECT_EQ(read("16383", "1048575", none), makeOffset(16383, 0, 1048575, 0));
    EXPECT_EQ(readMarker(parse(""), none), makeOffset(0, 0, 0, 0));
    EXPECT_EQ(none.getMessages().size(), 0U);

    OperationReport report;
    EXPECT_EQ(read("16384", "1048576", report), makeOffset(16383, 0, 1048575, 0));
    EXPECT_EQ(read("-1", "x", report), makeOffset(0, 0, 0, 0));
    ASSERT_EQ(report.getMessages().size(), 4U);
    EXPECT_EQ(report.getMessages()[0].toString(),
        "Drawing is anchored to 16384, which is no row or column of a sheet");
}

TEST(ReadSize, TakesNegativeOnesForNothing)
{
    OperationReport report;
    EXPECT_EQ(readSize(parse("", "cx='12700' cy='25400'"), report), Size2D<float>(1, 2));
    EXPECT_EQ(readSize(parse("", "cy='0'"), report), Size2D<float>(0, 0));
    EXPECT_EQ(report.getMessages().size(), 0U);
    EXPECT_EQ(readSize(parse("", "cx='-1' cy='12700'"), report), Size2D<float>(0, 1));
    EXPECT_EQ(getOnlyMessage(report), "Drawing size -1 is negative");
}

TEST(ReadTransform, ReadsBoxesTurnAndFlips)
{
    OperationReport report;
    const DrawnTransform transform = readTransform(
        parse("<a:off x='12700' y='25400'/><a:ext cx='38100' cy='50800'/><a:chOff x='0' y='-12700'/>"
              "<a:chExt cx='12700' cy='0'/>",
            "rot='-5400000' flipH='1' flipV='true'"),
        report);
    ASSERT_TRUE(transform.box && transform.childBox);
    EXPECT_EQ(transform.box->offset, cinder::Vec2<float>(1, 2));
    EXPECT_EQ(transform.box->extent, Size2D<float>(3, 4));
    EXPECT_EQ(transform.childBox->offset, cinder::Vec2<float>(0, -1));
    EXPECT_EQ(transform.childBox->extent, Size2D<float>(1, 0));
    EXPECT_EQ(transform.rotation, 16200000);
    EXPECT_TRUE(transform.isFlippedHorizontally);
    EXPECT_TRUE(transform.isFlippedVertically);
    EXPECT_EQ(report.getMessages().size(), 0U);
}

TEST(ReadTransform, HasNoBoxWithoutBothOfItsParts)
{
    OperationReport report;
    EXPECT_FALSE(readTransform(parse("<a:off x='1' y='1'/>"), report).box);
    EXPECT_FALSE(readTransform(XMLElement(), report).box);
    EXPECT_EQ(readTransform(XMLElement(), report).rotation, 0);
    EXPECT_EQ(readTransform(parse("", "rot='21600000'"), report).rotation, 0);
    EXPECT_EQ(readTransform(parse("", "rot='-9223372036854775807'"), report).rotation, 17224193);
    EXPECT_EQ(report.getMessages().size(), 0U);
    EXPECT_EQ(readTransform(parse("", "rot='x'"), report).rotation, 0);
    EXPECT_EQ(getOnlyMessage(report), "Drawing rotation x is none");
}

} // namespace
} // namespace QV::Filters
