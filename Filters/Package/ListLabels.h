#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include <DOM/Public/NumberedList.h>
#include <DOM/Public/NumberingRef.h>
#include <Filters/Package/Export.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {
class Document;
}

namespace QV::Filters {

/// A number as a marker of this type writes it, such as "iv" or "AB": nothing for a bullet or no number.
/// ECMA-376 Part 1, 17.18.59, describes the systems. Numbers that a system cannot write are decimal: below 0;
/// 0 where the system counts from 1 (roman numbers, letters, symbols, Chinese counting); roman ones above
/// 32,767; letters and symbols that would be repeated more than a hundred times; words above 999,999,999,
/// which are English; circled ones above 20; Chinese ones above 99,999.
FILTERS_API std::string formatListNumber(long number, DOM::NumListMarkerType type);

/// Counts the items of one story in reading order, and makes their labels.
///
///     ListLabels labels(document);
///     labels.next(*reference); // "1.2."
class FILTERS_API ListLabels
{
public:
    explicit ListLabels(const DOM::Document& document)
        : _document(document)
    {
    }

    /// The label of the next item; empty where its list is not there, or gives none. A level that had no item
    /// yet counts as its first one in labels of deeper levels; "%3" and the like of deeper levels than the
    /// item's own stand for nothing. Numbers end at the largest one, labels after 1,024 bytes.
    /// @param reference the effective one of the item's paragraph
    std::string next(const DOM::NumberingRef& reference);

private:
    struct Level
    {
        long number = 0;       // of the last item
        bool isActive = false; // whether there was an item since the level was restarted
    };
    using Levels = std::vector<Level>;

    void count(const DOM::NumberedList& list, std::size_t level, Levels& levels);
    bool isRestartedHere(const DOM::NumberedList& list, std::size_t level);

    const DOM::Document& _document;
    std::map<UUID, Levels> _counts;           // by list tag
    std::map<UUID, std::vector<bool>> _begun; // by list: which restarted levels have had an item
};

} // namespace QV::Filters
