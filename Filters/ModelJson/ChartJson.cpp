#include <Filters/ModelJson/ChartJson.h>

#include <cstddef>
#include <string>
#include <vector>

#include <boost/variant/get.hpp>

#include <DOM/Public/ChartSpace.h>
#include <Filters/ModelJson/JsonWriter.h>
#include <Formulas/Public/FormulaText.h>
#include <Formulas/Public/TableContext.h>

namespace QV::Filters {
namespace {

const char* getName(DOM::ChartType type)
{
    switch (type) {
    case DOM::ChartType::Bar:
        return "bar";
    case DOM::ChartType::Line:
        return "line";
    case DOM::ChartType::Pie:
        return "pie";
    case DOM::ChartType::Area:
        return "area";
    case DOM::ChartType::Scatter:
        return "scatter";
    case DOM::ChartType::Doughnut:
        return "doughnut";
    case DOM::ChartType::Radar:
        return "radar";
    case DOM::ChartType::Bubble:
        return "bubble";
    case DOM::ChartType::Surface:
        return "surface";
    case DOM::ChartType::Stock:
        return "stock";
    }
    return "";
}

class ChartWriter
{
public:
    ChartWriter(const Formulas::TableContext& tables, JsonWriter& json)
        : _tables(tables)
        , _json(json)
    {
    }

    void write(const DOM::ChartSpace& space)
    {
        const std::vector<DOM::Chart>& charts = space.getPlotArea().getCharts();
        _json.writeMember("kind", "chart");
        if (!charts.empty())
            _json.writeMember("type", getName(charts.front().getType()));
        if (space.getTitle())
            writeTitle(*space.getTitle());
        _json.writeKey("series");
        _json.beginArray();
        for (const DOM::Chart& chart : charts)
            for (const DOM::Series& series : chart.getLiveSeries())
                writeSeries(series, chart, charts.front().getType());
        _json.endArray();
    }

private:
    void writeTitle(const DOM::ChartTitle& title)
    {
        if (const auto text = title.getShownText())
            _json.writeMember("title", *text);
        if (title.getText())
            if (const auto* formulas = boost::get<std::vector<DOM::Formula>>(&*title.getText()))
                writeReferences("titleReference", *formulas);
    }

    void writeSeries(const DOM::Series& series, const DOM::Chart& chart, DOM::ChartType usualType)
    {
        _json.beginObject();
        if (chart.getType() != usualType)
            _json.writeMember("type", getName(chart.getType()));
        if (series.getName())
            writeReferences("name", *series.getName());
        if (series.getNameText())
            _json.writeMember("nameText", *series.getNameText());
        const auto& own = series.getOwnCategories();
        if (own && !own->empty())
            writeReferences("categories", *own);
        else if (!own && chart.getCategories())
            writeReferences("categories", *chart.getCategories());
        else if (!series.getCategoryTexts().empty())
            writePoints("literalCategories", series.getCategoryTexts());
        if (series.getValues())
            writeReferences("values", *series.getValues());
        else if (!series.getNumbers().empty())
            writePoints("literalValues", series.getNumbers());
        _json.endObject();
    }

    void writeReferences(const char* key, const std::vector<DOM::Formula>& formulas)
    {
        std::string text;
        for (const DOM::Formula& formula : formulas)
            text += (text.empty() ? "" : ",") + Formulas::toText(formula, _tables);
        _json.writeMember(key, formulas.size() > 1 ? '(' + text + ')' : text);
    }

    template <typename Points>
    void writePoints(const char* key, const Points& points)
    {
        _json.writeKey(key);
        _json.beginArray();
        for (const auto& point : points)
            _json.write(point.value);
        _json.endArray();
    }

    const Formulas::TableContext& _tables;
    JsonWriter& _json;
};

} // namespace

void writeChart(const DOM::ChartSpace& chart, const Formulas::TableContext& tables, JsonWriter& json)
{
    ChartWriter(tables, json).write(chart);
}

} // namespace QV::Filters
