#pragma once

/// @file
/// The named styles of a text document while it is read, and what its reader asks of them. The chains of
/// parents stand in FU_StyleHierarchy.h.

#include <memory>
#include <string>
#include <vector>

#include <boost/container/map.hpp>
#include <boost/container/set.hpp>
#include <boost/optional.hpp>
#include <boost/unordered_map.hpp>

#include <DOM/Public/CellStyle.h>
#include <DOM/Public/NamedTextStyle.h> // IWYU pragma: keep
#include <DOM/Public/ParaProps.h>      // IWYU pragma: keep
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/PredefinedStyleName.h>
#include <DOM/Public/RunProps.h> // IWYU pragma: keep
#include <DOM/Public/TableStyle.h>
#include <FilterUtils/FU_Export.h>
#include <Utils/Public/CaseInsensitiveLess.h>
#include <Utils/Public/ReadonlyVector.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {
class Paragraph;
class RunStyle;
} // namespace QV::DOM

namespace QV::FilterUtils {

/// Makes and keeps the named styles of a document, and what holds where a text names no style.
///
///     NamedStylesFactory styles;
///     const auto heading = styles.makeNamedTextStyle(DOM::PredefinedStyleName::Heading1);
///     const auto own = styles.makeNamedTextStyle(boost::none);
///     own->setParentUUID(heading->getUUID());
///     styles.setDefaultParagraphStyleUUID(own->getUUID());
///
/// Styles stay in the order in which they were made; the factory owns them together with whoever made them.
/// For one reader at a time.
class FILTERUTILS_API NamedStylesFactory
{
public:
    using TextStyles = std::vector<std::shared_ptr<DOM::NamedTextStyle>>;
    using TableStyles = std::vector<std::shared_ptr<DOM::NamedTableStyle>>;

    /// No styles, and no defaults.
    NamedStylesFactory();

    /// No null entries.
    ReadonlyVector<std::shared_ptr<DOM::NamedTextStyle>> getTextStyles() const;
    TextStyles& getTextStyles();
    ReadonlyVector<std::shared_ptr<DOM::NamedTableStyle>> getTableStyles() const;
    TableStyles& getTableStyles();

    /// A new style for paragraphs or characters, which stands last from now on: the predefined one of that
    /// name, complete and with its fixed identifier; or a blank one with an identifier of its own.
    std::shared_ptr<DOM::NamedTextStyle> makeNamedTextStyle(boost::optional<DOM::PredefinedStyleName> name);
    /// A new blank style for tables or cells, which stands last from now on.
    std::shared_ptr<DOM::NamedTableStyle> makeNamedTableStyle();

    /// The parent of the style below; nil where there is none.
    UUID getDefaultParagraphStyleUUID() const;
    void setDefaultParagraphStyleUUID(UUID uuid);
    /// The style of paragraphs that name none: its parent is the default named style.
    const DOM::ParagraphStyle& getDefaultParagraphStyle() const;

    /// As for paragraphs.
    UUID getDefaultTableStyleUUID() const;
    void setDefaultTableStyleUUID(UUID uuid);
    const DOM::TableStyle& getDefaultTableStyle() const;

    /// As for paragraphs.
    UUID getDefaultCellStyleUUID() const;
    void setDefaultCellStyleUUID(UUID uuid);
    const DOM::CellStyle& getDefaultCellStyle() const;

    /// What holds below all styles; null where nothing is said. The object is shared, not copied.
    const std::shared_ptr<const DOM::ParaProps>& getDefaultParaProps() const;
    void setDefaultParaProps(std::shared_ptr<const DOM::ParaProps> props);
    const std::shared_ptr<const DOM::RunProps>& getDefaultRunProps() const;
    void setDefaultRunProps(std::shared_ptr<const DOM::RunProps> props);

private:
    TextStyles _textStyles;
    TableStyles _tableStyles;
    DOM::ParagraphStyle _defaultParagraphStyle;
    DOM::TableStyle _defaultTableStyle;
    DOM::CellStyle _defaultCellStyle;
    std::shared_ptr<const DOM::ParaProps> _defaultParaProps;
    std::shared_ptr<const DOM::RunProps> _defaultRunProps;
};

/// Whether a run is hidden: its own properties, those of its paragraph, or those of a named style that either
/// of the two derives from are one of the objects in @p hiddenProps. Equal properties in another object do
/// not count, and neither do tracked parents.
///
/// Looks at the run first, then at the paragraph, then at the paragraph's named styles and at the run's, each
/// from the nearest to the root; and no further than to the first hidden one.
FILTERUTILS_API bool isHidden(const NamedStylesFactory& styles,
    const boost::container::set<std::shared_ptr<const DOM::RunProps>>& hiddenProps,
    const DOM::RunStyle& runStyle, const DOM::ParagraphStyle& paragraphStyle);

/// Takes away from the paragraph's own numbering what its named styles give as well, its tracked parent
/// before its present one, and the default named style where it has neither. Where nothing is left and its
/// styles give any numbering, the paragraph has none of its own afterwards.
FILTERUTILS_API void stripNumRef(const NamedStylesFactory& styles, DOM::Paragraph& paragraph);

/// Makes @p style the predefined style that @p namesToTypes has under @p name, whatever the case of ASCII
/// letters: it gets that style's fixed identifier and its name, and stands in @p predefinedStyles. Changes
/// nothing where there is no such name, or where another style stands there already.
///
/// @param style not null
FILTERUTILS_API void setNamedTextStyleType(
    boost::container::map<DOM::PredefinedStyleName, std::shared_ptr<const DOM::NamedTextStyle>>&
        predefinedStyles,
    std::shared_ptr<DOM::NamedTextStyle>& style, const std::string& name,
    const boost::container::map<std::string, DOM::PredefinedStyleName, CaseInsensitiveLess>& namesToTypes);

/// The identifier of the style with that name; nil where there is none.
FILTERUTILS_API UUID findParentUUID(
    const boost::unordered_map<std::string, UUID>& namesToUUIDs, const std::string& name);

} // namespace QV::FilterUtils
