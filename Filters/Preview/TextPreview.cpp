#include <Filters/Preview/TextPreview.h>

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <vector>

#include <fmt/format.h>

#include <DOM/Public/Block.h>
#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Section.h>
#include <Filters/Package/EffectiveFormats.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/ListLabels.h>
#include <Filters/Preview/HtmlText.h>
#include <Filters/Preview/MediaUri.h>
#include <Filters/Preview/StyleSheet.h>
#include <Filters/Preview/TextBookmarks.h>
#include <Filters/Preview/TextNotesPage.h>
#include <Filters/Preview/TextPage.h>
#include <Filters/Preview/TextPageContext.h>
#include <Filters/Preview/TextPageCss.h>

namespace QV::Filters {
namespace {

// What all pages of text share. Lines break and blanks stay as the document has them; tabs lead to the places
// that text has without stops of its own.
constexpr const char* TextPageCss = R"(
body{margin:0;padding:12pt 0;background:#e4e4e4;color:#000;font:10pt "Times New Roman","Liberation Serif",serif}
.page{box-sizing:border-box;display:flex;flex-direction:column;margin:0 auto 12pt;background:#fff;
box-shadow:0 0 4pt #888}
.text{flex:1 0 auto}
.text,header,footer,.box{display:flow-root}
header,footer{box-sizing:border-box}
footer{display:flex;flex-direction:column;justify-content:flex-end}
p,h1,h2,h3,h4,h5,h6{margin:0;font-size:inherit;font-weight:inherit;line-height:1.2;white-space:pre-wrap;tab-size:36pt;
overflow-wrap:break-word}
a{color:inherit}
sup,sub{font-size:65%;line-height:0}
.label{display:inline-block;text-indent:0;white-space:pre}
.parts{display:flex;justify-content:space-between}
.thirds>span{flex:1 1 0}
.thirds>span:nth-child(2){text-align:center}
.thirds>span:nth-child(3){text-align:right}
.break{display:block;height:0;margin:6pt 0;border:0;border-top:1px dashed #888}
table{border-collapse:collapse}
.fixed{table-layout:fixed}
td{position:relative;padding:0 5.4pt;vertical-align:top}
td>svg{position:absolute;inset:0;width:100%;height:100%;pointer-events:none}
img,.frame{display:inline-block;text-indent:0}
.frame{box-sizing:border-box;overflow:hidden}
.empty{border:1px dashed #999;text-align:center;font-size:9pt;white-space:normal}
.box{box-sizing:border-box;overflow:hidden;padding:3.6pt 7.2pt;border:1px solid #666;text-indent:0}
.group{position:relative}
.notes{width:612pt;padding:36pt 72pt}
.notes>h2{font-weight:bold;margin:6pt 0}
.item{display:flex;margin:3pt 0}
.item>a{flex:none;width:24pt}
.item>div{flex:1 1 0;min-width:0}
.author{font-style:italic}
.note{margin:12pt auto;width:468pt;color:#444}
@media print{body{background:#fff;padding:0}.page{margin:0 auto;box-shadow:none;break-after:page}}
)";

/// Writes the sections of a document, each with its blocks.
class TextSectionsWriter
{
public:
    TextSectionsWriter(TextPageContext& context, std::string& page)
        : _labels(context.document)
        , _context(context)
        , _page(page)
    {
        for (const DOM::Block& block : context.document.getBlocks())
            _blocks.push_back(&block);
    }

    void write()
    {
        const std::vector<DOM::Section>& sections = _context.document.getSections();
        std::size_t begin = 0;
        for (std::size_t i = 0; i < sections.size(); ++i) {
            const std::size_t next =
                i + 1 < sections.size() ? sections[i + 1].getFirstBlock().get() : _blocks.size();
            const std::size_t end = std::clamp(next, begin, _blocks.size());
            writeSection(&sections[i], begin, end);
            begin = end;
        }
        if (sections.empty())
            writeSection(nullptr, begin, _blocks.size());
        if (_blocks.empty())
            _page += "<p class=\"note\">There is no text here.</p>\n";
    }

private:
    void writeSection(const DOM::Section* section, std::size_t begin, std::size_t end)
    {
        if (begin == end)
            return;
        if (_context.counts.blocks == _context.limits.blocks || _context.isFull(_page)) {
            _context.counts.leftBlocks += end - begin;
            return;
        }
        const auto first = _blocks.begin() + static_cast<std::ptrdiff_t>(begin);
        const auto last = _blocks.begin() + static_cast<std::ptrdiff_t>(end);
        writeTextSection(section, {first, last}, _labels, _context, _page);
    }

    ListLabels _labels;
    TextPageContext& _context;
    std::string& _page;
    std::vector<const DOM::Block*> _blocks; // at their positions: no import removes blocks
};

void addLeftOut(std::string& list, std::size_t count, const char* one, const char* many)
{
    if (count > 0)
        list += fmt::format("{}{} {}", list.empty() ? "" : ", ", count, count == 1 ? one : many);
}

/// What is not there, and the places that links lead to without being there.
std::string makeClosingNotes(const TextPageContext& context)
{
    const TextPageCounts& counts = context.counts;
    std::string list;
    addLeftOut(list, counts.leftBlocks, "paragraph or table", "paragraphs and tables");
    addLeftOut(list, counts.leftRows, "row of tables", "rows of tables");
    addLeftOut(list, counts.leftFrames, "picture or shape", "pictures and shapes");
    addLeftOut(list, counts.cutParagraphs, "end of a paragraph", "ends of paragraphs");
    addLeftOut(list, context.styles.getRefusedCount(), "look of an element", "looks of elements");
    std::string html;
    for (const std::string& id : context.bookmarks.getMissing())
        html += fmt::format("<span id=\"{}\"></span>", id);
    if (!list.empty())
        html += fmt::format("<p class=\"note\">Not shown: {}.</p>\n", list);
    if (counts.deletedPieces > 0)
        html +=
            fmt::format("<p class=\"note\">{} deleted or moved away by tracked changes {} not shown.</p>\n",
                counts.deletedPieces == 1 ? "1 piece of text"
                                          : fmt::format("{} pieces of text", counts.deletedPieces),
                counts.deletedPieces == 1 ? "is" : "are");
    return html;
}

} // namespace

void writeTextPreview(
    FilterRun& run, const std::string& title, std::ostream& out, const TextPreviewLimits& limits)
{
    const DOM::Document& document = run.getDocument();
    StyleSheet styles(limits.rules);
    EffectiveFormats formats(document);
    PictureUris pictures(run.getMediaStorage());
    TextBookmarks bookmarks(document, limits.nesting);
    TextNotes notes;
    TextPageContext context{document, limits, styles, formats, pictures, bookmarks, notes, {}};
    std::string body;
    TextSectionsWriter(context, body).write();
    writeNotes(PaperSize().getTextWidth(), context, body);
    body += makeClosingNotes(context);

    out << makePageHead(title) << TextPageCss;
    for (const std::string& rule : styles.getRules())
        out << rule << '\n';
    out << "</style></head>\n<body>\n<main>\n" << body << "</main>\n</body></html>\n";
}

} // namespace QV::Filters
