#include <Filters/Preview/SlideDefs.h>

#include <ostream>

#include <fmt/format.h>

#include <DOM/Public/GraphicalObject.h>
#include <Filters/Preview/MediaUri.h>

namespace QV::Filters {

std::string SlideDefs::add(const char* element, const std::string& attributes, const std::string& content)
{
    const auto added = _ids.emplace(fmt::format("{}{}>{}", element, attributes, content), std::string());
    std::string& id = added.first->second;
    if (!added.second)
        return id;
    id = fmt::format("d{}", _ids.size());
    const std::string text = fmt::format("<{0} id=\"{1}\"{2}>{3}</{0}>\n", element, id, attributes, content);
    _elements += text;
    _bytes += text.size();
    return id;
}

std::string SlideDefs::addPicture(const DOM::Picture& picture)
{
    const auto known = _pictureIds.find(picture.getMediaId());
    if (known != _pictureIds.end())
        return known->second;
    const std::string& uri = _uris.getUri(picture);
    if (uri.empty())
        return {};
    if (uri.size() > _pictureBytesMax - _pictureBytes) {
        ++_refusedPicturesCount;
        return {};
    }
    _pictureBytes += uri.size();
    _pictures.push_back(&uri);
    return _pictureIds.emplace(picture.getMediaId(), fmt::format("p{}", _pictures.size())).first->second;
}

boost::optional<Size2D<float>> SlideDefs::findPictureSize(const DOM::Picture& picture)
{
    return _uris.findSize(picture);
}

void SlideDefs::write(std::ostream& out) const
{
    if (_elements.empty() && _pictures.empty())
        return;
    out << "<svg class=\"defs\" width=\"0\" height=\"0\" aria-hidden=\"true\"><defs>\n" << _elements;
    for (std::size_t i = 0; i < _pictures.size(); ++i)
        out << "<symbol id=\"p" << i + 1
            << "\" viewBox=\"0 0 1 1\" preserveAspectRatio=\"none\"><image width=\"1\" height=\"1\" "
               "preserveAspectRatio=\"none\" href=\""
            << *_pictures[i] << "\"/></symbol>\n";
    out << "</defs></svg>\n";
}

} // namespace QV::Filters
