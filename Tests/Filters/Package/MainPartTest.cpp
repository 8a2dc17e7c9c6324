#include <Filters/Package/MainPart.h>

#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Utils/Public/OperationReport.h>

#include <Filters/Package/ContentTypes.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/PackageError.h>
#include <Filters/Package/Relationships.h>
#include <Tests/Support/OoxmlBuilder.h>
#include <Tests/Support/PackageRefusals.h>
#include <Tests/Support/XercesEnvironment.h>
#include <Tests/Support/ZipBuilder.h>

namespace QV::Filters {
namespace {

using Tests::expectRefusal;
using Tests::makeContentTypes;
using Tests::makeOverride;
using Tests::makeRelationship;
using Tests::makeRelationships;
using Tests::makeZip;
using Tests::StrictTypes;
using Tests::TransitionalTypes;
using Tests::WorkbookType;
using Tests::ZipItem;
using Kind = PackageError::Kind;

MainPart findMainPart(const std::vector<ZipItem>& items)
{
    OperationReport report;
    Package package = Package::openBytes(makeZip(items));
    const ContentTypes types = ContentTypes::read(package, report);
    return Filters::findMainPart(package, types, Relationships::read(package, "", report));
}

ZipItem makeRoot(const std::string& types, const std::string& target)
{
    return makeRelationships("_rels/.rels", makeRelationship("a", types + "officeDocument", target));
}

struct TypeRow
{
    const char* name;
    std::string contentType;
    boost::optional<DocumentKind> kind;
};

void PrintTo(const TypeRow& row, std::ostream* out)
{
    *out << row.name;
}

const std::string Office = "application/vnd.openxmlformats-officedocument.";
const boost::optional<DocumentKind> Spreadsheet(DocumentKind::Spreadsheet);
const boost::optional<DocumentKind> Text(DocumentKind::Text);
const boost::optional<DocumentKind> Presentation(DocumentKind::Presentation);

const TypeRow TypeRows[] = {
    {"Xlsx",       WorkbookType,                                                                 Spreadsheet },
    {"Xltx",       Office + "spreadsheetml.template.main+xml",                                   Spreadsheet },
    {"Xlsm",       "application/vnd.ms-excel.sheet.macroEnabled.main+xml",                       Spreadsheet },
    {"Xltm",       "application/vnd.ms-excel.template.macroEnabled.main+xml",                    Spreadsheet },
    {"Xlam",       "application/vnd.ms-excel.addin.macroEnabled.main+xml",                       Spreadsheet },
    {"Docx",       Office + "wordprocessingml.document.main+xml",                                Text        },
    {"Dotx",       Office + "wordprocessingml.template.main+xml",                                Text        },
    {"Docm",       "application/vnd.ms-word.document.macroEnabled.main+xml",                     Text        },
    {"Dotm",       "application/vnd.ms-word.template.macroEnabledTemplate.main+xml",             Text        },
    {"Pptx",       Office + "presentationml.presentation.main+xml",                              Presentation},
    {"Ppsx",       Office + "presentationml.slideshow.main+xml",                                 Presentation},
    {"Potx",       Office + "presentationml.template.main+xml",                                  Presentation},
    {"Pptm",       "application/vnd.ms-powerpoint.presentation.macroEnabled.main+xml",           Presentation},
    {"Ppsm",       "application/vnd.ms-powerpoint.slideshow.macroEnabled.main+xml",              Presentation},
    {"Potm",       "application/vnd.ms-powerpoint.template.macroEnabled.main+xml",               Presentation},
    {"Ppam",       "application/vnd.ms-powerpoint.addin.macroEnabled.main+xml",                  Presentation},
    {"OtherCase",  "Application/VND.openxmlformats-officedocument.SpreadsheetML.sheet.main+xml", Spreadsheet },
    {"Parameters", WorkbookType + " ; charset=utf-8",                                            Spreadsheet },
    {"Sheet",      Office + "spreadsheetml.worksheet+xml",                                       boost::none },
    {"Xlsb",       "application/vnd.ms-excel.sheet.binary.macroEnabled.main",                    boost::none },
    {"Empty",      "",                                                                           boost::none },
};

class FindDocumentKind : public testing::TestWithParam<TypeRow>
{
};

TEST_P(FindDocumentKind, KeepsRow)
{
    EXPECT_TRUE(findDocumentKind(GetParam().contentType) == GetParam().kind);
}

INSTANTIATE_TEST_SUITE_P(Rows, FindDocumentKind, testing::ValuesIn(TypeRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(FindMainPart, FollowsTheRelationship)
{
    const MainPart part = findMainPart({
        makeContentTypes(makeOverride("/a/b.xml", WorkbookType) + makeOverride("/a/c.xml", WorkbookType)),
        makeRoot(StrictTypes, "/A/c.xml"),
        {"a/b.xml", ""},
        {"a/c.xml", ""},
    });
    EXPECT_EQ(part.name, "a/c.xml");
    EXPECT_EQ(part.contentType, WorkbookType);
    EXPECT_EQ(part.kind, DocumentKind::Spreadsheet);
    EXPECT_EQ(part.dialect, Dialect::Strict);
}

TEST(FindMainPart, FallsBackToContentTypes)
{
    for (const ZipItem& root : {
             makeRoot(TransitionalTypes, "missing.xml"), ZipItem{"other.xml", ""}
    }) {
        const MainPart part = findMainPart({
            makeContentTypes(makeOverride("/b.xml", WorkbookType)), root, {"a.xml", ""},
               {"b.xml", ""}
        });
        EXPECT_EQ(part.name, "b.xml");
        EXPECT_EQ(part.kind, DocumentKind::Spreadsheet);
        EXPECT_EQ(part.dialect, Dialect::Transitional);
    }
}

TEST(FindMainPart, FallsBackToFolders)
{
    const auto findKind = [](const std::string& part, const std::string& type) {
        return findMainPart({
                                makeContentTypes(makeOverride('/' + part, type)),
                                makeRoot(TransitionalTypes, part), {part, ""}
        })
            .kind;
    };
    EXPECT_EQ(findKind("XL/book.xml", "application/xml"), DocumentKind::Spreadsheet);
    EXPECT_EQ(findKind("word/document.xml", ""), DocumentKind::Text);
    EXPECT_EQ(findKind("ppt/presentation.xml", "text/xml"), DocumentKind::Presentation);
    EXPECT_EQ(findKind("ppt/presentation.xml", "Application/Octet-Stream"), DocumentKind::Presentation);
}

struct RefusedRow
{
    const char* name;
    std::vector<ZipItem> items;
    Kind kind;
    std::string part;
    std::string message;
};

void PrintTo(const RefusedRow& row, std::ostream* out)
{
    *out << row.name;
}

const ZipItem Root = makeRoot(TransitionalTypes, "a.xml");
const ZipItem Main = {"a.xml", ""};

const RefusedRow RefusedRows[] = {
    {"Nothing",     {},                                                                            Kind::MissingPart, "",      "the package has no main part"             },
    {"External",
     {makeRelationships("_rels/.rels", makeRelationship("a", TransitionalTypes + "officeDocument",
                                              "http://a/xl/a.xml", "TargetMode='External'"))},
     Kind::MissingPart,                                                                                               "",      "the package has no main part"             },
    {"Xlsb",
     {makeContentTypes(makeOverride("/a.xml", "application/vnd.ms-excel.sheet.binary.macroEnabled.main")),
            Root, Main},
     Kind::Unsupported,                                                                                               "a.xml", "binary workbooks (xlsb) are not supported"},
    {"OtherType",   {makeContentTypes(makeOverride("/a.xml", "application/other\n")), Root, Main},
     Kind::Unsupported,                                                                                               "a.xml",
     "documents whose main part, \"a.xml\", is of the type \"application/other \" are not supported"                                                                      },
    {"UnknownType", {Root, Main},                                                                  Kind::Unsupported, "a.xml",
     "documents whose main part, \"a.xml\", is of the type \"\" are not supported"                                                                                        },
    {"OtherFamily", {{"mimetype", "application/vnd.example\x1B", true}, Main},                     Kind::Unsupported, "",
     "documents of the type \"application/vnd.example\\x1B\" are not supported"                                                                                           },
};

class RefusedMainPart : public testing::TestWithParam<RefusedRow>
{
};

TEST_P(RefusedMainPart, EndsInAnError)
{
    std::vector<ZipItem> items = GetParam().items;
    items.push_back({"some.bin", ""});
    expectRefusal([&] { findMainPart(items); }, GetParam().kind, GetParam().part, GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(Rows, RefusedMainPart, testing::ValuesIn(RefusedRows),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace QV::Filters
