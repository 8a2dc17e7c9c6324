// Number formats through the import of a workbook, its JSON and its page.

#include <Filters/Spreadsheet/NumberFormats.h>

#include <sstream>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Filters/Package/CellDisplays.h>
#include <Filters/Preview/SpreadsheetPreview.h>
#include <Tests/Support/ImportedWorkbook.h>

namespace QV::Filters {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class NumberFormatsImport : public Tests::ImportedWorkbook
{
protected:
    /// @param codes the "numFmt" elements
    /// @param formats the entries of the table of cell formats
    void importFormats(const std::string& codes, const std::string& formats, const std::string& sheet,
        const std::string& rest = {})
    {
        builder.styles = "<numFmts>" + codes + "</numFmts>" + rest + "<cellXfs>" + formats + "</cellXfs>";
        builder.sheet = "<sheetData><row>" + sheet + "</row></sheetData>";
        import();
    }

    const DOM::CellFormat* findFormat(unsigned long column) const
    {
        const DOM::Cell* const cell = findCell(0, column);
        return cell ? CellDisplays(run->getDocument()).findFormat(cell->getStyle()) : nullptr;
    }

    std::string writePage() const
    {
        std::ostringstream page;
        writeSpreadsheetPreview(*run, "book", page, {});
        return page.str();
    }
};

TEST_F(NumberFormatsImport, CodesAreKeptAsTheyAreWritten)
{
    importFormats("<numFmt numFmtId='164' formatCode='0.00 &quot;pt&quot;'/>",
        "<xf/><xf numFmtId='164'/><xf numFmtId='10'/>", "<c><v>1</v></c><c s='1'><v>1</v></c><c s='2'/>");
    EXPECT_EQ(findFormat(0), nullptr);
    ASSERT_NE(findFormat(1), nullptr);
    EXPECT_EQ(findFormat(1)->getCode(), "0.00 \"pt\"");
    EXPECT_TRUE(findFormat(1)->getExpression());
    ASSERT_NE(findFormat(2), nullptr);
    EXPECT_EQ(findFormat(2)->getCode(), "0.00%");
    EXPECT_THAT(listMessages(), IsEmpty());
    EXPECT_THAT(run->getLeftOut(), IsEmpty());
}

TEST_F(NumberFormatsImport, TheGeneralFormatIsNone)
{
    importFormats("<numFmt numFmtId='164' formatCode='GENERAL'/><numFmt numFmtId='165' formatCode=''/>",
        "<xf/><xf numFmtId='164'/><xf numFmtId='165'/><xf numFmtId='0'/><xf numFmtId='00'/>",
        "<c s='1'><v>1</v></c><c s='2'><v>1</v></c><c s='3'><v>1</v></c><c s='4'><v>1</v></c>");
    for (unsigned long column = 0; column < 4; ++column)
        EXPECT_EQ(findFormat(column), nullptr) << column;
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(NumberFormatsImport, AWorkbookMayReplaceWhatApplicationsKnow)
{
    importFormats(
        "<numFmt numFmtId='14' formatCode='yyyy'/>", "<xf/><xf numFmtId='14'/>", "<c s='1'><v>1</v></c>");
    ASSERT_NE(findFormat(0), nullptr);
    EXPECT_EQ(findFormat(0)->getCode(), "yyyy");
}

TEST_F(NumberFormatsImport, WhatIsWrongIsReported)
{
    importFormats("<numFmt numFmtId='164' formatCode='0&quot;'/>",
        "<xf/><xf numFmtId='164'/><xf numFmtId='163'/><xf numFmtId='165'/><xf numFmtId='x'/>"
        "<xf numFmtId='1x'/>",
        "<c s='1'><v>1.5</v></c>");
    ASSERT_NE(findFormat(0), nullptr);
    EXPECT_EQ(findFormat(0)->getCode(), "0\"");
    EXPECT_FALSE(findFormat(0)->getExpression());
    EXPECT_THAT(listMessages(),
        ElementsAre("Can't parse number format 0\"", "Cell format has an unknown numFmtId 165",
            "Cell format has an unknown numFmtId x", "Cell format has an unknown numFmtId 1x"));
    EXPECT_THAT(writeJson(), HasSubstr("\"value\": 1.5, \"format\": \"0\\\"\"}"));
}

TEST_F(NumberFormatsImport, SystemFormatsFollowTheReader)
{
    importFormats("<numFmt numFmtId='164' formatCode='[$-F800]dddd\\,\\ mmmm\\ dd\\,\\ yyyy'/>"
                  "<numFmt numFmtId='165' formatCode='[$-F400]h:mm:ss\\ AM/PM'/>"
                  "<numFmt numFmtId='166' formatCode='[$-F800]yyyy\\-mm\\-dd;@'/>",
        "<xf/><xf numFmtId='164'/><xf numFmtId='165'/><xf numFmtId='166'/>",
        "<c s='1'><v>43892</v></c><c s='2'><v>0.75</v></c><c s='3'><v>43890</v></c>");
    using DOM::CellFormatModel::FormatType;
    ASSERT_TRUE(findFormat(0)->getLocalizedDateTime());
    EXPECT_EQ(findFormat(0)->getLocalizedDateTime()->getFormatType(), FormatType::Date);
    EXPECT_FALSE(findFormat(0)->getExpression());
    ASSERT_TRUE(findFormat(1)->getLocalizedDateTime());
    EXPECT_EQ(findFormat(1)->getLocalizedDateTime()->getFormatType(), FormatType::Time);
    EXPECT_FALSE(findFormat(2)->getLocalizedDateTime());
    EXPECT_TRUE(findFormat(2)->getExpression());
    const std::string json = writeJson();
    EXPECT_THAT(json, HasSubstr("\"display\": \"Monday, March 2, 2020\""));
    EXPECT_THAT(json, HasSubstr("\"display\": \"6:00:00 PM\""));
    EXPECT_THAT(json, HasSubstr("\"display\": \"2020-02-29\""));
}

TEST_F(NumberFormatsImport, NamedStylesHaveFormatsToo)
{
    importFormats("", "<xf xfId='1' numFmtId='2'/><xf xfId='1' numFmtId='0'/><xf xfId='2' numFmtId='10'/>",
        "<c s='0'><v>1</v></c><c s='1'><v>1</v></c><c s='2'><v>1</v></c>",
        "<cellStyleXfs><xf/><xf numFmtId='10'/><xf numFmtId='10' applyNumberFormat='0'/></cellStyleXfs>"
        "<cellStyles><cellStyle name='Percent' xfId='1'/><cellStyle name='Other' xfId='2'/></cellStyles>");
    ASSERT_NE(findStyle("Percent"), nullptr);
    EXPECT_EQ(findStyle("Percent")->getCellProps()->getFormat()->getCode(), "0.00%");
    ASSERT_NE(findStyle("Other"), nullptr);
    EXPECT_EQ(findStyle("Other")->getCellProps(), nullptr);
    EXPECT_EQ(findFormat(0)->getCode(), "0.00");
    EXPECT_EQ(findFormat(1)->getCode(), "General") << "which keeps that of the named style away";
    EXPECT_EQ(findFormat(2)->getCode(), "0.00%");
    EXPECT_THAT(writeJson(), Not(HasSubstr("General")));
}

TEST_F(NumberFormatsImport, JsonShowsNumbersThatLookDifferent)
{
    importFormats("", "<xf/><xf numFmtId='4'/><xf numFmtId='1'/><xf numFmtId='49'/>",
        "<c><v>0.1</v></c><c><v>0.33333333333333331</v></c><c s='1'><v>1234.5</v></c><c s='2'><v>7</v></c>"
        "<c s='1' t='b'><v>1</v></c><c s='3' t='str'><v>x</v></c>");
    const std::string json = writeJson();
    EXPECT_THAT(json, HasSubstr("{\"ref\": \"A1\", \"type\": \"number\", \"value\": 0.1}"));
    EXPECT_THAT(json, HasSubstr("\"value\": 0.3333333333333333, \"display\": \"0.333333333\"}"));
    EXPECT_THAT(json, HasSubstr("\"value\": 1234.5, \"format\": \"#,##0.00\", \"display\": \"1,234.50\"}"));
    EXPECT_THAT(json, HasSubstr("\"value\": 7.0, \"format\": \"0\"}"));
    EXPECT_THAT(json, HasSubstr("\"value\": true, \"format\": \"#,##0.00\"}"));
    EXPECT_THAT(json, HasSubstr("\"value\": \"x\", \"format\": \"@\"}"));
}

TEST_F(NumberFormatsImport, DatesCountFromTheWorkbooksFirstDay)
{
    builder.workbookHead = "<workbookPr date1904='1'/>";
    importFormats("<numFmt numFmtId='164' formatCode='yyyy-mm-dd'/>", "<xf/><xf numFmtId='164'/>",
        "<c s='1'><v>0</v></c>");
    EXPECT_TRUE(run->getDocument().getDateSystem() == DOM::DateSystem::From1904);
    EXPECT_THAT(writeJson(), HasSubstr("\"display\": \"1904-01-01\""));
}

TEST_F(NumberFormatsImport, ThePageShowsWhatCellsShow)
{
    importFormats(
        "<numFmt numFmtId='164' formatCode='0.00;[Red]\\(0.00\\);0;[Blue]&quot;&lt;&quot;@&quot;>&quot;'/>",
        "<xf/><xf numFmtId='164'/><xf numFmtId='49'/>",
        "<c s='1'><v>1.5</v></c><c s='1'><v>-2.345</v></c><c s='1' t='str'><v>a&amp;b</v></c>"
        "<c s='2' t='str'><v>plain</v></c><c><v>1e21</v></c>");
    const std::string page = writePage();
    EXPECT_THAT(page, HasSubstr("<p>1.50</p>"));
    EXPECT_THAT(page, HasSubstr("<p><span style=\"color:#FF0000\">(2.35)</span></p>"));
    EXPECT_THAT(page, HasSubstr("<p><span style=\"color:#0000FF\">&lt;a&amp;b&gt;</span></p>"));
    EXPECT_THAT(page, HasSubstr("<p>plain</p>"));
    EXPECT_THAT(page, HasSubstr("<p>1E+21</p>"));
}

TEST_F(NumberFormatsImport, WhatAFormatHidesIsNotOnThePage)
{
    importFormats("<numFmt numFmtId='164' formatCode=';;;'/>", "<xf/><xf numFmtId='164'/>",
        "<c s='1'><v>12345</v></c><c s='1' t='str'><v>secret</v></c>");
    const std::string page = writePage();
    EXPECT_THAT(page, Not(HasSubstr("12345")));
    EXPECT_THAT(page, Not(HasSubstr("secret")));
    EXPECT_THAT(writeJson(), HasSubstr("\"value\": 12345.0, \"format\": \";;;\", \"display\": \"\"}"));
}

struct KnownRow
{
    const char* id;
    const char* code;
    const char* display;
};

TEST_F(NumberFormatsImport, KnowsTheFormatsOfApplications)
{
    const KnownRow rows[] = {
        {"1",  "0",                                         "-1235"          },
        {"4",  "#,##0.00",                                  "-1,234.57"      },
        {"5",  "\\\"$\\\"#,##0_);\\\\(\\\"$\\\"#,##0\\\\)", "($1,235)"       },
        {"9",  "0%",                                        "-123457%"       },
        {"11", "0.00E+00",                                  "-1.23E+03"      },
        {"12", "# ?/?",                                     "-1234 4/7"      },
        {"14", "mm-dd-yy",                                  "8/12/1896"      },
        {"22", "m/d/yy h:mm",                               "8/12/1896 10:23"},
        {"27", "mm-dd-yy",                                  "8/12/1896"      },
        {"35", "h:mm:ss",                                   "10:23:31"       },
        {"36", "mm-dd-yy",                                  "8/12/1896"      },
        {"50", "mm-dd-yy",                                  "8/12/1896"      },
        {"58", "mm-dd-yy",                                  "8/12/1896"      },
        {"59", "0",                                         "-1235"          },
        {"67", "0%",                                        "-123457%"       },
        {"72", "mm-dd-yy",                                  "8/12/1896"      },
        {"81", "mmss.0",                                    "23:31.2"        },
        {"37", "#,##0_);(#,##0)",                           "(1,235)"        },
        {"48", "##0.0E+0",                                  "-1.2E+3"        },
        {"49", "@",                                         "-1234.567"      },
    };
    for (const KnownRow& row : rows) {
        importFormats(
            "", "<xf/><xf numFmtId='" + std::string(row.id) + "'/>", "<c s='1'><v>-1234.567</v></c>");
        const std::string json = writeJson();
        EXPECT_THAT(json, HasSubstr("\"format\": \"" + std::string(row.code) + "\"")) << row.id;
        const auto display = HasSubstr("\"display\": \"" + std::string(row.display) + "\"");
        EXPECT_EQ(testing::Matches(display)(json), std::string(row.display) != "-1234.567") << row.id;
    }
}

TEST_F(NumberFormatsImport, EachOfTheFormatsOfApplicationsIsValid)
{
    std::vector<int> ids;
    for (int id = 1; id < 82; ++id)
        if (id < 23 || id > 26)
            ids.push_back(id);
    std::string formats = "<xf/>";
    std::string cells;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        formats += "<xf numFmtId='" + std::to_string(ids[i]) + "'/>";
        cells += "<c s='" + std::to_string(i + 1) + "'><v>1</v></c>";
    }
    importFormats("", formats, cells);
    EXPECT_THAT(listMessages(), IsEmpty());
    for (std::size_t i = 0; i < ids.size(); ++i) {
        const DOM::CellFormat* const format = findFormat(i);
        ASSERT_NE(format, nullptr) << ids[i];
        EXPECT_TRUE(format->getExpression()) << ids[i];
    }
}

} // namespace
} // namespace QV::Filters
