#include <FilterUtils/FU_NamedStylesFactory.h>

#include <utility>

#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/PredefinedTextStyles.h>
#include <DOM/Public/Properties.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/TrackChangesViewMode.h>
#include <FilterUtils/FU_StyleHierarchy.h>
#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::FilterUtils {

NamedStylesFactory::NamedStylesFactory() = default;

ReadonlyVector<std::shared_ptr<DOM::NamedTextStyle>> NamedStylesFactory::getTextStyles() const
{
    return ReadonlyVector<std::shared_ptr<DOM::NamedTextStyle>>(_textStyles);
}

NamedStylesFactory::TextStyles& NamedStylesFactory::getTextStyles()
{
    return _textStyles;
}

ReadonlyVector<std::shared_ptr<DOM::NamedTableStyle>> NamedStylesFactory::getTableStyles() const
{
    return ReadonlyVector<std::shared_ptr<DOM::NamedTableStyle>>(_tableStyles);
}

NamedStylesFactory::TableStyles& NamedStylesFactory::getTableStyles()
{
    return _tableStyles;
}

std::shared_ptr<DOM::NamedTextStyle> NamedStylesFactory::makeNamedTextStyle(
    boost::optional<DOM::PredefinedStyleName> name)
{
    _textStyles.push_back(name ? std::make_shared<DOM::NamedTextStyle>(DOM::makePredefinedTextStyle(*name))
                               : std::make_shared<DOM::NamedTextStyle>());
    return _textStyles.back();
}

std::shared_ptr<DOM::NamedTableStyle> NamedStylesFactory::makeNamedTableStyle()
{
    _tableStyles.push_back(std::make_shared<DOM::NamedTableStyle>());
    return _tableStyles.back();
}

UUID NamedStylesFactory::getDefaultParagraphStyleUUID() const
{
    return _defaultParagraphStyle.getParentUUID();
}

void NamedStylesFactory::setDefaultParagraphStyleUUID(UUID uuid)
{
    _defaultParagraphStyle.setParentUUID(uuid);
}

const DOM::ParagraphStyle& NamedStylesFactory::getDefaultParagraphStyle() const
{
    return _defaultParagraphStyle;
}

UUID NamedStylesFactory::getDefaultTableStyleUUID() const
{
    return _defaultTableStyle.getParentUUID();
}

void NamedStylesFactory::setDefaultTableStyleUUID(UUID uuid)
{
    _defaultTableStyle.setParentUUID(uuid);
}

const DOM::TableStyle& NamedStylesFactory::getDefaultTableStyle() const
{
    return _defaultTableStyle;
}

UUID NamedStylesFactory::getDefaultCellStyleUUID() const
{
    return _defaultCellStyle.getParentUUID();
}

void NamedStylesFactory::setDefaultCellStyleUUID(UUID uuid)
{
    _defaultCellStyle.setParentUUID(uuid);
}

const DOM::CellStyle& NamedStylesFactory::getDefaultCellStyle() const
{
    return _defaultCellStyle;
}

const std::shared_ptr<const DOM::ParaProps>& NamedStylesFactory::getDefaultParaProps() const
{
    return _defaultParaProps;
}

void NamedStylesFactory::setDefaultParaProps(std::shared_ptr<const DOM::ParaProps> props)
{
    _defaultParaProps = std::move(props);
}

const std::shared_ptr<const DOM::RunProps>& NamedStylesFactory::getDefaultRunProps() const
{
    return _defaultRunProps;
}

void NamedStylesFactory::setDefaultRunProps(std::shared_ptr<const DOM::RunProps> props)
{
    _defaultRunProps = std::move(props);
}

bool isHidden(const NamedStylesFactory& styles,
    const boost::container::set<std::shared_ptr<const DOM::RunProps>>& hiddenProps,
    const DOM::RunStyle& runStyle, const DOM::ParagraphStyle& paragraphStyle)
{
    const auto areHidden = [&](const std::shared_ptr<const DOM::RunProps>& props) {
        return hiddenProps.find(props) != hiddenProps.end();
    };
    const auto isChainHidden = [&](const DOM::NamedTextStyle* nearest) {
        for (const DOM::NamedTextStyle* style = nearest; style; style = getParent(styles, *style))
            if (areHidden(style->getRunProps()))
                return true;
        return false;
    };
    return areHidden(runStyle.getRunProps()) || areHidden(paragraphStyle.getRunProps()) ||
           isChainHidden(getParent(styles, paragraphStyle)) || isChainHidden(getParent(styles, runStyle));
}

void stripNumRef(const NamedStylesFactory& styles, DOM::Paragraph& paragraph)
{
    if (!paragraph.getNumRef())
        return;
    // Without its own numbering, the paragraph shows what its styles give.
    std::unique_ptr<DOM::NumberingRef> own = std::move(paragraph.getNumRef());
    const std::unique_ptr<DOM::NumberingRef> given =
        getOverridenNumRefWithTracked(styles, paragraph, DOM::TrackChangesViewMode::FollowTrackedParents);
    if (given) {
        exclude(*own, *given);
        if (isEmpty(own))
            own.reset();
    }
    paragraph.setNumRef(std::move(own));
}

void setNamedTextStyleType(
    boost::container::map<DOM::PredefinedStyleName, std::shared_ptr<const DOM::NamedTextStyle>>&
        predefinedStyles,
    std::shared_ptr<DOM::NamedTextStyle>& style, const std::string& name,
    const boost::container::map<std::string, DOM::PredefinedStyleName, CaseInsensitiveLess>& namesToTypes)
{
    const auto found = namesToTypes.find(name);
    if (found == namesToTypes.end() || predefinedStyles.find(found->second) != predefinedStyles.end())
        return;
    const DOM::PredefinedStyleName type = found->second;
    DOM::NamedTextStyle& changed = deref(style);
    changed.setUUID(DOM::makePredefinedTextStyleUUID(type));
    changed.setName(type);
    predefinedStyles.emplace(type, style);
}

UUID findParentUUID(const boost::unordered_map<std::string, UUID>& namesToUUIDs, const std::string& name)
{
    const auto found = namesToUUIDs.find(name);
    return found == namesToUUIDs.end() ? UUID() : found->second;
}

} // namespace QV::FilterUtils
