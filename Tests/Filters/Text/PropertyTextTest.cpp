#include <Filters/Text/PropertyText.h>

#include <cstddef>
#include <ostream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <FilterUtils/FU_XMLStreamReader.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Package/XmlParts.h>
#include <Filters/Text/TextWords.h>
#include <Tests/Support/Printers.h>
#include <Tests/Support/TextPackageBuilder.h>
#include <Tests/Support/XercesEnvironment.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;
using FilterUtils::XMLFlow;
using FilterUtils::XMLStep;

/// Writes the root's content down.
class PropertyGatherer final : public FilterUtils::XMLStreamHandler
{
public:
    XMLStep onStart(const FilterUtils::XMLStreamStart& element) override
    {
        if (element.getDepth() > 1)
            return properties.onStart(element);
        properties.begin(element);
        return XMLStep::Enter;
    }
    XMLFlow onEnd(const FilterUtils::XMLStreamEnd&) override
    {
        EXPECT_TRUE(properties.isOpen());
        properties.onEnd();
        return XMLFlow::Continue;
    }

    PropertyText properties;
};

std::string writePropertyText(const std::string& xml)
{
    PropertyGatherer gatherer;
    std::istringstream stream(xml);
    FilterUtils::XMLStreamReader(getTextWords(), makePartReadOptions()).read(stream, gatherer);
    EXPECT_FALSE(gatherer.properties.isOpen());
    return gatherer.properties.getText();
}

std::string writeRunProps(const std::string& content, bool isStrict = false)
{
    return writePropertyText("<w:rPr" + Tests::makeTextDeclarations(isStrict) + ">" + content + "</w:rPr>");
}

const char* const MainNamespace = "http://schemas.openxmlformats.org/wordprocessingml/2006/main";

struct PropertyTextRow
{
    const char* name;
    const char* content;
    const char* text;
};

void PrintTo(const PropertyTextRow& row, std::ostream* out)
{
    *out << row.name;
}

const PropertyTextRow PropertyTextRows[] = {
    {"Empty",                 "",                                                                     "<w:rPr/>"                                         },
    {"Elements",              "<w:b/><w:i></w:i>",                                                    "<w:rPr><w:b/><w:i/></w:rPr>"                      },
    {"Nested",                "<w:a><w:b><w:c/></w:b><w:d/></w:a>",                                   "<w:rPr><w:a><w:b><w:c/></w:b><w:d/></w:a></w:rPr>"},
    {"Attributes",            "<w:sz w:val='24'/>",                                                   "<w:rPr><w:sz w:val=\"24\"/></w:rPr>"              },
    {"RelationshipAttribute", "<w:x r:id='a'/>",                                                      "<w:rPr><w:x r:id=\"a\"/></w:rPr>"                 },
    {"OtherAttributes",       "<w:x val='1' w14:val='2' xml:space='preserve'/>",                      "<w:rPr><w:x/></w:rPr>"                            },
    {"OtherElements",         "<w14:glow><w:b/></w14:glow><w:i/>",                                    "<w:rPr><w:i/></w:rPr>"                            },
    {"Text",                  "a<w:b>b</w:b>c",                                                       "<w:rPr><w:b/></w:rPr>"                            },
    {"Escapes",               "<w:x w:val='&lt;&amp;&quot;&#9;&#10;&#13;\xC3\xA9\xF0\x9F\x98\x80'/>",
     "<w:rPr><w:x w:val=\"&lt;&amp;&quot;&#9;&#10;&#13;\xC3\xA9\xF0\x9F\x98\x80\"/></w:rPr>"                                                             },
};

class WrittenPropertyText : public testing::TestWithParam<PropertyTextRow>
{
};

TEST_P(WrittenPropertyText, KeepsRow)
{
    EXPECT_EQ(writeRunProps(GetParam().content), GetParam().text);
    EXPECT_EQ(writeRunProps(GetParam().content, true), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Rows, WrittenPropertyText, testing::ValuesIn(PropertyTextRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(PropertyText, DoesNotDependOnPrefixes)
{
    EXPECT_EQ(writePropertyText("<rPr xmlns='" + std::string(MainNamespace) + "' xmlns:q='" + MainNamespace +
                                "'><q:sz q:val='2'/></rPr>"),
        "<w:rPr><w:sz w:val=\"2\"/></w:rPr>");
}

TEST(PropertyText, IsReadBack)
{
    const Names names(Dialect::Transitional);
    const auto name = [&](const char* local) { return names(Vocabulary::WordProcessing, local); };
    const std::string value = "<&\" \t\n\xC3\xA9>'";
    const XMLElement element = parsePropertyText(
        writeRunProps("<w:a w:val='&lt;&amp;&quot; &#9;&#10;\xC3\xA9>&apos;' r:id='x'><w:b/></w:a>", true));
    ASSERT_TRUE(element.isValid());
    const XMLElement child = element.getElement(name("a"));
    EXPECT_EQ(child.getAttributeValue(name("val")), value);
    EXPECT_EQ(child.getAttributeValue(names(Vocabulary::Relationships, "id")), std::string("x"));
    EXPECT_TRUE(child.getElement(name("b")).isValid());
    EXPECT_TRUE(parsePropertyText("<w:rPr/>").isValid());
    EXPECT_FALSE(parsePropertyText("").isValid());
}

TEST(PropertyText, IsBoundedAndWellFormed)
{
    std::string content;
    for (std::size_t i = 0; i < PropertyText::BytesMax / 10; ++i)
        content += "<w:a><w:bcdefghij/></w:a>";
    const std::string text = writeRunProps(content);
    EXPECT_GE(text.size(), PropertyText::BytesMax);
    EXPECT_LT(text.size(), PropertyText::BytesMax + 100);
    EXPECT_TRUE(parsePropertyText(text).isValid());
    const std::string value(PropertyText::BytesMax, 'x');
    EXPECT_EQ(writeRunProps("<w:a w:val='" + value + "'/><w:b/>"), "<w:rPr><w:a/><w:b/></w:rPr>");
}

TEST(PropertyText, BeginsAnew)
{
    PropertyGatherer gatherer;
    for (const char* const name : {"b", "i"}) {
        std::istringstream stream("<w:rPr" + Tests::makeTextDeclarations() + "><w:" + name + "/></w:rPr>");
        FilterUtils::XMLStreamReader(getTextWords()).read(stream, gatherer);
    }
    EXPECT_EQ(gatherer.properties.getText(), "<w:rPr><w:i/></w:rPr>");
}

} // namespace
} // namespace QV::Filters
