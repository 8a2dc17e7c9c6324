#include <Formulas/Public/References.h>

#include <algorithm>
#include <memory>
#include <ostream>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <boost/regex.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf.h>

#include <DOM/Public/FormulaSyntaxTree.h>
#include <Formulas/Public/FormulaText.h>
#include <Formulas/Public/TableContext.h>
#include <Tests/Support/FormulaTrees.h>

namespace QV::Formulas {
namespace {

using namespace DOM::FormulaSyntaxTree;

using Tests::describeTree;

struct ReferenceRow
{
    const char* name;
    const char* text;
    const char* tree;
    const char* printed; // null: as the text
};

void PrintTo(const ReferenceRow& row, std::ostream* out)
{
    *out << row.text;
}

const ReferenceRow ReferenceRows[] = {
    {"Cell",                       "A1",                         "cell{||c0 r0}",                                nullptr             },
    {"LastCell",                   "XFD1048576",                 "cell{||c16383 r1048575}",                      nullptr             },
    {"AbsoluteCell",               "$B$2",                       "cell{||c=1 r=1}",                              nullptr             },
    {"AbsoluteColumn",             "$B2",                        "cell{||c=1 r1}",                               nullptr             },
    {"AbsoluteRow",                "B$2",                        "cell{||c1 r=1}",                               nullptr             },
    {"SmallLetters",               "aa10",                       "cell{||c26 r9}",                               "AA10"              },
    {"OnTable",                    "Sheet1!$B$1",                "cell{|Sheet1|c=1 r=0}",                        nullptr             },
    {"QuotedTable",                "'My sheet'!$A$1:$C$9",       "range{|My sheet||c=0-=2 r=0-=8}",              nullptr             },
    {"NeedlessQuotes",             "'Sheet1'!A1",                "cell{|Sheet1|c0 r0}",                          "Sheet1!A1"         },
    {"QuoteInName",                "'It''s'!A1",                 "cell{|It's|c0 r0}",                            nullptr             },
    {"OnlyQuotesInName",           "''''!A1",                    "cell{|'|c0 r0}",                               nullptr             },
    {"SignsInName",                "'a/b(c),d!e'!A1",            "cell{|a/b(c),d!e|c0 r0}",                      nullptr             },
    {"NameLikeCell",               "'A1'!B2",                    "cell{|A1|c1 r1}",                              nullptr             },
    {"PlainNameLikeCell",          "A1!B2",                      "cell{|A1|c1 r1}",                              "'A1'!B2"           },
    {"NameLikeRowColumn",          "'R1C1'!B2",                  "cell{|R1C1|c1 r1}",                            nullptr             },
    {"NameLikeRow",                "'rc'!B2",                    "cell{|rc|c1 r1}",                              nullptr             },
    {"NameLikeTruth",              "'True'!B2",                  "cell{|True|c1 r1}",                            nullptr             },
    {"NameOfDigits",               "2019!B2",                    "cell{|2019|c1 r1}",                            "'2019'!B2"         },
    {"NameLikeColumn",             "Sum!A1",                     "cell{|Sum|c0 r0}",                             nullptr             },
    {"LongNameWithDigits",         "Data1!A1",                   "cell{|Data1|c0 r0}",                           nullptr             },
    {"NameBeyondAscii",            "Tabelle\xC3\xA4!A1",         "cell{|Tabelle\xC3\xA4|c0 r0}",                 nullptr             },
    {"CyrillicName",               "\xD0\x9B\xD0\xB8!A1",        "cell{|\xD0\x9B\xD0\xB8|c0 r0}",                nullptr             },
    {"IdeographicName",            "\xE8\xA1\xA8!A1",            "cell{|\xE8\xA1\xA8|c0 r0}",                    nullptr             },
    {"SignBeyondAscii",            "a\xE2\x82\xAC!A1",           "cell{|a\xE2\x82\xAC|c0 r0}",                   "'a\xE2\x82\xAC'!A1"},
    {"BlankBeyondAscii",           "a\xC2\xA0z!A1",              "cell{|a\xC2\xA0z|c0 r0}",                      "'a\xC2\xA0z'!A1"   },
    {"NameOfNoUtf8",               "a\xFF!A1",                   "cell{|a\xFF|c0 r0}",                           "'a\xFF'!A1"        },
    {"NameOfCutUtf8",              "a\xE8\xA1!A1",               "cell{|a\xE8\xA1|c0 r0}",                       "'a\xE8\xA1'!A1"    },
    {"Range",                      "A1:C9",                      "range{|||c0-2 r0-8}",                          nullptr             },
    {"RangeOfOneCell",             "A1:A1",                      "range{|||c0-0 r0-0}",                          nullptr             },
    {"CornersInDisorder",          "$C9:A$1",                    "range{|||c0-=2 r=0-8}",                        "A$1:$C9"           },
    {"Columns",                    "$A:$C",                      "range{|||c=0-=2 rall}",                        nullptr             },
    {"ColumnsInDisorder",          "Sheet1!C:$A",                "range{|Sheet1||c=0-2 rall}",                   "Sheet1!$A:C"       },
    {"AllCells",                   "A1:XFD1048576",              "range{|||c0-16383 r0-1048575}",                nullptr             },
    {"AllColumns",                 "A:XFD",                      "range{|||c0-16383 rall}",                      nullptr             },
    {"Rows",                       "$1:$3",                      "range{|||call r=0-=2}",                        nullptr             },
    {"RowsOnTable",                "Sheet1!1:1048576",           "range{|Sheet1||call r0-1048575}",              nullptr             },
    {"Document",                   "[1]Sheet1!A1",               "cell{1|Sheet1|c0 r0}",                         nullptr             },
    {"OwnDocument",                "[0]Sheet1!A1",               "cell{|Sheet1|c0 r0}",                          "Sheet1!A1"         },
    {"DocumentInQuotes",           "'[1]My sheet'!A:A",          "range{1|My sheet||c0-0 rall}",                 nullptr             },
    {"DocumentByName",             "[b.xlsx]Sheet1!A1",          "cell{b.xlsx|Sheet1|c0 r0}",                    nullptr             },
    {"DocumentWithBlank",          "'[b c.xlsx]Sheet1'!A1",      "cell{b c.xlsx|Sheet1|c0 r0}",                  nullptr             },
    {"DocumentWithPath",           "'/a b/[b.xlsx]S'!A1",        "cell{/a b/b.xlsx|S|c0 r0}",                    nullptr             },
    {"DocumentWithDrive",          "'C:\\d\\[b.xlsx]It''s'!A:A", "range{C:\\d\\b.xlsx|It's||c0-0 rall}",         nullptr             },
    {"DocumentOfHost",             "'https://h/[b.xlsx]a:b'!A1", "range{https://h/b.xlsx|a|b|c0-0 r0-0}",        nullptr             },
    {"DocumentWithPathAlone",      "'a/[b.xlsx]'!Rate",          "label{a/b.xlsx||Rate}",                        nullptr             },
    {"DocumentWithPathInBrackets", "'[a/b.xlsx]S'!A1",           "cell{a/b.xlsx|S|c0 r0}",                       "'a/[b.xlsx]S'!A1"  },
    {"DocumentThatIsPath",         "'[a/]S'!A1",                 "cell{a/|S|c0 r0}",                             nullptr             },
    {"DocumentWithNumberAndPath",  "'a/[0]S'!A1",                "cell{a/0|S|c0 r0}",                            nullptr             },
    {"DocumentAndQuotes",          "[1]'My sheet'!A1",           "cell{1|My sheet|c0 r0}",                       "'[1]My sheet'!A1"  },
    {"DocumentAlone",              "[2]!Rate",                   "label{2||Rate}",                               nullptr             },
    {"QuotedDocument",             "'[b c]'!Rate",               "label{b c||Rate}",                             nullptr             },
    {"OwnDocumentAlone",           "[0]!Rate",                   "label{||Rate}",                                "Rate"              },
    {"RowOfTables",                "Sheet1:Sheet3!A1",           "range{|Sheet1|Sheet3|c0-0 r0-0}",              nullptr             },
    {"RowOfTablesRange",           "Sheet1:Sheet3!A1:B2",        "range{|Sheet1|Sheet3|c0-1 r0-1}",              nullptr             },
    {"RowOfQuotedTables",          "'S 1:S 3'!$A$1",             "range{|S 1|S 3|c=0-=0 r=0-=0}",                nullptr             },
    {"EachTableQuoted",            "'S 1':'S 3'!$A$1",           "range{|S 1|S 3|c=0-=0 r=0-=0}",                "'S 1:S 3'!$A$1"    },
    {"RowInDocument",              "[1]a:b!A1",                  "range{1|a|b|c0-0 r0-0}",                       "'[1]a:b'!A1"       },
    {"TablesLikeColumns",          "A:C!B1",                     "range{|A|C|c1-1 r0-0}",                        "'A:C'!B1"          },
    {"TablesLikeCells",            "'A1:C3'!B1",                 "range{|A1|C3|c1-1 r0-0}",                      nullptr             },
    {"TablesBeyondCells",          "XFE1:C3!B1",                 "range{|XFE1|C3|c1-1 r0-0}",                    "'XFE1:C3'!B1"      },
    {"QuotedTableLikeCell",        "'A1':b!B1",                  "range{|A1|b|c1-1 r0-0}",                       "'A1:b'!B1"         },
    {"DocumentOfCellLike",         "[1]A1:b!B1",                 "range{1|A1|b|c1-1 r0-0}",                      "'[1]A1:b'!B1"      },
    {"Name",                       "Rate",                       "label{||Rate}",                                nullptr             },
    {"NameWithSigns",              "_a.b\\c?1",                  "label{||_a.b\\c?1}",                           nullptr             },
    {"NameOnTable",                "'My sheet'!Rate",            "label{|My sheet|Rate}",                        nullptr             },
    {"NameBeyondColumns",          "XFE1",                       "label{||XFE1}",                                nullptr             },
    {"NameBeyondRows",             "A1048577",                   "label{||A1048577}",                            nullptr             },
    {"NameOfColumn",               "A",                          "label{||A}",                                   nullptr             },
    {"NameWithZero",               "A0",                         "label{||A0}",                                  nullptr             },
    {"NameBeginsLikeCell",         "A1.2",                       "label{||A1.2}",                                nullptr             },
    {"LostReference",              "#REF!",                      "error{#REF!}",                                 nullptr             },
    {"LostCells",                  "Sheet1!#REF!",               "error{#REF!}",                                 "#REF!"             },
    {"LostTable",                  "#REF!$A$1:$B$2",             "error{#REF!}",                                 "#REF!"             },
    {"LostBoth",                   "#REF!#REF!",                 "error{#REF!}",                                 "#REF!"             },
    {"LostOfSmallLetters",         "#ref!",                      "error{#REF!}",                                 "#REF!"             },
    {"LostCellsOfSmallLetters",    "Sheet1!#Ref!",               "error{#REF!}",                                 "#REF!"             },
    {"LostBothOfSmallLetters",     "#REF!#ref!",                 "error{#REF!}",                                 "#REF!"             },
    {"List",                       "(Sheet1!A1,Sheet1!B2)",      "list{cell{|Sheet1|c0 r0}cell{|Sheet1|c1 r1}}", nullptr             },
    {"OpenList",                   "A1,Rate",                    "list{cell{||c0 r0}label{||Rate}}",             "(A1,Rate)"         },
    {"ListWithBlanks",             " ( A1 , #REF! ) ",           "list{cell{||c0 r0}error{#REF!}}",              "(A1,#REF!)"        },
    {"ListOfOne",                  "(A1)",                       "cell{||c0 r0}",                                "A1"                },
    {"BlanksAround",               " A1 ",                       "cell{||c0 r0}",                                "A1"                },
};

class ParseReference : public testing::TestWithParam<ReferenceRow>
{
};

TEST_P(ParseReference, KeepsRow)
{
    const ReferenceRow& row = GetParam();
    const auto formula = parseReference(row.text);
    ASSERT_TRUE(formula);
    EXPECT_EQ(describeTree(*formula), row.tree);
    EXPECT_EQ(toText(*formula, TableContext()), row.printed ? row.printed : row.text);
}

INSTANTIATE_TEST_SUITE_P(Rows, ParseReference, testing::ValuesIn(ReferenceRows),
    [](const auto& row) { return std::string(row.param.name); });

const std::string RefusedTexts[] = {"", " ", "=A1", "A1 B1", "A1+B1", "SUM(A1)", "A1:", ":A1", "A1:B", "A:1",
    "A:B1", "1", "$1", "$A", "1:A", "A1:Rate", "Rate:A1", "$XFE$1", "$A$1048577", "XFE:XFE", "1:1048577",
    "$A$0", "A01:B2", "AAAA:AAAA", "$$A1", "A$$1", "1A", "TRUE", "false", "Sheet1!TRUE", "Sheet1!", "!A1",
    "Sheet1!!A1", "Sheet1!Sheet2!A1", "Sheet1!A1:Sheet1!B2", "A1:Sheet2!B2", "a1:'b'!B2", "My sheet!A1",
    "a-b!A1", "'a'b!A1", "'a!A1", "''!A1", "'a[b'!A1", "'a]b'!A1", "'a:'!A1", "':a'!A1", "'a:b:c'!A1",
    "'a':'b:c'!A1", "[1]'a:b'!A1", "[]a!A1", "[1a!A1", "[1]A1", "'[]a'!A1", "'x[1]a'!A1", "'x][1]a'!A1",
    "'x/[]a'!A1", "'x/[1'!A1", "'x/[1[2]a'!A1", "'x/[1]a]'!A1", "'x/[y/[1]a'!A1", "x/[1]a!A1", "'x/'[1]a!A1",
    "'[1][2]a'!A1", "[b c]a!A1", "a:b!Rate", "a:b:c!A1", "a:!A1", "#REF", "#N/A", "#REF!Rate",
    "#REF!#REF!#REF!", "#REF!A", "(A1", "A1)", "()", "(A1,)", "(,A1)", "((A1,B1),C1)", "(A1)(B1)", "A1,,B1",
    "{1,2}", "\"A1\"", "A1%", "Table1[Sum]", "A1\t", std::string("A1\0", 3), "Rate!"};

TEST(ParseReferenceErrors, GiveNothing)
{
    for (const std::string& text : RefusedTexts)
        EXPECT_FALSE(parseReference(text)) << text;
}

TEST(ParseReferenceErrors, LongTextsEndSoon)
{
    const std::size_t size = 1U << 18U;
    EXPECT_FALSE(parseReference(std::string(size, '(')));
    EXPECT_FALSE(parseReference(std::string(size, '\'')));
    EXPECT_FALSE(parseReference(std::string(size, '[')));
    EXPECT_FALSE(parseReference(std::string(size, '1')));
    EXPECT_FALSE(parseReference("$A$" + std::string(size, '9')));
    EXPECT_TRUE(parseReference(std::string(size, 'A')));
    std::string list = "A1";
    for (std::size_t i = 0; i < size / 8; ++i)
        list += ",A1";
    EXPECT_TRUE(parseReference(list));
}

// The slow and obvious way: one pattern of all that is a reference.
boost::regex makePattern()
{
    const std::string column =
        "\\$?([A-Za-z]{1,2}|[A-Wa-w][A-Za-z]{2}|[Xx][A-Ea-e][A-Za-z]|[Xx][Ff][A-Da-d])";
    const std::string row = "\\$?([1-9]\\d{0,5}|10[0-3]\\d{4}|104[0-7]\\d{3}|1048[0-4]\\d{2}|10485[0-6]\\d|"
                            "104857[0-6])";
    const std::string cells = "(" + column + row + "(:" + column + row + ")?|" + column + ":" + column + "|" +
                              row + ":" + row + ")";
    const std::string truth = "(?i:TRUE|FALSE)";
    const std::string letter = "A-Za-z\\x80-\\xFF";
    const std::string name =
        "(?!" + truth + "(?![" + letter + "0-9_.?\\\\]))[" + letter + "_\\\\][" + letter + "0-9_.?\\\\]*";
    const std::string plain = "[" + letter + "0-9_.]+";
    const std::string quoted = "([^'\\[\\]:]|'')+";
    const std::string table = "(" + plain + "|'" + quoted + "')";
    const std::string document = "\\[" + plain + "\\]";
    const std::string longDocument = "(([^'\\[\\]]|'')*[/\\\\])?\\[([^'\\[\\]]|'')+\\]";
    const std::string onePlace = "((" + document + ")?" + table + "|" + document + "|'" + longDocument + "(" +
                                 quoted + ")?'|'" + quoted + "')!";
    const std::string noCell = "(?!" + column.substr(3) + row.substr(3) + ":)"; // neither has "$"
    const std::string rowOfTables = "((" + document + "|" + noCell + ")" + table + ":" + table + "|'(" +
                                    longDocument + ")?" + quoted + ":" + quoted + "')!";
    const std::string lost = "(?i:#REF!)";
    const std::string reference = "((" + onePlace + ")?(" + cells + "|" + name + ")|" + rowOfTables + cells +
                                  "|(" + onePlace + "|" + rowOfTables + ")?" + lost + "|" + lost + "(" +
                                  cells + "|" + lost + "))";
    const std::string list = " *" + reference + " *(, *" + reference + " *)*";
    return boost::regex(" *(\\(" + list + "\\)|" + list + ") *", boost::regex::perl);
}

const char* const Pieces[] = {"A", "b", "XFD", "XFE", "ZZZ", "AAAA", "1", "9", "0", "1048576", "1048577", "$",
    "$", ":", ":", "!", "!", ",", "(", ")", " ", "'", "''", "[1]", "[", "]", "Sheet1", "My sheet",
    "'My sheet'", "'It''s'", "Rate", "TRUE", "R1C1", "_x.y", "\\", "?", "\xC3\xA4", "#REF!", "#ref!", "A1",
    "$B$2", "A1:B2", "Sheet1!", "'a:b'!", "-", "'a/[b]c'!", "/", "'/[b'"};

std::string makeText(std::mt19937& random)
{
    constexpr unsigned MaxPieces = 7;
    std::string text;
    for (auto i = random() % MaxPieces + 1; i > 0; --i)
        text += Pieces[random() % std::size(Pieces)];
    return text;
}

TEST(ParseReferenceSweep, AgreesWithThePatternAndReadsWhatItPrints)
{
    constexpr int TextsCount = 60000;
    const boost::regex pattern = makePattern();
    std::mt19937 random(20); // always the same texts
    const TableContext context;
    int accepted = 0;
    for (int i = 0; i < TextsCount; ++i) {
        const std::string text = makeText(random);
        const auto formula = parseReference(text);
        ASSERT_EQ(formula.has_value(), boost::regex_match(text, pattern)) << text;
        if (!formula)
            continue;
        ++accepted;
        const std::string printed = toText(*formula, context);
        const auto again = parseReference(printed);
        ASSERT_TRUE(again) << text << " printed as " << printed;
        ASSERT_TRUE(*again == *formula) << text << " printed as " << printed;
        ASSERT_EQ(toText(*again, context), printed) << text;
    }
    EXPECT_GT(accepted, TextsCount / 20);
}

// As the ICU library has it, for the characters that were known when the names were decided on.
TEST(ToText, LeavesLettersAndDigitsOfAllScriptsWithoutQuotes)
{
    constexpr UChar32 End = 0x33480; // beyond are no letters
    const UVersionInfo known = {15, 0, 0, 0};
    for (UChar32 c = 0x80; c < End; ++c) {
        UVersionInfo age = {};
        u_charAge(c, age);
        if (U_IS_SURROGATE(c) || std::lexicographical_compare(known, known + 4, age, age + 4))
            continue;
        std::string name = "a";
        icu::UnicodeString(c).toUTF8String(name);
        const DOM::Formula formula(std::make_unique<CellAddress>(
            EmptyDocumentAddress, name, ColumnAxisIndex(ColumnIndex(0)), RowAxisIndex(RowIndex(0))));
        const bool isPlain = u_isalpha(c) || u_isdigit(c);
        ASSERT_EQ(toText(formula, TableContext()), isPlain ? name + "!A1" : '\'' + name + "'!A1") << c;
    }
}

TEST(ToText, NamesTablesByTheirCurrentNames)
{
    const UUID first(1, 1);
    const UUID second(2, 2);
    TableContext context;
    context.addTable(first, "New name");
    context.addTable(second, "B");
    const RowAxis rows(RowIndex(0), RowIndex(1));
    const ColumnAxis columns(ColumnIndex(0), ColumnIndex(0));
    const auto print = [&](TableAddress a, TableAddress b) {
        return toText(DOM::Formula(std::make_unique<CellRange>(
                          EmptyDocumentAddress, std::move(a), std::move(b), columns, rows)),
            context);
    };
    EXPECT_EQ(print(first, std::string()), "'New name'!A1:A2");
    EXPECT_EQ(print(second, first), "'B:New name'!A1:A2");
    EXPECT_EQ(print(second, std::string("C")), "'B:C'!A1:A2") << "names like columns have quotes";
    EXPECT_EQ(print(UUID(3, 3), std::string()), "#REF!A1:A2");
    EXPECT_EQ(print(first, UUID(3, 3)), "#REF!A1:A2");
}

} // namespace
} // namespace QV::Formulas
