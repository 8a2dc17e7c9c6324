// convertToRGBAColor on hexadecimal text against std::stoul alone on the digits, which yields no colour yet.

#include <FilterUtils/FU_Colors.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <Utils/Public/OperationReport.h>

namespace QV::FilterUtils {
namespace {

struct Texts
{
    std::vector<std::string> colors; // every other one with "#", one in eight with an opacity
    std::vector<std::string> digits; // of the same colours
};

Texts makeTexts()
{
    Texts texts;
    std::mt19937 random(1);
    for (int i = 0; i < 64; ++i) {
        texts.digits.push_back(i % 8 == 0 ? fmt::format("{:08X}", random() & 0xFFFFFFFFU)
                                          : fmt::format("{:06X}", random() & 0xFFFFFFU));
        texts.colors.push_back((i % 2 == 0 ? "#" : "") + texts.digits.back());
    }
    return texts;
}

bool doAllAgree(const Texts& texts)
{
    OperationReport report;
    for (std::size_t i = 0; i < texts.colors.size(); ++i) {
        const auto color = convertToRGBAColor(report, texts.colors[i]);
        if (!color)
            return false;
        std::string written = convertRGBColor(*color);
        if (texts.digits[i].size() == 8)
            written += fmt::format("{:02X}", color->a);
        if (written != texts.digits[i])
            return false;
    }
    return report.getMessages().empty();
}

template <typename Read>
void readAll(benchmark::State& state, const std::vector<std::string>& texts, const Read& read)
{
    if (!doAllAgree(makeTexts())) {
        state.SkipWithError("a colour differs from its digits");
        return;
    }
    for (auto _ : state)
        for (const std::string& text : texts)
            benchmark::DoNotOptimize(read(text));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts.size()));
}

void readThroughLibrary(benchmark::State& state)
{
    OperationReport report;
    readAll(state, makeTexts().colors,
        [&report](const std::string& text) { return convertToRGBAColor(report, text); });
}
BENCHMARK(readThroughLibrary)->Name("convertToRGBAColor/ours");

void readThroughStoul(benchmark::State& state)
{
    readAll(state, makeTexts().digits, [](const std::string& text) {
        std::size_t end = 0;
        return std::stoul(text, &end, 16);
    });
}
BENCHMARK(readThroughStoul)->Name("convertToRGBAColor/reference");

} // namespace
} // namespace QV::FilterUtils
