#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <DOM/Public/Block.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/Note.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/TableOfContents.h>
#include <Filters/Text/StoryFields.h>
#include <Filters/Text/StoryReader.h>
#include <Filters/Text/StoryRuns.h>

namespace QV::Filters {

class TextFormats;
struct TextContext;

/// The bookmarks of a part: they may begin in one story and end in another.
struct StoryBookmarks
{
    std::unordered_map<std::string, std::string> names; // by id, of those that began
    /// Ends of bookmarks between blocks, which go to the next paragraph.
    std::vector<std::pair<DOM::BookmarkRun::Kind, std::string>> waiting;
};

/// Makes the blocks of one story from the pieces that its elements are read as: the text of a part, of a
/// cell, of a text box or of a note.
///
/// Content outside of paragraphs gets a paragraph of its own. A paragraph or a table that begins inside of a
/// paragraph ends that.
class StoryBuilder
{
public:
    /// @param bookmarks outlive the builder
    StoryBuilder(TextContext& context, TextFormats& formats, StoryBookmarks& bookmarks, StorySink sink);
    ~StoryBuilder();

    StoryBuilder(const StoryBuilder&) = delete;
    StoryBuilder& operator=(const StoryBuilder&) = delete;

    void beginParagraph();
    /// @param text of the "pPr" element of the paragraph that is open
    void setParagraphProps(std::string text) { _paragraphProps = std::move(text); }
    /// @param text of the "sectPr" element of the section that ends with the open paragraph
    void setParagraphSection(std::string text) { _paragraphSection = std::move(text); }
    void endParagraph();

    /// @param text of a "sectPr" element behind the blocks of its section
    void addSection(const std::string& text);

    /// A block that is complete, such as a table.
    void addBlock(std::unique_ptr<DOM::Block> block);

    void addText(const std::string& text);
    void addTab();
    void addBreak(DOM::BreakRun::Kind kind);
    void addFrame(std::shared_ptr<const DOM::Frame> frame);
    void addNote(DOM::Note::Kind kind, const std::string& id);
    void beginBookmark(const std::string& id, const std::string& name);
    void endBookmark(const std::string& id);

    /// A piece that stands in a paragraph comes next.
    StoryFields& getFields();
    /// To say what the runs that come look like.
    StoryRuns& getRuns() { return _runs; }

    /// What is open ends.
    void finish();

private:
    /// A table of contents that waits for the one to end in whose last paragraph it begins.
    struct WaitingContents
    {
        std::string instruction;
        bool isEnded;
    };

    void openParagraph();
    void addBookmark(DOM::BookmarkRun::Kind kind, const std::string& name);
    void keep(std::unique_ptr<DOM::Block> block);
    void handOver();
    void takeSection(const std::string& text);
    bool beginContents(const std::string& instruction);
    void endContents(const std::string& instruction);
    void closeContents();
    void closeOneContents();

    TextContext& _context;
    TextFormats& _formats;
    StoryBookmarks& _bookmarks;
    StorySink _sink;
    StoryRuns _runs;
    StoryFields _fields;
    bool _isParagraphOpen = false;
    std::string _paragraphProps;
    std::string _paragraphSection;
    std::unique_ptr<DOM::Block> _last; // is handed over with the next one, as bookmarks may end behind it

    std::unique_ptr<DOM::TableOfContents> _contents; // that is open; null for none
    bool _isContentsEnding = false;                  // with the open paragraph
    std::vector<WaitingContents> _waitingContents;
    std::vector<std::string> _waitingSections; // that end inside of the open one
};

} // namespace QV::Filters
