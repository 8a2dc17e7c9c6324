#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <FilterUtils/FU_XMLElement.h>
#include <FilterUtils/FU_XMLStreamReader.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

/// Writes an element of properties down as its pieces come by in a stream, in one spelling: elements of the
/// word-processing vocabulary alone (under the prefix "w"), their attributes of that vocabulary and of
/// relationships (under "r"), and no text. Alternate content is resolved by the caller. So equal properties
/// give equal text, whatever the prefixes and the dialect of the file, and parsePropertyText reads it back
/// where it is not known yet.
///
/// Elements and attributes that would begin beyond BytesMax are left out; the text is well-formed all the
/// same.
class FILTERS_API PropertyText
{
public:
    static constexpr std::size_t BytesMax = 256U << 10U;

    /// Begins anew with the element itself.
    void begin(const FilterUtils::XMLStreamStart& element);

    /// An element inside: entered or skipped. Those of other vocabularies are skipped with what they hold.
    FilterUtils::XMLStep onStart(const FilterUtils::XMLStreamStart& element);

    /// The end of an element that was entered, that of the first included.
    void onEnd();

    /// Whether the first element has not ended.
    bool isOpen() const { return !_open.empty(); }

    /// The whole text, once the element has ended.
    const std::string& getText() const { return _text; }

private:
    struct OpenElement
    {
        std::size_t nameBegin; // of its name in _text
        std::size_t nameSize;
    };

    void writeStart(const FilterUtils::XMLStreamStart& element);

    std::string _text;
    std::vector<OpenElement> _open; // from the outermost on
    bool _isTagOpen = false;        // the last start tag lacks its end
};

/// The element that a PropertyText wrote; the invalid view for the empty text. Its names are those of
/// Names(Dialect::Transitional).
FILTERS_API FilterUtils::XMLElement parsePropertyText(const std::string& text);

} // namespace QV::Filters
