#include <Filters/Package/ContentTypes.h>

#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Utils/Public/OperationReport.h>

#include <Filters/Package/Package.h>
#include <Tests/Support/OoxmlBuilder.h>
#include <Tests/Support/XercesEnvironment.h>
#include <Tests/Support/ZipBuilder.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::makeContentTypes;
using Tests::makeOverride;
using Tests::makeZip;

std::vector<std::string> getTexts(const OperationReport& report)
{
    std::vector<std::string> texts;
    for (const OperationReport::Message& message : report.getMessages())
        texts.push_back(message.toString());
    return texts;
}

ContentTypes readTypes(const std::string& elements, OperationReport& report)
{
    Package package = Package::openBytes(makeZip({makeContentTypes(elements)}));
    return ContentTypes::read(package, report);
}

struct TypeRow
{
    const char* name;
    std::string part;
    std::string type;
};

void PrintTo(const TypeRow& row, std::ostream* out)
{
    *out << row.name;
}

const TypeRow TypeRows[] = {
    {"ByPart",               "xl/workbook.xml",    "main" },
    {"ByPartInOtherCase",    "/XL/WorkBook.xml",   "main" },
    {"ByPartWithBackslash",  "xl\\workbook.xml",   "main" },
    {"ByPartWithPercent",    "xl/a%20b.xml",       "blank"},
    {"ByPartWithBlank",      "xl/a b.xml",         "blank"},
    {"ByExtension",          "xl/other.xml",       "any"  },
    {"ByExtensionOtherCase", "xl/other.XML",       "any"  },
    {"DefaultInOtherCase",   "xl/media/a.png",     "png"  },
    {"WithoutExtension",     "xl/other",           ""     },
    {"UnknownExtension",     "xl/other.bin",       ""     },
    {"DotInTheFolder",       "xl.xml/other",       ""     },
    {"PartWithoutExtension", "data",               "data" },
    {"NotAPartName",         "../xl/workbook.xml", ""     },
};

class GetType : public testing::TestWithParam<TypeRow>
{
};

TEST_P(GetType, KeepsRow)
{
    OperationReport report;
    const ContentTypes types =
        readTypes("<Default Extension=\"xml\" ContentType=\"any\"/>"
                  "<Default Extension=\"PNG\" ContentType=\"png\"/>" +
                      makeOverride("/xl/workbook.xml", "main") + makeOverride("xl/A%20b.xml", "blank") +
                      makeOverride("/data", "data"),
            report);
    EXPECT_EQ(types.getType(GetParam().part), GetParam().type);
    EXPECT_THAT(getTexts(report), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, GetType, testing::ValuesIn(TypeRows), [](const auto& row) { return std::string(row.param.name); });

TEST(ContentTypes, SkipsWhatIsWrong)
{
    OperationReport report;
    const ContentTypes types = readTypes(
        makeOverride("/a.xml", "first") + makeOverride("/A.xml", "second") +
            makeOverride("/../b.xml", "out") +
            "<Override ContentType=\"nowhere\"/><Override PartName=\"/c.xml\"/><Default "
            "ContentType=\"none\"/>"
            "<Default Extension=\"d\" ContentType=\"1\"/><Default Extension=\"D\" ContentType=\"2\"/>"
            "<Other PartName=\"/e.xml\" ContentType=\"3\"/>",
        report);
    EXPECT_EQ(types.getType("a.xml"), "first");
    EXPECT_EQ(types.getType("c.xml"), "");
    EXPECT_EQ(types.getType("x.d"), "1");
    EXPECT_EQ(types.getType("e.xml"), "");
    EXPECT_THAT(getTexts(report),
        ElementsAre("Content type of a.xml is given twice",
            "Content type out is for no part and no extension",
            "Content type nowhere is for no part and no extension",
            "Content type  is for no part and no extension",
            "Content type none is for no part and no extension", "Content type of d is given twice"));
}

TEST(ContentTypes, MayBeMissing)
{
    OperationReport report;
    Package package = Package::openBytes(makeZip({
        {"a.xml", ""}
    }));
    EXPECT_EQ(ContentTypes::read(package, report).getType("a.xml"), "");
    EXPECT_THAT(getTexts(report), ElementsAre("Part [Content_Types].xml is missing"));
}

TEST(ContentTypes, MayBeMalformed)
{
    OperationReport report;
    Package package = Package::openBytes(makeZip({
        {"[Content_Types].xml", "<Types>\n<"}
    }));
    EXPECT_EQ(ContentTypes::read(package, report).getType("a.xml"), "");
    EXPECT_THAT(getTexts(report), ElementsAre("Part [Content_Types].xml is not well-formed XML, line 2"));
}

} // namespace
} // namespace QV::Filters
