// The examples of Docs/library.md about XML: what stands between two marks is there word for word.

#include <cstddef>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <FilterUtils/FU_XMLElement.h>
#include <FilterUtils/FU_XMLNames.h>
#include <FilterUtils/FU_XMLReadOptions.h>
#include <FilterUtils/FU_XMLStreamReader.h>
#include <FilterUtils/FU_XMLVocabulary.h>
#include <Tests/Support/XMLReaders.h> // prints outcomes
#include <Tests/Support/XercesEnvironment.h>

namespace QV::FilterUtils {
namespace {

using testing::ElementsAre;

TEST(Example, XMLElement)
{
    // example: FU_XMLElement
    std::istringstream part(
        R"(<x:styles xmlns:x="urn:styles"><x:font size="11"/><x:font size="14"/></x:styles>)");
    const XMLElement styles = XMLElement::getRootElement(part, std::string("urn:styles:styles"));
    std::vector<std::string> sizes;
    styles.processElements(
        "urn:styles:font", [&](const XMLElement& font) { sizes.push_back(*font.getAttributeValue("size")); });
    EXPECT_THAT(sizes, ElementsAre("11", "14"));
    EXPECT_FALSE(styles.getElement("urn:styles:fill").isValid()); // not there
    // end
}

TEST(Example, XMLStreamReader)
{
    // example: FU_XMLStreamReader
    struct CellCounter : XMLStreamHandler
    {
        XMLStep onStart(const XMLStreamStart& element) override
        {
            count += element.getId() == 1;
            return element.getId() == 1 ? XMLStep::Skip : XMLStep::Enter;
        }
        std::size_t count = 0;
    };
    const std::vector<XMLVocabulary::Word> names = {
        {1, "c"}, // what the number above stands for
    };
    const XMLVocabulary words({}, names);
    std::istringstream sheet("<sheet><row><c/><c>2</c></row><row><c/></row></sheet>");
    CellCounter counter;
    EXPECT_EQ(XMLStreamReader(words).read(sheet, counter).outcome, XMLOutcome::WellFormed);
    EXPECT_EQ(counter.count, 3U);
    // end
}

TEST(Example, XMLVocabulary)
{
    // example: FU_XMLVocabulary
    const std::vector<XMLVocabulary::Namespace> namespaces = {
        {"x", {"urn:main", "urn:strict-main"}}, // one namespace of two URIs
    };
    const std::vector<XMLVocabulary::Word> names = {
        {1, "x:row"},
        {2, "r"    },
    };
    const XMLVocabulary words(namespaces, names);
    EXPECT_EQ(words.findId(u"urn:strict-main", u"row"), 1);
    EXPECT_EQ(words.findId(u"", u"r"), 2);
    EXPECT_EQ(words.findId(u"urn:other", u"row"), XMLVocabulary::Unknown);
    // end
}

TEST(Example, XMLReadOptions)
{
    // example: FU_XMLReadOptions
    XMLReadOptions options;
    options.depth = 2;
    XMLReadResult result;
    std::istringstream part("<a><b><c/></b></a>");
    EXPECT_FALSE(XMLElement::getRootElement(part, std::string("a"), options, &result).isValid());
    EXPECT_EQ(result.outcome, XMLOutcome::DepthLimit);
    EXPECT_EQ(result.limit, 2U);
    EXPECT_EQ(result.line, 1U);
    // end
}

TEST(Example, XMLNames)
{
    // example: FU_XMLNames
    using namespace XMLSchemaPart2Year2004;
    std::u32string name = U"1st row: total";
    for (char32_t& character : name)
        if (!isXMLNCNameChar(character))
            character = U'_';
    if (!isXMLNCNameStartChar(name.front()))
        name.insert(0, U"_");
    EXPECT_TRUE(name == U"_1st_row__total");
    // end
}

} // namespace
} // namespace QV::FilterUtils
