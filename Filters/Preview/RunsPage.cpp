#include <Filters/Preview/RunsPage.h>

#include <algorithm>
#include <cstddef>

#include <fmt/format.h>

#include <DOM/Public/Document.h>
#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/Note.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/TrackedChange.h>
#include <FilterUtils/FU_Text.h>
#include <Filters/Package/EffectiveFormats.h>
#include <Filters/Package/SafeLink.h>
#include <Filters/Package/SeenText.h>
#include <Filters/Package/Utf8Cut.h>
#include <Filters/Preview/HtmlText.h>
#include <Filters/Preview/StyleSheet.h>
#include <Filters/Preview/TextBookmarks.h>
#include <Filters/Preview/TextFramesPage.h>
#include <Filters/Preview/TextNotesPage.h>
#include <Filters/Preview/TextPageContext.h>
#include <Filters/Preview/TextPageCss.h>

namespace QV::Filters {
namespace {

constexpr std::size_t RunLinkMax = 4096;    // bytes of a URL; browsers take no longer ones for sure
constexpr std::size_t ChangeTitleMax = 200; // bytes

/// The elements around the text of a run.
struct RunTags
{
    bool isHidden = false;
    std::string begin;
    std::string end;
};

/// Writes the runs of one paragraph. Neighbours that look alike stand in the same elements.
class TextRunsWriter final : public DOM::RunVisitor
{
public:
    TextRunsWriter(const RunsStory& story, const TextPlace& place, TextPageContext& context,
        std::string& page, std::string& boxes)
        : _story(story)
        , _place(place)
        , _context(context)
        , _page(page)
        , _boxes(boxes)
        , _room(context.limits.paragraphTextBytes)
    {
    }

    void write()
    {
        for (const DOM::Run& run : _story.paragraph.getRuns()) {
            if (!isInFinalView(run)) {
                ++_context.counts.deletedPieces;
                continue;
            }
            if (!_isCut && _context.isFull(_page))
                cut();
            if (!_isCut)
                run.accept(*this);
        }
        closeTags();
    }

    void visit(const DOM::TextRun& run) override { writeText(run.getText(), run.getStyle()); }

    void visit(const DOM::TabRun& run) override
    {
        const auto& splits = _story.tabs.splits;
        if (std::find(splits.begin(), splits.end(), &run) == splits.end()) {
            writeText("\t", run.getStyle());
            return;
        }
        closeTags();
        _page += "</span><span>";
    }

    void visit(const DOM::BreakRun& run) override
    {
        if (!openTags(run.getStyle()))
            return;
        if (run.getKind() == DOM::BreakRun::Kind::Page)
            _page += "<span class=\"break\" role=\"separator\" aria-label=\"page break\"></span>";
        else
            _page += "<br>";
    }

    void visit(const DOM::DrawingRun& run) override
    {
        if (run.getFrame() && openTags(run.getStyle()))
            writeTextFrame(*run.getFrame(), _place, _context, _page, _boxes);
    }

    void visit(const DOM::BookmarkRun& run) override
    {
        if (run.getKind() != DOM::BookmarkRun::Kind::Start)
            return;
        const std::string id = _context.bookmarks.takePlace(run.getName());
        if (!id.empty())
            _page += fmt::format("<span id=\"{}\"></span>", id);
    }

    void visit(const DOM::FieldRun& run) override { writeText(run.getResult(), run.getStyle()); }

    void visit(const DOM::AnchorRun& run) override
    {
        const DOM::Note* const note = _context.document.findNote(run.getTargetUUID());
        if (!note || getTags(run.getStyle()).isHidden)
            return;
        closeTags(); // a link cannot stand in another one
        _page += _context.notes.makeReference(*note);
    }

private:
    void cut()
    {
        _isCut = true;
        ++_context.counts.cutParagraphs;
        _page += "\xE2\x80\xA6"; // an ellipsis
    }

    void writeText(const std::string& text, const DOM::RunStyle& style)
    {
        if (text.empty() || !openTags(style))
            return;
        if (text.size() <= _room) {
            _page += escapeHtml(text);
            _room -= text.size();
            return;
        }
        std::string shown = text;
        cutUtf8(shown, _room);
        _page += escapeHtml(shown);
        cut();
    }

    /// False where the run is hidden.
    bool openTags(const DOM::RunStyle& style)
    {
        const RunTags& tags = getTags(style);
        if (tags.isHidden)
            return false;
        if (tags.begin != _open.begin) {
            closeTags();
            _page += tags.begin;
            _open = tags;
        }
        return true;
    }

    void closeTags()
    {
        _page += _open.end;
        _open = {};
    }

    /// Of the style; runs of one style often follow each other.
    const RunTags& getTags(const DOM::RunStyle& style)
    {
        if (_tagsStyle != &style)
            _tags = makeTags(style);
        _tagsStyle = &style;
        return _tags;
    }

    RunTags makeTags(const DOM::RunStyle& style)
    {
        RunTags tags;
        const DOM::RunProps& props = _context.formats.getRunProps(_story.paragraph, style, _place.scope);
        tags.isHidden = props.getHidden().value_or(false);
        if (tags.isHidden)
            return tags;
        if (style.getHyperlink())
            addLink(*style.getHyperlink(), tags);
        if (style.getChange() && !style.getChange()->isRemoval())
            addInsertion(*style.getChange(), tags);
        const auto position = props.getVerticalPosition().value_or(DOM::VerticalPosition::Baseline);
        if (position != DOM::VerticalPosition::Baseline)
            addElement(position == DOM::VerticalPosition::Superscript ? "sup" : "sub", "", tags);
        const std::string name = _context.styles.getClass(makeRunCss(props, _story.inherited));
        if (!name.empty())
            addElement("span", fmt::format(" class=\"{}\"", name), tags);
        return tags;
    }

    static void addElement(const char* element, const std::string& attributes, RunTags& tags)
    {
        tags.begin += fmt::format("<{}{}>", element, attributes);
        tags.end = fmt::format("</{}>{}", element, tags.end);
    }

    void addLink(const DOM::Hyperlink& link, RunTags& tags)
    {
        std::string target;
        if (link.getURL().empty()) {
            target = _context.bookmarks.findTarget(link.getAnchor());
            if (!target.empty())
                target = "#" + target;
        } else if (link.getURL().size() + link.getAnchor().size() < RunLinkMax) {
            target = FilterUtils::joinHyperlink(link);
            if (!isSafeLink(target))
                target.clear();
        }
        if (!target.empty())
            addElement("a", fmt::format(" href=\"{}\"", escapeHtml(target)), tags);
    }

    static void addInsertion(const DOM::TrackedChange& change, RunTags& tags)
    {
        std::string title = change.getAuthor();
        if (!title.empty() && !change.getDate().empty())
            title += ", ";
        title += change.getDate();
        const bool isTold = !title.empty() && title.size() <= ChangeTitleMax;
        addElement("ins", isTold ? fmt::format(" title=\"{}\"", escapeHtml(title)) : std::string(), tags);
    }

    const RunsStory& _story;
    const TextPlace& _place;
    TextPageContext& _context;
    std::string& _page;
    std::string& _boxes;
    std::size_t _room; // bytes of text that there may still be
    bool _isCut = false;
    RunTags _open; // the elements that are open
    RunTags _tags; // of the last style that was asked for
    const DOM::RunStyle* _tagsStyle = nullptr;
};

} // namespace

void writeRuns(const RunsStory& story, const TextPlace& place, TextPageContext& context, std::string& page,
    std::string& boxes)
{
    TextRunsWriter(story, place, context, page, boxes).write();
}

} // namespace QV::Filters
