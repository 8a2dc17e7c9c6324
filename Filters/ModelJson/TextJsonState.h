#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>

#include <boost/optional.hpp>
#include <boost/utility/string_ref.hpp>

#include <DOM/Public/NumberedList.h>
#include <Filters/ModelJson/NotesJson.h>
#include <Filters/Package/EffectiveFormats.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {
class Document;
}

namespace QV::Filters {

class FilterRun;
class JsonWriter;

/// What the writers of one text document share.
class TextJsonState
{
public:
    static constexpr std::size_t NameBytesMax = 1024;
    static constexpr std::size_t LinkBytesMax = 8192;
    static constexpr std::size_t LongLinksBytesMax = std::size_t(16) << 20U;

    TextJsonState(FilterRun& run, JsonWriter& json);

    JsonWriter& getJson() { return _json; }
    const DOM::Document& getDocument() const { return _document; }
    EffectiveFormats& getFormats() { return _formats; }

    /// By which a list is known in the output: where ids are sequential, drawn when it is first asked for.
    const std::string& getListId(const DOM::NumberedList& list);
    /// Null where the document has no note of that identifier.
    const NoteName* findNoteName(const UUID& note) const;
    /// How many bytes of a link of @p size are written: all runs of a link say it. Once LongLinksBytesMax of
    /// those beyond NameBytesMax were written, no more than that.
    std::size_t takeLinkRoom(std::size_t size);

private:
    FilterRun& _run;
    JsonWriter& _json;
    const DOM::Document& _document;
    EffectiveFormats _formats;
    std::unordered_map<UUID, std::string> _listIds;
    const NoteNames _noteNames;
    std::size_t _longLinksBytes = 0;
};

/// Writes a text that many objects may share: its first bytes, so that the output stays in proportion to the
/// document.
void writeShortMember(boost::string_ref key, const std::string& text, JsonWriter& json,
    std::size_t bytesMax = TextJsonState::NameBytesMax);

/// Writes a length where there is one, and it is finite.
void writeLengthMember(boost::string_ref key, const boost::optional<float>& points, JsonWriter& json);

} // namespace QV::Filters
