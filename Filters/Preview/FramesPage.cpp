#include <Filters/Preview/FramesPage.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

#include <boost/variant/get.hpp>
#include <fmt/format.h>

#include <DOM/Public/Anchors.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/ChartSpace.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Shape.h>
#include <FilterUtils/FU_AnchorsConverter.h>
#include <FilterUtils/FU_Colors.h>
#include <FilterUtils/FU_GeometryParserUtils.h>
#include <FilterUtils/FU_TableDimensionsInfo.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Preview/CellContent.h>
#include <Filters/Preview/ChartImage.h>
#include <Filters/Preview/HtmlText.h>
#include <Filters/Preview/MediaUri.h>
#include <Filters/Preview/SheetPage.h>

namespace QV::Filters {
namespace {

constexpr int DepthMax = 20; // of groups; more than this nobody sees apart

/// Writes frames; pictures that several of them show are made once.
class FramesWriter
{
public:
    FramesWriter(const PageContext& context, std::string& page)
        : _context(context)
        , _page(page)
        , _pictures(context.run.getMediaStorage())
    {
    }

    /// @param frame with an absolute anchor and an extent
    void write(const DOM::Frame& frame, float left, float top, int depth)
    {
        const auto* const anchor = boost::get<DOM::AbsoluteAnchor>(&frame.getAnchor());
        const auto& extent = frame.getExtent();
        if (!anchor || !extent || _count == _context.limits.frames || depth > DepthMax)
            return;
        const float numbers[] = {anchor->getOffset().x, anchor->getOffset().y, extent->getWidth(),
            extent->getHeight(), frame.getRotation()};
        if (!std::all_of(std::begin(numbers), std::end(numbers), [](float n) { return std::isfinite(n); }))
            return;
        ++_count;
        std::string css = fmt::format("left:{}pt;top:{}pt;width:{}pt;height:{}pt;",
            anchor->getOffset().x + left, anchor->getOffset().y + top, std::max(extent->getWidth(), 0.0F),
            std::max(extent->getHeight(), 0.0F));
        css += makeTransformCss(frame);
        if (const auto* const picture = dynamic_cast<const DOM::Picture*>(frame.getGraphicalObject()))
            writePicture(frame, *picture, css);
        else if (const auto* const chart = dynamic_cast<const DOM::ChartSpace*>(frame.getGraphicalObject()))
            _page += fmt::format("<div class=\"frame\" style=\"{}\">{}</div>\n", css,
                makeChartImage(*chart, extent->getWidth(), extent->getHeight()));
        else if (const auto* const shape = dynamic_cast<const DOM::Shape*>(frame.getGraphicalObject()))
            writeShape(*shape, anchor->getOffset(), css, depth);
    }

private:
    static std::string makeTransformCss(const DOM::Frame& frame)
    {
        std::string steps;
        if (frame.getRotation() != 0)
            steps += fmt::format(" rotate({}deg)", frame.getRotation());
        if (frame.isFlippedHorizontally())
            steps += " scaleX(-1)";
        if (frame.isFlippedVertically())
            steps += " scaleY(-1)";
        return steps.empty() ? steps : "transform:" + steps.substr(1) + ";";
    }

    void writePicture(const DOM::Frame& frame, const DOM::Picture& picture, const std::string& css)
    {
        const std::string& data = _pictures.getUri(picture);
        const std::string name = escapeHtml(frame.getName().empty() ? "Picture" : frame.getName());
        if (data.empty())
            _page += fmt::format(
                "<div class=\"frame shape\" style=\"{}border:1px dashed #999\">{}</div>\n", css, name);
        else
            _page += fmt::format(
                "<div class=\"frame\" style=\"{}\"><img alt=\"{}\" src=\"{}\"></div>\n", css, name, data);
    }

    /// @param corner of the frame; places of children are counted from where it is
    void writeShape(const DOM::Shape& shape, const cinder::Vec2<float>& corner, std::string css, int depth)
    {
        if (shape.getFillColor())
            css +=
                fmt::format("background:#{};", FilterUtils::convertRGBColor(shape.getFillColor()->getRGBA()));
        const bool isGroup = shape.getChildren().size() != 0;
        if (isGroup)
            css += "overflow:visible;";
        else
            css += "border:1px solid #666;";
        const std::string& geometry = shape.getPresetGeometry();
        const std::string preset = FilterUtils::looksLikeOOXMLPresetType(geometry)
                                       ? FilterUtils::makePlainPresetType(geometry)
                                       : std::string();
        if (preset == "ellipse")
            css += "border-radius:50%;";
        else if (preset == "roundRect")
            css += "border-radius:12%;";
        _page += fmt::format("<div class=\"frame{}\" style=\"{}\">", isGroup ? "" : " shape", css);
        if (shape.getText())
            _page += makeBlocksContent(shape.getText()->getBlocks(), _context.limits.cellTextBytes);
        for (const DOM::Frame& child : shape.getChildren())
            write(child, -corner.x, -corner.y, depth + 1);
        _page += "</div>\n";
    }

    const PageContext& _context;
    std::string& _page;
    std::size_t _count = 0;
    PictureUris _pictures;
};

} // namespace

void writeFrames(const DOM::Table& table, const PageContext& context, std::string& page)
{
    if (table.getFrames().empty())
        return;
    FilterUtils::AnchorsConverter converter(FilterUtils::getTableDimensionsInfo(table));
    FramesWriter writer(context, page);
    for (const std::unique_ptr<DOM::Frame>& frame : table.getFrames())
        writer.write(converter.convertToAbsoluteAnchor(*frame), RowHeadWidth, ColumnHeadHeight, 0);
}

} // namespace QV::Filters
