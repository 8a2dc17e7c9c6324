#include <ostream>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <FilterUtils/FU_XMLStreamReader.h>
#include <FilterUtils/FU_XMLVocabulary.h>
#include <Utils/Public/OperationReport.h>

#include <Filters/Package/Namespaces.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/PackageError.h>
#include <Filters/Package/XmlParts.h>
#include <Tests/Support/PackageRefusals.h>
#include <Tests/Support/XercesEnvironment.h>
#include <Tests/Support/ZipBuilder.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLFlow;
using FilterUtils::XMLStep;
using FilterUtils::XMLStreamEnd;
using FilterUtils::XMLStreamStart;
using FilterUtils::XMLVocabulary;
using testing::ElementsAre;
using testing::IsEmpty;
using Tests::expectRefusal;
using Tests::makeZip;
using Tests::replaceBytes;
using Kind = PackageError::Kind;

const std::string Part = "xl/a.xml";

enum Word
{
    Root,
    Cell,
    Halt,
    Throw
};

const XMLVocabulary& getWords()
{
    static const XMLVocabulary words(
        {
            makeXmlNamespace("x", Vocabulary::Spreadsheet)
    },
        {{Root, "x:r"}, {Cell, "x:c"}, {Halt, "x:halt"}, {Throw, "x:throw"}});
    return words;
}

// Gathers the texts of cells.
class Cells : public FilterUtils::XMLStreamHandler
{
public:
    XMLStep onStart(const XMLStreamStart& element) override
    {
        if (element.getId() == Throw)
            throw std::runtime_error("thrown by the handler");
        if (element.getId() == Halt)
            return XMLStep::Stop;
        return element.getId() == Cell ? XMLStep::EnterText : XMLStep::Enter;
    }

    XMLFlow onEnd(const XMLStreamEnd& element) override
    {
        if (element.getId() == Cell) {
            element.appendText(texts);
            texts += ';';
        }
        return XMLFlow::Continue;
    }

    std::string texts;
};

std::string makeSheet(const std::string& content, Dialect dialect = Dialect::Transitional)
{
    return "<r xmlns='" + getNamespace(Vocabulary::Spreadsheet, dialect) + "'>" + content + "</r>";
}

struct Row
{
    const char* name;
    std::string content;
    std::string texts;
    std::string message; // empty where the part is read
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

const std::string Malformed = "Part xl/a.xml is not well-formed XML, line ";

const Row Rows[] = {
    {"Transitional", makeSheet("<c>1</c><c>2</c>"), "1;2;",           ""                                    },
    {"Strict",       makeSheet("<c>1</c><c>2</c>",  Dialect::Strict), "1;2;",                                 ""},
    {"OtherName",              "<r><c>1</c></r>",                                 "",                   ""                      },
    {"Stopped",              makeSheet("<c>1</c><halt/><c>2</c><"),                                   "1;", ""},
    {"Malformed",              makeSheet("<c>1</c>\n<c>2</d>"),                                 "1;",     Malformed + "2"                            },
    {"Empty",              "",                                     "",                                      Malformed + "1"         },
};

class ReadXmlStream : public testing::TestWithParam<Row>
{
};

TEST_P(ReadXmlStream, KeepsRow)
{
    Package package = Package::openBytes(makeZip({
        {Part, GetParam().content}
    }));
    OperationReport report;
    Cells cells;
    EXPECT_EQ(readXmlStream(package, Part, getWords(), cells, report), GetParam().message.empty());
    EXPECT_EQ(cells.texts, GetParam().texts);
    ASSERT_EQ(report.getMessages().size(), GetParam().message.empty() ? 0U : 1U);
    if (!GetParam().message.empty()) {
        EXPECT_EQ(report.getMessages()[0].toString(), GetParam().message);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadXmlStream, testing::ValuesIn(Rows),
    [](const auto& row) { return std::string(row.param.name); });

void expectStreamRefusal(const std::string& zip, Kind kind, const std::string& message)
{
    Package package = Package::openBytes(zip);
    OperationReport report;
    Cells cells;
    expectRefusal([&] { readXmlStream(package, Part, getWords(), cells, report); }, kind, Part,
        "part \"xl/a.xml\" " + message);
    EXPECT_THAT(report.getMessages(), IsEmpty());
}

TEST(ReadXmlStream, RefusesWhatTreesRefuse)
{
    std::string nested;
    for (int i = 0; i < 1001; ++i)
        nested += "<a>";
    expectStreamRefusal(makeZip({
                            {Part, "<!DOCTYPE r><r/>"}
    }),
        Kind::Refused, "has a document type declaration, which packages may not have");
    expectStreamRefusal(makeZip({
                            {Part, "<?xml version='1.0' encoding='windows-1252'?><r/>"}
    }),
        Kind::Refused, "is in an encoding other than UTF-8, UTF-16 and ISO-8859-1");
    expectStreamRefusal(makeZip({
                            {Part, nested}
    }),
        Kind::LimitExceeded,
        "breaks a limit of XML in line 1: elements are nested deeper than 1000 levels (1001; the limit is "
        "1000)");
    expectStreamRefusal(replaceBytes(makeZip({
                                         {Part, makeSheet("<c>honest</c>"), true}
    }),
                            "honest", "forged"),
        Kind::Damaged, "is damaged: its checksum does not fit");
}

TEST(ReadXmlStream, IsNotBoundByTheLimitOfTrees)
{
    PackageLimits limits;
    limits.treeBytes = 10;
    Package package = Package::openBytes(makeZip({
                                             {Part, makeSheet("<c>1</c>")}
    }),
        limits);
    OperationReport report;
    Cells cells;
    EXPECT_TRUE(readXmlStream(package, Part, getWords(), cells, report));
    EXPECT_EQ(cells.texts, "1;");
}

TEST(ReadXmlStream, PassesOnWhatTheHandlerThrows)
{
    Package package = Package::openBytes(makeZip({
        {Part, makeSheet("<c>1</c><throw/>")}
    }));
    OperationReport report;
    Cells cells;
    EXPECT_THROW(readXmlStream(package, Part, getWords(), cells, report), std::runtime_error);
    EXPECT_THAT(report.getMessages(), IsEmpty());
}

TEST(MakeXmlNamespace, HoldsEachUriOnce)
{
    const auto drawing = makeXmlNamespace("a", Vocabulary::Drawing);
    EXPECT_EQ(drawing.alias, "a");
    EXPECT_THAT(drawing.uris, ElementsAre("http://schemas.openxmlformats.org/drawingml/2006/main",
                                  "http://purl.oclc.org/ooxml/drawingml/main"));
    EXPECT_THAT(makeXmlNamespace("mc", Vocabulary::MarkupCompatibility).uris,
        ElementsAre("http://schemas.openxmlformats.org/markup-compatibility/2006"));
}

} // namespace
} // namespace QV::Filters
