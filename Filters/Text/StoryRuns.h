#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/TrackedChange.h>
#include <Utils/Public/UUID.h>

namespace QV::Filters {

class TextFormats;
struct TextContext;

/// One end of a bookmark, which knows by its name whether a program made it for itself.
std::unique_ptr<DOM::BookmarkRun> makeBookmarkRun(DOM::BookmarkRun::Kind kind, const std::string& name);

/// The runs of the paragraph that is open in a story, and the look of those to come: their format, the links
/// and changes that stand around them, and the field whose result they are.
///
/// Pieces of text of one look become one run.
class StoryRuns
{
public:
    using Link = std::shared_ptr<const DOM::Hyperlink>;
    using Change = std::shared_ptr<const DOM::TrackedChange>;
    using Instruction = std::shared_ptr<const std::string>;

    /// Of a link's target. Each run of a link carries it, so longer ones are no links.
    static constexpr std::size_t LinkBytesMax = 8192;
    /// The message for such a link, with the limit as its argument.
    static constexpr const char* LinkTooLong = "Hyperlink of more than {} bytes is left out";

    StoryRuns(TextContext& context, TextFormats& formats);
    ~StoryRuns();

    /// An element of a run, which may stand inside of another one's.
    void beginRun();
    /// @param format text of the open run's "rPr" element
    void setFormat(const std::string& format);
    void endRun();

    /// @param link null for one that leads nowhere
    void beginLink(Link link);
    void endLink();
    /// @param change not null. Of several, what takes text away stands; else the innermost.
    void beginChange(Change change);
    void endChange();

    /// @param link of the innermost field that is one; wins over links that stand around. May be null.
    /// @param instruction of the innermost field whose result has one; may be null
    void setField(Link link, Instruction instruction);

    void addText(const std::string& text);
    void addTab();
    void addBreak(DOM::BreakRun::Kind kind);
    void addBookmark(DOM::BookmarkRun::Kind kind, const std::string& name);
    void addAnchor(const UUID& target);
    void addFrame(std::shared_ptr<const DOM::Frame> frame);
    void addField(const std::string& instruction, const std::string& result);

    /// The count of the runs. Text that follows begins a new one.
    std::size_t mark();
    /// Makes the runs from @p first on a field's run, where they are plain text of one look, or none but
    /// bookmarks.
    /// @param first no greater than the count of the runs
    void closeField(std::size_t first, const std::string& instruction);

    /// All of them; none are left.
    std::vector<std::unique_ptr<DOM::Run>> take();

private:
    /// The text of an "rPr" element, which may be long, and what it sets, once that was asked for.
    struct ReadFormat
    {
        std::string text;
        boost::optional<DOM::RunStyle> style;
    };
    using Format = std::shared_ptr<ReadFormat>;

    struct Look
    {
        Format format; // null for none
        Link link;
        Change change;
        Instruction instruction;

        friend bool operator==(const Look& a, const Look& b)
        {
            return a.link == b.link && a.change == b.change && a.instruction == b.instruction &&
                   a.format == b.format;
        }
    };

    const DOM::SharedRunStyle& getStyle();
    DOM::SharedRunStyle makeStyle();
    void updateLook();
    void flushText();
    template <typename T, typename... Arguments>
    void add(Arguments&&... arguments);

    TextContext& _context;
    TextFormats& _formats;
    std::vector<std::unique_ptr<DOM::Run>> _runs;
    std::string _text;              // of the run that goes on
    DOM::SharedRunStyle _textStyle; // its style

    std::vector<Format> _openRuns; // their formats, from the outermost on
    Format _lastFormat;            // runs of one format often follow each other
    std::vector<Link> _links;      // the same
    std::vector<Change> _changes;  // the same: what stands of each with those around it
    Link _fieldLink;
    Look _look;
    Look _styledLook;           // that _style belongs to
    DOM::SharedRunStyle _style; // null where nothing is set
};

} // namespace QV::Filters
