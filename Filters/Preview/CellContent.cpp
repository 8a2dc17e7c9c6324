#include <Filters/Preview/CellContent.h>

#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include <DOM/Public/CellText.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <FilterUtils/FU_Colors.h>
#include <Filters/Preview/CellLook.h>
#include <Filters/Preview/HtmlText.h>

namespace QV::Filters {
namespace {

constexpr const char* Ellipsis = "\xE2\x80\xA6";

std::string cutText(const std::string& text, std::size_t bytesMax)
{
    if (text.size() <= bytesMax)
        return text;
    std::size_t end = bytesMax;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U)
        --end; // not within a character
    return text.substr(0, end) + Ellipsis;
}

/// In the colour of the section, where it has one.
std::string makeDisplayedContent(const OfficeUtils::DisplayedValue& displayed, std::size_t bytesMax)
{
    const std::string html = escapeHtml(cutText(displayed.text, bytesMax));
    if (!displayed.color || html.empty())
        return html;
    return fmt::format("<span style=\"color:#{}\">{}</span>",
        FilterUtils::convertRGBColor(displayed.color->getRGBA()), html);
}

/// Writes runs as HTML until there is no more room.
class RunsWriter final : public DOM::RunVisitor
{
public:
    explicit RunsWriter(std::size_t bytesMax)
        : _room(bytesMax)
    {
    }

    void visit(const DOM::TextRun& run) override { append(run.getText(), run.getStyle()); }
    void visit(const DOM::TabRun& run) override { append("\t", run.getStyle()); }
    void visit(const DOM::BreakRun& run) override { append("\n", run.getStyle()); }
    void visit(const DOM::DrawingRun&) override {}
    void visit(const DOM::BookmarkRun&) override {}
    void visit(const DOM::FieldRun& run) override { append(run.getResult(), run.getStyle()); }
    void visit(const DOM::AnchorRun&) override {}

    void startParagraph()
    {
        if (!_html.empty())
            _html += '\n';
    }

    std::string takeHtml() { return std::move(_html); }

private:
    void append(const std::string& text, const DOM::RunStyle& style)
    {
        if (_isCut || text.empty())
            return;
        const std::string shown = cutText(text, _room);
        _isCut = text.size() > _room;
        _room -= std::min(_room, text.size());
        const std::string css = style.getRunProps() ? makeFontCss(*style.getRunProps()) : std::string();
        if (css.empty())
            _html += escapeHtml(shown);
        else
            _html += fmt::format("<span style=\"{}\">{}</span>", escapeHtml(css), escapeHtml(shown));
    }

    std::size_t _room;
    bool _isCut = false;
    std::string _html;
};

} // namespace

std::string makeCellContent(
    const DOM::Cell& cell, const DOM::CellFormat* format, CellDisplays& displays, std::size_t bytesMax)
{
    switch (cell.getKind()) {
    case DOM::Cell::Kind::Empty:
        break;
    case DOM::Cell::Kind::Number:
        return makeDisplayedContent(displays.displayNumber(cell.getNumber(), format), bytesMax);
    case DOM::Cell::Kind::Boolean:
        return cell.getBoolean() ? "TRUE" : "FALSE";
    case DOM::Cell::Kind::Text: {
        const std::string text = cutText(cell.getText()->getPlainText(), bytesMax);
        if (const auto displayed = displays.displayText(text, format))
            return makeDisplayedContent(*displayed, bytesMax);
        return makeBlocksContent(cell.getText()->getBlocks(), bytesMax);
    }
    case DOM::Cell::Kind::Error:
        return makeBlocksContent(cell.getText()->getBlocks(), bytesMax);
    }
    return {};
}

std::string makeBlocksContent(const std::vector<std::unique_ptr<DOM::Block>>& blocks, std::size_t bytesMax)
{
    RunsWriter writer(bytesMax);
    for (const std::unique_ptr<DOM::Block>& block : blocks)
        if (const auto* const paragraph = dynamic_cast<const DOM::Paragraph*>(block.get())) {
            writer.startParagraph();
            for (const DOM::Run& run : paragraph->getRuns())
                run.accept(writer);
        }
    return writer.takeHtml();
}

} // namespace QV::Filters
