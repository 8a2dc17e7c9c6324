#include <Filters/Spreadsheet/RichText.h>

#include <DOM/Public/Paragraph.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/SharedObjectFactory.h>
#include <Filters/Spreadsheet/EscapedText.h>

namespace QV::Filters {

void RichText::clear()
{
    _pieces.clear();
}

void RichText::append(const std::string& text, const std::shared_ptr<const DOM::RunProps>& font)
{
    const std::shared_ptr<const DOM::RunProps> ownFont = font && !DOM::isEmpty(*font) ? font : nullptr;
    _pieces.emplace_back(text, ownFont);
    unescapeText(_pieces.back().first);
}

std::size_t RichText::getSize() const
{
    std::size_t size = 0;
    for (const Piece& piece : _pieces)
        size += piece.first.size();
    return size;
}

bool RichText::isTooLong() const
{
    if (_pieces.size() == 1)
        return isTooLongForCell(_pieces.front().first);
    std::string whole;
    for (const Piece& piece : _pieces)
        whole += piece.first;
    return isTooLongForCell(whole);
}

DOM::SharedCellText RichText::makeText() const
{
    auto paragraph = std::make_unique<DOM::Paragraph>();
    for (const Piece& piece : _pieces) {
        DOM::SharedRunStyle style;
        if (piece.second) {
            DOM::RunStyle own;
            own.setRunProps(piece.second);
            style = _factory.getShared(own);
        }
        paragraph->appendText(piece.first, style);
    }
    std::vector<std::unique_ptr<DOM::Block>> blocks;
    blocks.push_back(std::move(paragraph));
    return DOM::SharedCellText(new DOM::CellText(std::move(blocks)));
}

} // namespace QV::Filters
