#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include <DOM/Public/Block.h>
#include <DOM/Public/Export.h>
#include <Utils/Public/TaggedValue.h>

namespace QV::DOM {

struct BlockPositionTag;
/// A block's place in its collection. It stays the block's own while other blocks are removed.
using BlockPosition = TaggedValue<std::size_t, BlockPositionTag>;

/// The blocks of a document in order. A loop over them skips removed ones.
class DOM_API BlockCollection
{
public:
    template <typename BlockType, typename Elements>
    class Iterator
    {
    public:
        Iterator(Elements& elements, std::size_t position)
            : _elements(&elements)
            , _position(position)
        {
            skipRemoved();
        }

        BlockType& operator*() const { return *(*_elements)[_position]; }
        Iterator& operator++()
        {
            ++_position;
            skipRemoved();
            return *this;
        }
        friend bool operator==(const Iterator& a, const Iterator& b) { return a._position == b._position; }
        friend bool operator!=(const Iterator& a, const Iterator& b) { return !(a == b); }

    private:
        void skipRemoved()
        {
            while (_position < _elements->size() && !(*_elements)[_position])
                ++_position;
        }

        Elements* _elements;
        std::size_t _position;
    };

    using Elements = std::vector<std::unique_ptr<Block>>;

    /// @param block not null
    BlockPosition append(std::unique_ptr<Block> block);
    /// Asserts "position.get() < _elements.size()"; does nothing where that fails, or where the block is
    /// gone.
    void remove(BlockPosition position);
    /// Asserts "position.get() < _elements.size()". Null where that fails, or where the block was removed.
    const Block* getBlock(BlockPosition position) const;
    Block* getBlock(BlockPosition position);
    /// The blocks that were not removed. O(n).
    std::size_t getLiveCount() const;

    Iterator<const Block, const Elements> begin() const { return {_elements, 0}; }
    Iterator<const Block, const Elements> end() const { return {_elements, _elements.size()}; }
    Iterator<Block, Elements> begin() { return {_elements, 0}; }
    Iterator<Block, Elements> end() { return {_elements, _elements.size()}; }

private:
    Elements _elements; // null where a block was removed
};

} // namespace QV::DOM
