#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include <FilterUtils/FU_Export.h>

namespace QV::FilterUtils {

/// Sums and differences over a long list of sizes, to the very bits that one operation of @p T after the
/// other gives, each rounded to nearest and ties to even. Private; made for float and for double.
///
/// While a value stays between two powers of two, each size changes it by a whole count of the value's last
/// digit, which depends on nothing but the size and, in a tie, on whether that digit is even. So blocks of
/// sizes are added up once for each such range and either digit, and a value passes whole blocks at a time. A
/// range is tabled only after single steps in it that took as long as the table does: whoever asks little
/// pays little.
///
/// After that, O(log n) a range. A table takes n / 2 bytes; at most 64 are made. Sizes that are negative,
/// infinite or NaN are right, but slow.
template <typename T>
class RoundedSums
{
public:
    /// @param sizes outlives this, and does not change
    FILTERUTILS_API explicit RoundedSums(const std::vector<float>& sizes);
    FILTERUTILS_API ~RoundedSums();

    RoundedSums(const RoundedSums&) = delete;
    RoundedSums& operator=(const RoundedSums&) = delete;

    /// 0 + sizes[begin] + ... + sizes[end - 1], from left to right.
    FILTERUTILS_API T add(std::size_t begin, std::size_t end);

    /// Subtracts sizes from the first one on, until one is greater than what remains.
    /// @return that one's index, or the count of sizes; and what remains
    FILTERUTILS_API std::pair<std::size_t, T> subtract(T value);

private:
    /// What a block of sizes amounts to in units of the value's last digit, where that is even, and where it
    /// is odd.
    using Amounts = std::array<std::uint64_t, 2>;

    /// Of values in [2^(exponent - 1), 2^exponent). Level k has the blocks of BlockSize * 2^k sizes.
    struct Table
    {
        std::size_t plainSteps = 0;
        std::vector<std::vector<Amounts>> levels; // empty until it is made
    };

    enum class Sign
    {
        Plus,
        Minus
    };

    static Amounts join(const Amounts& first, const Amounts& second);

    void findLargest();
    void makeTable(Table& table, int exponent);
    Amounts makeBlock(std::size_t block, double unitsPerPoint) const;
    Table* findTable(int exponent);
    bool passBlock(T& value, std::size_t& index, std::size_t end, Sign sign);
    template <typename Fits>
    bool passLongest(std::size_t& index, std::size_t end, Fits fits) const;

    const std::vector<float>& _sizes;
    std::vector<std::vector<float>> _largest; // of each block; infinity where it cannot be passed
    std::vector<std::unique_ptr<Table>> _tables;
    std::size_t _tablesMade = 0;
};

extern template class RoundedSums<float>;
extern template class RoundedSums<double>;

} // namespace QV::FilterUtils
