#include <Filters/ModelJson/TextJson.h>

#include <DOM/Public/Block.h>
#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Styles.h>
#include <Filters/ModelJson/BlocksJson.h>
#include <Filters/ModelJson/JsonWriter.h>
#include <Filters/ModelJson/MediaJson.h>
#include <Filters/ModelJson/NotesJson.h>
#include <Filters/ModelJson/SectionsJson.h>
#include <Filters/ModelJson/StylesJson.h>
#include <Filters/ModelJson/TextJsonState.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/ListLabels.h>

namespace QV::Filters {

void writeTextJson(FilterRun& run, std::ostream& out)
{
    const DOM::Document& document = run.getDocument();
    JsonWriter json(out);
    TextJsonState state(run, json);
    json.beginObject();
    json.writeMember("format", "docx");
    json.writeKey("blocks");
    json.beginArray();
    ListLabels labels(document);
    for (const DOM::Block& block : document.getBlocks())
        writeBlockJson(block, labels, state);
    json.endArray();
    json.writeKey("sections");
    writeSectionsJson(state);
    json.writeKey("styles");
    writeStylesJson(document.getStyles(), json);
    json.writeKey("notes");
    writeNotesJson(state);
    writeLinksAndMediaJson(run, json);
    json.endObject();
}

} // namespace QV::Filters
