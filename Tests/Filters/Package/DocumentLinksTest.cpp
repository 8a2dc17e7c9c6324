#include <Filters/Package/DocumentLinks.h>

#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Filters/Package/Package.h>
#include <Filters/Package/PackageError.h>
#include <Tests/Support/OoxmlBuilder.h>
#include <Tests/Support/TemporaryFolder.h>
#include <Tests/Support/XercesEnvironment.h>
#include <Tests/Support/ZipBuilder.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using namespace Tests; // the builders of packages
using testing::ElementsAre;
using testing::IsEmpty;

const std::string External = "TargetMode=\"External\"";
const std::string Hyperlink = TransitionalTypes + "hyperlink";

std::vector<DocumentLink> readLinks(
    const std::vector<ZipItem>& items, OperationReport& report, const std::string& path = {})
{
    Package package = Package::openBytes(makeZip(items));
    return readDocumentLinks(package, path, report);
}

/// "part id kind target" of each link.
std::vector<std::string> print(const std::vector<DocumentLink>& links)
{
    std::vector<std::string> lines;
    for (const DocumentLink& link : links)
        lines.push_back(link.part + ' ' + link.id + ' ' + link.kind + ' ' + link.target);
    return lines;
}

std::vector<std::string> getTexts(const OperationReport& report)
{
    std::vector<std::string> texts;
    for (const OperationReport::Message& message : report.getMessages())
        texts.push_back(message.toString());
    return texts;
}

std::string makeExternal(const std::string& id, const std::string& target = "a")
{
    return makeRelationship(id, Hyperlink, target, External);
}

const ZipItem NoPackageLinks = makeRelationships("_rels/.rels", "");

TEST(ReadDocumentLinks, GathersThoseOfAllPartsInTheOrderOfTheArchive)
{
    OperationReport report;
    const auto links = readLinks(
        {
            makeRelationships("xl/_rels/workbook.xml.rels",
                makeExternal("b1", "x") + makeRelationship("b2", Hyperlink, "sheet1.xml") +
                    makeExternal("b3", "y")),
            makeRelationships("_rels/.rels", makeExternal("p")),
            makeRelationships("xl/nobody/_rels/refers.to.this.rels", makeExternal("n")),
            makeRelationships("xl/_RELS/odd.XML.RELS", makeExternal("o")),
            makeRelationships("xl/_rels/.rels", makeExternal("f")),
            {"xl/workbook.xml", ""},
            {"xl/sheet1.xml",   ""},
    },
        report);
    EXPECT_THAT(print(links),
        ElementsAre("xl/workbook.xml b1 hyperlink x", "xl/workbook.xml b3 hyperlink y", " p hyperlink a",
            "xl/nobody/refers.to.this n hyperlink a", "xl/odd.XML o hyperlink a", "xl/ f hyperlink a"));
    EXPECT_THAT(getTexts(report), IsEmpty());
}

TEST(ReadDocumentLinks, OtherPartsHaveNone)
{
    OperationReport report;
    const auto links = readLinks(
        {
            NoPackageLinks,
            makeRelationships("xl/rels/workbook.xml.rels", makeExternal("a")),
            makeRelationships("xl/_rels/workbook.xml", makeExternal("b")),
            makeRelationships("xl/x_rels/workbook.xml.rels", makeExternal("c")),
            makeRelationships("xl/_rels/deep/workbook.xml.rels", makeExternal("d")),
            makeRelationships("workbook.xml.rels", makeExternal("e")),
            makeRelationships("xl/_rels/rels", makeExternal("f")),
        },
        report);
    EXPECT_THAT(print(links), IsEmpty());
}

TEST(ReadDocumentLinks, KindsAreTheLastWordsOfTypes)
{
    OperationReport report;
    const auto links =
        readLinks({makeRelationships("_rels/.rels",
                      makeRelationship("a", StrictTypes + "image", "t", External) +
                          makeRelationship("b", "http://example.org/x/y/", "t", External) +
                          makeRelationship("c", "word", "t", "TargetMode='eXTERNAL'") +
                          makeRelationship("d", "", "t", External) +
                          makeRelationship("", TransitionalTypes + "oleObject", "t", External))},
            report);
    EXPECT_THAT(print(links),
        ElementsAre(" a image t", " b http://example.org/x/y/ t", " c word t", " d  t", "  oleObject t"));
    EXPECT_THAT(getTexts(report), ElementsAre("Relationship to t in _rels/.rels has no id"));
}

TEST(ReadDocumentLinks, WhatIsWrongIsReportedAndTheRestIsThere)
{
    OperationReport report;
    const auto links = readLinks(
        {
            makeRelationships("_rels/.rels",
                makeRelationship("a", TransitionalTypes + "attachedTemplate", "t", External) +
                    makeExternal("a", "twice") + "<Relationship Id='n' TargetMode='External'/>" +
                    makeRelationship("m", Hyperlink, "none.xml")),
            {"xl/_rels/broken.xml.rels", "<Relationships"},
            makeRelationships("xl/_rels/sound.xml.rels", makeExternal("s")),
    },
        report);
    EXPECT_THAT(print(links), ElementsAre(" a attachedTemplate t", "xl/sound.xml s hyperlink a"));
    EXPECT_THAT(getTexts(report), ElementsAre("Relationship a in _rels/.rels is there twice",
                                      "Relationship n in _rels/.rels has no type or no target",
                                      "Target none.xml in _rels/.rels is missing",
                                      "Part xl/_rels/broken.xml.rels is not well-formed XML, line 1"));
}

TEST(ReadDocumentLinks, WhatIsNoDocumentIsRefused)
{
    OperationReport report;
    try {
        readLinks(
            {
                {"a.txt", "a"}
        },
            report);
        FAIL() << "a plain archive was read";
    } catch (const PackageError& error) {
        EXPECT_EQ(error.getKind(), PackageError::Kind::MissingPart);
    }
    try {
        readLinks(
            {
                {"mimetype", "application/vnd.oasis.opendocument.text", true}
        },
            report);
        FAIL() << "a document of another family was read";
    } catch (const PackageError& error) {
        EXPECT_EQ(error.getKind(), PackageError::Kind::Unsupported);
    }
    EXPECT_THROW(readLinks(
                     {
                         {"_rels/.rels", "<!DOCTYPE a><a/>"}
    },
                     report),
        PackageError);
}

TEST(ReadDocumentLinks, ADocumentWithoutRelationshipsOfThePackageIsRead)
{
    OperationReport report;
    EXPECT_THAT(print(readLinks(
                    {
                        makeContentTypes(makeOverride("/xl/workbook.xml", WorkbookType)),
                        {"xl/workbook.xml", ""},
                        makeRelationships("xl/_rels/workbook.xml.rels", makeExternal("b")),
    },
                    report)),
        ElementsAre("xl/workbook.xml b hyperlink a"));
}

struct PlaceRow
{
    const char* name;
    const char* target;
    LinkPlace place;
    const char* file; // below the test's folder
};

void PrintTo(const PlaceRow& row, std::ostream* out)
{
    *out << row.name;
}

const PlaceRow PlaceRows[] = {
    {"Beside",          "a.xlsx",             LinkPlace::Found,   "a.xlsx"  },
    {"BesideAsURL",     "file://a.xlsx",      LinkPlace::Found,   "a.xlsx"  },
    {"WithFragment",    "a.xlsx#Sheet1!A1",   LinkPlace::Found,   "a.xlsx"  },
    {"Encoded",         "b%20c.xlsx",         LinkPlace::Found,   "b c.xlsx"},
    {"EncodedFragment", "b%20c.xlsx#%",       LinkPlace::Found,   "b c.xlsx"},
    {"AsItIsFirst",     "d%20e",              LinkPlace::Found,   "d%20e"   },
    {"HashAsItIs",      "f#1",                LinkPlace::Found,   "f#1"     },
    {"DecodedOnce",     "b%2520c.xlsx",       LinkPlace::Missing, ""        },
    {"EncodedHash",     "f%231",              LinkPlace::Found,   "f#1"     },
    {"Missing",         "none.xlsx",          LinkPlace::Missing, ""        },
    {"CapitalScheme",   "FILE://a.xlsx",      LinkPlace::Missing, ""        },
    {"NoSlashes",       "file:a.xlsx",        LinkPlace::Missing, ""        },
    {"Drive",           "C:a.xlsx",           LinkPlace::Missing, ""        },
    {"DriveInURL",      "file:///C:/a.xlsx",  LinkPlace::Missing, ""        },
    {"EncodedNul",      "a.xlsx%00",          LinkPlace::Missing, ""        },
    {"FileOnTheWay",    "a.xlsx/b",           LinkPlace::Missing, ""        },
    {"SystemFolder",    "/proc/1/fd/none",    LinkPlace::Missing, ""        },
    {"Web",             "http://host/a.xlsx", LinkPlace::Remote,  ""        },
    {"Mail",            "mailto:a@b",         LinkPlace::Remote,  ""        },
    {"ShortScheme",     "ab:a.xlsx",          LinkPlace::Remote,  ""        },
    {"OddScheme",       "a+b-c.1:a.xlsx",     LinkPlace::Remote,  ""        },
    {"NoScheme",        "\xC3\xA9:a.xlsx",    LinkPlace::Missing, ""        },
    {"OtherHost",       "//host/a.xlsx",      LinkPlace::Remote,  ""        },
    {"WindowsHost",     "\\\\host\\a.xlsx",   LinkPlace::Remote,  ""        },
    {"Inside",          "#Sheet1!A1",         LinkPlace::Inside,  ""        },
    {"Nothing",         "",                   LinkPlace::Inside,  ""        },
};

class LinkPlaces : public testing::TestWithParam<PlaceRow>
{
};

TEST_P(LinkPlaces, KeepsRow)
{
    const PlaceRow& row = GetParam();
    const TemporaryFolder folder;
    for (const char* file : {"a.xlsx", "b c.xlsx", "d%20e", "d e", "f#1"})
        folder.write(file, "");
    OperationReport report;
    const auto links = readLinks({makeRelationships("_rels/.rels", makeExternal("r", row.target))}, report,
        folder.getPath("book.xlsx"));
    ASSERT_EQ(links.size(), 1U);
    EXPECT_EQ(links[0].target, row.target);
    EXPECT_EQ(std::string(getName(links[0].place)), getName(row.place));
    EXPECT_EQ(links[0].file, row.place == LinkPlace::Found ? folder.getPath(row.file) : "");
}

INSTANTIATE_TEST_SUITE_P(Rows, LinkPlaces, testing::ValuesIn(PlaceRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(LinkPlaceNames, AreWords)
{
    EXPECT_STREQ(getName(LinkPlace::Found), "found");
    EXPECT_STREQ(getName(LinkPlace::Missing), "missing");
    EXPECT_STREQ(getName(LinkPlace::Remote), "remote");
    EXPECT_STREQ(getName(LinkPlace::Inside), "inside");
}

} // namespace
} // namespace QV::Filters
