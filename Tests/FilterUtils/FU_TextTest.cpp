#include <FilterUtils/FU_Text.h>

#include <algorithm>
#include <map>
#include <ostream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/TableNames.h>
#include <FilterUtils/FU_ApplicationName.h>
#include <Utils/Public/OperationReport.h>
#include <Versioning/Public/CoreVersion.h>

namespace QV::FilterUtils {
namespace {

using std::string_literals::operator""s;
using testing::ElementsAre;
using testing::IsEmpty;
using Pairs = std::map<std::string, std::string>;

struct PairsRow
{
    const char* name;
    std::string text;
    std::string separators;
    std::string delimiter;
    Pairs pairs;
};

void PrintTo(const PairsRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.text) << " with delimiter \"" << row.delimiter << '"';
}

const PairsRow PairsRows[] = {
    {"Two",                     "a=1;b=2",        ";",   "=",   {{"a", "1"}, {"b", "2"}}               },
    {"SeparatorsCompressed",    "a=1;;b=2",       ";",   "=",   {{"a", "1"}, {"b", "2"}}               },
    {"SeparatorsAtTheEnds",     ";;a=1;;",        ";",   "=",   {{"a", "1"}}                           },
    {"EachSeparatorAlone",      "a=1,b=2;c=3",    ";,",  "=",   {{"a", "1"}, {"b", "2"}, {"c", "3"}}   },
    {"MixedSeparatorsCompress", "a=1;,;b=2",      ",;",  "=",   {{"a", "1"}, {"b", "2"}}               },
    {"NoSeparators",            "a=1;b=2",        "",    "=",   {{"a", "1;b=2"}}                       },
    {"NulAsSeparator",          "a=1\0b=2"s,      "\0"s, "=",   {{"a", "1"}, {"b", "2"}}               },
    {"FirstOfAKeyStays",        "a=1;a=2",        ";",   "=",   {{"a", "1"}}                           },
    {"KeysInByteOrder",         "b=1;\xC3=2;B=3", ";",   "=",   {{"B", "3"}, {"b", "1"}, {"\xC3", "2"}}},
    {"EmptyValueIsDropped",     "a=;b=2",         ";",   "=",   {{"b", "2"}}                           },
    {"DroppedKeyIsStillFree",   "a=;a=2",         ";",   "=",   {{"a", "2"}}                           },
    {"ShortestValue",           "a=1",            ";",   "=",   {{"a", "1"}}                           },
    {"EmptyKey",                "=5",             ";",   "=",   {{"", "5"}}                            },
    {"DelimiterAlone",          "=",              ";",   "=",   {}                                     },
    {"DelimiterTwice",          "==",             ";",   "=",   {{"", "="}}                            },
    {"FirstDelimiterCounts",    "a=b=c",          ";",   "=",   {{"a", "b=c"}}                         },
    {"NoDelimiter",             "a;b=1",          ";",   "=",   {{"b", "1"}}                           },
    {"BlanksStay",              "a:1; b:2",       ";",   ":",   {{"a", "1"}, {" b", "2"}}              },
    {"BlankValue",              "a= ",            ";",   "=",   {{"a", " "}}                           },
    {"LongDelimiter",           "k:=v",           ";",   ":=",  {{"k", "=v"}}                          },
    {"LongDelimiterAtTheEnd",   "k:=",            ";",   ":=",  {{"k", "="}}                           },
    {"LongDelimiterIsCut",      "k:",             ";",   ":=",  {}                                     },
    {"LongDelimiterAsAWhole",   "k:a:=v",         ";",   ":=",  {{"k:a", "=v"}}                        },
    {"LongDelimiterAlone",      ":=",             ";",   ":=",  {{"", "="}}                            },
    {"ThreeCharacters",         "k<->v",          ";",   "<->", {{"k", "->v"}}                         },
    {"EmptyDelimiter",          "abc;d;ef",       ";",   "",    {{"", "bc"}}                           },
    {"EmptyDelimiterOneLetter", "a",              ";",   "",    {}                                     },
    {"DelimiterIsSeparator",    "a=1",            "=",   "=",   {}                                     },
    {"Empty",                   "",               ";",   "=",   {}                                     },
    {"SeparatorsOnly",          ";;;",            ";",   "=",   {}                                     },
};

class ParseKeyValueString : public testing::TestWithParam<PairsRow>
{
};

TEST_P(ParseKeyValueString, KeepsRow)
{
    const PairsRow& row = GetParam();
    const auto pairs = parseKeyValueString(row.text, row.separators, row.delimiter);
    EXPECT_EQ(Pairs(pairs.begin(), pairs.end()), row.pairs);
    EXPECT_TRUE(std::is_sorted(pairs.begin(), pairs.end()));
}

INSTANTIATE_TEST_SUITE_P(Rows, ParseKeyValueString, testing::ValuesIn(PairsRows),
    [](const auto& row) { return std::string(row.param.name); });

const char* const Untouched = "as it was";

struct ImageRow
{
    const char* name;
    std::string uri;
    std::string bytes;
    std::string mimeType;
};

void PrintTo(const ImageRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.uri);
}

const ImageRow ImageRows[] = {
    {"Png",                "data:image/png;base64,YWJj",                   "abc",     "image/png" },
    {"UpperCaseBase64",    "data:image/png;BASE64,YWJj",                   "abc",     "image/png" },
    {"MixedCaseBase64",    "data:image/png;bAsE64,YWJj",                   "abc",     "image/png" },
    {"Bytes",              "data:image/x;base64,AP8=",                     "\0\xFF"s, "image/x"   },
    {"ShortestType",       "data:image/x;base64,YQ==",                     "a",       "image/x"   },
    {"OddType",            "data:image/ x/y;base64,YQ==",                  "a",       "image/ x/y"},
    {"LineEndInTheType",   "data:image/\n;base64,YQ==",                    "a",       "image/\n"  },
    {"NulInTheType",       "data:image/\0;base64,YQ=="s,                   "a",       "image/\0"s },
    {"HighByteInTheType",  "data:image/\xC3;base64,YQ==",                  "a",       "image/\xC3"},
    {"BadDataSetsTheType", "data:image/png;base64,YWJ",                    "",        "image/png" },
    {"BlankDataSetsIt",    "data:image/png;base64, YWJj",                  "",        "image/png" },
    {"CommaInTheData",     "data:image/png;base64,YW,j",                   "",        "image/png" },
    {"NothingAfterComma",  "data:image/png;base64,",                       "",        Untouched   },
    {"NoComma",            "data:image/png;base64",                        "",        Untouched   },
    {"CommaAlone",         ",",                                            "",        Untouched   },
    {"Empty",              "",                                             "",        Untouched   },
    {"Text",               "data:text/plain;base64,YWJj",                  "",        Untouched   },
    {"EmptyType",          "data:image/;base64,YWJj",                      "",        Untouched   },
    {"UpperCaseScheme",    "DATA:image/png;base64,YWJj",                   "",        Untouched   },
    {"UpperCaseImage",     "data:Image/png;base64,YWJj",                   "",        Untouched   },
    {"NoBase64",           "data:image/png,YWJj",                          "",        Untouched   },
    {"OtherEncoding",      "data:image/png;base32,YWJj",                   "",        Untouched   },
    {"TextBefore",         " data:image/png;base64,YWJj",                  "",        Untouched   },
    {"BlankBeforeComma",   "data:image/png;base64 ,YWJj",                  "",        Untouched   },
    {"Parameter",          "data:image/svg+xml;charset=utf-8;base64,YWJj", "",        Untouched   },
    {"CommaInTheType",     "data:image/a,b;base64,YWJj",                   "",        Untouched   },
};

class GetRawImageData : public testing::TestWithParam<ImageRow>
{
};

TEST_P(GetRawImageData, KeepsRow)
{
    const ImageRow& row = GetParam();
    std::string mimeType = Untouched;
    EXPECT_EQ(getRawImageData(row.uri, mimeType), row.bytes);
    EXPECT_EQ(mimeType, row.mimeType);
}

INSTANTIATE_TEST_SUITE_P(Rows, GetRawImageData, testing::ValuesIn(ImageRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(GetRawImageDataOfALongText, Ends)
{
    const std::string letters(10000000, 'x');
    std::string mimeType;
    EXPECT_EQ(getRawImageData("data:image/" + letters + ";base64,YQ==", mimeType), "a");
    EXPECT_EQ(mimeType.size(), letters.size() + 6);
    EXPECT_EQ(getRawImageData("data:image/" + letters + ",YQ==", mimeType), "");
    EXPECT_EQ(getRawImageData(letters, mimeType), "");
}

TEST(GetRawImageDataOfAPiece, StopsAtItsEnd)
{
    const std::string text = "data:image/png;base64,YWJjZGVm";
    std::string mimeType;
    EXPECT_EQ(getRawImageData(boost::string_ref(text.data(), text.size() - 4), mimeType), "abc");
}

TEST(JoinHyperlink, PutsTheAnchorAfterItsSign)
{
    EXPECT_EQ(joinHyperlink(DOM::Hyperlink("https://example.org/a")), "https://example.org/a");
    EXPECT_EQ(joinHyperlink(DOM::Hyperlink("a.xlsx", "Sheet1!B2")), "a.xlsx#Sheet1!B2");
    EXPECT_EQ(joinHyperlink(DOM::Hyperlink("", "Sheet1!B2")), "#Sheet1!B2");
    EXPECT_EQ(joinHyperlink(DOM::Hyperlink("a#b", "c")), "a#b#c");
    EXPECT_EQ(joinHyperlink(DOM::Hyperlink("")), "");
}

TEST(ApplicationName, TellsThePermanentVersionWhole)
{
    EXPECT_EQ(makeApplicationFullNameAndVersion("Text", Versioning::CoreVersion({3, 2, 1, 44}, "", "", "")),
        "Quillbox-Text-Linux/3.2.1.44");
}

TEST(ApplicationName, TellsOnlyTheMajorNumberOfAnyOther)
{
    for (const Versioning::CoreVersion& version : {Versioning::CoreVersion({3, 2, 1, 44}, "beta", "", ""),
             Versioning::CoreVersion({3, 2, 1, 44}, "", "683da49", ""),
             Versioning::CoreVersion({3, 2, 1, 44}, "", "", "dirty")})
        EXPECT_EQ(makeApplicationFullNameAndVersion("Text", version), "Quillbox-Text-Linux/3");
}

TEST(ApplicationName, IsThatOfTheCurrentVersion)
{
    for (const char* const name : {"Spreadsheet", "", "{}"})
        EXPECT_EQ(getApplicationFullNameAndVersion(name),
            makeApplicationFullNameAndVersion(name, Versioning::CoreVersion::getCurrent()));
}

TEST(FixTableNameIfNeed, LeavesAValidNameAlone)
{
    OperationReport report;
    EXPECT_EQ(fixTableNameIfNeed(report, "Sheet1"), "Sheet1");
    EXPECT_THAT(report.getMessages(), IsEmpty());
}

TEST(FixTableNameIfNeed, ReportsTheOldAndTheNewName)
{
    OperationReport report;
    EXPECT_EQ(fixTableNameIfNeed(report, "a/b"), DOM::fixTableNameIfNeed("a/b"));
    ASSERT_EQ(report.getMessages().size(), 1U);
    const OperationReport::Message& message = report.getMessages().front();
    EXPECT_EQ(message.getText(), "Table name '{}' is invalid. Fixed table name is '{}'.");
    EXPECT_THAT(message.getArguments(),
        ElementsAre(OperationReport::Message::Argument("a/b"s), OperationReport::Message::Argument("a_b"s)));
    EXPECT_EQ(message.toString(), "Table name 'a/b' is invalid. Fixed table name is 'a_b'.");
}

} // namespace
} // namespace QV::FilterUtils
