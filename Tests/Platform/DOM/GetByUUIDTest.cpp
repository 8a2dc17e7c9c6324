#include <DOM/Public/GetByUUID.h>

#include <memory>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/NamedTextStyle.h>
#include <Tests/Support/RecordedAssertions.h>
#include <Utils/Public/ReadonlyVector.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::RecordedAssertions;

using Styles = std::vector<std::shared_ptr<NamedTextStyle>>;

Styles makeStyles()
{
    Styles styles;
    for (unsigned number : {1U, 2U, 3U, 2U}) {
        styles.push_back(std::make_shared<NamedTextStyle>());
        styles.back()->setUUID(UUID(0, number));
    }
    return styles;
}

TEST(GetByUUID, FindsTheFirstOfTheIdentifier)
{
    const Styles styles = makeStyles();
    EXPECT_EQ(getByUUID(styles, UUID(0, 1)), styles[0].get());
    EXPECT_EQ(getByUUID(styles, UUID(0, 2)), styles[1].get());
    EXPECT_EQ(getByUUID(styles, UUID(0, 3)), styles[2].get());
    static_assert(std::is_same_v<decltype(getByUUID(styles, UUID())), NamedTextStyle*>);
}

TEST(GetByUUID, IsNullWhereThereIsNone)
{
    EXPECT_EQ(getByUUID(makeStyles(), UUID(0, 4)), nullptr);
    EXPECT_EQ(getByUUID(makeStyles(), UUID()), nullptr);
    EXPECT_EQ(getByUUID(Styles(), UUID(0, 1)), nullptr);
}

TEST(GetByUUID, SearchesViews)
{
    const Styles styles = makeStyles();
    const ReadonlyVector<std::shared_ptr<NamedTextStyle>> view(styles);
    EXPECT_EQ(getByUUID(view, UUID(0, 2)), styles[1].get());
    EXPECT_EQ(getByUUID(view, UUID(0, 4)), nullptr);
    static_assert(std::is_same_v<decltype(getByUUID(view, UUID())), const NamedTextStyle*>);
}

TEST(GetByUUID, AssertsNullEntriesThatItMeets)
{
    Styles styles = makeStyles();
    styles.insert(styles.begin() + 1, nullptr);
    const RecordedAssertions assertions;
    EXPECT_EQ(getByUUID(styles, UUID(0, 1)), styles[0].get());
    EXPECT_THAT(assertions.getExpressions(), IsEmpty());
    EXPECT_EQ(getByUUID(styles, UUID(0, 2)), styles[2].get());
    EXPECT_THAT(assertions.getExpressions(), ElementsAre("plainPtr"));
}

} // namespace
} // namespace QV::DOM
