#include <FilterUtils/FU_StyleHierarchy.h>

namespace QV::DOM {
namespace {

template <typename Named>
const Named* findStyle(const Styles& styles, const UUID& uuid);

template <>
const NamedTextStyle* findStyle<NamedTextStyle>(const Styles& styles, const UUID& uuid)
{
    return styles.getTextStyles().find(uuid);
}

template <>
const NamedTableStyle* findStyle<NamedTableStyle>(const Styles& styles, const UUID& uuid)
{
    const auto found = styles.getTableStyles().find(uuid);
    return found == styles.getTableStyles().end() ? nullptr : &found->second;
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
    const bool isTracked =
        hasBits(mode, TrackChangesViewMode::FollowTrackedParents) && style.getTrackedParent();
    const NamedTextStyle* const ancestor =
        isTracked ? findStyle<NamedTextStyle>(styles, *style.getTrackedParent()) : getParent(styles, style);
    overrideWithParentStyles(
        styles, result, ancestor, [](const NamedTextStyle& named) { return named.getRunProps(); });
    override(result, getOwnRunProps(style, mode));
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
template void override<RunProps>(std::shared_ptr<RunProps>&, const std::shared_ptr<const RunProps>&);
template void override<BordersProps>(
    std::shared_ptr<BordersProps>&, const std::shared_ptr<const BordersProps>&);
template void overrideRunPropsWithTracked<Styles, RunStyle>(
    const Styles&, std::shared_ptr<RunProps>&, const RunStyle&, TrackChangesViewMode);
template void overrideRunPropsWithTracked<Styles, ParagraphStyle>(
    const Styles&, std::shared_ptr<RunProps>&, const ParagraphStyle&, TrackChangesViewMode);

} // namespace QV::DOM
