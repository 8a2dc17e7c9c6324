#include <Filters/Preview/TextFramesPage.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

#include <boost/optional.hpp>
#include <boost/variant/get.hpp>
#include <fmt/format.h>

#include <DOM/Public/Anchors.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/ChartSpace.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Shape.h>
#include <FilterUtils/FU_Colors.h>
#include <FilterUtils/FU_GeometryParserUtils.h>
#include <Filters/Package/ListLabels.h>
#include <Filters/Preview/ChartImage.h>
#include <Filters/Preview/HtmlText.h>
#include <Filters/Preview/MediaUri.h>
#include <Filters/Preview/TextPage.h>
#include <Filters/Preview/TextPageContext.h>
#include <Filters/Preview/TextPageCss.h>
#include <Utils/Public/Size2D.h>
#include <cinder/Vector.h>

namespace QV::Filters {
namespace {

using FramePoint = cinder::Vec2<float>;

bool isFinitePoint(const FramePoint& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y);
}

/// Nothing where the frame does not say, or says what cannot be.
boost::optional<Size2D<float>> findFrameSize(const DOM::Frame& frame)
{
    const auto& extent = frame.getExtent();
    if (!extent || !std::isfinite(extent->getWidth()) || !std::isfinite(extent->getHeight()))
        return boost::none;
    return Size2D<float>(std::max(extent->getWidth(), 0.0F), std::max(extent->getHeight(), 0.0F));
}

/// What stands for a frame whose object cannot be shown.
std::string makeFrameName(const DOM::Frame& frame, const char* name)
{
    return escapeHtml(frame.getName().empty() || frame.getName().size() > 1000 ? name : frame.getName());
}

std::string makeTurnCss(const DOM::Frame& frame)
{
    std::string steps;
    if (std::isfinite(frame.getRotation()) && frame.getRotation() != 0)
        steps += fmt::format(" rotate({:.6g}deg)", std::fmod(frame.getRotation(), 360.0F));
    if (frame.isFlippedHorizontally())
        steps += " scaleX(-1)";
    if (frame.isFlippedVertically())
        steps += " scaleY(-1)";
    return steps.empty() ? steps : "transform:" + steps.substr(1) + ";";
}

/// A frame that is anchored on the page floats at the side of the column that its middle is nearer to.
const char* getFloatCss(const DOM::Frame& frame, float columnWidth)
{
    const auto* const anchor = boost::get<DOM::AbsoluteAnchor>(&frame.getAnchor());
    if (!anchor)
        return "";
    const auto size = findFrameSize(frame);
    float middle = anchor->getOffset().x + (size ? size->getWidth() / 2 : 0);
    if (anchor->getHorizontalOrigin() == DOM::AbsoluteAnchor::Origin::Page)
        middle -= PaperSize().left; // the margin that most pages have
    return middle > columnWidth / 2 ? "float:right;" : "float:left;";
}

std::string makeOutlineCss(const DOM::Shape& shape)
{
    std::string css;
    if (shape.getFillColor() && shape.getFillColor()->getRGBA().a != 0)
        css = fmt::format("background:#{};", FilterUtils::convertRGBColor(shape.getFillColor()->getRGBA()));
    const std::string& geometry = shape.getPresetGeometry();
    const std::string preset = FilterUtils::looksLikeOOXMLPresetType(geometry)
                                   ? FilterUtils::makePlainPresetType(geometry)
                                   : std::string();
    if (preset == "line" || preset.find("Connector") != std::string::npos)
        return css + "border-width:1px 0 0;";
    if (preset == "ellipse")
        return css + "border-radius:50%;";
    if (preset == "roundRect")
        return css + "border-radius:12pt;";
    return css;
}

/// Writes one frame of a run with all that is in it.
class TextFrameWriter
{
public:
    TextFrameWriter(TextPageContext& context, std::string& page)
        : _context(context)
        , _page(page)
    {
    }

    /// @param css where it stands
    void write(const DOM::Frame& frame, const std::string& css, const TextPlace& place)
    {
        if (place.depth > _context.limits.nesting || _context.counts.frames == _context.limits.frames ||
            _context.isFull(_page)) {
            ++_context.counts.leftFrames;
            return;
        }
        ++_context.counts.frames;
        const auto size = findFrameSize(frame);
        std::string style = css + makeTurnCss(frame);
        if (const auto* const shape = dynamic_cast<const DOM::Shape*>(frame.getGraphicalObject())) {
            writeShape(*shape, frame, style, place);
            return;
        }
        if (size)
            style += fmt::format(
                "width:{};height:{};", makePointsCss(size->getWidth()), makePointsCss(size->getHeight()));
        if (const auto* const picture = dynamic_cast<const DOM::Picture*>(frame.getGraphicalObject()))
            writePicture(frame, *picture, style);
        else if (const auto* const chart = dynamic_cast<const DOM::ChartSpace*>(frame.getGraphicalObject()))
            _page +=
                fmt::format("<span class=\"frame\" role=\"img\" aria-label=\"{}\" style=\"{}\">{}</span>",
                    makeFrameName(frame, "Chart"), style,
                    size ? makeChartImage(*chart, size->getWidth(), size->getHeight()) : std::string());
        else
            writeEmptyFrame(makeFrameName(frame, "Object"), style);
    }

    /// @param style of the box
    void writeBox(const DOM::Shape& shape, const std::string& style, float width, const TextPlace& place,
        const FramePoint& corner)
    {
        const bool isGroup = shape.getChildren().size() != 0;
        _page += fmt::format("<div class=\"{}\" style=\"{}{}\">", isGroup ? "group" : "box", style,
            isGroup ? std::string() : makeOutlineCss(shape));
        if (shape.getText()) {
            ListLabels labels(_context.document);
            writeTextBlocks(
                shape.getText()->getBlocks(), {labels, width, {}, place.depth + 1}, _context, _page);
        }
        for (const DOM::Frame& child : shape.getChildren())
            writeChild(child, corner, place.makeInner(width));
        _page += "</div>\n";
    }

private:
    void writePicture(const DOM::Frame& frame, const DOM::Picture& picture, const std::string& style)
    {
        const std::string& uri = _context.pictures.getUri(picture);
        const std::string name = makeFrameName(frame, "Picture");
        if (uri.empty()) {
            writeEmptyFrame(name, style);
        } else if (!takePictureRoom(picture, uri.size())) {
            ++_context.counts.leftFrames;
            writeEmptyFrame(name, style);
        } else {
            _page += fmt::format("<img alt=\"{}\" style=\"{}\" src=\"{}\">", name, style, uri);
        }
    }

    /// A file has a picture once, but may show it any count of times.
    bool takePictureRoom(const DOM::Picture& picture, std::size_t bytes)
    {
        TextPageCounts& counts = _context.counts;
        const bool isRepeated = counts.pictures.count(picture.getMediaId()) != 0;
        if (bytes > _context.limits.pictureBytes - counts.pictureBytes ||
            (isRepeated && bytes > _context.limits.repeatedBytes - counts.repeatedBytes))
            return false;
        counts.pictures.insert(picture.getMediaId());
        counts.pictureBytes += bytes;
        counts.repeatedBytes += isRepeated ? bytes : 0;
        return true;
    }

    void writeEmptyFrame(const std::string& name, const std::string& style)
    {
        _page += fmt::format(
            "<span class=\"frame empty\" role=\"img\" aria-label=\"{0}\" style=\"{1}\">{0}</span>", name,
            style);
    }

    void writeShape(
        const DOM::Shape& shape, const DOM::Frame& frame, std::string style, const TextPlace& place)
    {
        const auto size = findFrameSize(frame);
        const bool isGroup = shape.getChildren().size() != 0;
        // Text that is longer than its shape makes it higher; what stands in a group keeps its place.
        if (size)
            style += fmt::format("width:{};{}height:{};", makePointsCss(size->getWidth()),
                isGroup ? "" : "min-", makePointsCss(size->getHeight()));
        const auto* const anchor = boost::get<DOM::AbsoluteAnchor>(&frame.getAnchor());
        writeBox(shape, style, size ? size->getWidth() : place.width, place,
            anchor ? anchor->getOffset() : FramePoint(0, 0));
    }

    /// @param corner of the group; the places of children are counted from where its place is
    void writeChild(const DOM::Frame& child, const FramePoint& corner, const TextPlace& place)
    {
        const auto* const anchor = boost::get<DOM::AbsoluteAnchor>(&child.getAnchor());
        const FramePoint at = anchor ? anchor->getOffset() - corner : FramePoint(0, 0);
        if (!isFinitePoint(at)) {
            ++_context.counts.leftFrames;
            return;
        }
        write(child,
            fmt::format("position:absolute;left:{};top:{};", makePointsCss(at.x), makePointsCss(at.y)),
            place);
    }

    TextPageContext& _context;
    std::string& _page;
};

} // namespace

void writeTextFrame(const DOM::Frame& frame, const TextPlace& place, TextPageContext& context,
    std::string& page, std::string& boxes)
{
    const std::string css = getFloatCss(frame, place.width);
    if (!dynamic_cast<const DOM::Shape*>(frame.getGraphicalObject())) {
        TextFrameWriter(context, page).write(frame, css, place);
        return;
    }
    std::string box;
    {
        const BytesElsewhere elsewhere(context, page.size());
        TextFrameWriter(context, box).write(frame, css, place);
    }
    context.counts.elsewhereBytes += box.size();
    boxes += box;
}

void writeTextShape(
    const DOM::Shape& shape, const TextPlace& place, TextPageContext& context, std::string& page)
{
    if (place.depth > context.limits.nesting || context.counts.frames == context.limits.frames) {
        ++context.counts.leftFrames;
        return;
    }
    ++context.counts.frames;
    TextFrameWriter(context, page).writeBox(shape, "", place.width, place, FramePoint(0, 0));
}

} // namespace QV::Filters
