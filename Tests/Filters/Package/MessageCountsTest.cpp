#include <Filters/Package/MessageCounts.h>

#include <string>

#include <gtest/gtest.h>

#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

TEST(MessageCounts, AThousandOfAPatternAreToldAndTheOthersCounted)
{
    MessageCounts counts;
    for (int i = 0; i < 1000; ++i)
        ASSERT_TRUE(counts.add("b {}")) << i;
    OperationReport report;
    EXPECT_TRUE(counts.add("a {}"));
    EXPECT_FALSE(counts.add("b {}"));
    EXPECT_FALSE(counts.add(std::string("b {}")));
    for (int i = 0; i < 1000; ++i)
        counts.add("a {}");
    counts.finish(report);
    ASSERT_EQ(report.getMessages().size(), 2U);
    EXPECT_EQ(report.getMessages()[0].toString(), "1 more times: a {}") << "in the order of the patterns";
    EXPECT_EQ(report.getMessages()[1].toString(), "2 more times: b {}");
}

TEST(MessageCounts, SaysNothingOfWhatWasTold)
{
    MessageCounts counts;
    for (int i = 0; i < 1000; ++i)
        counts.add("a");
    OperationReport report;
    counts.finish(report);
    EXPECT_TRUE(report.getMessages().empty());
    EXPECT_TRUE(counts.add("a")) << "the counts are forgotten";
}

} // namespace
} // namespace QV::Filters
