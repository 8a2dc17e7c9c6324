#pragma once

namespace cinder {

/// A point or a way in the plane.
template <typename T>
class Vec2
{
public:
    constexpr Vec2() = default;
    constexpr Vec2(T horizontal, T vertical)
        : x(horizontal)
        , y(vertical)
    {
    }

    friend constexpr Vec2 operator+(const Vec2& a, const Vec2& b) { return {a.x + b.x, a.y + b.y}; }
    friend constexpr Vec2 operator-(const Vec2& a, const Vec2& b) { return {a.x - b.x, a.y - b.y}; }

    friend constexpr bool operator==(const Vec2& a, const Vec2& b) { return a.x == b.x && a.y == b.y; }
    friend constexpr bool operator!=(const Vec2& a, const Vec2& b) { return !(a == b); }

    T x = T();
    T y = T();
};

} // namespace cinder
