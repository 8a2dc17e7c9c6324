#pragma once

#include <cstddef>
#include <memory>
#include <utility>

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/intrusive_ref_counter.hpp>

#include <DOM/Public/Export.h>
#include <DOM/Public/ShapeProps.h> // IWYU pragma: keep
#include <Utils/Public/TaggedValue.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {

class SharedObjectFactory;

struct ParentUUIDTag;
/// An identifier that is meant as that of a parent.
using ParentUUID = TaggedValue<UUID, ParentUUIDTag>;

/// The formatting of one shape or slide: a named parent style, and what it sets by itself. Shapes share their
/// styles through a SharedObjectFactory, so a style in use never changes.
class DOM_API ShapeStyle : public boost::intrusive_ref_counter<ShapeStyle, boost::thread_safe_counter>
{
public:
    /// Nil when the shape has no named style; of a slide, its layout.
    const UUID& getParentUUID() const { return _parentUUID; }
    void setParentUUID(const UUID& uuid) { _parentUUID = uuid; }

    /// Null when the shape sets none; the fill of a slide is its background.
    const std::shared_ptr<const ShapeProps>& getShapeProps() const { return _shapeProps; }
    void setShapeProps(std::shared_ptr<const ShapeProps> props) { _shapeProps = std::move(props); }

    /// Puts the value of a tagged attribute in its place.
    void set(const ParentUUID& parent) { _parentUUID = parent.get(); }

    /// True when there is no parent, and nothing is set.
    bool isEmpty() const;

    /// By value, down to the single properties; a null pointer equals only a null one.
    friend DOM_API bool operator==(const ShapeStyle& a, const ShapeStyle& b);
    friend bool operator!=(const ShapeStyle& a, const ShapeStyle& b) { return !(a == b); }
    friend DOM_API std::size_t hash_value(const ShapeStyle& style);

private:
    UUID _parentUUID;
    std::shared_ptr<const ShapeProps> _shapeProps;
};

using SharedShapeStyle = boost::intrusive_ptr<const ShapeStyle>;

/// The one style that has no parent and sets nothing.
DOM_API const ShapeStyle& getEmptyShapeStyle();

/// Replaces @p style by the factory's shared one that differs from it in @p attribute alone. A null style
/// counts as the empty one. The old object is released, and does not change.
DOM_API void setToSharedStyle(
    SharedObjectFactory& factory, SharedShapeStyle& style, const ParentUUID& attribute);

} // namespace QV::DOM
