#pragma once

namespace cinder {

/// A colour with its opacity: red, green, blue and alpha, in that order.
template <typename T>
class ColorAT
{
public:
    constexpr ColorAT() = default;
    constexpr ColorAT(T red, T green, T blue, T alpha)
        : r(red)
        , g(green)
        , b(blue)
        , a(alpha)
    {
    }

    friend constexpr bool operator==(const ColorAT& x, const ColorAT& y)
    {
        return x.r == y.r && x.g == y.g && x.b == y.b && x.a == y.a;
    }
    friend constexpr bool operator!=(const ColorAT& x, const ColorAT& y) { return !(x == y); }

    T r = T();
    T g = T();
    T b = T();
    T a = T();
};

} // namespace cinder
