#include <Summary.h>

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <vector>

#include <fmt/format.h>

#include <Beginning.h>
#include <DOM/Public/ChartSpace.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Table.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/PackageError.h>
#include <SlidesSummary.h>
#include <TextSummary.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Tool {
namespace {

constexpr std::size_t NameColumnMax = 31; // the longest name that a sheet may have
constexpr std::size_t ExamplesMax = 3;

struct SheetRow
{
    std::string name;
    std::string state;
    unsigned long rows;
    unsigned long columns;
    unsigned long cells;
    std::size_t merges;
    std::size_t pictures;
    std::size_t charts;
};

/// The frames of a sheet that show an object of this kind; not those within groups.
template <typename Object>
std::size_t countFrames(const DOM::Table& table)
{
    return static_cast<std::size_t>(
        std::count_if(table.getFrames().begin(), table.getFrames().end(), [](const auto& frame) {
            return dynamic_cast<const Object*>(frame->getGraphicalObject()) != nullptr;
        }));
}

SheetRow makeSheetRow(const DOM::Table& table)
{
    SheetRow row{Filters::makePrintable(table.getName()), table.isVisible() ? "visible" : "hidden",
        table.getLiveRowsCount(), table.getLiveColsCount(), 0, table.getMergedRanges().size(),
        countFrames<DOM::Picture>(table), countFrames<DOM::ChartSpace>(table)};
    for (const DOM::Cell& cell : table.getTableIterators())
        row.cells += cell.getKind() != DOM::Cell::Kind::Empty ? 1 : 0;
    return row;
}

std::size_t countCharacters(const std::string& utf8)
{
    return static_cast<std::size_t>(std::count_if(
        utf8.begin(), utf8.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80; }));
}

void writeSheets(const std::vector<SheetRow>& rows, std::ostream& out)
{
    std::size_t width = 5;
    for (const SheetRow& row : rows)
        width = std::max(width, std::min(countCharacters(row.name), NameColumnMax));
    const auto pad = [width](const std::string& text) {
        const std::size_t size = countCharacters(text);
        return text + std::string(size < width ? width - size : 0, ' ');
    };
    out << fmt::format("  {}  state    {:>8} {:>8} {:>9} {:>7} {:>9} {:>6}\n", pad("sheet"), "rows",
        "columns", "cells", "merges", "pictures", "charts");
    for (const SheetRow& row : rows)
        out << fmt::format("  {}  {:<8} {:>8} {:>8} {:>9} {:>7} {:>9} {:>6}\n", pad(row.name), row.state,
            row.rows, row.columns, row.cells, row.merges, row.pictures, row.charts);
}

/// Messages of one pattern.
struct MessageGroup
{
    std::string text;
    std::size_t count;
    std::vector<std::string> examples;
};

std::vector<MessageGroup> groupMessages(const OperationReport& report)
{
    std::vector<MessageGroup> groups;
    for (const OperationReport::Message& message : report.getMessages()) {
        if (message.getText() == Filters::FilterRun::LeftOutMessage)
            continue; // has a line of its own
        auto group = std::find_if(groups.begin(), groups.end(),
            [&](const MessageGroup& known) { return known.text == message.getText(); });
        if (group == groups.end())
            group = groups.insert(groups.end(), {message.getText(), 0, {}});
        ++group->count;
        const std::string example = Filters::makePrintable(message.toString());
        if (group->examples.size() < ExamplesMax &&
            std::find(group->examples.begin(), group->examples.end(), example) == group->examples.end())
            group->examples.push_back(example);
    }
    return groups;
}

void writeWorkbookSummary(const std::string& name, const Filters::FilterRun& run, std::ostream& out)
{
    std::vector<SheetRow> rows;
    for (const DOM::Block& block : run.getDocument().getBlocks())
        if (const auto* table = dynamic_cast<const DOM::Table*>(&block))
            rows.push_back(makeSheetRow(*table));
    out << fmt::format("{}: a workbook of {} {}\n", Filters::makePrintable(name), rows.size(),
        rows.size() == 1 ? "sheet" : "sheets");
    writeSheets(rows, out);
    writeBeginning(run.getDocument(), out);
}

} // namespace

void writeMessages(const OperationReport& report, std::ostream& out)
{
    const std::vector<MessageGroup> groups = groupMessages(report);
    out << (groups.empty() ? "No messages.\n" : "Messages:\n");
    for (const MessageGroup& group : groups) {
        for (std::size_t i = 0; i < group.examples.size(); ++i)
            out << (i == 0 ? fmt::format("{:>8} x ", group.count) : std::string(11, ' ')) << group.examples[i]
                << '\n';
        if (group.count > ExamplesMax && group.examples.size() == ExamplesMax)
            out << std::string(11, ' ') << "...\n";
    }
}

void writeSummary(
    const std::string& name, Filters::DocumentKind kind, const Filters::FilterRun& run, std::ostream& out)
{
    switch (kind) {
    case Filters::DocumentKind::Spreadsheet:
        writeWorkbookSummary(name, run, out);
        break;
    case Filters::DocumentKind::Text:
        writeTextSummary(name, run.getDocument(), out);
        break;
    case Filters::DocumentKind::Presentation:
        writeSlidesSummary(name, run.getDocument(), out);
        break;
    }
    std::vector<std::string> links;
    for (const std::string& link : run.getLinks())
        links.push_back(Filters::makePrintable(link));
    if (!links.empty())
        out << fmt::format("Refers to: {}\n", fmt::join(links, ", "));
    if (!run.getLeftOut().empty())
        out << fmt::format("Left out: {}\n", fmt::join(run.getLeftOut(), "; "));
    writeMessages(run.getReport(), out);
}

} // namespace QV::Tool
