// convertLength against the plain way: strtod and a switch over the two letters of the unit.

#include <FilterUtils/FU_Lengths.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include <Utils/Public/OperationReport.h>
#include <Utils/Public/Unit.h>

namespace QV::FilterUtils {
namespace {

// As styles, tables and drawings of real documents write them.
const std::vector<std::string> Texts = {"12pt", "1.27cm", "0.5in", "2.54mm", "11.5pt", "-3.175mm", "0pt",
    "36pt", "1.905cm", "0.0138in", "7.05pt", "21.001cm", "29.7cm", "0.75pt", "-0.25in", "6.5in", "3pc",
    "12.7mm", "595.3pt", "841.9pt", "0.635cm", "14.4pt", "0.05pt", "2.117mm", "1.499cm", "10.583mm", "8.5in",
    "+4pt", "17.59cm", "0.353mm", "1pi", "112.5pt"};

UnitOpt convertPlainly(const std::string& text)
{
    char* unit = nullptr;
    const double number = std::strtod(text.c_str(), &unit);
    if (unit == text.c_str() || text.c_str() + text.size() - unit != 2)
        return boost::none;
    switch (unit[0] << 8 | unit[1]) {
    case 'p' << 8 | 't':
        return static_cast<float>(number);
    case 'i' << 8 | 'n':
        return static_cast<float>(number * 72.0);
    case 'p' << 8 | 'c':
    case 'p' << 8 | 'i':
        return static_cast<float>(number * 12.0);
    case 'm' << 8 | 'm':
        return static_cast<float>(number * 2.8346471786499023);
    case 'c' << 8 | 'm':
        return static_cast<float>(number * 28.346473693847656);
    default:
        return boost::none;
    }
}

bool doAllAgree()
{
    OperationReport report;
    for (const std::string& text : Texts) {
        const UnitOpt expected = convertPlainly(text);
        if (!expected || convertLength(report, text, boost::none, anyLength) != expected)
            return false;
    }
    return report.getMessages().empty();
}

template <typename Convert>
void convertAll(benchmark::State& state, const Convert& convert)
{
    if (!doAllAgree()) {
        state.SkipWithError("the two ways disagree");
        return;
    }
    for (auto _ : state)
        for (const std::string& text : Texts)
            benchmark::DoNotOptimize(convert(text));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(Texts.size()));
}

void convertThroughLibrary(benchmark::State& state)
{
    OperationReport report;
    convertAll(state,
        [&report](const std::string& text) { return convertLength(report, text, boost::none, anyLength); });
}
BENCHMARK(convertThroughLibrary)->Name("convertLength/ours");

void convertThroughStrtod(benchmark::State& state)
{
    convertAll(state, convertPlainly);
}
BENCHMARK(convertThroughStrtod)->Name("convertLength/reference");

} // namespace
} // namespace QV::FilterUtils
