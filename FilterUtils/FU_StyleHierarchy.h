#pragma once

/// @file
/// Chains of named styles, and what folds along them: each style names its parent, and the nearer a style is
/// to the one that asks, the more it wins.
///
///     std::shared_ptr<DOM::RunProps> props;
///     overrideRunPropsWithTracked(styles, props, run.getStyle(), mode); // null where nothing is set
///
/// @c C is what holds the named styles: DOM::Styles, or the NamedStylesFactory of a document that is being
/// read. A parent that is not there ends a chain quietly. No walk looks for circles of parents: who takes
/// parents from a file must not make any.
///
/// The operations live with the document model's own; they are found in both namespaces.

#include <memory>

#include <boost/container/small_vector.hpp>

#include <DOM/Public/BordersProps.h> // IWYU pragma: keep
#include <DOM/Public/CellStyle.h>
#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/NumberingRef.h>   // IWYU pragma: keep
#include <DOM/Public/ParagraphStyle.h> // IWYU pragma: keep
#include <DOM/Public/Properties.h>     // IWYU pragma: keep
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h> // IWYU pragma: keep
#include <DOM/Public/Styles.h>   // IWYU pragma: keep
#include <DOM/Public/TableStyle.h>
#include <DOM/Public/TrackChangesViewMode.h>
#include <FilterUtils/FU_Export.h>
#include <Utils/Public/Ptr/PtrUtils.h>
#include <Utils/Public/UUID.h> // IWYU pragma: keep

namespace QV::FilterUtils {
class NamedStylesFactory;
} // namespace QV::FilterUtils

namespace QV::DOM {

class Paragraph;

/// The kind of named style that a style of kind @p S derives from.
template <typename S>
struct NamedStyleOf
{
    using Type = NamedTextStyle;
};

template <>
struct NamedStyleOf<NamedTableStyle>
{
    using Type = NamedTableStyle;
};

template <>
struct NamedStyleOf<TableStyle> : NamedStyleOf<NamedTableStyle>
{
};

template <>
struct NamedStyleOf<CellStyle> : NamedStyleOf<NamedTableStyle>
{
};

/// The named style that @p style derives from; null where it derives from none, or from one that is not
/// there. O(log n) for the n styles of DOM::Styles; O(n) for those of a factory, the first of which wins
/// where two have one identifier.
template <typename C, typename S>
const typename NamedStyleOf<S>::Type* getParent(const C& styles, const S& style);

/// Calls @p f with each style of the chain that begins with @p start: the root first, @p start last. Does
/// nothing for a null pointer.
template <typename C, typename S, typename F>
void forEachStyleInHierarchy(const C& styles, const S* start, F&& f)
{
    if (!start)
        return;
    boost::container::small_vector<const S*, 16> chain;
    for (const S* style = start; style; style = getParent(styles, *style))
        chain.push_back(style);
    for (auto style = chain.rbegin(); style != chain.rend(); ++style)
        f(deref(*style));
}

/// Lays @p source over @p target: a null source changes nothing, a null target becomes a copy of the source,
/// and else the fields that the source sets replace those of the target's object.
template <typename Props>
void override(std::shared_ptr<Props>& target, const std::shared_ptr<const Props>& source)
{
    if (!source)
        return;
    if (target)
        override(*target, *source);
    else
        target = std::make_shared<Props>(*source);
}

/// The same for objects with one owner.
template <typename Props>
void override(std::unique_ptr<Props>& target, const std::unique_ptr<Props>& source)
{
    if (!source)
        return;
    if (target)
        override(*target, *source);
    else
        target = std::make_unique<Props>(*source);
}

/// Lays what @p getter gives for each style of the chain that begins with @p start over @p accumulated, the
/// root's first.
template <typename C, typename T, typename S, typename G>
void overrideWithParentStyles(const C& styles, T& accumulated, const S* start, G getter)
{
    forEachStyleInHierarchy(styles, start, [&](const S& style) { override(accumulated, getter(style)); });
}

/// Lays the run properties of a run's or a paragraph's style over @p result: those of its named styles, the
/// root first, then its own. With TrackChangesViewMode::FollowTrackedParents, a tracked parent stands in for
/// the present one. @p result stays null where nothing is set.
template <typename C, typename S>
void overrideRunPropsWithTracked(
    const C& styles, std::shared_ptr<RunProps>& result, const S& style, TrackChangesViewMode mode);

/// The list and level of a paragraph: what its named styles give, the root first, then its own. With
/// TrackChangesViewMode::FollowTrackedParents, a tracked parent stands in for the present one; the default
/// paragraph style stands in where there is neither. Null where nothing is set.
template <typename C, typename P>
std::unique_ptr<NumberingRef> getOverridenNumRefWithTracked(
    const C& styles, const P& paragraph, TrackChangesViewMode mode);

extern template FILTERUTILS_API const NamedTextStyle* getParent<Styles, ParagraphStyle>(
    const Styles& styles, const ParagraphStyle& style);
extern template FILTERUTILS_API const NamedTextStyle* getParent<Styles, RunStyle>(
    const Styles& styles, const RunStyle& style);
extern template FILTERUTILS_API const NamedTextStyle* getParent<Styles, NamedTextStyle>(
    const Styles& styles, const NamedTextStyle& style);
extern template FILTERUTILS_API const NamedTableStyle* getParent<Styles, NamedTableStyle>(
    const Styles& styles, const NamedTableStyle& style);
extern template FILTERUTILS_API const NamedTableStyle* getParent<Styles, TableStyle>(
    const Styles& styles, const TableStyle& style);
extern template FILTERUTILS_API const NamedTableStyle* getParent<Styles, CellStyle>(
    const Styles& styles, const CellStyle& style);
extern template FILTERUTILS_API const NamedTextStyle* getParent<const Styles, ParagraphStyle>(
    const Styles& styles, const ParagraphStyle& style);
extern template FILTERUTILS_API const NamedTextStyle* getParent<const Styles, RunStyle>(
    const Styles& styles, const RunStyle& style);
extern template FILTERUTILS_API const NamedTextStyle* getParent<const Styles, NamedTextStyle>(
    const Styles& styles, const NamedTextStyle& style);
extern template FILTERUTILS_API const NamedTableStyle* getParent<const Styles, NamedTableStyle>(
    const Styles& styles, const NamedTableStyle& style);
extern template FILTERUTILS_API const NamedTextStyle*
getParent<FilterUtils::NamedStylesFactory, ParagraphStyle>(
    const FilterUtils::NamedStylesFactory& styles, const ParagraphStyle& style);
extern template FILTERUTILS_API const NamedTextStyle* getParent<FilterUtils::NamedStylesFactory, RunStyle>(
    const FilterUtils::NamedStylesFactory& styles, const RunStyle& style);
extern template FILTERUTILS_API const NamedTextStyle*
getParent<FilterUtils::NamedStylesFactory, NamedTextStyle>(
    const FilterUtils::NamedStylesFactory& styles, const NamedTextStyle& style);
extern template FILTERUTILS_API const NamedTableStyle*
getParent<FilterUtils::NamedStylesFactory, NamedTableStyle>(
    const FilterUtils::NamedStylesFactory& styles, const NamedTableStyle& style);
extern template FILTERUTILS_API const NamedTableStyle* getParent<FilterUtils::NamedStylesFactory, TableStyle>(
    const FilterUtils::NamedStylesFactory& styles, const TableStyle& style);
extern template FILTERUTILS_API const NamedTableStyle* getParent<FilterUtils::NamedStylesFactory, CellStyle>(
    const FilterUtils::NamedStylesFactory& styles, const CellStyle& style);
extern template FILTERUTILS_API void override<RunProps>(
    std::shared_ptr<RunProps>& target, const std::shared_ptr<const RunProps>& source);
extern template FILTERUTILS_API void override<BordersProps>(
    std::shared_ptr<BordersProps>& target, const std::shared_ptr<const BordersProps>& source);
extern template FILTERUTILS_API void override<NumberingRef>(
    std::unique_ptr<NumberingRef>& target, const std::unique_ptr<NumberingRef>& source);
extern template FILTERUTILS_API void overrideRunPropsWithTracked<Styles, RunStyle>(const Styles& styles,
    std::shared_ptr<RunProps>& result, const RunStyle& style, TrackChangesViewMode mode);
extern template FILTERUTILS_API void overrideRunPropsWithTracked<Styles, ParagraphStyle>(const Styles& styles,
    std::shared_ptr<RunProps>& result, const ParagraphStyle& style, TrackChangesViewMode mode);
extern template FILTERUTILS_API void overrideRunPropsWithTracked<FilterUtils::NamedStylesFactory, RunStyle>(
    const FilterUtils::NamedStylesFactory& styles, std::shared_ptr<RunProps>& result, const RunStyle& style,
    TrackChangesViewMode mode);
extern template FILTERUTILS_API void
overrideRunPropsWithTracked<FilterUtils::NamedStylesFactory, ParagraphStyle>(
    const FilterUtils::NamedStylesFactory& styles, std::shared_ptr<RunProps>& result,
    const ParagraphStyle& style, TrackChangesViewMode mode);
extern template FILTERUTILS_API std::unique_ptr<NumberingRef>
getOverridenNumRefWithTracked<Styles, Paragraph>(
    const Styles& styles, const Paragraph& paragraph, TrackChangesViewMode mode);
extern template FILTERUTILS_API std::unique_ptr<NumberingRef>
getOverridenNumRefWithTracked<FilterUtils::NamedStylesFactory, Paragraph>(
    const FilterUtils::NamedStylesFactory& styles, const Paragraph& paragraph, TrackChangesViewMode mode);

} // namespace QV::DOM

namespace QV::FilterUtils {

using DOM::forEachStyleInHierarchy;
using DOM::getOverridenNumRefWithTracked;
using DOM::getParent;
using DOM::override;
using DOM::overrideRunPropsWithTracked;
using DOM::overrideWithParentStyles;

} // namespace QV::FilterUtils
