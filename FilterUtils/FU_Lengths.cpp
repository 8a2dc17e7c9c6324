#include <FilterUtils/FU_Lengths.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

#include <boost/utility/string_ref.hpp>
#include <fmt/format.h>

#include <DOM/Public/FuzzyCompare.h>
#include <OfficeUtils/Public/NumberParsing.h>
#include <Utils/Public/Assertions.h>
#include <Utils/Public/OperationReport.h>

#include <FilterUtils/FU_NumberText.h>

namespace QV::FilterUtils {
namespace {

constexpr float EmuPerPoint = 12700.0F;

const char* const UnparsedLength = "Can't parse length value {}";

const char* const PixelsNotImplemented =
    "QV::UnitOpt QV::FilterUtils::convertLength(QV::OperationReport&, const std::string&, "
    "const QV::UnitOpt&, QV::FilterUtils::LengthType) is not implemented";

// 32-bit FNV-1a, draft-eastlake-fnv.
constexpr std::uint32_t hash(boost::string_ref bytes)
{
    std::uint32_t value = 2166136261U;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        value = (value ^ static_cast<unsigned char>(bytes.data()[i])) * 16777619U;
    return value;
}

struct LengthUnit
{
    template <std::size_t Size>
    constexpr LengthUnit(const char (&unitName)[Size], double points)
        : name(unitName, Size - 1)
        , nameHash(hash(name))
        , pointsPerUnit(points)
    {
    }

    boost::string_ref name;
    std::uint32_t nameHash;
    double pointsPerUnit;
};

constexpr double NotImplemented = 0;

// The metric factors are exact single-precision values, slightly off 72/25.4 and 720/25.4 on purpose.
constexpr LengthUnit LengthUnits[] = {
    {"pt", 1.0               },
    {"in", 72.0              },
    {"pc", 12.0              },
    {"pi", 12.0              },
    {"mm", 2.8346471786499023},
    {"cm", 28.346473693847656},
    {"px", NotImplemented    },
};

const LengthUnit* findLengthUnit(boost::string_ref name)
{
    const std::uint32_t nameHash = hash(name);
    for (const LengthUnit& unit : LengthUnits)
        if (unit.nameHash == nameHash && unit.name == name)
            return &unit;
    return nullptr;
}

bool isNumberCharacter(char c)
{
    switch (c) {
    case '-':
    case '+':
    case '.':
    case 'E':
    case 'e':
        return true;
    default:
        return '0' <= c && c <= '9';
    }
}

// The nearest float; the cast alone is not defined for what lies beyond the range of float.
float toFloat(double value)
{
    constexpr double largest = std::numeric_limits<float>::max();
    constexpr double halfAboveLargest = 0x1.ffffffp127;
    const double magnitude = std::fabs(value);
    if (magnitude >= halfAboveLargest)
        return std::copysign(std::numeric_limits<float>::infinity(), value < 0 ? -1.0F : 1.0F);
    if (magnitude > largest)
        return std::copysign(std::numeric_limits<float>::max(), value < 0 ? -1.0F : 1.0F);
    return static_cast<float>(value);
}

boost::none_t refuse(OperationReport& report, const char* pattern, const std::string& text)
{
    report.emplace_back(pattern, text);
    return boost::none;
}

UnitOpt parseLength(OperationReport& report, const std::string& text)
{
    const auto numberEnd = std::find_if_not(text.begin(), text.end(), isNumberCharacter);
    const auto numberSize = static_cast<std::size_t>(numberEnd - text.begin());
    const auto number = OfficeUtils::stringToDouble(text.substr(0, numberSize));
    if (!number)
        return refuse(report, UnparsedLength, text);

    const LengthUnit* unit = findLengthUnit(boost::string_ref(text).substr(numberSize));
    if (!unit)
        return refuse(report, "Unknown units in {}", text);
    if (unit->pointsPerUnit == NotImplemented) {
        doFailAssert(__FILE__, __LINE__, "", PixelsNotImplemented);
        return refuse(report, UnparsedLength, text);
    }
    return toFloat(*number * unit->pointsPerUnit);
}

} // namespace

UnitOpt convertLength(
    OperationReport& report, const std::string& text, const UnitOpt& maximum, LengthType type)
{
    const UnitOpt length = text.empty() ? UnitOpt(0.0F) : parseLength(report, text);
    if (!length)
        return boost::none;
    const bool isNearZero = DOM::isNearZero(*length);
    if (type == positiveLength && (isNearZero || !(*length > 0)))
        return refuse(report, "Unexpected value for positiveLength {}", text);
    if (type == nonNegativeLength && !isNearZero && *length < 0)
        return refuse(report, "Unexpected value for nonNegativeLength {}", text);
    return maximum && *maximum < *length ? maximum : length;
}

boost::optional<double> convertPercentage(OperationReport& report, const std::string& text)
{
    const std::size_t sign = text.rfind('%');
    const bool hasSign = sign != std::string::npos;
    const auto number = OfficeUtils::stringToDouble(hasSign ? text.substr(0, sign) : text);
    if (!number)
        return refuse(report, "Can't parse percentage value {0}", text);
    return hasSign ? *number / 100 : *number / 1000 / 100;
}

std::string convertToPercentage(double fraction)
{
    return fmt::format("{}%", formatDoubleToString(fraction * 100.0, 15));
}

float convertEMUToPoints(long long emu)
{
    return static_cast<float>(emu) / EmuPerPoint;
}

long long convertPointsToEMU(float points)
{
    const float emu = points * EmuPerPoint;
    if (std::isnan(emu))
        return 0;
    if (emu >= 0x1p63F)
        return std::numeric_limits<long long>::max();
    if (emu < -0x1p63F)
        return std::numeric_limits<long long>::min();
    return static_cast<long long>(emu);
}

DOM::LineWidth convertToLineWidth(boost::optional<float> width)
{
    if (!width)
        return DOM::LineWidth::Thin;
    const float toThin = std::fabs(*width - DOM::ThinLineWidth);
    const float toMedium = std::fabs(*width - DOM::MediumLineWidth);
    const float toThick = std::fabs(*width - DOM::ThickLineWidth);
    if (toMedium > toThin)
        return DOM::LineWidth::Thin;
    if (toThick > toMedium)
        return DOM::LineWidth::Medium;
    return DOM::LineWidth::Thick;
}

} // namespace QV::FilterUtils
