#include <Filters/Presentation/SlideNotes.h>

#include <initializer_list>

#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Presentation/PresentationContext.h>
#include <Filters/Presentation/SlideLeftOut.h>
#include <Filters/Presentation/SlideParts.h>
#include <Filters/Presentation/SlideText.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

XMLElement findNotesElement(XMLElement element, std::initializer_list<const char*> path)
{
    for (const char* const name : path)
        element = findDrawingElement(element, Vocabulary::Presentation, name);
    return element;
}

/// The text of the shape that holds the notes; the others show the slide, its number, the date.
XMLElement findNotesText(const XMLElement& root)
{
    XMLElement text;
    forEachDrawingElement(findNotesElement(root, {"cSld", "spTree"}), Vocabulary::Presentation,
        [&](const std::string& name, const XMLElement& shape) {
            const XMLElement placeholder = findNotesElement(shape, {"nvSpPr", "nvPr", "ph"});
            if (!text.isValid() && name == "sp" &&
                placeholder.getAttributeValue("type") == std::string("body"))
                text = findNotesElement(shape, {"txBody"});
        });
    return text;
}

} // namespace

DOM::SharedCellText SlideNotes::read(const SlidePart& slide)
{
    const std::string name = findRelatedPart(slide.relationships, "notesSlide");
    if (name.empty())
        return nullptr;
    const auto part = _parts.open(name, SlideParts::BadNotes);
    if (!part)
        return nullptr;
    const Master* const master = findMaster(*part);
    part->theme = master ? master->theme : slide.theme;
    part->colors = readColorOverride(part->root, master ? master->colors : slide.colors);
    DOM::TextLevels levels = _context.defaultLevels;
    if (master)
        DOM::overrideLevels(levels, master->levels);
    const DOM::SharedCellText text = readSlideText(findNotesText(part->root), {_context, *part, levels});
    if (!text || text->getPlainText().find_first_not_of('\n') == std::string::npos)
        return nullptr;
    _context.run.leaveOut(SlideLeftOut::NotesLooks);
    return text;
}

const SlideNotes::Master* SlideNotes::findMaster(const SlidePart& notes)
{
    const std::string name = findRelatedPart(notes.relationships, "notesMaster");
    if (name.empty())
        return nullptr;
    const auto [known, isNew] = _masters.try_emplace(name);
    if (!isNew)
        return known->second.get();
    const auto part = _parts.open(name, SlideParts::BadNotes);
    if (!part)
        return nullptr;
    part->colors.readMapping(findNotesElement(part->root, {"clrMap"}));
    known->second = std::make_unique<const Master>(Master{part->theme, part->colors,
        readTextLevels(findNotesElement(part->root, {"notesStyle"}), *part, _context)});
    return known->second.get();
}

} // namespace QV::Filters
