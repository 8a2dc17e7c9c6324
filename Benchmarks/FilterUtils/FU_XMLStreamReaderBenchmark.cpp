// A stream of a sheet of 100 MB, every attribute and every text read: against the tree's parser, and against
// the fastest event parser that is packaged.

#include <FilterUtils/FU_XMLStreamReader.h>

#include <benchmark/benchmark.h>

#include <Benchmarks/FilterUtils/SheetXML.h>

namespace QV::FilterUtils {
namespace {

using Benchmarks::MainNamespace;
using Benchmarks::Sheet;
using Benchmarks::SheetSums;

enum Word
{
    Row,
    Cell,
    Value,
    Formula,
    Reference,
    Style,
    Type,
    Spans
};

const XMLVocabulary& getWords()
{
    static const XMLVocabulary words(
        {
            {"x", {MainNamespace, "http://purl.oclc.org/ooxml/spreadsheetml/main"}}
    },
        {{Row, "x:row"}, {Cell, "x:c"}, {Value, "x:v"}, {Formula, "x:f"}, {Reference, "r"}, {Style, "s"},
            {Type, "t"}, {Spans, "spans"}});
    return words;
}

const Sheet& getSheet()
{
    static const Sheet sheet = Benchmarks::makeSheet(100'000'000);
    return sheet;
}

struct SumHandler : XMLStreamHandler
{
    XMLStep onStart(const XMLStreamStart& element) override
    {
        switch (element.getId()) {
        case Row:
            benchmark::DoNotOptimize(element.findAttribute(Reference));
            benchmark::DoNotOptimize(element.findAttribute(Spans));
            return XMLStep::Enter;
        case Cell:
            ++sums.cells;
            benchmark::DoNotOptimize(element.findAttribute(Type));
            for (const Word word : {Reference, Style})
                if (const auto value = element.findAttribute(word))
                    sums.text += value->size();
            return XMLStep::Enter;
        case Value:
        case Formula:
            return XMLStep::EnterText;
        default:
            return XMLStep::Enter;
        }
    }
    XMLFlow onEnd(const XMLStreamEnd& element) override
    {
        if (element.getId() == Value || element.getId() == Formula) {
            text.clear();
            element.appendText(text);
            sums.text += text.size();
        }
        return XMLFlow::Continue;
    }

    SheetSums sums;
    std::string text;
};

void readOurs(benchmark::State& state)
{
    Benchmarks::runReading(state, getSheet(), [](const std::string& xml) {
        SumHandler handler;
        Benchmarks::MemoryStream stream(xml);
        XMLStreamReader(getWords()).read(stream, handler);
        return handler.sums;
    });
}

void readReferenceDom(benchmark::State& state)
{
    Benchmarks::runReading(state, getSheet(), [](const std::string& xml) {
        Benchmarks::parseWithBareDom(xml);
        return getSheet().sums;
    });
}

void readReferenceExpat(benchmark::State& state)
{
    Benchmarks::runReading(state, getSheet(), Benchmarks::readWithExpat);
}

BENCHMARK(readOurs)->Name("XMLStreamReader100MB/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(readReferenceDom)
    ->Name("XMLStreamReader100MB/reference-dom")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);
BENCHMARK(readReferenceExpat)->Name("XMLStreamReader100MB/reference-expat")->Unit(benchmark::kMillisecond);

// One sub-tree for each of many small elements, as rich text needs it: against one tree of all.
std::string makeItems()
{
    std::string xml = "<sst>";
    for (int i = 0; i < 20'000; ++i)
        xml += "<si><r><rPr><b/><sz val=\"11\"/></rPr><t>rich</t></r><r><t>text</t></r></si>";
    return xml + "</sst>";
}

struct TreeHandler : XMLStreamHandler
{
    XMLStep onStart(const XMLStreamStart& element) override
    {
        return element.getDepth() == 2 ? XMLStep::Tree : XMLStep::Enter;
    }
    XMLFlow onTree(const XMLStreamElement& /*element*/, const XMLElement& /*tree*/) override
    {
        ++count;
        return XMLFlow::Continue;
    }
    std::size_t count = 0;
};

std::size_t countTrees(const std::string& xml)
{
    TreeHandler handler;
    Benchmarks::MemoryStream stream(xml);
    XMLStreamReader(getWords()).read(stream, handler);
    return handler.count;
}

void readTreesOurs(benchmark::State& state)
{
    const std::string xml = makeItems();
    const double growth = Benchmarks::measurePeakGrowth([&xml] { countTrees(xml); });
    for (auto _ : state)
        if (countTrees(xml) != 20'000)
            state.SkipWithError("trees are missing");
    state.counters["peak_memory_per_byte"] = growth / static_cast<double>(xml.size());
}

void readTreesReference(benchmark::State& state)
{
    const std::string xml = makeItems();
    for (auto _ : state)
        Benchmarks::parseWithBareDom(xml);
}

BENCHMARK(readTreesOurs)->Name("XMLStreamReaderTrees/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(readTreesReference)->Name("XMLStreamReaderTrees/reference-dom")->Unit(benchmark::kMillisecond);

} // namespace
} // namespace QV::FilterUtils

int main(int count, char** arguments)
{
    xercesc::XMLPlatformUtils::Initialize();
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
