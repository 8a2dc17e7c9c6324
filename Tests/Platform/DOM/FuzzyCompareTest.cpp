#include <DOM/Public/FuzzyCompare.h>

#include <limits>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

namespace QV::DOM {
namespace {

constexpr float FloatInfinity = std::numeric_limits<float>::infinity();
constexpr float FloatNaN = std::numeric_limits<float>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

struct NearZeroRow
{
    const char* name;
    float value;
    bool isNear;
};

void PrintTo(const NearZeroRow& row, std::ostream* out)
{
    *out << row.value;
}

const NearZeroRow NearZeroRows[] = {
    {"Zero",              0.0F,                                     true },
    {"NegativeZero",      -0.0F,                                    true },
    {"JustBelow",         0x1.fffffep-21F,                          true },
    {"JustBelowNegative", -0x1.fffffep-21F,                         true },
    {"AtTheBound",        0x1p-20F,                                 false},
    {"AtTheBoundBelow",   -0x1p-20F,                                false},
    {"Subnormal",         std::numeric_limits<float>::denorm_min(), true },
    {"One",               1.0F,                                     false},
    {"Infinity",          FloatInfinity,                            false},
    {"MinusInfinity",     -FloatInfinity,                           false},
    {"NotANumber",        FloatNaN,                                 false},
};

class IsNearZero : public testing::TestWithParam<NearZeroRow>
{
};

TEST_P(IsNearZero, KeepsRow)
{
    EXPECT_EQ(isNearZero(GetParam().value), GetParam().isNear);
}

INSTANTIATE_TEST_SUITE_P(Rows, IsNearZero, testing::ValuesIn(NearZeroRows),
    [](const auto& row) { return std::string(row.param.name); });

template <typename T>
struct EqualRow
{
    const char* name;
    T a;
    T b;
    bool areEqual;
};

template <typename T>
void PrintTo(const EqualRow<T>& row, std::ostream* out)
{
    *out << row.a << " and " << row.b;
}

template <typename T>
void expectRow(const EqualRow<T>& row)
{
    EXPECT_EQ(isFuzzyEqual(row.a, row.b), row.areEqual);
    EXPECT_EQ(isFuzzyEqual(row.b, row.a), row.areEqual);
    EXPECT_EQ(isFuzzyEqual(-row.a, -row.b), row.areEqual);
}

using FloatRow = EqualRow<float>;

// 1 - 2^-20 apart from 1 is the bound itself; the next float towards 1 is within it.
const FloatRow FloatRows[] = {
    {"Same",              1.5F,          1.5F,                              true },
    {"WithinTheBound",    1.0F,          1 - 0x1.ep-21F,                    true },
    {"AtTheBound",        1.0F,          1 - 0x1p-20F,                      false},
    {"Scaled",            0x1p100F,      0x1p100F - 0x1p79F,                true },
    {"ScaledAtTheBound",  0x1p100F,      0x1p100F - 0x1p80F,                false},
    {"OtherSign",         1.0F,          -1.0F,                             false},
    {"Zeros",             0.0F,          -0.0F,                             true },
    {"ZeroAndTiny",       0.0F,          1e-30F,                            false},
    {"Infinities",        FloatInfinity, FloatInfinity,                     true },
    {"OtherInfinities",   FloatInfinity, -FloatInfinity,                    false},
    {"InfinityAndFinite", FloatInfinity, std::numeric_limits<float>::max(), false},
    {"NotANumber",        FloatNaN,      FloatNaN,                          false},
    {"NotANumberAndOne",  FloatNaN,      1.0F,                              false},
};

class IsFuzzyEqualFloat : public testing::TestWithParam<FloatRow>
{
};

TEST_P(IsFuzzyEqualFloat, KeepsRow)
{
    expectRow(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Rows, IsFuzzyEqualFloat, testing::ValuesIn(FloatRows),
    [](const auto& row) { return std::string(row.param.name); });

using DoubleRow = EqualRow<double>;

const DoubleRow DoubleRows[] = {
    {"Same",             1.5,      1.5,               true },
    {"WithinTheBound",   1.0,      1 - 0x1.ep-50,     true },
    {"AtTheBound",       1.0,      1 - 0x1p-49,       false},
    {"FloatTolerance",   1.0,      1 - 0x1p-21,       false},
    {"Scaled",           0x1p200,  0x1p200 - 0x1p150, true },
    {"ScaledAtTheBound", 0x1p200,  0x1p200 - 0x1p151, false},
    {"OtherSign",        1.0,      -1.0,              false},
    {"Zeros",            0.0,      -0.0,              true },
    {"ZeroAndTiny",      0.0,      1e-300,            false},
    {"Infinities",       Infinity, Infinity,          true },
    {"OtherInfinities",  Infinity, -Infinity,         false},
    {"NotANumber",       NaN,      NaN,               false},
};

class IsFuzzyEqualDouble : public testing::TestWithParam<DoubleRow>
{
};

TEST_P(IsFuzzyEqualDouble, KeepsRow)
{
    expectRow(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Rows, IsFuzzyEqualDouble, testing::ValuesIn(DoubleRows),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace QV::DOM
