#pragma once

#include <FilterUtils/FU_XMLVocabulary.h>

namespace QV::Filters {

/// The names of drawings on sheets that their reader tells apart.
struct DrawingWords
{
    enum Word : int
    {
        AbsoluteAnchor,
        OneCellAnchor,
        TwoCellAnchor,
        From,
        To,
        Position,
        Extent,
        Picture,
        Shape,
        Connector,
        Group,
        GraphicFrame,
        GraphicFrameTransform,
        NonVisualProps,
        ShapeProps,
        GroupProps,
        ShapeStyle,
        TextBody,
        Blip,
        Chart,
        Paragraph,
        Text,
        LineBreak,
        Choice,
        // Attributes.
        Embed,
        Link,
        Name,
        RelationshipId,
    };
};

/// In both dialects.
const FilterUtils::XMLVocabulary& getDrawingWords();

} // namespace QV::Filters
