#include <DOM/Public/Hyperlink.h>

#include <gtest/gtest.h>

namespace QV::DOM {
namespace {

TEST(Hyperlink, HoldsItsTwoTexts)
{
    Hyperlink link("a.xlsx");
    EXPECT_EQ(link.getURL(), "a.xlsx");
    EXPECT_EQ(link.getAnchor(), "");
    link.setURL("");
    link.setAnchor("B2");
    EXPECT_EQ(link.getURL(), "");
    EXPECT_EQ(link.getAnchor(), "B2");
}

TEST(Hyperlink, EqualsByBothTexts)
{
    const Hyperlink link("a", "b");
    EXPECT_EQ(link, Hyperlink("a", "b"));
    EXPECT_EQ(hash_value(link), hash_value(Hyperlink("a", "b")));
    for (const Hyperlink& other : {Hyperlink("a"), Hyperlink("", "b"), Hyperlink("b", "a"), Hyperlink("ab")})
        EXPECT_NE(link, other) << other.getURL() << '#' << other.getAnchor();
}

} // namespace
} // namespace QV::DOM
