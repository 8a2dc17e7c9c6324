#include <DOM/Public/Paragraph.h>

#include <algorithm>

namespace QV::DOM {
namespace {

class PlainTextCollector final : public RunVisitor
{
public:
    void visit(const TextRun& run) override { _text += run.getText(); }
    void visit(const TabRun&) override { _text += '\t'; }
    void visit(const BreakRun&) override { _text += '\n'; }
    void visit(const DrawingRun&) override {}
    void visit(const BookmarkRun&) override {}
    void visit(const FieldRun& run) override { _text += run.getResult(); }
    void visit(const AnchorRun&) override {}

    std::string takeText() { return std::move(_text); }

private:
    std::string _text;
};

} // namespace

Paragraph::Paragraph() = default;
Paragraph::~Paragraph() = default;

void Paragraph::appendText(const std::string& text, const SharedRunStyle& style)
{
    std::size_t begin = 0;
    while (begin < text.size()) {
        const std::size_t end = std::min(text.find_first_of("\n\t", begin), text.size());
        if (end > begin)
            appendRun(std::make_unique<TextRun>(text.substr(begin, end - begin), style));
        if (end < text.size() && text[end] == '\n')
            appendRun(std::make_unique<BreakRun>(style));
        if (end < text.size() && text[end] == '\t')
            appendRun(std::make_unique<TabRun>(style));
        begin = end + 1;
    }
}

std::string Paragraph::getPlainText() const
{
    PlainTextCollector collector;
    for (const std::unique_ptr<Run>& run : _runs)
        run->accept(collector);
    return collector.takeText();
}

const ParagraphStyle& Paragraph::getStyle() const
{
    static const ParagraphStyle empty;
    return _style ? *_style : empty;
}

void Paragraph::setStyle(const ParagraphStyle& style)
{
    _style = SharedParagraphStyle(new ParagraphStyle(style));
}

const RunStyle& Paragraph::getParaMarkStyle() const
{
    static const RunStyle empty;
    return _paraMarkStyle ? *_paraMarkStyle : empty;
}

} // namespace QV::DOM
