// What the elements of stories mean to StoryHandler.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include <boost/optional.hpp>

#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/Note.h>
#include <DOM/Public/Run.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Relationships.h>
#include <Filters/Package/SymbolFonts.h>
#include <Filters/Text/StoryHandler.h>
#include <Filters/Text/StoryRuns.h>
#include <Filters/Text/TextContext.h>
#include <Filters/Text/TextLeftOut.h>
#include <Filters/Text/TextWords.h>
#include <Utils/Public/NumberText.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLStep;
using FilterUtils::XMLStreamEnd;
using FilterUtils::XMLStreamStart;

std::string readStoryText(const XMLStreamStart& element, int attribute)
{
    return element.findAttributeText(attribute).value_or(std::string());
}

} // namespace

XMLStep StoryHandler::startBlock(const XMLStreamStart& element)
{
    switch (element.getId()) {
    case TextWords::Paragraph:
        getStory().beginParagraph();
        return XMLStep::Enter;
    case TextWords::ParagraphProps:
        return element.getParentId() == TextWords::Paragraph ? gather(PropsOwner::Paragraph, element)
                                                             : XMLStep::Skip;
    case TextWords::SectionProps:
        return element.getParentId() == TextWords::Body ? gather(PropsOwner::Section, element)
                                                        : XMLStep::Skip;
    case TextWords::AltChunk:
        _context.run.leaveOut(TextLeftOut::AltChunks);
        return XMLStep::Skip;
    case TextWords::SdtProps:
    case TextWords::SdtEndProps:
    case TextWords::CustomXmlProps:
        return XMLStep::Skip;
    case TextWords::Table:
    case TextWords::TableProps:
    case TextWords::TableGrid:
    case TextWords::Row:
    case TextWords::RowProps:
    case TextWords::RowExceptions:
    case TextWords::Cell:
    case TextWords::CellProps:
        return startTablePart(element);
    default:
        return startAroundRuns(element);
    }
}

// Parts of tables that stand in no table are entered for the content that they may have.
XMLStep StoryHandler::startTablePart(const XMLStreamStart& element)
{
    const LevelKind kind = getKind();
    const auto want = [&](LevelKind place) { return kind == place ? XMLStep::Tree : XMLStep::Skip; };
    switch (element.getId()) {
    case TextWords::Table:
        if (isTooDeep())
            return XMLStep::Skip;
        openLevel(LevelKind::Table, element.getDepth()).table = std::make_unique<TextTable>(_context);
        return XMLStep::Enter;
    case TextWords::Row:
        if (kind == LevelKind::Table) {
            _levels.back()->table->beginRow();
            openLevel(LevelKind::Row, element.getDepth());
        }
        return XMLStep::Enter;
    case TextWords::Cell:
        if (kind == LevelKind::Row) {
            _levels[_levels.size() - 2]->table->beginCell();
            openInnerStory(openLevel(LevelKind::Cell, element.getDepth()));
        }
        return XMLStep::Enter;
    case TextWords::TableProps:
    case TextWords::TableGrid:
        return want(LevelKind::Table);
    case TextWords::RowProps:
    case TextWords::RowExceptions:
        return want(LevelKind::Row);
    default:
        return want(LevelKind::Cell);
    }
}

XMLStep StoryHandler::startAroundRuns(const XMLStreamStart& element)
{
    switch (element.getId()) {
    case TextWords::Run:
    case TextWords::MathRun:
        getStory().getRuns().beginRun();
        return XMLStep::Enter;
    case TextWords::RunProps:
        return element.getParentId() == TextWords::Run || element.getParentId() == TextWords::MathRun
                   ? gather(PropsOwner::Run, element)
                   : XMLStep::Skip;
    case TextWords::Hyperlink:
        getStory().getRuns().beginLink(makeLink(element));
        return XMLStep::Enter;
    case TextWords::SimpleField:
        getStory().getFields().beginSimple(readStoryText(element, TextWords::Instruction));
        return XMLStep::Enter;
    case TextWords::Inserted:
        return startChange(element, DOM::TrackedChange::Kind::Inserted);
    case TextWords::Deleted:
        return startChange(element, DOM::TrackedChange::Kind::Deleted);
    case TextWords::MovedFrom:
        return startChange(element, DOM::TrackedChange::Kind::MovedFrom);
    case TextWords::MovedTo:
        return startChange(element, DOM::TrackedChange::Kind::MovedTo);
    case TextWords::BookmarkStart:
        getStory().beginBookmark(
            readStoryText(element, TextWords::Id), readStoryText(element, TextWords::Name));
        return XMLStep::Skip;
    case TextWords::BookmarkEnd:
        getStory().endBookmark(readStoryText(element, TextWords::Id));
        return XMLStep::Skip;
    case TextWords::RubyText:
        _context.run.leaveOut(TextLeftOut::PhoneticText);
        return XMLStep::Skip;
    default:
        return startInRun(element);
    }
}

XMLStep StoryHandler::startInRun(const XMLStreamStart& element)
{
    switch (element.getId()) {
    case TextWords::MathText:
        _context.run.leaveOut(TextLeftOut::Math);
        return XMLStep::EnterText;
    case TextWords::Text:
    case TextWords::DeletedText:
    case TextWords::InstructionText:
    case TextWords::DeletedInstructionText:
        return XMLStep::EnterText;
    case TextWords::Tab:
    case TextWords::PositionedTab:
        getStory().addTab();
        return XMLStep::Skip;
    case TextWords::Break:
    case TextWords::CarriageReturn:
        addBreak(element);
        return XMLStep::Skip;
    case TextWords::NoBreakHyphen:
        getStory().addText("\u2011");
        return XMLStep::Skip;
    case TextWords::SoftHyphen:
        getStory().addText("\u00AD");
        return XMLStep::Skip;
    case TextWords::Symbol:
        addSymbol(element);
        return XMLStep::Skip;
    case TextWords::FieldCharacter:
        addFieldCharacter(element);
        return XMLStep::Skip;
    case TextWords::FootnoteReference:
        getStory().addNote(DOM::Note::Kind::Footnote, readStoryText(element, TextWords::Id));
        return XMLStep::Skip;
    case TextWords::EndnoteReference:
        getStory().addNote(DOM::Note::Kind::Endnote, readStoryText(element, TextWords::Id));
        return XMLStep::Skip;
    case TextWords::CommentReference:
        getStory().addNote(DOM::Note::Kind::Comment, readStoryText(element, TextWords::Id));
        return XMLStep::Skip;
    case TextWords::Drawing:
    case TextWords::VmlPicture:
    case TextWords::EmbeddedObject:
        openLevel(LevelKind::Drawing, element.getDepth()).drawing =
            std::make_unique<TextDrawing>(_context, _relationships);
        return XMLStep::Enter;
    default:
        return XMLStep::Enter;
    }
}

XMLStep StoryHandler::startChange(const XMLStreamStart& element, DOM::TrackedChange::Kind kind)
{
    getStory().getRuns().beginChange(std::make_shared<DOM::TrackedChange>(
        kind, readStoryText(element, TextWords::Author), readStoryText(element, TextWords::Date)));
    return XMLStep::Enter;
}

void StoryHandler::addFieldCharacter(const XMLStreamStart& element)
{
    const auto type = element.findAttribute(TextWords::FieldCharacterType);
    StoryFields& fields = getStory().getFields();
    if (type == std::u16string_view(u"begin"))
        fields.begin();
    else if (type == std::u16string_view(u"separate"))
        fields.separate();
    else if (type == std::u16string_view(u"end"))
        fields.end();
}

void StoryHandler::addBreak(const XMLStreamStart& element)
{
    const auto type = element.findAttribute(TextWords::Type);
    if (type == std::u16string_view(u"page"))
        getStory().addBreak(DOM::BreakRun::Kind::Page);
    else if (type == std::u16string_view(u"column"))
        getStory().addBreak(DOM::BreakRun::Kind::Column);
    else
        getStory().addBreak(DOM::BreakRun::Kind::Line);
}

void StoryHandler::addSymbol(const XMLStreamStart& element)
{
    const std::string text = readStoryText(element, TextWords::SymbolCharacter);
    constexpr int Hexadecimal = 16;
    constexpr unsigned long LastCharacter = 0x10FFFF;
    const auto code = strToUlong(text, nullptr, Hexadecimal);
    std::string symbol;
    if (code && *code <= LastCharacter)
        symbol = mapSymbol(readStoryText(element, TextWords::SymbolFont), static_cast<std::uint32_t>(*code));
    if (symbol.empty())
        _context.report("Symbol {} is no character", text);
    else
        getStory().addText(symbol);
}

StoryRuns::Link StoryHandler::makeLink(const XMLStreamStart& element)
{
    std::string url;
    std::string anchor = readStoryText(element, TextWords::LinkAnchor);
    if (const auto id = element.findAttributeText(TextWords::RelationshipId)) {
        if (const Relationship* const target = _relationships.findById(*id))
            url = target->target;
        else
            _context.report("Hyperlink has an unknown relationship {}", *id);
    }
    if (anchor.empty() && !url.empty() && url.front() == '#') { // a place inside, written as one outside
        anchor = url.substr(1);
        url.clear();
    }
    if (url.empty() && anchor.empty())
        return nullptr;
    if (url.size() + anchor.size() > StoryRuns::LinkBytesMax) {
        _context.report(StoryRuns::LinkTooLong, std::to_string(StoryRuns::LinkBytesMax));
        return nullptr;
    }
    return std::make_shared<DOM::Hyperlink>(std::move(url), std::move(anchor));
}

void StoryHandler::endText(const XMLStreamEnd& element)
{
    _text.clear();
    element.appendText(_text);
    if (element.getId() == TextWords::InstructionText || element.getId() == TextWords::DeletedInstructionText)
        getStory().getFields().addInstruction(_text);
    else
        getStory().addText(_text);
}

void StoryHandler::endElement(const XMLStreamEnd& element)
{
    StoryBuilder& story = getStory();
    switch (element.getId()) {
    case TextWords::Paragraph:
        story.endParagraph();
        break;
    case TextWords::Run:
    case TextWords::MathRun:
        story.getRuns().endRun();
        break;
    case TextWords::Hyperlink:
        story.getRuns().endLink();
        break;
    case TextWords::SimpleField:
        story.getFields().endSimple();
        break;
    case TextWords::Inserted:
    case TextWords::Deleted:
    case TextWords::MovedFrom:
    case TextWords::MovedTo:
        story.getRuns().endChange();
        break;
    case TextWords::Text:
    case TextWords::DeletedText:
    case TextWords::MathText:
    case TextWords::InstructionText:
    case TextWords::DeletedInstructionText:
        endText(element);
        break;
    default:
        break;
    }
}

} // namespace QV::Filters
