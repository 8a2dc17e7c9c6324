// How StoryHandler goes from level to level.

#include <Filters/Text/StoryHandler.h>

#include <utility>

#include <boost/optional.hpp>

#include <DOM/Public/Frame.h>
#include <DOM/Public/Table.h>
#include <Filters/Text/TextContext.h>
#include <Filters/Text/TextWords.h>

namespace QV::Filters {

using FilterUtils::XMLElement;
using FilterUtils::XMLFlow;
using FilterUtils::XMLStep;
using FilterUtils::XMLStreamEnd;
using FilterUtils::XMLStreamStart;

StoryHandler::StoryHandler(
    TextContext& context, TextFormats& formats, const std::string& part, const Relationships& relationships)
    : _context(context)
    , _formats(formats)
    , _part(part)
    , _relationships(relationships)
{
}

StoryHandler::~StoryHandler() = default;

void StoryHandler::openStory(StorySink sink)
{
    Level& level = openLevel(LevelKind::Story, 0);
    level.story = std::make_unique<StoryBuilder>(_context, _formats, _bookmarks, std::move(sink));
    _stories.push_back(level.story.get());
}

XMLStep StoryHandler::onStart(const XMLStreamStart& element)
{
    if (const auto step = _alternatives.onStart(element))
        return *step;
    if (_props.isOpen() || _sectionProps.isOpen())
        return continueGathering(element);
    if (_levels.empty())
        return startNote(element);
    return getKind() == LevelKind::Drawing ? startInDrawing(element) : startBlock(element);
}

XMLFlow StoryHandler::onEnd(const XMLStreamEnd& element)
{
    if (_alternatives.onEnd(element))
        return XMLFlow::Continue;
    if (_props.isOpen() || _sectionProps.isOpen())
        endGathering();
    else if (_levels.empty())
        return XMLFlow::Continue;
    else if (_levels.back()->depth == element.getDepth())
        closeLevel();
    else if (getKind() == LevelKind::Drawing)
        _levels.back()->drawing->onEnd(element);
    else
        endElement(element);
    return XMLFlow::Continue;
}

XMLFlow StoryHandler::onTree(const FilterUtils::XMLStreamElement& element, const XMLElement& tree)
{
    Level& level = *_levels.back();
    if (level.kind == LevelKind::Drawing) {
        level.drawing->onTree(element, tree);
        return XMLFlow::Continue;
    }
    const std::size_t inside = level.kind == LevelKind::Row ? 2 : level.kind == LevelKind::Cell ? 3 : 1;
    TextTable& table = *_levels[_levels.size() - inside]->table;
    switch (element.getId()) {
    case TextWords::TableProps:
        table.readTableProps(tree);
        break;
    case TextWords::TableGrid:
        table.readGrid(tree);
        break;
    case TextWords::RowProps:
        table.readRowProps(tree);
        break;
    case TextWords::RowExceptions:
        table.readRowExceptions(tree);
        break;
    default:
        table.readCellProps(tree);
    }
    return XMLFlow::Continue;
}

void StoryHandler::finish()
{
    _isPartRead = true;
    while (!_levels.empty())
        closeLevel();
}

XMLStep StoryHandler::gather(PropsOwner owner, const XMLStreamStart& element)
{
    _propsOwner = owner;
    (owner == PropsOwner::Section ? _sectionProps : _props).begin(element);
    return XMLStep::Enter;
}

XMLStep StoryHandler::continueGathering(const XMLStreamStart& element)
{
    if (_sectionProps.isOpen())
        return _sectionProps.onStart(element);
    if (element.getId() != TextWords::SectionProps)
        return _props.onStart(element);
    if (_propsOwner != PropsOwner::Paragraph || element.getParentId() != TextWords::ParagraphProps)
        return XMLStep::Skip;
    _sectionProps.begin(element);
    return XMLStep::Enter;
}

void StoryHandler::endGathering()
{
    if (_sectionProps.isOpen()) {
        _sectionProps.onEnd();
        if (_sectionProps.isOpen())
            return;
        if (_props.isOpen())
            getStory().setParagraphSection(_sectionProps.getText());
        else
            getStory().addSection(_sectionProps.getText());
        return;
    }
    _props.onEnd();
    if (_props.isOpen())
        return;
    if (_propsOwner == PropsOwner::Paragraph)
        getStory().setParagraphProps(_props.getText());
    else
        getStory().getRuns().setFormat(_props.getText());
}

XMLStep StoryHandler::startInDrawing(const XMLStreamStart& element)
{
    if (element.getId() != TextWords::TextBoxContent)
        return _levels.back()->drawing->onStart(element);
    if (isTooDeep())
        return XMLStep::Skip;
    openInnerStory(openLevel(LevelKind::TextBox, element.getDepth()));
    return XMLStep::Enter;
}

XMLStep StoryHandler::startNote(const XMLStreamStart& element)
{
    const int id = element.getId();
    if (id != TextWords::Footnote && id != TextWords::Endnote && id != TextWords::Comment)
        return XMLStep::Enter;
    Level& level = openLevel(LevelKind::Note, element.getDepth());
    level.note = std::make_unique<NoteStory>();
    level.note->id = element.findAttributeText(TextWords::Id).value_or(std::string());
    level.note->type = element.findAttributeText(TextWords::Type).value_or(std::string());
    level.note->author = element.findAttributeText(TextWords::Author).value_or(std::string());
    openInnerStory(level);
    return XMLStep::Enter;
}

StoryHandler::Level& StoryHandler::openLevel(LevelKind kind, std::size_t depth)
{
    auto level = std::make_unique<Level>();
    level->kind = kind;
    level->depth = depth;
    if (kind == LevelKind::Table || kind == LevelKind::TextBox)
        ++_nested;
    _levels.push_back(std::move(level));
    return *_levels.back();
}

void StoryHandler::openInnerStory(Level& level)
{
    StorySink sink;
    sink.takeBlock = [&level](
                         std::unique_ptr<DOM::Block> block) { level.blocks.push_back(std::move(block)); };
    level.story = std::make_unique<StoryBuilder>(_context, _formats, _bookmarks, std::move(sink));
    _stories.push_back(level.story.get());
}

bool StoryHandler::isTooDeep()
{
    constexpr std::size_t NestedMax = 50;
    if (_nested < NestedMax)
        return false;
    _context.report("Content in {} deeper than {} levels is left out", _part, std::to_string(NestedMax));
    return true;
}

void StoryHandler::closeLevel()
{
    const std::unique_ptr<Level> level = std::move(_levels.back());
    _levels.pop_back();
    if (level->story) {
        level->story->finish();
        _stories.pop_back();
    }
    if (level->kind == LevelKind::Table || level->kind == LevelKind::TextBox)
        --_nested;
    switch (level->kind) {
    case LevelKind::Story:
        break;
    case LevelKind::Note:
        level->note->blocks = std::move(level->blocks);
        _takeNote(std::move(*level->note));
        break;
    case LevelKind::Table:
        getStory().addBlock(level->table->finish());
        break;
    case LevelKind::Row:
        _levels.back()->table->endRow();
        break;
    case LevelKind::Cell:
        _levels[_levels.size() - 2]->table->endCell(std::move(level->blocks));
        break;
    case LevelKind::TextBox:
        _levels.back()->drawing->addTextBox(std::move(level->blocks));
        break;
    case LevelKind::Drawing:
        if (_isPartRead)
            break;
        for (std::shared_ptr<const DOM::Frame>& frame : level->drawing->finish())
            getStory().addFrame(std::move(frame));
        break;
    }
}

} // namespace QV::Filters
