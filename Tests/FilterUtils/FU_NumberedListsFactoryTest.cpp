#include <FilterUtils/FU_NumberedListsFactory.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include <boost/optional.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/NumberedList.h>
#include <DOM/Public/NumberingRef.h>
#include <Tests/Support/NumRefs.h>
#include <Tests/Support/RecordedAssertions.h>

namespace QV::FilterUtils {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::makeNumRef;
using Tests::NumRef;
using Tests::RecordedAssertions;

using Levels = std::vector<std::unique_ptr<DOM::NumberingLevel>>;

void appendLevel(Levels& levels, boost::optional<unsigned> type)
{
    auto marker = std::make_shared<DOM::NumListMarker>();
    if (type)
        marker->setType(static_cast<DOM::NumListMarkerType>(*type));
    levels.push_back(std::make_unique<DOM::NumberingLevel>());
    levels.back()->setListMarker(marker);
}

/// The number of the type; 0 for nothing.
unsigned getTypeNumber(const Levels& levels)
{
    const boost::optional<DOM::NumListNameType> type = getNumberedListNameType(levels);
    return type ? static_cast<unsigned>(*type) : 0;
}

TEST(NumberedListsFactory, KeepsTheOrderAndSharesTheLists)
{
    NumberedListsFactory factory;
    EXPECT_THAT(factory.getNumberedLists(), IsEmpty());
    const std::shared_ptr<DOM::NumberedList> first = factory.makeNumberedList();
    const std::shared_ptr<DOM::NumberedList> second = factory.makeNumberedList();
    EXPECT_THAT(first->getLevels(), IsEmpty());
    EXPECT_NE(first->getUUID(), second->getUUID());
    EXPECT_THAT(factory.getNumberedLists(), ElementsAre(first, second));
    const NumberedListsFactory& constant = factory;
    EXPECT_EQ(&constant.getNumberedLists(), &factory.getNumberedLists());
    second->appendLevel(std::make_unique<DOM::NumberingLevel>());
    EXPECT_EQ(constant.getNumberedLists().back()->getLevels().size(), 1U);
}

struct MarkerRow
{
    const char* name;
    unsigned marker;
    unsigned type; // 0 for nothing
};

void PrintTo(const MarkerRow& row, std::ostream* out)
{
    *out << "marker " << row.marker;
}

// name, marker, type
const MarkerRow MarkerRows[] = {
    {"First",            0,   2},
    {"LastNumbered",     4,   2},
    {"FirstBullet",      5,   1},
    {"LastBullet",       6,   1},
    {"FirstWithoutType", 7,   0},
    {"LastOfAll",        255, 0},
};

class GetNumberedListNameType : public testing::TestWithParam<MarkerRow>
{
};

TEST_P(GetNumberedListNameType, KeepsRow)
{
    Levels levels;
    appendLevel(levels, GetParam().marker);
    EXPECT_EQ(getTypeNumber(levels), GetParam().type);
}

INSTANTIATE_TEST_SUITE_P(Rows, GetNumberedListNameType, testing::ValuesIn(MarkerRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(GetNumberedListNameType, KnowsEveryMarker)
{
    for (unsigned marker = 0; marker < 256; ++marker) {
        Levels levels;
        appendLevel(levels, marker);
        const unsigned expected = marker < 5 ? 2 : marker < 7 ? 1 : 0;
        EXPECT_EQ(getTypeNumber(levels), expected) << "marker " << marker;
    }
}

TEST(GetNumberedListNameType, AsksTheLastLevelAlone)
{
    Levels levels;
    appendLevel(levels, 5U);
    appendLevel(levels, 9U);
    appendLevel(levels, 0U);
    EXPECT_EQ(getTypeNumber(levels), static_cast<unsigned>(DOM::NumListNameType::Numbered));
    appendLevel(levels, 5U);
    EXPECT_EQ(getTypeNumber(levels), static_cast<unsigned>(DOM::NumListNameType::Bulleted));
}

TEST(GetNumberedListNameType, IsNothingWithoutLevelsOrType)
{
    Levels levels;
    EXPECT_EQ(getTypeNumber(levels), 0U);
    appendLevel(levels, 0U);
    appendLevel(levels, boost::none);
    EXPECT_EQ(getTypeNumber(levels), 0U);
}

TEST(GetNumberedListNameType, AssertsTheMarkerOfTheLastLevel)
{
    Levels levels;
    appendLevel(levels, 0U);
    levels.push_back(std::make_unique<DOM::NumberingLevel>());
    const RecordedAssertions assertions;
    EXPECT_EQ(getTypeNumber(levels), 0U);
    ASSERT_THAT(assertions.getExpressions(), ElementsAre("plainPtr"));
    EXPECT_THAT(assertions.getFailures()[0].file, testing::EndsWith("PtrUtils.h"));
    EXPECT_EQ(assertions.getFailures()[0].line, 254);
}

TEST(GetNumberedListNameType, MayLackTheMarkersOfOtherLevels)
{
    Levels levels;
    levels.push_back(std::make_unique<DOM::NumberingLevel>());
    appendLevel(levels, 0U);
    const RecordedAssertions assertions;
    EXPECT_EQ(getTypeNumber(levels), 2U);
    EXPECT_THAT(assertions.getExpressions(), IsEmpty());
}

TEST(GetNumberedListNameType, AssertsTheLastLevel)
{
    Levels levels;
    levels.push_back(nullptr);
    const RecordedAssertions assertions;
    EXPECT_EQ(getTypeNumber(levels), 0U);
    EXPECT_THAT(assertions.getExpressions(), ElementsAre("plainPtr"));
}

TEST(MakeRemovedNumRef, SetsNilIdentifiersAndLevelZero)
{
    EXPECT_EQ(*makeRemovedNumRef(), *makeNumRef({0, 0, 0}));
    EXPECT_NE(makeRemovedNumRef(), makeRemovedNumRef());
}

struct RemovedRow
{
    const char* name;
    NumRef reference;
    bool isRemoved;
};

void PrintTo(const RemovedRow& row, std::ostream* out)
{
    *out << toText(row.reference);
}

// name, reference, isRemoved
const RemovedRow RemovedRows[] = {
    {"AsMadeHere",     {0, 0, 0},    true },
    {"NilListAlone",   {-1, 0, -1},  true },
    {"AnyTagAndLevel", {7, 0, 8},    true },
    {"List",           {0, 1, 0},    false},
    {"NoList",         {0, -1, 0},   false},
    {"NothingSet",     {-1, -1, -1}, false},
    {"ListAndTheRest", {1, 2, 3},    false},
};

class IsRemovedNumRef : public testing::TestWithParam<RemovedRow>
{
};

TEST_P(IsRemovedNumRef, KeepsRow)
{
    EXPECT_EQ(isRemovedNumRef(*makeNumRef(GetParam().reference)), GetParam().isRemoved);
}

INSTANTIATE_TEST_SUITE_P(Rows, IsRemovedNumRef, testing::ValuesIn(RemovedRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(IsRemovedNumRef, KnowsWhatIsMadeHere)
{
    EXPECT_TRUE(isRemovedNumRef(*makeRemovedNumRef()));
}

} // namespace
} // namespace QV::FilterUtils
