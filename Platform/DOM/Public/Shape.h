#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/Block.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Color.h>
#include <DOM/Public/Export.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <Utils/Public/ReadonlyVector.h>

namespace QV::DOM {

/// A drawn shape with text on it, or a group of frames. It stands in a frame, or is a block by itself.
///
/// A group is a shape without an outline that has children. Their frames have absolute anchors, from the same
/// corner as the frame of the group; turning or flipping the group's frame moves them along.
class DOM_API Shape final : public Block, public GraphicalObject
{
public:
    Shape();
    ~Shape() override;

    /// The preset outline, marked with the family of formats that it comes from: "ooxml-rect". Empty for a
    /// group, and for an outline of its own.
    const std::string& getPresetGeometry() const { return _presetGeometry; }
    void setPresetGeometry(std::string name) { _presetGeometry = std::move(name); }

    /// The one colour that fills the shape; nothing where it is not filled, or otherwise.
    const boost::optional<Color>& getFillColor() const { return _fillColor; }
    void setFillColor(const boost::optional<Color>& color) { _fillColor = color; }

    /// Null where the shape has none.
    const SharedCellText& getText() const { return _text; }
    void setText(SharedCellText text) { _text = std::move(text); }

    /// From back to front.
    ReadonlyVector<std::unique_ptr<Frame>> getChildren() const
    {
        return ReadonlyVector<std::unique_ptr<Frame>>(_children);
    }
    /// @param child not null
    void appendChild(std::unique_ptr<Frame> child) { _children.push_back(std::move(child)); }

private:
    std::string _presetGeometry;
    boost::optional<Color> _fillColor;
    SharedCellText _text;
    std::vector<std::unique_ptr<Frame>> _children; // no null entries
};

} // namespace QV::DOM
