#pragma once

#include <vector>

#include <DOM/Public/ParaProps.h>
#include <Filters/Package/EffectiveFormats.h>

namespace QV::DOM {
class Paragraph;
class Run;
} // namespace QV::DOM

namespace QV::Filters {

/// Which tabs of a paragraph part its line into pieces that stand at its left, in its middle and at its
/// right.
struct TabsPlan
{
    std::vector<const DOM::Run*> splits; ///< the tabs' runs, in order; none where the line is not parted
    bool hasCenter = false;              ///< the first one leads to the middle

    bool isParted() const { return !splits.empty(); }
    bool hasRight() const { return splits.size() > (hasCenter ? 1 : 0); }
};

/// Looks for the tabs that lead to centred and right tab stops, as headers and tables of contents have them.
/// How far text reaches is estimated, since a page has no measures of fonts. Only paragraphs of one line that
/// stand to the left are parted.
TabsPlan planTabs(const DOM::Paragraph& paragraph, const DOM::ParaProps& props, const CellScope& scope,
    EffectiveFormats& formats);

} // namespace QV::Filters
