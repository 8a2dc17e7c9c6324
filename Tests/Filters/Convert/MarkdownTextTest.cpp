#include <Filters/Convert/MarkdownText.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace QV::Filters {
namespace {

struct EscapeRow
{
    std::string text;
    std::string expected;
};

TEST(MarkdownTextTest, EscapesWhatMeansSomethingAnywhere)
{
    const std::vector<EscapeRow> rows = {
        {"plain text, (1) - + # = !",    "plain text, (1) - + # = !"                            },
        {"\\ ` * _ [ ] < > | ~ &",       "\\\\ \\` \\* \\_ \\[ \\] \\< \\> \\| \\~ \\&"         },
        {"a\nb\tc\rd",                   "a b c d"                                              },
        {std::string("a\x01") + "b\x7F", "a\xEF\xBF\xBD"
                                         "b\xEF\xBF\xBD"},
        {"\xC3\xA4\xE2\x82\xAC",         "\xC3\xA4\xE2\x82\xAC"                                 },
        {"",                             ""                                                     },
    };
    for (const EscapeRow& row : rows)
        EXPECT_EQ(escapeMarkdown(row.text), row.expected);
}

TEST(MarkdownTextTest, EscapesWhatMeansSomethingAtTheBeginOfALine)
{
    const std::vector<EscapeRow> rows = {
        {"# no heading",  "\\# no heading"},
        {"- no item",     "\\- no item"   },
        {"+ no item",     "\\+ no item"   },
        {"=== no title",  "\\=== no title"},
        {"1. no item",    "1\\. no item"  },
        {"12) no item",   "12\\) no item" },
        {"123456789. x",  "123456789\\. x"},
        {"1234567890. x", "1234567890. x" }, // too long for an item's number
        {"1x. text",      "1x. text"      },
        {". text",        ". text"        },
        {"1",             "1"             },
        {"    no code",   "no code"       },
        {"a # b",         "a # b"         },
        {"   ",           ""              },
        {"",              ""              },
    };
    for (const EscapeRow& row : rows)
        EXPECT_EQ(escapeMarkdownLine(row.text), row.expected);
}

TEST(MarkdownTextTest, QuotesTargets)
{
    const std::vector<EscapeRow> rows = {
        {"https://example.org/a(b)?c=d&e#f", "<https://example.org/a(b)?c=d&e#f>"},
        {"media/a b<c>\\d\n.png",            "<media/a%20b%3Cc%3E%5Cd%0A.png>"   },
        {"https://example.org/a|b`c",        "<https://example.org/a%7Cb%60c>"   },
        {"",                                 "<>"                                },
    };
    for (const EscapeRow& row : rows)
        EXPECT_EQ(quoteMarkdownTarget(row.text), row.expected);
}

} // namespace
} // namespace QV::Filters
