// Reading and printing formulas of different lengths: the time of each character is the same for all.

#include <Formulas/Public/FormulaText.h>

#include <cstddef>
#include <iterator>
#include <string>

#include <benchmark/benchmark.h>

#include <Formulas/Public/TableContext.h>

namespace QV::Formulas {
namespace {

/// About @p size characters of what formulas have.
std::string makeFormula(std::size_t size)
{
    const char* const terms[] = {
        "SUM($A1:B$20)", "'My sheet'!C3*2", "IF(A1>=0.5,\"yes\",-D4%)", "(E5+F6)/Rate"};
    std::string text = "A1";
    for (std::size_t i = 0; text.size() < size; ++i)
        text += (i % 2 == 0 ? '+' : '&') + std::string(terms[i % std::size(terms)]);
    return text;
}

/// The same depth and length as parentheses within each other.
std::string makeNested(std::size_t size)
{
    std::string text;
    while (text.size() < size / 2)
        text += "F(1,";
    const std::size_t depth = text.size() / 4;
    return text + "2" + std::string(depth, ')');
}

void setCosts(benchmark::State& state, std::size_t size)
{
    state.counters["ns/character"] = benchmark::Counter(static_cast<double>(size),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

template <std::string (*MakeText)(std::size_t)>
void parseText(benchmark::State& state)
{
    const std::string text = MakeText(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        auto parsed = parseFormula(text);
        if (!parsed)
            state.SkipWithError("the formula is not read");
        benchmark::DoNotOptimize(parsed);
    }
    setCosts(state, text.size());
}
BENCHMARK(parseText<makeFormula>)->Name("parseFormula")->RangeMultiplier(10)->Range(10, 10000);
BENCHMARK(parseText<makeNested>)->Name("parseNestedFormula")->RangeMultiplier(10)->Range(10, 10000);

void printText(benchmark::State& state)
{
    const std::string text = makeFormula(static_cast<std::size_t>(state.range(0)));
    const auto parsed = parseFormula(text);
    const TableContext context;
    if (!parsed || toText(parsed->formula, context) != text)
        state.SkipWithError("the formula does not come back");
    for (auto _ : state)
        benchmark::DoNotOptimize(toText(parsed->formula, context));
    setCosts(state, text.size());
}
BENCHMARK(printText)->Name("printFormula")->RangeMultiplier(10)->Range(10, 10000);

} // namespace
} // namespace QV::Formulas
