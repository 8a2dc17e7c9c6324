#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <FilterUtils/FU_Export.h>

namespace QV::FilterUtils {

/// The names by which XMLStreamReader tells elements and attributes apart, each with a number of the
/// caller's: a handler switches over numbers, and compares no text.
///
///     enum Word { Row, Cell, Reference, RelationId };
///     const XMLVocabulary SheetWords(
///         {{"x", {Main, StrictMain}}, {"r", {Relations, StrictRelations}}},
///         {{Row, "x:row"}, {Cell, "x:c"}, {Reference, "r"}, {RelationId, "r:id"}});
///
/// A namespace that has several URIs is one namespace here, under an alias that only the vocabulary knows:
/// the prefixes of a document do not matter. Never changes once made, and threads may share it.
class FILTERUTILS_API XMLVocabulary
{
public:
    /// The number of every name that is not in the vocabulary.
    static constexpr int Unknown = -1;

    /// A namespace; the alias has no ":".
    struct Namespace
    {
        std::string alias;
        std::vector<std::string> uris;
    };

    /// A name and its number, which is from 0 to 9,999; several names may have the same.
    ///
    ///     NAME ::= LOCAL | ALIAS ":" LOCAL | URI ":" LOCAL        split at the last ":"
    ///
    /// LOCAL alone is in no namespace. What is no ALIAS is a URI.
    struct Word
    {
        int id;
        std::string name;
    };

    /// Numbers out of range, text that is not UTF-8, and a name that has another number already are
    /// programming errors; such a word is left out.
    XMLVocabulary(const std::vector<Namespace>& namespaces, const std::vector<Word>& words);

    /// The number of a name, or Unknown.
    ///
    /// @param uri empty: no namespace
    int findId(std::u16string_view uri, std::u16string_view localName) const;

    struct Spelling
    {
        std::u16string uri; // empty: no namespace
        std::u16string localName;
    };

    /// All names with that number, in the order given; none for an unused number.
    const std::vector<Spelling>& getSpellings(int id) const
    {
        const auto index = static_cast<std::size_t>(id); // a negative one is beyond the end
        return index < _spellings.size() ? _spellings[index] : _noSpellings;
    }

private:
    void addWord(const Word& word, const std::vector<Namespace>& namespaces);
    void addSpelling(int id, const std::string& uri, const std::string& localName);

    std::map<std::pair<std::u16string, std::u16string>, int> _ids; // by URI and local name
    std::vector<std::vector<Spelling>> _spellings;                 // by number; the same names as in _ids
    std::vector<Spelling> _noSpellings;
};

} // namespace QV::FilterUtils
