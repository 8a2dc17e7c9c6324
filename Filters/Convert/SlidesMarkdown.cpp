#include <cstddef>
#include <ostream>

#include <fmt/format.h>

#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/Table.h>
#include <Filters/Convert/MarkdownWriter.h>
#include <Filters/Convert/NoteNumbers.h>
#include <Filters/Convert/SlidesText.h>
#include <Filters/Package/SlideFrames.h>

namespace QV::Filters {
namespace {

constexpr unsigned long SlideHeadingLevel = 2;

void writeMarkdownFrame(const DOM::Frame& frame, MarkdownWriter& writer, std::string& text)
{
    const DOM::GraphicalObject* const object = frame.getGraphicalObject();
    if (const auto* const table = dynamic_cast<const DOM::Table*>(object)) {
        writer.writeTable(*table, text);
        return;
    }
    if (dynamic_cast<const DOM::Picture*>(object)) {
        writer.writePicture(frame, text);
        return;
    }
    const auto* const shape = dynamic_cast<const DOM::Shape*>(object);
    if (shape && shape->getText())
        writer.writeStory(shape->getText()->getBlocks(), text);
}

/// @param number of the slide, from 1 on
void writeMarkdownSlide(
    const DOM::Shape& slide, std::size_t number, MarkdownWriter& writer, std::string& text)
{
    const DOM::Shape* const title = findSlideTitle(slide);
    const std::string heading = title ? writer.writeHeadingLine(title->getText()->getBlocks()) : "";
    writer.writeHeading(SlideHeadingLevel, heading.empty() ? fmt::format("Slide {}", number) : heading, text);
    forEachSeenFrame(slide, [&](const DOM::Frame& frame) {
        if (!title || frame.getGraphicalObject() != title)
            writeMarkdownFrame(frame, writer, text);
    });
    const auto& props = slide.getSlideProps();
    if (props && props->notes)
        writer.writeQuote(props->notes->getBlocks(), text);
}

} // namespace

void writeSlidesMarkdown(const DOM::Document& document, const std::string& mediaFolder, std::ostream& out)
{
    const NoteNumbers none(document);
    MarkdownWriter writer(document, none, mediaFolder);
    std::string text;
    std::size_t number = 0;
    for (const DOM::Block& block : document.getBlocks()) {
        const auto* const slide = dynamic_cast<const DOM::Shape*>(&block);
        if (!slide)
            continue;
        text.clear();
        writeMarkdownSlide(*slide, ++number, writer, text);
        out << text;
    }
    out << writer.getLinkDefinitions();
}

} // namespace QV::Filters
