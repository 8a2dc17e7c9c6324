#include <Filters/Presentation/PresentationContext.h>

#include <string>

#include <gtest/gtest.h>

#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>

#include <Tests/Support/ZipBuilder.h>

namespace QV::Filters {
namespace {

constexpr std::size_t ReadMin = 1024; // what a read costs besides the bytes of the part

Package makePackage(std::size_t bytes)
{
    return Package::openBytes(Tests::makeZip({
        {"big.xml", std::string(bytes, 'x'), true},
        {"empty.xml",         "",                true         }
    }));
}

std::string getLastMessage(const FilterRun& run)
{
    const auto& messages = run.getReport().getMessages();
    return messages.empty() ? std::string() : messages.back().toString();
}

TEST(PresentationContext, ReadsPartsAgainWhileThereIsRoom)
{
    Package package = makePackage(RepeatedParts::BytesMax / 2 - ReadMin);
    FilterRun run;
    PresentationContext context(package, run);
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(context.takeRead("big.xml"));
    EXPECT_EQ(getLastMessage(run), "");
    EXPECT_FALSE(context.takeRead("big.xml"));
    EXPECT_EQ(getLastMessage(run), "Part big.xml is referred to too often; it is left out from here on");
    EXPECT_FALSE(context.takeRead("big.xml"));
    EXPECT_EQ(run.getReport().getMessages().size(), 1U); // once for each part
    EXPECT_TRUE(context.takeRead("empty.xml"));          // the first read of a part is always one
    EXPECT_FALSE(context.takeRead("empty.xml"));
    EXPECT_EQ(run.getReport().getMessages().size(), 2U);
}

TEST(PresentationContext, ReadsNoPartAgainThatIsTooLarge)
{
    Package package = makePackage(RepeatedParts::BytesMax - ReadMin + 1);
    FilterRun run;
    PresentationContext context(package, run);
    EXPECT_TRUE(context.takeRead("big.xml"));
    EXPECT_FALSE(context.takeRead("big.xml"));
    EXPECT_TRUE(context.takeRead("empty.xml"));
    EXPECT_TRUE(context.takeRead("empty.xml")); // what did not fit took no room
}

} // namespace
} // namespace QV::Filters
