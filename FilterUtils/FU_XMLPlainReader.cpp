#include <FilterUtils/FU_XMLPlainReader.h>

#include <algorithm>
#include <cstring>
#include <string_view>

#include <FilterUtils/FU_XMLStreamParser.h>

namespace QV::FilterUtils {
namespace {

constexpr std::size_t WindowBytes = 64 << 10;

// A tag with more attributes is not worth comparing each with each here.
constexpr std::size_t MaximumAttributes = 32;

// So much of a text that goes on is looked at with what follows.
constexpr std::size_t TextReserve = 4;

const char* findByte(const char* begin, const char* end, char c)
{
    return static_cast<const char*>(std::memchr(begin, c, static_cast<std::size_t>(end - begin)));
}

std::string_view makeView(const char* begin, const char* end)
{
    return {begin, static_cast<std::size_t>(end - begin)};
}

// Columns count UTF-16 units.
std::uint64_t countUnits(std::string_view text)
{
    std::uint64_t count = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        count += ((byte & 0xC0) != 0x80) + (byte >= 0xF0);
    }
    return count;
}

// Where a text that goes on may be cut: not in a character, a reference, a line end, or before a "]]>" is
// told.
const char* findCut(const char* begin, const char* end)
{
    const char* cut = end - TextReserve;
    const auto isInside = [&cut] {
        return (static_cast<unsigned char>(*cut) & 0xC0) == 0x80 || (cut[-1] == '\r' && *cut == '\n') ||
               (cut[-1] == ']' && (cut[0] == '>' || cut[1] == '>'));
    };
    while (cut - 1 > begin && isInside())
        --cut;
    const std::string_view before = makeView(begin, cut);
    const std::size_t reference = before.rfind('&');
    const bool isCut =
        reference != std::string_view::npos && before.find(';', reference) == std::string_view::npos;
    return isCut ? begin + reference : cut;
}

// A comment of one character at most. Xerces wants to see more than that before it tells a comment.
bool isTinyComment(std::string_view markup)
{
    if (markup.size() < 7 || markup.size() > 11 || markup.substr(0, 4) != "<!--")
        return false;
    const std::string_view content = markup.substr(4, markup.size() - 7);
    std::u16string units;
    return content == "<" || content == "&" ||
           (content != "-" && appendPlainText(units, content, false) && countUnits(content) <= 1);
}

} // namespace

XMLPlainReader::XMLPlainReader(XMLStreamParser& parser, const XMLReadOptions& options)
    : _parser(parser)
    , _options(options)
    , _window(WindowBytes)
{
}

std::size_t XMLPlainReader::read(std::istream& stream, char* buffer, std::size_t size)
{
    if (_handedEnd <= _begin && _replay.empty())
        prepare(stream);
    if (!_replay.empty()) {
        const std::size_t count = std::min(size, _replay.size());
        std::copy_n(_replay.data(), count, buffer);
        _replay.erase(0, count);
        return count;
    }
    const std::size_t count = std::min(size, _handedEnd - std::min(_begin, _handedEnd));
    std::copy_n(at(), count, buffer);
    _begin += count;
    return count;
}

// --- The window

// Reads on behind what the window holds. False where nothing came of it.
bool XMLPlainReader::fill(std::istream& stream)
{
    if (_hasEnded || _parser.hasInputBreach())
        return false;
    if (_begin > 0) {
        _place = getPlace();
        _placed = 0;
        std::copy(at(), windowEnd(), _window.data());
        _end -= _begin;
        _handedEnd = 0;
        _begin = 0;
        if (_window.size() > WindowBytes && _end < WindowBytes)
            _window.resize(WindowBytes);
    }
    if (_end == _window.size())
        return false;
    const std::size_t count = _parser.readWindow(stream, _window.data() + _end, _window.size() - _end);
    _hasEnded = count == 0;
    _end += count;
    return count > 0;
}

// For what has to be looked at whole. It shrinks again once that is read.
bool XMLPlainReader::growWindow()
{
    if (_hasEnded || _window.size() > _options.markupBytes)
        return false;
    _window.resize(_window.size() * 2);
    return true;
}

void XMLPlainReader::handOn(const char* end)
{
    _expectedProgress = _parser.getProgress() + 1;
    _handedPlace = _place = getPlace();
    _placed = _begin;
    _handedEnd = static_cast<std::size_t>(end - _window.data());
    const auto [line, column] = _parser.getParserPlace();
    _parserPlace = {std::max<std::uint64_t>(line, 1), std::max<std::uint64_t>(column, 1)};
}

void XMLPlainReader::turnOff()
{
    _isOff = true;
    handOn(windowEnd());
}

XMLPlainReader::Place XMLPlainReader::getPlace() const
{
    std::string_view passed = makeView(_window.data() + _placed, at());
    Place place = _place;
    // A carriage return ends a line, unless it is one end with the line feed that follows.
    const bool hasReturns = passed.find('\r') != std::string_view::npos;
    while (true) {
        const std::size_t end = hasReturns ? passed.find_first_of("\r\n") : passed.find('\n');
        if (end == std::string_view::npos)
            break;
        const char* const next = passed.data() + end + 1; // which may be the first that was not passed
        const bool isHalf = passed[end] == '\r' && next != windowEnd() && *next == '\n';
        passed.remove_prefix(end + 1);
        if (!isHalf)
            place = {place.line + 1, 1};
    }
    place.column += countUnits(passed);
    return place;
}

void XMLPlainReader::correctPlace(XMLReadResult& result) const
{
    if (!_hasTaken || result.line < _parserPlace.line)
        return;
    if (result.line == _parserPlace.line)
        result.column += _handedPlace.column - _parserPlace.column;
    result.line += _handedPlace.line - _parserPlace.line;
}

void XMLPlainReader::setPlace(XMLReadResult& result) const
{
    const Place place = getPlace();
    result.line = place.line;
    result.column = place.column;
}

// --- What comes next

void XMLPlainReader::prepare(std::istream& stream)
{
    if (_isInProlog) {
        prepareProlog(stream);
        return;
    }
    while (!_parser.hasInputBreach()) {
        if (!_isInMarkup && !isInStep())
            _isOff = true; // what comes follows what was handed on last: its place stays
        if (_isOff) {
            prepareRest(stream);
            return;
        }
        if (_begin == _end && !fill(stream)) {
            if (!_isInMarkup)
                fail();
            return;
        }
        if (_isInMarkup) {
            continueMarkup();
            return;
        }
        if (readItem(stream) == Progress::HandedOn)
            return;
    }
}

// All before the root's content is handed on at once: Xerces tells the encoding by the first bytes.
void XMLPlainReader::prepareProlog(std::istream& stream)
{
    _isInProlog = false;
    fill(stream);
    const char* here = at();
    if (makeView(here, windowEnd()).substr(0, 3) == "\xEF\xBB\xBF")
        here += 3;
    const bool hasZero = findByte(here, windowEnd(), 0) != nullptr; // in UTF-16, most likely
    while (true) {
        here = hasZero ? nullptr : findByte(here, windowEnd(), '<');
        XMLMarkupEnd markup;
        here = here ? markup.find(here, windowEnd()) : nullptr;
        if (!here) {
            turnOff();
            return;
        }
        if (markup.getKind() == XMLMarkupKind::Start) {
            noteMarkup(XMLMarkupKind::Start);
            handOn(here);
            return;
        }
    }
}

void XMLPlainReader::prepareRest(std::istream& stream)
{
    if (_begin == _end)
        fill(stream);
    _handedEnd = _end;
}

// Whether Xerces has done with all that it was handed, and is inside the root of a document for this reader.
bool XMLPlainReader::isInStep() const
{
    return !_open.empty() && _parser.getElementDepth() == _open.size() &&
           _parser.getProgress() >= _expectedProgress && (_hasTaken || _parser.isPlainDocument());
}

XMLPlainReader::Progress XMLPlainReader::readItem(std::istream& stream)
{
    if (_parser.isInTree())
        return handOnTree();
    return *at() == '<' ? readMarkup(stream) : readText(stream);
}

// --- Text

XMLPlainReader::Progress XMLPlainReader::readText(std::istream& stream)
{
    const char* end = findByte(at(), windowEnd(), '<');
    if (!end) {
        if (fill(stream))
            return Progress::Taken;
        if (!_hasEnded && !_parser.hasInputBreach())
            end = findCut(at(), windowEnd());
        if (end == at() && growWindow())
            return Progress::Taken; // a reference longer than the window
        if (!end || end == at())
            return fail();
    }
    return takeText(at(), end);
}

XMLPlainReader::Progress XMLPlainReader::takeText(const char* begin, const char* end)
{
    _text.clear();
    if (!appendPlainText(_text, makeView(begin, end), false))
        return fail();
    _hasTaken = true;
    _begin += static_cast<std::size_t>(end - begin);
    _parser.takeText(_text, static_cast<std::size_t>(end - begin));
    return Progress::Taken;
}

// --- Markup

XMLPlainReader::Progress XMLPlainReader::readMarkup(std::istream& stream)
{
    const char* end = at();
    const std::size_t maximumAttributes = std::min(MaximumAttributes, _options.attributes);
    switch (readPlainTag(end, windowEnd(), maximumAttributes, _tag)) {
    case XMLPlainness::Plain:
        break;
    case XMLPlainness::Incomplete:
        if (fill(stream))
            return Progress::Taken;
        return handOnMarkup(stream);
    case XMLPlainness::Unplain:
        return handOnMarkup(stream);
    }
    if (static_cast<std::size_t>(end - at()) > _options.markupBytes)
        return handOnMarkup(stream);
    return _tag.kind == XMLMarkupKind::End ? takeEnd(end) : takeStart(end);
}

XMLPlainReader::Progress XMLPlainReader::takeStart(const char* end)
{
    const std::size_t begin = _begin;
    const bool isEmpty = _tag.kind == XMLMarkupKind::Empty;
    _begin += static_cast<std::size_t>(end - at());
    switch (_parser.takeStart(_tag, _begin - begin)) {
    case XMLTaking::Taken:
        _hasTaken = true;
        if (isEmpty) {
            _parser.takeEnd(0);
        } else {
            _open.push_back({_openNames.size(), true});
            _openNames += _tag.name;
        }
        return Progress::Taken;
    case XMLTaking::Tree:
    case XMLTaking::Refused:
        break;
    }
    _begin = begin;
    noteMarkup(_tag.kind);
    handOn(end);
    return Progress::HandedOn;
}

XMLPlainReader::Progress XMLPlainReader::takeEnd(const char* end)
{
    const OpenElement& element = _open.back();
    if (!element.isTaken) {
        noteMarkup(XMLMarkupKind::End);
        handOn(end);
        return Progress::HandedOn;
    }
    if (std::string_view(_openNames).substr(element.nameBegin) != _tag.name)
        return fail();
    _openNames.resize(element.nameBegin);
    _open.pop_back();
    const auto size = static_cast<std::size_t>(end - at());
    _begin += size;
    _parser.takeEnd(size);
    return Progress::Taken;
}

// --- What is left to Xerces

void XMLPlainReader::noteMarkup(XMLMarkupKind kind)
{
    if (kind == XMLMarkupKind::Start)
        _open.push_back({_openNames.size(), false});
    else if (kind == XMLMarkupKind::End && !_open.empty())
        _open.pop_back();
}

XMLPlainReader::Progress XMLPlainReader::handOnMarkup(std::istream& stream)
{
    _markup.begin();
    const char* end = _markup.find(at(), windowEnd());
    if (!end && fill(stream))
        return Progress::Taken; // once more, with more bytes
    if (end && isTinyComment(makeView(at(), end))) {
        const auto size = static_cast<std::size_t>(end - at());
        _hasTaken = true;
        _begin += size;
        _parser.takeComment(size);
        return Progress::Taken;
    }
    const bool isEnd = makeView(at(), windowEnd()).substr(0, 2) == "</";
    if (isEnd && _open.back().isTaken) {
        return !end && growWindow() ? Progress::Taken : fail();
    }
    _isInMarkup = !end;
    if (end)
        noteMarkup(_markup.getKind());
    handOn(end ? end : windowEnd());
    return Progress::HandedOn;
}

void XMLPlainReader::continueMarkup()
{
    const char* const end = _markup.find(at(), windowEnd());
    _isInMarkup = !end;
    if (end)
        noteMarkup(_markup.getKind());
    _handedEnd = static_cast<std::size_t>((end ? end : windowEnd()) - _window.data());
}

// As much of a tree as the window holds.
XMLPlainReader::Progress XMLPlainReader::handOnTree()
{
    const std::size_t depth = _parser.getTreeDepth();
    const char* here = at();
    while (_open.size() >= depth) {
        const char* const markupBegin = findByte(here, windowEnd(), '<');
        _markup.begin();
        const char* const end = markupBegin ? _markup.find(markupBegin, windowEnd()) : nullptr;
        _isInMarkup = markupBegin && !end;
        here = end ? end : windowEnd();
        if (!end)
            break;
        noteMarkup(_markup.getKind());
    }
    handOn(here);
    if (here == windowEnd())
        _expectedProgress = 0; // a text may go on
    return Progress::HandedOn;
}

// What comes is not well-formed: Xerces is to say so, in its own words, for which it has to know the
// innermost element.
XMLPlainReader::Progress XMLPlainReader::fail()
{
    if (!_open.empty() && _open.back().isTaken) {
        _replay = "<" + _openNames.substr(_open.back().nameBegin) + ">";
        _parser.ignoreEvents();
    }
    turnOff();
    _parserPlace.column += _replay.size();
    return Progress::HandedOn;
}

} // namespace QV::FilterUtils
