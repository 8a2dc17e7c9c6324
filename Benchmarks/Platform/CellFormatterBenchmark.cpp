// Number format codes, read, printed and applied, against one ICU formatter that is kept.

#include <OfficeUtils/Public/CellFormatter.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <unicode/decimfmt.h>

#include <Benchmarks/Support/KeptFormatter.h>
#include <OfficeUtils/Public/Parser.h>

namespace QV::OfficeUtils {
namespace {

constexpr Parser::ParserType Type = Parser::ParserType::Spreadsheet;
const char* const Codes[] = {"0.00", "#,##0.00;[Red]-#,##0.00", "yyyy\\-mm\\-dd hh:mm", "# ?\?/?\?",
    "[$-F800]dddd\\,\\ mmmm\\ dd\\,\\ yyyy", "_(\"$\"* #,##0.00_);_(\"$\"* \\(#,##0.00\\);_(@_)"};

std::vector<double> makeValues()
{
    std::mt19937 random(1);
    std::vector<double> values;
    for (int i = 0; i < 64; ++i)
        values.push_back(static_cast<double>(random() % 2000000) / 64);
    return values;
}

void parseCodes(benchmark::State& state)
{
    for (auto _ : state)
        for (const char* const code : Codes)
            if (!Parser::parse(code, Type))
                state.SkipWithError("a code is not valid");
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(std::size(Codes)));
}
BENCHMARK(parseCodes)->Name("parseFormatCode/ours");

void printCodes(benchmark::State& state)
{
    std::vector<DOM::CellFormatModel::Expression> expressions;
    for (const char* const code : Codes)
        expressions.push_back(Parser::parse(code, Type).value());
    for (auto _ : state)
        for (const auto& expression : expressions)
            benchmark::DoNotOptimize(Parser::toRegEx(expression, Type));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(std::size(Codes)));
}
BENCHMARK(printCodes)->Name("printFormatCode/ours");

void formatByCode(benchmark::State& state, const char* code)
{
    const CellFormatter formatter(Parser::parse(code, Type).value(), DOM::DateSystem::From1900);
    const std::vector<double> values = makeValues();
    for (auto _ : state)
        for (const double value : values)
            benchmark::DoNotOptimize(formatter.formatNumber(value));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}
BENCHMARK_CAPTURE(formatByCode, decimal, "#,##0.00")->Name("formatDecimalNumber/ours");
BENCHMARK_CAPTURE(formatByCode, date, "yyyy-mm-dd hh:mm")->Name("formatDate/ours");
BENCHMARK_CAPTURE(formatByCode, fraction, "# ?\?/?\?")->Name("formatFraction/ours");
BENCHMARK_CAPTURE(formatByCode, general, "General")->Name("formatGeneral/ours");

void formatThroughKeptFormatter(benchmark::State& state)
{
    const Benchmarks::KeptFormatter kept(u"#,##0.00", icu::DecimalFormat::kRoundHalfUp);
    const CellFormatter formatter(Parser::parse("#,##0.00", Type).value(), DOM::DateSystem::From1900);
    Benchmarks::formatAll(
        state, makeValues(), [&kept](double value) { return kept.toString(value); },
        [&formatter](double value) { return formatter.formatNumber(value).text; });
}
BENCHMARK(formatThroughKeptFormatter)->Name("formatDecimalNumber/reference");

} // namespace
} // namespace QV::OfficeUtils
