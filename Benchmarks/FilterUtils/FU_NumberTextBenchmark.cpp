// formatDoubleToString, which makes its formatter anew for each number, against one ICU formatter that is
// kept.

#include <FilterUtils/FU_NumberText.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

namespace QV::FilterUtils {
namespace {

constexpr int Precision = 15;

class KeptFormatter
{
public:
    KeptFormatter()
        : _format(u"0.#", icu::DecimalFormatSymbols(icu::Locale::getUS(), _status), _status)
    {
        _format.setRoundingMode(icu::DecimalFormat::kRoundHalfEven);
        _format.setMaximumFractionDigits(Precision);
    }

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

std::vector<double> makeValues()
{
    std::mt19937 random(1);
    std::vector<double> values;
    for (int i = 0; i < 64; ++i)
        values.push_back(static_cast<double>(random() % 2000000) / (i % 4 == 0 ? 1 : 1000));
    return values;
}

template <typename Format>
void formatAll(benchmark::State& state, const Format& format)
{
    const std::vector<double> values = makeValues();
    const KeptFormatter kept;
    for (const double value : values)
        if (formatDoubleToString(value, Precision) != kept.toString(value)) {
            state.SkipWithError("the two formatters disagree");
            return;
        }
    for (auto _ : state)
        for (const double value : values)
            benchmark::DoNotOptimize(format(value));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}

void formatThroughLibrary(benchmark::State& state)
{
    formatAll(state, [](double value) { return formatDoubleToString(value, Precision); });
}
BENCHMARK(formatThroughLibrary)->Name("formatDoubleToString/ours");

void formatThroughKeptFormatter(benchmark::State& state)
{
    const KeptFormatter kept;
    formatAll(state, [&kept](double value) { return kept.toString(value); });
}
BENCHMARK(formatThroughKeptFormatter)->Name("formatDoubleToString/reference");

} // namespace
} // namespace QV::FilterUtils
