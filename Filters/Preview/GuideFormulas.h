#pragma once

#include <string>
#include <unordered_map>

#include <Filters/Package/Export.h>

namespace QV::Filters {

/// The values of a shape's guides (ECMA-376 Part 1, 20.1.9.11), of which its outline is made.
///
///     GuideFormulas guides(914400, 457200);
///     guides.addAdjustValue("adj", "val 50000");
///     guides.addGuide("x1", "*/ w $adj 100000");
///     guides.evaluate("?x1");    // 457200
///
/// Operands are numbers, "$" with the name of an adjust value, "?" with that of a guide, and the names that
/// every shape has: "w", "h", "l", "t", "r", "b", "hc", "vc", "wd2" to "wd32", "hd2" to "hd12", "ss", "ls",
/// "ssd2" to "ssd32", "cd2", "cd4", "cd8", "3cd4", "3cd8", "5cd8", "7cd8". Angles are 60,000ths of a degree.
/// What is unknown, or no number, is 0.
class FILTERS_API GuideFormulas
{
public:
    /// @param width, height of the shape in EMU
    GuideFormulas(double width, double height);

    /// The last one of a name stands.
    void addAdjustValue(const std::string& name, const std::string& formula);
    void addGuide(const std::string& name, const std::string& formula);

    /// Finite.
    double evaluate(const std::string& operand) const;

private:
    double calculate(const std::string& formula) const;

    std::unordered_map<std::string, double> _known;        // names that every shape has
    std::unordered_map<std::string, double> _adjustValues; // without the mark
    std::unordered_map<std::string, double> _guides;       // without the mark
};

} // namespace QV::Filters
