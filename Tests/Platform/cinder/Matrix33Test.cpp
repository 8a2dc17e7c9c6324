#include <cinder/Matrix33.h>

#include <cstddef>

#include <gtest/gtest.h>

namespace cinder {
namespace {

// Row by row, as matrices are written.
Matrix33<float> makeMatrix(const float (&rows)[9])
{
    Matrix33<float> matrix;
    for (std::size_t i = 0; i < 9; ++i)
        matrix.at(i / 3, i % 3) = rows[i];
    return matrix;
}

TEST(Matrix33, IsTheIdentityAtFirst)
{
    EXPECT_EQ(Matrix33<float>(), makeMatrix({1, 0, 0, 0, 1, 0, 0, 0, 1}));
}

TEST(Matrix33, StandsColumnByColumn)
{
    const Matrix33<float> constant = makeMatrix({1, 2, 3, 4, 5, 6, 7, 8, 9});
    EXPECT_EQ(constant.m[5], 8);
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            EXPECT_EQ(constant.at(row, column), constant.m[3 * column + row]);
}

TEST(Matrix33, EqualsByEachElement)
{
    for (std::size_t i = 0; i < 9; ++i) {
        Matrix33<float> other;
        other.m[i] += 2;
        EXPECT_TRUE(other != Matrix33<float>()) << i;
        EXPECT_FALSE(other == Matrix33<float>()) << i;
    }
    EXPECT_FALSE(Matrix33<float>() != Matrix33<float>());
}

TEST(Matrix33, MultipliesOnTheRight)
{
    Matrix33<float> matrix = makeMatrix({1, 2, 3, 4, 5, 6, 7, 8, 9});
    const Matrix33<float> other = makeMatrix({1, 0, 2, 0, 1, 0, 3, 0, 1});
    Matrix33<float>& result = matrix *= other;
    EXPECT_EQ(&result, &matrix);
    EXPECT_EQ(matrix, makeMatrix({10, 2, 5, 22, 5, 14, 34, 8, 23}));
    matrix *= Matrix33<float>();
    EXPECT_EQ(matrix, makeMatrix({10, 2, 5, 22, 5, 14, 34, 8, 23}));
}

TEST(Matrix33, MultipliesByItself)
{
    Matrix33<float> matrix = makeMatrix({1, 2, 3, 4, 5, 6, 7, 8, 9});
    const Matrix33<float>& same = matrix;
    matrix *= same;
    EXPECT_EQ(matrix, makeMatrix({30, 36, 42, 66, 81, 96, 102, 126, 150}));
}

} // namespace
} // namespace cinder
