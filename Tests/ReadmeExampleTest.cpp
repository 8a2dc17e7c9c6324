// The example of README.md, compiled and run: the lines between the two marks below stand there word for
// word.

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <boost/none.hpp>
#include <boost/optional.hpp>
#include <boost/optional/optional_io.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <FilterUtils/FU_Colors.h>
#include <FilterUtils/FU_Lengths.h>
#include <FilterUtils/FU_NonIntersectedRanges.h>
#include <FilterUtils/FU_TableIndices.h>
#include <Utils/Public/OperationReport.h>

namespace {

std::vector<std::string> readLines(const std::string& path)
{
    std::ifstream file(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

/// The lines between the first line that is @p begin and the next that is @p end.
std::vector<std::string> getLinesBetween(
    const std::vector<std::string>& lines, const std::string& begin, const std::string& end)
{
    auto first = std::find(lines.begin(), lines.end(), begin);
    if (first == lines.end())
        return {};
    return {first + 1, std::find(first + 1, lines.end(), end)};
}

std::vector<std::string> dropIndentation(std::vector<std::string> lines, const std::string& indentation)
{
    for (std::string& line : lines)
        if (line.compare(0, indentation.size(), indentation) == 0)
            line.erase(0, indentation.size());
    return lines;
}

TEST(ReadmeExample, StandsInTheReadme)
{
    const auto compiled = dropIndentation(
        getLinesBetween(readLines("Tests/ReadmeExampleTest.cpp"), "    // [example]", "    // [/example]"),
        "    ");
    const auto shown = getLinesBetween(readLines("README.md"), "```cpp", "```");
    EXPECT_THAT(shown, testing::SizeIs(testing::Ge(10U)));
    EXPECT_EQ(shown, compiled);
}

TEST(ReadmeExample, PrintsWhatTheReadmeSays)
{
    std::ostringstream out;
    // [example]
    using namespace QV;
    using namespace QV::FilterUtils;
    OperationReport report;
    const UnitOpt width = convertLength(report, "1.5in", boost::none, positiveLength); // in points
    const UnitOpt height = convertLength(report, "20dpi", boost::none, anyLength);     // no unit: nothing
    const auto fill = convertToRGBAColor(report, "#FFCC00");

    NonIntersectedRanges merges;
    const bool isFirstKept = merges.appendRange({0, 0, 2, 2});  // A1:B2
    const bool isSecondKept = merges.appendRange({1, 1, 3, 3}); // B2:C3 shares B2: refused

    out << toAlphaIndex(RowIndex(1), ColumnIndex(1)) << ": " << *width << " pt, " << convertRGBColor(*fill)
        << (height ? ", tall" : "") << (isFirstKept && !isSecondKept ? ", merged once" : "") << '\n';
    for (const auto& message : report.getMessages())
        out << message.toString() << '\n';
    // [/example]
    EXPECT_EQ(out.str(), "B2: 108 pt, FFCC00, merged once\nUnknown units in 20dpi\n");

    std::string shown;
    for (const std::string& line : getLinesBetween(readLines("README.md"), "```text", "```"))
        shown += line + '\n';
    EXPECT_EQ(out.str(), shown);
}

} // namespace
