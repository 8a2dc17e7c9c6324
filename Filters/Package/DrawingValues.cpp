#include <Filters/Package/DrawingValues.h>

#include <algorithm>
#include <cmath>

#include <FilterUtils/FU_Lengths.h>
#include <FilterUtils/FU_XMLElement.h>
#include <OfficeUtils/Public/NumberParsing.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {

boost::optional<double> readShare(const boost::optional<std::string>& text, OperationReport& report)
{
    constexpr double ShareMax = 1000;
    const auto share = text ? FilterUtils::convertPercentage(report, *text) : boost::none;
    return share ? boost::make_optional(std::clamp(*share, -ShareMax, ShareMax)) : boost::none;
}

boost::optional<double> readAngle(const boost::optional<std::string>& text, OperationReport& report)
{
    constexpr double PartsPerDegree = 60000;
    constexpr double PartsPerTurn = 360 * PartsPerDegree;
    if (!text)
        return boost::none;
    const auto parts = OfficeUtils::stringToDouble(*text);
    if (!parts || !std::isfinite(*parts)) {
        report.emplace_back("Drawing angle {} is none", *text);
        return boost::none;
    }
    const double rest = std::fmod(*parts, PartsPerTurn);
    const double angle = rest < 0 ? rest + PartsPerTurn : rest;
    return angle < PartsPerTurn ? angle / PartsPerDegree
                                : 0; // what was just below 0 may round to a full turn
}

bool readSwitch(const boost::optional<std::string>& text, bool otherwise)
{
    return text ? *text == FilterUtils::XSDTrueValue || *text == "true" || *text == "on" : otherwise;
}

} // namespace QV::Filters
