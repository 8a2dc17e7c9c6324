#include <Filters/Text/ContentsField.h>

#include <cstddef>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <boost/none.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/PredefinedStyleName.h>
#include <DOM/Public/PredefinedTextStyles.h>
#include <DOM/Public/TableOfContents.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
#include <Filters/Text/TextContext.h>
#include <Filters/Text/TextFormats.h>
#include <Tests/Support/TextPackageBuilder.h>
#include <Utils/Public/OperationReport.h>
#include <Utils/Public/UUID.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

TEST(FieldInstruction, SplitsWords)
{
    EXPECT_THAT(splitFieldInstruction(R"( TOC  \o "1-3"	\h )"), ElementsAre("TOC", "\\o", "1-3", "\\h"));
    EXPECT_THAT(splitFieldInstruction(R"(A "b c""d\"e" \\f "C:\\g\h")"),
        ElementsAre("A", "b c", "d\"e", "\\f", "C:\\g\\h"));
    EXPECT_THAT(splitFieldInstruction(R"(A\o"x y"z)"), ElementsAre("A\\o", "x y", "z"));
    EXPECT_THAT(splitFieldInstruction("\"\" \"open"), ElementsAre("", "open"));
    EXPECT_THAT(splitFieldInstruction("a\\"), ElementsAre("a\\"));
    EXPECT_THAT(splitFieldInstruction(" \r\n"), IsEmpty());
}

TEST(FieldInstruction, HasName)
{
    EXPECT_EQ(getFieldName(" toc \\h"), "TOC");
    EXPECT_EQ(getFieldName("\xC3\xA9x"), "\xC3\xA9X");
    EXPECT_EQ(getFieldName("  "), "");
    EXPECT_EQ(joinFieldWords("MACROBUTTON Run  click \"me now\"", 2), "click me now");
    EXPECT_EQ(joinFieldWords("MACROBUTTON Run", 2), "");
}

struct FieldLinkRow
{
    const char* name;
    const char* instruction;
    const char* target; // URL and anchor with a blank between; null for none
};

void PrintTo(const FieldLinkRow& row, std::ostream* out)
{
    *out << row.instruction;
}

const FieldLinkRow FieldLinkRows[] = {
    {"Url",               R"( HYPERLINK "https://a.example/" )",      "https://a.example/ "},
    {"Unquoted",          "hyperlink https://a.example/",             "https://a.example/ "},
    {"Anchor",            R"(HYPERLINK \l "place" \h)",               " place"             },
    {"CapitalSwitch",     R"(HYPERLINK \L "place")",                  " place"             },
    {"Both",              R"(HYPERLINK "a.docx" \l "place")",         "a.docx place"       },
    {"Tip",               R"(HYPERLINK "a" \o "tip" \t "_blank" \n)", "a "                 },
    {"UrlBehindSwitches", R"(HYPERLINK \n \o "tip" "a")",             "a "                 },
    {"AnchorAsUrl",       R"(HYPERLINK "#place")",                    " place"             },
    {"Escaped",           R"(HYPERLINK "\\\\server\\b.docx")",        "\\\\server\\b.docx "},
    {"Format",            R"(HYPERLINK \l "x" \* MERGEFORMAT)",       " x"                 },
    {"NoTarget",          "HYPERLINK",                                nullptr              },
    {"OnlyTip",           R"(HYPERLINK \o "tip")",                    nullptr              },
    {"OtherField",        R"(HYPERLINKS "a")",                        nullptr              },
};

class ReadFieldLink : public testing::TestWithParam<FieldLinkRow>
{
};

TEST_P(ReadFieldLink, KeepsRow)
{
    const auto link = readFieldLink(GetParam().instruction);
    ASSERT_EQ(link.has_value(), GetParam().target != nullptr);
    if (link) {
        EXPECT_EQ(link->url + " " + link->anchor, GetParam().target);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadFieldLink, testing::ValuesIn(FieldLinkRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ReadFieldSymbol, GivesCharacter)
{
    EXPECT_EQ(readFieldSymbol(R"(SYMBOL 65 \f "Arial" \s 12)"), "A");
    EXPECT_EQ(readFieldSymbol("symbol 0x41"), "A");
    EXPECT_EQ(readFieldSymbol(R"(SYMBOL 97 \f "Symbol")"), "\xCE\xB1");
    EXPECT_EQ(readFieldSymbol("SYMBOL 1114112"), "");
    EXPECT_EQ(readFieldSymbol("SYMBOL x"), "");
    EXPECT_EQ(readFieldSymbol("SYMBOL"), "");
    EXPECT_EQ(readFieldSymbol("PAGE 65"), "");
}

class FillContentsInfo : public testing::Test
{
protected:
    FillContentsInfo()
        : package(Package::openBytes(Tests::TextPackageBuilder().make()))
        , context(package, run)
    {
        const auto style = context.styles.factory.makeNamedTextStyle(boost::none);
        style->setName(std::string("My Style"));
        own = style->getUUID();
    }

    void fill(const std::string& instruction)
    {
        TextFormats formats(context);
        info = DOM::TableOfContentsInfo();
        fillContentsInfo(instruction, context, formats, info);
    }

    /// Levels by styles, in order.
    std::vector<std::pair<UUID, unsigned long>> listStyles() const
    {
        std::vector<std::pair<UUID, unsigned long>> styles;
        for (const auto& level : info.getHeadingStylesLevels())
            styles.emplace_back(level.getStyleUUID(), level.getLevel());
        return styles;
    }

    /// Each level that is shown: "1", with "h" for links and "n" where it has no page number.
    std::string listLevels() const
    {
        std::string text;
        for (const auto& level : info.getLevelsStyleInfo()) {
            text += std::to_string(level.first);
            text += level.second.isLink() ? "h" : "";
            text += level.second.hasPageNumber() ? "" : "n";
        }
        return text;
    }

    static UUID heading(DOM::PredefinedStyleName name) { return DOM::makePredefinedTextStyleUUID(name); }

    FilterRun run;
    Package package;
    TextContext context;
    DOM::TableOfContentsInfo info;
    UUID own;
};

TEST_F(FillContentsInfo, ListsHeadings)
{
    fill(R"(TOC \o "2-3" \h)");
    EXPECT_THAT(listStyles(), ElementsAre(Pair(heading(DOM::PredefinedStyleName::Heading2), 2U),
                                  Pair(heading(DOM::PredefinedStyleName::Heading3), 3U)));
    EXPECT_EQ(listLevels(), "2h3h");
    EXPECT_FALSE(info.usesOutlineLevels());
    EXPECT_EQ(context.styles.newStyles.size(), 2U);
    fill("TOC \\o \"2\"");
    EXPECT_EQ(listLevels(), "2");
    EXPECT_EQ(context.styles.newStyles.size(), 2U) << "styles are made once";
}

TEST_F(FillContentsInfo, TakesLevelsInRange)
{
    const std::pair<const char*, const char*> rows[] = {
        {R"(TOC)",                "123456789"         },
        {R"(TOC \h \z)",          "1h2h3h4h5h6h7h8h9h"},
        {R"(TOC \o)",             "123456789"         },
        {R"(TOC \o "x")",         "123456789"         },
        {R"(TOC \o "3-1")",       "123456789"         },
        {R"(TOC \o "0-2")",       "12"                },
        {R"(TOC \o "8-10")",      "89"                },
        {R"(TOC \o 1-2 \n 2-2)",  "12n"               },
        {R"(TOC \o "1-2" \n)",    "1n2n"              },
        {R"(TOC \O "1-1")",       "1"                 },
        {R"(TOC \c "Figure" \h)", "1h"                },
        {R"(TOC \f x \o "1-2")",  "12"                },
    };
    for (const auto& row : rows) {
        fill(row.first);
        EXPECT_EQ(listLevels(), row.second) << row.first;
    }
}

TEST_F(FillContentsInfo, CaptionsAreNoHeadings)
{
    fill(R"(TOC \c "Figure")");
    EXPECT_THAT(listStyles(), IsEmpty());
}

TEST_F(FillContentsInfo, UsesOutlineLevels)
{
    fill("TOC \\u");
    EXPECT_TRUE(info.usesOutlineLevels());
    EXPECT_EQ(listLevels(), "123456789");
    EXPECT_THAT(listStyles(), IsEmpty());
    fill(R"(TOC \o "1-2" \u)");
    EXPECT_TRUE(info.usesOutlineLevels());
    EXPECT_EQ(listLevels(), "12");
}

TEST_F(FillContentsInfo, ListsStyles)
{
    for (const char* const instruction :
        {R"(TOC \t "my style,4,Nowhere,2,My Style,5")", R"(TOC \t "My Style; 4;Nowhere;2")"}) {
        fill(instruction);
        EXPECT_THAT(listStyles(), ElementsAre(Pair(own, 4U))) << instruction;
    }
    ASSERT_EQ(run.getReport().getMessages().size(), 2U);
    EXPECT_EQ(run.getReport().getMessages().front().toString(),
        "Table of contents lists style Nowhere, which is not there");
    fill(R"(TOC \t "My Style,0,My Style,10,My Style")");
    EXPECT_THAT(listStyles(), IsEmpty());
}

TEST_F(FillContentsInfo, FindsPredefinedStylesByName)
{
    fill(R"(TOC \o "1-1" \t "HEADING 1,3")");
    EXPECT_THAT(listStyles(), ElementsAre(Pair(heading(DOM::PredefinedStyleName::Heading1), 1U)))
        << "a style is listed once";
    EXPECT_EQ(listLevels(), "13");
}

} // namespace
} // namespace QV::Filters
