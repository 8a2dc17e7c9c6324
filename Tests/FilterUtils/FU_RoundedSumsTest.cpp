#include <FilterUtils/FU_RoundedSums.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <functional>
#include <limits>
#include <ostream>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace QV::FilterUtils {
namespace {

constexpr float Infinity = std::numeric_limits<float>::infinity();
constexpr float NotANumber = std::numeric_limits<float>::quiet_NaN();

// The plain ways.

std::pair<std::size_t, float> subtractPlainly(const std::vector<float>& sizes, float value)
{
    std::size_t index = 0;
    while (index < sizes.size() && !(sizes[index] > value))
        value -= sizes[index++];
    return {index, value};
}

double addPlainly(const std::vector<float>& sizes, std::size_t begin, std::size_t end)
{
    double sum = 0;
    for (std::size_t i = begin; i < end; ++i)
        sum += static_cast<double>(sizes[i]);
    return sum;
}

template <typename T>
bool areSame(T a, T b)
{
    return std::memcmp(&a, &b, sizeof a) == 0 || (std::isnan(a) && std::isnan(b));
}

using Random = std::mt19937;
using MakeSize = std::function<float(Random&)>;

float pickDigit(Random& random, int exponent)
{
    return std::ldexp(static_cast<float>(random() % 16777216), exponent);
}

struct SizesRow
{
    const char* name;
    std::size_t count;
    MakeSize makeSize;
    float farthest; // value to subtract from
};

void PrintTo(const SizesRow& row, std::ostream* out)
{
    *out << row.name << ", " << row.count << " sizes";
}

// Ties come with halves of a value's last digit: above 2^23 that is 1, so sizes like 14.5 are ties there, and
// 14.25 and 14.75 are rounded.
const SizesRow SizesRows[] = {
    {"None",           0,     [](Random&) { return 1.0F; },                                        100   },
    {"One",            1,     [](Random&) { return 10.0F; },                                       30    },
    {"LessThanABlock", 63,    [](Random& r) { return static_cast<float>(r() % 20); },              700   },
    {"OneBlock",       64,    [](Random& r) { return static_cast<float>(r() % 20); },              700   },
    {"BlockAndOne",    65,    [](Random& r) { return static_cast<float>(r() % 20); },              700   },
    {"Equal",          5000,  [](Random&) { return 15.0F; },                                       80000 },
    {"Zeros",          5000,  [](Random&) { return 0.0F; },                                        10    },
    {"MostlyZeros",    5000,  [](Random& r) { return r() % 300 ? 0.0F : 7.5F; },                   200   },
    {"OddTies",        20000, [](Random&) { return 1048.5F; },                                     2.2e7F},
    {"Ties",           20000, [](Random& r) { return static_cast<float>(r() % 8192) * 0.5F; },     4.5e7F},
    {"Quarters",       20000, [](Random& r) { return static_cast<float>(r() % 8192) * 0.25F; },    2.2e7F},
    {"Tenths",         20000, [](Random& r) { return static_cast<float>(r() % 4096) / 10; },       4.5e6F},
    {"FarBeyond",      20000, [](Random& r) { return static_cast<float>(r() % 4096) / 10; },       1e12F },
    {"AnyDigits",      20000, [](Random& r) { return pickDigit(r, -15); },                         6e6F  },
    {"AnyMagnitude",   20000, [](Random& r) { return pickDigit(r, -static_cast<int>(r() % 60)); }, 1e8F  },
    {"Tiny",           5000,  [](Random& r) { return pickDigit(r, -149); },                        1e-34F},
    {"TinyAmongUsual", 20000, [](Random& r) { return r() % 3 ? 15.75F : pickDigit(r, -149); },     3e5F  },
    {"Huge",           5000,  [](Random& r) { return pickDigit(r, 100); },                         3e38F },
    {"SomeNegative",   5000,  [](Random& r) { return r() % 500 ? 3.1F : -2.0F; },                  20000 },
    {"SomeInfinite",   5000,  [](Random& r) { return r() % 999 ? 3.1F : Infinity; },               20000 },
    {"SomeNaN",        5000,  [](Random& r) { return r() % 999 ? 3.1F : NotANumber; },             20000 },
    {"NegativeZeros",  5000,  [](Random& r) { return r() % 2 ? -0.0F : 1.0F; },                    3000  },
};

class RoundedSumsOf : public testing::TestWithParam<SizesRow>
{
protected:
    RoundedSumsOf()
    {
        const SizesRow& row = GetParam();
        for (std::size_t i = 0; i < row.count; ++i)
            sizes.push_back(row.makeSize(random));
    }

    Random random{1};
    std::vector<float> sizes;
};

TEST_P(RoundedSumsOf, SubtractAsOneByOneDoes)
{
    RoundedSums<float> sums(sizes);
    for (int i = 0; i < 800; ++i) {
        const float value = GetParam().farthest * static_cast<float>(random() % 1000000) / 1000000;
        const auto expected = subtractPlainly(sizes, value);
        const auto actual = sums.subtract(value);
        ASSERT_EQ(actual.first, expected.first) << std::hexfloat << value;
        ASSERT_TRUE(areSame(actual.second, expected.second))
            << std::hexfloat << value << ": " << actual.second << " is not " << expected.second;
    }
}

TEST_P(RoundedSumsOf, AddAsOneByOneDoes)
{
    RoundedSums<double> sums(sizes);
    for (int i = 0; i < 800; ++i) {
        const std::size_t a = random() % (sizes.size() + 1);
        const std::size_t b = random() % (sizes.size() + 1);
        const double expected = addPlainly(sizes, std::min(a, b), std::max(a, b));
        const double actual = sums.add(std::min(a, b), std::max(a, b));
        ASSERT_TRUE(areSame(actual, expected)) << std::hexfloat << "from " << std::min(a, b) << " to "
                                               << std::max(a, b) << ": " << actual << " is not " << expected;
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, RoundedSumsOf, testing::ValuesIn(SizesRows),
    [](const auto& row) { return std::string(row.param.name); });

// Values at and beside each power of two, where the last digit changes its worth.
TEST(RoundedSumsAtTheEdges, SubtractAsOneByOneDoes)
{
    for (const float size : {0.5F, 1.5F, 0.75F, 14.4F, 0x1.000002p3F}) {
        const std::vector<float> sizes(4096, size);
        RoundedSums<float> sums(sizes);
        for (int pass = 0; pass < 30; ++pass)
            for (int exponent = 0; exponent < 27; ++exponent)
                for (const float edge : {std::nextafter(std::ldexp(1.0F, exponent), 0.0F),
                         std::ldexp(1.0F, exponent), std::nextafter(std::ldexp(1.0F, exponent), Infinity)}) {
                    const auto expected = subtractPlainly(sizes, edge);
                    const auto actual = sums.subtract(edge);
                    ASSERT_EQ(actual.first, expected.first) << edge << " by " << size;
                    ASSERT_TRUE(areSame(actual.second, expected.second)) << edge << " by " << size;
                }
    }
}

TEST(RoundedSumsOfSpecialValues, EndAndAreThose)
{
    const std::vector<float> sizes(1000, 3.5F);
    RoundedSums<float> sums(sizes);
    for (const float value : {Infinity, NotANumber, 0.0F, std::numeric_limits<float>::denorm_min(),
             std::numeric_limits<float>::max()}) {
        const auto expected = subtractPlainly(sizes, value);
        const auto actual = sums.subtract(value);
        EXPECT_EQ(actual.first, expected.first) << value;
        EXPECT_TRUE(areSame(actual.second, expected.second)) << value;
    }
    RoundedSums<double> doubles(sizes);
    EXPECT_EQ(doubles.add(7, 7), 0);
    EXPECT_EQ(doubles.add(1000, 1000), 0);
}

} // namespace
} // namespace QV::FilterUtils
