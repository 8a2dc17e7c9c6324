#pragma once

/// @file
/// What the drawings in text show, gathered object by object, and the frames that it becomes.

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/Anchors.h>
#include <DOM/Public/Block.h>
#include <DOM/Public/Color.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <Filters/Package/DrawnTransform.h>
#include <Utils/Public/Size2D.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

struct TextContext;

/// One object of a drawing.
struct DrawnItem
{
    enum class Kind
    {
        Picture,
        Shape,
        Group
    };

    Kind kind = Kind::Shape;
    std::string name;
    DrawnTransform transform; ///< in the coordinates of the group; without a box it fills the group
    std::string geometry;     ///< the preset of a shape, without a marker; may be empty
    boost::optional<DOM::Color> fillColor;
    std::unique_ptr<DOM::Picture> picture;           ///< may be null
    std::vector<std::unique_ptr<DOM::Block>> blocks; ///< its text
    std::vector<DrawnItem> children;                 ///< of a group, from back to front
};

/// Where a whole drawing stands.
struct DrawnPlace
{
    DOM::Anchor anchor; ///< a TextAnchor or an AbsoluteAnchor
    boost::optional<Size2D<float>> extent;
    std::string name;
};

/// The objects that are open, each in the one before, and those that are done. An object beyond the bounds
/// (DepthMax, and TextContext::drawnObjectsLeft) is not taken, with a message.
class DrawnItemStack
{
public:
    static constexpr std::size_t DepthMax = 50;

    explicit DrawnItemStack(TextContext& context)
        : _context(context)
    {
    }

    /// Opens an object.
    ///
    /// @param depth of the element that it begins with
    /// @return null where it is not taken: beyond the bounds, and in what is no group
    DrawnItem* start(DrawnItem::Kind kind, std::size_t depth);

    /// The innermost open object, or null. Valid until the next change.
    DrawnItem* getOpen() { return _open.empty() ? nullptr : &_open.back().item; }

    /// How many are open.
    std::size_t getDepth() const { return _open.size(); }

    /// Ends the innermost object, if it began at that depth.
    /// @return whether it was an outermost one, which is done now
    bool end(std::size_t depth);

    /// Gives text to the innermost open object; in a group and outside of any, to a shape of its own.
    void addText(std::vector<std::unique_ptr<DOM::Block>> blocks);

    /// Those that are done, which are forgotten here.
    std::vector<DrawnItem> takeDone();

private:
    struct Open
    {
        DrawnItem item;
        std::size_t depth;
    };

    std::vector<DrawnItem>& getSiblings() { return _open.empty() ? _done : _open.back().item.children; }

    TextContext& _context;
    std::vector<Open> _open; // at most DepthMax
    std::vector<DrawnItem> _done;
};

/// The frame of a drawing that shows @p item; null where it shows nothing.
///
/// Children of a group get absolute anchors: from the corner that the group's own anchor counts from, or,
/// where the group stands in the text, from the group's own top-left corner. No coordinate leaves a million
/// points either way.
std::shared_ptr<const DOM::Frame> makeDrawnFrame(DrawnPlace place, DrawnItem item);

/// The number nearest to @p points that the model takes: within a million points either way, 0 for NaN.
float keepDrawnInReach(float points);

/// A size for a frame: nothing where both sides are zero; sides are at least zero.
boost::optional<Size2D<float>> makeDrawnExtent(float width, float height);

/// Hands on what was reported about one object; very many of one pattern are counted.
void passDrawnMessages(TextContext& context, const OperationReport& messages);

} // namespace QV::Filters
