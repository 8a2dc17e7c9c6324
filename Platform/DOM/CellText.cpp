#include <DOM/Public/CellText.h>

#include <DOM/Public/Paragraph.h>

namespace QV::DOM {

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

SharedCellText makePlainCellText(const std::string& text)
{
    auto paragraph = std::make_unique<Paragraph>();
    paragraph->appendText(text);
    std::vector<std::unique_ptr<Block>> blocks;
    blocks.push_back(std::move(paragraph));
    return SharedCellText(new CellText(std::move(blocks)));
}

} // namespace QV::DOM
