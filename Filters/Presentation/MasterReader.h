#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <boost/unordered_map.hpp>

#include <DOM/Public/NamedShapeStyle.h>
#include <DOM/Public/ShapeProps.h>
#include <DOM/Public/TextLevels.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/DrawingColors.h>
#include <Filters/Package/DrawingTheme.h>
#include <Filters/Presentation/Placeholders.h>
#include <Filters/Presentation/ShapeTree.h>
#include <Filters/Presentation/SlideParts.h>
#include <Utils/Public/UUID.h>

namespace QV::Filters {

struct PresentationContext;

/// What the layouts of a master, and their slides, take over from it.
struct SlideMaster
{
    std::string part;                          ///< its name; empty for the blank one
    std::shared_ptr<const DrawingTheme> theme; ///< not null
    ColorScheme colors;
    MasterTextStyles textStyles;
    PlaceholderSources placeholders;
    std::shared_ptr<const DOM::ShapeProps> background; ///< null for none
};

/// What the slides of a layout take over from it.
struct SlideLayout
{
    std::string part;                          ///< its name; empty for the blank one
    std::shared_ptr<const SlideMaster> master; ///< not null; in the colours of this layout
    ColorScheme colors;
    PlaceholderSources placeholders;
    std::shared_ptr<const DOM::ShapeProps> background; ///< its own, or the master's; null for none
};

/// Reads the masters and layouts of a presentation into the document's shape styles, each part once.
///
/// Where a layout or a slide maps the names of colours otherwise than its parent, it takes over what the
/// parent says in its own colours: the title of a dark layout is light, though it is dark on the master. The
/// parent is read once more for that, and no style is made of it.
class MasterReader
{
public:
    using StyleNames = boost::unordered_map<std::string, UUID>;

    /// Ways to read masters and layouts in other colours; beyond these, their own colours stay.
    static constexpr std::size_t RecoloredMax = 100;

    /// @param presentation the main part, with the presentation's own theme
    MasterReader(PresentationContext& context, SlideParts& parts, const SlidePart& presentation);

    /// Reads a master with its layouts. One that is read already stays as it is; one that cannot be read is
    /// reported.
    void readMaster(const std::string& part);

    /// The layout of a part, which is read where no master listed it; a blank one where the part cannot be
    /// read, or the name is empty. Valid as long as this object.
    const SlideLayout& getLayout(const std::string& part);
    /// The same as it looks in these colours.
    const SlideLayout& getLayout(const std::string& part, const ColorScheme& colors);

    /// The document's styles by the names of their parts, for FilterUtils::moveSlideToDocument.
    StyleNames& getNames() { return _names; }

private:
    using MasterPtr = std::shared_ptr<const SlideMaster>;
    using LayoutPtr = std::unique_ptr<const SlideLayout>;

    DOM::TextLevels readDefaults(const SlidePart& part);
    const SlideLayout& getBlankLayout();
    /// A master, and the style that it makes in the document.
    std::pair<MasterPtr, DOM::NamedShapeStyle> makeMaster(const SlidePart& part);
    MasterPtr recolorMaster(const MasterPtr& master, const ColorScheme& colors);
    /// Likewise. @param part with the theme and the colours that hold for it
    std::pair<LayoutPtr, DOM::NamedShapeStyle> makeLayout(const SlidePart& part, const MasterPtr& master);
    void readLayouts(const SlidePart& masterPart);
    /// @param masterName empty for the one that the layout itself refers to
    void readLayout(const std::string& part, std::string masterName);
    DOM::NamedShapeStyle makeStyle(const ShapeTreeScope& scope) const;

    PresentationContext& _context;
    SlideParts& _parts;
    const SlidePart _presentation;
    bool _hasDefaults = false;
    LayoutPtr _blankLayout;                    // null before it is used
    std::map<std::string, MasterPtr> _masters; // by part; null where not readable
    std::map<std::string, LayoutPtr> _layouts; // likewise
    std::vector<MasterPtr> _recoloredMasters;  // in all other colours than their own
    std::vector<LayoutPtr> _recoloredLayouts;  // likewise
    StyleNames _names;
};

} // namespace QV::Filters
