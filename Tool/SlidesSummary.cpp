#include <SlidesSummary.h>

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <vector>

#include <fmt/format.h>

#include <DOM/Public/CellText.h>
#include <DOM/Public/ChartSpace.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/NamedShapeStyle.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/Table.h>
#include <Filters/Package/PackageError.h>
#include <Filters/Package/SlideFrames.h>
#include <ShownText.h>

namespace QV::Tool {
namespace {

constexpr std::size_t TitlesMax = 6;
constexpr std::size_t TitleCharactersMax = 76;

struct SlideCounts
{
    std::size_t masters = 0;
    std::size_t layouts = 0;
    std::size_t shapes = 0;
    std::size_t connectors = 0;
    std::size_t pictures = 0;
    std::size_t tables = 0;
    std::size_t charts = 0;
    std::size_t others = 0;
    std::size_t notes = 0;
    std::size_t hidden = 0;
};

void countObject(const DOM::GraphicalObject* object, SlideCounts& counts)
{
    if (const auto* const shape = dynamic_cast<const DOM::Shape*>(object))
        switch (shape->getKind()) {
        case DOM::Shape::Kind::Drawn:
            ++counts.shapes;
            return;
        case DOM::Shape::Kind::Connector:
            ++counts.connectors;
            return;
        case DOM::Shape::Kind::Group: // its children are counted
            return;
        case DOM::Shape::Kind::Object:
        case DOM::Shape::Kind::Slide:
            break;
        }
    if (dynamic_cast<const DOM::Picture*>(object))
        ++counts.pictures;
    else if (dynamic_cast<const DOM::Table*>(object))
        ++counts.tables;
    else if (dynamic_cast<const DOM::ChartSpace*>(object))
        ++counts.charts;
    else
        ++counts.others;
}

SlideCounts countSlides(const DOM::Document& document, const std::vector<const DOM::Shape*>& slides)
{
    SlideCounts counts;
    for (const DOM::NamedShapeStyle& style : document.getStyles().getShapeStyles())
        if (!Filters::isBlankStyle(style))
            ++(style.getParentUUID() ? counts.layouts : counts.masters);
    for (const DOM::Shape* const slide : slides) {
        Filters::forEachSeenFrame(
            *slide, [&](const DOM::Frame& frame) { countObject(frame.getGraphicalObject(), counts); });
        const auto& props = slide->getSlideProps();
        counts.hidden += props && props->isHidden ? 1 : 0;
        counts.notes += props && props->notes && !props->notes->getPlainText().empty() ? 1 : 0;
    }
    return counts;
}

std::string makeHead(const DOM::Document& document, std::size_t slidesCount)
{
    std::string head =
        fmt::format("a presentation of {} {}", slidesCount, slidesCount == 1 ? "slide" : "slides");
    if (const auto& size = document.getSlideSize())
        head += fmt::format(" of {:g} x {:g} points", size->getWidth(), size->getHeight());
    return head;
}

void writeCounts(const SlideCounts& counts, std::ostream& out)
{
    constexpr const char* Row = "  {:>7} {:>7} {:>8} {:>10} {:>8} {:>7} {:>7} {:>7} {:>7} {:>7}\n";
    out << fmt::format(fmt::runtime(Row), "masters", "layouts", "shapes", "connectors", "pictures", "tables",
        "charts", "others", "notes", "hidden");
    out << fmt::format(fmt::runtime(Row), counts.masters, counts.layouts, counts.shapes, counts.connectors,
        counts.pictures, counts.tables, counts.charts, counts.others, counts.notes, counts.hidden);
}

void writeTitles(const std::vector<const DOM::Shape*>& slides, std::ostream& out)
{
    std::size_t number = 0;
    out << (slides.empty() ? "" : "It begins:\n");
    for (const DOM::Shape* const slide : slides) {
        if (++number > TitlesMax)
            return;
        const DOM::Shape* const title = Filters::findSlideTitle(*slide);
        std::string text = title ? title->getText()->getPlainText() : "(no title)";
        std::replace_if(
            text.begin(), text.end(), [](char c) { return c == '\t' || c == '\n'; }, ' ');
        const bool isHidden = slide->getSlideProps() && slide->getSlideProps()->isHidden;
        out << fmt::format("  {}. {}{}\n", number, makeShownText(text, TitleCharactersMax).text,
            isHidden ? " (hidden)" : "");
    }
}

} // namespace

void writeSlidesSummary(const std::string& name, const DOM::Document& document, std::ostream& out)
{
    std::vector<const DOM::Shape*> slides;
    for (const DOM::Block& block : document.getBlocks())
        if (const auto* const slide = dynamic_cast<const DOM::Shape*>(&block))
            slides.push_back(slide);
    out << fmt::format("{}: {}\n", Filters::makePrintable(name), makeHead(document, slides.size()));
    writeCounts(countSlides(document, slides), out);
    writeTitles(slides, out);
}

} // namespace QV::Tool
