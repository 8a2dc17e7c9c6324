#include <Filters/Package/SeenText.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <DOM/Public/Block.h>
#include <DOM/Public/CellStyle.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TableOfContents.h>
#include <DOM/Public/TrackedChange.h>
#include <Filters/Package/EffectiveFormats.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>
#include <Utils/Public/UUID.h>

namespace QV::Filters {
namespace {

using Change = DOM::TrackedChange::Kind;

DOM::SharedRunStyle makeChanged(Change kind)
{
    DOM::RunStyle style;
    style.setChange(std::make_shared<DOM::TrackedChange>(kind, "A", ""));
    return DOM::SharedRunStyle(new DOM::RunStyle(style));
}

std::shared_ptr<const DOM::RunProps> makeHiddenProps(bool isHidden)
{
    auto props = std::make_shared<DOM::RunProps>();
    props->setHidden(isHidden);
    return props;
}

DOM::SharedRunStyle makeHidden(bool isHidden)
{
    DOM::RunStyle style;
    style.setRunProps(makeHiddenProps(isHidden));
    return DOM::SharedRunStyle(new DOM::RunStyle(style));
}

void addText(DOM::Paragraph& paragraph, const char* text, const DOM::SharedRunStyle& style = nullptr)
{
    paragraph.appendRun(std::make_unique<DOM::TextRun>(text, style));
}

struct SeenParagraphRow
{
    const char* name;
    std::function<void(DOM::Paragraph&)> fill;
    const char* text;
    bool isInFinalView;
};

void PrintTo(const SeenParagraphRow& row, std::ostream* out)
{
    *out << row.name;
}

using P = DOM::Paragraph;

const SeenParagraphRow SeenParagraphRows[] = {
    {"Empty",                     [](P&) {},                                                               "",        true },
    {"TabsAndBreaks",             [](P& p) { p.appendText("a\tb\nc"); },                                   "a\tb\nc", true },
    {"PageBreak",
     [](P& p) {
            addText(p, "a");
            p.appendRun(std::make_unique<DOM::BreakRun>(DOM::BreakRun::Kind::Page));
        },                                                                                                 "a\n",     true },
    {"FieldShowsItsResult",       [](P& p) { p.appendRun(std::make_unique<DOM::FieldRun>("PAGE", "7")); }, "7",
     true                                                                                                                  },
    {"OthersAreNoText",
     [](P& p) {
            p.appendRun(std::make_unique<DOM::DrawingRun>(nullptr));
            p.appendRun(std::make_unique<DOM::AnchorRun>(UUID::generate()));
            p.appendRun(std::make_unique<DOM::BookmarkRun>(DOM::BookmarkRun::Kind::Start, "b"));
        },                                                                                                 "",        true },
    {"DeletedIsOut",
     [](P& p) {
            addText(p, "a");
            addText(p, "b", makeChanged(Change::Deleted));
            addText(p, "c", makeChanged(Change::Inserted));
            addText(p, "d", makeChanged(Change::MovedFrom));
            addText(p, "e", makeChanged(Change::MovedTo));
        },                                                                                                 "ace",     true },
    {"HiddenIsOut",
     [](P& p) {
            addText(p, "a", makeHidden(true));
            addText(p, "b", makeHidden(false));
        },                                                                                                 "b",       true },
    {"DeletedMarkAlone",          [](P& p) { p.setSharedParaMarkStyle(makeChanged(Change::Deleted)); },    "",        false},
    {"MovedAway",
     [](P& p) {
            addText(p, "a", makeChanged(Change::MovedFrom));
            p.setSharedParaMarkStyle(makeChanged(Change::MovedFrom));
        },                                                                                                 "",        false},
    {"DeletedMarkBehindText",
     [](P& p) {
            addText(p, "a");
            p.setSharedParaMarkStyle(makeChanged(Change::Deleted));
        },                                                                                                 "a",       true },
    {"DeletedMarkBehindDrawing",
     [](P& p) {
            p.appendRun(std::make_unique<DOM::DrawingRun>(nullptr));
            p.setSharedParaMarkStyle(makeChanged(Change::Deleted));
        },                                                                                                 "",        true },
    {"DeletedMarkBehindBookmark",
     [](P& p) {
            p.appendRun(std::make_unique<DOM::BookmarkRun>(DOM::BookmarkRun::Kind::Start, "b"));
            p.setSharedParaMarkStyle(makeChanged(Change::Deleted));
        },                                                                                                 "",        false},
    {"InsertedMark",              [](P& p) { p.setSharedParaMarkStyle(makeChanged(Change::Inserted)); },   "",        true },
};

class SeenParagraph : public testing::TestWithParam<SeenParagraphRow>
{
};

TEST_P(SeenParagraph, KeepsRow)
{
    const DOM::Document document;
    EffectiveFormats formats(document);
    DOM::Paragraph paragraph;
    GetParam().fill(paragraph);
    EXPECT_EQ(getSeenText(paragraph, formats), GetParam().text);
    EXPECT_EQ(isInFinalView(paragraph), GetParam().isInFinalView);
}

INSTANTIATE_TEST_SUITE_P(Rows, SeenParagraph, testing::ValuesIn(SeenParagraphRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SeenText, HiddenByTheCell)
{
    const DOM::Document document;
    EffectiveFormats formats(document);
    DOM::Paragraph paragraph;
    addText(paragraph, "a");
    DOM::CellStyle cell;
    cell.setRunProps(makeHiddenProps(true));
    EXPECT_EQ(getSeenText(paragraph, formats), "a");
    EXPECT_EQ(getSeenText(paragraph, formats, {nullptr, &cell}), "");
}

TEST(IsHidden, WithItsMarkAndAllThatIsShown)
{
    const DOM::Document document;
    EffectiveFormats formats(document);
    DOM::RunStyle hidden;
    hidden.setRunProps(makeHiddenProps(true));
    const auto shared = DOM::SharedRunStyle(new DOM::RunStyle(hidden));
    DOM::Paragraph paragraph;
    paragraph.appendText("a", shared);
    EXPECT_FALSE(isHidden(paragraph, formats)); // its mark is there
    paragraph.setSharedParaMarkStyle(shared);
    EXPECT_TRUE(isHidden(paragraph, formats));
    paragraph.appendRun(std::make_unique<DOM::BookmarkRun>(DOM::BookmarkRun::Kind::Start, "b"));
    EXPECT_TRUE(isHidden(paragraph, formats));
    DOM::RunStyle deleted;
    deleted.setChange(std::make_shared<DOM::TrackedChange>(DOM::TrackedChange::Kind::Deleted, "", ""));
    paragraph.appendText("gone", DOM::SharedRunStyle(new DOM::RunStyle(deleted)));
    EXPECT_TRUE(isHidden(paragraph, formats));
    paragraph.appendText("shown");
    EXPECT_FALSE(isHidden(paragraph, formats));
}

using Blocks = std::vector<std::unique_ptr<DOM::Block>>;

void addParagraph(Blocks& blocks, const char* text)
{
    auto paragraph = std::make_unique<DOM::Paragraph>();
    paragraph->appendText(text);
    blocks.push_back(std::move(paragraph));
}

Blocks makeBlocks()
{
    Blocks blocks;
    addParagraph(blocks, "one");
    addParagraph(blocks, "");
    auto table = std::make_unique<DOM::Table>();
    table->getOrMakeCell(RowIndex(0), ColumnIndex(0)).setText(DOM::makePlainCellText("two"));
    table->getOrMakeCell(RowIndex(0), ColumnIndex(1)).setEmpty();
    table->getOrMakeCell(RowIndex(1), ColumnIndex(0)).setText(DOM::makePlainCellText("three"));
    blocks.push_back(std::move(table));
    auto contents = std::make_unique<DOM::TableOfContents>();
    auto entry = std::make_unique<DOM::Paragraph>();
    entry->appendText("\u00E9");
    contents->appendBlock(std::move(entry));
    blocks.push_back(std::move(contents));
    return blocks;
}

TEST(SeenText, BlocksAreJoined)
{
    const DOM::Document document;
    EffectiveFormats formats(document);
    EXPECT_EQ(getSeenText(makeBlocks(), formats, 100), "one\ntwo\nthree\n\u00E9");
    EXPECT_EQ(getSeenText(Blocks(), formats, 100), "");
}

TEST(SeenText, IsCutAtACharacter)
{
    const DOM::Document document;
    EffectiveFormats formats(document);
    const std::string whole = "one\ntwo\nthree\n\u00E9";
    EXPECT_EQ(getSeenText(makeBlocks(), formats, whole.size()), whole);
    EXPECT_EQ(getSeenText(makeBlocks(), formats, whole.size() - 1), "one\ntwo\nthree\n");
    EXPECT_EQ(getSeenText(makeBlocks(), formats, 5), "one\nt");
    EXPECT_EQ(getSeenText(makeBlocks(), formats, 0), "");
}

} // namespace
} // namespace QV::Filters
