// ICUDecimalFormatWrapper, made and set up for each number, against one ICU formatter that is kept.

#include <OfficeUtils/Public/ICUDecimalFormatWrapper.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

namespace QV::OfficeUtils {
namespace {

constexpr int Precision = 6;

std::vector<double> makeValues()
{
    std::mt19937 random(1);
    std::vector<double> values;
    for (int i = 0; i < 64; ++i)
        values.push_back(static_cast<double>(random() % 2000000) / (i % 4 == 0 ? 1 : 1000));
    return values;
}

std::string formatThroughWrapper(double value)
{
    ICUDecimalFormatWrapper format(LocaleContext("en_US"));
    format.setPrecision(Precision);
    return format.toString(value);
}

void wrap(benchmark::State& state)
{
    const std::vector<double> values = makeValues();
    for (auto _ : state)
        for (const double value : values)
            benchmark::DoNotOptimize(formatThroughWrapper(value));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}
BENCHMARK(wrap)->Name("ICUDecimalFormatWrapper/ours");

void keep(benchmark::State& state)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::DecimalFormat kept(u"0.#", icu::DecimalFormatSymbols(icu::Locale::getUS(), status), status);
    kept.setRoundingMode(icu::DecimalFormat::kRoundHalfEven);
    kept.setMaximumFractionDigits(Precision);
    const auto format = [&kept](double value) {
        icu::UnicodeString text;
        std::string utf8;
        kept.format(value, text).toUTF8String(utf8);
        return utf8;
    };
    const std::vector<double> values = makeValues();
    for (const double value : values)
        if (format(value) != formatThroughWrapper(value)) {
            state.SkipWithError("the two formatters disagree");
            return;
        }
    for (auto _ : state)
        for (const double value : values)
            benchmark::DoNotOptimize(format(value));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}
BENCHMARK(keep)->Name("ICUDecimalFormatWrapper/reference");

} // namespace
} // namespace QV::OfficeUtils
