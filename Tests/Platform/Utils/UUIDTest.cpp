#include <Utils/Public/UUID.h>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <thread>
#include <unordered_set>
#include <vector>

#include <boost/optional/optional_io.hpp>
#include <boost/unordered_set.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Utils/Public/UUIDable.h>

namespace QV {

void PrintTo(const UUID& uuid, std::ostream* out)
{
    *out << uuid.toString();
}

std::ostream& operator<<(std::ostream& out, const UUID& uuid)
{
    return out << uuid.toString();
}

namespace {

using testing::MatchesRegex;

constexpr UUID Fixed(0x0123456789abcdef, 0x0f1e2d3c4b5a6978);
constexpr const char* FixedText = "01234567-89ab-cdef-0f1e-2d3c4b5a6978";
static_assert(Fixed && !UUID() && UUID(0, 1) && UUID(1, 0), "only the nil identifier is false");
static_assert(sizeof(UUID) == 16, "a plain value of 16 bytes");

struct TextRow
{
    const char* name;
    std::string text;
    boost::optional<UUID> uuid;
};

void PrintTo(const TextRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.text);
}

const TextRow TextRows[] = {
    {"Fixed",     FixedText,                              Fixed                },
    {"UpperCase", "01234567-89AB-CDEF-0F1E-2D3C4B5A6978", Fixed                },
    {"Nil",       "00000000-0000-0000-0000-000000000000", UUID()               },
    {"AllBits",   "ffffffff-ffff-ffff-ffff-ffffffffffff", UUID(~std::uint64_t(), ~std::uint64_t())},
    {"Empty",           "",                                           boost::none                                                   },
    {"OneShort",           "01234567-89ab-cdef-0f1e-2d3c4b5a697",                                        boost::none},
    {"OneLong",           "01234567-89ab-cdef-0f1e-2d3c4b5a69780",                                         boost::none                                                  },
    {"Braces",           "{01234567-89ab-cdef-0f1e-2d3c4b5a6978}",                                          boost::none},
    {"NoHyphens",           "0123456789abcdef0f1e2d3c4b5a697800000",                                       boost::none                                                },
    {"HyphenMoved",           "0123456-789ab-cdef-0f1e-2d3c4b5a6978",                                     boost::none},
    {"FirstHyphen",           "01234567+89ab-cdef-0f1e-2d3c4b5a6978",                                     boost::none                                                },
    {"LastHyphen",           "01234567-89ab-cdef-0f1e 2d3c4b5a6978",                                      boost::none},
    {"BeforeDigitZero",           "/1234567-89ab-cdef-0f1e-2d3c4b5a6978",                                 boost::none                                           },
    {"AfterDigitNine",           "01234567-89ab-cdef-0f1e-2d3c4b5a697:",                                  boost::none},
    {"BeforeLetterA",           "0123456789`b-cdef-0f1e-2d3c4b5a6978",                                   boost::none                                             },
    {"AfterLetterF",           "01234567-89gb-cdef-0f1e-2d3c4b5a6978",                                    boost::none},
    {"AfterCapitalF",           "01234567-89ab-cdef-0f1e-2d3c4b5a697G",                                   boost::none                                            },
    {"NulInside",           {"01234567-89ab-cdef-0f1e-2d3c4b5a697", 36},                                       boost::none},
};

class UUIDFromString : public testing::TestWithParam<TextRow>
{
};

TEST_P(UUIDFromString, KeepsRow)
{
    const TextRow& row = GetParam();
    const boost::optional<UUID> uuid = UUID::fromString(row.text);
    ASSERT_EQ(uuid, row.uuid);
    if (uuid) {
        EXPECT_EQ(UUID::fromString(uuid->toString()), uuid);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, UUIDFromString, testing::ValuesIn(TextRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(UUID, TextIsLowerCaseInFiveGroups)
{
    EXPECT_EQ(Fixed.toString(), FixedText);
    EXPECT_EQ(UUID().toString(), "00000000-0000-0000-0000-000000000000");
}

TEST(UUID, BytesStandInTheOrderOfTheText)
{
    const UUID::Bytes bytes{
        0x01, 0x23, 0x45, 0x67, 0x89, 0xab, 0xcd, 0xef, 0x0f, 0x1e, 0x2d, 0x3c, 0x4b, 0x5a, 0x69, 0x78};
    EXPECT_EQ(UUID::fromBytes(bytes), Fixed);
    EXPECT_EQ(Fixed.getBytes(), bytes);
}

TEST(UUID, GeneratedOnesAreRandomOfVersion4)
{
    std::set<UUID> all;
    UUID::Bytes everSet{};
    for (int i = 0; i < 10000; ++i) {
        const UUID uuid = UUID::generate();
        ASSERT_TRUE(uuid);
        ASSERT_THAT(uuid.toString(),
            MatchesRegex("[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}"));
        ASSERT_TRUE(all.insert(uuid).second);
        const UUID::Bytes bytes = uuid.getBytes();
        for (std::size_t k = 0; k < bytes.size(); ++k)
            everSet[k] = static_cast<std::uint8_t>(everSet[k] | bytes[k]);
    }
    const UUID::Bytes expected{
        0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0x4f, 0xff, 0xbf, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff};
    EXPECT_EQ(everSet, expected);
}

TEST(UUID, ThreadsNeverDrawTheSame)
{
    std::vector<std::vector<UUID>> drawn(4);
    std::vector<std::thread> threads;
    for (std::vector<UUID>& list : drawn)
        threads.emplace_back([&list] { std::generate_n(std::back_inserter(list), 1000, &UUID::generate); });
    for (std::thread& thread : threads)
        thread.join();
    std::set<UUID> all;
    for (const std::vector<UUID>& list : drawn)
        all.insert(list.begin(), list.end());
    EXPECT_EQ(all.size(), 4000U);
}

TEST(UUID, ForkedChildDrawsOthersThanItsParent)
{
    UUID::generate(); // leaves something in the batch for both to draw from
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const UUID::Bytes bytes = UUID::generate().getBytes();
        _exit(write(ends[1], bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()) ? 0 : 1);
    }
    UUID::Bytes fromChild{};
    EXPECT_EQ(read(ends[0], fromChild.data(), fromChild.size()), static_cast<ssize_t>(fromChild.size()));
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_NE(UUID::generate(), UUID::fromBytes(fromChild));
    close(ends[0]);
    close(ends[1]);
}

TEST(UUID, OrderFollowsTheText)
{
    const std::vector<UUID> ascending = {
        UUID(), UUID(0, 1), UUID(0, ~std::uint64_t()), UUID(1, 0), Fixed, UUID(~std::uint64_t(), 0)};
    for (std::size_t i = 0; i < ascending.size(); ++i)
        for (std::size_t k = 0; k < ascending.size(); ++k) {
            const UUID& a = ascending[i];
            const UUID& b = ascending[k];
            EXPECT_EQ(a < b, a.toString() < b.toString());
            EXPECT_EQ(a < b, i < k);
            EXPECT_EQ(a > b, i > k);
            EXPECT_EQ(a <= b, i <= k);
            EXPECT_EQ(a >= b, i >= k);
            EXPECT_EQ(a == b, i == k);
            EXPECT_EQ(a != b, i != k);
        }
}

TEST(UUID, HashesSpreadEvenWhereFewBitsDiffer)
{
    std::unordered_set<UUID> standard;
    boost::unordered_set<UUID> boosted;
    std::set<std::size_t> hashes;
    for (std::uint64_t i = 0; i < 64; ++i)
        for (std::uint64_t k = 0; k < 64; ++k) {
            const UUID uuid(i, k);
            EXPECT_EQ(std::hash<UUID>()(uuid), boost::hash<UUID>()(uuid));
            standard.insert(uuid);
            boosted.insert(uuid);
            hashes.insert(hash_value(uuid));
        }
    EXPECT_EQ(standard.size(), 4096U);
    EXPECT_EQ(boosted.size(), 4096U);
    EXPECT_EQ(hashes.size(), 4096U);
}

class Style : public UUIDable
{
public:
    Style() = default;
    explicit Style(const UUID& uuid)
        : UUIDable(uuid)
    {
    }
};

TEST(UUIDable, NewObjectsGetFreshIdentifiers)
{
    const Style a;
    const Style b;
    EXPECT_TRUE(a.getUUID());
    EXPECT_NE(a.getUUID(), b.getUUID());
    EXPECT_EQ(Style(Fixed).getUUID(), Fixed);
}

TEST(UUIDable, CopiesKeepTheIdentifierUntilGivenAnother)
{
    const Style original;
    Style copy(original);
    EXPECT_EQ(copy.getUUID(), original.getUUID());
    Style assigned;
    assigned = original;
    EXPECT_EQ(assigned.getUUID(), original.getUUID());
    copy.setUUID(Fixed);
    EXPECT_EQ(copy.getUUID(), Fixed);
    EXPECT_NE(original.getUUID(), Fixed);
}

} // namespace
} // namespace QV
