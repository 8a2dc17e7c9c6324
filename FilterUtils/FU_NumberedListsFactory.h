#pragma once

/// @file
/// The lists of a text document while it is read, what kind of list they are, and paragraphs that say that
/// they belong to none.

#include <memory>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/NumberedList.h>
#include <FilterUtils/FU_Export.h>

namespace QV::DOM {
class NumberingRef;
} // namespace QV::DOM

namespace QV::FilterUtils {

/// Makes and keeps the lists of a document, in the order in which they were made. It owns them together with
/// whoever made them. For one reader at a time.
class FILTERUTILS_API NumberedListsFactory
{
public:
    using NumberedLists = std::vector<std::shared_ptr<DOM::NumberedList>>;

    /// A new list without levels, which stands last from now on.
    std::shared_ptr<DOM::NumberedList> makeNumberedList();

    /// No null entries.
    const NumberedLists& getNumberedLists() const;
    NumberedLists& getNumberedLists();

private:
    NumberedLists _numberedLists;
};

/// What kind of list one with these levels is called: its last level tells. Numbered where that one counts
/// up to NumListMarkerType::LowerLetter, Bulleted for the bullets behind it; nothing for markers of any later
/// kind or of none, and where there is no level.
///
/// The last level and its marker must be there: asserts "plainPtr", and gives nothing where the handler
/// returns.
FILTERUTILS_API boost::optional<DOM::NumListNameType> getNumberedListNameType(
    const std::vector<std::unique_ptr<DOM::NumberingLevel>>& levels);

/// What says of a paragraph that it has no numbering, whatever its styles give: nil identifiers, and level 0.
FILTERUTILS_API std::unique_ptr<DOM::NumberingRef> makeRemovedNumRef();

/// Whether the list is set to the nil one; tag and level may be any.
FILTERUTILS_API bool isRemovedNumRef(const DOM::NumberingRef& reference);

} // namespace QV::FilterUtils
