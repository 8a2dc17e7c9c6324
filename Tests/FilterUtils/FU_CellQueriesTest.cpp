#include <FilterUtils/FU_CellQueries.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <DOM/Public/Cell.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/FieldBlock.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/Table.h>

namespace QV::FilterUtils {
namespace {

using Blocks = std::vector<std::unique_ptr<DOM::Block>>;
using Link = std::shared_ptr<const DOM::Hyperlink>;

DOM::SharedCellText makeText(std::unique_ptr<DOM::Block> first, std::unique_ptr<DOM::Block> second = nullptr)
{
    Blocks blocks;
    blocks.push_back(std::move(first));
    if (second)
        blocks.push_back(std::move(second));
    return DOM::SharedCellText(new DOM::CellText(std::move(blocks)));
}

DOM::SharedRunStyle makeLinkStyle(const Link& link)
{
    DOM::RunStyle style;
    style.setHyperlink(link);
    return DOM::SharedRunStyle(new DOM::RunStyle(style));
}

DOM::SharedRunStyle makeFontStyle(const std::string& name)
{
    auto props = std::make_shared<DOM::RunProps>();
    props->setFontName(name);
    DOM::RunStyle style;
    style.setRunProps(props);
    return DOM::SharedRunStyle(new DOM::RunStyle(style));
}

DOM::SharedCellStyle makeCellStyle(const UUID& parent)
{
    DOM::CellStyle style;
    style.setParentUUID(parent);
    return DOM::SharedCellStyle(new DOM::CellStyle(style));
}

// isCellEmpty.

struct EmptyRow
{
    const char* name;
    std::function<void(DOM::Table&, DOM::Cell&)> prepare;
    bool isEmpty;
};

void PrintTo(const EmptyRow& row, std::ostream* out)
{
    *out << row.name;
}

std::unique_ptr<DOM::Paragraph> makeParagraph(const std::function<void(DOM::Paragraph&)>& prepare)
{
    auto paragraph = std::make_unique<DOM::Paragraph>();
    prepare(*paragraph);
    return paragraph;
}

void putParagraph(DOM::Cell& cell, const std::function<void(DOM::Paragraph&)>& prepare)
{
    cell.setText(makeText(makeParagraph(prepare)));
}

void putParentStyle(DOM::Paragraph& paragraph)
{
    DOM::ParagraphStyle style;
    style.setParentUUID(UUID::generate());
    paragraph.setStyle(style);
}

void putEmptyMark(DOM::Paragraph& paragraph)
{
    paragraph.setSharedParaMarkStyle(DOM::SharedRunStyle(new DOM::RunStyle()));
}

const EmptyRow EmptyRows[] = {
    {"AsMade",              [](auto&,       auto&) {},                                                                               true },
    {"EmptyStyle",          [](auto&,       auto& cell) { cell.setSharedStyle(makeCellStyle({})); },                                 true },
    {"Style",               [](auto&,       auto& cell) { cell.setSharedStyle(makeCellStyle(UUID::generate())); },                   false},
    {"SpansRows",           [](auto& table, auto&) { table.setMergeProps(RowIndex(0), ColumnIndex(0), 1, 0); },                      false},
    {"SpansColumns",        [](auto& table, auto&) { table.setMergeProps(RowIndex(0), ColumnIndex(0), 0, 1); },
     false                                                                                                                                },
    {"Number",              [](auto&,       auto& cell) { cell.setNumber(0); },                                                      false},
    {"Boolean",             [](auto&,       auto& cell) { cell.setBoolean(false); },                                                 false},
    {"Error",               [](auto&,       auto& cell) { cell.setError(DOM::makePlainCellText("")); },                              false},
    {"NoBlocks",            [](auto&,       auto& cell) { cell.setText(DOM::SharedCellText(new DOM::CellText(Blocks()))); },
     true                                                                                                                                 },
    {"OneParagraph",        [](auto&,       auto& cell) { putParagraph(cell, [](auto&) {}); },                                       true },
    {"TwoParagraphs",
     [](auto&,                              auto& cell) {
            cell.setText(makeText(makeParagraph([](auto&) {}), makeParagraph([](auto&) {})));
        },                                                                                                             false},
    {"OtherBlock",
     [](auto&,                              auto& cell) { cell.setText(makeText(std::make_unique<DOM::FieldBlock>("REF"))); },       false},
    {"ParagraphStyle",      [](auto&,       auto& cell) { putParagraph(cell, putParentStyle); },                                     false},
    {"EmptyParagraphStyle",
     [](auto&,                              auto& cell) {
            putParagraph(cell, [](auto& paragraph) { paragraph.setStyle(DOM::ParagraphStyle()); });
        },                                                                                                             true },
    {"Run",                 [](auto&,       auto& cell) { putParagraph(cell, [](auto& paragraph) { paragraph.appendText("x"); }); },
     false                                                                                                                                },
    {"EmptyRun",
     [](auto&,                              auto& cell) {
            putParagraph(
                cell, [](auto& paragraph) { paragraph.appendRun(std::make_unique<DOM::TextRun>("")); });
        },                                                                                                             false},
    {"EmptyMark",           [](auto&,       auto& cell) { putParagraph(cell, putEmptyMark); },                                       true },
    {"Mark",
     [](auto&,                              auto& cell) {
            putParagraph(cell, [](auto& paragraph) { paragraph.setSharedParaMarkStyle(makeFontStyle("A")); });
        },                                                                                                             false},
    {"LinkWithoutValue",
     [](auto&,                              auto& cell) {
            cell.setBlocksBesideValue(makeText(makeParagraph([](auto& paragraph) {
                paragraph.setSharedParaMarkStyle(makeLinkStyle(std::make_shared<DOM::Hyperlink>("u")));
            })));
        },                                                                                                             false},
};

class IsCellEmpty : public testing::TestWithParam<EmptyRow>
{
};

TEST_P(IsCellEmpty, KeepsRow)
{
    DOM::Table table;
    table.getOrMakeCell(RowIndex(0), ColumnIndex(0));
    GetParam().prepare(table, table.getOrMakeCell(RowIndex(0), ColumnIndex(0)));
    EXPECT_EQ(isCellEmpty(*table.findCell(RowIndex(0), ColumnIndex(0))), GetParam().isEmpty);
}

INSTANTIATE_TEST_SUITE_P(Rows, IsCellEmpty, testing::ValuesIn(EmptyRows),
    [](const auto& row) { return std::string(row.param.name); });

// getCellHyperlink.

const Link First = std::make_shared<DOM::Hyperlink>("https://first.example/");
const Link Second = std::make_shared<DOM::Hyperlink>("", "Sheet2!A1");

std::unique_ptr<DOM::Run> makeLinkedRun(const Link& link)
{
    return std::make_unique<DOM::TextRun>("x", makeLinkStyle(link));
}

struct LinkRow
{
    const char* name;
    std::function<void(DOM::Paragraph&)> prepare;
    Link link;
};

void PrintTo(const LinkRow& row, std::ostream* out)
{
    *out << row.name;
}

const LinkRow LinkRows[] = {
    {"NoRuns",                [](auto&) {},                                                                        nullptr},
    {"Mark",                  [](auto& p) { p.setSharedParaMarkStyle(makeLinkStyle(First)); },                     First  },
    {"FirstRun",              [](auto& p) { p.appendRun(makeLinkedRun(First)); },                                  First  },
    {"MarkBeforeRun",
     [](auto& p) {
            p.setSharedParaMarkStyle(makeLinkStyle(First));
            p.appendRun(makeLinkedRun(Second));
        },                                                                                                         First  },
    {"RunWhereMarkHasNone",
     [](auto& p) {
            p.setSharedParaMarkStyle(makeFontStyle("A"));
            p.appendRun(makeLinkedRun(Second));
        },                                                                                                         Second },
    {"SecondRunDoesNotCount",
     [](auto& p) {
            p.appendText("x");
            p.appendRun(makeLinkedRun(First));
        },                                                                                                         nullptr},
    {"Drawing",
     [](auto& p) { p.appendRun(std::make_unique<DOM::DrawingRun>(nullptr, makeLinkStyle(First))); },
     nullptr                                                                                                              },
    {"MarkBeforeDrawing",
     [](auto& p) {
            p.setSharedParaMarkStyle(makeLinkStyle(Second));
            p.appendRun(std::make_unique<DOM::DrawingRun>(nullptr, makeLinkStyle(First)));
        },                                                                                                         Second },
    {"Field",
     [](auto& p) { p.appendRun(std::make_unique<DOM::FieldRun>("PAGE", "1", makeLinkStyle(First))); },
     First                                                                                                                },
    {"Break",                 [](auto& p) { p.appendRun(std::make_unique<DOM::BreakRun>(makeLinkStyle(First))); }, First  },
    {"DrawingThenText",
     [](auto& p) {
            p.appendRun(std::make_unique<DOM::DrawingRun>(nullptr));
            p.appendRun(makeLinkedRun(First));
        },                                                                                                         nullptr},
};

class GetCellHyperlink : public testing::TestWithParam<LinkRow>
{
};

TEST_P(GetCellHyperlink, KeepsRow)
{
    DOM::Cell cell;
    cell.setText(makeText(makeParagraph(GetParam().prepare)));
    EXPECT_EQ(getCellHyperlink(cell), GetParam().link);
}

INSTANTIATE_TEST_SUITE_P(Rows, GetCellHyperlink, testing::ValuesIn(LinkRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(GetCellHyperlink, LooksAtTheFirstBlockAlone)
{
    const auto linked = [](DOM::Paragraph& paragraph) {
        paragraph.setSharedParaMarkStyle(makeLinkStyle(First));
    };
    auto field = std::make_unique<DOM::FieldBlock>("REF");
    field->setHyperlink(Second);
    DOM::Cell cell;
    EXPECT_EQ(getCellHyperlink(cell), nullptr);
    cell.setText(DOM::SharedCellText(new DOM::CellText(Blocks())));
    EXPECT_EQ(getCellHyperlink(cell), nullptr);
    cell.setText(makeText(makeParagraph([](auto&) {}), makeParagraph(linked)));
    EXPECT_EQ(getCellHyperlink(cell), nullptr);
    cell.setText(makeText(std::move(field), makeParagraph(linked)));
    EXPECT_EQ(getCellHyperlink(cell), Second);
    cell.setText(makeText(std::make_unique<DOM::FieldBlock>("REF")));
    EXPECT_EQ(getCellHyperlink(cell), nullptr);
    cell.setText(makeText(std::make_unique<DOM::Table>(), makeParagraph(linked)));
    EXPECT_EQ(getCellHyperlink(cell), nullptr);
}

TEST(GetCellHyperlink, IsFoundBesideValuesOfAnyKind)
{
    const auto blocks = makeText(makeParagraph(
        [](DOM::Paragraph& paragraph) { paragraph.setSharedParaMarkStyle(makeLinkStyle(First)); }));
    DOM::Cell cell;
    cell.setBlocksBesideValue(blocks);
    EXPECT_EQ(getCellHyperlink(cell), First);
    cell.setNumber(1);
    EXPECT_EQ(getCellHyperlink(cell), First);
    cell.setBoolean(true);
    EXPECT_EQ(getCellHyperlink(cell), First);
    EXPECT_FALSE(cell.getTextBlocks());
    cell.setError(blocks);
    EXPECT_EQ(getCellHyperlink(cell), First);
    cell.setBlocksBesideValue(nullptr);
    cell.setNumber(1);
    EXPECT_EQ(getCellHyperlink(cell), nullptr);
}

} // namespace
} // namespace QV::FilterUtils
