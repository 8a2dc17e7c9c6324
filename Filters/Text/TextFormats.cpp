#include <Filters/Text/TextFormats.h>

#include <utility>

#include <boost/optional.hpp>

#include <DOM/Public/Document.h>
#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/PredefinedTextStyles.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/SharedObjectFactory.h>
#include <FilterUtils/FU_NamedStylesFactory.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Text/PropertyText.h>
#include <Filters/Text/TextContext.h>
#include <Filters/Text/TextLeftOut.h>
#include <Filters/Text/TextNumbering.h>
#include <Filters/Text/TextStyles.h>

namespace QV::Filters {

TextFormats::TextFormats(TextContext& context)
    : _context(context)
    , _names(Dialect::Transitional)
    , _reader(_names, context.colors, context.theme, context.getReport(), &context.messages)
{
}

const TextFormats::Paragraph& TextFormats::getParagraph(const std::string& text)
{
    const auto found = _paragraphs.find(text);
    if (found != _paragraphs.end())
        return found->second;
    if (takeTextRoom(_paragraphs.size(), text))
        return _paragraphs.emplace(text, makeParagraph(text)).first->second;
    _lastParagraph = makeParagraph(text);
    return _lastParagraph;
}

const DOM::RunStyle& TextFormats::getRun(const std::string& text)
{
    const auto found = _runs.find(text);
    if (found != _runs.end())
        return found->second;
    const DOM::RunStyle style = makeRunStyle(_reader.readRun(parsePropertyText(text)));
    if (takeTextRoom(_runs.size(), text))
        return _runs.emplace(text, style).first->second;
    _lastRun = style;
    return _lastRun;
}

TextFormats::Paragraph TextFormats::makeParagraph(const std::string& text)
{
    const ParaFormat format = _reader.readPara(parsePropertyText(text));
    if (format.hasTabLeaders)
        _context.run.leaveOut(TextLeftOut::TabLeaders);
    DOM::ParagraphStyle style;
    style.setParentUUID(findStyle(format.styleId));
    style.setParaProps(format.props);
    if (format.before && format.before->styleId != format.styleId) {
        const FilterUtils::NamedStylesFactory& styles = _context.styles.factory;
        style.setTrackedParent(format.before->styleId.empty() ? styles.getDefaultParagraphStyleUUID()
                                                              : findStyle(format.before->styleId));
    }
    DOM::RunStyle mark = makeRunStyle(format.mark);
    mark.setChange(format.mark.change);

    Paragraph result;
    DOM::SharedObjectFactory& factory = _context.run.getDocument().getSharedObjectFactory();
    if (!style.isEmpty())
        result.style = factory.getShared(style);
    if (!mark.isEmpty())
        result.mark = factory.getShared(mark);
    if (format.numbering)
        result.numRef = _context.numbering.makeReference(*format.numbering, _context.getReport());
    stripNumbering(result);
    return result;
}

DOM::RunStyle TextFormats::makeRunStyle(const RunFormat& format)
{
    DOM::RunStyle style;
    style.setParentUUID(findStyle(format.styleId));
    style.setRunProps(format.props);
    if (format.props && format.props->getHidden() == true)
        _context.styles.hiddenProps.insert(format.props);
    if (format.before) {
        style.setTrackedRunProps(
            format.before->props ? format.before->props : std::make_shared<const DOM::RunProps>());
        if (format.before->styleId != format.styleId)
            style.setTrackedParent(findStyle(format.before->styleId));
    }
    return style;
}

void TextFormats::stripNumbering(Paragraph& format)
{
    if (!format.numRef || !spendStyleVisits())
        return;
    if (format.style && format.style->getTrackedParent())
        return; // what the former style gives is not what the present one does
    DOM::Paragraph paragraph;
    paragraph.setSharedStyle(format.style);
    paragraph.setNumRef(std::move(format.numRef));
    FilterUtils::stripNumRef(_context.styles.factory, paragraph);
    format.numRef = std::move(paragraph.getNumRef());
}

UUID TextFormats::findStyle(const std::string& id)
{
    const UUID uuid = FilterUtils::findParentUUID(_context.styles.textStyleIds, id);
    if (!uuid && !id.empty() && _unknownStyles.insert(id).second)
        _context.report("Style {} is not defined", id);
    return uuid;
}

/// Whether a text may be kept beside @p count others.
bool TextFormats::takeTextRoom(std::size_t count, const std::string& text)
{
    if (count >= TextsMax || text.size() > TextBytesMax - _textBytes)
        return false;
    _textBytes += text.size();
    return true;
}

const TextFormats::StyleNames& TextFormats::getStyleNames()
{
    if (_styleNames.empty())
        for (const DOM::NamedTextStyle& style : std::as_const(_context.styles.factory).getTextStyles())
            _styleNames.emplace(DOM::getStyleNameText(style), style.getUUID());
    return _styleNames;
}

void TextFormats::noteHidden(const DOM::Paragraph& paragraph)
{
    const TextStyles& styles = _context.styles;
    const DOM::RunStyle* lastStyle = nullptr;
    DOM::ParagraphStyle style = paragraph.getStyle();
    if (!style.getParentUUID())
        style.setParentUUID(styles.factory.getDefaultParagraphStyleUUID());
    if (_hasHiddenText || styles.hiddenProps.empty())
        return;
    for (const DOM::Run& run : paragraph.getRuns()) {
        if (&run.getStyle() == lastStyle)
            continue;
        lastStyle = &run.getStyle();
        if (!spendStyleVisits())
            return;
        if (FilterUtils::isHidden(styles.factory, styles.hiddenProps, *lastStyle, style)) {
            _hasHiddenText = true;
            return;
        }
    }
}

// A look at a chain of styles visits all styles for each of its links. Documents with so many formats that
// this limit ends it keep references that say what their styles say as well, which changes nothing.
bool TextFormats::spendStyleVisits()
{
    constexpr std::size_t VisitsMax = 20'000'000;
    if (_styleVisits >= VisitsMax)
        return false;
    _styleVisits += std::as_const(_context.styles.factory).getTextStyles().size() + 1;
    return true;
}

} // namespace QV::Filters
