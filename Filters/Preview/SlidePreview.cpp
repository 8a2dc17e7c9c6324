#include <Filters/Preview/SlidePreview.h>

#include <cmath>
#include <cstddef>
#include <ostream>

#include <fmt/format.h>

#include <DOM/Public/Block.h>
#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Shape.h>
#include <Filters/Package/EffectiveFormats.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Preview/HtmlText.h>
#include <Filters/Preview/MediaUri.h>
#include <Filters/Preview/SlideDefs.h>
#include <Filters/Preview/SlidePage.h>
#include <Filters/Preview/SlidePageContext.h>
#include <Filters/Preview/StyleSheet.h>
#include <Filters/Preview/TextBookmarks.h>
#include <Filters/Preview/TextNotesPage.h>
#include <Filters/Preview/TextPageContext.h>
#include <Filters/Preview/TextPageCss.h>
#include <Filters/Preview/TextPreview.h>
#include <Utils/Public/Size2D.h>

namespace QV::Filters {
namespace {

constexpr float SlideWidth = 720;  // points, where the document does not say
constexpr float SlideHeight = 540; // the same
constexpr float SlideLengthMin = 1;
constexpr float SlideLengthMax = 10'000;
constexpr std::size_t SlideBlocksMax = 500'000; // paragraphs and tables of all slides, masters' each time

// What all pages of slides share. Text is black and of 18 points where nothing is said; lines break and
// blanks stay as the document has them.
constexpr const char* SlidePageCss = R"(
body{margin:0;padding:12pt;background:#e4e4e4;color:#000;font:10pt Calibri,Carlito,"Liberation Sans",sans-serif}
.slide{margin:0 auto 12pt;max-width:100%}
.slide>svg{display:block;width:100%;background:#fff;box-shadow:0 0 4pt #888}
.slide path{fill-rule:evenodd}
h2,h3{margin:3pt 0;font-size:10pt;font-weight:normal;color:#444}
.hidden{font-style:italic}
foreignObject{overflow:visible}
.text{display:flex;flex-direction:column;height:100%;color:#000;
font:18pt Calibri,Carlito,"Liberation Sans",sans-serif}
.text>div{flex:none}
.middle{justify-content:center}
.bottom{justify-content:flex-end}
.centred,.unwrapped{align-items:center}
.centred>div{max-width:100%}
.unwrapped>div{width:max-content}
.stacked>div{height:100%;writing-mode:vertical-lr;text-orientation:upright}
.upright>div{height:100%;writing-mode:vertical-rl}
p{margin:0;line-height:1.2;white-space:pre-wrap;tab-size:72pt;overflow-wrap:break-word}
.unwrapped p{white-space:pre}
.text p:first-child{margin-top:0}
a{color:inherit}
sup,sub{font-size:65%;line-height:0}
.label{display:inline-block;text-indent:0;white-space:pre}
.joined{white-space:nowrap}
.parts{display:flex;justify-content:space-between}
.thirds>span{flex:1 1 0}
.thirds>span:nth-child(2){text-align:center}
.thirds>span:nth-child(3){text-align:right}
table{border-collapse:collapse;flex:none;align-self:flex-start}
.fixed{table-layout:fixed}
td{position:relative;padding:3.6pt 7.2pt;vertical-align:top}
td>svg{position:absolute;inset:0;width:100%;height:100%;pointer-events:none}
.notes{padding:6pt 12pt;background:#fff;box-shadow:0 0 4pt #888}
.note{margin:12pt auto;width:468pt;color:#444}
.defs{position:absolute}
@media print{body{background:#fff;padding:0}.slide{break-after:page}.slide>svg,.notes{box-shadow:none}}
)";

float readSlideLength(float points, float fallback)
{
    return std::isfinite(points) && points >= SlideLengthMin && points <= SlideLengthMax ? points : fallback;
}

Size2D<float> findSlideSize(const DOM::Document& document)
{
    const auto& size = document.getSlideSize();
    if (!size)
        return {SlideWidth, SlideHeight};
    return {readSlideLength(size->getWidth(), SlideWidth), readSlideLength(size->getHeight(), SlideHeight)};
}

TextPreviewLimits makeSlideTextLimits(const SlidePreviewLimits& limits)
{
    TextPreviewLimits text;
    text.blocks = SlideBlocksMax;
    text.textBytes = limits.pageBytes;
    text.pictureBytes = limits.pictureBytes;
    text.nesting = limits.nesting;
    return text;
}

/// Writes the slides that there is room for.
/// @return how many there was none for
std::size_t writeSlides(SlidePageContext& context, std::string& page)
{
    std::size_t number = 0;
    std::size_t leftSlides = 0;
    for (const DOM::Block& block : context.document.getBlocks()) {
        const auto* const slide = dynamic_cast<const DOM::Shape*>(&block);
        if (!slide)
            continue;
        if (number == context.limits.slides || context.text.isFull(page))
            ++leftSlides;
        else
            writeSlide(*slide, ++number, context, page);
    }
    if (number + leftSlides == 0)
        page += "<p class=\"note\">There are no slides here.</p>\n";
    return leftSlides;
}

void addUnshown(std::string& list, std::size_t count, const char* one, const char* many)
{
    if (count > 0)
        list += fmt::format("{}{} {}", list.empty() ? "" : ", ", count, count == 1 ? one : many);
}

std::string makeUnshownNote(const SlidePageContext& context, std::size_t leftSlides)
{
    const TextPageCounts& counts = context.text.counts;
    std::string list;
    addUnshown(list, leftSlides, "slide", "slides");
    addUnshown(list, context.leftShapes, "shape", "shapes");
    addUnshown(list, context.defs.getRefusedPicturesCount(), "picture", "pictures");
    addUnshown(list, counts.leftBlocks, "paragraph or table", "paragraphs and tables");
    addUnshown(list, counts.leftRows, "row of tables", "rows of tables");
    addUnshown(list, counts.leftFrames, "picture or shape in text", "pictures and shapes in text");
    addUnshown(list, counts.cutParagraphs, "end of a paragraph", "ends of paragraphs");
    addUnshown(list, context.text.styles.getRefusedCount(), "look of an element", "looks of elements");
    return list.empty() ? list : fmt::format("<p class=\"note\">Not shown: {}.</p>\n", list);
}

} // namespace

void writePresentationPreview(
    FilterRun& run, const std::string& title, std::ostream& out, const SlidePreviewLimits& limits)
{
    const DOM::Document& document = run.getDocument();
    const TextPreviewLimits textLimits = makeSlideTextLimits(limits);
    StyleSheet styles(textLimits.rules);
    EffectiveFormats formats(document);
    PictureUris pictures(run.getMediaStorage());
    TextBookmarks bookmarks(document, limits.nesting);
    TextNotes notes;
    TextPageContext text{document, textLimits, styles, formats, pictures, bookmarks, notes, {}};
    SlideDefs defs(pictures, limits.pictureBytes, text.counts.elsewhereBytes);
    SlidePageContext context{document, limits, findSlideSize(document), text, defs};
    std::string body;
    const std::size_t leftSlides = writeSlides(context, body);
    body += makeUnshownNote(context, leftSlides);

    out << makePageHead(title) << SlidePageCss
        << fmt::format(".slide{{width:{}}}\n", makePointsCss(context.slideSize.getWidth()));
    for (const std::string& rule : styles.getRules())
        out << rule << '\n';
    out << "</style></head>\n<body>\n<main>\n" << body << "</main>\n";
    defs.write(out);
    out << "</body></html>\n";
}

} // namespace QV::Filters
