// A tree of a sheet of 20 MB, walked: against the parser alone, which nothing that hands out its tree can
// beat.

#include <FilterUtils/FU_XMLElement.h>

#include <benchmark/benchmark.h>

#include <Benchmarks/FilterUtils/SheetXML.h>

namespace QV::FilterUtils {
namespace {

using Benchmarks::MainNamespace;
using Benchmarks::Sheet;
using Benchmarks::SheetSums;

const Sheet& getSheet()
{
    static const Sheet sheet = Benchmarks::makeSheet(20'000'000);
    return sheet;
}

void readCell(const XMLElement& cell, SheetSums& sums)
{
    static const std::string valueName = MainNamespace + ":v";
    static const std::string formulaName = MainNamespace + ":f";
    ++sums.cells;
    sums.text += cell.getAttributeValue("r")->size() + cell.getAttributeValue("s")->size();
    if (const auto formula = cell.getElement(formulaName).getText())
        sums.text += formula->size();
    sums.text += cell.getElement(valueName).getText()->size();
}

SheetSums readWithElements(const std::string& xml)
{
    SheetSums sums;
    Benchmarks::MemoryStream stream(xml);
    const XMLElement root = XMLElement::getRootElement(stream, MainNamespace + ":worksheet");
    root.getElement(MainNamespace + ":sheetData")
        .processElements(MainNamespace + ":row", [&sums](const XMLElement& row) {
            row.processElements(
                MainNamespace + ":c", [&sums](const XMLElement& cell) { readCell(cell, sums); });
        });
    return sums;
}

void readOurs(benchmark::State& state)
{
    Benchmarks::runReading(state, getSheet(), readWithElements);
}

void readReference(benchmark::State& state)
{
    Benchmarks::runReading(state, getSheet(), [](const std::string& xml) {
        Benchmarks::parseWithBareDom(xml);
        return getSheet().sums;
    });
}

BENCHMARK(readOurs)->Name("XMLElement20MB/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(readReference)->Name("XMLElement20MB/reference-dom")->Unit(benchmark::kMillisecond);

// Small parts by the thousand: a relationships part of 2 KB.
std::string makeRelationships()
{
    std::string xml = "<Relationships xmlns=\"urn:relationships\">";
    for (int i = 0; i < 16; ++i)
        xml += "<Relationship Id=\"rId" + std::to_string(i) +
               "\" Type=\"urn:a:type:of:relationship\" "
               "Target=\"some/where/in/a/package/part" +
               std::to_string(i) + ".xml\"/>";
    return xml + "</Relationships>";
}

void readSmallOurs(benchmark::State& state)
{
    const std::string xml = makeRelationships();
    for (auto _ : state) {
        Benchmarks::MemoryStream stream(xml);
        std::size_t count = 0;
        XMLElement::getRootElement(stream, boost::none)
            .processElements("urn:relationships:Relationship", [&count](const XMLElement& element) {
                count += element.getAttributeValue("Id") && element.getAttributeValue("Target");
            });
        if (count != 16)
            state.SkipWithError("elements are missing");
    }
}

void readSmallReference(benchmark::State& state)
{
    const std::string xml = makeRelationships();
    for (auto _ : state)
        Benchmarks::parseWithBareDom(xml);
}

BENCHMARK(readSmallOurs)->Name("XMLElement2KB/ours")->Unit(benchmark::kMicrosecond);
BENCHMARK(readSmallReference)->Name("XMLElement2KB/reference-dom")->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace QV::FilterUtils

int main(int count, char** arguments)
{
    xercesc::XMLPlatformUtils::Initialize();
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
