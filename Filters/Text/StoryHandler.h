#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <DOM/Public/Block.h>
#include <DOM/Public/TrackedChange.h>
#include <FilterUtils/FU_XMLElement.h>
#include <FilterUtils/FU_XMLStreamReader.h>
#include <Filters/Text/PropertyText.h>
#include <Filters/Text/StoryAlternatives.h>
#include <Filters/Text/StoryBuilder.h>
#include <Filters/Text/StoryReader.h>
#include <Filters/Text/StoryRuns.h>
#include <Filters/Text/TextDrawing.h>
#include <Filters/Text/TextTable.h>

namespace QV::Filters {

class Relationships;
class TextFormats;
struct TextContext;

/// Reads the elements of a part with stories. What stands in what is kept as a stack: stories (of the part,
/// of notes, cells and text boxes), tables, their rows, and drawings.
class StoryHandler final : public FilterUtils::XMLStreamHandler
{
public:
    using TakeNote = std::function<void(NoteStory)>;

    StoryHandler(TextContext& context, TextFormats& formats, const std::string& part,
        const Relationships& relationships);
    ~StoryHandler() override;

    /// The part is one story.
    void openStory(StorySink sink);
    /// Each note in the part is a story.
    void openNotes(TakeNote takeNote) { _takeNote = std::move(takeNote); }

    FilterUtils::XMLStep onStart(const FilterUtils::XMLStreamStart& element) override;
    FilterUtils::XMLFlow onEnd(const FilterUtils::XMLStreamEnd& element) override;
    FilterUtils::XMLFlow onTree(
        const FilterUtils::XMLStreamElement& element, const FilterUtils::XMLElement& tree) override;

    /// What is open ends, since the part has; but for drawings, of which a part is nothing.
    void finish();

private:
    enum class LevelKind : std::uint8_t
    {
        Story, ///< the part's
        Note,
        Table,
        Row,
        Cell,
        TextBox,
        Drawing,
    };

    struct Level
    {
        LevelKind kind;
        std::size_t depth;                               // of its element; 0 for none
        std::unique_ptr<StoryBuilder> story;             // of all but tables, rows and drawings
        std::vector<std::unique_ptr<DOM::Block>> blocks; // of the story, where they are kept
        std::unique_ptr<TextTable> table;
        std::unique_ptr<TextDrawing> drawing;
        std::unique_ptr<NoteStory> note;
    };

    /// Whose properties are gathered.
    enum class PropsOwner : std::uint8_t
    {
        Paragraph,
        Run,
        Section,
    };

    FilterUtils::XMLStep gather(PropsOwner owner, const FilterUtils::XMLStreamStart& element);
    FilterUtils::XMLStep continueGathering(const FilterUtils::XMLStreamStart& element);
    void endGathering();

    FilterUtils::XMLStep startInDrawing(const FilterUtils::XMLStreamStart& element);
    FilterUtils::XMLStep startBlock(const FilterUtils::XMLStreamStart& element);
    FilterUtils::XMLStep startTablePart(const FilterUtils::XMLStreamStart& element);
    FilterUtils::XMLStep startAroundRuns(const FilterUtils::XMLStreamStart& element);
    FilterUtils::XMLStep startInRun(const FilterUtils::XMLStreamStart& element);
    FilterUtils::XMLStep startNote(const FilterUtils::XMLStreamStart& element);
    FilterUtils::XMLStep startChange(
        const FilterUtils::XMLStreamStart& element, DOM::TrackedChange::Kind kind);
    void addFieldCharacter(const FilterUtils::XMLStreamStart& element);
    void addBreak(const FilterUtils::XMLStreamStart& element);
    void addSymbol(const FilterUtils::XMLStreamStart& element);
    void endText(const FilterUtils::XMLStreamEnd& element);
    void endElement(const FilterUtils::XMLStreamEnd& element);
    StoryRuns::Link makeLink(const FilterUtils::XMLStreamStart& element);

    Level& openLevel(LevelKind kind, std::size_t depth);
    void openInnerStory(Level& level);
    bool isTooDeep();
    void closeLevel();
    LevelKind getKind() const { return _levels.back()->kind; }
    StoryBuilder& getStory() { return *_stories.back(); }

    TextContext& _context;
    TextFormats& _formats;
    const std::string& _part;
    const Relationships& _relationships;
    TakeNote _takeNote;

    std::vector<std::unique_ptr<Level>> _levels; // from the outermost on
    std::vector<StoryBuilder*> _stories;         // those in _levels
    std::size_t _nested = 0;                     // tables and text boxes in _levels
    StoryBookmarks _bookmarks;
    StoryAlternatives _alternatives;

    PropertyText _props;
    PropertyText _sectionProps; // those of a paragraph stand in its own
    PropsOwner _propsOwner = PropsOwner::Run;
    bool _isPartRead = false;
    std::string _text; // a buffer
};

} // namespace QV::Filters
