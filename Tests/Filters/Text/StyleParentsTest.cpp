#include <Filters/Text/StyleParents.h>

#include <cstddef>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t None = NoStyleParent;

/// Each style derives from the one before it.
StyleParents makeChain(std::size_t size)
{
    StyleParents parents = {None};
    for (std::size_t i = 1; i < size; ++i)
        parents.push_back(i - 1);
    return parents;
}

/// Each style derives from the one behind it.
StyleParents makeReversedChain(std::size_t size)
{
    StyleParents parents;
    for (std::size_t i = 1; i < size; ++i)
        parents.push_back(i);
    parents.push_back(None);
    return parents;
}

std::size_t measureChain(const StyleParents& parents, std::size_t style)
{
    std::size_t length = 0;
    for (; style != None && length <= parents.size(); style = parents[style])
        ++length;
    return length;
}

TEST(CutStyleParents, KeepsTrees)
{
    StyleParents parents = {None, 0, 0, 1, 5, None};
    const StyleParents before = parents;
    const CutStyles cuts = cutStyleParents(parents);
    EXPECT_EQ(parents, before);
    EXPECT_THAT(cuts.circular, IsEmpty());
    EXPECT_THAT(cuts.tooDeep, IsEmpty());
}

TEST(CutStyleParents, TakesNoStyles)
{
    StyleParents parents;
    const CutStyles cuts = cutStyleParents(parents);
    EXPECT_THAT(cuts.circular, IsEmpty());
    EXPECT_THAT(parents, IsEmpty());
}

TEST(CutStyleParents, CutsAStyleFromItself)
{
    StyleParents parents = {0, 0};
    const CutStyles cuts = cutStyleParents(parents);
    EXPECT_THAT(parents, ElementsAre(None, 0));
    EXPECT_THAT(cuts.circular, ElementsAre(0));
}

TEST(CutStyleParents, CutsACircleWhereItCloses)
{
    // 3 derives from the circle 0, 1, 2 without being a part of it.
    StyleParents parents = {1, 2, 0, 1};
    const CutStyles cuts = cutStyleParents(parents);
    EXPECT_THAT(parents, ElementsAre(1, 2, None, 1));
    EXPECT_THAT(cuts.circular, ElementsAre(2));
    EXPECT_THAT(cuts.tooDeep, IsEmpty());
}

TEST(CutStyleParents, CutsEachOfTwoCircles)
{
    StyleParents parents = {1, 0, 3, 2};
    const CutStyles cuts = cutStyleParents(parents);
    EXPECT_THAT(parents, ElementsAre(1, None, 3, None));
    EXPECT_THAT(cuts.circular, ElementsAre(1, 3));
}

TEST(CutStyleParents, KeepsTheLongestChain)
{
    for (StyleParents parents : {makeChain(MaxStyleChain), makeReversedChain(MaxStyleChain)}) {
        const StyleParents before = parents;
        EXPECT_THAT(cutStyleParents(parents).tooDeep, IsEmpty());
        EXPECT_EQ(parents, before);
    }
}

TEST(CutStyleParents, CutsALongerChainAboveIt)
{
    StyleParents chain = makeChain(MaxStyleChain + 1);
    EXPECT_THAT(cutStyleParents(chain).tooDeep, ElementsAre(MaxStyleChain));
    EXPECT_EQ(chain[MaxStyleChain], None);
    EXPECT_EQ(chain[MaxStyleChain - 1], MaxStyleChain - 2);

    StyleParents reversed = makeReversedChain(MaxStyleChain + 1);
    EXPECT_THAT(cutStyleParents(reversed).tooDeep, ElementsAre(0));
    EXPECT_EQ(reversed[0], None);
}

TEST(CutStyleParents, LeavesChainsThatEnd)
{
    constexpr std::size_t Size = 100'000;
    StyleParents chain = makeReversedChain(Size);
    const CutStyles cuts = cutStyleParents(chain);
    EXPECT_EQ(cuts.tooDeep.size(), Size / MaxStyleChain - 1);
    for (std::size_t i = 0; i < Size; i += 17)
        ASSERT_LE(measureChain(chain, i), MaxStyleChain) << i;
}

} // namespace
} // namespace QV::Filters
