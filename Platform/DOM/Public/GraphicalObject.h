#pragma once

#include <memory>
#include <string>
#include <utility>

#include <DOM/Public/Export.h>

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

private:
    std::string _mediaId;
    std::string _mimeType;
};

/// A place on a sheet or page that shows a graphical object.
class DOM_API Frame
{
public:
    /// Null while the frame is empty.
    const GraphicalObject* getGraphicalObject() const { return _graphicalObject.get(); }
    void setGraphicalObject(std::unique_ptr<GraphicalObject> object) { _graphicalObject = std::move(object); }

private:
    std::unique_ptr<GraphicalObject> _graphicalObject;
};

} // namespace QV::DOM
