#include <Filters/Package/PackageLimits.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <ios>
#include <istream>
#include <ostream>
#include <sstream>
#include <streambuf>
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
using Tests::ZipItem;
using Kind = PackageError::Kind;

struct LimitRow
{
    const char* name;
    PackageLimits limits;
    const char* part;
    const char* message; // null where the package can be read
};

void PrintTo(const LimitRow& row, std::ostream* out)
{
    *out << row.name;
}

constexpr std::uint64_t NoLimit = ~std::uint64_t{0};

// Two parts of 1,000 bytes of noise, which deflate leaves as they are, and one of 100,000 zeros in about 120.
const LimitRow LimitRows[] = {
    {"Defaults",         {},                                                  "",  nullptr      },
    {"EntriesMet",       {3, NoLimit, NoLimit, NoLimit, NoLimit, 1, NoLimit}, "",  nullptr      },
    {"EntriesExceeded",  {2, NoLimit, NoLimit, NoLimit, NoLimit, 1, NoLimit}, "",
     "the package has 3 entries; the limit is 2"                                                },
    {"TotalMet",         {3, 102000, NoLimit, NoLimit, NoLimit, 1, NoLimit},  "",  nullptr      },
    {"TotalExceeded",    {3, 101999, NoLimit, NoLimit, NoLimit, 1, NoLimit},  "c",
     "part \"c\" brings the package to 102000 unpacked bytes or more; the limit is 101999"      },
    {"TotalOfOne",       {3, 999, NoLimit, NoLimit, NoLimit, 1, NoLimit},     "a",
     "part \"a\" brings the package to 1000 unpacked bytes or more; the limit is 999"           },
    {"PartMet",          {3, NoLimit, 100000, NoLimit, NoLimit, 1, NoLimit},  "",  nullptr      },
    {"PartExceeded",     {3, NoLimit, 99999, NoLimit, NoLimit, 1, NoLimit},   "c",
     "part \"c\" unpacks to 100000 bytes or more; the limit for a part is 99999"                },
    {"PartExceededSoon", {3, NoLimit, 1000, NoLimit, NoLimit, 1, NoLimit},    "c",
     "part \"c\" unpacks to 65536 bytes or more; the limit for a part is 1000"                  },
    {"InflatedMet",      {3, NoLimit, NoLimit, 102000, NoLimit, 1, NoLimit},  "",  nullptr      },
    {"InflatedExceeded", {3, NoLimit, NoLimit, 101999, NoLimit, 1, NoLimit},  "c",
     "part \"c\" is read once too often: 102000 bytes were inflated in all; the limit is 101999"},
    {"RatioNotLookedAt", {3, NoLimit, NoLimit, NoLimit, NoLimit, 1, 102000},  "",  nullptr      },
    {"RatioMet",         {3, NoLimit, NoLimit, NoLimit, NoLimit, 1000, 0},    "",  nullptr      },
    {"RatioUnbounded",   {3, NoLimit, NoLimit, NoLimit, NoLimit, NoLimit, 0}, "",  nullptr      },
};

class Limits : public testing::TestWithParam<LimitRow>
{
};

TEST_P(Limits, KeepRow)
{
    const std::string zip = makeZip({
        {"a",              makeNoise(1000), true},
        {   "b", makeNoise(1000),            true    },
        { "c",           std::string(100000,                     '\0'),     false}
    });
    const auto readAll = [&] {
        Package package = Package::openBytes(zip, GetParam().limits);
        for (const std::string& part : package.getPartNames())
            readPart(package, part);
        EXPECT_EQ(package.getUnpackedBytes(), 102000U);
    };
    if (GetParam().message)
        expectRefusal(readAll, Kind::LimitExceeded, GetParam().part, GetParam().message);
    else
        readAll();
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Limits, testing::ValuesIn(LimitRows), [](const auto& row) { return std::string(row.param.name); });

// Stored parts have the ratio 1, so both sides can be told to the byte.
TEST(Limits, RatioIsThatOfReadBytes)
{
    const std::string zip = makeZip({
        {"a", makeNoise(1000), true}
    });
    PackageLimits limits;
    limits.ratio = 1;
    limits.ratioFreeBytes = 999;
    Package exact = Package::openBytes(zip, limits);
    EXPECT_EQ(readPart(exact, "a").size(), 1000U);

    limits.ratio = 0;
    Package none = Package::openBytes(zip, limits);
    expectRefusal([&] { readPart(none, "a"); }, Kind::LimitExceeded, "a",
        "part \"a\" unpacks to 1000 bytes or more from 1000; the limit is 0 from one");
    limits.ratioFreeBytes = 1000;
    Package free = Package::openBytes(zip, limits);
    EXPECT_EQ(readPart(free, "a").size(), 1000U);
}

TEST(Limits, RatioHoldsForTheWholePackage)
{
    std::vector<ZipItem> items;
    for (char name = 'a'; name < 'k'; ++name)
        items.push_back({std::string(1, name), std::string(60000, '\0')});
    PackageLimits limits;
    limits.ratioFreeBytes = 500000;
    Package package = Package::openBytes(makeZip(items), limits);
    for (char name = 'a'; name < 'i'; ++name)
        EXPECT_EQ(readPart(package, std::string(1, name)).size(), 60000U);
    const auto refusal = findRefusal([&] { readPart(package, "i"); });
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->kind, Kind::LimitExceeded);
    EXPECT_THAT(
        refusal->message, testing::MatchesRegex("part \"i\" brings the package to 540000 unpacked bytes or "
                                                "more from [0-9]+; the limit is 100 from one"));
}

// The directory says that ten bytes come out of a bomb, and that a gigabyte of packed bytes went in.
TEST(Limits, DeclaredSizesAreNotBelieved)
{
    const std::string content(std::size_t{3} << 20U, '\0');
    std::string zip = makeZip({
        {"a", content}
    });
    const std::size_t directory = zip.find("PK\x01\x02");
    ASSERT_NE(directory, std::string::npos);
    zip.replace(directory + 20, 8, makeLittleEndian(1U << 30U, 4) + makeLittleEndian(10, 4));
    PackageLimits limits;
    limits.ratioFreeBytes = 1 << 20;
    const auto refusal = findRefusal([&] {
        Package package = Package::openBytes(zip, limits);
        readPart(package, "a");
    });
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->kind, Kind::LimitExceeded);
    EXPECT_THAT(
        refusal->message, testing::MatchesRegex("part \"a\" unpacks to 1114112 bytes or more from 3[0-9]+; "
                                                "the limit is 100 from one"));
}

TEST(Limits, DefaultsRefuseABomb)
{
    const std::string zip = makeZip({
        {"xl/bomb.xml", std::string(std::size_t{65} << 20U, ' ')}
    });
    Package package = Package::openBytes(zip);
    const auto stream = package.openPart("xl/bomb.xml");
    std::vector<char> buffer(1 << 16);
    std::uint64_t read = 0;
    const auto refusal = findRefusal([&] {
        while (stream->read(buffer.data(), static_cast<std::streamsize>(buffer.size())))
            read += buffer.size();
    });
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->kind, Kind::LimitExceeded);
    EXPECT_EQ(read, std::uint64_t{64} << 20U);
    EXPECT_THAT(refusal->message,
        testing::MatchesRegex(
            "part \"xl/bomb.xml\" unpacks to 67174400 bytes or more from [0-9]+; the limit is 100 from one"));
}

TEST(Limits, RepeatedReadsCountOnceAgainstTheTotal)
{
    const std::string zip = makeZip({
        {"a", makeNoise(1000)},
        {"b", makeNoise(1000)}
    });
    PackageLimits limits;
    limits.unpackedBytes = 1999;
    limits.inflatedBytes = 5000;
    Package package = Package::openBytes(zip, limits);
    for (int i = 0; i < 3; ++i)
        readPart(package, "a");
    EXPECT_EQ(package.getUnpackedBytes(), 1000U);
    EXPECT_TRUE(findRefusal([&] { readPart(package, "b"); })); // 2000 in all, whatever was read how often
    const auto refusal = findRefusal([&] {
        for (;;)
            readPart(package, "a");
    });
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->part, "a");
}

TEST(Limits, ReadingForEverEnds)
{
    const std::string zip = makeZip({
        {"a", makeNoise(1000)}
    });
    PackageLimits limits;
    limits.inflatedBytes = 3000;
    Package package = Package::openBytes(zip, limits);
    for (int i = 0; i < 3; ++i)
        readPart(package, "a");
    expectRefusal([&] { readPart(package, "a"); }, Kind::LimitExceeded, "a",
        "part \"a\" is read once too often: 4000 bytes were inflated in all; the limit is 3000");
}

TEST(Limits, BoundAStream)
{
    const std::string zip = makeZip({
        {"a", makeNoise(1000)}
    });
    PackageLimits limits;
    limits.streamBytes = zip.size();
    std::istringstream whole(zip);
    Package package = Package::openStream(whole, limits);
    EXPECT_EQ(readPart(package, "a"), makeNoise(1000));

    limits.streamBytes = zip.size() - 1;
    std::istringstream longer(zip);
    expectRefusal([&] { Package::openStream(longer, limits); }, Kind::LimitExceeded, "",
        "holds more than " + std::to_string(zip.size() - 1) +
            " bytes, the limit for a package that comes from a stream");
}

/// Zeros without end, and a count of those that were taken.
class EndlessBuffer : public std::streambuf
{
public:
    std::size_t getCount() const { return _count; }

protected:
    std::streamsize xsgetn(char* target, std::streamsize size) override
    {
        std::fill_n(target, size, '\0');
        _count += static_cast<std::size_t>(size);
        return size;
    }

private:
    std::size_t _count = 0;
};

TEST(Limits, EndAnEndlessStream)
{
    PackageLimits limits;
    limits.streamBytes = 5'000'000;
    EndlessBuffer buffer;
    std::istream endless(&buffer);
    const auto refusal = findRefusal([&] { Package::openStream(endless, limits); });
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->kind, Kind::LimitExceeded);
    EXPECT_LE(buffer.getCount(), 7'000'000U);
}

/// Fails as the buffer of a file does that cannot be read.
class FailingBuffer : public std::streambuf
{
protected:
    int_type underflow() override { throw std::ios_base::failure("broken"); }
};

TEST(Limits, StreamThatFailsIsNoPackage)
{
    FailingBuffer buffer;
    std::istream failing(&buffer);
    expectRefusal([&] { Package::openStream(failing); }, Kind::NotAPackage, "", "cannot be read");
    std::istream throwing(&buffer);
    throwing.exceptions(std::ios::badbit);
    expectRefusal([&] { Package::openStream(throwing); }, Kind::NotAPackage, "", "cannot be read");
}

} // namespace
} // namespace QV::Filters
