#include <Filters/Preview/ParagraphPage.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>

#include <boost/optional.hpp>
#include <fmt/format.h>

#include <DOM/Public/NumberedList.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>
#include <Filters/Package/EffectiveFormats.h>
#include <Filters/Package/ListLabels.h>
#include <Filters/Package/SeenText.h>
#include <Filters/Preview/HtmlText.h>
#include <Filters/Preview/RunsPage.h>
#include <Filters/Preview/StyleSheet.h>
#include <Filters/Preview/TextPageContext.h>
#include <Filters/Preview/TextPageCss.h>
#include <Filters/Preview/TextTabs.h>
#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::Filters {
namespace {

constexpr unsigned long HeadingElementsCount = 6; // h1 to h6
constexpr unsigned long HeadingLevelsCount = 9;

/// The properties of a paragraph, with less space between the lines of a shrunk text.
DOM::ParaProps makeShownParaProps(
    const DOM::Paragraph& paragraph, const TextPlace& place, EffectiveFormats& formats)
{
    DOM::ParaProps props = formats.getParaProps(paragraph, place.scope);
    if (place.lineSpacingReduction <= 0)
        return props;
    const DOM::LineSpacing single(DOM::LineSpacing::Kind::Multiple, 1);
    const DOM::LineSpacing spacing = props.getLineSpacing().value_or(single);
    if (spacing.getKind() == DOM::LineSpacing::Kind::Multiple)
        props.setLineSpacing(
            DOM::LineSpacing(spacing.getKind(), spacing.getValue() - place.lineSpacingReduction));
    return props;
}

/// The font of a paragraph's element, which no line is lower than. On a slide, lines are as high as their own
/// runs: it has the size of the smallest one, or of the mark where there are no runs.
DOM::RunProps makeLineFont(const DOM::Paragraph& paragraph, const DOM::RunStyle& plain,
    const TextPlace& place, EffectiveFormats& formats)
{
    if (!place.isOnSlide)
        return formats.getRunProps(paragraph, plain, place.scope);
    if (paragraph.getRuns().empty())
        return formats.getRunProps(paragraph, paragraph.getParaMarkStyle(), place.scope);
    DOM::RunProps font = formats.getRunProps(paragraph, plain, place.scope);
    boost::optional<float> smallest;
    for (const DOM::Run& run : paragraph.getRuns()) {
        const auto size = formats.getRunProps(paragraph, run.getStyle(), place.scope).getFontSize();
        if (!size)
            return font; // what has no size of its own takes that of the element
        smallest = smallest ? std::min(*smallest, *size) : *size;
    }
    font.setFontSize(smallest);
    return font;
}

/// Writes one paragraph.
class ParagraphWriter
{
public:
    ParagraphWriter(
        const DOM::Paragraph& paragraph, const TextPlace& place, TextPageContext& context, std::string& page)
        : _paragraph(paragraph)
        , _place(place)
        , _context(context)
        , _page(page)
        , _props(makeShownParaProps(paragraph, place, context.formats))
        , _font(makeLineFont(paragraph, _plain.getStyle(), place, context.formats))
    {
    }

    void write(const ParagraphNeighbours& neighbours)
    {
        if (isHidden(_paragraph, _context.formats, _place.scope))
            return;
        if (_props.getPageBreakBefore().value_or(false) && _place.depth == 0)
            _page += "<hr class=\"break\">\n";
        const std::size_t begin = _page.size();
        const std::string element = writeBegin(neighbours);
        const std::size_t contentBegin = _page.size();
        const TabsPlan tabs = planTabs(_paragraph, _props, _place.scope, _context.formats);
        if (tabs.isParted())
            _page += tabs.hasCenter ? "<span class=\"parts thirds\"><span>" : "<span class=\"parts\"><span>";
        writeLabel();
        std::string boxes;
        writeRuns({_paragraph, _font, tabs}, _place, _context, _page, boxes);
        if (tabs.isParted())
            _page += tabs.hasRight() ? "</span></span>" : "</span><span></span></span>";
        if (_page.size() == contentBegin)
            _page += "<br>"; // a line of its own all the same
        _page += fmt::format("</{}>\n", element);
        if (!boxes.empty()) {
            _context.counts.elsewhereBytes -= boxes.size();
            _page.insert(begin, boxes);
        }
    }

private:
    /// A heading that says nothing is none for readers that jump from heading to heading.
    boost::optional<unsigned long> findHeadingLevel()
    {
        const auto& level = _props.getOutlineLevel();
        if (!level || *level >= HeadingLevelsCount ||
            getSeenText(_paragraph, _context.formats, _place.scope).empty())
            return boost::none;
        return level;
    }

    /// The name of the element that is open then.
    std::string writeBegin(const ParagraphNeighbours& neighbours)
    {
        std::string element = "p";
        std::string attributes;
        if (const auto level = findHeadingLevel()) {
            element = fmt::format("h{}", std::min(*level + 1, HeadingElementsCount));
            if (*level >= HeadingElementsCount)
                attributes = fmt::format(" aria-level=\"{}\"", *level + 1);
        }
        const std::string css =
            makeParagraphCss(_props, findJoin(neighbours.previous), findJoin(neighbours.next));
        const std::string name = _context.styles.getClass(css + makeInheritedCss(_font));
        if (!name.empty())
            attributes += fmt::format(" class=\"{}\"", name);
        if (_props.getRightToLeft().value_or(false))
            attributes += " dir=\"rtl\"";
        _page += fmt::format("<{}{}>", element, attributes);
        return element;
    }

    ParagraphJoin findJoin(const DOM::Paragraph* neighbour)
    {
        ParagraphJoin join;
        const bool isContextual = _props.getContextualSpacing().value_or(false);
        if (!neighbour || (!isContextual && !_props.getBorders()))
            return join;
        join.hasNoSpace =
            isContextual && neighbour->getStyle().getParentUUID() == _paragraph.getStyle().getParentUUID();
        const DOM::ParaProps& other = _context.formats.getParaProps(*neighbour, _place.scope);
        join.sharesBorders = _props.getBorders() && pointeesEqual(_props.getBorders(), other.getBorders()) &&
                             _props.getLeftIndent() == other.getLeftIndent() &&
                             _props.getRightIndent() == other.getRightIndent();
        return join;
    }

    /// The label takes the room that the first line hangs out to the left.
    void writeLabel()
    {
        const std::unique_ptr<DOM::NumberingRef> reference = _context.formats.getNumRef(_paragraph);
        if (!reference)
            return;
        const std::string label = _place.labels.next(*reference);
        if (label.empty())
            return;
        const DOM::NumberingLevel* const level = _context.formats.findLevel(*reference);
        const auto suffix = level ? level->getSuffix() : DOM::NumberingLevel::Suffix::Tab;
        const float hanging = -_props.getFirstLineIndent().value_or(0);
        const bool isHanging =
            suffix == DOM::NumberingLevel::Suffix::Tab && std::isfinite(hanging) && hanging > 0;
        std::string css = isHanging ? fmt::format("min-width:{};", makePointsCss(hanging)) : std::string();
        css += makeRunCss(_context.formats.getLabelProps(_paragraph, _place.scope), _font);
        const std::string name = _context.styles.getClass(css);
        const std::string element = fmt::format(
            "<span class=\"label{}{}\">{}</span>", name.empty() ? "" : " ", name, escapeHtml(label));
        // A word joiner keeps a word that is longer than its line beside the label; next to a box it does so
        // only where there are no breaks.
        _page += isHanging && _place.isOnSlide
                     ? fmt::format("<span class=\"joined\">{}&#8288;</span>", element)
                     : element;
        if (suffix == DOM::NumberingLevel::Suffix::Space)
            _page += ' ';
        else if (suffix == DOM::NumberingLevel::Suffix::Tab && !isHanging)
            _page += '\t';
    }

    const DOM::Paragraph& _paragraph;
    const TextPlace& _place;
    TextPageContext& _context;
    std::string& _page;
    DOM::TabRun _plain; // of a run that sets nothing
    const DOM::ParaProps _props;
    const DOM::RunProps _font;
};

} // namespace

void writeTextParagraph(const DOM::Paragraph& paragraph, const ParagraphNeighbours& neighbours,
    const TextPlace& place, TextPageContext& context, std::string& page)
{
    ParagraphWriter(paragraph, place, context, page).write(neighbours);
}

} // namespace QV::Filters
