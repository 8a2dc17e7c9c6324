// What the runs of a cell have in common.

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
#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/Styles.h>
#include <Tests/Support/Printers.h>

namespace QV::FilterUtils {
namespace {

using Blocks = std::vector<std::unique_ptr<DOM::Block>>;

DOM::SharedRunStyle makeFontStyle(const std::string& name, const UUID& parent = {})
{
    auto props = std::make_shared<DOM::RunProps>();
    props->setFontName(name);
    DOM::RunStyle style;
    style.setParentUUID(parent);
    style.setRunProps(props);
    return DOM::SharedRunStyle(new DOM::RunStyle(style));
}

void putParagraph(DOM::Cell& cell, const std::function<void(DOM::Paragraph&)>& prepare)
{
    auto paragraph = std::make_unique<DOM::Paragraph>();
    prepare(*paragraph);
    Blocks blocks;
    blocks.push_back(std::move(paragraph));
    cell.setText(DOM::SharedCellText(new DOM::CellText(std::move(blocks))));
}

// getCellPropsFromRuns. A letter is a run of that font; the others are runs of other kinds.
//     t: tab of font a    b: break of font a    D, K, F, N: drawing, bookmark, field, anchor    |: next
//     paragraph

std::unique_ptr<DOM::Run> makeRun(char kind)
{
    switch (kind) {
    case 't':
        return std::make_unique<DOM::TabRun>(makeFontStyle("a"));
    case 'b':
        return std::make_unique<DOM::BreakRun>(makeFontStyle("a"));
    case 'D':
        return std::make_unique<DOM::DrawingRun>(nullptr, makeFontStyle("a"));
    case 'K':
        return std::make_unique<DOM::BookmarkRun>(DOM::BookmarkRun::Kind::Start, "here");
    case 'F':
        return std::make_unique<DOM::FieldRun>("PAGE", "1", makeFontStyle("a"));
    case 'N':
        return std::make_unique<DOM::AnchorRun>(UUID(), makeFontStyle("a"));
    case '0':
        return std::make_unique<DOM::TextRun>("plain");
    default:
        return std::make_unique<DOM::TextRun>("x", makeFontStyle(std::string(1, kind)));
    }
}

struct RunsRow
{
    const char* name;
    const char* runs;
    const char* font; // of the common properties; null where there are none
};

void PrintTo(const RunsRow& row, std::ostream* out)
{
    *out << '"' << row.runs << '"';
}

const RunsRow RunsRows[] = {
    {"NoRuns",              "",    nullptr},
    {"OneRun",              "a",   "a"    },
    {"TwoAlike",            "aa",  "a"    },
    {"TwoUnlike",           "ac",  nullptr},
    {"AlikeAgainIsTooLate", "aca", nullptr},
    {"Tab",                 "at",  "a"    },
    {"Break",               "ba",  "a"    },
    {"TabOfAnotherFont",    "ct",  nullptr},
    {"BreakOfAnotherFont",  "cb",  nullptr},
    {"PlainFirst",          "0a",  nullptr},
    {"PlainLast",           "a0",  nullptr},
    {"PlainAlone",          "00",  nullptr},
    {"TwoParagraphs",       "a|a", "a"    },
    {"ParagraphsUnlike",    "a|c", nullptr},
    {"DrawingAlone",        "D",   nullptr},
    {"DrawingBefore",       "Da",  nullptr},
    {"DrawingBetween",      "aDa", nullptr},
    {"DrawingAfter",        "aD",  nullptr},
    {"BookmarkAlone",       "K",   nullptr},
    {"BookmarkBefore",      "Ka",  nullptr},
    {"BookmarkBetween",     "aKa", nullptr},
    {"BookmarkAfter",       "aK",  nullptr},
    {"FieldAlone",          "F",   nullptr},
    {"FieldBefore",         "Fa",  nullptr},
    {"FieldBetween",        "aFa", nullptr},
    {"FieldAfter",          "aF",  nullptr},
    {"AnchorAlone",         "N",   nullptr},
    {"AnchorBefore",        "Na",  nullptr},
    {"AnchorBetween",       "aNa", nullptr},
    {"AnchorAfter",         "aN",  nullptr},
    {"DrawingInNext",       "a|D", nullptr},
    {"DrawingInFirst",      "D|a", nullptr},
};

DOM::Cell makeCell(const std::string& runs)
{
    Blocks blocks;
    blocks.push_back(std::make_unique<DOM::Paragraph>());
    for (const char kind : runs) {
        if (kind == '|')
            blocks.push_back(std::make_unique<DOM::Paragraph>());
        else
            static_cast<DOM::Paragraph&>(*blocks.back()).appendRun(makeRun(kind));
    }
    DOM::Cell cell;
    cell.setText(DOM::SharedCellText(new DOM::CellText(std::move(blocks))));
    return cell;
}

class CommonRunProps : public testing::TestWithParam<RunsRow>
{
};

TEST_P(CommonRunProps, KeepsRow)
{
    const CellPropsFromRuns common = getCellPropsFromRuns(makeCell(GetParam().runs), DOM::Styles());
    ASSERT_EQ(common.runProps != nullptr, GetParam().font != nullptr);
    if (common.runProps) {
        EXPECT_EQ(common.runProps->getFontName(), std::string(GetParam().font));
    }
    EXPECT_FALSE(common.backgroundColor);
}

INSTANTIATE_TEST_SUITE_P(Rows, CommonRunProps, testing::ValuesIn(RunsRows),
    [](const auto& row) { return std::string(row.param.name); });

// A letter is a text run with that background, "0" one without, "D" a drawing.
struct ColorRow
{
    const char* name;
    const char* runs;
    char color; // 0 for none
};

void PrintTo(const ColorRow& row, std::ostream* out)
{
    *out << '"' << row.runs << '"';
}

const ColorRow ColorRows[] = {
    {"None",                   "0",   0  },
    {"One",                    "a",   'a'},
    {"Alike",                  "aa",  'a'},
    {"Unlike",                 "ac",  0  },
    {"UnlikeForGood",          "aca", 0  },
    {"LaterAlone",             "0a",  0  },
    {"FirstAlone",             "a0",  0  },
    {"DrawingLeavesColor",     "aD",  'a'},
    {"DrawingBetween",         "aDa", 'a'},
    {"DrawingFirstLeavesNone", "Da",  0  },
};

boost::optional<DOM::Color> makeColor(char letter)
{
    if (letter == 0)
        return boost::none;
    return DOM::Color(DOM::Color::RGBA(static_cast<unsigned char>(letter), 0, 0, 255));
}

std::unique_ptr<DOM::Run> makeColoredRun(char kind)
{
    if (kind == 'D')
        return std::make_unique<DOM::DrawingRun>(nullptr);
    auto props = std::make_shared<DOM::RunProps>();
    if (kind != '0')
        props->setBackgroundColor(makeColor(kind));
    DOM::RunStyle style;
    style.setRunProps(props);
    return std::make_unique<DOM::TextRun>("x", DOM::SharedRunStyle(new DOM::RunStyle(style)));
}

class CommonBackground : public testing::TestWithParam<ColorRow>
{
};

TEST_P(CommonBackground, KeepsRow)
{
    DOM::Cell cell;
    putParagraph(cell, [](DOM::Paragraph& paragraph) {
        for (const char kind : std::string(GetParam().runs))
            paragraph.appendRun(makeColoredRun(kind));
    });
    const auto color = getCellPropsFromRuns(cell, DOM::Styles()).backgroundColor;
    EXPECT_TRUE(color == makeColor(GetParam().color));
}

INSTANTIATE_TEST_SUITE_P(Rows, CommonBackground, testing::ValuesIn(ColorRows),
    [](const auto& row) { return std::string(row.param.name); });

std::shared_ptr<const DOM::RunProps> makeSize(float size)
{
    auto props = std::make_shared<DOM::RunProps>();
    props->setFontSize(size);
    return props;
}

UUID addTextStyle(DOM::Styles& styles, std::shared_ptr<const DOM::RunProps> props)
{
    DOM::NamedTextStyle style;
    style.setRunProps(std::move(props));
    return styles.getTextStyles().insert(std::move(style)).getUUID();
}

TEST(GetCellPropsFromRuns, LaysTheRunOverItsParagraphAndFollowsTrackedParents)
{
    DOM::Styles styles;
    DOM::ParagraphStyle paragraphStyle;
    paragraphStyle.setParentUUID(addTextStyle(styles, makeSize(8)));
    paragraphStyle.setTrackedParent(addTextStyle(styles, makeSize(9)));
    DOM::Cell cell;
    putParagraph(cell, [&](DOM::Paragraph& paragraph) {
        paragraph.setStyle(paragraphStyle);
        paragraph.appendText("x", makeFontStyle("a"));
        paragraph.appendText("y", makeFontStyle("a"));
    });
    const auto props = getCellPropsFromRuns(cell, styles).runProps;
    ASSERT_TRUE(props);
    EXPECT_EQ(props->getFontName(), std::string("a"));
    EXPECT_EQ(props->getFontSize(), boost::optional<float>(9.0F));

    const UUID big = addTextStyle(styles, makeSize(20));
    putParagraph(cell, [&](DOM::Paragraph& paragraph) {
        paragraph.setStyle(paragraphStyle);
        paragraph.appendText("x", makeFontStyle("a", big));
    });
    EXPECT_EQ(getCellPropsFromRuns(cell, styles).runProps->getFontSize(), boost::optional<float>(20.0F));
}

TEST(GetCellPropsFromRuns, CellsWithoutParagraphsHaveNothingInCommon)
{
    const DOM::Styles styles;
    DOM::Cell cell;
    EXPECT_EQ(getCellPropsFromRuns(cell, styles).runProps, nullptr);
    cell.setNumber(1);
    EXPECT_EQ(getCellPropsFromRuns(cell, styles).runProps, nullptr);
    auto paragraph = std::make_unique<DOM::Paragraph>();
    paragraph->appendText("x", makeFontStyle("a"));
    Blocks blocks;
    blocks.push_back(std::make_unique<DOM::FieldBlock>("REF"));
    blocks.push_back(std::move(paragraph));
    cell.setText(DOM::SharedCellText(new DOM::CellText(std::move(blocks))));
    EXPECT_NE(getCellPropsFromRuns(cell, styles).runProps, nullptr) << "blocks of other kinds are skipped";
}

} // namespace
} // namespace QV::FilterUtils
