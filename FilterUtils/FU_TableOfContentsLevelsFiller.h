#pragma once

/// @file
/// What a table of contents lists, level by level; and the bookmarks that its entries lead to.

#include <memory>
#include <string>
#include <vector>

#include <boost/container/map.hpp>
#include <boost/container/set.hpp>

#include <DOM/Public/PredefinedStyleName.h>
#include <FilterUtils/FU_Export.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {
class NamedTextStyle;
class TableOfContentsInfo;
} // namespace QV::DOM

namespace QV::FilterUtils {

class NamedStylesFactory;

/// Fills the record of one table of contents while its field is read.
///
///     TableOfContentsLevelsFiller filler(contents.getInfo(), styles, newStyles, predefinedStyles);
///     filler.addTableOfContentsLevel(filler.findOrCreatePredefinedStyle(PredefinedStyleName::Heading1), 1);
///     filler.addTableOfContentsLevel(4);    // a level without a style
///
/// All that the constructor takes is borrowed and lives at least as long as the filler. For one thread at a
/// time.
class FILTERUTILS_API TableOfContentsLevelsFiller
{
public:
    using NewStyles = std::vector<std::shared_ptr<const DOM::NamedTextStyle>>;
    using PredefinedStyles =
        boost::container::map<DOM::PredefinedStyleName, std::shared_ptr<const DOM::NamedTextStyle>>;

    /// @param newStyles receives the styles that are made here
    /// @param predefinedStyles those of the document so far, none of them null; the ones that are made here
    ///     are added
    TableOfContentsLevelsFiller(DOM::TableOfContentsInfo& tableOfContents, NamedStylesFactory& stylesFactory,
        NewStyles& newStyles, PredefinedStyles& predefinedStyles);

    /// Shows the level: as it was shown before, or else as a new one is.
    void addTableOfContentsLevel(unsigned long level);

    /// Lists the paragraphs of a style on that level, and shows the level. A style stays on the first level
    /// that this filler gave it; the other level is shown all the same.
    ///
    /// Asserts "styleUUID" where it is nil; nothing changes then where the handler returns.
    void addTableOfContentsLevel(const UUID& styleUUID, unsigned long level);

    /// The identifier of the predefined style of that name. Where the document has none, it has afterwards.
    UUID findOrCreatePredefinedStyle(DOM::PredefinedStyleName name);

private:
    void addLevel(unsigned long level);

    DOM::TableOfContentsInfo& _tableOfContents;
    NamedStylesFactory& _stylesFactory;
    NewStyles& _newStyles;
    PredefinedStyles& _predefinedStyles;
    boost::container::set<UUID> _registeredStyleUUIDs;
};

/// Whether a bookmark is of those that word processors make for the entries of tables of contents.
///
///     NAME ::= "_Toc" DIGIT+ | "__RefHeading___Toc" DIGIT+ "_" DIGIT+
///            | FieldsEngine::GeneratedBookmarkPrefix DIGIT+
///
/// Safe to call from any thread.
FILTERUTILS_API bool isTableOfContentsBookmark(const std::string& name);

} // namespace QV::FilterUtils
