#include <Utils/Public/CaseInsensitiveLess.h>

#include <map>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

namespace QV {
namespace {

struct OrderRow
{
    const char* name;
    std::string a;
    std::string b;
    int order; // below, equal to or above zero, as a is below, equal to or above b
};

void PrintTo(const OrderRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.a) << " against " << testing::PrintToString(row.b);
}

const OrderRow OrderRows[] = {
    {"Same",                 "title",     "title",     0 },
    {"CaseDiffers",          "Title",     "tITLE",     0 },
    {"Empty",                "",          "",          0 },
    {"EmptyFirst",           "",          "a",         -1},
    {"PrefixFirst",          "head",      "HEADING",   -1},
    {"Letters",              "a",         "B",         -1},
    {"LettersReversed",      "C",         "b",         1 },
    {"UnderscoreBelowA",     "_",         "A",         -1},
    {"AtAboveNine",          "9",         "@",         -1},
    {"BracketIsNoLetter",    "[",         "{",         -1},
    {"AtIsNoLetter",         "@",         "`",         -1},
    {"HighBytesAreLast",     "\xc3\x84",  "z",         1 },
    {"UmlautsKeepTheirCase", "\xc3\x84",  "\xc3\xa4",  -1},
    {"NulIsAByte",           {"a\0b", 3}, {"A\0B", 3}, 0 },
    {"NulEndsNothing",       {"a\0b", 3}, {"a\0c", 3}, -1},
};

class CaseInsensitiveOrder : public testing::TestWithParam<OrderRow>
{
};

TEST_P(CaseInsensitiveOrder, KeepsRow)
{
    const OrderRow& row = GetParam();
    const CaseInsensitiveLess isLess{};
    EXPECT_EQ(isLess(row.a, row.b), row.order < 0);
    EXPECT_EQ(isLess(row.b, row.a), row.order > 0);
}

INSTANTIATE_TEST_SUITE_P(Rows, CaseInsensitiveOrder, testing::ValuesIn(OrderRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(CaseInsensitiveLess, FoldsExactlyTheAsciiLetters)
{
    const CaseInsensitiveLess isLess{};
    for (int a = 0; a < 256; ++a)
        for (int b = 0; b < 256; ++b) {
            const std::string x(1, static_cast<char>(a));
            const std::string y(1, static_cast<char>(b));
            const int foldedA = 'A' <= a && a <= 'Z' ? a + 32 : a;
            const int foldedB = 'A' <= b && b <= 'Z' ? b + 32 : b;
            EXPECT_EQ(isLess(x, y), foldedA < foldedB) << a << ' ' << b;
        }
}

TEST(CaseInsensitiveLess, SearchesMapsByAView)
{
    const std::map<std::string, int, CaseInsensitiveLess> names = {
        {"Title",  1},
        {"normal", 2}
    };
    const auto found = names.find(boost::string_ref("TITLEpage", 5));
    ASSERT_NE(found, names.end());
    EXPECT_EQ(found->second, 1);
    EXPECT_EQ(names.find(boost::string_ref("Titl")), names.end());
}

} // namespace
} // namespace QV
