#include <Utils/Public/MIME.h>

#include <iterator>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include <boost/optional/optional_io.hpp>
#include <gtest/gtest.h>

namespace QV {
namespace {

std::string makeShort(std::size_t value)
{
    return {static_cast<char>(value & 0xff), static_cast<char>(value >> 8 & 0xff)};
}

// An entry of a zip file; its content follows as it is, whatever the method says.
std::string makeEntry(
    const std::string& name, const std::string& content, std::size_t method, std::size_t flags = 0)
{
    const std::string size = flags == 0 ? makeShort(content.size()) + makeShort(0) : std::string(4, '\0');
    return "PK\x03\x04" + makeShort(20) + makeShort(flags) + makeShort(method) + std::string(8, '\0') + size +
           size + makeShort(name.size()) + makeShort(2) + name + "xx" + content;
}

constexpr std::size_t Stored = 0;
constexpr std::size_t Deflated = 8;
constexpr std::size_t SizeFollows = 8;

std::string makePackage(const std::vector<std::string>& partNames, std::size_t flags = 0)
{
    std::string package = makeEntry("[Content_Types].xml", "not readable", Deflated, flags);
    for (const std::string& name : partNames)
        package += makeEntry(name, "not readable", Deflated, flags);
    return package;
}

std::string makeTypedPackage(const std::string& mainPartType)
{
    return makeEntry("[Content_Types].xml",
               "<Override PartName=\"/main.xml\" ContentType=\"application/vnd." + mainPartType + "\"/>",
               Stored) +
           makeEntry("word/document.xml", "", Deflated);
}

const std::string OOXML = "application/vnd.openxmlformats-officedocument.";
const std::string MS = "application/vnd.ms-";
const std::string ODF = "application/vnd.oasis.opendocument.";
const std::string EndOfEmptyArchive = "PK\x05\x06" + std::string(18, '\0');

const std::string PlainZip = makeEntry("a.txt", "a", Stored);
const std::string ZipCutShort = makeEntry("a", std::string(300, 'a'), Stored).substr(0, 40);
const std::string PackageInsideAnEntry = makeEntry("a.docx", makePackage({"word/document.xml"}), Stored);
const std::string SizesBehindEntries = makePackage({"docProps/app.xml", "word/document.xml"}, SizeFollows);
const std::string OpenTypeCompressed = makeEntry("mimetype", ODF + "text", Deflated);

std::string makeOpenPackage(const std::string& mimeType)
{
    return makeEntry("mimetype", mimeType, Stored) + makeEntry("content.xml", "not readable", Deflated);
}

struct PackageRow
{
    const char* name;
    std::string content;
    std::string mimeType;
};

void PrintTo(const PackageRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.content.substr(0, 60));
}

const PackageRow PackageRows[] = {
    {"Zip",                  PlainZip,                                                    "application/zip"                        },
    {"ZipOfNothing",         EndOfEmptyArchive,                                           "application/zip"                        },
    {"ZipCutShort",          "PK\x03\x04",                                                "application/zip"                        },
    {"ZipOfLyingSize",       ZipCutShort,                                                 "application/zip"                        },
    {"Text",                 makePackage({"_rels/.rels", "word/document.xml"}),           OOXML + "wordprocessingml.document"      },
    {"Sheets",               makePackage({"xl/workbook.xml"}),                            OOXML + "spreadsheetml.sheet"            },
    {"Slides",               makePackage({"ppt/presentation.xml"}),                       OOXML + "presentationml.presentation"    },
    {"BinarySheets",         makePackage({"xl/workbook.bin"}),                            MS + "excel.sheet.binary.macroEnabled.12"},
    {"TextWithMacros",       makePackage({"word/document.xml", "word/vbaProject.bin"}),
     MS + "word.document.macroEnabled.12"                                                                                          },
    {"SheetsWithMacros",     makePackage({"xl/vbaProject.bin", "xl/workbook.xml"}),
     MS + "excel.sheet.macroEnabled.12"                                                                                            },
    {"SlidesWithMacros",     makePackage({"ppt/presentation.xml", "ppt/vbaProject.bin"}),
     MS + "powerpoint.presentation.macroEnabled.12"                                                                                },
    {"SizesBehindEntries",   SizesBehindEntries,                                          OOXML + "wordprocessingml.document"      },
    {"PackageInsideAnEntry", PackageInsideAnEntry,                                        "application/zip"                        },
    {"PackageOfOtherParts",  makePackage({"Documents/1/Pages/1.fpage"}),                  "application/zip"                        },
    {"OpenText",             makeOpenPackage(ODF + "text"),                               ODF + "text"                             },
    {"OpenTextTemplate",     makeOpenPackage(ODF + "text-template"),                      ODF + "text-template"                    },
    {"OpenSheets",           makeOpenPackage(ODF + "spreadsheet"),                        ODF + "spreadsheet"                      },
    {"OpenSlides",           makeOpenPackage(ODF + "presentation"),                       ODF + "presentation"                     },
    {"OpenTypeCompressed",   OpenTypeCompressed,                                          "application/zip"                        },
    {"OpenTypeUnknown",      makeOpenPackage("application/epub+zip"),                     "application/zip"                        },
};

struct TypeRow
{
    const char* name;
    std::string mainPartType; // in the list of content types, without what all of them begin with
    std::string mimeType;
};

void PrintTo(const TypeRow& row, std::ostream* out)
{
    *out << row.mainPartType;
}

const TypeRow TypeRows[] = {
    {"Text",               "openxmlformats-officedocument.wordprocessingml.document.main+xml",
     OOXML + "wordprocessingml.document"                                                                                                  },
    {"TextTemplate",       "openxmlformats-officedocument.wordprocessingml.template.main+xml",
     OOXML + "wordprocessingml.template"                                                                                                  },
    {"TextMacroTemplate",  "ms-word.template.macroEnabledTemplate.main+xml",
     MS + "word.template.macroEnabled.12"                                                                                                 },
    {"TextWithMacros",     "ms-word.document.macroEnabled.main+xml",                             MS + "word.document.macroEnabled.12"     },
    {"Sheets",             "openxmlformats-officedocument.spreadsheetml.sheet.main+xml",         OOXML + "spreadsheetml.sheet"            },
    {"SheetTemplate",      "openxmlformats-officedocument.spreadsheetml.template.main+xml",
     OOXML + "spreadsheetml.template"                                                                                                     },
    {"SheetsWithMacros",   "ms-excel.sheet.macroEnabled.main+xml",                               MS + "excel.sheet.macroEnabled.12"       },
    {"SheetMacroTemplate", "ms-excel.template.macroEnabled.main+xml",                            MS + "excel.template.macroEnabled.12"    },
    {"AddIn",              "ms-excel.addin.macroEnabled.main+xml",                               MS + "excel.addin.macroEnabled.12"       },
    {"BinarySheets",       "ms-excel.sheet.binary.macroEnabled.main",                            MS + "excel.sheet.binary.macroEnabled.12"},
    {"Slides",             "openxmlformats-officedocument.presentationml.presentation.main+xml",
     OOXML + "presentationml.presentation"                                                                                                },
    {"SlideTemplate",      "openxmlformats-officedocument.presentationml.template.main+xml",
     OOXML + "presentationml.template"                                                                                                    },
    {"SlideShow",          "openxmlformats-officedocument.presentationml.slideshow.main+xml",
     OOXML + "presentationml.slideshow"                                                                                                   },
    {"SlidesWithMacros",   "ms-powerpoint.presentation.macroEnabled.main+xml",
     MS + "powerpoint.presentation.macroEnabled.12"                                                                                       },
    {"SlideMacroTemplate", "ms-powerpoint.template.macroEnabled.main+xml",
     MS + "powerpoint.template.macroEnabled.12"                                                                                           },
    {"SlideMacroShow",     "ms-powerpoint.slideshow.macroEnabled.main+xml",
     MS + "powerpoint.slideshow.macroEnabled.12"                                                                                          },
};

void expectType(const std::string& content, const std::string& mimeType)
{
    std::istringstream stream(content);
    EXPECT_EQ(detectMIMETypePreservingStream(stream), mimeType);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()), content);
    EXPECT_TRUE(getFileExtensionByMIMEType(mimeType));
}

class PackageDetection : public testing::TestWithParam<PackageRow>
{
};

TEST_P(PackageDetection, KnowsTheKind)
{
    expectType(GetParam().content, GetParam().mimeType);
}

TEST_P(PackageDetection, AcceptsContentCutAnywhere)
{
    const std::string& content = GetParam().content;
    for (std::size_t size = 4; size < content.size(); ++size) {
        std::istringstream stream(content.substr(0, size));
        EXPECT_TRUE(detectMIMETypePreservingStream(stream)) << size;
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, PackageDetection, testing::ValuesIn(PackageRows),
    [](const auto& row) { return std::string(row.param.name); });

class MainPartTypeDetection : public testing::TestWithParam<TypeRow>
{
};

TEST_P(MainPartTypeDetection, OutweighsTheNamesOfParts)
{
    expectType(makeTypedPackage(GetParam().mainPartType), GetParam().mimeType);
}

INSTANTIATE_TEST_SUITE_P(Rows, MainPartTypeDetection, testing::ValuesIn(TypeRows),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace QV
