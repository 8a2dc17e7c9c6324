#include <Filters/Preview/GuideFormulas.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <sstream>
#include <string>
#include <utility>

#include <FilterUtils/FU_GeometryParserUtils.h>
#include <OfficeUtils/Public/NumberParsing.h>

namespace QV::Filters {
namespace {

constexpr double GuidePi = 3.14159265358979323846;
constexpr double AngleUnitsPerHalfTurn = 10'800'000;

double toGuideRadians(double angle)
{
    return angle / AngleUnitsPerHalfTurn * GuidePi;
}

double toGuideAngle(double radians)
{
    return radians / GuidePi * AngleUnitsPerHalfTurn;
}

// ECMA-376 Part 1, 20.1.9.11. Each takes three operands; those that a formula does not have are 0. A division
// by zero becomes 0 with all that is not finite.
struct GuideArithmetic
{
    static double multiplyAndDivide(double x, double y, double z) { return x * y / z; }
    static double addAndSubtract(double x, double y, double z) { return x + y - z; }
    static double addAndDivide(double x, double y, double z) { return (x + y) / z; }
    static double choose(double x, double y, double z) { return x > 0 ? y : z; }
    static double takeMagnitude(double x, double, double) { return std::abs(x); }
    static double takeAngle(double x, double y, double) { return toGuideAngle(std::atan2(y, x)); }
    static double takeAdjacentSide(double x, double y, double z) { return x * std::cos(std::atan2(z, y)); }
    static double takeCosine(double x, double y, double) { return x * std::cos(toGuideRadians(y)); }
    static double takeLarger(double x, double y, double) { return std::max(x, y); }
    static double takeSmaller(double x, double y, double) { return std::min(x, y); }
    static double takeLength(double x, double y, double z) { return std::hypot(x, y, z); }
    static double pin(double x, double y, double z) { return y < x ? x : std::min(y, z); }
    static double takeOppositeSide(double x, double y, double z) { return x * std::sin(std::atan2(z, y)); }
    static double takeSine(double x, double y, double) { return x * std::sin(toGuideRadians(y)); }
    static double takeRoot(double x, double, double) { return std::sqrt(x); }
    static double takeTangent(double x, double y, double) { return x * std::tan(toGuideRadians(y)); }
    static double takeValue(double x, double, double) { return x; }
};

struct GuideOperator
{
    const char* name;
    double (*calculate)(double x, double y, double z);
};

constexpr GuideOperator GuideOperators[] = {
    {"*/",   &GuideArithmetic::multiplyAndDivide},
    {"+-",   &GuideArithmetic::addAndSubtract   },
    {"+/",   &GuideArithmetic::addAndDivide     },
    {"?:",   &GuideArithmetic::choose           },
    {"abs",  &GuideArithmetic::takeMagnitude    },
    {"at2",  &GuideArithmetic::takeAngle        },
    {"cat2", &GuideArithmetic::takeAdjacentSide },
    {"cos",  &GuideArithmetic::takeCosine       },
    {"max",  &GuideArithmetic::takeLarger       },
    {"min",  &GuideArithmetic::takeSmaller      },
    {"mod",  &GuideArithmetic::takeLength       },
    {"pin",  &GuideArithmetic::pin              },
    {"sat2", &GuideArithmetic::takeOppositeSide },
    {"sin",  &GuideArithmetic::takeSine         },
    {"sqrt", &GuideArithmetic::takeRoot         },
    {"tan",  &GuideArithmetic::takeTangent      },
    {"val",  &GuideArithmetic::takeValue        },
};

const std::pair<const char*, double> FixedGuides[] = {
    {"l",    0         },
    {"t",    0         },
    {"cd2",  10'800'000},
    {"cd4",  5'400'000 },
    {"cd8",  2'700'000 },
    {"3cd4", 16'200'000},
    {"3cd8", 8'100'000 },
    {"5cd8", 13'500'000},
    {"7cd8", 18'900'000},
};

double makeFiniteGuide(double value)
{
    return std::isfinite(value) ? value : 0;
}

double findGuideValue(const std::unordered_map<std::string, double>& values, const std::string& name)
{
    const auto found = values.find(name);
    return found != values.end() ? found->second : 0;
}

void addGuideShares(std::unordered_map<std::string, double>& known, const char* prefix, double whole)
{
    for (const int share : {2, 3, 4, 5, 6, 8, 10, 12, 16, 32})
        known.emplace(prefix + std::to_string(share), whole / share);
}

} // namespace

GuideFormulas::GuideFormulas(double width, double height)
    : _known(std::begin(FixedGuides), std::end(FixedGuides))
{
    const double w = makeFiniteGuide(width);
    const double h = makeFiniteGuide(height);
    _known["w"] = _known["r"] = w;
    _known["h"] = _known["b"] = h;
    _known["hc"] = w / 2;
    _known["vc"] = h / 2;
    _known["ss"] = std::min(w, h);
    _known["ls"] = std::max(w, h);
    addGuideShares(_known, "wd", w);
    addGuideShares(_known, "hd", h);
    addGuideShares(_known, "ssd", std::min(w, h));
}

void GuideFormulas::addAdjustValue(const std::string& name, const std::string& formula)
{
    _adjustValues[name] = calculate(formula);
}

void GuideFormulas::addGuide(const std::string& name, const std::string& formula)
{
    _guides[name] = calculate(formula);
}

double GuideFormulas::evaluate(const std::string& operand) const
{
    if (FilterUtils::looksLikeModifierReference(operand))
        return findGuideValue(_adjustValues, FilterUtils::makeModifierPlainName(operand));
    if (FilterUtils::looksLikeFormulaReference(operand))
        return findGuideValue(_guides, FilterUtils::makeFormulaPlainName(operand));
    const auto number = OfficeUtils::stringToDouble(operand);
    return number ? makeFiniteGuide(*number) : findGuideValue(_known, operand);
}

double GuideFormulas::calculate(const std::string& formula) const
{
    std::istringstream words(formula);
    std::string name;
    words >> name;
    const auto* const found = std::find_if(std::begin(GuideOperators), std::end(GuideOperators),
        [&](const GuideOperator& guideOperator) { return guideOperator.name == name; });
    if (found == std::end(GuideOperators))
        return 0;
    double operands[3] = {};
    for (double& operand : operands) {
        std::string word;
        if (words >> word)
            operand = evaluate(word);
    }
    return makeFiniteGuide(found->calculate(operands[0], operands[1], operands[2]));
}

} // namespace QV::Filters
