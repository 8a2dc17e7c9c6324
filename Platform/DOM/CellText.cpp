#include <DOM/Public/CellText.h>

#include <algorithm>
#include <utility>

#include <DOM/Public/Paragraph.h>
#include <Utils/Public/Assertions.h>

namespace QV::DOM {
namespace {

constexpr std::uint32_t AheadMax = 4096;

} // namespace

// --- CellText

std::string CellText::getPlainText() const
{
    std::string text;
    bool isFirst = true;
    for (const std::unique_ptr<Block>& block : _blocks) {
        const auto* paragraph = dynamic_cast<const Paragraph*>(block.get());
        if (!paragraph)
            continue;
        if (!isFirst)
            text += '\n';
        text += paragraph->getPlainText();
        isFirst = false;
    }
    return text;
}

void intrusive_ptr_release(const CellText* text, unsigned count)
{
    if (text->_references.fetch_sub(count, std::memory_order_acq_rel) == count)
        delete text;
}

// --- CellTextStock

CellTextStock::CellTextStock(SharedCellText text)
    : _text(std::move(text))
{
    QV_ASSERT(_text);
    if (!_text)
        _text = makePlainCellText({});
}

CellTextStock::~CellTextStock()
{
    if (_left > 0)
        intrusive_ptr_release(_text.get(), _left);
}

CellTextStock::CellTextStock(CellTextStock&& other) noexcept
    : _text(std::move(other._text))
    , _left(std::exchange(other._left, 0))
    , _ahead(other._ahead)
{
}

void CellTextStock::countAhead()
{
    // Doubled each time: most texts of a workbook are in few cells.
    intrusive_ptr_add_ref(_text.get(), _ahead);
    _left = _ahead;
    _ahead = std::min(2 * _ahead, AheadMax);
}

SharedCellText makePlainCellText(const std::string& text)
{
    auto paragraph = std::make_unique<Paragraph>();
    paragraph->appendText(text);
    std::vector<std::unique_ptr<Block>> blocks;
    blocks.push_back(std::move(paragraph));
    return SharedCellText(new CellText(std::move(blocks)));
}

} // namespace QV::DOM
