#include <Filters/Package/Package.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <ostream>
#include <string>
#include <utility>

#include <boost/optional/optional_io.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tests/Support/PackageRefusals.h>
#include <Tests/Support/ZipBuilder.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using Tests::expectRefusal;
using Tests::findRefusal;
using Tests::makeNoise;
using Tests::makeZip;
using Tests::readPart;
using Tests::replaceBytes;
using Kind = PackageError::Kind;

TEST(Package, ReadsWhatWasPacked)
{
    const std::string noise = makeNoise(300000);
    Package package = Package::openBytes(makeZip({
        {"[Content_Types].xml", "types", false},
        {"xl/workbook.xml",     noise,   false},
        {"xl/empty.xml",        "",      false},
        {"xl/stored.bin",       noise,   true },
    }));
    EXPECT_THAT(package.getPartNames(),
        ElementsAre("[Content_Types].xml", "xl/workbook.xml", "xl/empty.xml", "xl/stored.bin"));
    EXPECT_EQ(readPart(package, "[Content_Types].xml"), "types");
    EXPECT_EQ(readPart(package, "xl/workbook.xml"), noise);
    EXPECT_EQ(readPart(package, "xl/empty.xml"), "");
    EXPECT_EQ(readPart(package, "xl/stored.bin"), noise);
}

TEST(Package, OpensAFile)
{
    const std::string path = testing::TempDir() + "PackageTest.zip";
    std::ofstream(path, std::ios::binary) << makeZip({
        {"a.xml", "text"}
    });
    Package package = Package::openFile(path);
    std::remove(path.c_str());
    EXPECT_EQ(readPart(package, "a.xml"), "text");
}

TEST(Package, FindsPartsWithoutCaseAndSpelling)
{
    const Package package = Package::openBytes(makeZip({
        {"XL\\Media\\a%20b.png", ""}
    }));
    const boost::optional<std::string> spelled("XL/Media/a%20b.png");
    EXPECT_EQ(package.findPart("XL/Media/a%20b.png"), spelled);
    EXPECT_EQ(package.findPart("/xl/media/A B.PNG"), spelled);
    EXPECT_EQ(package.findPart("xl\\media\\a b.png"), spelled);
    EXPECT_EQ(package.findPart("xl/media/a b.pn"), boost::none);
    EXPECT_EQ(package.findPart("xl/media"), boost::none);
    EXPECT_EQ(package.findPart("../XL/Media/a b.png"), boost::none);
    EXPECT_EQ(package.findPart(""), boost::none);
}

TEST(Package, IgnoresFolders)
{
    const Package package = Package::openBytes(makeZip({
        {"xl/",      ""},
        {"xl\\b\\",  ""},
        {"../",      ""},
        {"xl/a.xml", ""},
    }));
    EXPECT_THAT(package.getPartNames(), ElementsAre("xl/a.xml"));
}

TEST(Package, SaysWhichPartIsMissing)
{
    Package package = Package::openBytes(makeZip({
        {"a.xml", ""}
    }));
    expectRefusal([&] { package.openPart("b\"\n.xml"); }, Kind::MissingPart, "b\"\n.xml",
        "part \"b\\x22\\x0A.xml\" is missing");
}

TEST(Package, ReadsSeveralPartsAtOnce)
{
    const std::string first = makeNoise(200000);
    const std::string second = std::string(200000, 'x') + first;
    Package package = Package::openBytes(makeZip({
        {"a", first },
        {"b", second},
    }));
    const auto a = package.openPart("a");
    const auto b = package.openPart("b");
    const auto again = package.openPart("a");
    std::string texts[3];
    for (char buffer[1000]; *a || *b || *again;) {
        std::istream* const streams[] = {a.get(), b.get(), again.get()};
        for (std::size_t i = 0; i < 3; ++i) {
            streams[i]->read(buffer, sizeof buffer);
            texts[i].append(buffer, static_cast<std::size_t>(streams[i]->gcount()));
        }
    }
    EXPECT_EQ(texts[0], first);
    EXPECT_EQ(texts[1], second);
    EXPECT_EQ(texts[2], first);
}

TEST(Package, StreamsSeekToAnyPlace)
{
    const std::string noise = makeNoise(300000);
    Package package = Package::openBytes(makeZip({
        {"a", noise, false}
    }));
    const auto part = package.openPart("a");
    EXPECT_EQ(part->tellg(), std::streampos(0));
    std::string bytes(10, 0);
    for (const long place : {0L, 5L, 65535L, 65536L, 65530L, 200000L, 100L, 299990L, 0L}) {
        ASSERT_TRUE(part->seekg(place)) << place;
        ASSERT_EQ(part->tellg(), std::streampos(place));
        ASSERT_TRUE(part->read(&bytes[0], 10)) << place;
        EXPECT_EQ(bytes, noise.substr(static_cast<std::size_t>(place), 10)) << place;
    }
    EXPECT_TRUE(part->seekg(300000));
    EXPECT_EQ(part->get(), std::istream::traits_type::eof());
    part->clear();
    EXPECT_FALSE(part->seekg(300001));
    part->clear();
    EXPECT_FALSE(part->seekg(0, std::ios::end)) << "the size is not known before the end";
    part->clear();
    EXPECT_FALSE(part->seekg(-1));
    part->clear();
    EXPECT_TRUE(part->seekg(3));
    EXPECT_EQ(part->get(), static_cast<unsigned char>(noise[3]));
}

TEST(Package, StreamsOutliveIt)
{
    std::unique_ptr<std::istream> stream;
    {
        Package first = Package::openBytes(makeZip({
            {"a", "text"}
        }));
        Package second = std::move(first);
        stream = second.openPart("a");
    }
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(*stream), {}), "text");
}

struct NameRow
{
    const char* name;
    std::string itemName; // as long as "xl/12345.xml"
    std::string shown;
};

void PrintTo(const NameRow& row, std::ostream* out)
{
    *out << row.name;
}

const NameRow RefusedNameRows[] = {
    {"Parent",           "../12345.xml",    "../12345.xml"    },
    {"ParentInside",     "xl/../../345",    "xl/../../345"    },
    {"Backslashes",      "..\\12345.xml",   "..\\x5C12345.xml"},
    {"Encoded",          "%2e%2e/5.xml",    "%2e%2e/5.xml"    },
    {"Drive",            "C:\\12345.xml",   "C:\\x5C12345.xml"},
    {"Host",             "//12345/.xml",    "//12345/.xml"    },
    {"ControlCharacter", "xl/12\x1Bxy.xml", "xl/12\\x1Bxy.xml"},
    {"Newline",          "xl/12\n45.xml",   "xl/12\\x0A45.xml"},
};

class RefusedName : public testing::TestWithParam<NameRow>
{
};

TEST_P(RefusedName, EndsInAnError)
{
    const std::string zip = replaceBytes(makeZip({
                                             {"xl/12345.xml", "text"}
    }),
        "xl/12345.xml", GetParam().itemName);
    expectRefusal([&] { Package::openBytes(zip); }, Kind::Refused, GetParam().itemName,
        "part \"" + GetParam().shown + "\" has a name that is not allowed");
}

INSTANTIATE_TEST_SUITE_P(Rows, RefusedName, testing::ValuesIn(RefusedNameRows),
    [](const auto& row) { return std::string(row.param.name); });

// No name ends at a NUL for one reader and goes on for another.
TEST(Package, NulInANameIsABlank)
{
    const std::string zip = makeZip({
        {"xl/12345.xml", "text"}
    });
    Package package = Package::openBytes(replaceBytes(zip, "12345", std::string("12\0xy", 5)));
    EXPECT_THAT(package.getPartNames(), ElementsAre("xl/12 xy.xml"));
    EXPECT_EQ(readPart(package, "xl/12 xy.xml"), "text");
}

TEST(Package, NamesWithoutTheUtf8MarkAreOfCodePage437)
{
    const std::string zip = makeZip({
        {"xl/1.xml", ""}
    });
    const Package package = Package::openBytes(replaceBytes(zip, "1.xml", "\x84.xml"));
    EXPECT_THAT(package.getPartNames(), ElementsAre("xl/\xC3\xA4.xml"));
}

struct DuplicateRow
{
    const char* name;
    std::string second; // beside "xl/a b.xml"
};

void PrintTo(const DuplicateRow& row, std::ostream* out)
{
    *out << row.name;
}

const DuplicateRow DuplicateRows[] = {
    {"Exact",         "xl/a b.xml"  },
    {"ByCase",        "XL/A b.xml"  },
    {"ByBackslash",   "xl\\a b.xml" },
    {"ByPercent",     "xl/a%20b.xml"},
    {"ByLeadingRoot", "/xl/a b.xml" },
    {"ByDot",         "xl/./a b.xml"},
};

class DuplicateName : public testing::TestWithParam<DuplicateRow>
{
};

TEST_P(DuplicateName, EndsInAnError)
{
    const std::string& second = GetParam().second;
    const std::string stand(second.size(), '#');
    const std::string zip = replaceBytes(makeZip({
                                             {"xl/a b.xml", "1"},
                                             {stand,        "2"}
    }),
        stand, second);
    const auto refusal = findRefusal([&] { Package::openBytes(zip); });
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->kind, Kind::Refused);
    EXPECT_THAT(refusal->message, testing::EndsWith("\" is there twice"));
}

INSTANTIATE_TEST_SUITE_P(Rows, DuplicateName, testing::ValuesIn(DuplicateRows),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace QV::Filters
