#pragma once

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include <DOM/Public/Anchors.h>
#include <DOM/Public/Block.h>
#include <DOM/Public/Frame.h>
#include <FilterUtils/FU_XMLElement.h>
#include <FilterUtils/FU_XMLStreamReader.h>
#include <Filters/Text/DrawnItems.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

class Relationships;
struct TextContext;

/// Gathers drawings of the newer kind: each stands in an element "inline" or "anchor", and becomes one frame.
class DrawingMLDrawing
{
public:
    DrawingMLDrawing(TextContext& context, const Relationships& relationships)
        : _context(context)
        , _relationships(relationships)
        , _items(context)
    {
    }

    /// Whether a drawing is open. The elements inside of it are handed over here, and those that begin one.
    bool isOpen() const { return _depth != 0; }

    FilterUtils::XMLStep onStart(const FilterUtils::XMLStreamStart& element);
    void onTree(const FilterUtils::XMLStreamElement& element, const FilterUtils::XMLElement& tree);
    void onEnd(const FilterUtils::XMLStreamEnd& element);
    void addText(std::vector<std::unique_ptr<DOM::Block>> blocks) { _items.addText(std::move(blocks)); }

    /// The frames of the drawings that have ended.
    std::vector<std::shared_ptr<const DOM::Frame>> takeFrames() { return std::exchange(_frames, {}); }

private:
    void begin(const FilterUtils::XMLStreamStart& element);
    void end();
    FilterUtils::XMLStep startItem(DrawnItem::Kind kind, const FilterUtils::XMLStreamStart& element);
    FilterUtils::XMLStep leaveOut(const char* what);
    void takeName(const FilterUtils::XMLStreamStart& element);
    void takeBlip(const FilterUtils::XMLStreamStart& blip);
    void readShape(const FilterUtils::XMLElement& props, OperationReport& report);

    TextContext& _context;
    const Relationships& _relationships;
    DrawnItemStack _items;
    std::vector<std::shared_ptr<const DOM::Frame>> _frames;

    // Of the open drawing:
    std::size_t _depth = 0; // of its element; 0 outside of any
    DrawnPlace _place;
    DOM::AbsoluteAnchor _anchor; // of one that does not stand in the text
    bool _isInText = true;
    bool _isSimplyPlaced = false; // by "simplePos", and not relative to anything
    bool _isHidden = false;
    bool _hasContent = false;  // graphics, of whatever kind
    bool _isAccounted = false; // something of it was taken, or left out by name
};

} // namespace QV::Filters
