#pragma once

/// @file
/// Names of plain tags, and what they stand for. Private to the library.

#include <array>
#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include <boost/optional.hpp>

#include <FilterUtils/FU_XMLVocabulary.h>

namespace QV::FilterUtils {

/// The name of an element or an attribute, with its number in the vocabulary.
struct XMLName
{
    int id;
    std::u16string uri; // empty: no namespace
    std::u16string localName;
    bool isSpent = false; // it counts among the different names of elements
};

enum class XMLNameKind
{
    Element,
    Attribute
};

/// Resolves names, and remembers them: equal names are one object, which lives as long as this.
class XMLPlainNames
{
public:
    /// Gives a prefix' namespace as it is in force now.
    using FindNamespace = std::function<boost::optional<std::u16string_view>(std::u16string_view prefix)>;

    XMLPlainNames(const XMLVocabulary& vocabulary, FindNamespace findNamespace);

    /// Null where the prefix is not declared or reserved, where the name or its namespace is very long, and
    /// where there are too many names already.
    XMLName* find(XMLNameKind kind, std::string_view qualifiedName);

    /// Namespaces have been declared, or are no longer in force.
    void forgetNamespaces();

private:
    struct Slot
    {
        std::array<char, 23> text;
        unsigned char length; // 0: unused
        XMLName* name;
    };
    static constexpr std::size_t SlotCount = 256;

    XMLName* resolve(XMLNameKind kind, std::string_view qualifiedName);

    const XMLVocabulary& _vocabulary;
    FindNamespace _findNamespace;
    std::map<std::pair<std::u16string, std::u16string>, XMLName> _names; // by URI and local name
    std::array<std::array<Slot, SlotCount>, 2> _slots{};                 // by kind
};

} // namespace QV::FilterUtils
