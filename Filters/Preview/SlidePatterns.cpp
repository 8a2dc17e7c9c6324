#include <Filters/Preview/SlidePatterns.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

#include <fmt/format.h>

#include <Filters/Preview/SlideFills.h>
#include <Filters/Preview/SvgNumbers.h>

namespace QV::Filters {
namespace {

// The lines of a tile, as bits.
constexpr unsigned HatchAcross = 1;
constexpr unsigned HatchDown = 2;
constexpr unsigned HatchRising = 4;
constexpr unsigned HatchFalling = 8;

struct HatchPreset
{
    const char* name;
    unsigned lines;
    double side;  // points
    double width; // of the lines
};

constexpr HatchPreset HatchPresets[] = {
    {"horz",       HatchAcross,                6,   0.75},
    {"ltHorz",     HatchAcross,                3,   0.75},
    {"narHorz",    HatchAcross,                1.5, 0.75},
    {"dkHorz",     HatchAcross,                3,   1.5 },
    {"dashHorz",   HatchAcross,                3,   0.5 },
    {"vert",       HatchDown,                  6,   0.75},
    {"ltVert",     HatchDown,                  3,   0.75},
    {"narVert",    HatchDown,                  1.5, 0.75},
    {"dkVert",     HatchDown,                  3,   1.5 },
    {"dashVert",   HatchDown,                  3,   0.5 },
    {"cross",      HatchAcross | HatchDown,    6,   0.75},
    {"smGrid",     HatchAcross | HatchDown,    3,   0.75},
    {"lgGrid",     HatchAcross | HatchDown,    6,   0.75},
    {"dotGrid",    HatchAcross | HatchDown,    6,   0.25},
    {"upDiag",     HatchRising,                6,   0.75},
    {"ltUpDiag",   HatchRising,                3,   0.75},
    {"dkUpDiag",   HatchRising,                3,   1.25},
    {"wdUpDiag",   HatchRising,                6,   2   },
    {"dashUpDiag", HatchRising,                3,   0.5 },
    {"dnDiag",     HatchFalling,               6,   0.75},
    {"ltDnDiag",   HatchFalling,               3,   0.75},
    {"dkDnDiag",   HatchFalling,               3,   1.25},
    {"wdDnDiag",   HatchFalling,               6,   2   },
    {"dashDnDiag", HatchFalling,               3,   0.5 },
    {"diagCross",  HatchRising | HatchFalling, 6,   0.75},
    {"openDmnd",   HatchRising | HatchFalling, 6,   0.75},
    {"dotDmnd",    HatchRising | HatchFalling, 6,   0.25},
};

struct PatternShare
{
    const char* name;
    double share; // of the foreground
};

constexpr PatternShare PatternShares[] = {
    {"pct5",  0.05},
    {"pct10", 0.1 },
    {"pct20", 0.2 },
    {"pct25", 0.25},
    {"pct30", 0.3 },
    {"pct40", 0.4 },
    {"pct50", 0.5 },
    {"pct60", 0.6 },
    {"pct70", 0.7 },
    {"pct75", 0.75},
    {"pct80", 0.8 },
    {"pct90", 0.9 },
};

template <typename Row, std::size_t Count>
const Row* findPatternRow(const Row (&rows)[Count], const std::string& name)
{
    const auto* const found =
        std::find_if(std::begin(rows), std::end(rows), [&](const Row& row) { return name == row.name; });
    return found == std::end(rows) ? nullptr : found;
}

/// Diagonals go on in the corners, which the lines of the neighbours cut.
std::string makeHatchPath(const HatchPreset& preset)
{
    const std::string side = formatSvgNumber(preset.side);
    const std::string half = formatSvgNumber(preset.side / 2);
    const std::string beyond = formatSvgNumber(preset.side + 1);
    const std::string before = formatSvgNumber(preset.side - 1);
    std::string data;
    if (preset.lines & HatchAcross)
        data += fmt::format("M0 {}H{}", half, side);
    if (preset.lines & HatchDown)
        data += fmt::format("M{} 0V{}", half, side);
    if (preset.lines & HatchRising)
        data += fmt::format("M0 {0}L{0} 0M-1 1L1 -1M{1} {2}L{2} {1}", side, before, beyond);
    if (preset.lines & HatchFalling)
        data += fmt::format("M0 0L{0} {0}M{1} -1L{2} 1M-1 {1}L1 {2}", side, before, beyond);
    return data;
}

unsigned char mixChannel(unsigned char foreground, unsigned char background, double share)
{
    return static_cast<unsigned char>(std::lround(foreground * share + background * (1 - share)));
}

} // namespace

double getHatchSide(const std::string& preset)
{
    const HatchPreset* const row = findPatternRow(HatchPresets, preset);
    return row ? row->side : 0;
}

std::string makeHatch(const DOM::PatternFill& fill)
{
    const HatchPreset* const row = findPatternRow(HatchPresets, fill.preset);
    if (!row)
        return {};
    return fmt::format("<rect width=\"{0}\" height=\"{0}\"{1}/><path d=\"{2}\" fill=\"none\"{3} "
                       "stroke-width=\"{4}\"/>",
        formatSvgNumber(row->side), makeColorAttributes("fill", fill.background), makeHatchPath(*row),
        makeColorAttributes("stroke", fill.foreground), formatSvgNumber(row->width));
}

DOM::Color getMeanColor(const DOM::PatternFill& fill)
{
    const PatternShare* const row = findPatternRow(PatternShares, fill.preset);
    const double share = row ? row->share : 0.5;
    const DOM::Color::RGBA& a = fill.foreground.getRGBA();
    const DOM::Color::RGBA& b = fill.background.getRGBA();
    return DOM::Color(DOM::Color::RGBA(mixChannel(a.r, b.r, share), mixChannel(a.g, b.g, share),
        mixChannel(a.b, b.b, share), mixChannel(a.a, b.a, share)));
}

} // namespace QV::Filters
