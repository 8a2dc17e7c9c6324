#pragma once

/// @file
/// What placeholders of slides take over from those of layouts, and these from those of masters.

#include <cstddef>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/Shape.h>
#include <DOM/Public/ShapeProps.h>
#include <DOM/Public/TextLevels.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/DrawnTransform.h>
#include <Filters/Package/Export.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

/// A placeholder of a layout or master, with all that it takes over itself.
struct PlaceholderSource
{
    DOM::Placeholder placeholder;
    boost::optional<DrawnTransform> transform; ///< nothing where no layer has one
    DOM::ShapeProps props;
    DOM::TextLevels
        levels; ///< those of its own list styles, and of its source's; not the master's text styles
};

/// Which text style of a master a placeholder of this type has ("title", "body", ...).
enum class TextStyleKind
{
    Title,
    Body,
    Other
};
FILTERS_API TextStyleKind getTextStyleKind(const boost::optional<DOM::Placeholder>& placeholder);

/// The placeholders of one layout or master.
class FILTERS_API PlaceholderSources
{
public:
    /// Of one part; applications make a few dozen. Each is as large as nine list levels, and searched
    /// through.
    static constexpr std::size_t SourcesMax = 1000;

    /// @return false where there are SourcesMax already: nothing is added then
    bool add(PlaceholderSource source);

    /// What a placeholder of a slide takes over from this layout: the one of its index and of its kind; where
    /// there is none, the first one of its kind, for a title, a date, a footer or a slide number, and for
    /// what has no index; where that is not there, either, the one of its index. Null for none.
    ///
    /// What has no index has 0, by which alone nothing is found; kinds are those of findForLayout.
    const PlaceholderSource* findForSlide(const DOM::Placeholder& placeholder) const;

    /// What a placeholder of a layout takes over from this master: the first one of its type, where titles
    /// ("ctrTitle"), and all kinds of content ("body", "subTitle", "obj", "pic", "chart", "tbl", ...) count
    /// as one each. Null for none.
    const PlaceholderSource* findForLayout(const DOM::Placeholder& placeholder) const;

private:
    std::vector<PlaceholderSource> _sources; // in the order of the file
};

/// Reads a p:ph element; nothing for the invalid view. Type "obj" and index 0 stand where it says nothing.
///     - "Placeholder index {} is none": 0 stands
FILTERS_API boost::optional<DOM::Placeholder> readPlaceholder(
    const FilterUtils::XMLElement& element, OperationReport& report);

} // namespace QV::Filters
