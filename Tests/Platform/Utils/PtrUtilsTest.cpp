#include <Utils/Public/Ptr/PtrUtils.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include <boost/optional.hpp>
#include <boost/unordered_set.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tests/Support/RecordedAssertions.h>

namespace QV {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::RecordedAssertions;

struct Shape
{
    virtual ~Shape() = default;
    virtual std::unique_ptr<Shape> clone() const { return std::make_unique<Shape>(*this); }
};

struct Circle : Shape
{
    explicit Circle(int size)
        : radius(size)
    {
    }
    std::unique_ptr<Shape> clone() const override { return std::make_unique<Circle>(*this); }

    int radius;
};

struct Disc final : Circle
{
    using Circle::Circle;
};

struct Counted : RefCounted<Counted>
{
    explicit Counted(int& destroyed)
        : _destroyed(destroyed)
    {
    }
    Counted(const Counted&) = default;
    Counted& operator=(const Counted&) = delete;
    ~Counted() { ++_destroyed; }

private:
    int& _destroyed;
};

TEST(CheckPtr, GivesThePointerBack)
{
    int value = 3;
    const RecordedAssertions recorded;
    EXPECT_EQ(checkPtr(&value), &value);
    EXPECT_THAT(recorded.getExpressions(), IsEmpty());
}

TEST(CheckPtr, TellsANullPointerOnItsFixedLine)
{
    const RecordedAssertions recorded;
    EXPECT_EQ(checkPtr(static_cast<int*>(nullptr)), nullptr);
    ASSERT_EQ(recorded.getFailures().size(), 1U);
    const RecordedAssertions::Failure& failure = recorded.getFailures().front();
    EXPECT_EQ(failure.expression, "plainPtr");
    EXPECT_EQ(failure.file, "Platform/Utils/Public/Ptr/PtrUtils.h");
    EXPECT_EQ(failure.line, 254);
    EXPECT_EQ(failure.message, "");
}

TEST(Deref, GivesTheObjectBehindEachKindOfPointer)
{
    int value = 3;
    const std::unique_ptr<int> unique = std::make_unique<int>(4);
    const std::shared_ptr<const int> shared = std::make_shared<int>(5);
    int destroyed = 0;
    const IntrusivePtr<Counted> counted = makeIntrusive<Counted>(destroyed);
    EXPECT_EQ(&deref(&value), &value);
    EXPECT_EQ(&deref(unique), unique.get());
    EXPECT_EQ(&deref(shared), shared.get());
    EXPECT_EQ(&deref(counted), counted.get());
    static_assert(std::is_same_v<decltype(deref(&value)), int&>);
    static_assert(std::is_same_v<decltype(deref(shared)), const int&>);
}

template <typename Pointer>
void expectRefused(const Pointer& pointer)
{
    const RecordedAssertions recorded;
    EXPECT_THROW(deref(pointer), std::logic_error);
    EXPECT_THAT(recorded.getExpressions(), ElementsAre("plainPtr"));
}

TEST(Deref, RefusesNullPointersOfEachKind)
{
    expectRefused(static_cast<const int*>(nullptr));
    expectRefused(std::unique_ptr<int>());
    expectRefused(std::shared_ptr<Shape>());
    expectRefused(IntrusivePtr<Counted>());
}

static_assert(IsPointer<int*>::value && IsPointer<const int* const>::value);
static_assert(IsPointer<std::unique_ptr<Shape>>::value && IsPointer<std::shared_ptr<const Shape>>::value);
static_assert(IsPointer<IntrusivePtr<Counted>>::value);
static_assert(
    !IsPointer<int>::value && !IsPointer<std::string>::value && !IsPointer<boost::optional<int>>::value);
static_assert(!IsPointer<std::vector<int>::iterator>::value);
static_assert(std::is_same_v<PointeeOrSelf<std::shared_ptr<const int>>, int>);
static_assert(std::is_same_v<PointeeOrSelf<std::string>, std::string>);

static_assert(!std::is_constructible_v<NotNull<int*>, std::nullptr_t>);
static_assert(!std::is_convertible_v<int*, NotNull<int*>>);
static_assert(!std::is_default_constructible_v<NotNull<int*>>);

TEST(NotNull, HoldsThePointer)
{
    const std::shared_ptr<Circle> circle = std::make_shared<Circle>(2);
    const NotNull<std::shared_ptr<Circle>> held(circle);
    EXPECT_EQ(held.get(), circle);
    EXPECT_EQ(held->radius, 2);
    EXPECT_EQ(&*held, circle.get());
}

TEST(NotNull, StaysWholeWhenMovedFrom)
{
    NotNull<std::shared_ptr<Circle>> held(std::make_shared<Circle>(2));
    const NotNull<std::shared_ptr<Circle>> other(std::move(held));
    EXPECT_EQ(held.get(), other.get()); // NOLINT: a copy, since there is no move
    EXPECT_EQ(held->radius, 2);
}

TEST(NotNull, RefusesANullPointer)
{
    const RecordedAssertions recorded;
    EXPECT_THROW(NotNull<Circle*>(static_cast<Circle*>(nullptr)), std::logic_error);
    EXPECT_THAT(recorded.getExpressions(), ElementsAre("plainPtr"));
}

TEST(IntrusivePtr, DestroysTheObjectWithItsLastOwner)
{
    int destroyed = 0;
    IntrusivePtr<Counted> first = makeIntrusive<Counted>(destroyed);
    IntrusivePtr<Counted> second(first.get());
    EXPECT_EQ(first->use_count(), 2U);
    first.reset();
    EXPECT_EQ(destroyed, 0);
    second.reset();
    EXPECT_EQ(destroyed, 1);
    static_assert(sizeof(IntrusivePtr<Counted>) == sizeof(void*));
}

TEST(IntrusivePtr, CopiedObjectsCountTheirOwnOwners)
{
    int destroyed = 0;
    const IntrusivePtr<Counted> original = makeIntrusive<Counted>(destroyed);
    const IntrusivePtr<Counted> copy = makeIntrusive<Counted>(*original);
    EXPECT_EQ(original->use_count(), 1U);
    EXPECT_EQ(copy->use_count(), 1U);
}

TEST(IsExactly, RefusesBasesAndDerivedClasses)
{
    const Shape shape;
    const Circle circle(1);
    const Disc disc(1);
    const Shape& circleAsShape = circle;
    EXPECT_TRUE(isExactly<Circle>(circleAsShape));
    EXPECT_TRUE(isExactly<Circle>(&circleAsShape));
    EXPECT_FALSE(isExactly<Shape>(circleAsShape));
    EXPECT_FALSE(isExactly<Circle>(static_cast<const Shape&>(disc)));
    EXPECT_FALSE(isExactly<Circle>(shape));
    EXPECT_TRUE(isExactly<Shape>(shape));
    EXPECT_FALSE(isExactly<Shape>(static_cast<const Shape*>(nullptr)));
}

TEST(ExactCast, GivesOnlyTheExactKind)
{
    Circle circle(1);
    Disc disc(1);
    Shape* const shape = &circle;
    const Shape* const constant = &circle;
    EXPECT_EQ(exactCast<Circle>(shape), &circle);
    EXPECT_EQ(exactCast<Circle>(constant), &circle);
    EXPECT_EQ(exactCast<Circle>(static_cast<Shape*>(&disc)), nullptr);
    EXPECT_EQ(exactCast<Disc>(shape), nullptr);
    EXPECT_EQ(exactCast<Disc>(static_cast<Shape*>(nullptr)), nullptr);
    static_assert(std::is_same_v<decltype(exactCast<Circle>(shape)), Circle*>);
    static_assert(std::is_same_v<decltype(exactCast<Circle>(constant)), const Circle*>);
}

TEST(ClonePtr, CopiesTheWholeObject)
{
    const std::unique_ptr<Shape> original = std::make_unique<Circle>(7);
    const std::unique_ptr<Shape> copy = clonePtr(original);
    ASSERT_NE(copy, original);
    ASSERT_NE(exactCast<Circle>(copy.get()), nullptr);
    EXPECT_EQ(exactCast<Circle>(copy.get())->radius, 7);
    EXPECT_EQ(clonePtr(std::unique_ptr<Shape>()), nullptr);
}

TEST(CopyPtr, CopiesTheValue)
{
    const std::unique_ptr<std::string> original = std::make_unique<std::string>("marker");
    const std::unique_ptr<std::string> copy = copyPtr(original);
    ASSERT_NE(copy, original);
    EXPECT_EQ(*copy, "marker");
    EXPECT_EQ(copyPtr(std::unique_ptr<std::string>()), nullptr);
}

TEST(PointeesEqual, ComparesByValue)
{
    const auto one = std::make_shared<std::string>("1");
    const auto equal = std::make_unique<std::string>("1");
    const auto other = std::make_shared<std::string>("2");
    const std::shared_ptr<std::string> null;
    EXPECT_TRUE(pointeesEqual(one, one));
    EXPECT_TRUE(pointeesEqual(one, equal));
    EXPECT_TRUE(pointeesEqual(one, equal.get()));
    EXPECT_FALSE(pointeesEqual(one, other));
    EXPECT_FALSE(pointeesEqual(one, null));
    EXPECT_FALSE(pointeesEqual(null, one));
    EXPECT_TRUE(pointeesEqual(null, null));
}

struct Unequal
{
    friend bool operator==(const Unequal&, const Unequal&) { return false; }
};

TEST(PointeesEqual, AsksNothingOfTheSameObject)
{
    const Unequal one;
    const Unequal other;
    EXPECT_TRUE(pointeesEqual(&one, &one));
    EXPECT_FALSE(pointeesEqual(&one, &other));
}

TEST(HashPointee, AgreesWithEquality)
{
    const auto one = std::make_shared<const std::string>("1");
    EXPECT_EQ(hashPointee(one), hashPointee(std::make_unique<std::string>("1")));
    EXPECT_NE(hashPointee(one), hashPointee(std::make_unique<std::string>("2")));
    EXPECT_EQ(hashPointee(std::shared_ptr<std::string>()), 0U);
    boost::unordered_set<std::shared_ptr<const std::string>, PointeeHash, PointeesEqual> distinct;
    EXPECT_TRUE(distinct.insert(one).second);
    EXPECT_FALSE(distinct.insert(std::make_shared<const std::string>("1")).second);
    EXPECT_TRUE(distinct.insert(nullptr).second);
    EXPECT_EQ(distinct.size(), 2U);
}

} // namespace
} // namespace QV
