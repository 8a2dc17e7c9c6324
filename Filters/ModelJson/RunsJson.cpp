#include <Filters/ModelJson/RunsJson.h>

#include <cstddef>
#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/TrackedChange.h>
#include <FilterUtils/FU_Colors.h>
#include <FilterUtils/FU_Text.h>
#include <Filters/ModelJson/ChangeJson.h>
#include <Filters/ModelJson/JsonWriter.h>
#include <Filters/ModelJson/NotesJson.h>
#include <Filters/ModelJson/TextFramesJson.h>
#include <Filters/ModelJson/TextJsonState.h>
#include <Filters/Package/EffectiveFormats.h>
#include <Filters/Package/SeenText.h>

namespace QV::Filters {
namespace {

// In the order of the enumerators; nothing for what is written by leaving the key out.
const char* const UnderlineWords[] = {
    nullptr, "single", "words", "double", "thick", "dotted", "dashed", "dashDot", "dashDotDot", "wave"};
const char* const PositionWords[] = {nullptr, "superscript", "subscript"};
const char* const LetterCaseWords[] = {nullptr, "capitals", "smallCapitals"};
const char* const BreakWords[] = {nullptr, "column", "page"};

/// Takes runs apart by their kinds.
class RunParts final : public DOM::RunVisitor
{
public:
    explicit RunParts(const TextJsonState& state)
        : _state(state)
    {
    }

    void visit(const DOM::TextRun&) override { hasText = true; }
    void visit(const DOM::TabRun&) override { hasText = true; }
    void visit(const DOM::BreakRun& run) override
    {
        hasText = true;
        breakName = BreakWords[static_cast<std::size_t>(run.getKind())];
    }
    void visit(const DOM::DrawingRun& run) override { frame = run.getFrame().get(); }
    void visit(const DOM::BookmarkRun&) override {}
    void visit(const DOM::FieldRun& run) override
    {
        hasText = true;
        instruction = &run.getInstruction();
    }
    void visit(const DOM::AnchorRun& run) override { note = _state.findNoteName(run.getTargetUUID()); }

    bool isEmpty() const { return !hasText && !frame && !note; }

    bool hasText = false;
    const char* breakName = nullptr;
    const DOM::Frame* frame = nullptr;
    const std::string* instruction = nullptr;
    const NoteName* note = nullptr;

private:
    const TextJsonState& _state;
};

void writeRunFlag(const char* key, const boost::optional<bool>& flag, JsonWriter& json)
{
    if (flag)
        json.writeMember(key, *flag);
}

void writeRunColor(const char* key, const boost::optional<DOM::Color>& color, JsonWriter& json)
{
    if (color && color->getRGBA().a != 0)
        json.writeMember(key, FilterUtils::convertRGBColor(color->getRGBA()));
}

template <typename Value, std::size_t Size>
void writeRunWord(
    const char* key, const boost::optional<Value>& value, const char* const (&names)[Size], JsonWriter& json)
{
    const char* const name = value ? names[static_cast<std::size_t>(*value)] : nullptr;
    if (name)
        json.writeMember(key, name);
}

void writeRunLook(const DOM::RunProps& props, JsonWriter& json)
{
    writeRunFlag("bold", props.getBold(), json);
    writeRunFlag("italic", props.getItalic(), json);
    writeLengthMember("size", props.getFontSize(), json);
    writeRunColor("color", props.getColor(), json);
    if (props.getFontName())
        writeShortMember("font", *props.getFontName(), json);
    writeRunFlag("hidden", props.getHidden(), json);
}

void writeRunDecoration(const DOM::RunProps& props, JsonWriter& json)
{
    writeRunWord("underline", props.getUnderline(), UnderlineWords, json);
    writeRunFlag("strike", props.getStrikethrough(), json);
    writeRunWord("position", props.getVerticalPosition(), PositionWords, json);
    writeRunWord("letterCase", props.getLetterCase(), LetterCaseWords, json);
    writeRunColor("background", props.getBackgroundColor(), json);
}

void writeNoteName(const NoteName& note, JsonWriter& json)
{
    json.writeKey("note");
    json.beginObject();
    json.writeMember("kind", note.kind);
    json.writeMember("id", note.id);
    json.endObject();
}

void writeRunJson(
    const DOM::Paragraph& paragraph, const DOM::Run& run, const CellScope& scope, TextJsonState& state)
{
    RunParts parts(state);
    run.accept(parts);
    if (parts.isEmpty())
        return;
    JsonWriter& json = state.getJson();
    const DOM::RunStyle& style = run.getStyle();
    const DOM::RunProps& props = state.getFormats().getRunProps(paragraph, style, scope);
    json.beginObject();
    if (parts.hasText)
        json.writeMember("text", getRunText(run));
    writeRunLook(props, json);
    if (style.getHyperlink()) {
        const std::string link = FilterUtils::joinHyperlink(*style.getHyperlink());
        writeShortMember("hyperlink", link, json, state.takeLinkRoom(link.size()));
    }
    if (const auto* const picture =
            parts.frame ? dynamic_cast<const DOM::Picture*>(parts.frame->getGraphicalObject()) : nullptr)
        json.writeMember("media", picture->getMediaId());
    if (style.getChange())
        writeChangeJson("change", *style.getChange(), json);
    writeRunDecoration(props, json);
    if (const std::string* const instruction =
            parts.instruction ? parts.instruction : style.getFieldInstruction().get())
        writeShortMember("field", *instruction, json);
    if (parts.breakName)
        json.writeMember("break", parts.breakName);
    if (parts.note)
        writeNoteName(*parts.note, json);
    if (parts.frame) {
        json.writeKey("frame");
        writeTextFrameJson(*parts.frame, state); // asks for formats of its own: props end here
    }
    json.endObject();
}

} // namespace

void writeRunsJson(const DOM::Paragraph& paragraph, const CellScope& scope, TextJsonState& state)
{
    state.getJson().beginArray();
    for (const DOM::Run& run : paragraph.getRuns())
        writeRunJson(paragraph, run, scope, state);
    state.getJson().endArray();
}

} // namespace QV::Filters
