#include <Formulas/Public/Utils.h>

#include <limits>
#include <string>

#include <boost/optional/optional_io.hpp>

#include <gtest/gtest.h>

namespace QV::Formulas::Utils {
namespace {

TEST(ConvertAlphaIndexToIndex, IsTheInverse)
{
    for (unsigned long column = 0; column < 20000; ++column)
        ASSERT_EQ(convertAlphaIndexToIndex(convertIndexToAlphaIndex(column)), column);
    for (unsigned long column = 1; column < std::numeric_limits<unsigned long>::max() / 3; column *= 3)
        ASSERT_EQ(convertAlphaIndexToIndex(convertIndexToAlphaIndex(column)), column);
}

TEST(ConvertAlphaIndexToIndex, TakesLettersAlone)
{
    EXPECT_EQ(convertAlphaIndexToIndex("A"), 0UL);
    EXPECT_EQ(convertAlphaIndexToIndex("z"), 25UL);
    EXPECT_EQ(convertAlphaIndexToIndex("aA"), 26UL);
    EXPECT_EQ(convertAlphaIndexToIndex("XFD"), 16383UL);
    for (const char* text : {"", "1", "A1", "@", "[", "`", "{", " A", "A ", "$A", "\xC3\x84"})
        EXPECT_FALSE(convertAlphaIndexToIndex(text)) << text;
}

TEST(ConvertAlphaIndexToIndex, EndsAtTheLargestColumn)
{
    constexpr unsigned long Max = std::numeric_limits<unsigned long>::max();
    std::string letters = convertIndexToAlphaIndex(Max - 1);
    EXPECT_EQ(convertAlphaIndexToIndex(letters), Max - 1);
    ++letters.back();
    EXPECT_FALSE(convertAlphaIndexToIndex(letters)) << letters;
    EXPECT_FALSE(convertAlphaIndexToIndex(std::string(100000, 'A')));
}

} // namespace
} // namespace QV::Formulas::Utils
