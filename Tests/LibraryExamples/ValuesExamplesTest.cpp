// The examples of Docs/library.md about values: what stands between two marks is there word for word.

#include <string>

#include <boost/none.hpp>
#include <boost/optional/optional_io.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <FilterUtils/FU_Colors.h>
#include <FilterUtils/FU_DateTimeFormatCodes.h>
#include <FilterUtils/FU_Errors.h>
#include <FilterUtils/FU_Lengths.h>
#include <FilterUtils/FU_NumberText.h>
#include <FilterUtils/FU_Text.h>
#include <OfficeUtils/Public/Parser.h>
#include <Utils/Public/OperationReport.h>

namespace QV::FilterUtils {
namespace {

using testing::HasSubstr;

TEST(Example, Lengths)
{
    // example: FU_Lengths
    OperationReport report;
    EXPECT_EQ(convertLength(report, "1.5in", boost::none, anyLength), 108.0F); // points
    EXPECT_EQ(convertLength(report, "1.5in", UnitOpt(36), anyLength), 36.0F);  // 36 at most
    EXPECT_EQ(convertPercentage(report, "50%"), 0.5);
    EXPECT_EQ(convertEMUToPoints(914400), 72.0F);
    EXPECT_EQ(convertPointsToEMU(72), 914400);
    EXPECT_TRUE(report.getMessages().empty());

    EXPECT_EQ(convertLength(report, "20dpi", boost::none, anyLength), boost::none);
    EXPECT_EQ(report.getMessages().front().toString(), "Unknown units in 20dpi");
    // end
}

TEST(Example, Colors)
{
    // example: FU_Colors
    OperationReport report;
    const auto orange = convertToRGBColor(report, "FFCC00");
    EXPECT_EQ(convertRGBColor(*orange), "FFCC00");
    const auto red = convertToRGBAColor(report, "rgba(255,0,0,0.5)");
    EXPECT_EQ(convertRGBColor(*red), "FF0000"); // the opacity is not written
    EXPECT_EQ(red->a, 127);

    EXPECT_FALSE(convertToRGBColor(report, "orange"));
    EXPECT_EQ(report.getMessages().front().toString(), "Incorrect color: orange");
    // end
}

TEST(Example, NumberText)
{
    // example: FU_NumberText
    EXPECT_EQ(formatDoubleToString(2.375, 2), "2.38"); // two digits behind the point at most
    EXPECT_EQ(formatDoubleToString(1200, 2), "1200");
    EXPECT_TRUE(isNumberString("-0.5"));
    EXPECT_FALSE(isNumberString("007")); // reading it as a number would lose the zeros

    SeparatedClassicStream stream;
    stream.append(2.0);
    stream.append(0.5);
    EXPECT_EQ(stream.str(), "2 0.500000");
    // end
}

TEST(Example, Text)
{
    // example: FU_Text
    const auto style = parseKeyValueString("width:3pt;height:4pt", ";", ":");
    EXPECT_EQ(style.at("height"), "4pt");

    std::string mimeType;
    EXPECT_EQ(getRawImageData("data:image/gif;base64,R0lGODlh", mimeType), "GIF89a");
    EXPECT_EQ(mimeType, "image/gif");

    OperationReport report;
    EXPECT_EQ(fixTableNameIfNeed(report, "Orders"), "Orders"); // a name that a table may have
    EXPECT_NE(fixTableNameIfNeed(report, "Orders?"), "Orders?");
    EXPECT_EQ(report.getMessages().size(), 1U);
    // end
}

TEST(Example, DateTimeFormatCodes)
{
    // example: FU_DateTimeFormatCodes
    const auto type = OfficeUtils::Parser::ParserType::Spreadsheet;
    const auto code = OfficeUtils::Parser::parse(R"([$-F800]dddd\,\ mmmm\ dd\,\ yyyy)", type);
    const auto longDate = convertCellFormatExpressionToLocalizedDateTime(*code);
    ASSERT_TRUE(longDate); // the long date of whoever reads it; a code without the mark gives nothing
    EXPECT_EQ(convertLocalizedDateTimeToFormatCodeMsExcel(*longDate), R"([$-F800]dddd\,\ mmmm\ dd\,\ yyyy)");
    // end
}

TEST(Example, Errors)
{
    // example: FU_Errors
    EXPECT_EQ(numCast<unsigned long>(7), 7UL);
    try {
        numCast<unsigned long>(-1);
        FAIL() << "-1 is no unsigned number";
    } catch (const BaseRuntimeError& error) { // the root of all that the library throws by itself
        EXPECT_THAT(error.what(), HasSubstr("negative overflow"));
    }
    // end
}

} // namespace
} // namespace QV::FilterUtils
