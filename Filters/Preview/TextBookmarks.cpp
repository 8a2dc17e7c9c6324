#include <Filters/Preview/TextBookmarks.h>

#include <functional>
#include <memory>
#include <unordered_set>
#include <utility>

#include <fmt/format.h>

#include <DOM/Public/Block.h>
#include <DOM/Public/Cell.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/HeaderFooterPair.h>
#include <DOM/Public/Note.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/Section.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TableOfContents.h>

namespace QV::Filters {
namespace {

/// Walks all blocks of a document, those that several stories share once.
class BookmarkNamesFinder
{
public:
    using Take = std::function<void(const std::string&)>;

    BookmarkNamesFinder(unsigned depthMax, Take take)
        : _depthMax(depthMax)
        , _take(std::move(take))
    {
    }

    void find(const DOM::Document& document)
    {
        for (const DOM::Block& block : document.getBlocks())
            findInBlock(block, 0);
        for (const DOM::Section& section : document.getSections())
            for (const auto* pair :
                {&section.getFirstPair(), &section.getDefaultPair(), &section.getEvenPair()})
                if (*pair) {
                    findInText((*pair)->getHeader().get(), 0);
                    findInText((*pair)->getFooter().get(), 0);
                }
        for (const std::unique_ptr<DOM::Note>& note : document.getNotes())
            findInText(note->getText().get(), 0);
    }

private:
    void findInText(const DOM::CellText* text, unsigned depth)
    {
        if (text && _seen.insert(text).second)
            findInBlocks(text->getBlocks(), depth);
    }

    void findInBlocks(const std::vector<std::unique_ptr<DOM::Block>>& blocks, unsigned depth)
    {
        if (depth > _depthMax)
            return;
        for (const std::unique_ptr<DOM::Block>& block : blocks)
            findInBlock(*block, depth);
    }

    void findInBlock(const DOM::Block& block, unsigned depth)
    {
        if (const auto* const paragraph = dynamic_cast<const DOM::Paragraph*>(&block))
            findInRuns(*paragraph, depth);
        else if (const auto* const table = dynamic_cast<const DOM::Table*>(&block))
            findInTable(*table, depth);
        else if (const auto* const contents = dynamic_cast<const DOM::TableOfContents*>(&block))
            findInBlocks(contents->getBlocks(), depth + 1);
        else if (const auto* const shape = dynamic_cast<const DOM::Shape*>(&block))
            findInShape(*shape, depth + 1);
    }

    void findInRuns(const DOM::Paragraph& paragraph, unsigned depth)
    {
        for (const DOM::Run& run : paragraph.getRuns())
            if (const auto* const bookmark = dynamic_cast<const DOM::BookmarkRun*>(&run))
                _take(bookmark->getName());
            else if (const auto* const drawing = dynamic_cast<const DOM::DrawingRun*>(&run))
                findInFrame(drawing->getFrame().get(), depth + 1);
    }

    void findInTable(const DOM::Table& table, unsigned depth)
    {
        const auto cells = table.getTableIterators();
        for (auto cell = cells.begin(); !(cell == cells.end()); ++cell)
            if (const auto* const blocks = cell->getRawBlocks())
                findInBlocks(*blocks, depth + 1);
    }

    void findInFrame(const DOM::Frame* frame, unsigned depth)
    {
        if (!frame)
            return;
        if (const auto* const shape = dynamic_cast<const DOM::Shape*>(frame->getGraphicalObject()))
            findInShape(*shape, depth);
    }

    void findInShape(const DOM::Shape& shape, unsigned depth)
    {
        if (depth > _depthMax)
            return;
        findInText(shape.getText().get(), depth);
        for (const DOM::Frame& child : shape.getChildren())
            findInFrame(&child, depth + 1);
    }

    unsigned _depthMax;
    Take _take;
    std::unordered_set<const DOM::CellText*> _seen;
};

} // namespace

TextBookmarks::TextBookmarks(const DOM::Document& document, unsigned depthMax)
{
    BookmarkNamesFinder finder(depthMax, [this](const std::string& name) {
        const std::size_t number = _bookmarks.size() + 1;
        _bookmarks.emplace(name, Bookmark{number});
    });
    finder.find(document);
}

std::string TextBookmarks::findTarget(const std::string& name)
{
    const auto bookmark = _bookmarks.find(name);
    if (bookmark == _bookmarks.end())
        return {};
    bookmark->second.isLinked = true;
    return fmt::format("b{}", bookmark->second.number);
}

std::string TextBookmarks::takePlace(const std::string& name)
{
    const auto bookmark = _bookmarks.find(name);
    if (bookmark == _bookmarks.end() || bookmark->second.isPlaced)
        return {};
    bookmark->second.isPlaced = true;
    return fmt::format("b{}", bookmark->second.number);
}

std::vector<std::string> TextBookmarks::getMissing() const
{
    std::vector<std::string> ids;
    for (const auto& [name, bookmark] : _bookmarks)
        if (bookmark.isLinked && !bookmark.isPlaced)
            ids.push_back(fmt::format("b{}", bookmark.number));
    return ids;
}

} // namespace QV::Filters
