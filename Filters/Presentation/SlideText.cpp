#include <Filters/Presentation/SlideText.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include <DOM/Public/Block.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/SharedObjectFactory.h>
#include <Filters/Package/AlternateContent.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Package/Relationships.h>
#include <Filters/Presentation/PresentationContext.h>
#include <Filters/Presentation/SlideBullets.h>
#include <Filters/Presentation/SlideLeftOut.h>
#include <Filters/Presentation/SlideRunProps.h>
#include <Filters/Presentation/SlideTextLevels.h>
#include <Utils/Public/NumberText.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

constexpr std::size_t BodyParagraphsMax = 100'000;
constexpr std::size_t SlideLinkBytesMax = 8192;
const std::string DrawingExtensions2010 = "http://schemas.microsoft.com/office/drawing/2010/main";

enum class SlidePiece
{
    Run,
    Break,
    Field,
    Math,
    Alternatives
};

/// The pieces of paragraphs by their qualified names, in either dialect.
const std::map<std::string, SlidePiece>& getSlidePieces()
{
    static const auto all = [] {
        std::map<std::string, SlidePiece> pieces;
        for (const Dialect dialect : {Dialect::Transitional, Dialect::Strict}) {
            const Names names(dialect);
            pieces[names(Vocabulary::Drawing, "r")] = SlidePiece::Run;
            pieces[names(Vocabulary::Drawing, "br")] = SlidePiece::Break;
            pieces[names(Vocabulary::Drawing, "fld")] = SlidePiece::Field;
            pieces[names(Vocabulary::MarkupCompatibility, "AlternateContent")] = SlidePiece::Alternatives;
        }
        pieces[DrawingExtensions2010 + ":m"] = SlidePiece::Math;
        return pieces;
    }();
    return all;
}

void appendMathText(const XMLElement& element, std::string& text)
{
    static const std::string Usual = Names(Dialect::Transitional)(Vocabulary::Math, "t");
    static const std::string Strict = Names(Dialect::Strict)(Vocabulary::Math, "t");
    element.processAllElements([&](const std::string& name, const XMLElement& child) {
        if (name == Usual || name == Strict)
            text += child.getText().value_or("");
        else
            appendMathText(child, text);
    });
}

boost::optional<std::string> findRelationshipId(const XMLElement& element)
{
    const auto usual =
        element.getAttributeValue(Names(Dialect::Transitional)(Vocabulary::Relationships, "id"));
    return usual ? usual : element.getAttributeValue(Names(Dialect::Strict)(Vocabulary::Relationships, "id"));
}

unsigned long readSlideListLevel(const XMLElement& properties, PresentationContext& context)
{
    constexpr unsigned long LevelMax = std::tuple_size<DOM::TextLevels>::value - 1;
    const auto text = properties.getAttributeValue("lvl");
    if (!text)
        return 0;
    const bool isWhole = !text->empty() && text->find_first_not_of("0123456789") == std::string::npos;
    const auto number = isWhole ? strToUlong(*text) : boost::none;
    if (number && *number <= LevelMax)
        return *number;
    context.report("List level {} of a slide's text is none", *text);
    return isWhole ? LevelMax : 0;
}

/// Makes the paragraphs of one text.
class SlideTextReader
{
public:
    SlideTextReader(const SlideTextScope& scope, const DOM::TextLevels& levels)
        : _context(scope.context)
        , _part(scope.part)
        , _levels(levels)
        , _alternatives(scope.part.root, {DrawingExtensions2010})
        , _lists(scope.context.lists)
    {
    }

    std::unique_ptr<DOM::Paragraph> readParagraph(const XMLElement& element);

private:
    void readPieces(const XMLElement& parent);
    void readPiece(SlidePiece piece, const XMLElement& element, const XMLElement& parent);
    void addMath(const XMLElement& element);
    void addText(const std::string& text, const XMLElement& properties);
    void addBreak(const XMLElement& properties);
    /// Of a run with these properties; it counts as one of the paragraph from now on.
    DOM::SharedRunStyle makeStyle(const XMLElement& properties);
    std::shared_ptr<const DOM::Hyperlink> makeLink(const XMLElement& properties);
    void flushText();
    void finishSpaces(DOM::TextLevel& level, const DOM::RunProps& mark) const;

    DOM::SharedRunStyle share(const DOM::RunStyle& style) const
    {
        return style.isEmpty() ? nullptr
                               : _context.run.getDocument().getSharedObjectFactory().getShared(style);
    }

    PresentationContext& _context;
    const SlidePart& _part;
    const DOM::TextLevels& _levels;
    AlternateContent _alternatives;
    SlideLists _lists;

    // Of the paragraph that is read:
    std::unique_ptr<DOM::Paragraph> _paragraph;
    DOM::RunProps _levelRunProps;
    boost::optional<DOM::RunProps> _firstRunProps;
    boost::optional<float> _largestFont;
    std::string _text; // of the run that goes on
    DOM::SharedRunStyle _textStyle;
};

std::unique_ptr<DOM::Paragraph> SlideTextReader::readParagraph(const XMLElement& element)
{
    const XMLElement properties = findDrawingElement(element, Vocabulary::Drawing, "pPr");
    const unsigned long number = readSlideListLevel(properties, _context);
    DOM::TextLevel level = _levels[static_cast<std::size_t>(number)];
    DOM::overrideLevel(level, readTextLevelProps(properties, _part, _context));

    _paragraph = std::make_unique<DOM::Paragraph>();
    _levelRunProps = level.runProps;
    _firstRunProps.reset();
    _largestFont.reset();
    readPieces(element);
    flushText();

    DOM::RunProps mark = level.runProps;
    DOM::override(mark,
        readSlideRunProps(findDrawingElement(element, Vocabulary::Drawing, "endParaRPr"), _part, _context));
    DOM::RunStyle markStyle;
    if (!DOM::isEmpty(mark))
        markStyle.setRunProps(std::make_shared<DOM::RunProps>(mark));
    _paragraph->setSharedParaMarkStyle(share(markStyle));

    finishSpaces(level, mark);
    DOM::ParagraphStyle style;
    if (!DOM::isEmpty(level.paraProps))
        style.setParaProps(std::make_shared<DOM::ParaProps>(level.paraProps));
    if (!style.isEmpty())
        _paragraph->setSharedStyle(_context.run.getDocument().getSharedObjectFactory().getShared(style));

    if (_firstRunProps) {
        _paragraph->setNumRef(_lists.next(number, level.bullet, *_firstRunProps));
    } else if (number > 0) {
        _paragraph->setNumRef(FilterUtils::makeRemovedNumRef());
        _paragraph->getNumRef()->setLevel(number);
    }
    return std::move(_paragraph);
}

/// Spaces that are shares of the lines become points.
void SlideTextReader::finishSpaces(DOM::TextLevel& level, const DOM::RunProps& mark) const
{
    constexpr float LineShare = 1.2F; // of the font's size
    constexpr float UsualSize = 18;
    const auto size = _firstRunProps ? _largestFont : mark.getFontSize();
    const float line = size.value_or(UsualSize) * LineShare;
    if (level.spaceBeforeShare)
        level.paraProps.setSpaceBefore(*level.spaceBeforeShare * line);
    if (level.spaceAfterShare)
        level.paraProps.setSpaceAfter(*level.spaceAfterShare * line);
}

void SlideTextReader::readPieces(const XMLElement& parent)
{
    const auto& pieces = getSlidePieces();
    parent.processAllElements([&](const std::string& name, const XMLElement& child) {
        const auto found = pieces.find(name);
        if (found != pieces.end())
            readPiece(found->second, child, parent);
    });
}

void SlideTextReader::readPiece(SlidePiece piece, const XMLElement& element, const XMLElement& parent)
{
    const auto find = [&](const char* name) {
        return findDrawingElement(element, Vocabulary::Drawing, name);
    };
    switch (piece) {
    case SlidePiece::Run:
    case SlidePiece::Field:
        addText(find("t").getText().value_or(""), find("rPr"));
        break;
    case SlidePiece::Break:
        addBreak(find("rPr"));
        break;
    case SlidePiece::Math:
        addMath(element);
        break;
    case SlidePiece::Alternatives:
        readPieces(_alternatives.findBranch(element, parent));
        break;
    }
}

void SlideTextReader::addMath(const XMLElement& element)
{
    _context.run.leaveOut(SlideLeftOut::Math);
    std::string text;
    appendMathText(element, text);
    addText(text, {});
}

void SlideTextReader::addText(const std::string& text, const XMLElement& properties)
{
    if (text.empty())
        return;
    const DOM::SharedRunStyle style = makeStyle(properties);
    if (style != _textStyle)
        flushText();
    _textStyle = style;
    _text += showSlideSymbols(properties, text);
}

void SlideTextReader::addBreak(const XMLElement& properties)
{
    const DOM::SharedRunStyle style = makeStyle(properties);
    flushText();
    _paragraph->appendRun(std::make_unique<DOM::BreakRun>(style));
}

void SlideTextReader::flushText()
{
    if (!_text.empty())
        _paragraph->appendText(_text, _textStyle);
    _text.clear();
    _textStyle.reset();
}

DOM::SharedRunStyle SlideTextReader::makeStyle(const XMLElement& properties)
{
    DOM::RunProps props = _levelRunProps;
    DOM::override(props, readSlideRunProps(properties, _part, _context));
    if (!_firstRunProps)
        _firstRunProps = props;
    if (props.getFontSize())
        _largestFont = std::max(_largestFont.value_or(0), *props.getFontSize());
    DOM::RunStyle style;
    style.setHyperlink(makeLink(properties));
    if (!DOM::isEmpty(props))
        style.setRunProps(std::make_shared<DOM::RunProps>(std::move(props)));
    return share(style);
}

std::shared_ptr<const DOM::Hyperlink> SlideTextReader::makeLink(const XMLElement& properties)
{
    auto target = readClickTarget(properties, _part, _context);
    if (!target || target->empty())
        return nullptr;
    if (target->front() != '#')
        return std::make_shared<DOM::Hyperlink>(std::move(*target));
    return std::make_shared<DOM::Hyperlink>(std::string(), target->substr(1));
}

} // namespace

DOM::SharedCellText readSlideText(const XMLElement& textBody, const SlideTextScope& scope)
{
    if (!textBody.isValid())
        return nullptr;
    PresentationContext& context = scope.context;
    DOM::TextLevels levels = scope.levels;
    const XMLElement own = findDrawingElement(textBody, Vocabulary::Drawing, "lstStyle");
    DOM::overrideLevels(levels, readTextLevels(own, scope.part, context));

    SlideTextReader reader(scope, levels);
    std::vector<std::unique_ptr<DOM::Block>> blocks;
    bool isCut = false;
    forEachDrawingElement(
        textBody, Vocabulary::Drawing, [&](const std::string& name, const XMLElement& paragraph) {
            if (name != "p" || isCut)
                return;
            isCut = true;
            if (context.paragraphsCount >= PresentationContext::ParagraphsMax) {
                context.report("Text of the presentation is cut after {} paragraphs",
                    std::to_string(PresentationContext::ParagraphsMax));
            } else if (blocks.size() >= BodyParagraphsMax) {
                context.report(
                    "Text on a slide is cut after {} paragraphs", std::to_string(BodyParagraphsMax));
            } else {
                isCut = false;
                ++context.paragraphsCount;
                blocks.push_back(reader.readParagraph(paragraph));
            }
        });
    return DOM::SharedCellText(new DOM::CellText(std::move(blocks)));
}

boost::optional<std::string> readClickTarget(
    const XMLElement& properties, const SlidePart& part, PresentationContext& context)
{
    const XMLElement link = findDrawingElement(properties, Vocabulary::Drawing, "hlinkClick");
    const auto id = findRelationshipId(link);
    if (!id || id->empty())
        return boost::none;
    const Relationship* const relationship = part.relationships.findById(*id);
    if (!relationship) {
        context.report("Hyperlink has an unknown relationship {}", *id);
        return boost::none;
    }
    if (relationship->target.size() > SlideLinkBytesMax) { // each object has a copy of it
        context.report("Hyperlink of more than {} bytes is left out", std::to_string(SlideLinkBytesMax));
        return boost::none;
    }
    if (relationship->isExternal && !relationship->target.empty())
        return relationship->target;
    if (!relationship->isExternal && relationship->isType("slide"))
        return '#' + relationship->target;
    return boost::none;
}

} // namespace QV::Filters
