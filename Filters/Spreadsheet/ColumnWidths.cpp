#include <Filters/Spreadsheet/ColumnWidths.h>

#include <algorithm>
#include <cmath>

namespace QV::Filters {
namespace {

constexpr double PointsPerPixel = 72.0 / 96.0;
constexpr double PixelsPerPoint = 96.0 / 72.0;

struct DigitAdvance
{
    const char* fontName;
    double ems; // the advance of the digits, in parts of the font's size
};

// Read off the fonts' horizontal metrics: units of advance over units in an em.
const DigitAdvance DigitAdvances[] = {
    {"Aptos Narrow",    0.5  },
    {"Arial",           0.556},
    {"Calibri",         0.507},
    {"Cambria",         0.554},
    {"Courier New",     0.6  },
    {"Helvetica",       0.556},
    {"Liberation Sans", 0.556},
    {"Segoe UI",        0.539},
    {"Tahoma",          0.546},
    {"Times New Roman", 0.5  },
    {"Trebuchet MS",    0.524},
    {"Verdana",         0.636},
};
constexpr double UsualDigitAdvance = 0.507;

} // namespace

int getMaxDigitWidth(const std::string& fontName, float fontSize)
{
    const auto* const end = std::end(DigitAdvances);
    const auto* const found = std::find_if(
        std::begin(DigitAdvances), end, [&](const DigitAdvance& row) { return fontName == row.fontName; });
    const double ems = found == end ? UsualDigitAdvance : found->ems;
    const double pixels = std::round(ems * static_cast<double>(fontSize) * PixelsPerPoint);
    return static_cast<int>(std::min(std::max(pixels, 1.0), 1000.0));
}

float convertCharactersToPoints(double characters, int maxDigitWidth)
{
    const double rounding = std::floor(128.0 / maxDigitWidth);
    const double pixels = std::floor((256.0 * characters + rounding) / 256.0 * maxDigitWidth);
    return static_cast<float>(pixels * PointsPerPixel);
}

float getDefaultColumnWidth(unsigned baseCharacters, int maxDigitWidth)
{
    constexpr double Margins = 5; // two pixels on either side, and the grid line
    const double pixels = static_cast<double>(baseCharacters) * maxDigitWidth + Margins;
    return static_cast<float>(std::ceil(pixels / 8) * 8 * PointsPerPixel);
}

} // namespace QV::Filters
