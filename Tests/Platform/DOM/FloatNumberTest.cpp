#include <DOM/Public/FloatNumber.h>

#include <type_traits>

#include <gtest/gtest.h>

namespace QV {
namespace {

TEST(FloatNumber, HoldsWhatItWasMadeOf)
{
    EXPECT_EQ(FloatNumber().get(), 0.0);
    EXPECT_EQ(FloatNumber(2.5).get(), 2.5);
    EXPECT_EQ(sizeof(FloatNumber), sizeof(double));
}

TEST(FloatNumber, IsMadeAndTakenApartExplicitly)
{
    EXPECT_FALSE((std::is_convertible_v<double, FloatNumber>));
    EXPECT_FALSE((std::is_convertible_v<FloatNumber, double>));
}

TEST(FloatNumber, ComparesByValue)
{
    EXPECT_EQ(FloatNumber(1.5), FloatNumber(1.5));
    EXPECT_NE(FloatNumber(1.5), FloatNumber(1.25));
    EXPECT_LT(FloatNumber(1.25), FloatNumber(1.5));
    EXPECT_FALSE(FloatNumber(1.5) < FloatNumber(1.5));
}

} // namespace
} // namespace QV
