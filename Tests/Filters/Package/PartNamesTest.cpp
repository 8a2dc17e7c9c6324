#include <Filters/Package/PartNames.h>

#include <ostream>
#include <string>

#include <boost/optional/optional_io.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QV::Filters {
namespace {

using NameOpt = boost::optional<std::string>;

const NameOpt None;

struct NameRow
{
    const char* name;
    std::string text;
    NameOpt expected;
};

void PrintTo(const NameRow& row, std::ostream* out)
{
    *out << row.name;
}

const NameRow NameRows[] = {
    {"Plain",              "xl/workbook.xml",     NameOpt("xl/workbook.xml")    },
    {"CaseIsKept",         "XL/WorkBook.xml",     NameOpt("XL/WorkBook.xml")    },
    {"OneLeadingSlash",    "/xl/workbook.xml",    NameOpt("xl/workbook.xml")    },
    {"TwoLeadingSlashes",  "//xl/workbook.xml",   None                          },
    {"Backslashes",        "xl\\workbook.xml",    NameOpt("xl/workbook.xml")    },
    {"LeadingBackslash",   "\\xl\\workbook.xml",  NameOpt("xl/workbook.xml")    },
    {"Host",               "\\\\host\\a.xml",     None                          },
    {"EmptySegment",       "xl//workbook.xml",    NameOpt("xl/workbook.xml")    },
    {"DotSegment",         "./xl/./workbook.xml", NameOpt("xl/workbook.xml")    },
    {"DotsInAName",        "xl/..a..b...xml",     NameOpt("xl/..a..b...xml")    },
    {"Parent",             "../a.xml",            None                          },
    {"ParentInside",       "xl/../a.xml",         None                          },
    {"ParentAtEnd",        "xl/..",               None                          },
    {"ParentByBackslash",  "xl\\..\\..\\a.xml",   None                          },
    {"EncodedParent",      "xl/%2e%2E/a.xml",     None                          },
    {"HalfEncodedParent",  "xl/.%2e/a.xml",       None                          },
    {"TwiceEncodedParent", "xl/%252e%252e/a.xml", NameOpt("xl/%252e%252e/a.xml")},
    {"EncodedSlash",       "xl%2Fa.xml",          None                          },
    {"EncodedBackslash",   "xl%5ca.xml",          None                          },
    {"EncodedNul",         "xl/a%00.xml",         None                          },
    {"EncodedBlank",       "xl/a%20b.xml",        NameOpt("xl/a%20b.xml")       },
    {"PercentAlone",       "xl/100%.xml",         NameOpt("xl/100%.xml")        },
    {"PercentAtEnd",       "xl/a%4",              NameOpt("xl/a%4")             },
    {"Drive",              "C:/a.xml",            None                          },
    {"DriveWithBackslash", "c:\\a.xml",           None                          },
    {"DriveAlone",         "C:",                  None                          },
    {"DriveAfterSlash",    "/C:/a.xml",           None                          },
    {"ColonInAName",       "xl/a:b.xml",          NameOpt("xl/a:b.xml")         },
    {"Nul",                std::string("a\0b",    3),                             None},
    {"Newline",                    "a\nb",                                 None                                     },
    {"Delete",                    "a\x7F",                                  None},
    {"Empty",                    "",                                   None                                           },
    {"SlashAlone",                    "/",                              None},
    {"DotAlone",                    ".",                                None                                             },
    {"NotAscii",                    "xl/\xC3\xA4.xml",                                NameOpt("xl/\xC3\xA4.xml")},
    {"Blank",                    " ",                                   NameOpt(" ")                                                              },
    {"ContentTypes",                    "[Content_Types].xml",                            NameOpt("[Content_Types].xml")},
};

class NormalizePartName : public testing::TestWithParam<NameRow>
{
};

TEST_P(NormalizePartName, KeepsRow)
{
    EXPECT_EQ(normalizePartName(GetParam().text), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, NormalizePartName, testing::ValuesIn(NameRows),
    [](const auto& row) { return std::string(row.param.name); });

struct TargetRow
{
    const char* name;
    std::string source;
    std::string target;
    NameOpt expected;
};

void PrintTo(const TargetRow& row, std::ostream* out)
{
    *out << row.name;
}

const std::string Sheet = "xl/worksheets/sheet1.xml";

const TargetRow TargetRows[] = {
    {"FromThePackage",      "",      "xl/workbook.xml",    NameOpt("xl/workbook.xml")         },
    {"AbsoluteFromPackage", "",      "/xl/workbook.xml",   NameOpt("xl/workbook.xml")         },
    {"FromARootPart",       "a.xml", "b.xml",              NameOpt("b.xml")                   },
    {"Sibling",             Sheet,   "sheet2.xml",         NameOpt("xl/worksheets/sheet2.xml")},
    {"Parent",              Sheet,   "../media/x.png",     NameOpt("xl/media/x.png")          },
    {"UpToTheRoot",         Sheet,   "../../a.xml",        NameOpt("a.xml")                   },
    {"AboveTheRoot",        Sheet,   "../../../a.xml",     None                               },
    {"AboveThePackage",     "",      "../a.xml",           None                               },
    {"AbsoluteAboveRoot",   Sheet,   "/../a.xml",          None                               },
    {"AboveAndBack",        Sheet,   "../../../xl/a.xml",  None                               },
    {"Absolute",            Sheet,   "/xl/styles.xml",     NameOpt("xl/styles.xml")           },
    {"Backslashes",         Sheet,   "..\\media\\x.png",   NameOpt("xl/media/x.png")          },
    {"AbsoluteBackslash",   Sheet,   "\\xl\\styles.xml",   NameOpt("xl/styles.xml")           },
    {"Dot",                 Sheet,   "./sheet2.xml",       NameOpt("xl/worksheets/sheet2.xml")},
    {"EncodedParent",       Sheet,   "%2e%2e/media/x.png", NameOpt("xl/media/x.png")          },
    {"EncodedAboveRoot",    "",      "%2e%2e/x.png",       None                               },
    {"EncodedSlash",        Sheet,   "..%2fmedia/x.png",   None                               },
    {"EncodedBlank",        Sheet,   "a%20b.xml",          NameOpt("xl/worksheets/a%20b.xml") },
    {"Fragment",            Sheet,   "sheet2.xml#A1",      NameOpt("xl/worksheets/sheet2.xml")},
    {"FragmentAlone",       Sheet,   "#A1",                NameOpt(Sheet)                     },
    {"FragmentOfPackage",   "",      "#A1",                None                               },
    {"Query",               Sheet,   "sheet2.xml?a=b/c",   NameOpt("xl/worksheets/sheet2.xml")},
    {"Empty",               Sheet,   "",                   None                               },
    {"Root",                Sheet,   "/",                  None                               },
    {"ParentAlone",         Sheet,   "../..",              None                               },
    {"Scheme",              Sheet,   "http://host/a.xml",  None                               },
    {"FileScheme",          Sheet,   "file:///etc/passwd", None                               },
    {"Drive",               Sheet,   "C:\\a.xml",          None                               },
    {"Host",                Sheet,   "//host/a.xml",       None                               },
    {"HostByBackslashes",   Sheet,   "\\\\host\\a.xml",    None                               },
    {"ColonInAName",        Sheet,   "./a:b.xml",          NameOpt("xl/worksheets/a:b.xml")   },
    {"ControlCharacter",    Sheet,   "a\tb.xml",           None                               },
    {"EncodedControl",      Sheet,   "a%0Ab.xml",          None                               },
};

class ResolveTarget : public testing::TestWithParam<TargetRow>
{
};

TEST_P(ResolveTarget, KeepsRow)
{
    EXPECT_EQ(resolveTarget(GetParam().source, GetParam().target), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, ResolveTarget, testing::ValuesIn(TargetRows),
    [](const auto& row) { return std::string(row.param.name); });

// Every path of up to six segments out of a few: what comes back never holds a parent or an empty segment,
// and is nothing exactly where a count of the segments falls below the root.
TEST(ResolveTarget, NeverLeavesThePackage)
{
    const std::string segments[] = {"a", "..", ".", "%2E.", ""};
    for (unsigned code = 0; code < 15625; ++code) {
        std::string target = "x";
        int depth = 3; // "p/q/x"
        bool isInside = true;
        for (unsigned rest = code; rest != 0; rest /= 5) {
            const std::string& segment = segments[rest % 5];
            target += '/' + segment;
            depth += segment == "a" ? 1 : segment == ".." || segment == "%2E." ? -1 : 0;
            isInside = isInside && depth >= 0;
        }
        const auto resolved = resolveTarget("p/q/s.xml", target);
        ASSERT_EQ(resolved.has_value(), isInside && depth > 0) << target;
        if (resolved) {
            ASSERT_EQ(normalizePartName(*resolved), resolved) << target;
        }
    }
}

TEST(MakePartKey, FoldsCaseAndPercents)
{
    EXPECT_EQ(makePartKey("XL/A%20b%C3%A4.XML"), "xl/a b\xC3\xA4.xml");
    EXPECT_EQ(makePartKey("%2541"), "%41");
    EXPECT_EQ(makePartKey("\xC3\x84"), "\xC3\x84"); // only ASCII has case here
}

TEST(MakeRelationshipsPartName, StandsBesideThePart)
{
    EXPECT_EQ(makeRelationshipsPartName(""), "_rels/.rels");
    EXPECT_EQ(makeRelationshipsPartName("a.xml"), "_rels/a.xml.rels");
    EXPECT_EQ(makeRelationshipsPartName("xl/worksheets/sheet1.xml"), "xl/worksheets/_rels/sheet1.xml.rels");
}

TEST(GetPartExtension, IsOfTheLastSegment)
{
    EXPECT_EQ(getPartExtension("xl/media/a.b.PNG"), "png");
    EXPECT_EQ(getPartExtension("xl.d/media"), "");
    EXPECT_EQ(getPartExtension("media"), "");
    EXPECT_EQ(getPartExtension("_rels/.rels"), "rels");
    EXPECT_EQ(getPartExtension("a."), "");
}

TEST(EqualWithoutCase, ComparesAsciiOnly)
{
    EXPECT_TRUE(equalWithoutCase("AbC", "aBc"));
    EXPECT_TRUE(equalWithoutCase("", ""));
    EXPECT_FALSE(equalWithoutCase("ab", "abc"));
    EXPECT_FALSE(equalWithoutCase("[", "{"));
    EXPECT_FALSE(equalWithoutCase("@", "`"));
    EXPECT_FALSE(equalWithoutCase("\xC3\x84", "\xC3\xA4"));
}

} // namespace
} // namespace QV::Filters
