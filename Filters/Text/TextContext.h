#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional.hpp>
#include <boost/unordered_set.hpp>

#include <DOM/Public/Note.h>
#include <FilterUtils/FU_HeadersFootersFactory.h>
#include <Filters/Package/Colors.h>
#include <Filters/Package/Export.h>
#include <Filters/Package/MessageCounts.h>
#include <Filters/Package/PartPictures.h>
#include <Filters/Text/TextNumbering.h>
#include <Filters/Text/TextStyles.h>
#include <Filters/Text/TextTheme.h>
#include <Utils/Public/OperationReport.h>
#include <Utils/Public/UUID.h>

namespace QV::Filters {

class FilterRun;
class Package;

/// A note of the document: its kind, and its id in its part.
using NoteKey = std::pair<DOM::Note::Kind, std::string>;

/// What the readers of one text document share.
struct TextContext
{
    TextContext(Package& thePackage, FilterRun& theRun)
        : package(thePackage)
        , run(theRun)
        , pictures(thePackage, theRun)
    {
    }

    Package& package;
    FilterRun& run;
    PartPictures pictures;
    Colors colors;
    TextTheme theme;
    TextStyles styles;
    TextNumbering numbering;
    FilterUtils::HeadersFootersFactory headersFooters;
    std::size_t drawnObjectsLeft = 100'000;    ///< that drawings may still have
    unsigned long wideColumnsLeft = 1'000'000; ///< that tables may still have because cells span so many
    /// The text styles that give tab stops, by themselves or by their ancestors; once a header asks.
    boost::optional<boost::unordered_set<UUID>> tabbedStyles;
    MessageCounts messages;         ///< of what may be told very often, see report()
    std::map<NoteKey, UUID> notes;  ///< that the text referred to so far, with the identifiers they get
    std::vector<NoteKey> noteOrder; ///< their keys, in the order of the first reference

    /// The identifier of a note that the text refers to, made with the first reference.
    FILTERS_API const UUID& referToNote(const NoteKey& key);

    /// Reports a message that a document may hold very often: a thousand of a pattern are told.
    template <typename... Arguments>
    void report(const char* pattern, const Arguments&... arguments)
    {
        if (messages.add(pattern))
            getReport().emplace_back(pattern, arguments...);
    }

    FILTERS_API OperationReport& getReport();
};

} // namespace QV::Filters
