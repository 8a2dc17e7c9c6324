#include <Filters/ModelJson/PresentationJson.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include <boost/variant/get.hpp>

#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/NamedShapeStyle.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/ShapeFill.h>
#include <DOM/Public/ShapeProps.h>
#include <DOM/Public/Styles.h>
#include <FilterUtils/FU_Colors.h>
#include <Filters/ModelJson/JsonWriter.h>
#include <Filters/ModelJson/MediaJson.h>
#include <Filters/ModelJson/SlideShapesJson.h>
#include <Filters/ModelJson/TextJsonState.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/SlideFrames.h>
#include <Utils/Public/UUID.h>

namespace QV::Filters {
namespace {

/// The masters and layouts of a document in the order in which slides first use them; then the others, by
/// name. Styles are kept by identifiers, which differ from run to run.
class SlideStylesOrder
{
public:
    using Styles = std::vector<const DOM::NamedShapeStyle*>;

    explicit SlideStylesOrder(const DOM::Document& document)
        : _styles(document.getStyles())
    {
        for (const DOM::Block& block : document.getBlocks())
            if (const auto* const slide = dynamic_cast<const DOM::Shape*>(&block))
                use(DOM::getParent(_styles, slide->getStyle()));
    }

    Styles getMasters() const
    {
        return select([](const DOM::NamedShapeStyle& style) { return !style.getParentUUID(); });
    }
    Styles getLayouts() const
    {
        return select([](const DOM::NamedShapeStyle& style) { return bool(style.getParentUUID()); });
    }

private:
    void use(const DOM::NamedShapeStyle* layout)
    {
        if (!layout)
            return;
        _uses.emplace(layout->getUUID(), _uses.size());
        if (const DOM::NamedShapeStyle* const master = DOM::getParent(_styles, *layout))
            _uses.emplace(master->getUUID(), _uses.size());
    }

    template <typename Condition>
    Styles select(Condition condition) const
    {
        Styles selected;
        for (const DOM::NamedShapeStyle& style : _styles.getShapeStyles())
            if (condition(style) && !isBlankStyle(style))
                selected.push_back(&style);
        std::sort(selected.begin(), selected.end(),
            [this](const DOM::NamedShapeStyle* a, const DOM::NamedShapeStyle* b) {
                return makeSortKey(*a) < makeSortKey(*b);
            });
        return selected;
    }

    using SortKey = std::tuple<std::size_t, const std::string&, const std::string&>;

    /// Valid as long as the style and its parent are.
    SortKey makeSortKey(const DOM::NamedShapeStyle& style) const
    {
        static const std::string none;
        const auto use = _uses.find(style.getUUID());
        const DOM::NamedShapeStyle* const parent = DOM::getParent(_styles, style);
        return {use == _uses.end() ? std::numeric_limits<std::size_t>::max() : use->second, style.getName(),
            parent ? parent->getName() : none};
    }

    const DOM::Styles& _styles;
    std::map<UUID, std::size_t> _uses;
};

void writeSlideStyles(
    const char* key, const SlideStylesOrder::Styles& selected, const DOM::Styles& styles, JsonWriter& json)
{
    json.writeKey(key);
    json.beginArray();
    for (const DOM::NamedShapeStyle* const style : selected) {
        const DOM::NamedShapeStyle* const parent = DOM::getParent(styles, *style);
        json.beginObject();
        writeShortMember("name", style->getName(), json);
        if (parent && !isBlankStyle(*parent))
            writeShortMember("master", parent->getName(), json);
        json.endObject();
    }
    json.endArray();
}

/// What lies behind all shapes of a slide: by itself, or of its layout or master. Null where nothing is said.
const DOM::ShapeFill* findBackground(const DOM::Shape& slide, const DOM::Styles& styles)
{
    const auto findFill = [](const std::shared_ptr<const DOM::ShapeProps>& props) -> const DOM::ShapeFill* {
        return props && props->getFill() ? &*props->getFill() : nullptr;
    };
    const DOM::ShapeFill* fill = findFill(slide.getStyle().getShapeProps());
    for (const auto* style = DOM::getParent(styles, slide.getStyle()); style && !fill;
         style = DOM::getParent(styles, *style))
        fill = findFill(style->getShapeProps());
    return fill;
}

void writeSlideJson(const DOM::Shape& slide, TextJsonState& state)
{
    const DOM::Styles& styles = state.getDocument().getStyles();
    const DOM::NamedShapeStyle* const layout = DOM::getParent(styles, slide.getStyle());
    const DOM::SlideProps* const props = slide.getSlideProps().get();
    JsonWriter& json = state.getJson();
    json.beginObject();
    if (layout && !isBlankStyle(*layout))
        writeShortMember("layout", layout->getName(), json);
    json.writeMember("hidden", props && props->isHidden);
    if (props && props->notes)
        json.writeMember("notes", props->notes->getPlainText());
    json.writeKey("shapes");
    writeSlideShapesJson(slide, state);
    if (props && !props->name.empty())
        json.writeMember("name", props->name);
    const DOM::ShapeFill* const background = findBackground(slide, styles);
    if (const auto* const solid = background ? boost::get<DOM::SolidFill>(background) : nullptr)
        json.writeMember("background", FilterUtils::convertRGBColor(solid->color.getRGBA()));
    json.endObject();
}

} // namespace

void writePresentationJson(FilterRun& run, std::ostream& out)
{
    const DOM::Document& document = run.getDocument();
    JsonWriter json(out);
    TextJsonState state(run, json);
    json.beginObject();
    json.writeMember("format", "pptx");
    if (const auto& size = document.getSlideSize()) {
        writeLengthMember("slideWidth", size->getWidth(), json);
        writeLengthMember("slideHeight", size->getHeight(), json);
    }
    const SlideStylesOrder order(document);
    writeSlideStyles("masters", order.getMasters(), document.getStyles(), json);
    writeSlideStyles("layouts", order.getLayouts(), document.getStyles(), json);
    json.writeKey("slides");
    json.beginArray();
    for (const DOM::Block& block : document.getBlocks())
        if (const auto* const slide = dynamic_cast<const DOM::Shape*>(&block))
            writeSlideJson(*slide, state);
    json.endArray();
    writeLinksAndMediaJson(run, json);
    json.endObject();
}

} // namespace QV::Filters
