#include <FilterUtils/FU_Errors.h>

#include <climits>
#include <ostream>
#include <stdexcept>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

namespace QV {
namespace {

const char* const NegativeOverflow = "bad numeric conversion: negative overflow";
const char* const PositiveOverflow = "bad numeric conversion: positive overflow";

template <typename To, typename From>
struct CastRow
{
    const char* name;
    From value;
    To result;
    const char* error; // null: none
};

template <typename To, typename From>
void PrintTo(const CastRow<To, From>& row, std::ostream* out)
{
    *out << row.value;
}

template <typename To, typename From>
void expectCast(const CastRow<To, From>& row)
{
    if (!row.error) {
        EXPECT_EQ((numCast<To, From>(row.value)), row.result);
        return;
    }
    try {
        numCast<To, From>(row.value);
        FAIL() << "nothing was thrown";
    } catch (const BadNumCastError& error) {
        EXPECT_STREQ(error.what(), row.error);
    }
}

template <typename Row>
std::string nameRow(const testing::TestParamInfo<Row>& row)
{
    return row.param.name;
}

using IntToUnsignedLongRow = CastRow<unsigned long, int>;

const IntToUnsignedLongRow IntToUnsignedLongRows[] = {
    {"Zero",     0,       0,          nullptr         },
    {"Largest",  INT_MAX, 2147483647, nullptr         },
    {"MinusOne", -1,      0,          NegativeOverflow},
    {"Smallest", INT_MIN, 0,          NegativeOverflow},
};

class NumCastIntToUnsignedLong : public testing::TestWithParam<IntToUnsignedLongRow>
{
};

TEST_P(NumCastIntToUnsignedLong, KeepsRow)
{
    expectCast(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, NumCastIntToUnsignedLong, testing::ValuesIn(IntToUnsignedLongRows), nameRow<IntToUnsignedLongRow>);

using UnsignedLongToIntRow = CastRow<int, unsigned long>;

const UnsignedLongToIntRow UnsignedLongToIntRows[] = {
    {"Zero",      0,          0,       nullptr         },
    {"AtMaximum", 2147483647, INT_MAX, nullptr         },
    {"OneAbove",  2147483648, 0,       PositiveOverflow},
    {"Largest",   ULONG_MAX,  0,       PositiveOverflow},
};

class NumCastUnsignedLongToInt : public testing::TestWithParam<UnsignedLongToIntRow>
{
};

TEST_P(NumCastUnsignedLongToInt, KeepsRow)
{
    expectCast(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, NumCastUnsignedLongToInt, testing::ValuesIn(UnsignedLongToIntRows), nameRow<UnsignedLongToIntRow>);

using UnsignedLongToUnsignedRow = CastRow<unsigned int, unsigned long>;

const UnsignedLongToUnsignedRow UnsignedLongToUnsignedRows[] = {
    {"Zero",      0,          0,        nullptr         },
    {"AtMaximum", 4294967295, UINT_MAX, nullptr         },
    {"OneAbove",  4294967296, 0,        PositiveOverflow},
    {"Largest",   ULONG_MAX,  0,        PositiveOverflow},
};

class NumCastUnsignedLongToUnsigned : public testing::TestWithParam<UnsignedLongToUnsignedRow>
{
};

TEST_P(NumCastUnsignedLongToUnsigned, KeepsRow)
{
    expectCast(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Rows, NumCastUnsignedLongToUnsigned, testing::ValuesIn(UnsignedLongToUnsignedRows),
    nameRow<UnsignedLongToUnsignedRow>);

// A cast that the library does not instantiate for its callers throws the very same type.
TEST(NumCast, ThrowsFromAnInstantiationOfTheCaller)
{
    expectCast(CastRow<unsigned char, int>{"AtMaximum", 255, 255, nullptr});
    expectCast(CastRow<unsigned char, int>{"OneAbove", 256, 0, PositiveOverflow});
    expectCast(CastRow<signed char, long>{"AtMinimum", -128, -128, nullptr});
    expectCast(CastRow<signed char, long>{"OneBelow", -129, 0, NegativeOverflow});
}

template <typename Error>
class ErrorFamily : public testing::Test
{
};

using Errors = testing::Types<BaseRuntimeError, InternalFilterError, BadNumCastError>;

struct ErrorNames
{
    template <typename Error>
    static std::string GetName(int)
    {
        return std::is_same_v<Error, BaseRuntimeError>      ? "BaseRuntimeError"
               : std::is_same_v<Error, InternalFilterError> ? "InternalFilterError"
                                                            : "BadNumCastError";
    }
};

TYPED_TEST_SUITE(ErrorFamily, Errors, ErrorNames);

TYPED_TEST(ErrorFamily, IsCaughtAsItselfAsTheRootAndAsARuntimeError)
{
    try {
        throw TypeParam("what happened");
    } catch (const TypeParam& error) {
        EXPECT_STREQ(error.what(), "what happened");
    }
    try {
        throw TypeParam("what happened");
    } catch (const BaseRuntimeError& error) {
        EXPECT_STREQ(error.what(), "what happened");
    }
    EXPECT_THROW(throw TypeParam(""), std::runtime_error);
}

TYPED_TEST(ErrorFamily, IsMadeOfAMessageAloneAndAddsNoFields)
{
    EXPECT_TRUE((std::is_constructible_v<TypeParam, const char*>));
    EXPECT_FALSE((std::is_constructible_v<TypeParam, std::string>));
    EXPECT_FALSE(std::is_default_constructible_v<TypeParam>);
    EXPECT_TRUE(std::is_copy_constructible_v<TypeParam>);
    EXPECT_EQ(sizeof(TypeParam), sizeof(std::runtime_error));
}

TEST(BadNumCastErrorFromTheLibrary, IsCaughtAsEveryBase)
{
    EXPECT_THROW((numCast<unsigned long, int>(-1)), BadNumCastError);
    EXPECT_THROW((numCast<unsigned long, int>(-1)), BaseRuntimeError);
    EXPECT_THROW((numCast<unsigned long, int>(-1)), std::runtime_error);
}

} // namespace
} // namespace QV
