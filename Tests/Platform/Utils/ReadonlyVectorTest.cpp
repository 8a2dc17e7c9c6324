#include <Utils/Public/ReadonlyVector.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tests/Support/RecordedAssertions.h>

namespace QV {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::RecordedAssertions;

struct Series
{
    explicit Series(int value)
        : number(value)
    {
    }
    virtual ~Series() = default;
    virtual int getNumber() const { return number; }

    int number;
};

template <typename T>
std::vector<int> readNumbers(const ReadonlyVector<T>& view)
{
    std::vector<int> numbers;
    for (const auto& item : view)
        numbers.push_back(item.getNumber());
    return numbers;
}

template <typename Pointer>
std::vector<Pointer> makePointers()
{
    std::vector<Pointer> pointers;
    for (int i = 1; i <= 3; ++i)
        pointers.push_back(Pointer(new Series(i)));
    return pointers;
}

TEST(ReadonlyVector, GivesValuesAsTheyAre)
{
    const std::vector<std::string> items = {"a", "b"};
    const ReadonlyVector<std::string> view(items);
    EXPECT_THAT(view, ElementsAre("a", "b"));
    EXPECT_EQ(view.size(), 2U);
    EXPECT_FALSE(view.empty());
    EXPECT_EQ(&view[1], &items[1]);
    EXPECT_EQ(&view.front(), &items[0]);
    EXPECT_EQ(&view.back(), &items[1]);
    EXPECT_EQ(&view.getItems(), &items);
}

TEST(ReadonlyVector, GivesTheObjectsBehindPointers)
{
    const auto unique = makePointers<std::unique_ptr<Series>>();
    const ReadonlyVector<std::unique_ptr<Series>> uniqueView(unique);
    EXPECT_THAT(readNumbers(uniqueView), ElementsAre(1, 2, 3));
    EXPECT_EQ(&uniqueView[1], unique[1].get());
    EXPECT_EQ(&uniqueView.front(), unique[0].get());
    EXPECT_EQ(&uniqueView.back(), unique[2].get());

    const auto shared = makePointers<std::shared_ptr<Series>>();
    EXPECT_THAT(readNumbers(ReadonlyVector<std::shared_ptr<Series>>(shared)), ElementsAre(1, 2, 3));

    const std::vector<Series*> plain = {shared[2].get(), shared[0].get()};
    EXPECT_THAT(readNumbers(ReadonlyVector<Series*>(plain)), ElementsAre(3, 1));
}

TEST(ReadonlyVector, GivesConstants)
{
    using View = ReadonlyVector<std::unique_ptr<Series>>;
    static_assert(std::is_same_v<decltype(std::declval<View>()[0]), const Series&>);
    static_assert(std::is_same_v<decltype(*std::declval<View>().begin()), const Series&>);
    static_assert(std::is_same_v<std::iterator_traits<View::const_iterator>::iterator_category,
        std::random_access_iterator_tag>);
    static_assert(
        !std::is_constructible_v<View, std::vector<std::unique_ptr<Series>>>, "temporaries are refused");
}

TEST(ReadonlyVector, SeesWhatIsAppendedLater)
{
    std::vector<int> items;
    const ReadonlyVector<int> view(items);
    EXPECT_TRUE(view.empty());
    EXPECT_THAT(view, IsEmpty());
    items.push_back(5);
    EXPECT_THAT(view, ElementsAre(5));
}

TEST(ReadonlyVector, IteratorsGoByAnyStep)
{
    const std::vector<int> items = {1, 3, 5, 7, 9};
    const ReadonlyVector<int> view(items);
    EXPECT_EQ(view.begin()[3], 7);
    EXPECT_EQ(*(view.end() - 1), 9);
    EXPECT_EQ(view.end() - view.begin(), 5);
    EXPECT_EQ(std::lower_bound(view.begin(), view.end(), 5) - view.begin(), 2);
}

TEST(ReadonlyVector, RefusesIndicesFromTheSizeOn)
{
    const std::vector<int> items = {1, 2};
    const ReadonlyVector<int> view(items);
    const RecordedAssertions recorded;
    EXPECT_EQ(view[1], 2);
    EXPECT_THAT(recorded.getExpressions(), IsEmpty());
    EXPECT_THROW(view[2], std::out_of_range);
    EXPECT_THROW(view[static_cast<std::size_t>(-1)], std::out_of_range);
    EXPECT_THAT(recorded.getExpressions(), ElementsAre("index < size()", "index < size()"));
}

TEST(ReadonlyVector, EmptyOneHasNoEnds)
{
    const std::vector<int> items;
    const ReadonlyVector<int> view(items);
    const RecordedAssertions recorded;
    EXPECT_THROW(view.front(), std::out_of_range);
    EXPECT_THROW(view.back(), std::out_of_range);
    EXPECT_THAT(recorded.getExpressions(), ElementsAre("!_items.get().empty()", "!_items.get().empty()"));
}

TEST(ReadonlyVector, TellsNullPointersWhereTheyAreReached)
{
    auto items = makePointers<std::unique_ptr<Series>>();
    items[1].reset();
    const ReadonlyVector<std::unique_ptr<Series>> view(items);
    const RecordedAssertions recorded;
    EXPECT_EQ(view[0].number, 1);
    EXPECT_EQ(view[2].number, 3);
    EXPECT_THAT(recorded.getExpressions(), IsEmpty());
    EXPECT_THROW(view[1], std::logic_error);
    EXPECT_THROW(*std::next(view.begin()), std::logic_error);
    EXPECT_THAT(recorded.getExpressions(), ElementsAre("plainPtr", "plainPtr"));
}

} // namespace
} // namespace QV
