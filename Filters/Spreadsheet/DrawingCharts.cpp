#include <Filters/Spreadsheet/DrawingCharts.h>

#include <memory>
#include <utility>

#include <DOM/Public/ChartSpace.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Table.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/Relationships.h>
#include <Filters/Spreadsheet/ChartReader.h>
#include <Filters/Spreadsheet/LeftOut.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {

void DrawingCharts::read(const std::string& drawingPart, DOM::Table& table)
{
    OperationReport unused; // who read the drawing's pictures has told what is wrong
    const Relationships relationships = Relationships::read(_package, drawingPart, unused);
    for (const Relationship& relationship : relationships.getAll()) {
        if (relationship.isExternal)
            continue;
        if (relationship.isType("chart"))
            showChart(relationship.target, table);
        else if (relationship.isType("diagramData"))
            _run.leaveOut(LeftOut::Diagrams);
        else if (relationship.type.find("/chartEx") != std::string::npos)
            _run.leaveOut(LeftOut::NewerCharts);
    }
}

void DrawingCharts::showChart(const std::string& part, DOM::Table& table)
{
    if (!_read.insert(part).second) { // else a small package would make a model of any size
        _run.getReport().emplace_back(
            "Chart {} is shown more than once, and read for the first time only", part);
        return;
    }
    auto chart = readChart(_package, part, &_tables, _run);
    if (!chart)
        return;
    auto frame = std::make_unique<DOM::Frame>();
    frame->setGraphicalObject(std::move(chart));
    table.appendFrame(std::move(frame));
}

} // namespace QV::Filters
