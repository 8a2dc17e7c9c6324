#include <Filters/Spreadsheet/SpreadsheetImport.h>

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Document.h>
#include <DOM/Public/Table.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
#include <Tests/Support/Printers.h>
#include <Tests/Support/WorkbookBuilder.h>
#include <Tests/Support/XercesEnvironment.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using testing::Contains;
using testing::ElementsAre;

/// Workbooks that no application writes, and that must neither harm nor lose anything.
class HostileWorkbook : public testing::Test
{
protected:
    void import()
    {
        Package package = Package::openBytes(builder.make());
        importSpreadsheet(package, run);
    }

    std::vector<const DOM::Table*> listTables() const
    {
        std::vector<const DOM::Table*> tables;
        for (const DOM::Block& block : run.getDocument().getBlocks())
            tables.push_back(dynamic_cast<const DOM::Table*>(&block));
        return tables;
    }

    const DOM::Cell& getCell(unsigned long row, unsigned long column) const
    {
        static const DOM::Cell none;
        const DOM::Cell* const cell = listTables().at(0)->findCell(RowIndex(row), ColumnIndex(column));
        return cell ? *cell : none;
    }

    std::vector<std::string> listMessages() const
    {
        std::vector<std::string> texts;
        for (const OperationReport::Message& message : run.getReport().getMessages())
            if (message.getText() != FilterRun::LeftOutMessage)
                texts.push_back(message.toString());
        return texts;
    }

    Tests::WorkbookBuilder builder;
    FilterRun run;
};

TEST_F(HostileWorkbook, PartIsReadForOneSheetOnly)
{
    builder.sheetEntries =
        "<sheet name='One' sheetId='1' r:id='s1'/><sheet name='Two' sheetId='2' r:id='s1'/>"
        "<sheet name='Three' sheetId='3' r:id='s2'/>";
    builder.workbookRelationships =
        Tests::makeRelationship("s2", Tests::TransitionalTypes + "worksheet", "SHEET1.xml");
    builder.sheet = "<sheetData><row><c><v>1</v></c></row></sheetData>";
    import();
    const auto tables = listTables();
    ASSERT_EQ(tables.size(), 3U);
    EXPECT_EQ(tables[0]->getLiveRowsCount(), 1U);
    EXPECT_EQ(tables[1]->getLiveRowsCount(), 0U);
    EXPECT_EQ(tables[2]->getLiveRowsCount(), 0U);
    EXPECT_THAT(listMessages(), ElementsAre("Sheet Two has the part of an earlier sheet",
                                    "Sheet Three has the part of an earlier sheet"));
}

TEST_F(HostileWorkbook, FallbacksAreReadWhereverTheyStand)
{
    const std::string begin =
        "<mc:AlternateContent xmlns:mc='http://schemas.openxmlformats.org/markup-compatibility/2006'>";
    const std::string row = "<row r='1'><c><v>1</v></c></row>";
    const std::string cell = "<c r='A2'><v>2</v></c>";
    const auto choose = [&](const std::string& fallback) {
        return begin + "<mc:Choice Requires='other'><row r='9'><c r='A9'><v>9</v></c></row></mc:Choice>" +
               "<mc:Fallback>" + fallback + "</mc:Fallback></mc:AlternateContent>";
    };
    builder.sheet = "<sheetData>" + choose(row) + "<row r='2'>" + choose(cell) + "</row></sheetData>";
    import();
    EXPECT_EQ(getCell(0, 0).getNumber(), 1);
    EXPECT_EQ(getCell(1, 0).getNumber(), 2);
    EXPECT_EQ(listTables().front()->getLiveRowsCount(), 2U);
}

TEST_F(HostileWorkbook, SizesBeyondTheBoundsAreReportedAndLeftOut)
{
    builder.sheet =
        "<sheetFormatPr defaultColWidth='1e300' defaultRowHeight='409.51'/>"
        "<cols><col min='1' max='1' width='255.01'/><col min='2' max='2' width='255'/></cols>"
        "<sheetData><row r='1' ht='409.6'/><row r='2' ht='409.5'/><row r='3' ht='-1'/></sheetData>";
    import();
    const DOM::Table& table = *listTables().front();
    EXPECT_EQ(table.getDefaultColumnWidth(), 48.0F);
    EXPECT_EQ(table.getDefaultRowHeight(), 15.0F);
    EXPECT_EQ(table.getColumnProps(ColumnIndex(0)).getWidth(), boost::none);
    EXPECT_NE(table.getColumnProps(ColumnIndex(1)).getWidth(), boost::none);
    EXPECT_EQ(table.getRowProps(RowIndex(0)).getHeight(), boost::none);
    EXPECT_EQ(table.getRowProps(RowIndex(1)).getHeight(), boost::optional<float>(409.5F));
    EXPECT_THAT(listMessages(),
        ElementsAre("Unexpected row height 409.51", "Unexpected column width 1e300",
            "Unexpected column width 255.01", "Unexpected row height 409.6", "Unexpected row height -1"));
}

TEST_F(HostileWorkbook, MessagesOfOnePatternAreCountedFromTheThousandth)
{
    builder.sheet = "<cols>";
    for (int i = 0; i < 1001; ++i)
        builder.sheet += "<col min='2' max='1' width='q'/>";
    builder.sheet += "</cols><sheetData>";
    for (int i = 0; i < 1001; ++i)
        builder.sheet += "<row r='x' ht='y'><c t='z' s='w'/></row>";
    builder.sheet += "</sheetData>";
    import();
    const std::vector<std::string> messages = listMessages();
    EXPECT_EQ(messages.size(), 6U * 1000 + 6);
    for (const char* const pattern :
        {"Columns {} to {} are not columns of a sheet", "Unexpected column width {}", "Row number {} is none",
            "Unexpected row height {}", "Unknown cell type {}", "Cell format number {} is none"})
        EXPECT_THAT(messages, Contains("1 more times: " + std::string(pattern)));
}

} // namespace
} // namespace QV::Filters
