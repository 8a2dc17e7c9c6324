#include <FilterUtils/FU_TransformMatrices.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <ostream>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

namespace QV::FilterUtils {
namespace {

using Angles = std::array<float, 3>;
using Matrix = cinder::Matrix33<float>;

// Callers are linked against just these.
static_assert(std::is_same_v<decltype(&buildTransformMatrixFromAngleDegrees),
    Matrix (*)(const float&, const float&, const float&)>);
static_assert(std::is_same_v<decltype(&convertMatrixToAnglesDegree), Angles (*)(const Matrix&)>);

constexpr float Pi = 3.1415927F;
constexpr float DegreesPerRadian = 57.29578F;

Matrix build(const Angles& angles)
{
    return buildTransformMatrixFromAngleDegrees(angles[0], angles[1], angles[2]);
}

Matrix makeMatrix(const float (&rows)[9])
{
    Matrix matrix;
    for (std::size_t i = 0; i < 9; ++i)
        matrix.m[3 * (i % 3) + i / 3] = rows[i];
    return matrix;
}

Matrix multiply(const Matrix& a, const Matrix& b)
{
    Matrix product;
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column) {
            float sum = 0;
            for (std::size_t i = 0; i < 3; ++i)
                sum += a.m[3 * i + row] * b.m[3 * column + i];
            product.m[3 * column + row] = sum;
        }
    return product;
}

float toRadiansInSingle(float degrees)
{
    return degrees * 0.01745329238474369F;
}

float toRadiansInDouble(float degrees)
{
    return static_cast<float>(static_cast<double>(degrees) * 0.017453292519943295);
}

// What the matrix is by its definition; with the angles in radians, so that each precision can be tried.
Matrix makeExpected(float first, float second, float negatedThird)
{
    const auto sine = [](float angle) { return std::sin(angle); };
    const auto cosine = [](float angle) { return std::cos(angle); };
    const Matrix aboutZ = makeMatrix(
        {cosine(negatedThird), -sine(negatedThird), 0, sine(negatedThird), cosine(negatedThird), 0, 0, 0, 1});
    const Matrix aboutY =
        makeMatrix({cosine(second), 0, -sine(second), 0, 1, 0, sine(second), 0, cosine(second)});
    const Matrix aboutX =
        makeMatrix({1, 0, 0, 0, cosine(first), -sine(first), 0, sine(first), cosine(first)});
    return multiply(multiply(aboutZ, aboutY), aboutX);
}

bool haveSameBits(const Matrix& a, const Matrix& b)
{
    return std::memcmp(a.m, b.m, sizeof a.m) == 0;
}

// --- building

struct BuildRow
{
    const char* name;
    Angles angles;
};

void PrintTo(const BuildRow& row, std::ostream* out)
{
    *out << row.name;
}

const BuildRow BuildRows[] = {
    {"Nothing",       {0, 0, 0}            },
    {"First",         {30, 0, 0}           },
    {"Second",        {0, 30, 0}           },
    {"Third",         {0, 0, 45}           },
    {"ThirdBackward", {0, 0, -45}          },
    {"All",           {10, 20, 30}         },
    {"AllBackward",   {-10, -20, -30}      },
    {"Obtuse",        {100, -40, 170}      },
    {"QuarterTurns",  {90, 90, 90}         },
    {"HalfTurns",     {180, 180, 180}      },
    {"WholeTurns",    {360, -360, 360}     },
    {"ManyTurns",     {1234, 2345, 3456}   },
    {"Fractions",     {0.1F, 0.2F, 0.7F}   },
    {"OfASlide",      {51, 27.4F, 344.3F}  },
    {"TinyFractions", {1e-6F, 1e-7F, 1e-8F}},
};

class BuildTransformMatrix : public testing::TestWithParam<BuildRow>
{
};

TEST_P(BuildTransformMatrix, HasTheBitsOfItsDefinition)
{
    const auto& [first, second, third] = GetParam().angles;
    EXPECT_TRUE(haveSameBits(build(GetParam().angles),
        makeExpected(toRadiansInSingle(first), toRadiansInSingle(second), toRadiansInDouble(-third))));
}

TEST_P(BuildTransformMatrix, IsARotation)
{
    const Matrix matrix = build(GetParam().angles);
    Matrix transposed;
    for (std::size_t i = 0; i < 9; ++i)
        transposed.m[3 * (i % 3) + i / 3] = matrix.m[i];
    const Matrix product = multiply(matrix, transposed);
    for (std::size_t i = 0; i < 9; ++i)
        EXPECT_NEAR(product.m[i], Matrix().m[i], 1e-6) << i;
}

INSTANTIATE_TEST_SUITE_P(Rows, BuildTransformMatrix, testing::ValuesIn(BuildRows),
    [](const auto& row) { return std::string(row.param.name); });

// Were each angle taken in the other precision, some row would have other bits: the rows above can tell.
TEST(BuildTransformMatrixPrecision, TellsInEachAngle)
{
    int tells[3] = {};
    for (const BuildRow& row : BuildRows) {
        const auto& [first, second, third] = row.angles;
        const Matrix actual = build(row.angles);
        const float inSingle[] = {toRadiansInSingle(first), toRadiansInSingle(second)};
        const float inDouble[] = {toRadiansInDouble(first), toRadiansInDouble(second)};
        const float last = toRadiansInDouble(-third);
        tells[0] += haveSameBits(actual, makeExpected(inDouble[0], inSingle[1], last)) ? 0 : 1;
        tells[1] += haveSameBits(actual, makeExpected(inSingle[0], inDouble[1], last)) ? 0 : 1;
        tells[2] +=
            haveSameBits(actual, makeExpected(inSingle[0], inSingle[1], toRadiansInSingle(-third))) ? 0 : 1;
    }
    for (const int count : tells)
        EXPECT_GT(count, 0);
}

TEST(BuildTransformMatrix, TurnsTheFirstAxisForwardAndTheOthersBackward)
{
    const float half = std::sqrt(0.5F);
    const struct
    {
        Angles angles;
        Matrix expected;
    } rows[] = {
        {{0, 0, 0},   Matrix()                                            },
        {{45, 0, 0},  makeMatrix({1, 0, 0, 0, half, -half, 0, half, half})},
        {{0, 45, 0},  makeMatrix({half, 0, -half, 0, 1, 0, half, 0, half})},
        {{0, 0, 45},  makeMatrix({half, half, 0, -half, half, 0, 0, 0, 1})},
        {{90, 90, 0}, makeMatrix({0, -1, 0, 0, 0, -1, 1, 0, 0})           },
        {{0, 90, 90}, makeMatrix({0, 1, 0, 0, 0, 1, 1, 0, 0})             },
    };
    for (const auto& row : rows)
        for (std::size_t i = 0; i < 9; ++i)
            EXPECT_NEAR(build(row.angles).m[i], row.expected.m[i], 1e-6)
                << row.angles[0] << ", " << row.angles[1] << ", " << row.angles[2] << ": element " << i;
}

// --- decomposing

struct AnglesRow
{
    const char* name;
    Angles built;
    Angles found;
};

void PrintTo(const AnglesRow& row, std::ostream* out)
{
    *out << row.name;
}

const AnglesRow AnglesRows[] = {
    {"Nothing",              {0, 0, 0},        {0, 0, 0}       },
    {"First",                {30, 0, 0},       {30, 0, 0}      },
    {"Second",               {0, 30, 0},       {0, 30, 0}      },
    {"Third",                {0, 0, 45},       {0, 0, 45}      },
    {"All",                  {10, 20, 30},     {10, 20, 30}    },
    {"AllBackward",          {-10, -20, -30},  {-10, -20, -30} },
    {"FirstObtuse",          {170, 20, 30},    {170, 20, 30}   },
    {"FirstObtuseBackward",  {-170, 20, 30},   {-170, 20, 30}  },
    {"SecondObtuse",         {10, 160, 30},    {10, 160, 30}   },
    {"SecondObtuseBackward", {10, -160, 30},   {10, -160, 30}  },
    {"FirstTwoObtuse",       {-100, 160, -30}, {-100, 160, -30}},
    {"ThirdObtuse",          {100, -40, 170},  {-80, -140, -10}},
    {"ThirdObtuseBackward",  {10, 20, -100},   {-170, 160, 80} },
    {"AWholeTurnMore",       {370, -340, 390}, {10, 20, 30}    },
    {"QuarterTurn",          {10, 90, 0},      {10, 90, 0}     },
    {"QuarterTurnBackward",  {10, -90, 0},     {10, -90, 0}    },
    {"QuarterTurnBehind",    {170, 90, 0},     {170, 90, 0}    },
    {"QuarterTurnAgainst",   {-170, 90, 0},    {-170, 90, 0}   },
    {"QuarterTurnsTogether", {10, 90, 30},     {-20, 90, 0}    },
    {"QuarterTurnsApart",    {10, -90, 30},    {40, -90, 0}    },
    {"QuarterTurnsBehind",   {100, -90, 30},   {130, -90, 0}   },
};

class ConvertMatrixToAngles : public testing::TestWithParam<AnglesRow>
{
};

TEST_P(ConvertMatrixToAngles, FindsThePrincipalOnes)
{
    const Angles found = convertMatrixToAnglesDegree(build(GetParam().built));
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_NEAR(found[i], GetParam().found[i], 1e-4) << i;
    if (std::abs(GetParam().found[1]) == 90) {
        EXPECT_EQ(found[2], 0) << "exactly";
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, ConvertMatrixToAngles, testing::ValuesIn(AnglesRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ConvertMatrixToAngles, GivesNothingForTheIdentity)
{
    EXPECT_EQ(convertMatrixToAnglesDegree(Matrix()), Angles({0, 0, 0}));
    EXPECT_EQ(build({0, 0, 0}), Matrix());
}

// Beside the threshold, the same entries give other angles: only the usual way looks at m[1][0] and m[2][1].
TEST(ConvertMatrixToAngles, TakesTheThirdOneForZeroJustBelowAQuarterTurn)
{
    constexpr float Step = 0x1p-24F;
    const struct
    {
        float sine;
        bool isGimbal;
    } rows[] = {
        {1 - 17 * Step,  false}, // 1.01e-6 below 1
        {1 - 16 * Step,  true }, // 0.95e-6
        {1,              true },
        {1 + 16 * Step,  true },
        {-1 + 17 * Step, false},
        {-1 + 16 * Step, true },
        {-1,             true },
    };
    for (const auto& row : rows) {
        const Matrix matrix = makeMatrix({0, 0, 0, 0.0005F, 0, 0.5F, row.sine, 0.0005F, 0.0005F});
        const Angles angles = convertMatrixToAnglesDegree(matrix);
        EXPECT_EQ(angles[1], std::asin(std::clamp(row.sine, -1.0F, 1.0F)) * DegreesPerRadian) << row.sine;
        EXPECT_EQ(angles[2] == 0, row.isGimbal) << row.sine;
        EXPECT_EQ(angles[0] == -std::asin(0.5F) * DegreesPerRadian, row.isGimbal) << row.sine;
    }
}

TEST(ConvertMatrixToAngles, LooksBehindAtAQuarterTurnWhereTheCosineIsWellBelowZero)
{
    const float plain = -std::asin(0.5F);
    const float behind = -(Pi - std::asin(0.5F));
    const struct
    {
        float sine;
        float cosine;
        float first;
    } rows[] = {
        {0.5F, 0.5F,                  plain },
        {0.5F, 0,                     plain },
        {0.5F, -1e-7F,                plain },
        {0.5F, -1e-6F,                plain },
        {0.5F, std::nextafter(-1e-6F, -1.0F), behind},
        {0.5F,    -0.5F,                      behind                   },
        {-0.5F,    0.5F,                     -plain},
        {-0.5F,    -0.5F,                     -behind                  },
        {0,    -1,                         -Pi       }, // the sign is that of minus zero
        {-0.0F,    -1,                     Pi              },
    };
    for (const auto& row : rows)
        for (const float quarter : {1.0F, -1.0F}) {
            const Matrix matrix = makeMatrix({0, 0, 0, 0, row.cosine, row.sine, quarter, 0, 0});
            EXPECT_EQ(convertMatrixToAnglesDegree(matrix)[0], row.first * DegreesPerRadian)
                << row.sine << ", " << row.cosine << ", " << quarter;
        }
}

TEST(ConvertMatrixToAngles, TakesTheOtherHalfWithItsSign)
{
    const struct
    {
        Matrix matrix;
        Angles angles;
    } rows[] = {
        {makeMatrix({1, 0, 0, 0, -1, 0, 0, 0, -1}),     {180, 0, 0} },
        {makeMatrix({1, 0, 0, 0, -1, 0, 0, -0.0F, -1}), {-180, 0, 0}},
        {makeMatrix({-1, 0, 0, 0, 1, 0, 0, 0, -1}),     {0, 180, 0} },
        {makeMatrix({-1, 0, 0, 0, 1, 0, -0.0F, 0, -1}), {0, -180, 0}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(convertMatrixToAnglesDegree(row.matrix), row.angles)
            << row.angles[0] << ", " << row.angles[1];
}

TEST(ConvertMatrixToAngles, ClampsWhatIsBeyondASine)
{
    constexpr float Beyond = 1.0000001F;
    const struct
    {
        Matrix matrix;
        Angles angles;
    } rows[] = {
        {makeMatrix({0, 0, 0, 0, 0, 0, Beyond, 0, 0}),  {0, 90, 0}  },
        {makeMatrix({0, 0, 0, 0, 0, 0, -Beyond, 0, 0}), {0, -90, 0} },
        {makeMatrix({0, 0, 0, 0, 0, Beyond, 1, 0, 0}),  {-90, 90, 0}},
        {makeMatrix({0, 0, 0, 0, 0, -Beyond, 1, 0, 0}), {90, 90, 0} },
        {makeMatrix({0, 0, 0, Beyond, 0, 0, 0, 0, 1}),  {0, 0, -90} },
        {makeMatrix({0, 0, 0, -Beyond, 0, 0, 0, 0, 1}), {0, 0, 90}  },
        {makeMatrix({1, 0, 0, 0, 0, 0, 0, Beyond, 0}),  {90, 0, 0}  },
        {makeMatrix({1, 0, 0, 0, 0, 0, 0, -Beyond, 0}), {-90, 0, 0} },
        {makeMatrix({0, 0, 0, 0, 0, 0, 3, 0, 0}),       {0, 90, 0}  },
    };
    for (const auto& row : rows)
        EXPECT_EQ(convertMatrixToAnglesDegree(row.matrix), row.angles)
            << row.angles[0] << ", " << row.angles[1] << ", " << row.angles[2];
}

// The angles may come back as an equivalent triple; the rotation is the same one. Towards a quarter turn, an
// arc sine magnifies what was rounded, to the root of it at most.
TEST(ConvertMatrixToAngles, BuildsTheSameMatrixAgain)
{
    const auto isNearQuarterTurn = [](float degrees) {
        return std::abs(std::cos(toRadiansInDouble(degrees))) < 0.2F;
    };
    for (float first = -360; first <= 360; first += 45)
        for (float second = -360; second <= 360; second += 15)
            for (float third = -360; third <= 360; third += 40) {
                SCOPED_TRACE(testing::Message() << first << ", " << second << ", " << third);
                const Angles built = {first, second, third};
                const Matrix matrix = build(built);
                const Angles found = convertMatrixToAnglesDegree(matrix);
                const Matrix again = build(found);
                float difference = 0;
                for (std::size_t i = 0; i < 9; ++i)
                    difference = std::max(difference, std::abs(again.m[i] - matrix.m[i]));
                const bool isCoarse = std::any_of(built.begin(), built.end(), isNearQuarterTurn);
                ASSERT_LT(difference, isCoarse ? 2e-3F : 3e-6F);
                ASSERT_LE(std::abs(found[0]), 180);
                ASSERT_LE(std::abs(found[1]), 180);
                ASSERT_LE(std::abs(found[2]), 90);
            }
}

} // namespace
} // namespace QV::FilterUtils
