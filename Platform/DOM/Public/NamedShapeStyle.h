#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <DOM/Public/Export.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/ShapeProps.h> // IWYU pragma: keep
#include <DOM/Public/TextLevels.h> // IWYU pragma: keep
#include <Utils/Public/ReadonlyVector.h>
#include <Utils/Public/UUID.h>
#include <Utils/Public/UUIDable.h>

namespace QV::DOM {

class ShapeStyle;
class Styles;

/// A shape style with a name: a slide master, or a layout that derives from one. Slides derive from layouts.
class DOM_API NamedShapeStyle : public UUIDable
{
public:
    NamedShapeStyle();
    ~NamedShapeStyle();
    NamedShapeStyle(NamedShapeStyle&& other) noexcept;
    NamedShapeStyle& operator=(NamedShapeStyle&& other) noexcept;

    /// Nil when the style derives from none.
    const UUID& getParentUUID() const { return _parentUUID; }
    void setParentUUID(UUID uuid) { _parentUUID = uuid; }

    /// As the file names it; may be empty, and need not be unique.
    const std::string& getName() const { return _name; }
    void setName(std::string name) { _name = std::move(name); }

    /// The fill is the background. Null when the style sets none.
    const std::shared_ptr<const ShapeProps>& getShapeProps() const { return _shapeProps; }
    void setShapeProps(std::shared_ptr<const ShapeProps> props) { _shapeProps = std::move(props); }

    /// What lies on it, from back to front. Placeholders among it are not seen on slides: those give their
    /// places and looks to the placeholders of slides.
    ReadonlyVector<std::unique_ptr<Frame>> getChildren() const
    {
        return ReadonlyVector<std::unique_ptr<Frame>>(_children);
    }
    /// @param child not null
    void appendChild(std::unique_ptr<Frame> child) { _children.push_back(std::move(child)); }

    /// Whether what lies on the style's parent is seen on it, too.
    bool showsParentShapes() const { return _showsParentShapes; }
    void setShowsParentShapes(bool shows) { _showsParentShapes = shows; }

    /// Of a master: the looks of its titles, of its bodies, and of all other text. Null for none.
    const std::shared_ptr<const TextLevels>& getTitleLevels() const { return _titleLevels; }
    const std::shared_ptr<const TextLevels>& getBodyLevels() const { return _bodyLevels; }
    const std::shared_ptr<const TextLevels>& getOtherLevels() const { return _otherLevels; }
    void setTitleLevels(std::shared_ptr<const TextLevels> levels) { _titleLevels = std::move(levels); }
    void setBodyLevels(std::shared_ptr<const TextLevels> levels) { _bodyLevels = std::move(levels); }
    void setOtherLevels(std::shared_ptr<const TextLevels> levels) { _otherLevels = std::move(levels); }

private:
    UUID _parentUUID;
    std::string _name;
    std::shared_ptr<const ShapeProps> _shapeProps;
    std::vector<std::unique_ptr<Frame>> _children; // no null entries
    bool _showsParentShapes = true;
    std::shared_ptr<const TextLevels> _titleLevels;
    std::shared_ptr<const TextLevels> _bodyLevels;
    std::shared_ptr<const TextLevels> _otherLevels;
};

/// The named style that @p style derives from; null where it derives from none, or from one that is not
/// there. O(log n). Chains fold with these as those of text styles do.
DOM_API const NamedShapeStyle* getParent(const Styles& styles, const ShapeStyle& style);
DOM_API const NamedShapeStyle* getParent(const Styles& styles, const NamedShapeStyle& style);

} // namespace QV::DOM
