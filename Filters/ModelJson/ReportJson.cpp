#include <Filters/ModelJson/ReportJson.h>

#include <string>

#include <boost/variant.hpp>

#include <Filters/ModelJson/JsonWriter.h>
#include <Filters/Package/FilterRun.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

struct ArgumentWriter
{
    void operator()(long long value) const { json.write(static_cast<long>(value)); }
    void operator()(unsigned long long value) const { json.write(static_cast<unsigned long>(value)); }
    void operator()(double value) const { json.write(value); }
    void operator()(const std::string& value) const { json.write(value); }

    JsonWriter& json;
};

} // namespace

void writeMessagesJson(const OperationReport& report, JsonWriter& json)
{
    json.writeKey("messages");
    json.beginArray();
    for (const OperationReport::Message& message : report.getMessages()) {
        json.beginObject();
        json.writeMember("message", message.toString());
        json.writeMember("text", message.getText());
        json.writeKey("arguments");
        json.beginArray();
        for (const OperationReport::Message::Argument& argument : message.getArguments())
            boost::apply_visitor(ArgumentWriter{json}, argument);
        json.endArray();
        json.endObject();
    }
    json.endArray();
}

void writeReportJson(const FilterRun& run, std::ostream& out)
{
    JsonWriter json(out);
    json.beginObject();
    writeMessagesJson(run.getReport(), json);
    json.writeKey("leftOut");
    json.beginArray();
    for (const std::string& what : run.getLeftOut())
        json.write(what);
    json.endArray();
    json.endObject();
}

} // namespace QV::Filters
