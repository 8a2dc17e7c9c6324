#include <Filters/Preview/SpreadsheetPreview.h>

#include <memory>
#include <sstream>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Table.h>
#include <Filters/Package/FilterRun.h>

namespace QV::Filters {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class SpreadsheetPreview : public ::testing::Test
{
protected:
    DOM::Table& addSheet(const std::string& name)
    {
        auto table = std::make_unique<DOM::Table>();
        table->setName(name);
        table->setDefaultRowHeight(15);
        table->setDefaultColumnWidth(48);
        DOM::Table& result = *table;
        run.getDocument().getBlocks().append(std::move(table));
        return result;
    }

    std::string write(const PreviewLimits& limits = {})
    {
        std::ostringstream page;
        writeSpreadsheetPreview(run, "book <1>", page, limits);
        return page.str();
    }

    static std::size_t count(const std::string& text, const std::string& part)
    {
        std::size_t result = 0;
        for (std::size_t i = text.find(part); i != std::string::npos; i = text.find(part, i + 1))
            ++result;
        return result;
    }

    FilterRun run;
};

TEST_F(SpreadsheetPreview, OfNoSheetsSaysSo)
{
    EXPECT_THAT(write(), HasSubstr("There are no sheets"));
}

TEST_F(SpreadsheetPreview, EscapesWhatTheDocumentSays)
{
    DOM::Table& table = addSheet("<b>&");
    table.getOrMakeCell(RowIndex(0), ColumnIndex(0))
        .setText(DOM::makePlainCellText("<script>alert(1)</script>"));
    const std::string page = write();
    EXPECT_THAT(page, HasSubstr("<title>book &lt;1&gt;</title>"));
    EXPECT_THAT(page, HasSubstr("<h2>&lt;b&gt;&amp;</h2>"));
    EXPECT_THAT(page, HasSubstr("&lt;script&gt;alert(1)&lt;/script&gt;"));
    EXPECT_THAT(page, Not(HasSubstr("<script")));
}

TEST_F(SpreadsheetPreview, ShowsHiddenSheetsLast)
{
    addSheet("first").setVisible(false);
    addSheet("second");
    const std::string page = write();
    EXPECT_THAT(page, HasSubstr("<a href=\"#s1\">second</a><a href=\"#s2\" class=\"hidden\">first</a>"));
}

TEST_F(SpreadsheetPreview, SaysWhatItDoesNotShow)
{
    DOM::Table& table = addSheet("large");
    table.ensureSize(1000, 30);
    PreviewLimits limits;
    limits.columns = 20;
    limits.cells = 100;
    const std::string page = write(limits);
    EXPECT_THAT(page, HasSubstr("Shown: 5 of 1000 rows, 20 of 30 columns."));
    EXPECT_EQ(count(page, "<tr "), 6U);
    limits.columns = 30;
    limits.cells = 30'000;
    EXPECT_THAT(write(limits), Not(HasSubstr("Shown:")));
    limits.textBytes = 5000;
    const std::string full = write(limits);
    EXPECT_THAT(full, HasSubstr("Shown:"));
    EXPECT_LT(full.size(), 15'000U);
}

TEST_F(SpreadsheetPreview, CutsLongTextBetweenCharacters)
{
    DOM::Table& table = addSheet("text");
    table.getOrMakeCell(RowIndex(0), ColumnIndex(0)).setText(DOM::makePlainCellText("aäöü"));
    PreviewLimits limits;
    limits.cellTextBytes = 7;
    EXPECT_THAT(write(limits), HasSubstr("<p>aäöü</p>"));
    limits.cellTextBytes = 6;
    EXPECT_THAT(write(limits), HasSubstr("<p>aäö…</p>"));
    limits.cellTextBytes = 5;
    EXPECT_THAT(write(limits), HasSubstr("<p>aäö…</p>"));
    limits.cellTextBytes = 4;
    EXPECT_THAT(write(limits), HasSubstr("<p>aä…</p>"));
}

TEST_F(SpreadsheetPreview, ShowsThePlaceOfPicturesThatItDoesNotHave)
{
    DOM::Table& table = addSheet("pictures");
    auto frame = std::make_unique<DOM::Frame>();
    frame->setName("\"Logo\"");
    frame->setAnchor(DOM::AbsoluteAnchor({10, 20}));
    frame->setExtent(Size2D<float>(30, 40));
    frame->setRotation(90);
    frame->setGraphicalObject(std::make_unique<DOM::Picture>("gone.png", "image/png"));
    table.appendFrame(std::move(frame));
    const std::string page = write();
    EXPECT_THAT(page, HasSubstr("left:46pt;top:35pt;width:30pt;height:40pt;transform:rotate(90deg);"));
    EXPECT_THAT(page, HasSubstr("&quot;Logo&quot;</div>"));
    EXPECT_THAT(page, Not(HasSubstr("<img")));
    PreviewLimits limits;
    limits.frames = 0;
    EXPECT_THAT(write(limits), Not(HasSubstr("&quot;Logo&quot;")));
}

} // namespace
} // namespace QV::Filters
