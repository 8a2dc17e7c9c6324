#include <Filters/Spreadsheet/SheetLinks.h>

#include <cstddef>
#include <map>
#include <memory>
#include <tuple>
#include <utility>

#include <boost/optional.hpp>

#include <DOM/Public/Cell.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/SharedObjectFactory.h>
#include <DOM/Public/Table.h>
#include <FilterUtils/FU_NonIntersectedRanges.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Relationships.h>
#include <Filters/Spreadsheet/CellReferences.h>
#include <Utils/Public/OperationReport.h>
#include <Utils/Public/Ptr/PtrUtils.h>
#include <Utils/Public/TableIndices/TableRange.h>

namespace QV::Filters {
namespace {

using Link = std::shared_ptr<const DOM::Hyperlink>;

/// Copies the runs of a paragraph with a link of their own.
class LinkedRuns final : public DOM::RunVisitor
{
public:
    LinkedRuns(DOM::Paragraph& target, Link link, DOM::SharedObjectFactory& factory)
        : _target(target)
        , _link(std::move(link))
        , _factory(factory)
    {
    }

    void visit(const DOM::TextRun& run) override
    {
        _target.appendRun(std::make_unique<DOM::TextRun>(run.getText(), addLink(run.getStyle())));
    }
    void visit(const DOM::TabRun& run) override
    {
        _target.appendRun(std::make_unique<DOM::TabRun>(addLink(run.getStyle())));
    }
    void visit(const DOM::BreakRun& run) override
    {
        _target.appendRun(std::make_unique<DOM::BreakRun>(addLink(run.getStyle())));
    }
    // Texts of sheets have none of these.
    void visit(const DOM::DrawingRun&) override {}
    void visit(const DOM::BookmarkRun&) override {}
    void visit(const DOM::FieldRun&) override {}
    void visit(const DOM::AnchorRun&) override {}

    DOM::SharedRunStyle addLink(const DOM::RunStyle& style) const
    {
        DOM::RunStyle linked(style);
        linked.setHyperlink(_link);
        return _factory.getShared(linked);
    }

private:
    DOM::Paragraph& _target;
    Link _link;
    DOM::SharedObjectFactory& _factory;
};

/// Makes the texts that carry links; one for each text and link.
class LinkedTexts
{
public:
    explicit LinkedTexts(DOM::SharedObjectFactory& factory)
        : _factory(factory)
    {
    }

    /// A copy of @p text, or an empty one for a null pointer, with the link in its mark and its runs. Null
    /// where that would be more text than links may have.
    DOM::SharedCellText getText(const DOM::SharedCellText& text, const Link& link)
    {
        DOM::SharedCellText& linked = _texts[std::make_pair(text, link)];
        if (linked)
            return linked;
        _size += text ? text->getPlainText().size() : 0;
        if (_size <= LinkedTextMax)
            linked = makeText(text, link);
        return linked;
    }

private:
    DOM::SharedCellText makeText(const DOM::SharedCellText& text, const Link& link)
    {
        std::vector<std::unique_ptr<DOM::Block>> blocks;
        auto paragraph = std::make_unique<DOM::Paragraph>();
        LinkedRuns runs(*paragraph, link, _factory);
        paragraph->setSharedParaMarkStyle(runs.addLink(DOM::RunStyle()));
        if (text && !text->getBlocks().empty()) // one paragraph, as string items are
            if (const auto* const source = exactCast<DOM::Paragraph>(text->getBlocks().front().get()))
                for (const DOM::Run& run : source->getRuns())
                    run.accept(runs);
        blocks.push_back(std::move(paragraph));
        return DOM::SharedCellText(new DOM::CellText(std::move(blocks)));
    }

    DOM::SharedObjectFactory& _factory;
    std::map<std::pair<DOM::SharedCellText, Link>, DOM::SharedCellText> _texts;
    std::size_t _size = 0;
};

class LinkPlacer
{
public:
    LinkPlacer(const Relationships& relationships, DOM::Table& table, FilterRun& run)
        : _relationships(relationships)
        , _table(table)
        , _report(run.getReport())
        , _texts(run.getDocument().getSharedObjectFactory())
    {
    }

    /// Takes the links from the last one on, so that it keeps its cells.
    void add(const SheetLink& source)
    {
        const auto range = parseRangeReference(source.reference);
        if (!range || !isInGrid({RowIndex(range->getEndRow() - 1), ColumnIndex(range->getEndColumn() - 1)})) {
            _report.emplace_back("Hyperlink on {} is on no range of a sheet", source.reference);
            return;
        }
        const Link link = findLink(source);
        if (!link)
            return;
        if (!_ranges.appendRange(*range)) {
            _report.emplace_back("Hyperlink on {} shares cells with a later one", source.reference);
            return;
        }
        _links.emplace(getCorner(*range), Placed{link, *range, source.reference, true});
    }

    void finish()
    {
        if (_links.empty())
            return;
        for (const auto& placed : _links) // from left to right, as rows grow quickly
            makeCells(placed.second.range);
        std::vector<std::pair<CellIndex, Placed*>> linked;
        const auto cells = _table.getTableIterators();
        for (auto cell = cells.begin(); cell != cells.end(); ++cell) {
            const CellIndex place(cell.getRowIndex(), cell.getColIndex());
            if (const auto range = _ranges.findRangeContainsCell(place))
                linked.emplace_back(place, &_links.at(getCorner(*range)));
        }
        for (const auto& cell : linked)
            putLink(*_table.findCell(cell.first.getRow(), cell.first.getColumn()), *cell.second);
    }

private:
    using Corner = std::pair<unsigned long, unsigned long>;

    struct Placed
    {
        Link link;
        TableRange range;
        std::string reference;
        bool isWhole; // false once a cell could not take it, which was reported
    };

    static Corner getCorner(const TableRange& range) { return {range.getBeginRow(), range.getBeginColumn()}; }

    Link findLink(const SheetLink& source)
    {
        std::string url;
        std::string anchor = source.location;
        if (!source.relationshipId.empty()) {
            const Relationship* const target = _relationships.findById(source.relationshipId);
            if (!target) {
                _report.emplace_back("Hyperlink on {} has an unknown relationship {}", source.reference,
                    source.relationshipId);
                return nullptr;
            }
            url = target->target;
        }
        if (anchor.empty() && !url.empty() && url.front() == '#') { // a place inside, written as one outside
            anchor = url.substr(1);
            url.clear();
        }
        if (url.empty() && anchor.empty()) {
            _report.emplace_back("Hyperlink on {} leads nowhere", source.reference);
            return nullptr;
        }
        Link& link = _known[std::make_pair(url, anchor)];
        if (!link)
            link = std::make_shared<DOM::Hyperlink>(url, anchor);
        return link;
    }

    void makeCells(const TableRange& range)
    {
        const RowIndex row(range.getBeginRow());
        const ColumnIndex column(range.getBeginColumn());
        const unsigned long rows = range.getEndRow() - range.getBeginRow();
        const unsigned long columns = range.getEndColumn() - range.getBeginColumn();
        const DOM::MergeProps merge = _table.getMergeProps(row, column);
        const bool isOneBlock =
            merge.getCapturedRowsCount() + 1 >= rows && merge.getCapturedColsCount() + 1 >= columns;
        const bool isTooLarge = rows * columns > LinkedCellsMax - _madeCells;
        if (isOneBlock || isTooLarge) {
            _table.getOrMakeCell(row, column);
            return;
        }
        _madeCells += rows * columns;
        for (unsigned long i = 0; i < rows; ++i)
            for (unsigned long j = 0; j < columns; ++j)
                _table.getOrMakeCell(RowIndex(row.get() + i), ColumnIndex(column.get() + j));
    }

    void putLink(DOM::Cell& cell, Placed& placed)
    {
        const DOM::SharedCellText text(cell.getText());
        const DOM::SharedCellText linked = _texts.getText(text, placed.link);
        if (!linked) {
            if (placed.isWhole)
                _report.emplace_back(
                    "Hyperlink on {} has more text under it than links may have", placed.reference);
            placed.isWhole = false;
            return;
        }
        if (cell.getKind() == DOM::Cell::Kind::Error)
            cell.setError(linked);
        else if (text)
            cell.setText(linked);
        else
            cell.setBlocksBesideValue(linked);
    }

    const Relationships& _relationships;
    DOM::Table& _table;
    OperationReport& _report;
    LinkedTexts _texts;
    FilterUtils::NonIntersectedRanges _ranges;
    std::map<Corner, Placed> _links; // by the top left corners of _ranges
    std::map<std::pair<std::string, std::string>, Link> _known;
    unsigned long _madeCells = 0;
};

} // namespace

void applyLinks(const std::vector<SheetLink>& links, const Relationships& relationships, DOM::Table& table,
    FilterRun& run)
{
    LinkPlacer placer(relationships, table, run);
    for (auto link = links.rbegin(); link != links.rend(); ++link)
        placer.add(*link);
    placer.finish();
}

} // namespace QV::Filters
