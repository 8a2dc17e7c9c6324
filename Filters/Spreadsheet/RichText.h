#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <DOM/Public/CellText.h>
#include <DOM/Public/RunProps.h>
#include <Filters/Package/Export.h>

namespace QV::DOM {
class SharedObjectFactory;
}

namespace QV::Filters {

/// Gathers the text of one string item of a workbook, piece by piece: pieces may have fonts of their own.
/// Its buffers are kept from item to item.
class FILTERS_API RichText
{
public:
    explicit RichText(DOM::SharedObjectFactory& factory)
        : _factory(factory)
    {
    }

    /// Begins a new item.
    void clear();

    /// Appends a piece as the file writes it, escapes included.
    /// @param font null where the piece looks like the cell
    void append(const std::string& text, const std::shared_ptr<const DOM::RunProps>& font);

    /// The size of the text so far, in bytes.
    std::size_t getSize() const;

    /// More text than applications show in a cell.
    bool isTooLong() const;

    /// The item's text: one paragraph.
    DOM::SharedCellText makeText() const;

private:
    using Piece = std::pair<std::string, std::shared_ptr<const DOM::RunProps>>;

    DOM::SharedObjectFactory& _factory;
    std::vector<Piece> _pieces;
};

} // namespace QV::Filters
