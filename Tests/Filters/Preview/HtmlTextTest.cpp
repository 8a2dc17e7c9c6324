#include <Filters/Preview/HtmlText.h>

#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <FilterUtils/FU_Text.h>
#include <Filters/Package/SafeLink.h>

#include <Filters/Preview/StyleSheet.h>

namespace QV::Filters {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

struct TextRow
{
    const char* name;
    std::string text;
    std::string result;
};

void PrintTo(const TextRow& row, std::ostream* out)
{
    *out << row.name;
}

const TextRow EscapeRows[] = {
    {"Plain",          "Orders 2024",            "Orders 2024"                                     },
    {"Empty",          "",                       ""                                                },
    {"Markup",         "<b a=\"1\" c='2'>&amp;", "&lt;b a=&quot;1&quot; c=&#39;2&#39;&gt;&amp;amp;"},
    {"LineAndTab",     "a\tb\nc",                "a\tb\nc"                                         },
    {"CarriageReturn", "a\rb",                   "a\nb"                                            },
    {"BothLineEnds",   "a\r\nb",                 "a\nb"                                            },
    {"ReturnAtTheEnd", "a\r",                    "a"                                               },
    {"Nul",            std::string("a\0b",       3),
     "a\xEF\xBF\xBD"
        "b"},
    {"Escape",                "\x1b[31m",                                 "\xEF\xBF\xBD[31m"                                                         },
    {"Delete",                "\x7f",                                 "\xEF\xBF\xBD"    },
    {"TwoBytes",                "\xC2\x80\xDF\xBF",                               "\xC2\x80\xDF\xBF"                                           },
    {"ThreeBytes",                "\xE0\xA0\x80\xEF\xBF\xBF",                             "\xE0\xA0\x80\xEF\xBF\xBF"},
    {"FourBytes",                "\xF0\x90\x80\x80",                              "\xF0\x90\x80\x80"                                                    },
    {"HighestFour",                "\xF4\x8F\xBF\xBF",                            "\xF4\x8F\xBF\xBF"},
    {"Overlong",                "\xC0\x80",                               "\xEF\xBF\xBD\xEF\xBF\xBD"                                                               },
    {"OverlongThree",                "\xE0\x9F\xBF",                          "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
    {"Surrogate",                "\xED\xA0\x80",                              "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"                                                                   },
    {"LastBeforeThem",                "\xED\x9F\xBF",                         "\xED\x9F\xBF"},
    {"TooHigh",                "\xF4\x90\x80\x80",                                "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"                                                                      },
    {"BrokenOff",                "a\xE2\x82",                              "a\xEF\xBF\xBD\xEF\xBF\xBD"},
    {"BrokenByMarkup",                "\xE2\x82<",                         "\xEF\xBF\xBD\xEF\xBF\xBD&lt;"                                                                 },
};

class Escaping : public ::testing::TestWithParam<TextRow>
{
};

TEST_P(Escaping, FollowsRow)
{
    EXPECT_EQ(escapeHtml(GetParam().text), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(
    Html, Escaping, ::testing::ValuesIn(EscapeRows), [](const auto& row) { return row.param.name; });

struct LinkRow
{
    const char* url;
    bool isSafe;
};

const LinkRow LinkRows[] = {
    {"https://example.org/a?b=c#d", true },
    {"HTTP://EXAMPLE.ORG",          true },
    {"MailTo:a@example.org",        true },
    {"javascript:alert(1)",         false},
    {"java\tscript:alert(1)",       false},
    {" https://example.org",        false},
    {"https://example.org/a b",     false},
    {"\x01javascript:alert(1)",     false},
    {"data:text/html,x",            false},
    {"vbscript:x",                  false},
    {"file:///etc/passwd",          false},
    {"ftp://example.org",           false},
    {"http:/example.org",           false},
    {"//example.org",               false},
    {"other.xlsx",                  false},
    {"#Sheet2!A1",                  false},
    {"",                            false},
};

TEST(Links, OnlyThreeSchemesAreSafe)
{
    for (const LinkRow& row : LinkRows)
        EXPECT_EQ(isSafeLink(row.url), row.isSafe) << row.url;
}

TEST(Css, NamesCannotLeaveTheirString)
{
    EXPECT_EQ(quoteCss("Times New Roman"), "\"Times New Roman\"");
    EXPECT_EQ(quoteCss("a\"}\\"), "\"a\\22 }\\5c \"");
    EXPECT_EQ(quoteCss("</style>\n"), "\"\\3c /style\\3e \\a \"");
    EXPECT_EQ(quoteCss("'&"), "\"\\27 \\26 \"");
}

TEST(PageHead, LoadsNothingAndSaysWhatWroteIt)
{
    const std::string head = makePageHead("a <b>");
    EXPECT_THAT(head, StartsWith("<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\">\n"));
    EXPECT_THAT(head, HasSubstr("content=\"default-src 'none'; style-src 'unsafe-inline'; img-src data:\">"));
    EXPECT_THAT(head, HasSubstr("<meta name=\"generator\" content=\"" +
                                FilterUtils::getApplicationFullNameAndVersion("Filters") + "\">\n"));
    EXPECT_THAT(head, EndsWith("<title>a &lt;b&gt;</title>\n<style>"));
}

TEST(StyleSheet, KeepsEachRuleOnce)
{
    StyleSheet styles;
    EXPECT_EQ(styles.getClass(""), "");
    EXPECT_EQ(styles.getClass("color:#000"), "c0");
    EXPECT_EQ(styles.getClass("color:#fff"), "c1");
    EXPECT_EQ(styles.getClass("color:#000"), "c0");
    EXPECT_EQ(styles.getRules(), (std::vector<std::string>{".c0{color:#000}", ".c1{color:#fff}"}));
}

} // namespace
} // namespace QV::Filters
