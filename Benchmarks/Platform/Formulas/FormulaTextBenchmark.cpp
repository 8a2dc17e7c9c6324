// Reading and printing one formula, against ten of a tenth of its length: from 10 to 10,000 characters the
// time grows with the length.

#include <Formulas/Public/FormulaText.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include <Formulas/Public/TableContext.h>

namespace QV::Formulas {
namespace {

/// @p size characters of what formulas have, and one.
std::string makeFormula(std::size_t size)
{
    const std::string terms[] = {"+A$1*Sh!B2", "&IF(A1,2,)", "-(B12+Tax)", "*MAX(D:D%)"};
    std::string text = "1";
    for (std::size_t i = 0; text.size() <= size - terms[0].size() + 1; ++i)
        text += terms[i % std::size(terms)];
    return text;
}

/// As many characters of calls within each other, five for each.
std::string makeNested(std::size_t size)
{
    const std::size_t depth = size / 5;
    std::string text;
    for (std::size_t i = 0; i < depth; ++i)
        text += "F(1,";
    return text + "2" + std::string(depth, ')');
}

constexpr std::size_t Tenths = 10;

/// One formula of the size asked for, or ten of a tenth of it: the same work where the time grows with the
/// length.
template <std::string (*MakeText)(std::size_t)>
std::vector<std::string> makeFormulas(benchmark::State& state, bool areTenths)
{
    const auto size = static_cast<std::size_t>(state.range(0));
    return areTenths ? std::vector<std::string>(Tenths, MakeText(size / Tenths))
                     : std::vector<std::string>(1, MakeText(size));
}

template <std::string (*MakeText)(std::size_t), bool AreTenths>
void parseTexts(benchmark::State& state)
{
    const auto texts = makeFormulas<MakeText>(state, AreTenths);
    for (auto _ : state)
        for (const std::string& text : texts) {
            auto parsed = parseFormula(text);
            if (!parsed)
                state.SkipWithError("the formula is not read");
            benchmark::DoNotOptimize(parsed);
        }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts.size()));
}

template <bool AreTenths>
void printTexts(benchmark::State& state)
{
    const TableContext context;
    std::vector<DOM::Formula> formulas;
    for (const std::string& text : makeFormulas<makeFormula>(state, AreTenths)) {
        auto parsed = parseFormula(text);
        if (!parsed || toText(parsed->formula, context) != text) {
            state.SkipWithError("a formula does not come back");
            return;
        }
        formulas.push_back(std::move(parsed->formula));
    }
    for (auto _ : state)
        for (const DOM::Formula& formula : formulas)
            benchmark::DoNotOptimize(toText(formula, context));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(formulas.size()));
}

void setSizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(100)->Arg(1000)->Arg(10000);
}

BENCHMARK(parseTexts<makeFormula, false>)->Name("parseFormula/ours")->Apply(setSizes);
BENCHMARK(parseTexts<makeFormula, true>)->Name("parseFormula/reference-tenths")->Apply(setSizes);
BENCHMARK(parseTexts<makeNested, false>)->Name("parseNestedFormula/ours")->Apply(setSizes);
BENCHMARK(parseTexts<makeNested, true>)->Name("parseNestedFormula/reference-tenths")->Apply(setSizes);
BENCHMARK(printTexts<false>)->Name("printFormula/ours")->Apply(setSizes);
BENCHMARK(printTexts<true>)->Name("printFormula/reference-tenths")->Apply(setSizes);

} // namespace
} // namespace QV::Formulas
