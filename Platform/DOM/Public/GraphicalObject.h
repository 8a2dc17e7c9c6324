#pragma once

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

} // namespace QV::DOM
