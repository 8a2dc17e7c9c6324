#pragma once

#include <array>
#include <memory>
#include <string>
#include <utility>

#include <boost/optional.hpp>

#include <DOM/Public/Anchors.h>
#include <DOM/Public/Export.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Hyperlink.h>
#include <Utils/Public/Ptr/PtrUtils.h>
#include <Utils/Public/Size2D.h>

namespace QV::DOM {

/// A place on a sheet or page that shows a graphical object, and how the object stands in it.
///
/// The anchor and the extent are those of the object before it is turned and flipped. Copies share the
/// object, which never changes once a frame has it.
class DOM_API Frame
{
public:
    /// Null while the frame is empty.
    const GraphicalObject* getGraphicalObject() const { return _graphicalObject.get(); }
    void setGraphicalObject(std::unique_ptr<GraphicalObject> object) { _graphicalObject = std::move(object); }

    const Anchor& getAnchor() const { return _anchor; }
    void setAnchor(const Anchor& anchor) { _anchor = anchor; }

    /// In points; nothing where the anchor alone tells the size.
    const boost::optional<Size2D<float>>& getExtent() const { return _extent; }
    void setExtent(const boost::optional<Size2D<float>>& extent) { _extent = extent; }

    /// How far the object is turned about its centre, in degrees clockwise.
    float getRotation() const { return _rotation; }
    void setRotation(float degrees) { _rotation = degrees; }

    /// Whether the object is mirrored before it is turned: left and right, or top and bottom exchanged.
    bool isFlippedHorizontally() const { return _isFlippedHorizontally; }
    void setFlippedHorizontally(bool isFlipped) { _isFlippedHorizontally = isFlipped; }
    bool isFlippedVertically() const { return _isFlippedVertically; }
    void setFlippedVertically(bool isFlipped) { _isFlippedVertically = isFlipped; }

    /// Where the object is turned out of the plane: its whole rotation about the axes X (to the right), Y
    /// (up) and Z (towards the viewer) in degrees, as FilterUtils::convertMatrixToAnglesDegree gives them,
    /// rotation in the plane included. Nothing for an object that lies in the plane.
    const boost::optional<std::array<float, 3>>& getSpatialRotation() const { return _spatialRotation; }
    void setSpatialRotation(const boost::optional<std::array<float, 3>>& degrees)
    {
        _spatialRotation = degrees;
    }

    /// Whether readers do not see the object.
    bool isHidden() const { return _isHidden; }
    void setHidden(bool isHidden) { _isHidden = isHidden; }

    /// Where a click on the object leads; null when it leads nowhere.
    const std::shared_ptr<const Hyperlink>& getHyperlink() const { return _hyperlink; }
    void setHyperlink(std::shared_ptr<const Hyperlink> link) { _hyperlink = std::move(link); }

    /// What stands in for the object where it cannot be seen; may be empty.
    const std::string& getDescription() const { return _description; }
    void setDescription(std::string text) { _description = std::move(text); }

    /// May be empty, and need not be unique.
    const std::string& getName() const { return _name; }
    void setName(std::string name) { _name = std::move(name); }

    /// Whether both are the same in all of these, and show the same object.
    friend bool operator==(const Frame& a, const Frame& b)
    {
        return a._graphicalObject == b._graphicalObject && a._anchor == b._anchor && a._extent == b._extent &&
               a._rotation == b._rotation && a._isFlippedHorizontally == b._isFlippedHorizontally &&
               a._isFlippedVertically == b._isFlippedVertically && a._spatialRotation == b._spatialRotation &&
               a._isHidden == b._isHidden && pointeesEqual(a._hyperlink, b._hyperlink) &&
               a._name == b._name && a._description == b._description;
    }
    friend bool operator!=(const Frame& a, const Frame& b) { return !(a == b); }

private:
    std::shared_ptr<const GraphicalObject> _graphicalObject;
    Anchor _anchor;
    boost::optional<Size2D<float>> _extent;
    float _rotation = 0;
    bool _isFlippedHorizontally = false;
    bool _isFlippedVertically = false;
    boost::optional<std::array<float, 3>> _spatialRotation;
    bool _isHidden = false;
    std::shared_ptr<const Hyperlink> _hyperlink;
    std::string _name;
    std::string _description;
};

} // namespace QV::DOM
