#include <Filters/Preview/SlidePage.h>

#include <memory>
#include <vector>

#include <boost/variant/get.hpp>
#include <fmt/format.h>

#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/NamedShapeStyle.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/ShapeProps.h>
#include <DOM/Public/Styles.h>
#include <Filters/Package/ListLabels.h>
#include <Filters/Preview/SlideFills.h>
#include <Filters/Preview/SlidePageContext.h>
#include <Filters/Preview/SlideShapes.h>
#include <Filters/Preview/SvgNumbers.h>
#include <Filters/Preview/TextPage.h>

namespace QV::Filters {
namespace {

/// The styles whose shapes are seen on a slide, from back to front.
std::vector<const DOM::NamedShapeStyle*> findShownStyles(const DOM::Styles& styles, const DOM::Shape& slide)
{
    std::vector<const DOM::NamedShapeStyle*> shown;
    const bool showsParents = !slide.getSlideProps() || slide.getSlideProps()->showsParentShapes;
    const DOM::NamedShapeStyle* style = showsParents ? DOM::getParent(styles, slide.getStyle()) : nullptr;
    while (style) {
        shown.insert(shown.begin(), style);
        style = style->showsParentShapes() ? DOM::getParent(styles, *style) : nullptr;
    }
    return shown;
}

bool isPlaceholder(const DOM::Frame& frame)
{
    const auto* const shape = dynamic_cast<const DOM::Shape*>(frame.getGraphicalObject());
    return shape && shape->getPlaceholder();
}

bool isDarkColor(const DOM::Color& color)
{
    constexpr double HalfLight = 127.5;
    const DOM::Color::RGBA& rgba = color.getRGBA();
    return rgba.a > HalfLight && 0.2126 * rgba.r + 0.7152 * rgba.g + 0.0722 * rgba.b < HalfLight;
}

/// White lies below all: a fill may let it through.
void writeBackground(const DOM::Shape& slide, SlidePageContext& context, std::string& page)
{
    page += "<rect width=\"100%\" height=\"100%\" fill=\"#FFFFFF\"/>";
    const DOM::ShapeProps props = makeEffectiveProps(context.document.getStyles(), slide.getStyle());
    const auto color = props.getFill() ? findMainColor(*props.getFill()) : boost::none;
    context.isDark = color && isDarkColor(*color);
    if (props.getFill() && !boost::get<DOM::NoFill>(&*props.getFill()))
        page += fmt::format("<rect width=\"100%\" height=\"100%\"{}/>",
            makePaint("fill", *props.getFill(), {context.slideSize}, context.defs));
    page += '\n';
}

void writeSpeakerNotes(const DOM::CellText& notes, SlidePageContext& context, std::string& page)
{
    page += "<div class=\"notes\">\n<h3>Notes</h3>\n";
    ListLabels labels(context.document);
    TextPlace place{labels, context.slideSize.getWidth()};
    place.isOnSlide = true;
    writeTextBlocks(notes.getBlocks(), place, context.text, page);
    page += "</div>\n";
}

} // namespace

void writeSlide(const DOM::Shape& slide, std::size_t number, SlidePageContext& context, std::string& page)
{
    const DOM::SlideProps* const props = slide.getSlideProps().get();
    page += fmt::format("<section class=\"slide\" id=\"slide{0}\">\n<h2>{0}{1}</h2>\n", number,
        props && props->isHidden ? " <span class=\"hidden\">hidden</span>" : "");
    page += fmt::format("<svg viewBox=\"0 0 {} {}\">\n", formatSvgNumber(context.slideSize.getWidth()),
        formatSvgNumber(context.slideSize.getHeight()));
    writeBackground(slide, context, page);
    for (const DOM::NamedShapeStyle* const style : findShownStyles(context.document.getStyles(), slide))
        for (const DOM::Frame& frame : style->getChildren())
            if (!isPlaceholder(frame))
                writeSlideFrame(frame, context, page);
    for (const DOM::Frame& frame : slide.getChildren())
        writeSlideFrame(frame, context, page);
    page += "</svg>\n";
    if (props && props->notes && !props->notes->getPlainText().empty())
        writeSpeakerNotes(*props->notes, context, page);
    page += "</section>\n";
}

} // namespace QV::Filters
