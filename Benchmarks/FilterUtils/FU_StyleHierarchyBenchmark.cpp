// The run properties of 100,000 paragraphs, each at the end of a chain of twenty named styles out of 5,000;
// over the finished styles of a document, and over the factory in which they are made. The references walk
// the same chains by hand, with a plain map or with a plain search.

#include <FilterUtils/FU_StyleHierarchy.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <boost/optional.hpp>

#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/Properties.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/TrackChangesViewMode.h>
#include <FilterUtils/FU_NamedStylesFactory.h>
#include <Utils/Public/UUID.h>

namespace QV::FilterUtils {
namespace {

constexpr std::size_t StylesCount = 5000;
constexpr std::size_t ChainLength = 20;
constexpr std::size_t ChainsCount = StylesCount / ChainLength;
constexpr std::int64_t ParagraphsCount = 100000;

/// Each chain sets a size at its root, and a font at each of its styles.
class Chains
{
public:
    Chains()
    {
        std::mt19937_64 random(1);
        for (std::size_t i = 0; i < StylesCount; ++i) {
            auto props = std::make_shared<DOM::RunProps>();
            props->setFontName(std::to_string(i));
            const std::shared_ptr<DOM::NamedTextStyle> style = _factory.makeNamedTextStyle(boost::none);
            style->setUUID(UUID(random(), random()));
            if (i % ChainLength == 0)
                props->setFontSize(static_cast<float>(i / ChainLength));
            else
                style->setParentUUID(_factory.getTextStyles()[i - 1]->getUUID());
            style->setRunProps(props);
            _styles.getTextStyles().insert(*style);
            if (i % ChainLength == ChainLength - 1)
                _paragraphs.emplace_back().setParentUUID(style->getUUID());
        }
    }

    const NamedStylesFactory& getFactory() const { return _factory; }
    const DOM::Styles& getStyles() const { return _styles; }
    /// One for each chain.
    const std::vector<DOM::ParagraphStyle>& getParagraphs() const { return _paragraphs; }

private:
    NamedStylesFactory _factory;
    DOM::Styles _styles;
    std::vector<DOM::ParagraphStyle> _paragraphs;
};

/// @param resolve gives the run properties of a paragraph's style
template <typename Resolve>
void resolveAll(benchmark::State& state, const Chains& chains, Resolve resolve)
{
    for (auto _ : state)
        for (std::int64_t i = 0; i < ParagraphsCount; ++i) {
            const std::size_t chain = static_cast<std::size_t>(i) % ChainsCount;
            const std::shared_ptr<DOM::RunProps> props = resolve(chains.getParagraphs()[chain]);
            const std::string font = std::to_string((chain + 1) * ChainLength - 1);
            if (props->getFontSize() != static_cast<float>(chain) || props->getFontName() != font)
                state.SkipWithError("the properties are others");
        }
    state.SetItemsProcessed(state.iterations() * ParagraphsCount);
}

template <typename C>
void resolveOver(benchmark::State& state, const Chains& chains, const C& styles)
{
    resolveAll(state, chains, [&](const DOM::ParagraphStyle& paragraph) {
        std::shared_ptr<DOM::RunProps> props;
        overrideRunPropsWithTracked(styles, props, paragraph, DOM::TrackChangesViewMode::Final);
        return props;
    });
}

/// @param find gives the style of an identifier, or null
template <typename Find>
std::shared_ptr<DOM::RunProps> resolveByHand(const DOM::ParagraphStyle& paragraph, Find find)
{
    std::vector<const DOM::NamedTextStyle*> chain;
    for (const DOM::NamedTextStyle* style = find(paragraph.getParentUUID()); style;
         style = find(style->getParentUUID()))
        chain.push_back(style);
    auto props = std::make_shared<DOM::RunProps>();
    for (auto style = chain.rbegin(); style != chain.rend(); ++style)
        override(*props, *(*style)->getRunProps());
    return props;
}

void resolveOverStyles(benchmark::State& state)
{
    const Chains chains;
    resolveOver(state, chains, chains.getStyles());
}
BENCHMARK(resolveOverStyles)->Name("resolveChains/ours")->Unit(benchmark::kMillisecond);

void resolveOverAMap(benchmark::State& state)
{
    const Chains chains;
    std::map<UUID, const DOM::NamedTextStyle*> styles;
    for (const DOM::NamedTextStyle& style : chains.getStyles().getTextStyles())
        styles.emplace(style.getUUID(), &style);
    resolveAll(state, chains, [&](const DOM::ParagraphStyle& paragraph) {
        return resolveByHand(paragraph, [&](const UUID& uuid) {
            const auto found = styles.find(uuid);
            return found == styles.end() ? nullptr : found->second;
        });
    });
}
BENCHMARK(resolveOverAMap)->Name("resolveChains/reference")->Unit(benchmark::kMillisecond);

void resolveOverAFactory(benchmark::State& state)
{
    const Chains chains;
    resolveOver(state, chains, chains.getFactory());
}
BENCHMARK(resolveOverAFactory)
    ->Name("resolveChainsInFactory/ours")
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

void resolveOverAVector(benchmark::State& state)
{
    const Chains chains;
    const auto& styles = chains.getFactory().getTextStyles().getItems();
    resolveAll(state, chains, [&](const DOM::ParagraphStyle& paragraph) {
        return resolveByHand(paragraph, [&](const UUID& uuid) {
            const auto found = std::find_if(
                styles.begin(), styles.end(), [&](const auto& style) { return style->getUUID() == uuid; });
            return found == styles.end() ? nullptr : found->get();
        });
    });
}
BENCHMARK(resolveOverAVector)
    ->Name("resolveChainsInFactory/reference")
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace QV::FilterUtils
