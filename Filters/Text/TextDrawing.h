#pragma once

#include <memory>
#include <vector>

#include <DOM/Public/Block.h>
#include <DOM/Public/Frame.h>
#include <FilterUtils/FU_XMLElement.h>
#include <FilterUtils/FU_XMLStreamReader.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

class Relationships;
struct TextContext;

/// Gathers one drawing in a run as its elements come: a "drawing" (pictures, shapes, groups, inline or
/// anchored), or VML in a "pict" or "object".
///
/// Who reads the story hands on every element below the drawing's own, but for the contents of text boxes
/// (TextBoxContent) and what stands in alternate content that is not chosen: of the first it hands over the
/// blocks.
class FILTERS_API TextDrawing
{
public:
    /// @param relationships of the part that the drawing stands in
    TextDrawing(TextContext& context, const Relationships& relationships);
    ~TextDrawing();

    FilterUtils::XMLStep onStart(const FilterUtils::XMLStreamStart& element);
    void onEnd(const FilterUtils::XMLStreamEnd& element);
    void onTree(const FilterUtils::XMLStreamElement& element, const FilterUtils::XMLElement& tree);

    /// The text of the shape that is open; of several text boxes in one shape, the blocks follow each other.
    void addTextBox(std::vector<std::unique_ptr<DOM::Block>> blocks);

    /// What the drawing shows, once all of its elements have ended: usually one frame, several where VML has
    /// several shapes, none where nothing can be shown (which is reported or left out by name).
    std::vector<std::shared_ptr<const DOM::Frame>> finish();

private:
    struct State;
    std::unique_ptr<State> _state;
};

} // namespace QV::Filters
