#include <Formulas/Public/FormulaText.h>

#include <cmath>
#include <cstddef>
#include <memory>
#include <ostream>
#include <string>
#include <utility>

#include <boost/variant/get.hpp>

#include <gtest/gtest.h>

#include <DOM/Public/FormulaSyntaxTree.h>
#include <Formulas/Public/TableContext.h>
#include <Tests/Support/FormulaTrees.h>

namespace QV::Formulas {
namespace {

using namespace DOM::FormulaSyntaxTree;
using Tests::describeTree;

struct FormulaRow
{
    const char* name;
    const char* text;
    const char* tree;
    const char* printed; // null: as the text
};

void PrintTo(const FormulaRow& row, std::ostream* out)
{
    *out << row.text;
}

#define A_1 "cell{||c0 r0}"
#define B_2 "cell{||c1 r1}"
#define ONE "number{1.000000}"
#define TWO "number{2.000000}"
#define THREE "number{3.000000}"

const FormulaRow FormulaRows[] = {
    {"Number",                    "1",                         ONE,                                                        nullptr                   },
    {"NumberWithoutWhole",        ".5",                        "number{0.500000}",                                         "0.5"                     },
    {"NumberWithExponent",        "2E3",                       "number{2000.000000}",                                      "2000"                    },
    {"NumberWithSignedExponent",  "5e-1",                      "number{0.500000}",                                         "0.5"                     },
    {"NumberLastFixed",           "123456789012345680000",     "number{123456789012345683968.000000}",                     nullptr                   },
    {"NumberFirstScientific",     "1E+21",                     "number{1000000000000000000000.000000}",                    nullptr                   },
    {"NumberSmallFixed",          "0.00001",                   "number{0.000010}",                                         nullptr                   },
    {"NumberSmallScientific",     "1.5E-06",                   "number{0.000002}",                                         nullptr                   },
    {"NumberOfManyDigits",        "0.30000000000000004",       "number{0.300000}",                                         nullptr                   },
    {"String",                    "\"a\"",                     "string{a}",                                                nullptr                   },
    {"StringEmpty",               "\"\"",                      "string{}",                                                 nullptr                   },
    {"StringWithQuotes",          "\"\"\"a\"\"b\"",            "string{\"a\"b}",                                           nullptr                   },
    {"StringOfOneQuote",          "\"\"\"\"",                  "string{\"}",                                               nullptr                   },
    {"StringWithSigns",           "\"A1+(',\"",                "string{A1+(',}",                                           nullptr                   },
    {"StringWithLineEnd",         "\"a\nb\"",                  "string{a\nb}",                                             nullptr                   },
    {"True",                      "TRUE",                      "true",                                                     nullptr                   },
    {"FalseOfSmallLetters",       "false",                     "false",                                                    "FALSE"                   },
    {"TrueAsCall",                "TRUE()",                    "TRUE(){}",                                                 nullptr                   },
    {"NameThatBeginsLikeTrue",    "TRUEST",                    "label{||TRUEST}",                                          nullptr                   },
    {"ErrorNotAvailable",         "#N/A",                      "error{#N/A}",                                              nullptr                   },
    {"ErrorName",                 "#name?",                    "error{#NAME?}",                                            "#NAME?"                  },
    {"ErrorOfTable",              "Sheet1!#REF!",              "error{#REF!}",                                             "#REF!"                   },
    {"ErrorOfTableSmall",         "Sheet1!#ref!+1",            "add{error{#REF!}" ONE "}",                                 "#REF!+1"                 },
    {"ErrorOfBothSmall",          "#ref!#ref!",                "error{#REF!}",                                             "#REF!"                   },
    {"ErrorSpill",                "#SPILL!",                   "error{#SPILL!}",                                           nullptr                   },
    {"ErrorDivided",              "#DIV/0!/2",                 "divide{error{#DIV/0!}" TWO "}",                            nullptr                   },
    {"EqualSign",                 "=1",                        ONE,                                                        "1"                       },
    {"BlanksAround",              " \t1\r\n",                  ONE,                                                        "1"                       },

    {"AddBeforeAdd",              "1+2-3",                     "subtract{add{" ONE TWO "}" THREE "}",                      nullptr                   },
    {"AddInNeededParentheses",    "1-(2+3)",                   "subtract{" ONE "add{" TWO THREE "}}",                      nullptr                   },
    {"AddInOtherParentheses",     "(1-2)+3",                   "add{list{subtract{" ONE TWO "}}" THREE "}",                nullptr                   },
    {"DoubledNeededParentheses",  "((1+2))*3",                 "multiply{list{add{" ONE TWO "}}" THREE "}",                nullptr                   },
    {"NeededParentheses",         "(1+2)*3",                   "multiply{add{" ONE TWO "}" THREE "}",                      nullptr                   },
    {"MultiplyBindsMore",         "1+2*3",                     "add{" ONE "multiply{" TWO THREE "}}",                      nullptr                   },
    {"DivideFromTheLeft",         "1/2/3",                     "divide{divide{" ONE TWO "}" THREE "}",                     nullptr                   },
    {"PowerFromTheLeft",          "1^2^3",                     "power{power{" ONE TWO "}" THREE "}",                       nullptr                   },
    {"PowerFromTheRight",         "1^(2^3)",                   "power{" ONE "power{" TWO THREE "}}",                       nullptr                   },
    {"MinusBindsMoreThanPower",   "-2^2",                      "power{minus{" TWO "}" TWO "}",                             nullptr                   },
    {"PowerOfMinus",              "2^-1",                      "power{" TWO "minus{" ONE "}}",                             nullptr                   },
    {"MinusOfPower",              "-(2^2)",                    "minus{power{" TWO TWO "}}",                                nullptr                   },
    {"PowerOfMinusOfPower",       "2^-1^2",                    "power{power{" TWO "minus{" ONE "}}" TWO "}",               nullptr                   },
    {"PercentBindsMoreThanPower", "2^1%",                      "power{" TWO "percent{" ONE "}}",                           nullptr                   },
    {"PercentOfMinus",            "-1%",                       "percent{minus{" ONE "}}",                                  nullptr                   },
    {"MinusOfPercent",            "-(1%)",                     "minus{percent{" ONE "}}",                                  nullptr                   },
    {"PercentTwice",              "1%%",                       "percent{percent{" ONE "}}",                                nullptr                   },
    {"PercentAfterBlank",         "1 %+2",                     "add{percent{" ONE "}" TWO "}",                             "1%+2"                    },
    {"SignsInARow",               "--+1",                      "minus{minus{plus{" ONE "}}}",                              nullptr                   },
    {"MinusMinus",                "1--2",                      "subtract{" ONE "minus{" TWO "}}",                          nullptr                   },
    {"JoinBindsLessThanAdd",      "1+2&3",                     "join{add{" ONE TWO "}" THREE "}",                          nullptr                   },
    {"CompareLast",               "1&2=3",                     "equal{join{" ONE TWO "}" THREE "}",                        nullptr                   },
    {"CompareFromTheLeft",        "1=2<>3",                    "unequal{equal{" ONE TWO "}" THREE "}",                     nullptr                   },
    {"LessOrEqual",               "1<=2",                      "lessOrEqual{" ONE TWO "}",                                 nullptr                   },
    {"GreaterOrEqual",            "1>=2",                      "greaterOrEqual{" ONE TWO "}",                              nullptr                   },
    {"LessOfMinus",               "1<-2",                      "less{" ONE "minus{" TWO "}}",                              nullptr                   },
    {"Greater",                   "1 > 2",                     "greater{" ONE TWO "}",                                     "1>2"                     },

    {"Call",                      "SUM(A1,B2)",                "SUM(){" A_1 B_2 "}",                                       nullptr                   },
    {"CallOfSmallLetters",        "sum(1)",                    "sum(){" ONE "}",                                           nullptr                   },
    {"CallOfNothing",             "NOW()",                     "NOW(){}",                                                  nullptr                   },
    {"CallOfBlank",               "NOW( )",                    "NOW(){}",                                                  "NOW()"                   },
    {"CallOfEmptyBetween",        "IF(A1,,2)",                 "IF(){" A_1 "empty" TWO "}",                                nullptr                   },
    {"CallOfEmptyEnds",           "F( , )",                    "F(){emptyempty}",                                          "F(,)"                    },
    {"CallOfEmptyLast",           "F(1,)",                     "F(){" ONE "empty}",                                        nullptr                   },
    {"CallInCall",                "F(G(1),2)",                 "F(){G(){" ONE "}" TWO "}",                                 nullptr                   },
    {"CallLikeCell",              "LOG10(1)",                  "LOG10(){" ONE "}",                                         nullptr                   },
    {"CallWithPrefix",            "_xlfn._xlws.SORT(A1)",      "_xlfn._xlws.SORT(){" A_1 "}",                              nullptr                   },
    {"CallInDocument",            "[1]!F(1)",                  "[1]!F(){" ONE "}",                                         nullptr                   },
    {"CallOfParentheses",         "SUM((A1))",                 "SUM(){list{" A_1 "}}",                                     nullptr                   },
    {"CallOfList",                "SUM((A1,B2),1)",            "SUM(){list{" A_1 B_2 "}" ONE "}",                          nullptr                   },
    {"CallOverLines",             "SUM(\n1,\t2\n)",            "SUM(){" ONE TWO "}",                                       "SUM(1,2)"                },

    {"ArrayOfOne",                "{1}",                       "array1{" ONE "}",                                          nullptr                   },
    {"ArrayOfRows",               "{1,2;3,\"a\"}",             "array2{" ONE TWO THREE "string{a}}",                       nullptr                   },
    {"ArrayOfConstants",          "{ TRUE ; -1 ; #N/A ; +2 }", "array1{truenumber{-1.000000}error{#N/A}" TWO "}",
     "{TRUE;-1;#N/A;2}"                                                                                                                              },

    {"RangeOfCalls",              "INDEX(A1):INDEX(B2)",       "between{INDEX(){" A_1 "}INDEX(){" B_2 "}}",                nullptr                   },
    {"RangeToCall",               "A1:INDEX(B2)",              "between{" A_1 "INDEX(){" B_2 "}}",                         nullptr                   },
    {"RangeToCallLikeColumn",     "A:ABS(1)",                  "between{label{||A}ABS(){" ONE "}}",                        nullptr                   },
    {"RangeOnTables",             "Sheet1!A1:Sheet1!B2",       "between{cell{|Sheet1|c0 r0}cell{|Sheet1|c1 r1}}",          nullptr                   },
    {"RangeToTable",              "A1:Sheet2!B2",              "between{cell{||c0 r0}cell{|Sheet2|c1 r1}}",                nullptr                   },
    {"RangeToQuotedTable",        "A1:'My sheet'!B2",          "between{cell{||c0 r0}cell{|My sheet|c1 r1}}",              nullptr                   },
    {"RangeToNameOnTable",        "A1:Sheet2!Rate",            "between{cell{||c0 r0}label{|Sheet2|Rate}}",                nullptr                   },
    {"RangeToTableLikeCell",      "A1:B2!C3",                  "between{cell{||c0 r0}cell{|B2|c2 r2}}",                    "A1:'B2'!C3"              },
    {"RangeFromTableToTable",     "Sheet1!A:B!C3",             "between{label{|Sheet1|A}cell{|B|c2 r2}}",                  nullptr                   },
    {"RangeToTablesLikeColumn",   "S!A:'B:S'!C3",              "between{label{|S|A}range{|B|S|c2-2 r2-2}}",                nullptr                   },
    {"RangeToCallOnTable",        "A1:Sheet2!F()",             "between{cell{||c0 r0}Sheet2!F(){}}",                       nullptr                   },
    {"RangeOfNames",              "First:Last",                "between{label{||First}label{||Last}}",                     nullptr                   },
    {"RangeOfThree",              "A1:B2:C3",                  "between{range{|||c0-1 r0-1}cell{||c2 r2}}",                nullptr                   },
    {"RangeOfParentheses",        "(A1):B2",                   "between{" A_1 B_2 "}",                                     nullptr                   },
    {"RangeWithOtherParentheses", "A1:(B2)",                   "between{" A_1 "list{" B_2 "}}",                            nullptr                   },
    {"RangeWithBlanks",           "A1 : B2",                   "range{|||c0-1 r0-1}",                                      "A1:B2"                   },
    {"RangeOfColumnsWithBlanks",  "A : C",                     "range{|||c0-2 rall}",                                      "A:C"                     },
    {"RangeOfRowsWithBlanks",     "1 : 3",                     "range{|||call r0-2}",                                      "1:3"                     },
    {"RangeOnTableWithBlanks",    "Sheet1!A1 : B$2",           "range{|Sheet1||c0-1 r0-=1}",                               "Sheet1!A1:B$2"           },
    {"RangeOnTablesWithBlanks",   "Sa:Sc!A1 : B2",             "range{|Sa|Sc|c0-1 r0-1}",                                  "'Sa:Sc'!A1:B2"           },
    {"RangeToTableWithBlanks",    "A1 : Sheet2!B2",            "between{cell{||c0 r0}cell{|Sheet2|c1 r1}}",                "A1:Sheet2!B2"            },
    {"RangeOfFormsWithBlanks",    "A1 : C",                    "between{cell{||c0 r0}label{||C}}",                         "A1:C"                    },
    {"RangeToRangeWithBlanks",    "A1 : B2:C3",                "between{cell{||c0 r0}range{|||c1-2 r1-2}}",                "(A1):B2:C3"              },
    {"RangeToColumnsWithBlanks",  "A : B:C",                   "between{label{||A}range{|||c1-2 rall}}",                   "(A):B:C"                 },
    {"RangeFromNameToTable",      "(Sheet1):Sheet2!A1",        "between{label{||Sheet1}cell{|Sheet2|c0 r0}}",              nullptr                   },
    {"RangeFromNameToCall",       "(Sheet1):'My sheet'!F()",   "between{label{||Sheet1}'My sheet'!F(){}}",                 nullptr                   },
    {"RangeFromNameOnTable",      "S!Sheet1:Sheet2!A1",        "between{label{|S|Sheet1}cell{|Sheet2|c0 r0}}",             nullptr                   },
    {"RangeFromNameToDocument",   "Sheet1:[1]Sheet2!A1",       "between{label{||Sheet1}cell{b.xlsx|Sheet2|c0 r0}}",
     nullptr                                                                                                                                         },
    {"RangeFromParentheses",      "F():(A1):B2",               "between{between{F(){}list{" A_1 "}}" B_2 "}",              nullptr                   },
    {"RangeAfterCallWithBlanks",  "F():A1 :B2",                "between{between{F(){}" A_1 "}" B_2 "}",                    "(F():A1):B2"             },
    {"Rows",                      "SUM(1:3)",                  "SUM(){range{|||call r0-2}}",                               nullptr                   },
    {"Intersection",              "A1:B2 B2",                  "both{range{|||c0-1 r0-1}" B_2 "}",                         nullptr                   },
    {"IntersectionFromTheLeft",   "A1 B2  C3",                 "both{both{" A_1 B_2 "}cell{||c2 r2}}",                     "A1 B2 C3"                },
    {"IntersectionOfRange",       "F() A1:B2:F()",             "both{F(){}between{range{|||c0-1 r0-1}F(){}}}",             nullptr                   },
    {"IntersectionNotOfCall",     "SUM (A1)",                  "both{label{||SUM}list{" A_1 "}}",                          nullptr                   },
    {"IntersectionOfRows",        "A:A 1:1",                   "both{range{|||c0-0 rall}range{|||call r0-0}}",             nullptr                   },
    {"IntersectionOfError",       "A1 #REF!",                  "both{" A_1 "error{#REF!}}",                                nullptr                   },
    {"IntersectionOfNumbers",     "(1) (2)",                   "both{" ONE TWO "}",                                        nullptr                   },
    {"MinusOfIntersection",       "-A1 B2",                    "minus{both{" A_1 B_2 "}}",                                 nullptr                   },
    {"NoIntersectionBeforeSign",  "A1 -B2",                    "subtract{" A_1 B_2 "}",                                    "A1-B2"                   },
    {"IntersectionNotQuoted",     "My sheet!A1",               "both{label{||My}cell{|sheet|c0 r0}}",                      nullptr                   },
    {"IntersectionOfList",        "(A1,B2) A1",                "both{list{" A_1 B_2 "}" A_1 "}",                           nullptr                   },
    {"OpenList",                  "A1,B2",                     "list{" A_1 B_2 "}",                                        "(A1,B2)"                 },
    {"ListInParentheses",         "((A1,B2))",                 "list{list{" A_1 B_2 "}}",                                  nullptr                   },
    {"ListInList",                "((A1,B2),A1)",              "list{list{" A_1 B_2 "}" A_1 "}",                           nullptr                   },
    {"Parentheses",               "((A1))",                    "list{list{" A_1 "}}",                                      nullptr                   },

    {"SpillSign",                 "A1#",                       "_xlfn.ANCHORARRAY(){" A_1 "}",                             "_xlfn.ANCHORARRAY(A1)"   },
    {"SpillSignInRange",          "A1:B2#",                    "_xlfn.ANCHORARRAY(){range{|||c0-1 r0-1}}",                 "_xlfn.ANCHORARRAY(A1:B2)"},
    {"SpillCall",                 "_xlfn.ANCHORARRAY(A1)",     "_xlfn.ANCHORARRAY(){" A_1 "}",                             nullptr                   },
    {"SingleSign",                "-@A1:F()+1",                "add{minus{_xlfn.SINGLE(){between{" A_1 "F(){}}}}" ONE "}",
     "-_xlfn.SINGLE(A1:F())+1"                                                                                                                       },
    {"SingleCall",                "_xlfn.SINGLE(A1)",          "_xlfn.SINGLE(){" A_1 "}",                                  nullptr                   },

    {"DocumentOfList",            "[1]Sheet1!A1",              "cell{b.xlsx|Sheet1|c0 r0}",                                nullptr                   },
    {"SecondDocument",            "'[2]My sheet'!A1:B2",       "range{file:///c d.xlsx|My sheet||c0-1 r0-1}",              nullptr                   },
    {"DocumentBeyondList",        "[3]Sheet1!A1",              "cell{3|Sheet1|c0 r0}",                                     nullptr                   },
    {"OwnDocument",               "[0]!Rate",                  "label{||Rate}",                                            "Rate"                    },
    {"DocumentByName",            "[b.xlsx]Sheet1!A1",         "cell{b.xlsx|Sheet1|c0 r0}",                                "[1]Sheet1!A1"            },
    {"OtherDocumentByName",       "[x.xlsx]Sheet1!A1",         "cell{x.xlsx|Sheet1|c0 r0}",                                nullptr                   },
    {"DocumentWithPath",          "'C:\\d\\[x.xlsx]S'!A1+1",   "add{cell{C:\\d\\x.xlsx|S|c0 r0}" ONE "}",                  nullptr                   },
    {"DocumentOfDigitsWithPath",  "'1/[2]S'!A1",               "cell{1/2|S|c0 r0}",                                        nullptr                   },
    {"CallInDocumentWithPath",    "'a/[x.xlsx]'!F(1)",         "'a/[x.xlsx]'!F(){" ONE "}",                                nullptr                   },
    {"RangeToDocumentWithPath",   "Sheet1:'a/[x.xlsx]S'!A1",   "between{label{||Sheet1}cell{a/x.xlsx|S|c0 r0}}",
     nullptr                                                                                                                                         },
    {"NameOfDocument",            "[1]!Rate*2",                "multiply{label{b.xlsx||Rate}" TWO "}",                     nullptr                   },
    {"NameOnTable",               "'My sheet'!Rate",           "label{|My sheet|Rate}",                                    nullptr                   },
    {"RowOfTables",               "SUM(Sheet1:Sheet3!A1)",     "SUM(){range{|Sheet1|Sheet3|c0-0 r0-0}}",                   nullptr                   },

    {"TableColumn",               "SUM(Table1[a b])",          "SUM(){label{||Table1[a b]}}",                              nullptr                   },
    {"TableRow",                  "Table1[[#This Row],[a]]*2", "multiply{label{||Table1[[#This Row],[a]]}" TWO "}",        nullptr                   },
    {"TableColumns",              "Table1[[#Totals],[a]:[b]]", "label{||Table1[[#Totals],[a]:[b]]}",                       nullptr                   },
    {"TableAll",                  "Table1[]",                  "label{||Table1[]}",                                        nullptr                   },
    {"TableNotNamed",             "[@a]",                      "label{||[@a]}",                                            nullptr                   },
    {"TableColumnWithBrackets",   "T['[a'']",                  "label{||T['[a'']}",                                        nullptr                   },
};

const DocumentList Documents = {"b.xlsx", "file:///c d.xlsx"};

const DocumentList OddDocuments = {"0", "a[1].xlsx", "2019", "it's.xlsx"};

class ParseFormula : public testing::TestWithParam<FormulaRow>
{
};

TEST_P(ParseFormula, KeepsRow)
{
    const FormulaRow& row = GetParam();
    const auto parsed = parseFormula(row.text, Documents);
    ASSERT_TRUE(parsed);
    EXPECT_EQ(describeTree(parsed->formula), row.tree);
    const std::string printed = toText(parsed->formula, TableContext(), DocumentNumbers(Documents));
    EXPECT_EQ(printed, row.printed ? row.printed : row.text);
    const auto again = parseFormula(printed, Documents);
    ASSERT_TRUE(again);
    EXPECT_TRUE(again->formula == parsed->formula);
}

INSTANTIATE_TEST_SUITE_P(Rows, ParseFormula, testing::ValuesIn(FormulaRows),
    [](const auto& row) { return std::string(row.param.name); });

const std::string RefusedTexts[] = {"", " ", "=", "==1", "+", "1+", "*1", "1 2", "1 A1", "A1 1", "A1 \"a\"",
    "(", ")", "()", "(1", "1)", "(1))", "SUM(", "SUM(1", "SUM(1))", "(,1)", "(1,)", "1,", ",1", "1,,2", "\"a",
    "\"a\"\"", "1\"a\"", "1A", "1.2.3", ".", "1E400", "1E", "{}", "{1", "{1,}", "{,1}", "{1;2,3}", "{1,2;3}",
    "{A1}", "{1+2}", "{-TRUE}", "{--1}", "{{1}}", "A1:", ":A1", "A1:1", "1:A1", "A1:-B2", "A1:2%", "A1% B2",
    "A1::B2", "A1!B2!C3", "TRUE:A1", "Sheet1!TRUE", "#FOO!", "#", "A1##REF", "A1 &", "1=<2", "1><2", "%",
    "%1", "@", "-", "[", "[1", "T[a", "T[[a]", "T[a]]", "T['", "F(1)(2)", "F(1)A1", "(1)(2)", "(1)2", "'a",
    "'a'", "A1;B2", "A1!", "A1|B2", "~A1", std::string("1\0", 2), std::string("\0", 1), "{1}{2}", "\xFF("};

TEST(ParseFormulaErrors, GiveNothing)
{
    for (const std::string& text : RefusedTexts)
        EXPECT_FALSE(parseFormula(text)) << text;
}

TEST(ParseFormulaMarks, SayWhatTheTreeHasNoKindsFor)
{
    const auto has = [](const char* text) {
        const auto parsed = parseFormula(text, Documents);
        return std::make_pair(parsed->hasTableColumns, parsed->hasUnknownDocuments);
    };
    EXPECT_EQ(has("A1+[1]Sheet1!A1+[x]Sheet1!A1+[0]!Rate"), std::make_pair(false, false));
    EXPECT_EQ(has("T[a]+1"), std::make_pair(true, false));
    EXPECT_EQ(has("1+[a]"), std::make_pair(true, false));
    EXPECT_EQ(has("[3]Sheet1!A1+1"), std::make_pair(false, true));
    EXPECT_EQ(has("[3]!Rate"), std::make_pair(false, true));
    EXPECT_EQ(has("[99999999999999999999]!Rate"), std::make_pair(false, true));
}

TEST(ParseFormulaDocuments, MayHaveAnyNamesInRangesWithBlanks)
{
    for (std::size_t i = 1; i <= OddDocuments.size(); ++i) {
        const std::string first = '[' + std::to_string(i) + "]S!A1";
        const auto range = parseFormula(first + " : B2", OddDocuments);
        ASSERT_TRUE(range);
        EXPECT_EQ(describeTree(range->formula), "range{" + OddDocuments[i - 1] + "|S||c0-1 r0-1}");
        EXPECT_EQ(toText(range->formula, TableContext(), DocumentNumbers(OddDocuments)), first + ":B2");

        const std::string needless = '(' + first + "):F()";
        const auto call = parseFormula(needless, OddDocuments);
        ASSERT_TRUE(call);
        EXPECT_EQ(toText(call->formula, TableContext(), DocumentNumbers(OddDocuments)), needless);
    }
}

TEST(DocumentNumbers, AreThePlacesOfDocumentsInTheirList)
{
    const DocumentNumbers numbers({"a", "b", "a", "", "c"});
    EXPECT_EQ(numbers.findNumber("a"), 1U) << "the first of equal ones";
    EXPECT_EQ(numbers.findNumber("b"), 2U);
    EXPECT_EQ(numbers.findNumber("c"), 5U);
    EXPECT_EQ(numbers.findNumber("A"), 0U);
    EXPECT_EQ(DocumentNumbers().findNumber("a"), 0U);
}

TEST(DocumentNumbers, AreFoundSoonForManyReferencesAndDocuments)
{
    constexpr std::size_t Count = 50000; // too many to search the list for each reference
    DocumentList documents;
    std::string text = "SUM(";
    for (std::size_t i = 1; i <= Count; ++i) {
        documents.push_back("file:///books/" + std::to_string(i) + ".xlsx");
        text += (i == 1 ? "[" : ",[") + std::to_string(i) + "]S!A1";
    }
    text += ')';
    const auto parsed = parseFormula(text, documents);
    ASSERT_TRUE(parsed);
    EXPECT_EQ(toText(parsed->formula, TableContext(), DocumentNumbers(documents)), text);
}

TEST(ToText, NamesTablesByTheirCurrentNames)
{
    const UUID uuid(1, 1);
    TableContext context;
    context.addTable(uuid, "New name");
    const auto makeCell = [](const UUID& table) {
        return std::make_unique<CellAddress>(
            EmptyDocumentAddress, table, ColumnAxisIndex(ColumnIndex(0)), RowAxisIndex(RowIndex(0)));
    };
    EXPECT_EQ(
        toText(DOM::Formula(std::make_unique<BinaryOp<RangeOp>>(makeCell(uuid), makeCell(uuid))), context),
        "'New name'!A1:'New name'!A1");
    EXPECT_EQ(
        toText(DOM::Formula(std::make_unique<UnaryOp<Percent>>(makeCell(UUID(2, 2)))), context), "#REF!A1%");
}

TEST(ToText, GivesTheTextOfAFormulaThatWasNotRead)
{
    const DOM::Formula formula = DOM::Formula::makeUnread("F(1)(2");
    const DOM::Formula copy = formula;
    EXPECT_EQ(toText(copy, TableContext()), "F(1)(2");
    EXPECT_TRUE(copy == formula);
    EXPECT_FALSE(copy == DOM::Formula::makeUnread("F(1)(3"));
}

TEST(ToText, PrintsNumbersThatNoTextHas)
{
    const auto print = [](double value) {
        return toText(DOM::Formula(std::make_unique<Number>(value)), TableContext());
    };
    EXPECT_EQ(print(-1.5), "-1.5");
    EXPECT_EQ(print(1.7976931348623157e308), "1.7976931348623157E+308");
    EXPECT_EQ(print(5e-324), "5E-324");
    EXPECT_EQ(print(HUGE_VAL), "#NUM!");
    EXPECT_EQ(print(-std::nan("")), "#NUM!");
}

} // namespace
} // namespace QV::Formulas
