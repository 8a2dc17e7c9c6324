#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Filters/Package/Package.h>
#include <Filters/Package/PackageError.h>
#include <Tests/Support/PackageRefusals.h>
#include <Tests/Support/ZipBuilder.h>

namespace QV::Filters {
namespace {

using Tests::expectRefusal;
using Tests::findRefusal;
using Tests::makeLittleEndian;
using Tests::makeNoise;
using Tests::makeZip;
using Tests::readPart;
using Tests::replaceBytes;
using Tests::ZipItem;
using Kind = PackageError::Kind;

struct ForeignRow
{
    const char* name;
    std::string bytes;
    Kind kind;
    const char* message;
};

void PrintTo(const ForeignRow& row, std::ostream* out)
{
    *out << row.name;
}

const std::string CompoundFile = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1" + std::string(120, '\0');
const std::string EncryptedEntry("E\0n\0c\0r\0y\0p\0t\0e\0d\0P\0a\0c\0k\0a\0g\0e\0\0\0", 34);
const char* const NoZip = "the file is not a package: no zip archive";
const char* const OldBinary =
    "the file is not a package: a document of an older binary format (OLE 2 compound file)";
const char* const NeedsPassword = "the package is encrypted: it needs a password";
const char* const NoDirectory = "the package is damaged: the directory at its end is missing";

const ForeignRow ForeignRows[] = {
    {"Empty",            "",               Kind::NotAPackage,               "the file is empty"                    },
    {"OneByte",          "P",              Kind::NotAPackage,               NoZip                                  },
    {"Text",             std::string(1000, 'x'),                            Kind::NotAPackage,                       NoZip},
    {"OldBinary",                  CompoundFile,                        Kind::NotAPackage,                          OldBinary                        },
    {"Encrypted",                  CompoundFile + EncryptedEntry,                        Kind::Encrypted,         NeedsPassword},
    {"EncryptedLater",                  CompoundFile + std::string(70016,                   ' ') + EncryptedEntry, Kind::Encrypted,
     NeedsPassword},
    {"EntryCutShort",      CompoundFile + EncryptedEntry.substr(0,                      33),                                       Kind::NotAPackage,                                   OldBinary},
    {"EntryOffGrid", CompoundFile + " " + EncryptedEntry,        Kind::NotAPackage, OldBinary},
    {"SignatureAlone", "PK\x03\x04", Kind::Damaged,                                NoDirectory                                                               },
};

class ForeignFile : public testing::TestWithParam<ForeignRow>
{
};

TEST_P(ForeignFile, IsNamed)
{
    expectRefusal([&] { Package::openBytes(GetParam().bytes); }, GetParam().kind, "", GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(Rows, ForeignFile, testing::ValuesIn(ForeignRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Package, RefusesWhatIsNoFile)
{
    expectRefusal([] { Package::openFile("/nowhere/at/all.xlsx"); }, Kind::NotAPackage, "",
        "the file cannot be read: No such file or directory");
    expectRefusal([] { Package::openFile(testing::TempDir()); }, Kind::NotAPackage, "",
        "the file cannot be read: it is no regular file");
    expectRefusal([] { Package::openFile("/dev/zero"); }, Kind::NotAPackage, "",
        "the file cannot be read: it is no regular file");
}

TEST(Package, RefusesEncryptedParts)
{
    const std::string zip = makeZip({
        {"a.xml", "1"    },
        { "b.xml", "2", false, "secret"}
    });
    expectRefusal([&] { Package::openBytes(zip); }, Kind::Encrypted, "b.xml",
        "the package is encrypted: part \"b.xml\" is");
}

TEST(Package, TellsABrokenChecksum)
{
    const std::string zip = replaceBytes(makeZip({
                                             {"a.xml", "honest text", true}
    }),
        "honest", "forged");
    Package package = Package::openBytes(zip);
    expectRefusal([&] { readPart(package, "a.xml"); }, Kind::Damaged, "a.xml",
        "part \"a.xml\" is damaged: its checksum does not fit");
}

TEST(Package, TellsBrokenPackedData)
{
    std::string zip = makeZip({
        {"a.xml", makeNoise(1000) + std::string(1000, 'x')}
    });
    zip[30 + 5] = '\x06'; // the first byte of the data: a last block of the reserved type
    Package package = Package::openBytes(zip);
    expectRefusal([&] { readPart(package, "a.xml"); }, Kind::Damaged, "a.xml",
        "part \"a.xml\" is damaged: its packed data is broken");
}

// Stream operators and read() tell it, too: the error passes through, as itself, and no byte comes twice.
TEST(Package, ErrorsPassThroughTheStream)
{
    const std::string zip = replaceBytes(makeZip({
                                             {"a.xml", std::string(100000, 'x') + "honest text", true}
    }),
        "honest", "forged");
    Package package = Package::openBytes(zip);
    const auto stream = package.openPart("a.xml");
    std::vector<char> buffer(200000);
    EXPECT_THROW(stream->read(buffer.data(), 200000), PackageError);
    EXPECT_TRUE(stream->bad());
    const auto lines = package.openPart("a.xml");
    std::string line;
    EXPECT_THROW(std::getline(*lines, line), PackageError);
}

// Either it reads as what was packed, or it ends in one PackageError.
void expectHonestOrRefused(const std::string& zip, const std::vector<ZipItem>& items)
{
    const auto refusal = findRefusal([&] {
        Package package = Package::openBytes(zip);
        for (const ZipItem& item : items)
            if (package.findPart(item.name)) {
                EXPECT_EQ(readPart(package, item.name), item.content);
            }
    });
    if (refusal) {
        EXPECT_THAT(refusal->message, testing::Not(testing::HasSubstr("\n")));
    }
}

const std::vector<ZipItem> SmallPackage = {
    {"[Content_Types].xml", "<Types/>",                   true },
    {"xl/workbook.xml",     "<workbook>aaaaaaaaaaaaaaaa", false},
    {"xl/styles.xml",       "",                           false},
};

TEST(Package, TruncatedAnywhereIsRefused)
{
    const std::string zip = makeZip(SmallPackage);
    for (std::size_t size = 0; size < zip.size(); ++size) {
        SCOPED_TRACE(size);
        EXPECT_TRUE(findRefusal([&] { Package::openBytes(zip.substr(0, size)); }));
    }
}

TEST(Package, AnyByteMayBeWrong)
{
    const std::string zip = makeZip(SmallPackage);
    for (std::size_t place = 0; place < zip.size(); ++place)
        for (const unsigned mask : {0x01U, 0x80U, 0xFFU}) {
            SCOPED_TRACE(testing::Message() << "byte " << place << " xor " << mask);
            std::string changed = zip;
            changed[place] = static_cast<char>(static_cast<unsigned char>(changed[place]) ^ mask);
            expectHonestOrRefused(changed, SmallPackage);
        }
}

// The end of a zip64 archive that claims 2^40 entries of which none is there.
TEST(Package, ClaimedEntriesCostNothing)
{
    const std::uint64_t claimed = std::uint64_t{1} << 40U;
    const std::string end64 = "PK\x06\x06" + makeLittleEndian(44, 8) + makeLittleEndian(45, 2) +
                              makeLittleEndian(45, 2) + makeLittleEndian(0, 8) +
                              makeLittleEndian(claimed, 8) + makeLittleEndian(claimed, 8) +
                              makeLittleEndian(0, 8) + makeLittleEndian(0, 8);
    const std::string locator =
        "PK\x06\x07" + makeLittleEndian(0, 4) + makeLittleEndian(0, 8) + makeLittleEndian(1, 4);
    const std::string end = "PK\x05\x06" + makeLittleEndian(0, 4) + makeLittleEndian(0xFFFF, 2) +
                            makeLittleEndian(0xFFFF, 2) + makeLittleEndian(0xFFFFFFFFU, 4) +
                            makeLittleEndian(0xFFFFFFFFU, 4) + makeLittleEndian(0, 2);
    EXPECT_TRUE(findRefusal([&] { Package::openBytes(end64 + locator + end); }));
}

TEST(MakePrintable, EscapesAndCuts)
{
    EXPECT_EQ(makePrintable("xl/\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80"),
        "xl/\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80");
    EXPECT_EQ(makePrintable("\x1B[2J\n\x7F\"\\"), "\\x1B[2J\\x0A\\x7F\\x22\\x5C");
    EXPECT_EQ(makePrintable("\xC2\x9B"
                            "31m"),
        "\\xC2\\x9B31m"); // a C1 control
    EXPECT_EQ(makePrintable("\xC2\xA0"), "\xC2\xA0");
    EXPECT_EQ(makePrintable("\xFF\x80\xC0\xE2\x82"), "\\xFF\\x80\\xC0\\xE2\\x82");
    EXPECT_EQ(makePrintable(std::string(200, 'x')), std::string(200, 'x'));
    EXPECT_EQ(makePrintable(std::string(201, 'x')), std::string(200, 'x') + "...");
}

} // namespace
} // namespace QV::Filters
