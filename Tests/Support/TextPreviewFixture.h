#pragma once

#include <cstddef>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <DOM/Public/Block.h>
#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TrackedChange.h>
#include <FilterUtils/FU_MediaStorage.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Preview/TextPreview.h>
#include <Utils/Public/InputStream.h>
#include <Utils/Public/Size2D.h>

namespace QV::Tests {

class PictureBytes final : public InputStream
{
public:
    explicit PictureBytes(std::string bytes)
        : _bytes(std::move(bytes))
    {
    }

    std::size_t read(char* buffer, std::size_t count, int) override
    {
        const std::size_t size = _bytes.copy(buffer, count);
        _bytes.erase(0, size);
        return size;
    }

private:
    std::string _bytes;
};

inline Filters::ImportOptions makePreviewOptions()
{
    Filters::ImportOptions options;
    options.mediaMemory = 1000;
    return options;
}

inline std::unique_ptr<DOM::Paragraph> makeParagraph(const std::string& text)
{
    auto paragraph = std::make_unique<DOM::Paragraph>();
    paragraph->appendText(text);
    return paragraph;
}

inline std::unique_ptr<DOM::Paragraph> makeParagraph(const std::string& text, const DOM::ParaProps& props)
{
    auto paragraph = makeParagraph(text);
    DOM::ParagraphStyle style;
    style.setParaProps(std::make_shared<DOM::ParaProps>(props));
    paragraph->setStyle(style);
    return paragraph;
}

inline DOM::SharedCellText makeText(std::unique_ptr<DOM::Block> block)
{
    std::vector<std::unique_ptr<DOM::Block>> blocks;
    blocks.push_back(std::move(block));
    return DOM::SharedCellText(new DOM::CellText(std::move(blocks)));
}

inline DOM::SharedRunStyle shareRunStyle(const DOM::RunStyle& style)
{
    return DOM::SharedRunStyle(new DOM::RunStyle(style));
}

inline DOM::SharedRunStyle makeRunStyle(const DOM::RunProps& props)
{
    DOM::RunStyle style;
    style.setRunProps(std::make_shared<DOM::RunProps>(props));
    return shareRunStyle(style);
}

inline DOM::SharedRunStyle makeLinkStyle(const std::string& url, const std::string& anchor = {})
{
    DOM::RunStyle style;
    style.setHyperlink(std::make_shared<DOM::Hyperlink>(url, anchor));
    return shareRunStyle(style);
}

inline DOM::SharedRunStyle makeChangeStyle(DOM::TrackedChange::Kind kind, const std::string& author)
{
    DOM::RunStyle style;
    style.setChange(std::make_shared<DOM::TrackedChange>(kind, author, "2024-05-01T10:00:00Z"));
    return shareRunStyle(style);
}

inline std::unique_ptr<DOM::Table> makeTable(unsigned long rows, unsigned long columns)
{
    auto table = std::make_unique<DOM::Table>();
    table->ensureSize(rows, columns);
    return table;
}

inline std::shared_ptr<DOM::Frame> makePicture(
    const std::string& id, const std::string& name, float width, float height)
{
    auto frame = std::make_shared<DOM::Frame>();
    frame->setName(name);
    frame->setExtent(Size2D<float>(width, height));
    frame->setGraphicalObject(std::make_unique<DOM::Picture>(id, "image/png"));
    return frame;
}

/// A document that grows paragraph by paragraph, and its page.
class TextPreviewFixture : public ::testing::Test
{
protected:
    DOM::Paragraph& add(std::unique_ptr<DOM::Paragraph> paragraph)
    {
        DOM::Paragraph& result = *paragraph;
        getDocument().getBlocks().append(std::move(paragraph));
        return result;
    }
    DOM::Paragraph& add(const std::string& text) { return add(makeParagraph(text)); }

    DOM::Document& getDocument() { return run.getDocument(); }

    std::string write(const Filters::TextPreviewLimits& limits = {})
    {
        std::ostringstream page;
        Filters::writeTextPreview(run, "letter <1>", page, limits);
        return page.str();
    }

    std::string savePicture(const std::string& bytes)
    {
        return run.getMediaStorage().saveMediaFromStream(std::make_shared<PictureBytes>(bytes), "image/png");
    }

    static std::size_t count(const std::string& text, const std::string& part)
    {
        std::size_t result = 0;
        for (std::size_t i = text.find(part); i != std::string::npos; i = text.find(part, i + 1))
            ++result;
        return result;
    }

    Filters::FilterRun run = Filters::FilterRun(makePreviewOptions());
};

} // namespace QV::Tests
