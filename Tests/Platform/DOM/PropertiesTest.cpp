#include <DOM/Public/Properties.h>

#include <memory>

#include <gtest/gtest.h>

#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/RunProps.h>
#include <Tests/Support/NumRefs.h>
#include <Tests/Support/StyledTable.h>

namespace QV::DOM {
namespace {

using Tests::makeNumRef;

// Each field is not set, or one of two values, on either side.
TEST(Exclude, TakesEqualFieldsAway)
{
    for (int target = -1; target < 2; ++target)
        for (int source = -1; source < 2; ++source) {
            const std::unique_ptr<NumberingRef> props = makeNumRef({target, 5, target});
            exclude(*props, *makeNumRef({source, -1, source}));
            const int left = target == source ? -1 : target;
            EXPECT_EQ(Tests::toText(props), Tests::toText({left, 5, left}))
                << "target " << target << ", source " << source;
        }
}

TEST(Exclude, LeavesTheSource)
{
    const std::unique_ptr<NumberingRef> source = makeNumRef({1, 2, 3});
    const std::unique_ptr<NumberingRef> target = makeNumRef({1, 2, 3});
    exclude(*target, *source);
    EXPECT_TRUE(isEmpty(*target));
    EXPECT_EQ(Tests::toText(source), Tests::toText({1, 2, 3}));
}

TEST(Exclude, TellsAFalseFieldFromOneThatIsNotSet)
{
    RunProps target;
    target.setBold(false);
    target.setItalic(false);
    RunProps source;
    source.setItalic(false);
    exclude(target, source);
    EXPECT_EQ(target.getBold().value_or(true), false);
    EXPECT_FALSE(target.getItalic());
}

TEST(Exclude, ComparesWhatPointersLeadTo)
{
    ParaProps target;
    target.setBorders(Tests::makeBorders({1, 2, 3, 4, 0, 0}));
    target.setTabStops(std::make_shared<const TabStops>(1, TabStop(TabStop::Kind::Left, 1.0F)));
    ParaProps source;
    source.setBorders(Tests::makeBorders({1, 2, 3, 4, 0, 0}));
    source.setTabStops(std::make_shared<const TabStops>(1, TabStop(TabStop::Kind::Left, 2.0F)));
    exclude(target, source);
    EXPECT_EQ(target.getBorders(), nullptr);
    EXPECT_NE(target.getTabStops(), nullptr);
}

} // namespace
} // namespace QV::DOM
