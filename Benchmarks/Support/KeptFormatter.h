#pragma once

// What formatters of numbers are measured against.

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

namespace QV::Benchmarks {

/// One ICU formatter for US English that is made once.
class KeptFormatter
{
public:
    KeptFormatter(const char16_t* pattern, icu::DecimalFormat::ERoundingMode mode)
        : _format(pattern, icu::DecimalFormatSymbols(icu::Locale::getUS(), _status), _status)
    {
        _format.setRoundingMode(mode);
    }

    void setPrecision(int digits) { _format.setMaximumFractionDigits(digits); }

    std::string toString(double value) const
    {
        icu::UnicodeString text;
        std::string utf8;
        _format.format(value, text).toUTF8String(utf8);
        return utf8;
    }

private:
    UErrorCode _status = U_ZERO_ERROR;
    icu::DecimalFormat _format;
};

/// The same with at most so many digits after the point, as who asks for plain numbers wants it.
inline KeptFormatter makeKeptFormatter(int digits)
{
    KeptFormatter kept(u"0.#", icu::DecimalFormat::kRoundHalfEven);
    kept.setPrecision(digits);
    return kept;
}

/// Whole numbers, and numbers with three digits after the point, always the same.
inline std::vector<double> makePlainValues()
{
    std::mt19937 random(1);
    std::vector<double> values;
    for (int i = 0; i < 64; ++i)
        values.push_back(static_cast<double>(random() % 2000000) / (i % 4 == 0 ? 1 : 1000));
    return values;
}

/// Formats all values in each round. An error where @p format and @p other disagree about one of them.
template <typename Format, typename Other>
void formatAll(
    benchmark::State& state, const std::vector<double>& values, const Format& format, const Other& other)
{
    const auto differ = [&](double value) { return format(value) != other(value); };
    if (std::any_of(values.begin(), values.end(), differ)) {
        state.SkipWithError("the two formatters disagree");
        return;
    }
    for (auto _ : state)
        for (const double value : values)
            benchmark::DoNotOptimize(format(value));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}

} // namespace QV::Benchmarks
