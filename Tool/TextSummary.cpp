#include <TextSummary.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <ostream>
#include <vector>

#include <fmt/format.h>

#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TableOfContents.h>
#include <Filters/Package/EffectiveFormats.h>
#include <Filters/Package/ListLabels.h>
#include <Filters/Package/PackageError.h>
#include <Filters/Package/SeenText.h>
#include <ShownText.h>

namespace QV::Tool {
namespace {

constexpr std::size_t LinesMax = 6;
constexpr std::size_t LineCharactersMax = 76;
constexpr unsigned long OutlineLevelsCount = 9; // a paragraph of level 9 is no heading

struct TextCounts
{
    std::size_t paragraphs = 0;
    std::size_t headings = 0;
    std::size_t items = 0;
    std::size_t tables = 0;
    std::size_t contents = 0;
    std::size_t pictures = 0;
    std::size_t shapes = 0;
    std::size_t bookmarks = 0;
    std::size_t changes = 0;
};

/// Walks the blocks of a document, counts what they hold, and keeps the first lines.
class TextCounter final : public DOM::RunVisitor
{
public:
    explicit TextCounter(const DOM::Document& document)
        : _formats(document)
        , _labels(document)
    {
    }

    void count(const DOM::Block& block, const Filters::CellScope& scope)
    {
        if (const auto* const paragraph = dynamic_cast<const DOM::Paragraph*>(&block))
            countParagraph(*paragraph, scope);
        else if (const auto* const table = dynamic_cast<const DOM::Table*>(&block))
            countTable(*table);
        else if (const auto* const contents = dynamic_cast<const DOM::TableOfContents*>(&block)) {
            ++_counts.contents;
            for (const auto& entry : contents->getBlocks())
                count(*entry, scope);
        }
    }

    const TextCounts& getCounts() const { return _counts; }
    const std::vector<std::string>& getLines() const { return _lines; }

    void visit(const DOM::TextRun&) override {}
    void visit(const DOM::TabRun&) override {}
    void visit(const DOM::BreakRun&) override {}
    void visit(const DOM::FieldRun&) override {}
    void visit(const DOM::AnchorRun&) override {}
    void visit(const DOM::DrawingRun& run) override
    {
        const bool isPicture =
            run.getFrame() && dynamic_cast<const DOM::Picture*>(run.getFrame()->getGraphicalObject());
        ++(isPicture ? _counts.pictures : _counts.shapes);
    }
    void visit(const DOM::BookmarkRun& run) override
    {
        const bool isUsers = run.getKind() == DOM::BookmarkRun::Kind::Start && !run.isGenerated();
        _counts.bookmarks += isUsers ? 1 : 0;
    }

private:
    void countParagraph(const DOM::Paragraph& paragraph, const Filters::CellScope& scope)
    {
        ++_counts.paragraphs;
        const auto outline = _formats.getParaProps(paragraph, scope).getOutlineLevel();
        _counts.headings += outline && *outline < OutlineLevelsCount ? 1 : 0;
        std::string label;
        if (const auto reference = _formats.getNumRef(paragraph)) {
            ++_counts.items;
            if (Filters::isInFinalView(paragraph) && !Filters::isHidden(paragraph, _formats, scope))
                label = _labels.next(*reference);
        }
        for (const DOM::Run& run : paragraph.getRuns()) {
            run.accept(*this);
            _counts.changes += run.getStyle().getChange() ? 1 : 0;
        }
        if (_lines.size() < LinesMax)
            addLine(label, paragraph, scope);
    }

    void addLine(const std::string& label, const DOM::Paragraph& paragraph, const Filters::CellScope& scope)
    {
        std::string text = Filters::getSeenText(paragraph, _formats, scope);
        std::replace(text.begin(), text.end(), '\t', ' ');
        if (text.find_first_not_of(" \t\n") != std::string::npos)
            _lines.push_back(label + (label.empty() ? "" : " ") + text.substr(0, text.find('\n')));
    }

    void countTable(const DOM::Table& table)
    {
        ++_counts.tables;
        for (const DOM::Cell& cell : table.getTableIterators())
            if (const DOM::CellText* const text = cell.getText())
                for (const auto& block : text->getBlocks())
                    count(*block, {&table.getStyle(), &cell.getStyle()});
    }

    Filters::EffectiveFormats _formats;
    Filters::ListLabels _labels;
    TextCounts _counts;
    std::vector<std::string> _lines;
};

} // namespace

void writeTextSummary(const std::string& name, const DOM::Document& document, std::ostream& out)
{
    TextCounter counter(document);
    for (const DOM::Block& block : document.getBlocks())
        counter.count(block, {});
    const TextCounts& counts = counter.getCounts();
    const std::size_t sections = document.getSections().size();
    out << fmt::format("{}: a text document of {} {} in {} {}\n", Filters::makePrintable(name),
        counts.paragraphs, counts.paragraphs == 1 ? "paragraph" : "paragraphs", sections,
        sections == 1 ? "section" : "sections");
    out << fmt::format("  {:>8} {:>8} {:>8} {:>8} {:>8} {:>8} {:>9} {:>8}\n", "headings", "items", "tables",
        "pictures", "shapes", "notes", "bookmarks", "changes");
    out << fmt::format("  {:>8} {:>8} {:>8} {:>8} {:>8} {:>8} {:>9} {:>8}\n", counts.headings, counts.items,
        counts.tables, counts.pictures, counts.shapes, document.getNotes().size(), counts.bookmarks,
        counts.changes);
    if (counter.getLines().empty())
        return;
    out << "It begins:\n";
    for (const std::string& line : counter.getLines())
        out << "  " << makeShownText(line, LineCharactersMax).text << '\n';
}

} // namespace QV::Tool
