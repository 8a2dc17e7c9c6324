#include <DOM/Public/BlockCollection.h>

#include <algorithm>
#include <utility>

#include <Utils/Public/Assertions.h>

namespace QV::DOM {

BlockPosition BlockCollection::append(std::unique_ptr<Block> block)
{
    QV_ASSERT(block);
    _elements.push_back(std::move(block));
    return BlockPosition(_elements.size() - 1);
}

void BlockCollection::remove(BlockPosition position)
{
    QV_ASSERT(position.get() < _elements.size());
    if (position.get() < _elements.size())
        _elements[position.get()].reset();
}

const Block* BlockCollection::getBlock(BlockPosition position) const
{
    QV_ASSERT(position.get() < _elements.size());
    return position.get() < _elements.size() ? _elements[position.get()].get() : nullptr;
}

Block* BlockCollection::getBlock(BlockPosition position)
{
    return const_cast<Block*>(static_cast<const BlockCollection*>(this)->getBlock(position));
}

std::size_t BlockCollection::getLiveCount() const
{
    return static_cast<std::size_t>(std::count_if(
        _elements.begin(), _elements.end(), [](const auto& block) { return block != nullptr; }));
}

} // namespace QV::DOM
