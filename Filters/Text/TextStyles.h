#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <boost/container/map.hpp>
#include <boost/container/set.hpp>
#include <boost/unordered_map.hpp>

#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/PredefinedStyleName.h>
#include <DOM/Public/RunProps.h>
#include <FilterUtils/FU_NamedStylesFactory.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>
#include <Filters/Text/TableConditions.h>
#include <Utils/Public/UUID.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

class FormatReader;
class Names;
class TextNumbering;

/// The styles of a text document as they come to be, and by which ids its parts refer to them.
struct TextStyles
{
    using PredefinedStyles =
        boost::container::map<DOM::PredefinedStyleName, std::shared_ptr<const DOM::NamedTextStyle>>;

    FilterUtils::NamedStylesFactory factory;
    boost::unordered_map<std::string, UUID> textStyleIds;        ///< of paragraph and character styles
    boost::unordered_map<std::string, UUID> tableStyleIds;       ///< of table styles
    boost::unordered_map<UUID, TableConditions> tableConditions; ///< by the table style; where there are any
    PredefinedStyles predefinedStyles;                           ///< those of the document, by their names
    std::vector<std::shared_ptr<const DOM::NamedTextStyle>> newStyles; ///< made though no part has them

    /// Properties with the hidden attribute, of styles, paragraphs and runs.
    boost::container::set<std::shared_ptr<const DOM::RunProps>> hiddenProps;
};

/// Reads a styles part's root element into @p styles: document defaults, paragraph, character and table
/// styles with their parents, and the default styles. Of styles of one id the last one stays, as in word
/// processors. Circles of parents are broken where they close; chains deeper than 100 styles end there. Both
/// are reported:
///     - "Style {} derives from itself"
///     - "Style {} has too many ancestors"
///     - "Style {} derives from {}, which is not there"
///     - "Style {} is defined more than once"
///     - "Styles beyond {} are left out": after 20,000
///     - "Name of a style is cut at {} bytes": after 1,024
///
/// Numbering of styles is noted in @p numbering, since its part is read later: the styles get their
/// references by applyStyleNumbering.
FILTERS_API void readTextStyles(const FilterUtils::XMLElement& root, const Names& names,
    const FormatReader& formats, TextNumbering& numbering, TextStyles& styles, OperationReport& report);

} // namespace QV::Filters
