#include <Filters/Package/XmlParts.h>

#include <ostream>
#include <string>

#include <boost/optional/optional_io.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <FilterUtils/FU_XMLElement.h>
#include <Utils/Public/OperationReport.h>

#include <Filters/Package/Package.h>
#include <Filters/Package/PackageError.h>
#include <Tests/Support/PackageRefusals.h>
#include <Tests/Support/XercesEnvironment.h>
#include <Tests/Support/ZipBuilder.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::expectRefusal;
using Tests::makeZip;
using Tests::replaceBytes;
using Kind = PackageError::Kind;

const std::string Part = "xl/a.xml";

std::string nest(int depth)
{
    std::string text;
    for (int i = 0; i < depth; ++i)
        text += "<a>";
    for (int i = 0; i < depth; ++i)
        text += "</a>";
    return text;
}

std::string makeAttributes(int count)
{
    std::string text = "<a";
    for (int i = 0; i < count; ++i)
        text += " a" + std::to_string(i) + "=''";
    return text + "/>";
}

// UTF-16 of ASCII, with a byte order mark.
std::string makeUtf16(const std::string& text)
{
    std::string bytes = "\xFF\xFE";
    for (const char character : text)
        bytes += std::string{character, '\0'};
    return bytes;
}

struct RefusedRow
{
    const char* name;
    std::string content;
    Kind kind;
    std::string message; // after: part "xl/a.xml"
};

void PrintTo(const RefusedRow& row, std::ostream* out)
{
    *out << row.name;
}

const char* const Doctype = "has a document type declaration, which packages may not have";
const char* const Encoding = "is in an encoding other than UTF-8, UTF-16 and ISO-8859-1";

const RefusedRow RefusedRows[] = {
    {"Doctype",      "<!DOCTYPE a><a/>",                                                     Kind::Refused,       Doctype },
    {"DoctypeUtf16", makeUtf16("<!DOCTYPE a><a/>"),                                          Kind::Refused,       Doctype },
    {"Bomb",         "<!DOCTYPE a [<!ENTITY b \"b\"><!ENTITY c \"&b;&b;\">]><a>&c;</a>",     Kind::Refused,       Doctype },
    {"LocalFile",    "<!DOCTYPE a [<!ENTITY b SYSTEM \"file:///etc/hostname\">]><a>&b;</a>", Kind::Refused,
     Doctype                                                                                                              },
    {"Latin9",       "<?xml version='1.0' encoding='ISO-8859-15'?><a/>",                     Kind::Refused,       Encoding},
    {"Windows",      "<?xml version='1.0' encoding='windows-1252'?><a/>",                    Kind::Refused,       Encoding},
    {"Depth",        nest(1001),                                                             Kind::LimitExceeded,
     "breaks a limit of XML in line 1: elements are nested deeper than 1000 levels (1001; the limit is "
        "1000)"                                                                                                           },
    {"Attributes",   makeAttributes(1001),                                                   Kind::LimitExceeded,
     "breaks a limit of XML in line 1: an element has more than 1000 attributes (1001; the limit is "
        "1000)"                                                                                                           },
};

class RefusedXml : public testing::TestWithParam<RefusedRow>
{
};

TEST_P(RefusedXml, EndsInAnError)
{
    Package package = Package::openBytes(makeZip({
        {Part, GetParam().content}
    }));
    OperationReport report;
    expectRefusal([&] { readXml(package, Part, report); }, GetParam().kind, Part,
        "part \"xl/a.xml\" " + GetParam().message);
    EXPECT_THAT(report.getMessages(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, RefusedXml, testing::ValuesIn(RefusedRows),
    [](const auto& row) { return std::string(row.param.name); });

struct ReadRow
{
    const char* name;
    std::string content;
    const char* line; // of the malformed place, or null where the part is read
};

void PrintTo(const ReadRow& row, std::ostream* out)
{
    *out << row.name;
}

const ReadRow ReadRows[] = {
    {"Utf8",        "<a/>",                                                   nullptr},
    {"Utf8Mark",    "\xEF\xBB\xBF<?xml version='1.0' encoding='utf-8'?><a/>", nullptr},
    {"Latin1",      "<?xml version='1.0' encoding='ISO-8859-1'?><a/>",        nullptr},
    {"Ascii",       "<?xml version='1.0' encoding='US-ASCII'?><a/>",          nullptr},
    {"Utf16",       makeUtf16("<?xml version='1.0' encoding='UTF-16'?><a/>"), nullptr},
    {"UsAscii",     "<?xml version='1.0'?>\n<a/>\n",                          nullptr},
    {"Depth",       nest(1000),                                               nullptr},
    {"Attributes",  makeAttributes(1000),                                     nullptr},
    {"Empty",       "",                                                       "1"    },
    {"Text",        "text",                                                   "1"    },
    {"Unclosed",    "<a>\n\n<b>",                                             "3"    },
    {"InvalidUtf8", "<a>\xFF</a>",                                            "1"    },
};

class ReadXml : public testing::TestWithParam<ReadRow>
{
};

TEST_P(ReadXml, KeepsRow)
{
    Package package = Package::openBytes(makeZip({
        {Part, GetParam().content}
    }));
    OperationReport report;
    const FilterUtils::XMLElement root = readXml(package, Part, report);
    EXPECT_EQ(root.isValid(), GetParam().line == nullptr);
    if (!GetParam().line) {
        EXPECT_THAT(report.getMessages(), IsEmpty());
        return;
    }
    ASSERT_EQ(report.getMessages().size(), 1U);
    EXPECT_EQ(report.getMessages()[0].getText(), "Part {} is not well-formed XML, line {}");
    EXPECT_EQ(report.getMessages()[0].toString(),
        "Part xl/a.xml is not well-formed XML, line " + std::string(GetParam().line));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ReadXml, testing::ValuesIn(ReadRows), [](const auto& row) { return std::string(row.param.name); });

TEST(ReadXml, TreesHaveALimitOfTheirOwn)
{
    const std::string zip = makeZip({
        {Part, "<a>12345678</a>"}
    });
    PackageLimits limits;
    limits.treeBytes = 15;
    OperationReport report;
    Package exact = Package::openBytes(zip, limits);
    EXPECT_EQ(readXml(exact, Part, report).getText(), std::string("12345678"));
    limits.treeBytes = 14;
    Package less = Package::openBytes(zip, limits);
    expectRefusal([&] { readXml(less, Part, report); }, Kind::LimitExceeded, Part,
        "part \"xl/a.xml\" holds 15 bytes or more; the limit for a part that is read as a tree is 14");
}

TEST(ReadXml, ErrorsOfThePackagePassThrough)
{
    const std::string zip = replaceBytes(makeZip({
                                             {Part, "<a>honest</a>", true}
    }),
        "honest", "forged");
    Package package = Package::openBytes(zip);
    OperationReport report;
    expectRefusal([&] { readXml(package, Part, report); }, Kind::Damaged, Part,
        "part \"xl/a.xml\" is damaged: its checksum does not fit");
    expectRefusal(
        [&] { readXml(package, "b.xml", report); }, Kind::MissingPart, "b.xml", "part \"b.xml\" is missing");
    EXPECT_THAT(report.getMessages(), IsEmpty());
}

} // namespace
} // namespace QV::Filters
