#include <FilterUtils/FU_IDGenerators.h>

#include <memory>
#include <ostream>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QV::FilterUtils {
namespace {

using testing::MatchesRegex;

static_assert(std::is_abstract_v<IDGenerator> && std::has_virtual_destructor_v<IDGenerator>);
static_assert(sizeof(IDGenerator) == sizeof(void*), "no fields");
static_assert(!std::is_polymorphic_v<StringIdGenerator>);

struct NumberRow
{
    const char* name;
    unsigned int start;
    unsigned int first;
    unsigned int second;
};

void PrintTo(const NumberRow& row, std::ostream* out)
{
    *out << row.start;
}

const NumberRow NumberRows[] = {
    {"FromZero",       0,          1,          2         },
    {"FromOther",      41,         42,         43        },
    {"UpToTheLast",    4294967293, 4294967294, 4294967295},
    {"OverTheLast",    4294967294, 4294967295, 0         },
    {"BehindTheLast",  4294967295, 0,          1         },
    {"FromSignedLast", 2147483647, 2147483648, 2147483649},
};

class NumberIds : public testing::TestWithParam<NumberRow>
{
};

TEST_P(NumberIds, GoOnByOne)
{
    const NumberRow& row = GetParam();
    NumberIdGenerator ids(row.start);
    EXPECT_EQ(ids.generateId(), row.first);
    EXPECT_EQ(ids.generateId(), row.second);
}

INSTANTIATE_TEST_SUITE_P(Rows, NumberIds, testing::ValuesIn(NumberRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(NumberIdGenerator, CopiesGoOnByThemselves)
{
    NumberIdGenerator ids(0);
    ids.generateId();
    NumberIdGenerator copy(ids);
    EXPECT_EQ(copy.generateId(), 2U);
    EXPECT_EQ(copy.generateId(), 3U);
    EXPECT_EQ(ids.generateId(), 2U);
    static_assert(
        sizeof(NumberIdGenerator) == sizeof(unsigned int) && !std::is_polymorphic_v<NumberIdGenerator>);
}

struct PrefixRow
{
    const char* name;
    std::string prefix;
    std::vector<std::string> ids;
};

void PrintTo(const PrefixRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.prefix);
}

const PrefixRow PrefixRows[] = {
    {"Relationship", "rId",      {"rId1", "rId2", "rId3"}},
    {"Picture",      "img",      {"img1", "img2"}        },
    {"None",         "",         {"1", "2"}              },
    {"Digit",        "1",        {"11", "12"}            },
    {"Placeholder",  "{}{0}",    {"{}{0}1", "{}{0}2"}    },
    {"Nul",          {"a\0", 2},
     {{"a\0"
          "1",
             3},
            {"a\0"
             "2",
                3}}                                      },
};

class PrefixIds : public testing::TestWithParam<PrefixRow>
{
};

TEST_P(PrefixIds, CarryRunningNumbers)
{
    StringIdGenerator ids(GetParam().prefix);
    for (const std::string& id : GetParam().ids)
        EXPECT_EQ(ids.generateId(), id);
}

INSTANTIATE_TEST_SUITE_P(Rows, PrefixIds, testing::ValuesIn(PrefixRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(StringIdGenerator, NumbersHaveNoZerosInFrontAndNoSeparators)
{
    StringIdGenerator ids("n");
    std::string last;
    for (int i = 0; i < 12345; ++i)
        last = ids.generateId();
    EXPECT_EQ(last, "n12345");
}

TEST(StringIdGenerator, GeneratorsCountByThemselves)
{
    StringIdGenerator a("a");
    StringIdGenerator b("b");
    a.generateId();
    StringIdGenerator copy(a);
    EXPECT_EQ(b.generateId(), "b1");
    EXPECT_EQ(copy.generateId(), "a2");
    EXPECT_EQ(a.generateId(), "a2");
}

TEST(UUIDIDGenerator, GivesADifferentTextEachTime)
{
    const std::unique_ptr<IDGenerator> ids = makeUUIDIDGenerator();
    const std::unique_ptr<IDGenerator> others = makeUUIDIDGenerator();
    std::set<std::string> all;
    for (int i = 0; i < 1000; ++i) {
        const std::string id = ids->generateId();
        EXPECT_THAT(id, MatchesRegex("[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}"));
        EXPECT_TRUE(all.insert(id).second);
        EXPECT_TRUE(all.insert(others->generateId()).second);
    }
}

} // namespace
} // namespace QV::FilterUtils
