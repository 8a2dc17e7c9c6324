#include <Filters/ModelJson/TextJsonState.h>

#include <algorithm>
#include <cmath>

#include <DOM/Public/Document.h>
#include <Filters/ModelJson/JsonWriter.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Utf8Cut.h>

namespace QV::Filters {

TextJsonState::TextJsonState(FilterRun& run, JsonWriter& json)
    : _run(run)
    , _json(json)
    , _document(run.getDocument())
    , _formats(_document)
    , _noteNames(makeNoteNames(_document))
{
}

const std::string& TextJsonState::getListId(const DOM::NumberedList& list)
{
    std::string& id = _listIds[list.getUUID()];
    if (id.empty())
        id = _run.getOptions().areIdsSequential ? _run.generateId() : list.getUUID().toString();
    return id;
}

const NoteName* TextJsonState::findNoteName(const UUID& note) const
{
    const auto found = _noteNames.find(note);
    return found == _noteNames.end() ? nullptr : &found->second;
}

std::size_t TextJsonState::takeLinkRoom(std::size_t size)
{
    const std::size_t bytes = std::min(size, LinkBytesMax);
    if (bytes <= NameBytesMax)
        return bytes;
    if (bytes > LongLinksBytesMax - _longLinksBytes)
        return NameBytesMax;
    _longLinksBytes += bytes;
    return bytes;
}

void writeShortMember(boost::string_ref key, const std::string& text, JsonWriter& json, std::size_t bytesMax)
{
    if (text.size() <= bytesMax) {
        json.writeMember(key, text);
        return;
    }
    // One byte more than stays tells whether a character lies across the end.
    std::string shortText = text.substr(0, bytesMax + 1);
    cutUtf8(shortText, bytesMax);
    json.writeMember(key, shortText);
}

void writeLengthMember(boost::string_ref key, const boost::optional<float>& points, JsonWriter& json)
{
    if (points && std::isfinite(*points))
        json.writeMember(key, *points);
}

} // namespace QV::Filters
