#include <Filters/Preview/TextPage.h>

#include <algorithm>
#include <cstddef>

#include <fmt/format.h>

#include <DOM/Public/CellText.h>
#include <DOM/Public/HeaderFooterPair.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/Section.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TableOfContents.h>
#include <Filters/Package/ListLabels.h>
#include <Filters/Package/SeenText.h>
#include <Filters/Preview/ParagraphPage.h>
#include <Filters/Preview/StyleSheet.h>
#include <Filters/Preview/TextFramesPage.h>
#include <Filters/Preview/TextPageContext.h>
#include <Filters/Preview/TextPageCss.h>
#include <Filters/Preview/TextPreview.h>
#include <Filters/Preview/TextTablePage.h>

namespace QV::Filters {
namespace {

std::size_t countDeletedRuns(const DOM::Paragraph& paragraph)
{
    const auto runs = paragraph.getRuns();
    return static_cast<std::size_t>(
        std::count_if(runs.begin(), runs.end(), [](const DOM::Run& run) { return !isInFinalView(run); }));
}

/// The blocks that the final view has. What it does not have is counted.
std::vector<const DOM::Block*> findSeenBlocks(
    const std::vector<const DOM::Block*>& blocks, TextPageContext& context)
{
    std::vector<const DOM::Block*> seen;
    for (const DOM::Block* const block : blocks) {
        const auto* const paragraph = dynamic_cast<const DOM::Paragraph*>(block);
        if (!paragraph || isInFinalView(*paragraph))
            seen.push_back(block);
        else
            context.counts.deletedPieces += countDeletedRuns(*paragraph);
    }
    return seen;
}

void writeTableOfContents(
    const DOM::TableOfContents& contents, const TextPlace& place, TextPageContext& context, std::string& page)
{
    page += "<nav aria-label=\"Table of contents\">\n";
    writeTextBlocks(contents.getBlocks(), place.makeInner(place.width), context, page);
    page += "</nav>\n";
}

using SharedPair = std::shared_ptr<DOM::HeaderFooterPair>;

const DOM::CellText* findHeaderOrFooter(
    const DOM::Section* section, const DOM::SharedCellText& (DOM::HeaderFooterPair::*get)() const)
{
    if (!section)
        return nullptr;
    for (const SharedPair* const pair : {&section->getFirstPair(), &section->getDefaultPair()})
        if (*pair && ((**pair).*get)())
            return ((**pair).*get)().get();
    return nullptr;
}

/// A header or a footer is a story of its own.
void writeHeaderOrFooter(const char* element, const DOM::CellText& text, const std::string& css, float width,
    TextPageContext& context, std::string& page)
{
    page += fmt::format("<{} class=\"{}\">\n", element, context.styles.getClass(css));
    ListLabels labels(context.document);
    writeTextBlocks(text.getBlocks(), {labels, width}, context, page);
    page += fmt::format("</{}>\n", element);
}

} // namespace

void writeTextBlocks(const std::vector<const DOM::Block*>& blocks, const TextPlace& place,
    TextPageContext& context, std::string& page)
{
    if (place.depth > context.limits.nesting) {
        context.counts.leftBlocks += blocks.size();
        return;
    }
    const std::vector<const DOM::Block*> seen = findSeenBlocks(blocks, context);
    for (std::size_t i = 0; i < seen.size(); ++i) {
        if (!context.takeBlock(page))
            continue;
        if (const auto* const paragraph = dynamic_cast<const DOM::Paragraph*>(seen[i])) {
            ParagraphNeighbours neighbours;
            if (i > 0)
                neighbours.previous = dynamic_cast<const DOM::Paragraph*>(seen[i - 1]);
            if (i + 1 < seen.size())
                neighbours.next = dynamic_cast<const DOM::Paragraph*>(seen[i + 1]);
            writeTextParagraph(*paragraph, neighbours, place, context, page);
        } else if (const auto* const table = dynamic_cast<const DOM::Table*>(seen[i])) {
            writeTextTable(*table, place, context, page);
        } else if (const auto* const contents = dynamic_cast<const DOM::TableOfContents*>(seen[i])) {
            writeTableOfContents(*contents, place, context, page);
        } else if (const auto* const shape = dynamic_cast<const DOM::Shape*>(seen[i])) {
            writeTextShape(*shape, place, context, page);
        }
    }
}

void writeTextBlocks(const std::vector<std::unique_ptr<DOM::Block>>& blocks, const TextPlace& place,
    TextPageContext& context, std::string& page)
{
    std::vector<const DOM::Block*> pointers;
    pointers.reserve(blocks.size());
    for (const std::unique_ptr<DOM::Block>& block : blocks)
        pointers.push_back(block.get());
    writeTextBlocks(pointers, place, context, page);
}

void writeTextSection(const DOM::Section* section, const std::vector<const DOM::Block*>& blocks,
    ListLabels& labels, TextPageContext& context, std::string& page)
{
    const PaperSize paper = makePaperSize(section ? section->getPageProps().get() : nullptr);
    page += fmt::format("<section class=\"page {}\">\n",
        context.styles.getClass(fmt::format("width:{};min-height:{};padding-left:{};padding-right:{};",
            makePointsCss(paper.width), makePointsCss(paper.height), makePointsCss(paper.left),
            makePointsCss(paper.right))));
    std::string css;
    // The text begins below the top margin, or below a header that is higher than this.
    if (const auto* const header = findHeaderOrFooter(section, &DOM::HeaderFooterPair::getHeader))
        writeHeaderOrFooter("header", *header,
            fmt::format(
                "min-height:{};padding-top:{};", makePointsCss(paper.top), makePointsCss(paper.header)),
            paper.getTextWidth(), context, page);
    else
        css += fmt::format("padding-top:{};", makePointsCss(paper.top));
    const auto* const footer = findHeaderOrFooter(section, &DOM::HeaderFooterPair::getFooter);
    if (!footer)
        css += fmt::format("padding-bottom:{};", makePointsCss(paper.bottom));
    const std::string name = context.styles.getClass(css);
    page += fmt::format("<div class=\"text{}{}\">\n", name.empty() ? "" : " ", name);
    writeTextBlocks(blocks, {labels, paper.getTextWidth()}, context, page);
    page += "</div>\n";
    if (footer)
        writeHeaderOrFooter("footer", *footer,
            fmt::format(
                "min-height:{};padding-bottom:{};", makePointsCss(paper.bottom), makePointsCss(paper.footer)),
            paper.getTextWidth(), context, page);
    page += "</section>\n";
}

} // namespace QV::Filters
