#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <unordered_map>
#include <vector>

#include <boost/optional.hpp>

#include <Filters/Package/Export.h>
#include <Utils/Public/Size2D.h>

namespace QV::DOM {
class Picture;
}

namespace QV::Filters {

class PictureUris;

/// What the shapes of all slides refer to: gradients, patterns, markers, outlines and pictures, each once in
/// the page.
class FILTERS_API SlideDefs
{
public:
    /// @param uris, bytes outlive this object; @p bytes grows by those of each definition but pictures
    /// @param pictureBytesMax of all pictures together
    SlideDefs(PictureUris& uris, std::size_t pictureBytesMax, std::size_t& bytes)
        : _uris(uris)
        , _pictureBytesMax(pictureBytesMax)
        , _bytes(bytes)
    {
    }

    SlideDefs(const SlideDefs&) = delete;
    SlideDefs& operator=(const SlideDefs&) = delete;

    /// The id of the element of that kind, with these attributes and that content, made on first use: "d1".
    /// @param attributes each with a blank in front
    std::string add(const char* element, const std::string& attributes, const std::string& content);

    /// The id of a symbol whose size is 1 by 1, made on first use: "p1". Empty where browsers do not show the
    /// picture, where the storage does not have it, and where there is no room for it.
    std::string addPicture(const DOM::Picture& picture);

    /// The size of a picture in points, as it says itself; nothing where it does not.
    boost::optional<Size2D<float>> findPictureSize(const DOM::Picture& picture);

    /// How often a picture was asked for that there was no room for.
    std::size_t getRefusedPicturesCount() const { return _refusedPicturesCount; }

    /// Writes the element that holds all of them, and is not seen; nothing where there are none.
    void write(std::ostream& out) const;

private:
    PictureUris& _uris;
    std::size_t _pictureBytesMax;
    std::size_t& _bytes;
    std::unordered_map<std::string, std::string> _ids;        // by element, attributes and content
    std::unordered_map<std::string, std::string> _pictureIds; // by media ids
    std::string _elements;
    std::vector<const std::string*> _pictures; // their URIs, in the order of their ids
    std::size_t _pictureBytes = 0;
    std::size_t _refusedPicturesCount = 0;
};

} // namespace QV::Filters
