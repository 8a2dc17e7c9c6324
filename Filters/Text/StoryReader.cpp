#include <Filters/Text/StoryReader.h>

#include <Filters/Package/XmlParts.h>
#include <Filters/Text/StoryHandler.h>
#include <Filters/Text/TextContext.h>
#include <Filters/Text/TextWords.h>

namespace QV::Filters {

bool readStory(TextContext& context, TextFormats& formats, const std::string& part,
    const Relationships& relationships, const StorySink& sink)
{
    StoryHandler handler(context, formats, part, relationships);
    handler.openStory(sink);
    const bool isWellFormed =
        readXmlStream(context.package, part, getTextWords(), handler, context.getReport());
    handler.finish();
    return isWellFormed;
}

void readNotes(TextContext& context, TextFormats& formats, const std::string& part,
    const Relationships& relationships, const std::function<void(NoteStory)>& takeNote)
{
    StoryHandler handler(context, formats, part, relationships);
    handler.openNotes(takeNote);
    readXmlStream(context.package, part, getTextWords(), handler, context.getReport());
    handler.finish();
}

} // namespace QV::Filters
