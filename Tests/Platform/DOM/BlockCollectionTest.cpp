#include <DOM/Public/BlockCollection.h>

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Table.h>
#include <Tests/Support/RecordedAssertions.h>

namespace QV::DOM {
namespace {

using testing::ElementsAre;

BlockPosition append(BlockCollection& blocks, const char* name)
{
    auto table = std::make_unique<Table>();
    table->setName(name);
    return blocks.append(std::move(table));
}

std::vector<std::string> listNames(const BlockCollection& blocks)
{
    std::vector<std::string> names;
    for (const Block& block : blocks)
        names.push_back(dynamic_cast<const Table&>(block).getName());
    return names;
}

TEST(BlockCollection, SkipsRemovedBlocks)
{
    BlockCollection blocks;
    const BlockPosition first = append(blocks, "a");
    const BlockPosition second = append(blocks, "b");
    const BlockPosition third = append(blocks, "c");
    blocks.remove(first);
    EXPECT_THAT(listNames(blocks), ElementsAre("b", "c"));
    blocks.remove(third);
    EXPECT_THAT(listNames(blocks), ElementsAre("b"));
    EXPECT_EQ(blocks.getLiveCount(), 1U);
    EXPECT_EQ(blocks.getBlock(first), nullptr);
    EXPECT_NE(blocks.getBlock(second), nullptr) << "positions stay while others are removed";
}

TEST(BlockCollection, PositionOutsideFails)
{
    const Tests::RecordedAssertions assertions;
    BlockCollection blocks;
    EXPECT_EQ(blocks.getBlock(BlockPosition(0)), nullptr);
    blocks.remove(BlockPosition(0));
    EXPECT_THAT(assertions.getExpressions(),
        ElementsAre("position.get() < _elements.size()", "position.get() < _elements.size()"));
}

} // namespace
} // namespace QV::DOM
