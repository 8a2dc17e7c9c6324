#pragma once

#include <memory>
#include <string>
#include <vector>

#include <DOM/Public/Block.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <FilterUtils/FU_XMLStreamReader.h>
#include <Filters/Text/DrawnItems.h>
#include <Filters/Text/VmlPlaces.h>
#include <Filters/Text/VmlValues.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

class Relationships;
struct TextContext;

/// Gathers drawings of the older kind, VML: each outermost shape becomes a frame of its own.
class VmlDrawing
{
public:
    VmlDrawing(TextContext& context, const Relationships& relationships)
        : _context(context)
        , _relationships(relationships)
        , _items(context)
    {
    }

    FilterUtils::XMLStep onStart(const FilterUtils::XMLStreamStart& element);
    void onEnd(const FilterUtils::XMLStreamEnd& element);
    void addText(std::vector<std::unique_ptr<DOM::Block>> blocks);

    /// The frames of the shapes that have ended.
    std::vector<std::shared_ptr<const DOM::Frame>> takeFrames();

private:
    FilterUtils::XMLStep startShape(const FilterUtils::XMLStreamStart& element);
    void placeShape(const FilterUtils::XMLStreamStart& element, const VmlStyle& style, DrawnItem& item,
        OperationReport& report);
    void takeFill(const FilterUtils::XMLStreamStart& fill, DrawnItem& item);
    void takePicture(const FilterUtils::XMLStreamStart& element, DrawnItem& item);
    std::unique_ptr<DOM::Picture> makeSourcePicture(const std::string& source);
    void endDone();

    TextContext& _context;
    const Relationships& _relationships;
    DrawnItemStack _items;
    std::vector<VmlUnits> _units; // of the coordinates in each open item
    DrawnPlace _place;            // of the outermost open item
    std::vector<std::shared_ptr<const DOM::Frame>> _frames;
};

} // namespace QV::Filters
