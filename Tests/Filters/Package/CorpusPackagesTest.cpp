// Opens every document of a collection of real files, which lies beside the repository where it is at hand.

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <istream>
#include <memory>
#include <ostream>
#include <string>
#include <system_error>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <FilterUtils/FU_XMLElement.h>
#include <Utils/Public/OperationReport.h>

#include <Filters/Package/ContentTypes.h>
#include <Filters/Package/MainPart.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/PartNames.h>
#include <Filters/Package/Relationships.h>
#include <Filters/Package/XmlParts.h>
#include <Tests/Support/PackageRefusals.h>
#include <Tests/Support/XercesEnvironment.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;
using testing::StartsWith;
using Tests::findRefusal;

const std::filesystem::path Corpus = "../shared/corpus";

std::vector<std::string> listFiles(const std::string& folder)
{
    std::vector<std::string> paths;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(Corpus / folder, error))
        paths.push_back(entry.path().string());
    std::sort(paths.begin(), paths.end());
    return paths;
}

// Reads a part to its end, and returns its size.
std::uint64_t readPart(Package& package, const std::string& part)
{
    std::vector<char> block(1 << 16);
    std::uint64_t size = 0;
    const std::unique_ptr<std::istream> stream = package.openPart(part);
    do {
        stream->read(block.data(), static_cast<std::streamsize>(block.size()));
        size += static_cast<std::uint64_t>(stream->gcount());
    } while (*stream);
    return size;
}

// As a filter would that reads every XML part of a document, the moderate ones as trees.
void readAll(const std::string& file)
{
    const std::uint64_t moderateSize = 1 << 20;
    OperationReport report;
    Package package = Package::openFile(file);
    const ContentTypes types = ContentTypes::read(package, report);
    findMainPart(package, types, Relationships::read(package, "", report));
    for (const std::string& part : package.getPartNames()) {
        Relationships::read(package, part, report);
        if (readPart(package, part) <= moderateSize && getPartExtension(part) == "xml")
            readXml(package, part, report);
    }
}

struct KindRow
{
    const char* folder;
    DocumentKind kind;
    Vocabulary vocabulary;
    const char* root;
};

void PrintTo(const KindRow& row, std::ostream* out)
{
    *out << row.folder;
}

const KindRow KindRows[] = {
    {"xlsx", DocumentKind::Spreadsheet,  Vocabulary::Spreadsheet,    "workbook"    },
    {"docx", DocumentKind::Text,         Vocabulary::WordProcessing, "document"    },
    {"pptx", DocumentKind::Presentation, Vocabulary::Presentation,   "presentation"},
};

class CorpusPackages : public testing::TestWithParam<KindRow>
{
};

TEST_P(CorpusPackages, OpenAndStartWhereTheySay)
{
    const std::vector<std::string> files = listFiles(GetParam().folder);
    if (!std::filesystem::exists(Corpus))
        GTEST_SKIP() << "the collection of documents is not at hand: " << Corpus.string();
    ASSERT_FALSE(files.empty());
    for (const std::string& file : files) {
        SCOPED_TRACE(file);
        OperationReport report;
        Package package = Package::openFile(file);
        const ContentTypes types = ContentTypes::read(package, report);
        const MainPart main = findMainPart(package, types, Relationships::read(package, "", report));
        EXPECT_TRUE(main.kind == GetParam().kind);
        const std::unique_ptr<std::istream> stream = package.openPart(main.name);
        const std::string root = Names(main.dialect)(GetParam().vocabulary, GetParam().root);
        EXPECT_TRUE(XMLElement::getRootElement(*stream, root, makePartReadOptions()).isValid());
        std::uint64_t size = 0;
        for (const std::string& part : package.getPartNames()) {
            size += readPart(package, part);
            Relationships::read(package, part, report);
        }
        EXPECT_EQ(package.getUnpackedBytes(), size); // whatever was read twice
        for (const OperationReport::Message& message : report.getMessages())
            EXPECT_THAT(message.getText(), testing::Not(StartsWith("Content type")));
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, CorpusPackages, testing::ValuesIn(KindRows),
    [](const auto& row) { return std::string(row.param.folder); });

struct BadRow
{
    const char* name;
    const char* file;
    const char* message; // how it starts; empty where the document can be read, if not all of it
};

void PrintTo(const BadRow& row, std::ostream* out)
{
    *out << row.name;
}

const char* const NoDirectory = "the package is damaged: the directory at its end is missing";
const char* const NoMainPart = "the package has no main part";
const char* const NeedsPassword = "the package is encrypted: it needs a password";

const BadRow BadRows[] = {
    {"Encrypted",      "exceldatareader-standard_AES128_SHA1_ECB_pwd_password.xlsx",             NeedsPassword                                                    },
    {"EncryptedText",  "poi-protected_agile.docx",                                               NeedsPassword                                                    },
    {"OldBinary",      "roo-type_excel.xlsm",                                                    "the file is not a package: a document of an older binary format"},
    {"MalformedSheet", "exceljs-invalid-xml.xlsx",                                               ""                                                               },
    {"NoTypes",        "exceljs-missing-bits.xlsx",                                              NoMainPart                                                       },
    {"NoWorkbook",     "fastexcel-no-workbook-xml.xlsx",                                         NoMainPart                                                       },
    {"NoParts",        "openpyxl-null_archive.xlsx",                                             NoMainPart                                                       },
    {"OtherMainPart",  "poi-stress025.docx",
     "documents whose main part, \"theme/theme/themeManager.xml\", is"                                                                                            },
    {"Truncated",      "poi-truncated62886.docx",                                                NoDirectory                                                      },
    {"Twice",          "poi-duplicate-filename.xlsx",                                            "part \"xl/worksheets/sheet1.xml\" is there twice"               },
    {"Bomb",           "poi-poc-xmlbomb.xlsx",                                                   "part \"xl/sharedStrings.xml\" has a document type declaration"  },
    {"Bombs",          "poi-54764.xlsx",                                                         "part \"xl/sharedStrings.xml\" has a document type declaration"  },
    {"Expansion",      "streamreader-entity-expansion-exploit-poc-file.xlsx",                    "part \"xl/workbook.xml\" has"                                   },
    {"LocalFile",      "poi-xxe_in_schema.xlsx",                                                 ""                                                               },
    {"LargeStrings",   "sheetjs-large_strings.xlsx",                                             ""                                                               },
    {"DanglingTarget", "pypptx-missing_rels_item.pptx",                                          ""                                                               },
    {"BadChecksum",    "poi-clusterfuzz-testcase-minimized-POIXSSFFuzzer-5265527465181184.xlsx",
     "part \"_rels/.rels\" is damaged: its checksum does not fit"                                                                                                 },
};

class BadPackages : public testing::TestWithParam<BadRow>
{
};

TEST_P(BadPackages, EndInOneLine)
{
    const std::string file = (Corpus / "bad" / GetParam().file).string();
    if (!std::filesystem::exists(Corpus))
        GTEST_SKIP() << "the collection of documents is not at hand: " << Corpus.string();
    ASSERT_TRUE(std::filesystem::exists(file)) << file;
    const auto refusal = findRefusal([&] { readAll(file); });
    EXPECT_THAT(refusal ? refusal->message : "", StartsWith(GetParam().message));
    EXPECT_EQ(refusal.has_value(), GetParam().message[0] != '\0');
}

INSTANTIATE_TEST_SUITE_P(Rows, BadPackages, testing::ValuesIn(BadRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(BadPackages, NeverCrash)
{
    const std::vector<std::string> files = listFiles("bad");
    if (!std::filesystem::exists(Corpus))
        GTEST_SKIP() << "the collection of documents is not at hand: " << Corpus.string();
    ASSERT_FALSE(files.empty());
    for (const std::string& file : files) {
        SCOPED_TRACE(file);
        const auto refusal = findRefusal([&] { readAll(file); });
        EXPECT_THAT(refusal ? refusal->message : "", testing::Not(testing::HasSubstr("\n")));
    }
}

} // namespace
} // namespace QV::Filters
