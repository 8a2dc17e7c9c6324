#include <Filters/Text/TextDrawing.h>

#include <iterator>
#include <utility>

#include <Filters/Package/FilterRun.h>
#include <Filters/Text/DrawingMLDrawing.h>
#include <Filters/Text/TextContext.h>
#include <Filters/Text/TextLeftOut.h>
#include <Filters/Text/TextWords.h>
#include <Filters/Text/VmlDrawing.h>

namespace QV::Filters {

struct TextDrawing::State
{
    State(TextContext& theContext, const Relationships& relationships)
        : context(theContext)
        , drawing(theContext, relationships)
        , vml(theContext, relationships)
    {
    }

    void takeFrames(std::vector<std::shared_ptr<const DOM::Frame>> more)
    {
        std::move(more.begin(), more.end(), std::back_inserter(frames));
    }

    TextContext& context;
    DrawingMLDrawing drawing;
    VmlDrawing vml;
    std::vector<std::shared_ptr<const DOM::Frame>> frames; // in the order of the drawings
};

TextDrawing::TextDrawing(TextContext& context, const Relationships& relationships)
    : _state(std::make_unique<State>(context, relationships))
{
}

TextDrawing::~TextDrawing() = default;

FilterUtils::XMLStep TextDrawing::onStart(const FilterUtils::XMLStreamStart& element)
{
    const int word = element.getId();
    if (word == TextWords::OleObject || element.getLocalName() == u"control") {
        _state->context.run.leaveOut(TextLeftOut::EmbeddedObjects);
        return FilterUtils::XMLStep::Skip;
    }
    const bool isOfDrawing =
        _state->drawing.isOpen() || word == TextWords::Inline || word == TextWords::Anchor;
    return isOfDrawing ? _state->drawing.onStart(element) : _state->vml.onStart(element);
}

void TextDrawing::onEnd(const FilterUtils::XMLStreamEnd& element)
{
    if (_state->drawing.isOpen())
        _state->drawing.onEnd(element);
    else
        _state->vml.onEnd(element);
    _state->takeFrames(_state->drawing.takeFrames());
    _state->takeFrames(_state->vml.takeFrames());
}

void TextDrawing::onTree(const FilterUtils::XMLStreamElement& element, const FilterUtils::XMLElement& tree)
{
    if (_state->drawing.isOpen())
        _state->drawing.onTree(element, tree);
}

void TextDrawing::addTextBox(std::vector<std::unique_ptr<DOM::Block>> blocks)
{
    if (_state->drawing.isOpen())
        _state->drawing.addText(std::move(blocks));
    else
        _state->vml.addText(std::move(blocks));
}

std::vector<std::shared_ptr<const DOM::Frame>> TextDrawing::finish()
{
    _state->takeFrames(_state->vml.takeFrames());
    return std::exchange(_state->frames, {});
}

} // namespace QV::Filters
