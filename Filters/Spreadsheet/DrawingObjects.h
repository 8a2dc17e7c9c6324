#pragma once

/// @file
/// What a drawing part says, before its relationships are followed and its places are made frames.

#include <string>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/Color.h>
#include <DOM/Public/TableOffset.h>
#include <Filters/Package/DrawnTransform.h>
#include <Utils/Public/Size2D.h>
#include <cinder/Vector.h>

namespace QV::Filters {

/// A picture, a shape, a chart, or a group of these.
struct DrawnObject
{
    enum class Kind
    {
        Picture,
        Shape,
        Group,
        GraphicFrame,
    };

    Kind kind;
    std::string name;
    DrawnTransform transform;
    std::string relationshipId; ///< of the picture or the chart; empty where there is none
    std::string presetGeometry;
    boost::optional<DOM::Color> fillColor;
    std::vector<std::string> paragraphs;
    std::vector<DrawnObject> children; ///< from back to front
};

/// An anchor with what it holds.
struct DrawnAnchor
{
    enum class Kind
    {
        None, ///< the object stands for itself
        Absolute,
        OneCell,
        TwoCell,
    };

    Kind kind = Kind::None;
    cinder::Vec2<float> position;
    DOM::TableOffset from;
    DOM::TableOffset to;
    Size2D<float> extent;
    std::vector<DrawnObject> objects;
};

} // namespace QV::Filters
