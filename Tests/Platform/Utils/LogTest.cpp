#include <Utils/Public/Log.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tests/Support/RecordedLog.h>

namespace QV {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::RecordedLog;

TEST(Log, IsSilentUnlessSet)
{
    EXPECT_FALSE(isLogSinkSet());
    writeLog("nobody hears this");
    {
        const RecordedLog log;
        EXPECT_TRUE(isLogSinkSet());
        EXPECT_THAT(log.getLines(), IsEmpty());
    }
    EXPECT_FALSE(isLogSinkSet());
}

TEST(Log, HandsLinesOverWhole)
{
    const RecordedLog log;
    writeLog("first");
    writeLog("");
    writeLog(boost::string_ref("with\0NUL", 8));
    EXPECT_THAT(log.getLines(), ElementsAre("first", "", std::string("with\0NUL", 8)));
}

TEST(Log, TheLastSinkIsCalled)
{
    const RecordedLog log;
    int count = 0;
    setLogSink([&count](boost::string_ref) { ++count; });
    writeLog("line");
    EXPECT_EQ(count, 1);
    EXPECT_THAT(log.getLines(), IsEmpty());
}

TEST(Log, ASinkMayLogAndReplaceItself)
{
    std::vector<std::string> lines;
    setLogSink([&lines](boost::string_ref line) {
        lines.emplace_back(line.data(), line.size());
        setLogSink({});
        writeLog("unheard");
    });
    writeLog("heard");
    EXPECT_THAT(lines, ElementsAre("heard"));
}

TEST(Log, ThreadsMaySetAndWriteAtOnce)
{
    std::atomic<int> count{0};
    const auto sink = [&count](boost::string_ref) { ++count; };
    setLogSink(sink);
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int k = 0; k < 100; ++k) {
                setLogSink(sink);
                writeLog("line");
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    setLogSink({});
    EXPECT_EQ(count, 400);
}

} // namespace
} // namespace QV
