#pragma once

#include <cstddef>

namespace cinder {

/// Three rows and three columns of numbers, which act on column vectors.
template <typename T>
class Matrix33
{
public:
    /// The identity.
    constexpr Matrix33() = default;

    /// @param row, column below 3
    constexpr T at(std::size_t row, std::size_t column) const { return m[3 * column + row]; }
    constexpr T& at(std::size_t row, std::size_t column) { return m[3 * column + row]; }

    /// Multiplies by @p other on the right: this becomes this × other.
    Matrix33& operator*=(const Matrix33& other)
    {
        Matrix33 product; // apart from this, which may be the other one
        for (std::size_t row = 0; row < 3; ++row)
            for (std::size_t column = 0; column < 3; ++column)
                product.at(row, column) = at(row, 0) * other.at(0, column) +
                                          at(row, 1) * other.at(1, column) + at(row, 2) * other.at(2, column);
        return *this = product;
    }

    friend bool operator==(const Matrix33& a, const Matrix33& b)
    {
        for (std::size_t i = 0; i < 9; ++i)
            if (a.m[i] != b.m[i])
                return false;
        return true;
    }
    friend bool operator!=(const Matrix33& a, const Matrix33& b) { return !(a == b); }

    T m[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1}; // column by column
};

} // namespace cinder
