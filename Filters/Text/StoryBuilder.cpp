#include <Filters/Text/StoryBuilder.h>

#include <cstddef>

#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/Paragraph.h>
#include <Filters/Text/ContentsField.h>
#include <Filters/Text/TextContext.h>
#include <Filters/Text/TextFormats.h>
#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::Filters {

StoryBuilder::StoryBuilder(
    TextContext& context, TextFormats& formats, StoryBookmarks& bookmarks, StorySink sink)
    : _context(context)
    , _formats(formats)
    , _bookmarks(bookmarks)
    , _sink(std::move(sink))
    , _runs(context, formats)
    , _fields(context, _runs,
          {[this](const std::string& instruction) { return beginContents(instruction); },
              [this](const std::string& instruction) { endContents(instruction); }})
{
}

StoryBuilder::~StoryBuilder() = default;

void StoryBuilder::beginParagraph()
{
    endParagraph();
    openParagraph();
}

void StoryBuilder::openParagraph()
{
    if (_isParagraphOpen)
        return;
    _isParagraphOpen = true;
    for (const auto& bookmark : _bookmarks.waiting)
        _runs.addBookmark(bookmark.first, bookmark.second);
    _bookmarks.waiting.clear();
}

void StoryBuilder::endParagraph()
{
    if (!_isParagraphOpen)
        return;
    _isParagraphOpen = false;
    _fields.endParagraph();
    auto paragraph = std::make_unique<DOM::Paragraph>();
    const TextFormats::Paragraph& format = _formats.getParagraph(_paragraphProps);
    paragraph->setSharedStyle(format.style);
    paragraph->setSharedParaMarkStyle(format.mark);
    if (format.numRef)
        paragraph->setNumRef(std::make_unique<DOM::NumberingRef>(*format.numRef));
    for (std::unique_ptr<DOM::Run>& run : _runs.take())
        paragraph->appendRun(std::move(run));
    _formats.noteHidden(*paragraph);
    _paragraphProps.clear();
    keep(std::move(paragraph));
    if (_isContentsEnding)
        closeContents();
    if (!_paragraphSection.empty())
        takeSection(_paragraphSection);
    _paragraphSection.clear();
}

void StoryBuilder::addSection(const std::string& text)
{
    endParagraph();
    takeSection(text);
}

void StoryBuilder::addBlock(std::unique_ptr<DOM::Block> block)
{
    endParagraph();
    keep(std::move(block));
}

void StoryBuilder::addText(const std::string& text)
{
    openParagraph();
    if (!_fields.takeText(text))
        _runs.addText(text);
}

void StoryBuilder::addTab()
{
    openParagraph();
    if (!_fields.takeText("\t"))
        _runs.addTab();
}

void StoryBuilder::addBreak(DOM::BreakRun::Kind kind)
{
    openParagraph();
    if (!_fields.takeText("\n"))
        _runs.addBreak(kind);
}

void StoryBuilder::addFrame(std::shared_ptr<const DOM::Frame> frame)
{
    openParagraph();
    _runs.addFrame(std::move(frame));
}

void StoryBuilder::addNote(DOM::Note::Kind kind, const std::string& id)
{
    openParagraph();
    _runs.addAnchor(_context.referToNote(NoteKey(kind, id)));
}

void StoryBuilder::beginBookmark(const std::string& id, const std::string& name)
{
    constexpr std::size_t NameBytesMax = 1024;
    if (name.size() > NameBytesMax) {
        _context.report("Bookmark {} has a name of more than {} bytes", id, std::to_string(NameBytesMax));
        return;
    }
    if (name.empty())
        return;
    _bookmarks.names[id] = name;
    addBookmark(DOM::BookmarkRun::Kind::Start, name);
}

void StoryBuilder::endBookmark(const std::string& id)
{
    const auto found = _bookmarks.names.find(id);
    if (found == _bookmarks.names.end())
        return;
    addBookmark(DOM::BookmarkRun::Kind::End, found->second);
    _bookmarks.names.erase(found);
}

void StoryBuilder::addBookmark(DOM::BookmarkRun::Kind kind, const std::string& name)
{
    const bool isEnd = kind == DOM::BookmarkRun::Kind::End && _bookmarks.waiting.empty();
    auto* const last = isEnd ? exactCast<DOM::Paragraph>(_last.get()) : nullptr;
    if (_isParagraphOpen)
        _runs.addBookmark(kind, name);
    else if (last)
        last->appendRun(makeBookmarkRun(kind, name));
    else
        _bookmarks.waiting.emplace_back(kind, name);
}

StoryFields& StoryBuilder::getFields()
{
    openParagraph();
    return _fields;
}

void StoryBuilder::finish()
{
    endParagraph();
    const std::string text = _fields.finish();
    if (!text.empty()) {
        addText(text);
        endParagraph();
    }
    if (auto* const last = exactCast<DOM::Paragraph>(_last.get())) {
        for (const auto& bookmark : _bookmarks.waiting)
            last->appendRun(makeBookmarkRun(bookmark.first, bookmark.second));
        _bookmarks.waiting.clear();
    }
    handOver();
    closeContents();
}

void StoryBuilder::keep(std::unique_ptr<DOM::Block> block)
{
    handOver();
    _last = std::move(block);
}

void StoryBuilder::handOver()
{
    if (!_last)
        return;
    if (_contents)
        _contents->appendBlock(std::move(_last));
    else
        _sink.takeBlock(std::move(_last));
}

void StoryBuilder::takeSection(const std::string& text)
{
    if (!_sink.takeSection)
        return;
    handOver();
    if (_contents)
        _waitingSections.push_back(text);
    else
        _sink.takeSection(text);
}

bool StoryBuilder::beginContents(const std::string& instruction)
{
    if (_contents) {
        const bool isLastWaitingOpen = !_waitingContents.empty() && !_waitingContents.back().isEnded;
        if (!_isContentsEnding || isLastWaitingOpen)
            return false;
        _waitingContents.push_back({instruction, false});
        return true;
    }
    handOver();
    _contents = std::make_unique<DOM::TableOfContents>();
    _contents->setInstruction(instruction);
    return true;
}

void StoryBuilder::endContents(const std::string& instruction)
{
    if (!_waitingContents.empty()) {
        _waitingContents.back() = {instruction, true};
        return;
    }
    if (_contents)
        _contents->setInstruction(instruction);
    _isContentsEnding = true;
}

void StoryBuilder::closeContents()
{
    _isContentsEnding = false;
    if (!_contents)
        return;
    std::vector<WaitingContents> waiting;
    waiting.swap(_waitingContents);
    handOver();
    closeOneContents();
    for (const WaitingContents& next : waiting) {
        beginContents(next.instruction);
        if (next.isEnded)
            closeOneContents();
    }
}

void StoryBuilder::closeOneContents()
{
    fillContentsInfo(_contents->getInstruction(), _context, _formats, _contents->getInfo());
    _sink.takeBlock(std::move(_contents));
    for (const std::string& section : _waitingSections)
        _sink.takeSection(section);
    _waitingSections.clear();
}

} // namespace QV::Filters
