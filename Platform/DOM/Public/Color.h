#pragma once

#include <cstddef>
#include <cstdint>

#include <boost/functional/hash.hpp>

#include <cinder/Color.h>

namespace QV::DOM {

/// A colour of the model: red, green, blue and alpha bytes; alpha 255 is opaque.
class Color
{
public:
    using RGBA = cinder::ColorAT<unsigned char>;

    Color() = default;
    explicit Color(const RGBA& rgba)
        : _rgba(rgba)
    {
    }

    const RGBA& getRGBA() const { return _rgba; }

    friend bool operator==(const Color& a, const Color& b) { return a._rgba == b._rgba; }
    friend bool operator!=(const Color& a, const Color& b) { return !(a == b); }

    friend std::size_t hash_value(const Color& color)
    {
        const RGBA& c = color._rgba;
        return boost::hash<std::uint32_t>()(static_cast<std::uint32_t>(c.r) << 24U |
                                            static_cast<std::uint32_t>(c.g) << 16U |
                                            static_cast<std::uint32_t>(c.b) << 8U | c.a);
    }

private:
    RGBA _rgba = RGBA(0, 0, 0, 255);
};

} // namespace QV::DOM
