#include <Filters/Package/SeenText.h>

#include <algorithm>
#include <cstddef>
#include <utility>

#include <DOM/Public/Cell.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TableOfContents.h>
#include <DOM/Public/TrackChangesViewMode.h>
#include <Filters/Package/Utf8Cut.h>

namespace QV::Filters {
namespace {

/// What one run stands for.
class RunTextReader final : public DOM::RunVisitor
{
public:
    void visit(const DOM::TextRun& run) override { _text = run.getText(); }
    void visit(const DOM::TabRun&) override { _text = "\t"; }
    void visit(const DOM::BreakRun&) override { _text = "\n"; }
    void visit(const DOM::DrawingRun&) override { _isSeen = true; }
    void visit(const DOM::BookmarkRun&) override {}
    void visit(const DOM::FieldRun& run) override { _text = run.getResult(); }
    void visit(const DOM::AnchorRun&) override { _isSeen = true; }

    std::string takeText() { return std::move(_text); }
    /// Whether there is a text, a drawing, or the mark of a note.
    bool isSeen() const { return _isSeen || !_text.empty(); }

private:
    std::string _text;
    bool _isSeen = false;
};

bool isShownFinally(const DOM::RunStyle& style)
{
    return DOM::isShown(style, DOM::TrackChangesViewMode::Final);
}

/// Gathers the text of blocks until there is no more room.
class SeenTextCollector
{
public:
    SeenTextCollector(EffectiveFormats& formats, std::size_t bytesMax)
        : _formats(formats)
        , _bytesMax(bytesMax)
    {
    }

    // Tables lie in one another as deep as the importer lets them.
    void addBlocks(const std::vector<std::unique_ptr<DOM::Block>>& blocks, const CellScope& scope);

    std::string takeText() { return std::move(_text); }

private:
    void addTable(const DOM::Table& table);
    void addText(const std::string& text);

    EffectiveFormats& _formats;
    std::size_t _bytesMax;
    std::string _text;
    bool _isFull = false;
};

void SeenTextCollector::addBlocks(
    const std::vector<std::unique_ptr<DOM::Block>>& blocks, const CellScope& scope)
{
    for (const std::unique_ptr<DOM::Block>& block : blocks) {
        if (_isFull)
            return;
        if (const auto* const paragraph = dynamic_cast<const DOM::Paragraph*>(block.get()))
            addText(getSeenText(*paragraph, _formats, scope));
        else if (const auto* const table = dynamic_cast<const DOM::Table*>(block.get()))
            addTable(*table);
        else if (const auto* const contents = dynamic_cast<const DOM::TableOfContents*>(block.get()))
            addBlocks(contents->getBlocks(), scope);
    }
}

void SeenTextCollector::addTable(const DOM::Table& table)
{
    const auto cells = table.getTableIterators();
    for (auto cell = cells.begin(); cell != cells.end() && !_isFull; ++cell)
        if (const auto* const blocks = cell->getRawBlocks())
            addBlocks(*blocks, {&table.getStyle(), cell->getSharedStyle().get()});
}

void SeenTextCollector::addText(const std::string& text)
{
    if (text.empty())
        return;
    if (!_text.empty())
        _text += '\n';
    _text += text;
    _isFull = cutUtf8(_text, _bytesMax);
}

} // namespace

std::string getRunText(const DOM::Run& run)
{
    RunTextReader reader;
    run.accept(reader);
    return reader.takeText();
}

bool isInFinalView(const DOM::Run& run)
{
    return isShownFinally(run.getStyle());
}

std::string getSeenText(const DOM::Paragraph& paragraph, EffectiveFormats& formats, const CellScope& scope)
{
    std::string text;
    for (const DOM::Run& run : paragraph.getRuns()) {
        if (!isInFinalView(run))
            continue;
        const std::string ofRun = getRunText(run);
        if (!ofRun.empty() &&
            !formats.getRunProps(paragraph, run.getStyle(), scope).getHidden().value_or(false))
            text += ofRun;
    }
    return text;
}

bool isInFinalView(const DOM::Paragraph& paragraph)
{
    if (isShownFinally(paragraph.getParaMarkStyle()))
        return true;
    for (const DOM::Run& run : paragraph.getRuns()) {
        RunTextReader reader;
        run.accept(reader);
        if (reader.isSeen() && isInFinalView(run))
            return true;
    }
    return false;
}

bool isHidden(const DOM::Paragraph& paragraph, EffectiveFormats& formats, const CellScope& scope)
{
    const auto isHiddenStyle = [&](const DOM::RunStyle& style) {
        return formats.getRunProps(paragraph, style, scope).getHidden().value_or(false);
    };
    if (!isHiddenStyle(paragraph.getParaMarkStyle()))
        return false;
    const auto runs = paragraph.getRuns();
    return std::none_of(runs.begin(), runs.end(), [&](const DOM::Run& run) {
        return isInFinalView(run) && !dynamic_cast<const DOM::BookmarkRun*>(&run) &&
               !isHiddenStyle(run.getStyle());
    });
}

std::string getSeenText(
    const std::vector<std::unique_ptr<DOM::Block>>& blocks, EffectiveFormats& formats, std::size_t bytesMax)
{
    SeenTextCollector collector(formats, bytesMax);
    collector.addBlocks(blocks, {});
    return collector.takeText();
}

} // namespace QV::Filters
