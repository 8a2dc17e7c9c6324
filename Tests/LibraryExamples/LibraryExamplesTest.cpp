// Docs/library.md against its sources: each public family has a heading there, and under it the example that
// stands between its marks in a file of this folder, word for word. Running them is what the other files are
// for.

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include <boost/filesystem/operations.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using Lines = std::vector<std::string>;
using Examples = std::map<std::string, Lines>; // by family

const std::string ExamplesFolder = "Tests/LibraryExamples";
const std::string ExampleMark = "    // example: ";
const std::string EndMark = "    // end";

Lines readLines(const std::string& path)
{
    std::ifstream file(path);
    Lines lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

bool beginsWith(const std::string& text, const std::string& begin)
{
    return text.compare(0, begin.size(), begin) == 0;
}

/// @p line without the indentation of a test's body.
std::string outdent(const std::string& line)
{
    return beginsWith(line, "    ") ? line.substr(4) : line;
}

Examples readExamples()
{
    Examples examples;
    for (const auto& entry : boost::filesystem::directory_iterator(ExamplesFolder)) {
        Lines* example = nullptr;
        for (const std::string& line : readLines(entry.path().native())) {
            if (line == EndMark) {
                example = nullptr;
            } else if (beginsWith(line, ExampleMark)) {
                example = &examples[line.substr(ExampleMark.size())];
                EXPECT_TRUE(example->empty()) << line << " is there twice";
            } else if (example) {
                example->push_back(outdent(line));
            }
        }
        EXPECT_EQ(example, nullptr) << entry.path() << ": an example without its end";
    }
    return examples;
}

/// What the page shows under each heading of a family: the code of its fenced blocks.
Examples readPage()
{
    Examples shown;
    Lines* section = nullptr;
    bool isCode = false;
    for (const std::string& line : readLines("Docs/library.md")) {
        if (isCode || beginsWith(line, "```")) {
            if (beginsWith(line, "```"))
                isCode = !isCode;
            else if (section)
                section->push_back(line);
        } else if (beginsWith(line, "#")) {
            section = beginsWith(line, "### FU_") ? &shown[line.substr(4)] : nullptr;
            EXPECT_TRUE(!section || section->empty()) << line << " is there twice";
        }
    }
    return shown;
}

/// The families that the folder's page lists. The export macro and the header of headers have nothing to
/// show.
std::set<std::string> readPublicFamilies()
{
    const std::string rowBegin = "| `FU_";
    const std::string privateEnd = "; private |";
    std::set<std::string> families;
    for (const std::string& line : readLines("FilterUtils/README.md")) {
        const bool isPrivate =
            line.size() > privateEnd.size() &&
            line.compare(line.size() - privateEnd.size(), std::string::npos, privateEnd) == 0;
        if (beginsWith(line, rowBegin) && !isPrivate)
            families.insert(line.substr(3, line.find('`', 3) - 3));
    }
    families.erase("FU_Export");
    families.erase("FU_Utils");
    return families;
}

std::set<std::string> getNames(const Examples& examples)
{
    std::set<std::string> names;
    for (const auto& example : examples)
        names.insert(example.first);
    return names;
}

TEST(LibraryExamples, EveryPublicFamilyHasOne)
{
    const std::set<std::string> families = readPublicFamilies();
    EXPECT_THAT(families, testing::SizeIs(testing::Ge(30U)));
    EXPECT_EQ(getNames(readExamples()), families);
    EXPECT_EQ(getNames(readPage()), families);
}

TEST(LibraryExamples, StandInThePage)
{
    const Examples shown = readPage();
    for (const auto& [family, lines] : readExamples()) {
        const auto found = shown.find(family);
        EXPECT_EQ(found == shown.end() ? Lines() : found->second, lines) << family;
    }
}

TEST(LibraryExamples, AreShort)
{
    for (const auto& [family, lines] : readExamples()) {
        const auto isLong = [](const std::string& line) { return line.size() > 110; };
        EXPECT_THAT(lines, testing::SizeIs(testing::AllOf(testing::Ge(2U), testing::Le(20U)))) << family;
        EXPECT_EQ(std::count_if(lines.begin(), lines.end(), isLong), 0) << family;
    }
}

} // namespace
