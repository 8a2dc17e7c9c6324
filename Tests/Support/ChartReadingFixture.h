#pragma once

#include <cstddef>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <DOM/Public/ChartSpace.h>
#include <Filters/ModelJson/ChartJson.h>
#include <Filters/ModelJson/JsonWriter.h>
#include <Filters/Package/ChartReader.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
#include <Formulas/Public/TableContext.h>
#include <Tests/Support/Printers.h>
#include <Tests/Support/XercesEnvironment.h>
#include <Tests/Support/ZipBuilder.h>
#include <Utils/Public/OperationReport.h>
#include <Utils/Public/UUID.h>

namespace QV::Tests {

/// Reads one chart part at a time, for a workbook with the sheets "Sheet1" and "My sheet".
class ChartReading : public testing::Test
{
protected:
    ChartReading()
    {
        context.addTable(UUID(1, 1), "Sheet1");
        context.addTable(UUID(2, 2), "My sheet");
    }

    /// The chart as JSON; "null" where there is none.
    std::string read(const std::string& part, const Formulas::TableContext* tables)
    {
        run = std::make_unique<Filters::FilterRun>();
        Filters::Package package = Filters::Package::openBytes(makeZip({
            {"chart.xml", part}
        }));
        chart = Filters::readChart(package, "chart.xml", tables, *run);
        if (!chart)
            return "null";
        std::ostringstream out;
        Filters::JsonWriter json(out);
        json.beginObject();
        Filters::writeChart(*chart, context, json);
        json.endObject();
        json.flush();
        std::string text;
        for (const char c : out.str())
            if (c != ' ' && c != '\n')
                text += c;
        return text;
    }

    std::string read(const std::string& part) { return read(part, &context); }

    const DOM::Chart& getChart(std::size_t index = 0) const
    {
        return chart->getPlotArea().getCharts().at(index);
    }

    std::vector<std::string> listMessages() const
    {
        std::vector<std::string> texts;
        for (const OperationReport::Message& message : run->getReport().getMessages())
            if (message.getText() != Filters::FilterRun::LeftOutMessage)
                texts.push_back(message.toString());
        return texts;
    }

    Formulas::TableContext context;
    std::unique_ptr<Filters::FilterRun> run;
    std::unique_ptr<DOM::ChartSpace> chart;
};

} // namespace QV::Tests
