#include <Utils/Public/Assertions.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tests/Support/RecordedAssertions.h>

namespace QV {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::RecordedAssertions;

TEST(QVAssert, TellsFileLineAndExpression)
{
    const RecordedAssertions recorded;
    const int one = 1;
    const int line = __LINE__ + 1;
    QV_ASSERT(one == 2 || one > 3);
    ASSERT_EQ(recorded.getFailures().size(), 1U);
    const RecordedAssertions::Failure& failure = recorded.getFailures().front();
    EXPECT_EQ(failure.file, "Tests/Platform/Utils/AssertionsTest.cpp"); // relative to the repository
    EXPECT_EQ(failure.line, line);
    EXPECT_EQ(failure.expression, "one == 2 || one > 3");
    EXPECT_EQ(failure.message, "");
}

TEST(QVAssert, TellsNothingWhereItHolds)
{
    const RecordedAssertions recorded;
    QV_ASSERT(recorded.getFailures().empty());
    EXPECT_THAT(recorded.getFailures(), IsEmpty());
}

TEST(QVAssert, AsksOnce)
{
    const RecordedAssertions recorded;
    int count = 0;
    QV_ASSERT(++count == 2);
    EXPECT_EQ(count, 1);
    QV_ASSERT(++count == 2);
    EXPECT_EQ(count, 2);
    EXPECT_THAT(recorded.getExpressions(), ElementsAre("++count == 2"));
}

TEST(DoFailAssert, PassesTheMessageWhole)
{
    const RecordedAssertions recorded;
    doFailAssert("file.cpp", 7, "", boost::string_ref("half\0 and half, cut here", 15));
    doFailAssert("file.cpp", 8, "expression");
    ASSERT_EQ(recorded.getFailures().size(), 2U);
    EXPECT_EQ(recorded.getFailures()[0].file, "file.cpp");
    EXPECT_EQ(recorded.getFailures()[0].line, 7);
    EXPECT_EQ(recorded.getFailures()[0].expression, "");
    EXPECT_EQ(recorded.getFailures()[0].message, std::string("half\0 and half,", 15));
    EXPECT_EQ(recorded.getFailures()[1].message, "");
}

TEST(SetFailAssertHandler, TheLastOneIsCalled)
{
    std::vector<int> calls;
    setFailAssertHandler([&](const char*, int, const char*, boost::string_ref) { calls.push_back(1); });
    setFailAssertHandler([&](const char*, int, const char*, boost::string_ref) { calls.push_back(2); });
    doFailAssert("f", 1, "e");
    setFailAssertHandler({});
    EXPECT_THAT(calls, ElementsAre(2));
}

TEST(SetFailAssertHandler, AHandlerMayThrowOrReplaceItself)
{
    setFailAssertHandler([](const char*, int, const char*, boost::string_ref message) {
        throw std::runtime_error(std::string(message.data(), message.size()));
    });
    EXPECT_THROW(doFailAssert("f", 1, "e", "m"), std::runtime_error);
    int count = 0;
    setFailAssertHandler([&count](const char*, int, const char*, boost::string_ref) {
        setFailAssertHandler([&count](const char*, int, const char*, boost::string_ref) { count += 10; });
        ++count;
    });
    doFailAssert("f", 1, "e");
    doFailAssert("f", 1, "e");
    setFailAssertHandler({});
    EXPECT_EQ(count, 11);
}

TEST(SetFailAssertHandler, ThreadsMaySetAndFailAtOnce)
{
    std::atomic<int> count{0};
    const auto handler = [&count](const char*, int, const char*, boost::string_ref) { ++count; };
    setFailAssertHandler(handler);
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int k = 0; k < 100; ++k) {
                setFailAssertHandler(handler);
                doFailAssert("f", 1, "e");
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    setFailAssertHandler({});
    EXPECT_EQ(count, 400);
}

using DefaultFailAssertHandlerDeathTest = testing::Test;

TEST_F(DefaultFailAssertHandlerDeathTest, WritesOneLineAndAborts)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    setFailAssertHandler({});
    EXPECT_DEATH(doFailAssert("a/b.cpp", 12, "x > 0"), "^a/b[.]cpp:12: assertion failed: x > 0\n");
    EXPECT_DEATH(
        doFailAssert("a/b.cpp", 12, "x > 0", "why"), "^a/b[.]cpp:12: assertion failed: x > 0: why\n");
}

} // namespace
} // namespace QV
