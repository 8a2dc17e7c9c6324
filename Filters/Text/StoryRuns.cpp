#include <Filters/Text/StoryRuns.h>

#include <algorithm>
#include <utility>

#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/SharedObjectFactory.h>
#include <FilterUtils/FU_TableOfContentsLevelsFiller.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Text/TextContext.h>
#include <Filters/Text/TextFormats.h>
#include <Utils/Public/Ptr/PtrUtils.h>
#include <Utils/Public/UUID.h>

namespace QV::Filters {
namespace {

/// Whether looking for an equal style takes longer than a style of its own costs.
bool hasLongText(const DOM::RunStyle& style)
{
    constexpr std::size_t BytesMax = 1024;
    const auto& instruction = style.getFieldInstruction();
    const auto& change = style.getChange();
    return (instruction && instruction->size() > BytesMax) ||
           (change && change->getAuthor().size() + change->getDate().size() > BytesMax);
}

DOM::SharedRunStyle shareRunStyle(TextContext& context, const DOM::RunStyle& style)
{
    if (style.isEmpty())
        return nullptr;
    if (hasLongText(style))
        return DOM::SharedRunStyle(new DOM::RunStyle(style));
    return context.run.getDocument().getSharedObjectFactory().getShared(style);
}

} // namespace

StoryRuns::StoryRuns(TextContext& context, TextFormats& formats)
    : _context(context)
    , _formats(formats)
{
}

StoryRuns::~StoryRuns() = default;

void StoryRuns::beginRun()
{
    _openRuns.emplace_back();
    _look.format.reset();
}

void StoryRuns::setFormat(const std::string& format)
{
    if (!_lastFormat || _lastFormat->text != format)
        _lastFormat = std::make_shared<ReadFormat>(ReadFormat{format, boost::none});
    if (!_openRuns.empty())
        _openRuns.back() = _lastFormat;
    _look.format = _lastFormat;
}

void StoryRuns::endRun()
{
    if (!_openRuns.empty())
        _openRuns.pop_back();
    _look.format = _openRuns.empty() ? nullptr : _openRuns.back();
}

void StoryRuns::beginLink(Link link)
{
    _links.push_back(std::move(link));
    updateLook();
}

void StoryRuns::endLink()
{
    if (!_links.empty())
        _links.pop_back();
    updateLook();
}

void StoryRuns::beginChange(Change change)
{
    const bool isInRemoval = !_changes.empty() && _changes.back()->isRemoval();
    _changes.push_back(isInRemoval && !change->isRemoval() ? _changes.back() : std::move(change));
    updateLook();
}

void StoryRuns::endChange()
{
    if (!_changes.empty())
        _changes.pop_back();
    updateLook();
}

void StoryRuns::setField(Link link, Instruction instruction)
{
    _fieldLink = std::move(link);
    _look.instruction = std::move(instruction);
    updateLook();
}

void StoryRuns::updateLook()
{
    _look.link = _fieldLink || _links.empty() ? _fieldLink : _links.back();
    _look.change = _changes.empty() ? nullptr : _changes.back();
}

void StoryRuns::addText(const std::string& text)
{
    if (text.empty())
        return;
    const DOM::SharedRunStyle& style = getStyle();
    if (style != _textStyle)
        flushText();
    _textStyle = style;
    _text += text;
}

void StoryRuns::addTab()
{
    add<DOM::TabRun>(getStyle());
}

void StoryRuns::addBreak(DOM::BreakRun::Kind kind)
{
    add<DOM::BreakRun>(kind, getStyle());
}

std::unique_ptr<DOM::BookmarkRun> makeBookmarkRun(DOM::BookmarkRun::Kind kind, const std::string& name)
{
    return std::make_unique<DOM::BookmarkRun>(kind, name, FilterUtils::isTableOfContentsBookmark(name));
}

void StoryRuns::addBookmark(DOM::BookmarkRun::Kind kind, const std::string& name)
{
    add<DOM::BookmarkRun>(kind, name, FilterUtils::isTableOfContentsBookmark(name));
}

void StoryRuns::addAnchor(const UUID& target)
{
    add<DOM::AnchorRun>(target, getStyle());
}

void StoryRuns::addFrame(std::shared_ptr<const DOM::Frame> frame)
{
    add<DOM::DrawingRun>(std::move(frame), getStyle());
}

void StoryRuns::addField(const std::string& instruction, const std::string& result)
{
    add<DOM::FieldRun>(instruction, result, getStyle());
}

std::size_t StoryRuns::mark()
{
    flushText();
    return _runs.size();
}

void StoryRuns::closeField(std::size_t first, const std::string& instruction)
{
    flushText();
    const auto begin = _runs.begin() + static_cast<std::ptrdiff_t>(first);
    const bool isEmpty = std::all_of(begin, _runs.end(), [](const std::unique_ptr<DOM::Run>& run) {
        return exactCast<DOM::BookmarkRun>(run.get()) != nullptr;
    });
    if (isEmpty) {
        addField(instruction, {});
        return;
    }
    if (_runs.size() - first != 1)
        return;
    if (const auto* const text = exactCast<DOM::TextRun>(_runs.back().get())) {
        DOM::RunStyle style = text->getStyle();
        style.setFieldInstruction(_look.instruction);
        _runs.back() =
            std::make_unique<DOM::FieldRun>(instruction, text->getText(), shareRunStyle(_context, style));
    }
}

std::vector<std::unique_ptr<DOM::Run>> StoryRuns::take()
{
    flushText();
    std::vector<std::unique_ptr<DOM::Run>> runs;
    runs.swap(_runs);
    return runs;
}

const DOM::SharedRunStyle& StoryRuns::getStyle()
{
    if (!(_look == _styledLook)) {
        _style = makeStyle();
        _styledLook = _look;
    }
    return _style;
}

DOM::SharedRunStyle StoryRuns::makeStyle()
{
    if (_look.format && !_look.format->style)
        _look.format->style = _formats.getRun(_look.format->text);
    DOM::RunStyle style = _look.format ? *_look.format->style : _formats.getRun({});
    style.setHyperlink(_look.link);
    style.setChange(_look.change);
    style.setFieldInstruction(_look.instruction);
    return shareRunStyle(_context, style);
}

void StoryRuns::flushText()
{
    if (_text.empty())
        return;
    _runs.push_back(std::make_unique<DOM::TextRun>(std::move(_text), _textStyle));
    _text.clear();
    _textStyle.reset();
}

template <typename T, typename... Arguments>
void StoryRuns::add(Arguments&&... arguments)
{
    flushText();
    _runs.push_back(std::make_unique<T>(std::forward<Arguments>(arguments)...));
}

} // namespace QV::Filters
