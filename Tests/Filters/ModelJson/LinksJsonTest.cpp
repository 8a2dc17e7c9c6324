#include <Filters/ModelJson/LinksJson.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <Filters/Package/DocumentLinks.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

/// Without the breaks of lines and the blanks that stand for nothing.
std::string write(const std::vector<DocumentLink>& links, const OperationReport& report)
{
    std::ostringstream out;
    writeLinksJson(links, report, out);
    std::string text = out.str();
    text.erase(
        std::remove_if(text.begin(), text.end(), [](char c) { return c == '\n' || c == ' '; }), text.end());
    return text;
}

TEST(WriteLinksJson, WithoutLinksAndMessagesBothListsAreThere)
{
    EXPECT_EQ(write({}, {}), R"({"links":[],"messages":[]})");
}

TEST(WriteLinksJson, KeysKeepTheirOrderAndTheFileIsThereWhereItWasFound)
{
    const DocumentLink found = {"externalLinkPath", "xl/externalLinks/externalLink1.xml", "rId1", "a.xlsx",
        LinkPlace::Found, "x/a.xlsx"};
    const DocumentLink remote = {"hyperlink", "", "", "http://\"\xC3\xA9", LinkPlace::Remote, {}};
    OperationReport report;
    report.emplace_back("Relationship {} in {} is there twice", "r", "p");
    EXPECT_EQ(write({found, remote}, report),
        R"({"links":[{"kind":"externalLinkPath","part":"xl/externalLinks/externalLink1.xml","id":"rId1",)"
        R"("target":"a.xlsx","place":"found","file":"x/a.xlsx"},)"
        R"({"kind":"hyperlink","part":"","id":"","target":"http://\")"
        "\xC3\xA9"
        R"(","place":"remote"}],"messages":[{"message":"Relationshiprinpistheretwice",)"
        R"("text":"Relationship{}in{}istheretwice","arguments":["r","p"]}]})");
}

} // namespace
} // namespace QV::Filters
