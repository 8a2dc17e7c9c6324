#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/intrusive_ref_counter.hpp>

#include <DOM/Public/Block.h>
#include <DOM/Public/Export.h>

namespace QV::DOM {

/// The text blocks of a cell. Cells with the same text may share one, so it never changes once made.
class DOM_API CellText final : public boost::intrusive_ref_counter<CellText, boost::thread_safe_counter>
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

private:
    std::vector<std::unique_ptr<Block>> _blocks;
};

using SharedCellText = boost::intrusive_ptr<const CellText>;

/// One paragraph without formatting of its own. The empty text gives a paragraph without runs.
DOM_API SharedCellText makePlainCellText(const std::string& text);

} // namespace QV::DOM
