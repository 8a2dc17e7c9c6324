#include <FilterUtils/FU_RoundedSums.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace QV::FilterUtils {
namespace {

constexpr std::size_t BlockSize = 64;
constexpr std::size_t TablesMax = 64;
constexpr std::size_t TableCost = 4; // in plain steps for each size

// More units than any value has, and few enough that a block of them can be added up.
constexpr std::uint64_t TooMuch = std::uint64_t{1} << 54U;

// Within these, sizes of any magnitude are scaled to units of a value without loss.
constexpr int ExponentMin = std::max(std::numeric_limits<float>::min_exponent, -200);
constexpr int ExponentMax = 400;

// A size in units of a value whose last digit is even, and of one whose last digit is odd: a tie goes to the
// neighbour that makes the value even.
std::array<std::uint64_t, 2> roundToUnits(double units)
{
    const auto whole = static_cast<std::uint64_t>(units);
    const double rest = units - static_cast<double>(whole);
    if (rest == 0.5)
        return {whole + whole % 2, whole + 1 - whole % 2};
    const std::uint64_t nearest = rest > 0.5 ? whole + 1 : whole;
    return {nearest, nearest};
}

std::size_t findBlockEnd(std::size_t index)
{
    return (index / BlockSize + 1) * BlockSize;
}

} // namespace

template <typename T>
RoundedSums<T>::RoundedSums(const std::vector<float>& sizes)
    : _sizes(sizes)
    , _tables(ExponentMax - ExponentMin + 1)
{
    findLargest();
}

template <typename T>
RoundedSums<T>::~RoundedSums() = default;

template <typename T>
void RoundedSums<T>::findLargest()
{
    std::vector<float> level(_sizes.size() / BlockSize);
    for (std::size_t i = 0; i < level.size(); ++i) {
        float largest = 0;
        for (std::size_t j = i * BlockSize; j < (i + 1) * BlockSize; ++j)
            largest = _sizes[j] >= 0 ? std::max(largest, _sizes[j]) : std::numeric_limits<float>::infinity();
        level[i] = largest;
    }
    while (!level.empty()) {
        std::vector<float> next(level.size() / 2);
        for (std::size_t i = 0; i < next.size(); ++i)
            next[i] = std::max(level[2 * i], level[2 * i + 1]);
        _largest.push_back(std::move(level));
        level = std::move(next);
    }
}

template <typename T>
T RoundedSums<T>::add(std::size_t begin, std::size_t end)
{
    T value = 0;
    for (std::size_t index = begin; index < end;) {
        if (index % BlockSize == 0 && passBlock(value, index, end, Sign::Plus))
            continue;
        const std::size_t stop = std::min(end, findBlockEnd(index));
        for (; index < stop; ++index)
            value += static_cast<T>(_sizes[index]);
    }
    return value;
}

template <typename T>
std::pair<std::size_t, T> RoundedSums<T>::subtract(T value)
{
    for (std::size_t index = 0; index < _sizes.size();) {
        if (passBlock(value, index, _sizes.size(), Sign::Minus))
            continue;
        const std::size_t stop = std::min(_sizes.size(), findBlockEnd(index));
        for (; index < stop; ++index) {
            const T size = static_cast<T>(_sizes[index]);
            if (size > value)
                return {index, value};
            value -= size;
        }
    }
    return {_sizes.size(), value};
}

// Passes the longest block that begins at the index and that fits. False where none does.
template <typename T>
template <typename Fits>
bool RoundedSums<T>::passLongest(std::size_t& index, std::size_t end, Fits fits) const
{
    std::size_t level = 0;
    for (std::size_t size = 2 * BlockSize; level + 1 < _largest.size() && index % size == 0; size *= 2)
        ++level;
    for (;; --level) {
        const std::size_t size = BlockSize << level;
        const std::size_t block = index / size;
        if (index + size <= end && block < _largest[level].size() && fits(level, block)) {
            index += size;
            return true;
        }
        if (level == 0)
            return false;
    }
}

// Passes a block of sizes that begins at the index. False where none can be passed.
template <typename T>
bool RoundedSums<T>::passBlock(T& value, std::size_t& index, std::size_t end, Sign sign)
{
    if (_largest.empty() || !std::isfinite(value) || value < 0)
        return false;
    if (value == 0)
        return passLongest(
            index, end, [this](std::size_t level, std::size_t block) { return _largest[level][block] == 0; });

    int exponent = 0;
    const T fraction = std::frexp(value, &exponent);
    const Table* const table = findTable(exponent);
    if (!table)
        return false;
    constexpr int Digits = std::numeric_limits<T>::digits;
    constexpr std::uint64_t Lowest = std::uint64_t{1} << static_cast<unsigned>(Digits - 1);
    const auto units = static_cast<std::uint64_t>(std::ldexp(fraction, Digits));
    return passLongest(index, end, [&](std::size_t level, std::size_t block) {
        const std::uint64_t amount = table->levels[level][block][units % 2];
        // Strictly within the range, so that each single step was rounded as the table has it, and no size
        // was greater than what remained.
        const bool isWithin = sign == Sign::Plus ? units + amount < 2 * Lowest : Lowest + amount < units;
        if (isWithin)
            value = std::ldexp(
                static_cast<T>(sign == Sign::Plus ? units + amount : units - amount), exponent - Digits);
        return isWithin;
    });
}

// Null as long as the range does not pay for its table.
template <typename T>
typename RoundedSums<T>::Table* RoundedSums<T>::findTable(int exponent)
{
    if (exponent < ExponentMin || exponent > ExponentMax)
        return nullptr;
    std::unique_ptr<Table>& table = _tables[static_cast<std::size_t>(exponent - ExponentMin)];
    if (!table)
        table = std::make_unique<Table>();
    if (table->levels.empty()) {
        table->plainSteps += BlockSize;
        if (table->plainSteps < TableCost * _sizes.size() || _tablesMade == TablesMax)
            return nullptr;
        makeTable(*table, exponent);
    }
    return table.get();
}

template <typename T>
void RoundedSums<T>::makeTable(Table& table, int exponent)
{
    ++_tablesMade;
    const double unitsPerPoint = std::ldexp(1.0, std::numeric_limits<T>::digits - exponent);
    std::vector<Amounts> level(_largest.front().size());
    for (std::size_t i = 0; i < level.size(); ++i)
        level[i] = makeBlock(i, unitsPerPoint);
    while (!level.empty()) {
        std::vector<Amounts> next(level.size() / 2);
        for (std::size_t i = 0; i < next.size(); ++i)
            next[i] = join(level[2 * i], level[2 * i + 1]);
        table.levels.push_back(std::move(level));
        level = std::move(next);
    }
}

template <typename T>
typename RoundedSums<T>::Amounts RoundedSums<T>::makeBlock(std::size_t block, double unitsPerPoint) const
{
    const double largest = static_cast<double>(_largest.front()[block]) * unitsPerPoint;
    if (!(largest < static_cast<double>(TooMuch)))
        return {TooMuch, TooMuch};
    std::array<double, BlockSize> units;
    std::uint64_t sum = 0;
    bool hasTie = false;
    for (std::size_t i = 0; i < BlockSize; ++i) {
        units[i] = static_cast<double>(_sizes[block * BlockSize + i]) * unitsPerPoint;
        const auto whole = static_cast<std::int64_t>(units[i]);
        const double rest = units[i] - static_cast<double>(whole);
        sum += static_cast<std::uint64_t>(whole) + (rest > 0.5 ? 1U : 0U);
        hasTie |= rest == 0.5;
    }
    if (!hasTie) // as nearly always
        return {std::min(sum, TooMuch), std::min(sum, TooMuch)};
    Amounts amounts = {0, 0};
    for (const double each : units)
        amounts = join(amounts, roundToUnits(each));
    return amounts;
}

template <typename T>
typename RoundedSums<T>::Amounts RoundedSums<T>::join(const Amounts& first, const Amounts& second)
{
    return {std::min(first[0] + second[first[0] % 2], TooMuch),
        std::min(first[1] + second[(first[1] + 1) % 2], TooMuch)};
}

template class RoundedSums<float>;
template class RoundedSums<double>;

} // namespace QV::FilterUtils
