#pragma once

#include <cstddef>
#include <string>

#include <DOM/Public/ShapeGeometry.h>
#include <Filters/Preview/SlidePreview.h>
#include <Filters/Preview/TextPageContext.h>
#include <Utils/Public/Size2D.h>

namespace QV::DOM {
class Document;
}

namespace QV::Filters {

class SlideDefs;

/// What the slides of a page share.
struct SlidePageContext
{
    const DOM::Document& document;
    const SlidePreviewLimits& limits;
    Size2D<float> slideSize; ///< in points
    TextPageContext& text;   ///< of all text on slides, and of notes
    SlideDefs& defs;

    bool isDark = false; ///< whether the background of the slide that is being written is
    std::size_t shapes = 0;
    std::size_t outlineSteps = 0;
    std::size_t leftShapes = 0; ///< beyond the limits, or without a place

    /// Takes one more shape; where there is no room for it, counts it as left out and returns false.
    /// @param depth of groups around it
    bool takeShape(unsigned depth, const std::string& page)
    {
        if (depth > limits.nesting || shapes == limits.shapes || text.isFull(page)) {
            ++leftShapes;
            return false;
        }
        ++shapes;
        return true;
    }

    /// Takes one more outline; where there is no room for it, counts its shape as left out and returns false.
    /// Any number of shapes may have the same one, and show nothing of it.
    bool takeOutline(const DOM::ShapeGeometry* geometry)
    {
        std::size_t steps = geometry ? geometry->adjustValues.size() + geometry->guides.size() : 0;
        for (std::size_t i = 0; geometry && i < geometry->paths.size(); ++i)
            steps += 1 + geometry->paths[i].commands.size();
        if (steps > limits.outlineSteps - outlineSteps) {
            ++leftShapes;
            return false;
        }
        outlineSteps += steps;
        return true;
    }
};

} // namespace QV::Filters
