#pragma once

// What the benchmarks of the XML readers share: a sheet in memory, the plain ways to read it, and the memory
// it takes.

#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <istream>
#include <streambuf>
#include <string>
#include <string_view>

#include <benchmark/benchmark.h>
#include <expat.h>
#include <malloc.h>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/PlatformUtils.hpp>

namespace QV::Benchmarks {

inline const std::string MainNamespace = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";

// What a reading must find; text counts bytes of references and styles of cells and of all values and
// formulas.
struct SheetSums
{
    std::size_t cells = 0;
    std::size_t text = 0;

    bool operator==(const SheetSums& other) const { return cells == other.cells && text == other.text; }
};

struct Sheet
{
    std::string xml;
    SheetSums sums;
};

inline void appendCell(Sheet& sheet, std::size_t row, std::size_t column)
{
    const std::string reference = std::string(1, static_cast<char>('A' + column)) + std::to_string(row + 1);
    const std::string style = std::to_string(column % 8);
    const bool isString = column % 10 >= 7;
    const std::string formula = column % 10 == 6 ? "SUM(A" + std::to_string(row + 1) + ":F9)" : "";
    const std::string value =
        isString ? std::to_string(row * column % 5000) : std::to_string(row * 37 + column) + ".25";
    sheet.xml += "<c r=\"" + reference + "\" s=\"" + style + (isString ? "\" t=\"s\">" : "\">");
    if (!formula.empty())
        sheet.xml += "<f>" + formula + "</f>";
    sheet.xml += "<v>" + value + "</v></c>";
    ++sheet.sums.cells;
    sheet.sums.text += reference.size() + style.size() + formula.size() + value.size();
}

// A sheet of 20 columns with at least so many bytes.
inline Sheet makeSheet(std::size_t bytes)
{
    Sheet sheet;
    sheet.xml.reserve(bytes + 10'000);
    sheet.xml =
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n<worksheet xmlns=\"" + MainNamespace +
        "\" xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\"><sheetData>";
    for (std::size_t row = 0; sheet.xml.size() < bytes; ++row) {
        sheet.xml += "<row r=\"" + std::to_string(row + 1) + "\" spans=\"1:20\">";
        for (std::size_t column = 0; column < 20; ++column)
            appendCell(sheet, row, column);
        sheet.xml += "</row>";
    }
    sheet.xml += "</sheetData></worksheet>";
    return sheet;
}

// Reads text that is in memory already, without a copy of it.
class MemoryStream : private std::streambuf, public std::istream
{
public:
    explicit MemoryStream(const std::string& text)
        : std::istream(static_cast<std::streambuf*>(this))
    {
        char* const begin = const_cast<char*>(text.data());
        setg(begin, begin, begin + text.size());
    }
};

inline void parseWithBareDom(const std::string& xml)
{
    xercesc::XercesDOMParser parser;
    parser.setDoNamespaces(true);
    parser.setValidationScheme(xercesc::XercesDOMParser::Val_Never);
    xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(xml.data()), xml.size(), "sheet");
    source.setCopyBufToStream(false);
    parser.parse(source);
    benchmark::DoNotOptimize(parser.getDocument());
}

struct ExpatSums
{
    SheetSums sums;
    bool isInText = false;
    std::string text;
};

inline void startWithExpat(void* data, const XML_Char* name, const XML_Char** attributes)
{
    auto& found = *static_cast<ExpatSums*>(data);
    const std::string_view local = std::string_view(name).substr(std::string_view(name).rfind('|') + 1);
    found.isInText = local == "v" || local == "f";
    found.text.clear();
    if (local != "c")
        return;
    ++found.sums.cells;
    for (; *attributes; attributes += 2)
        found.sums.text += std::string_view(attributes[0]) == "t" ? 0 : std::string(attributes[1]).size();
}

inline void endWithExpat(void* data, const XML_Char* /*name*/)
{
    auto& found = *static_cast<ExpatSums*>(data);
    found.sums.text += found.isInText ? found.text.size() : 0;
    found.isInText = false;
}

inline void textWithExpat(void* data, const XML_Char* text, int size)
{
    auto& found = *static_cast<ExpatSums*>(data);
    if (found.isInText)
        found.text.append(text, static_cast<std::size_t>(size));
}

inline SheetSums readWithExpat(const std::string& xml)
{
    constexpr std::size_t BlockBytes = 64 << 10;
    ExpatSums found;
    XML_Parser parser = XML_ParserCreateNS(nullptr, '|');
    XML_SetUserData(parser, &found);
    XML_SetElementHandler(parser, startWithExpat, endWithExpat);
    XML_SetCharacterDataHandler(parser, textWithExpat);
    for (std::size_t begin = 0; begin < xml.size(); begin += BlockBytes) {
        const std::size_t size = std::min(BlockBytes, xml.size() - begin);
        XML_Parse(parser, xml.data() + begin, static_cast<int>(size), begin + size == xml.size());
    }
    XML_ParserFree(parser);
    return found.sums;
}

inline std::size_t readStatus(const std::string& key)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.compare(0, key.size(), key) == 0)
            return std::stoul(line.substr(key.size() + 1)) * 1024;
    return 0;
}

// By how much the peak of resident memory grows while the function runs, in a process of its own.
inline double measurePeakGrowth(const std::function<void()>& function)
{
    int ends[2];
    if (pipe(ends) != 0)
        std::abort();
    malloc_trim(0);
    const pid_t child = fork();
    if (child == 0) {
        const std::size_t before = readStatus("VmRSS:");
        function();
        const double growth = static_cast<double>(readStatus("VmHWM:") - before);
        _exit(write(ends[1], &growth, sizeof growth) == sizeof growth ? 0 : 1);
    }
    double growth = 0;
    int status = 0;
    if (read(ends[0], &growth, sizeof growth) != sizeof growth || waitpid(child, &status, 0) != child ||
        status != 0)
        std::abort();
    close(ends[0]);
    close(ends[1]);
    return growth;
}

// Times a reading of the sheet, checks what it found, and reports bytes per second and peak memory per byte.
inline void runReading(
    benchmark::State& state, const Sheet& sheet, const std::function<SheetSums(const std::string&)>& reading)
{
    const double growth = measurePeakGrowth([&] { reading(sheet.xml); });
    for (auto _ : state)
        if (!(reading(sheet.xml) == sheet.sums))
            state.SkipWithError("the reading found something else");
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(sheet.xml.size()));
    state.counters["peak_memory_per_byte"] = growth / static_cast<double>(sheet.xml.size());
}

} // namespace QV::Benchmarks
