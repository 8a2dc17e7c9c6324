#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include <boost/functional/hash.hpp>

namespace QV::DOM {

/// Where a link leads: a document, and a place inside of it.
class Hyperlink
{
public:
    /// @param url empty for a place in the same document
    /// @param anchor without "#"; empty for the whole document
    explicit Hyperlink(std::string url, std::string anchor = {})
        : _url(std::move(url))
        , _anchor(std::move(anchor))
    {
    }

    const std::string& getURL() const { return _url; }
    const std::string& getAnchor() const { return _anchor; }

    void setURL(std::string url) { _url = std::move(url); }
    void setAnchor(std::string anchor) { _anchor = std::move(anchor); }

    friend bool operator==(const Hyperlink& a, const Hyperlink& b)
    {
        return a._url == b._url && a._anchor == b._anchor;
    }
    friend bool operator!=(const Hyperlink& a, const Hyperlink& b) { return !(a == b); }
    friend std::size_t hash_value(const Hyperlink& link)
    {
        std::size_t seed = 0;
        boost::hash_combine(seed, link._url);
        boost::hash_combine(seed, link._anchor);
        return seed;
    }

private:
    std::string _url;
    std::string _anchor;
};

} // namespace QV::DOM
