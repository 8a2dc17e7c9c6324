#pragma once

#include <memory>
#include <string>
#include <utility>

#include <DOM/Public/Export.h>
#include <DOM/Public/ShapeFill.h>
#include <DOM/Public/ShapeProps.h> // IWYU pragma: keep

namespace QV::DOM {

/// What a frame shows.
class DOM_API GraphicalObject
{
public:
    GraphicalObject() = default;
    virtual ~GraphicalObject();

    GraphicalObject(const GraphicalObject&) = delete;
    GraphicalObject& operator=(const GraphicalObject&) = delete;
};

/// A picture, kept in the media storage under its id.
class DOM_API Picture final : public GraphicalObject
{
public:
    /// @param mimeType may be empty where it is not known
    Picture(std::string mediaId, std::string mimeType)
        : _mediaId(std::move(mediaId))
        , _mimeType(std::move(mimeType))
    {
    }

    const std::string& getMediaId() const { return _mediaId; }
    const std::string& getMimeType() const { return _mimeType; }

    /// What of the picture is not shown.
    const RelativeRect& getCrop() const { return _crop; }
    void setCrop(const RelativeRect& crop) { _crop = crop; }

    /// Its outline, line and shadow; null for a plain rectangle.
    const std::shared_ptr<const ShapeProps>& getShapeProps() const { return _shapeProps; }
    void setShapeProps(std::shared_ptr<const ShapeProps> props) { _shapeProps = std::move(props); }

private:
    std::string _mediaId;
    std::string _mimeType;
    RelativeRect _crop;
    std::shared_ptr<const ShapeProps> _shapeProps;
};

} // namespace QV::DOM
