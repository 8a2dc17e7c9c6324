#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <DOM/Public/Block.h>
#include <DOM/Public/Export.h>

namespace QV::DOM {

/// The text blocks of a cell. Cells with the same text may share one, so it never changes once made.
class DOM_API CellText final
{
public:
    /// @param blocks no null entries
    explicit CellText(std::vector<std::unique_ptr<Block>> blocks)
        : _blocks(std::move(blocks))
    {
    }

    CellText(const CellText&) = delete;
    CellText& operator=(const CellText&) = delete;

    const std::vector<std::unique_ptr<Block>>& getBlocks() const { return _blocks; }

    /// The text of the paragraphs, joined by "\n".
    std::string getPlainText() const;

    unsigned use_count() const { return _references.load(std::memory_order_acquire); }

    // What a boost::intrusive_ptr calls. Threads may share a text.
    friend void intrusive_ptr_add_ref(const CellText* text, unsigned count = 1)
    {
        text->_references.fetch_add(count, std::memory_order_relaxed);
    }
    friend void intrusive_ptr_release(const CellText* text) { intrusive_ptr_release(text, 1); }
    friend DOM_API void intrusive_ptr_release(const CellText* text, unsigned count);

private:
    mutable std::atomic<unsigned> _references{0};
    std::vector<std::unique_ptr<Block>> _blocks;
};

using SharedCellText = boost::intrusive_ptr<const CellText>;

/// A text for very many cells: references to it are counted ahead. The counters of a workbook's texts lie too
/// far apart to be at hand, and to wait for one takes longer than all else that a cell needs; stocks lie side
/// by side.
///
///     std::vector<CellTextStock> strings;
///     strings.emplace_back(makePlainCellText("yes"));
///     for (...)
///         cell.setText(strings[0]);
///
/// One thread at a time.
class DOM_API CellTextStock
{
public:
    /// @param text not null
    explicit CellTextStock(SharedCellText text);
    ~CellTextStock();
    CellTextStock(CellTextStock&& other) noexcept;

    const SharedCellText& getText() const { return _text; }

private:
    friend class Cell;

    /// The text with a reference that the caller has to release.
    const CellText* take()
    {
        if (_left == 0)
            countAhead();
        --_left;
        return _text.get();
    }
    void countAhead();

    SharedCellText _text;
    std::uint32_t _left = 0;  // references that are counted and not taken
    std::uint32_t _ahead = 1; // how many to count next
};

/// One paragraph without formatting of its own. The empty text gives a paragraph without runs.
DOM_API SharedCellText makePlainCellText(const std::string& text);

} // namespace QV::DOM
