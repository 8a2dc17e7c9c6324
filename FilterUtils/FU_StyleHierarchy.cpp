#include <FilterUtils/FU_StyleHierarchy.h>

#include <type_traits>

#include <DOM/Public/GetByUUID.h>
#include <DOM/Public/Paragraph.h>
#include <FilterUtils/FU_NamedStylesFactory.h>

namespace QV::DOM {
namespace {

template <typename Named>
const Named* findStyle(const Styles& styles, const UUID& uuid)
{
    if constexpr (std::is_same_v<Named, NamedTextStyle>) {
        return styles.getTextStyles().find(uuid);
    } else {
        const auto found = styles.getTableStyles().find(uuid);
        return found == styles.getTableStyles().end() ? nullptr : &found->second;
    }
}

template <typename Named>
const Named* findStyle(const FilterUtils::NamedStylesFactory& styles, const UUID& uuid)
{
    if constexpr (std::is_same_v<Named, NamedTextStyle>)
        return getByUUID(styles.getTextStyles(), uuid);
    else
        return getByUUID(styles.getTableStyles(), uuid);
}

/// The nearest named style of a run's or a paragraph's style, as @p mode sees it; null where there is none.
template <typename C, typename S>
const NamedTextStyle* findFirstAncestor(const C& styles, const S& style, TrackChangesViewMode mode)
{
    if (hasBits(mode, TrackChangesViewMode::FollowTrackedParents) && style.getTrackedParent())
        return findStyle<NamedTextStyle>(styles, *style.getTrackedParent());
    return getParent(styles, style);
}

const std::shared_ptr<const RunProps>& getOwnRunProps(const RunStyle& style, TrackChangesViewMode mode)
{
    return getRunPropsForViewMode(style, mode);
}

const std::shared_ptr<const RunProps>& getOwnRunProps(const ParagraphStyle& style, TrackChangesViewMode)
{
    return style.getRunProps();
}

} // namespace

template <typename C, typename S>
const typename NamedStyleOf<S>::Type* getParent(const C& styles, const S& style)
{
    return findStyle<typename NamedStyleOf<S>::Type>(styles, style.getParentUUID());
}

template <typename C, typename S>
void overrideRunPropsWithTracked(
    const C& styles, std::shared_ptr<RunProps>& result, const S& style, TrackChangesViewMode mode)
{
    overrideWithParentStyles(styles, result, findFirstAncestor(styles, style, mode),
        [](const NamedTextStyle& named) -> const std::shared_ptr<const RunProps>& {
            return named.getRunProps();
        });
    override(result, getOwnRunProps(style, mode));
}

template <typename C, typename P>
std::unique_ptr<NumberingRef> getOverridenNumRefWithTracked(
    const C& styles, const P& paragraph, TrackChangesViewMode mode)
{
    const NamedTextStyle* ancestor =
        findFirstAncestor(styles, getStyleFromContainer(paragraph, styles), mode);
    if (!ancestor)
        ancestor = findStyle<NamedTextStyle>(styles, styles.getDefaultParagraphStyle().getParentUUID());
    std::unique_ptr<NumberingRef> result;
    overrideWithParentStyles(
        styles, result, ancestor, [](const NamedTextStyle& named) -> const std::unique_ptr<NumberingRef>& {
            return named.getNumRef();
        });
    override(result, paragraph.getNumRef());
    if (isEmpty(result))
        return nullptr;
    return result;
}

template const NamedTextStyle* getParent<Styles, ParagraphStyle>(const Styles&, const ParagraphStyle&);
template const NamedTextStyle* getParent<Styles, RunStyle>(const Styles&, const RunStyle&);
template const NamedTextStyle* getParent<Styles, NamedTextStyle>(const Styles&, const NamedTextStyle&);
template const NamedTableStyle* getParent<Styles, NamedTableStyle>(const Styles&, const NamedTableStyle&);
template const NamedTableStyle* getParent<Styles, TableStyle>(const Styles&, const TableStyle&);
template const NamedTableStyle* getParent<Styles, CellStyle>(const Styles&, const CellStyle&);
template const NamedTextStyle* getParent<const Styles, ParagraphStyle>(const Styles&, const ParagraphStyle&);
template const NamedTextStyle* getParent<const Styles, RunStyle>(const Styles&, const RunStyle&);
template const NamedTextStyle* getParent<const Styles, NamedTextStyle>(const Styles&, const NamedTextStyle&);
template const NamedTableStyle* getParent<const Styles, NamedTableStyle>(
    const Styles&, const NamedTableStyle&);
template const NamedTextStyle* getParent<FilterUtils::NamedStylesFactory, ParagraphStyle>(
    const FilterUtils::NamedStylesFactory&, const ParagraphStyle&);
template const NamedTextStyle* getParent<FilterUtils::NamedStylesFactory, RunStyle>(
    const FilterUtils::NamedStylesFactory&, const RunStyle&);
template const NamedTextStyle* getParent<FilterUtils::NamedStylesFactory, NamedTextStyle>(
    const FilterUtils::NamedStylesFactory&, const NamedTextStyle&);
template const NamedTableStyle* getParent<FilterUtils::NamedStylesFactory, NamedTableStyle>(
    const FilterUtils::NamedStylesFactory&, const NamedTableStyle&);
template const NamedTableStyle* getParent<FilterUtils::NamedStylesFactory, TableStyle>(
    const FilterUtils::NamedStylesFactory&, const TableStyle&);
template const NamedTableStyle* getParent<FilterUtils::NamedStylesFactory, CellStyle>(
    const FilterUtils::NamedStylesFactory&, const CellStyle&);
template void override<RunProps>(std::shared_ptr<RunProps>&, const std::shared_ptr<const RunProps>&);
template void override<BordersProps>(
    std::shared_ptr<BordersProps>&, const std::shared_ptr<const BordersProps>&);
template void override<NumberingRef>(std::unique_ptr<NumberingRef>&, const std::unique_ptr<NumberingRef>&);
template void overrideRunPropsWithTracked<Styles, RunStyle>(
    const Styles&, std::shared_ptr<RunProps>&, const RunStyle&, TrackChangesViewMode);
template void overrideRunPropsWithTracked<Styles, ParagraphStyle>(
    const Styles&, std::shared_ptr<RunProps>&, const ParagraphStyle&, TrackChangesViewMode);
template void overrideRunPropsWithTracked<FilterUtils::NamedStylesFactory, RunStyle>(
    const FilterUtils::NamedStylesFactory&, std::shared_ptr<RunProps>&, const RunStyle&,
    TrackChangesViewMode);
template void overrideRunPropsWithTracked<FilterUtils::NamedStylesFactory, ParagraphStyle>(
    const FilterUtils::NamedStylesFactory&, std::shared_ptr<RunProps>&, const ParagraphStyle&,
    TrackChangesViewMode);
template std::unique_ptr<NumberingRef> getOverridenNumRefWithTracked<Styles, Paragraph>(
    const Styles&, const Paragraph&, TrackChangesViewMode);
template std::unique_ptr<NumberingRef>
getOverridenNumRefWithTracked<FilterUtils::NamedStylesFactory, Paragraph>(
    const FilterUtils::NamedStylesFactory&, const Paragraph&, TrackChangesViewMode);

} // namespace QV::DOM
