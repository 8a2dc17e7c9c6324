#include <Filters/Package/AlternateContent.h>

#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include <boost/optional.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <FilterUtils/FU_XMLElement.h>

#include <Tests/Support/XercesEnvironment.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

struct Row
{
    const char* name;
    std::string content; // of the root's child "p"
    std::string visited; // the ids of the elements "e"
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

std::string choose(
    const std::string& prefixes, const std::string& content, const std::string& attributes = {})
{
    return "<mc:Choice Requires='" + prefixes + "' " + attributes + ">" + content + "</mc:Choice>";
}

std::string alternate(const std::string& branches, const std::string& attributes = {})
{
    return "<mc:AlternateContent " + attributes + ">" + branches + "</mc:AlternateContent>";
}

const std::string One = "<e id='1'/>";
const std::string Two = "<e id='2'/>";
const std::string Fallback = "<mc:Fallback><e id='f'/></mc:Fallback>";

const Row Rows[] = {
    {"NoneAtAll",                         "",                       ""                                },
    {                                                                             "DirectOnes",   One + "<x><e id='9'/></x>" + Two,                     "12"                                  },
    {                                                                  "Understood",                   alternate(choose("known",                                        One) + Fallback),                                   "1"},
    {                                                               "NotUnderstood",                   alternate(choose("other",                                        One) + Fallback),                                   "f"},
    {                                                                  "NoFallback",                              alternate(choose("other",                                                    One)),                                   ""},
    {                                                               "FallbackAlone",                                alternate(Fallback),                                                        "f"                          },
    {                              "Nothing",                                   alternate(""),                                           ""                     },
    { "FirstUnderstood",                                alternate(choose("other",                                                        One) + choose("known",                                                                               Two) + Fallback), "2"},
    {                                                                                                      "FirstOfTwo",                              alternate(choose("known",                                                   One) + choose("known",                                                                                     Two)), "1"},
    {                                                               "AllUnderstood",                   alternate(choose("known  also",                                        One) + Fallback),                                   "1"},
    {                                                            "OneNotUnderstood",                   alternate(choose("known other",                                        One) + Fallback),                                   "f"},
    {                                                             "RequiresNothing",                   alternate(choose(" ",                                        One) + Fallback),                                   "f"},
    {                                                             "WithoutRequires",                                alternate("<mc:Choice>" + One + "</mc:Choice>" + Fallback),                                                        "f"                       },
    {                    "Undeclared",                                alternate(choose("nowhere",                                                        One) + Fallback),                                                                            "f"},
    {                     "OwnVocabulary",                                alternate(choose("strict",                                                        One) + Fallback),                                                                         "1"},
    {                                                         "DeclaredOnChoice", alternate(choose("q",                      One,                                                        "xmlns:q='urn:known'") + Fallback), "1"},
    {                                                         "DeclaredOnAlternate",                    alternate(choose("q",                      One) + Fallback,                                "xmlns:q='urn:known'"), "1"},
    {                                                                             "DeclaredOnParent",        alternate(choose("onParent",         One) + Fallback),                                "1"},
    {                                                                             "InnerOneDecides",           alternate(choose("known",                      One, "xmlns:known='urn:o'") + Fallback), "f"},
    {                                                                          "DirectOnesFirst",                   alternate(choose("known", One)) + Two,                        "21"},
    {"SeveralOfThem",                     alternate(choose("known", One + Two)) + alternate(Fallback),  "12f"},
    {                                                                         "Nested",                            alternate(choose("known", alternate(choose("also",            One) + Fallback))), "1"},
    {"NestedInFallback",
     alternate(choose("other",                                          One) + "<mc:Fallback>" + alternate(Fallback) + "</mc:Fallback>"),                                                                          "f"},
};

class AlternateContentRows : public testing::TestWithParam<Row>
{
};

TEST_P(AlternateContentRows, VisitTheBranchThatIsMeant)
{
    std::istringstream stream("<r xmlns:mc='http://schemas.openxmlformats.org/markup-compatibility/2006' "
                              "xmlns:known='urn:known' xmlns:also='urn:also' xmlns:other='urn:other' "
                              "xmlns:strict='http://purl.oclc.org/ooxml/drawingml/main'>"
                              "<p xmlns:onParent='urn:also'>" +
                              GetParam().content + "</p></r>");
    const XMLElement root = XMLElement::getRootElement(stream, boost::none);
    ASSERT_TRUE(root.isValid());
    const AlternateContent children(root, {"urn:known", "urn:also"});
    std::string visited;
    children.processElements(root.getElement("p"), "e",
        [&](const XMLElement& element) { visited += *element.getAttributeValue("id"); });
    EXPECT_EQ(visited, GetParam().visited);
    const XMLElement first = children.getElement(root.getElement("p"), "e");
    EXPECT_EQ(first.isValid(), !visited.empty());
    EXPECT_EQ(first.getAttributeValue("id").value_or(""), visited.substr(0, 1));
}

INSTANTIATE_TEST_SUITE_P(Rows, AlternateContentRows, testing::ValuesIn(Rows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(AlternateContent, OfNothingIsNothing)
{
    const AlternateContent children(XMLElement(), {});
    EXPECT_FALSE(children.getElement(XMLElement(), "e").isValid());
    EXPECT_FALSE(children.findBranch(XMLElement(), XMLElement()).isValid());
}

} // namespace
} // namespace QV::Filters
