#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/Block.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Color.h>
#include <DOM/Public/Export.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/ShapeStyle.h>
#include <DOM/Public/ValueStruct.h>
#include <Utils/Public/ReadonlyVector.h>

namespace QV::DOM {

/// The room on a slide that a layout keeps for something: which one it is tells which shape of the layout,
/// and of its master, gives the place and the looks.
struct Placeholder : ValueStruct<Placeholder>
{
    std::string type = "obj"; ///< as PresentationML names it: "title", "body" (ECMA-376 Part 1, 19.7.10)
    unsigned long index = 0;
    bool isPlaceInherited = false; ///< whether the place is that of the layout's or the master's shape

    auto tie() const { return std::tie(type, index, isPlaceInherited); }
};

/// What a shape is that stands for a slide.
struct SlideProps
{
    std::string name;
    bool isHidden = false;
    bool showsParentShapes = true; ///< whether what lies on the layout and the master is seen
    SharedCellText notes;          ///< of the speaker; null for none
};

/// A drawn shape with text on it, or a group of frames. It stands in a frame, or is a block by itself: a
/// slide.
///
/// The children of a group have absolute anchors, from the same corner as the frame of the group; turning or
/// flipping the group's frame moves them along.
class DOM_API Shape final : public Block, public GraphicalObject
{
public:
    enum class Kind : std::uint8_t
    {
        Drawn,
        Group,
        Connector,
        Object, ///< of another program; its children or its fill show what it looked like
        Slide,
    };

    Shape();
    ~Shape() override;

    Kind getKind() const { return _kind; }
    void setKind(Kind kind) { _kind = kind; }

    /// The empty style where the shape has none.
    const ShapeStyle& getStyle() const;
    /// Null where the shape has none.
    const SharedShapeStyle& getSharedStyle() const { return _style; }
    SharedShapeStyle& getSharedStyle() { return _style; }
    void setSharedStyle(SharedShapeStyle style) { _style = std::move(style); }

    /// The preset outline that the shape sets by itself, marked with the family of formats that it comes
    /// from: "ooxml-rect". Empty for a group, and for an outline of its own.
    const std::string& getPresetGeometry() const;
    /// Gives the shape a style of its own.
    void setPresetGeometry(std::string name);

    /// The one colour that the shape is filled with by itself; nothing where it is not filled, or otherwise.
    boost::optional<Color> getFillColor() const;
    /// Gives the shape a style of its own.
    void setFillColor(const boost::optional<Color>& color);

    /// Null where the shape has none.
    const SharedCellText& getText() const { return _text; }
    void setText(SharedCellText text) { _text = std::move(text); }

    /// Nothing for what is no placeholder.
    const boost::optional<Placeholder>& getPlaceholder() const { return _placeholder; }
    void setPlaceholder(boost::optional<Placeholder> placeholder) { _placeholder = std::move(placeholder); }

    /// Null for what is no slide.
    const std::shared_ptr<const SlideProps>& getSlideProps() const { return _slideProps; }
    void setSlideProps(std::shared_ptr<const SlideProps> props) { _slideProps = std::move(props); }

    /// From back to front.
    ReadonlyVector<std::unique_ptr<Frame>> getChildren() const
    {
        return ReadonlyVector<std::unique_ptr<Frame>>(_children);
    }
    /// @param child not null
    void appendChild(std::unique_ptr<Frame> child) { _children.push_back(std::move(child)); }

private:
    template <typename Change>
    void changeProps(Change change);

    Kind _kind = Kind::Drawn;
    SharedShapeStyle _style;
    SharedCellText _text;
    boost::optional<Placeholder> _placeholder;
    std::shared_ptr<const SlideProps> _slideProps;
    std::vector<std::unique_ptr<Frame>> _children; // no null entries
};

} // namespace QV::DOM
