#include <ostream>

#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/Table.h>
#include <Filters/Convert/NoteNumbers.h>
#include <Filters/Convert/PlainTextWriter.h>
#include <Filters/Convert/SlidesText.h>
#include <Filters/Package/SlideFrames.h>

namespace QV::Filters {
namespace {

void writePlainFrame(const DOM::Frame& frame, PlainTextWriter& writer, std::string& text)
{
    const DOM::GraphicalObject* const object = frame.getGraphicalObject();
    if (const auto* const table = dynamic_cast<const DOM::Table*>(object)) {
        writer.writeTable(*table, text);
        return;
    }
    const auto* const shape = dynamic_cast<const DOM::Shape*>(object);
    if (shape && hasSeenText(*shape))
        writer.writeStory(shape->getText()->getBlocks(), text);
}

void writePlainNotes(const DOM::Shape& slide, PlainTextWriter& writer, std::string& text)
{
    const auto& props = slide.getSlideProps();
    if (!props || !props->notes)
        return;
    std::string notes;
    writer.writeStory(props->notes->getBlocks(), notes);
    if (notes.find_first_not_of(" \t\n") != std::string::npos)
        text += "Notes:\n" + notes;
}

} // namespace

void writeSlidesPlainText(const DOM::Document& document, std::ostream& out)
{
    const NoteNumbers none(document);
    PlainTextWriter writer(document, none);
    bool isFirst = true;
    for (const DOM::Block& block : document.getBlocks()) {
        const auto* const slide = dynamic_cast<const DOM::Shape*>(&block);
        if (!slide)
            continue;
        std::string text = isFirst ? "" : "\n";
        isFirst = false;
        forEachSeenFrame(*slide, [&](const DOM::Frame& frame) { writePlainFrame(frame, writer, text); });
        writePlainNotes(*slide, writer, text);
        out << text;
    }
}

} // namespace QV::Filters
