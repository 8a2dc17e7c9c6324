#pragma once

/// @file
/// What XMLStreamParser reads by itself, and what it leaves to Xerces. Private to the library.

#include <cstddef>
#include <cstdint>
#include <istream>
#include <string>
#include <vector>

#include <FilterUtils/FU_XMLPlainMarkup.h>
#include <FilterUtils/FU_XMLReadOptions.h>

namespace QV::FilterUtils {

class XMLStreamParser;

/// What becomes of a plain start tag.
enum class XMLTaking
{
    Taken,
    Refused, // Xerces is to see it, as if nobody else had
    Tree     // it has started; Xerces is to build the element
};

/// Stands between the stream and Xerces, and takes tags and text that are plain out of what Xerces gets to
/// see: they reach the handler directly, at a fraction of the cost.
///
/// Everything else is handed on as it is, one tag, comment or section at a time. Xerces asks for more only
/// once it has dealt with that, so the order of events holds; this much is checked, and where it is not so,
/// all of the rest is handed on. Xerces thus sees a document of the same form, out of which some well-formed
/// elements are missing while their children may be there; a tag that is taken has its counterpart taken.
///
/// Only documents in UTF-8 and XML 1.0 are treated so, from inside their root on.
class XMLPlainReader
{
public:
    XMLPlainReader(XMLStreamParser& parser, const XMLReadOptions& options);

    /// What Xerces is to see next; 0 at the end.
    std::size_t read(std::istream& stream, char* buffer, std::size_t size);

    /// Where a failure lies, of which Xerces tells by the bytes that it has seen.
    void correctPlace(XMLReadResult& result) const;

    /// Where the reading has come to, when it is ended in the midst of what was taken.
    void setPlace(XMLReadResult& result) const;

private:
    struct Place
    {
        std::uint64_t line;
        std::uint64_t column;
    };

    struct OpenElement
    {
        std::size_t nameBegin; // in _openNames; its end, where Xerces knows the element
        bool isTaken;
    };

    enum class Progress
    {
        Taken,
        HandedOn
    };

    bool fill(std::istream& stream);
    bool growWindow();
    void prepare(std::istream& stream);
    void prepareProlog(std::istream& stream);
    void prepareRest(std::istream& stream);
    bool isInStep() const;
    Progress readItem(std::istream& stream);
    Progress readText(std::istream& stream);
    Progress takeText(const char* begin, const char* end);
    Progress readMarkup(std::istream& stream);
    Progress takeStart(const char* end);
    Progress takeEnd(const char* end);
    Progress handOnMarkup(std::istream& stream);
    Progress handOnTree();
    void continueMarkup();
    void noteMarkup(XMLMarkupKind kind);
    Progress fail();

    void handOn(const char* end);
    void turnOff();

    const char* at() const { return _window.data() + _begin; }
    const char* windowEnd() const { return _window.data() + _end; }
    Place getPlace() const;

    XMLStreamParser& _parser;
    const XMLReadOptions& _options;

    std::vector<char> _window;
    std::size_t _begin = 0; // what was neither taken nor handed on yet
    std::size_t _end = 0;
    std::size_t _handedEnd = 0; // Xerces gets what is before this next
    std::string _replay;        // and this before
    bool _hasEnded = false;     // the stream

    bool _isInProlog = true;
    bool _isOff = false;
    bool _isInMarkup = false; // which began in an earlier window
    XMLMarkupEnd _markup;

    XMLPlainTag _tag;
    std::u16string _text;
    std::vector<OpenElement> _open;
    std::string _openNames; // of those that were taken

    std::size_t _placed = 0;             // in the window
    Place _place{1, 1};                  // of that
    Place _handedPlace{1, 1};            // of what was handed on last
    Place _parserPlace{1, 1};            // the same, as Xerces counts
    std::uint64_t _expectedProgress = 0; // of Xerces, once it has dealt with that
    bool _hasTaken = false;
};

} // namespace QV::FilterUtils
