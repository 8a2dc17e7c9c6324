#include <Filters/Preview/SlideShapes.h>

#include <cstddef>
#include <memory>

#include <boost/optional.hpp>
#include <boost/variant/get.hpp>
#include <fmt/format.h>

#include <DOM/Public/CellText.h>
#include <DOM/Public/ChartSpace.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/NamedShapeStyle.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/ShapeStyle.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/Table.h>
#include <FilterUtils/FU_StyleHierarchy.h>
#include <FilterUtils/FU_Text.h>
#include <Filters/Package/DrawnTransform.h>
#include <Filters/Package/SafeLink.h>
#include <Filters/Preview/ChartImage.h>
#include <Filters/Preview/HtmlText.h>
#include <Filters/Preview/ShapePath.h>
#include <Filters/Preview/SlideDefs.h>
#include <Filters/Preview/SlideFills.h>
#include <Filters/Preview/SlideLines.h>
#include <Filters/Preview/SlidePageContext.h>
#include <Filters/Preview/SlideTextBox.h>
#include <Filters/Preview/SlideTransforms.h>
#include <Filters/Preview/SvgNumbers.h>

namespace QV::Filters {
namespace {

constexpr std::size_t FrameNameMax = 1000; // bytes
constexpr std::size_t FrameLinkMax = 4096; // bytes; browsers take no longer ones for sure
constexpr std::size_t MediaTypeMax = 100;  // bytes

/// An attribute with a blank in front; nothing for an empty value, or one that nobody wrote by hand.
std::string makeNameAttribute(const char* attribute, const std::string& value)
{
    if (value.empty() || value.size() > FrameNameMax)
        return {};
    return fmt::format(" {}=\"{}\"", attribute, escapeHtml(value));
}

std::string makeTransformAttribute(const std::string& transform)
{
    return transform.empty() ? std::string() : fmt::format(" transform=\"{}\"", transform);
}

/// Empty where the frame leads nowhere that a page may lead to.
std::string findFrameLink(const DOM::Frame& frame)
{
    const DOM::Hyperlink* const link = frame.getHyperlink().get();
    if (!link || link->getURL().size() + link->getAnchor().size() > FrameLinkMax)
        return {};
    const std::string target = FilterUtils::joinHyperlink(*link);
    return isSafeLink(target) ? target : std::string();
}

/// What lies over a path that is lighter or darker than the shape; empty for all others.
std::string makeTint(DOM::GeometryPath::Filling filling)
{
    switch (filling) {
    case DOM::GeometryPath::Filling::Normal:
    case DOM::GeometryPath::Filling::None:
        break;
    case DOM::GeometryPath::Filling::Lighten:
        return " fill=\"#FFFFFF\" fill-opacity=\"0.4\"";
    case DOM::GeometryPath::Filling::LightenLess:
        return " fill=\"#FFFFFF\" fill-opacity=\"0.2\"";
    case DOM::GeometryPath::Filling::Darken:
        return " fill=\"#000000\" fill-opacity=\"0.4\"";
    case DOM::GeometryPath::Filling::DarkenLess:
        return " fill=\"#000000\" fill-opacity=\"0.2\"";
    }
    return {};
}

bool isFilled(const DOM::ShapeProps& props)
{
    return props.getFill() && !boost::get<DOM::NoFill>(&*props.getFill());
}

/// The paths of an outline with the fill and the line of its shape.
std::string makeOutlinePaths(
    const DrawnOutline& outline, const DOM::ShapeProps& props, const FillArea& area, SlideDefs& defs)
{
    if (!isFilled(props) && !hasLine(props))
        return {};
    const std::string none = " fill=\"none\"";
    const std::string fill = isFilled(props) ? makePaint("fill", *props.getFill(), area, defs) : none;
    const std::string stroke = makeStroke(props, area, defs);
    const std::string ends = makeLineEnds(props, defs);
    std::string paths;
    for (const DrawnPath& path : outline.paths) {
        const bool isOpen = path.data.find_first_of("Zz") == std::string::npos;
        const std::string line = path.isStroked ? stroke + (isOpen ? ends : std::string()) : std::string();
        const std::string tint = isFilled(props) ? makeTint(path.filling) : std::string();
        const bool hasFill = path.filling != DOM::GeometryPath::Filling::None && isFilled(props);
        if (!hasFill && line.empty())
            continue;
        if (!tint.empty())
            paths += fmt::format("<path d=\"{}\"{}/>", path.data, fill);
        paths += fmt::format(
            "<path d=\"{}\"{}{}/>", path.data, !tint.empty() ? tint : (hasFill ? fill : none), line);
    }
    return paths;
}

/// A crossed box that says what cannot be shown.
std::string makeUnshownBox(const std::string& what, const Size2D<float>& size)
{
    const std::string width = formatSvgNumber(size.getWidth());
    const std::string height = formatSvgNumber(size.getHeight());
    return fmt::format("<path d=\"M0 0H{0}V{1}H0ZL{0} {1}M{0} 0L0 {1}\" fill=\"#EEEEEE\" stroke=\"#AAAAAA\"/>"
                       "<text x=\"{2}\" y=\"{3}\" text-anchor=\"middle\" font-size=\"10\">{4}</text>",
        width, height, formatSvgNumber(size.getWidth() / 2.0), formatSvgNumber(size.getHeight() / 2.0),
        escapeHtml(what));
}

std::string makeUnshownPicture(const std::string& mimeType, const Size2D<float>& size)
{
    return makeUnshownBox(mimeType.empty() || mimeType.size() > MediaTypeMax ? "picture" : mimeType, size);
}

std::string makeUnshownObject(const DOM::Frame& frame, const Size2D<float>& size)
{
    const std::string& name = frame.getName();
    return makeUnshownBox(name.empty() || name.size() > FrameNameMax ? "object" : name, size);
}

/// An outline of its own, which cuts the picture; empty for a rectangle.
std::string makeClip(const DOM::ShapeProps& props, const DrawnOutline& outline, SlideDefs& defs)
{
    if (!props.getGeometry() || props.getGeometry()->preset == "ooxml-rect")
        return {};
    std::string paths;
    for (const DrawnPath& path : outline.paths)
        if (path.filling != DOM::GeometryPath::Filling::None)
            paths += fmt::format("<path d=\"{}\"/>", path.data);
    return paths.empty() ? paths : fmt::format(" clip-path=\"url(#{})\"", defs.add("clipPath", "", paths));
}

/// Writes one frame of a slide with all that is in it.
class SlideFrameWriter
{
public:
    SlideFrameWriter(SlidePageContext& context, std::string& page)
        : _context(context)
        , _page(page)
    {
    }

    /// @param isMirrored whether the groups around the frame mirror it
    void write(const DOM::Frame& frame, bool isMirrored, unsigned depth)
    {
        if (frame.isHidden() || !_context.takeShape(depth, _page))
            return;
        const auto box = findSlideBox(frame);
        if (!box) {
            --_context.shapes;
            ++_context.leftShapes;
            return;
        }
        const std::string link = findFrameLink(frame);
        if (!link.empty())
            _page += fmt::format("<a href=\"{}\">", escapeHtml(link));
        writeObject(frame, *box, isMirrored, depth);
        if (!link.empty())
            _page += "</a>\n";
    }

private:
    void writeObject(const DOM::Frame& frame, const DrawnBox& box, bool isMirrored, unsigned depth)
    {
        const auto* const shape = dynamic_cast<const DOM::Shape*>(frame.getGraphicalObject());
        if (!shape || shape->getKind() != DOM::Shape::Kind::Group)
            writeBox(frame, box, shape, isMirrored, depth);
        if (!shape || shape->getChildren().empty())
            return;
        _page += fmt::format("<g class=\"group\"{}{}>\n", makeNameAttribute("data-name", frame.getName()),
            makeTransformAttribute(makeGroupTransform(frame, box)));
        const bool mirrors = frame.isFlippedHorizontally() != frame.isFlippedVertically();
        for (const DOM::Frame& child : shape->getChildren())
            write(child, isMirrored != mirrors, depth + 1);
        _page += "</g>\n";
    }

    /// What stands in the frame's own coordinates.
    void writeBox(const DOM::Frame& frame, const DrawnBox& box, const DOM::Shape* shape, bool isMirrored,
        unsigned depth)
    {
        const bool isSeenAsOne = !shape && !dynamic_cast<const DOM::Table*>(frame.getGraphicalObject());
        _page += fmt::format("<g class=\"shape\"{}{}{}>", makeNameAttribute("data-name", frame.getName()),
            makeTransformAttribute(makeFrameTransform(frame, box)),
            isSeenAsOne ? " role=\"img\"" + makeNameAttribute("aria-label", frame.getDescription().empty()
                                                                                ? frame.getName()
                                                                                : frame.getDescription())
                        : std::string());
        if (shape)
            writeShape(frame, *shape, box, isMirrored, depth);
        else if (!frame.getGraphicalObject())
            _page += makeUnshownObject(frame, box.extent);
        else if (const auto* const picture = dynamic_cast<const DOM::Picture*>(frame.getGraphicalObject()))
            writePicture(frame, *picture, box.extent);
        else if (const auto* const chart = dynamic_cast<const DOM::ChartSpace*>(frame.getGraphicalObject()))
            writeUpright(frame, box.extent, isMirrored, [&] {
                _page += fmt::format("<svg width=\"{}\" height=\"{}\"{}>{}</svg>",
                    formatSvgNumber(box.extent.getWidth()), formatSvgNumber(box.extent.getHeight()),
                    _context.isDark ? " fill=\"#FFFFFF\"" : "",
                    makeChartImage(*chart, box.extent.getWidth(), box.extent.getHeight(), ChartGround::None));
            });
        else if (const auto* const table = dynamic_cast<const DOM::Table*>(frame.getGraphicalObject()))
            writeUpright(frame, box.extent, isMirrored,
                [&] { writeSlideTable(*table, box.extent, depth, _context, _page); });
        _page += "</g>\n";
    }

    void writeShape(const DOM::Frame& frame, const DOM::Shape& shape, const DrawnBox& box, bool isMirrored,
        unsigned depth)
    {
        const DOM::ShapeProps props = makeEffectiveProps(_context.document.getStyles(), shape.getStyle());
        const DrawnOutline outline = drawOutlineOf(props, box.extent);
        const FillArea area{box.extent, frame.getRotation()};
        if (isUnshown(shape, props))
            _page += makeUnshownObject(frame, box.extent);
        else
            writeDrawing(frame, props, area, makeOutlinePaths(outline, props, area, _context.defs));
        if (shape.getText() && !shape.getText()->getPlainText().empty())
            writeUpright(frame, box.extent, isMirrored,
                [&] { writeSlideText(*shape.getText(), props, outline.textBox, depth, _context, _page); });
    }

    /// Without paths where there is no room for them.
    DrawnOutline drawOutlineOf(const DOM::ShapeProps& props, const Size2D<float>& size)
    {
        const DOM::ShapeGeometry* const geometry = props.getGeometry().get();
        if (_context.takeOutline(geometry))
            return drawOutline(geometry, size);
        DrawnOutline outline = drawOutline(nullptr, size);
        outline.paths.clear();
        return outline;
    }

    /// Whether it stands for something else, of which there is no picture that can be shown.
    bool isUnshown(const DOM::Shape& shape, const DOM::ShapeProps& props)
    {
        if (shape.getKind() != DOM::Shape::Kind::Object || shape.getText() || !shape.getChildren().empty())
            return false;
        const auto* const fill = props.getFill() ? boost::get<DOM::PictureFill>(&*props.getFill()) : nullptr;
        if (fill)
            return _context.defs.addPicture(DOM::Picture(fill->mediaId, fill->mimeType)).empty();
        return !isFilled(props) && !hasLine(props);
    }

    void writePicture(const DOM::Frame& frame, const DOM::Picture& picture, const Size2D<float>& size)
    {
        const DOM::ShapeProps props = picture.getShapeProps() ? *picture.getShapeProps() : DOM::ShapeProps();
        const DrawnOutline outline = drawOutlineOf(props, size);
        const FillArea area{size, frame.getRotation()};
        const std::string id = _context.defs.addPicture(picture);
        std::string drawing;
        DOM::ShapeProps below = props;
        below.setLineFill(boost::none);
        drawing += makeOutlinePaths(outline, below, area, _context.defs);
        const std::string image = id.empty() ? makeUnshownPicture(picture.getMimeType(), size)
                                             : makePictureElement(id, picture.getCrop(), size);
        const std::string clip = makeClip(props, outline, _context.defs);
        drawing += clip.empty() ? image : fmt::format("<g{}>{}</g>", clip, image);
        DOM::ShapeProps above = props;
        above.setFill(boost::none);
        drawing += makeOutlinePaths(outline, above, area, _context.defs);
        writeDrawing(frame, props, area, drawing);
    }

    /// A drawing with its shadow, which is not mirrored with it.
    void writeDrawing(const DOM::Frame& frame, const DOM::ShapeProps& props, const FillArea& area,
        const std::string& drawing)
    {
        if (drawing.empty())
            return;
        const std::string shadow = makeShadow(props, area, _context.defs);
        const std::string flip = makeFlipTransform(frame, area.size);
        if (!shadow.empty())
            _page += fmt::format("<g{}>", shadow);
        if (!flip.empty())
            _page += fmt::format("<g transform=\"{}\">", flip);
        _page += drawing;
        if (!flip.empty())
            _page += "</g>";
        if (!shadow.empty())
            _page += "</g>";
    }

    /// What is read, and so never mirrored.
    template <typename Write>
    void writeUpright(const DOM::Frame& frame, const Size2D<float>& size, bool isMirrored, Write writeContent)
    {
        const std::string transform = makeUprightTransform(frame, size, isMirrored);
        if (!transform.empty())
            _page += fmt::format("<g transform=\"{}\">", transform);
        writeContent();
        if (!transform.empty())
            _page += "</g>";
    }

    SlidePageContext& _context;
    std::string& _page;
};

} // namespace

DOM::ShapeProps makeEffectiveProps(const DOM::Styles& styles, const DOM::ShapeStyle& style)
{
    auto props = std::make_shared<DOM::ShapeProps>();
    FilterUtils::overrideWithParentStyles(styles, props, DOM::getParent(styles, style),
        [](const DOM::NamedShapeStyle& named) { return named.getShapeProps(); });
    FilterUtils::override(props, style.getShapeProps());
    return *props;
}

void writeSlideFrame(const DOM::Frame& frame, SlidePageContext& context, std::string& page)
{
    SlideFrameWriter(context, page).write(frame, false, 0);
}

} // namespace QV::Filters
