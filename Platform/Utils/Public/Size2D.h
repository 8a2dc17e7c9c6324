#pragma once

namespace QV {

/// A width and a height in one unit, which the owner states.
template <typename T>
class Size2D
{
public:
    constexpr Size2D() = default;
    constexpr Size2D(T width, T height)
        : _width(width)
        , _height(height)
    {
    }

    constexpr T getWidth() const { return _width; }
    constexpr T getHeight() const { return _height; }

    friend constexpr bool operator==(const Size2D& a, const Size2D& b)
    {
        return a._width == b._width && a._height == b._height;
    }
    friend constexpr bool operator!=(const Size2D& a, const Size2D& b) { return !(a == b); }

private:
    T _width = T();
    T _height = T();
};

} // namespace QV
