#include <FilterUtils/FU_XMLElement.h>

#include <functional>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>

#include <Tests/Support/Printers.h>
#include <Tests/Support/RecordedAssertions.h>
#include <Tests/Support/XercesEnvironment.h>

namespace QV::FilterUtils {
namespace {

using testing::ElementsAre;

XMLElement parse(const std::string& text, boost::optional<std::string> rootName = boost::none)
{
    std::istringstream stream(text);
    return XMLElement::getRootElement(stream, std::move(rootName));
}

std::vector<std::string> getTexts(const XMLElement& element, const std::string& name)
{
    std::vector<std::string> texts;
    element.processElements(
        name, [&texts](const XMLElement& child) { texts.push_back(child.getText().value_or("nothing")); });
    return texts;
}

TEST(XSDBooleanValues, AreCanonical)
{
    EXPECT_EQ(XSDTrueValue, "1");
    EXPECT_EQ(XSDFalseValue, "0");
}

// --- the invalid view

TEST(XMLElement, DefaultIsInvalid)
{
    const XMLElement invalid;
    EXPECT_FALSE(invalid.isValid());
    EXPECT_EQ(invalid, XMLElement());
    EXPECT_FALSE(invalid != XMLElement());
    EXPECT_FALSE(invalid.getElement("a").isValid());
    EXPECT_EQ(invalid.getElement("a"), invalid);
    EXPECT_EQ(invalid.getAttributeValue("a"), boost::none);
    EXPECT_EQ(invalid.getText(), boost::none);
    invalid.processElements("a", [](const XMLElement&) { FAIL(); });
    invalid.processElements("a", nullptr);
    invalid.processAllElements(nullptr);
}

// --- names

struct NameRow
{
    const char* name;
    const char* xml;
    std::string searched;
    bool isFound;
};

void PrintTo(const NameRow& row, std::ostream* out)
{
    *out << row.name << ": " << row.xml << " by " << row.searched;
}

const std::string WithNul("a\0", 2);

// The element is looked for as the root and as a child.
const NameRow ElementNameRows[] = {
    {"Plain",               "<a/>",                          "a",                  true },
    {"OtherCase",           "<a/>",                          "A",                  false},
    {"Longer",              "<ab/>",                         "a",                  false},
    {"Shorter",             "<a/>",                          "ab",                 false},
    {"EmptyName",           "<a/>",                          "",                   false},
    {"DefaultNamespace",    "<a xmlns='urn:x'/>",            "urn:x:a",            true },
    {"DefaultWithoutUri",   "<a xmlns='urn:x'/>",            "a",                  false},
    {"Prefixed",            "<p:a xmlns:p='urn:x'/>",        "urn:x:a",            true },
    {"PrefixIsNoUri",       "<p:a xmlns:p='urn:x'/>",        "p:a",                false},
    {"PrefixedWithoutUri",  "<p:a xmlns:p='urn:x'/>",        "a",                  false},
    {"PrefixIsNoName",      "<p:a xmlns:p='urn:x'/>",        "urn:x:p",            false},
    {"UndeclaredDefault",   "<a xmlns=''/>",                 "a",                  true },
    {"OtherUri",            "<a xmlns='urn:x'/>",            "urn:y:a",            false},
    {"UriInOtherCase",      "<a xmlns='urn:x'/>",            "urn:X:a",            false},
    {"UriWithoutColon",     "<a xmlns='x'/>",                "x:a",                true },
    {"UriEndsInColon",      "<a xmlns='urn:'/>",             "urn::a",             true },
    {"HttpUri",             "<a xmlns='http://h:80/x'/>",    "http://h:80/x:a",    true },
    {"EmptyUriIsNone",      "<a/>",                          ":a",                 true },
    {"EmptyUriInNamespace", "<a xmlns='urn:x'/>",            ":a",                 false},
    {"EmptyLocalName",      "<a xmlns='urn:x'/>",            "urn:x:",             false},
    {"NonAscii",            "<\xC3\xA4/>",                   "\xC3\xA4",           true },
    {"NonAsciiUri",         "<a xmlns='\xE2\x82\xAC'/>",     "\xE2\x82\xAC:a",     true },
    {"BeyondBasicPlaneUri", "<a xmlns='\xF0\x9F\x98\x80'/>", "\xF0\x9F\x98\x80:a", true },
    {"OtherNonAscii",       "<\xC3\xA4/>",                   "\xC3\xA5",           false},
    {"NameIsNotUtf8",       "<a/>",                          "a\xFF",              false},
    {"NulInName",           "<a/>",                          WithNul,              false},
};

class XMLElementName : public testing::TestWithParam<NameRow>
{
};

TEST_P(XMLElementName, MatchesRoot)
{
    const NameRow& row = GetParam();
    ASSERT_TRUE(parse(row.xml).isValid());
    EXPECT_EQ(parse(row.xml, row.searched).isValid(), row.isFound);
}

TEST_P(XMLElementName, MatchesChild)
{
    const NameRow& row = GetParam();
    const XMLElement root = parse("<root>text<!-- c -->" + std::string(row.xml) + "</root>");
    ASSERT_TRUE(root.isValid());
    EXPECT_EQ(root.getElement(row.searched).isValid(), row.isFound);
    EXPECT_EQ(getTexts(root, row.searched).size(), row.isFound ? 1U : 0U);
}

INSTANTIATE_TEST_SUITE_P(Rows, XMLElementName, testing::ValuesIn(ElementNameRows),
    [](const auto& row) { return std::string(row.param.name); });

struct AttributeRow
{
    const char* name;
    const char* xml;
    std::string searched;
    boost::optional<std::string> value;
};

void PrintTo(const AttributeRow& row, std::ostream* out)
{
    *out << row.name << ": " << row.xml << " by " << row.searched;
}

const AttributeRow AttributeRows[] = {
    {"Plain",              "<a r='1'/>",                            "r",                                          std::string("1")                   },
    {"Empty",              "<a r=''/>",                             "r",                                          std::string()                      },
    {"Missing",            "<a r='1'/>",                            "s",                                          boost::none                        },
    {"NoAttributes",       "<a/>",                                  "r",                                          boost::none                        },
    {"OtherCase",          "<a r='1'/>",                            "R",                                          boost::none                        },
    {"DefaultIsNotItsOwn", "<a xmlns='urn:x' r='1'/>",              "urn:x:r",                                    boost::none                        },
    {"PlainInDefault",     "<a xmlns='urn:x' r='1'/>",              "r",                                          std::string("1")                   },
    {"Prefixed",           "<a xmlns:p='urn:x' p:r='1'/>",          "urn:x:r",                                    std::string("1")                   },
    {"PrefixedWithoutUri", "<a xmlns:p='urn:x' p:r='1'/>",          "r",                                          boost::none                        },
    {"BothPlain",          "<a xmlns:p='urn:x' r='1' p:r='2'/>",    "r",                                          std::string("1")                   },
    {"BothPrefixed",       "<a xmlns:p='urn:x' r='1' p:r='2'/>",    "urn:x:r",                                    std::string("2")                   },
    {"EmptyUriIsNone",     "<a xmlns:p='urn:x' r='1' p:r='2'/>",    ":r",                                         std::string("1")                   },
    {"XmlSpace",           "<a xml:space='preserve'/>",             "http://www.w3.org/XML/1998/namespace:space",
     std::string("preserve")                                                                                                                         },
    {"NonAscii",           "<a r='\xC3\xA4\xE2\x82\xAC'/>",         "r",                                          std::string("\xC3\xA4\xE2\x82\xAC")},
    {"BeyondBasicPlane",   "<a r='x\xF0\x9F\x98\x80y'/>",           "r",                                          std::string("x\xF0\x9F\x98\x80y")  },
    {"References",         "<a r='&lt;&#65;&amp;&#x20AC;&quot;'/>", "r",                                          std::string("<A&\xE2\x82\xAC\"")   },
    {"BlanksNormalised",   "<a r='1\n2\t3'/>",                      "r",                                          std::string("1 2 3")               },
    {"NameIsNotUtf8",      "<a r='1'/>",                            "\xC0r",                                      boost::none                        },
    {"NulInName",          "<a a='1'/>",                            WithNul,                                      boost::none                        },
};

class XMLElementAttribute : public testing::TestWithParam<AttributeRow>
{
};

TEST_P(XMLElementAttribute, HasValue)
{
    const AttributeRow& row = GetParam();
    const XMLElement root = parse(row.xml);
    ASSERT_TRUE(root.isValid());
    EXPECT_EQ(root.getAttributeValue(row.searched), row.value);
}

INSTANTIATE_TEST_SUITE_P(Rows, XMLElementAttribute, testing::ValuesIn(AttributeRows),
    [](const auto& row) { return std::string(row.param.name); });

// --- text

struct TextRow
{
    const char* name;
    std::string xml;
    std::string text;
};

void PrintTo(const TextRow& row, std::ostream* out)
{
    *out << row.name << ": " << row.xml.substr(0, 200);
}

const std::string LongText(3'000'000, 'x');

const TextRow TextRows[] = {
    {"None",              "<a/>",                                                            ""                },
    {"EmptyTags",         "<a></a>",                                                         ""                },
    {"Plain",             "<a>text</a>",                                                     "text"            },
    {"Blanks",            "<a> \n </a>",                                                     " \n "            },
    {"LineEnds",          "<a>1\r\n2\r3</a>",                                                "1\n2\n3"         },
    {"CData",             "<a><![CDATA[<b>&amp;]]></a>",                                     "<b>&amp;"        },
    {"EmptyCData",        "<a><![CDATA[]]></a>",                                             ""                },
    {"AroundCData",       "<a>1<![CDATA[2]]>3</a>",                                          "123"             },
    {"AroundComment",     "<a>1<!-- c -->2</a>",                                             "12"              },
    {"OnlyComment",       "<a><!-- c --></a>",                                               ""                },
    {"AroundInstruction", "<a>1<?pi data?>2</a>",                                            "12"              },
    {"OnlyInstruction",   "<a><?pi data?></a>",                                              ""                },
    {"References",        "<a>1&lt;2&#x20AC;</a>",                                           "1<2\xE2\x82\xAC" },
    {"ReferenceAlone",    "<a>&#128512;</a>",                                                "\xF0\x9F\x98\x80"},
    {"OfChild",           "<a><b>text</b></a>",                                              "text"            },
    {"OfDescendants",     "<a>1<b>2<c>3</c>4</b><b/>5<b>6</b></a>",                          "123456"          },
    {"CommentInChild",    "<a><b><!-- c -->1</b><b><?p?></b></a>",                           "1"               },
    {"Entity",            "<!DOCTYPE a [<!ENTITY e 'in'>]><a>1&e;2</a>",                     "1in2"            },
    {"EntityAlone",       "<!DOCTYPE a [<!ENTITY e 'in'>]><a>&e;</a>",                       "in"              },
    {"EntityWithElement", "<!DOCTYPE a [<!ENTITY e '<b>in</b>'>]><a>&e;!</a>",               "in!"             },
    {"NestedEntities",    "<!DOCTYPE a [<!ENTITY e 'in'><!ENTITY f '(&e;)'>]><a>&f;&f;</a>", "(in)(in)"        },
    {"Long",              "<a>" + LongText + "</a>",                                         LongText          },
    {"LongCData",         "<a><![CDATA[" + LongText + "]]></a>",                             LongText          },
};

class XMLElementText : public testing::TestWithParam<TextRow>
{
};

TEST_P(XMLElementText, IsAllText)
{
    const XMLElement root = parse(GetParam().xml, std::string("a"));
    ASSERT_TRUE(root.isValid());
    EXPECT_TRUE(root.getText() == GetParam().text) << root.getText()->substr(0, 200);
}

INSTANTIATE_TEST_SUITE_P(Rows, XMLElementText, testing::ValuesIn(TextRows),
    [](const auto& row) { return std::string(row.param.name); });

// --- walking

const char* const Family = R"(<root xmlns:p="urn:x">
    <a>1</a> text <p:a>2</p:a> <b><a>inner</a></b> <!-- <a>no</a> --> <a>3</a>
</root>)";

TEST(XMLElement, FindsFirstChild)
{
    EXPECT_EQ(parse(Family).getElement("a").getText(), std::string("1"));
    EXPECT_EQ(parse(Family).getElement("urn:x:a").getText(), std::string("2"));
    EXPECT_EQ(parse(Family).getElement("b").getElement("a").getText(), std::string("inner"));
    EXPECT_FALSE(parse(Family).getElement("root").isValid());
}

TEST(XMLElement, ProcessesMatchesInOrder)
{
    EXPECT_THAT(getTexts(parse(Family), "a"), ElementsAre("1", "3"));
    EXPECT_THAT(getTexts(parse(Family), "urn:x:a"), ElementsAre("2"));
    EXPECT_THAT(getTexts(parse(Family), "c"), ElementsAre());
}

std::vector<std::string> getNames(const XMLElement& element)
{
    std::vector<std::string> names;
    element.processAllElements(
        [&names](const std::string& name, const XMLElement&) { names.push_back(name); });
    return names;
}

TEST(XMLElement, ProcessesAllChildrenInOrder)
{
    std::vector<std::string> texts;
    parse(Family).processAllElements([&texts](const std::string& name, const XMLElement& child) {
        texts.push_back(name + "=" + child.getText().value_or("nothing"));
    });
    EXPECT_THAT(texts, ElementsAre("a=1", "urn:x:a=2", "b=inner", "a=3"));
    EXPECT_THAT(getNames(parse("<r>text<!-- c --></r>")), ElementsAre());
    EXPECT_THAT(getNames(XMLElement()), ElementsAre());
}

TEST(XMLElement, NamesChildrenAsTheyAreFound)
{
    const XMLElement root = parse("<r xmlns:p='http://h:80/x' xmlns:q='urn:'><p:a/><q:b/><c xmlns='x'/>"
                                  "<d xmlns=''/><\xC3\xA4/><e xmlns='\xF0\x9F\x98\x80'/></r>");
    EXPECT_THAT(getNames(root),
        ElementsAre("http://h:80/x:a", "urn::b", "x:c", "d", "\xC3\xA4", "\xF0\x9F\x98\x80:e"));
    root.processAllElements([&root](const std::string& name, const XMLElement& child) {
        EXPECT_EQ(root.getElement(name), child) << name;
    });
}

TEST(XMLElement, FindsElementsOutOfEntities)
{
    const XMLElement root =
        parse("<!DOCTYPE r [<!ENTITY e '<a>1</a><a>2</a>'>]><r>&e;<a>3</a>&e;<a>4</a></r>");
    EXPECT_EQ(root.getElement("a").getText(), std::string("1"));
    EXPECT_THAT(getTexts(root, "a"), ElementsAre("1", "2", "3", "1", "2", "4"));
    EXPECT_THAT(getNames(root), ElementsAre("a", "a", "a", "a", "a", "a"));
}

TEST(XMLElement, HasDefaultAttributesOfDoctype)
{
    const XMLElement root = parse("<!DOCTYPE r [<!ATTLIST r x CDATA 'dflt' y CDATA #IMPLIED>]><r/>");
    EXPECT_EQ(root.getAttributeValue("x"), std::string("dflt"));
    EXPECT_EQ(root.getAttributeValue("y"), boost::none);
}

TEST(XMLElement, EmptyFunctionThrowsOnFirstMatchOnly)
{
    const XMLElement root = parse("<r><a/></r>");
    EXPECT_NO_THROW(root.processElements("b", nullptr));
    EXPECT_THROW(root.processElements("a", nullptr), std::bad_function_call);
    EXPECT_NO_THROW(root.getElement("a").processAllElements(nullptr));
    EXPECT_THROW(root.processAllElements(nullptr), std::bad_function_call);
}

TEST(XMLElement, FunctionsExceptionPasses)
{
    EXPECT_THROW(parse("<r><a/></r>").processElements("a", [](const XMLElement&) { throw 42; }), int);
}

TEST(XMLElement, ViewsOfOneElementAreEqual)
{
    const XMLElement root = parse("<r><a/><a/></r>");
    std::vector<XMLElement> children;
    root.processElements("a", [&children](const XMLElement& child) { children.push_back(child); });
    ASSERT_EQ(children.size(), 2U);
    EXPECT_EQ(root.getElement("a"), children[0]);
    EXPECT_NE(root.getElement("a"), children[1]);
    EXPECT_NE(root, children[0]);
    EXPECT_NE(root, XMLElement());
    const XMLElement copy = root;
    EXPECT_EQ(copy, root);
    EXPECT_NE(root, parse("<r><a/><a/></r>"));
}

TEST(XMLElement, ViewKeepsDocumentAlive)
{
    XMLElement inner = parse("<r><a><b k='v'>text</b></a></r>");
    inner = inner.getElement("a");
    inner = inner.getElement("b");
    EXPECT_EQ(inner.getText(), std::string("text"));
    EXPECT_EQ(inner.getAttributeValue("k"), std::string("v"));
}

TEST(XMLElement, ViewsParserOfTheCallers)
{
    const std::string text = "<!DOCTYPE r [<!ENTITY e '<a>1</a>'>]><r>&e;<b>2<!-- c --></b></r>";
    const auto parser = std::make_shared<xercesc::XercesDOMParser>();
    const auto handler = std::make_shared<xercesc::HandlerBase>();
    parser->setDoNamespaces(true);
    parser->parse(
        xercesc::MemBufInputSource(reinterpret_cast<const XMLByte*>(text.data()), text.size(), "memory"));
    const XMLElement root(parser, handler, parser->getDocument()->getDocumentElement());

    // The element stands below an entity reference, which such a tree keeps.
    EXPECT_EQ(root.getElement("a").getText(), std::string("1"));
    EXPECT_EQ(root.getElement("b").getText(), std::string("2"));
    EXPECT_THAT(getNames(root), ElementsAre("a", "b"));
    EXPECT_EQ(root.getText(), std::string("12"));
    EXPECT_EQ(root, XMLElement(parser, handler, parser->getDocument()->getDocumentElement()));
    EXPECT_NE(root, XMLElement(parser, nullptr, parser->getDocument()->getDocumentElement()));
    EXPECT_NE(root, XMLElement(nullptr, handler, parser->getDocument()->getDocumentElement()));
    EXPECT_FALSE(XMLElement(parser, handler, nullptr).isValid());
}

struct SurrogateRow
{
    const char* name;
    std::u16string value;
    std::string text;
};

void PrintTo(const SurrogateRow& row, std::ostream* out)
{
    *out << row.name;
}

const SurrogateRow SurrogateRows[] = {
    {"Pair",         {u'x', 0xD83D, 0xDE00, u'y'},       "x\xF0\x9F\x98\x80y"                          },
    {"FirstPair",    {0xD800, 0xDC00},                   "\xF0\x90\x80\x80"                            },
    {"LastPair",     {0xDBFF, 0xDFFF},                   "\xF4\x8F\xBF\xBF"                            },
    {"BelowThem",    {0xD7FF},                           "\xED\x9F\xBF"                                },
    {"AboveThem",    {0xE000},                           "\xEE\x80\x80"                                },
    {"HighAlone",    {u'x', 0xD800, u'y'},               "x\xEF\xBF\xBDy"                              },
    {"HighAtEnd",    {u'x', 0xDBFF},                     "x\xEF\xBF\xBD"                               },
    {"LowAlone",     {0xDC00, u'y'},                     "\xEF\xBF\xBDy"                               },
    {"WrongOrder",   {0xDC00, 0xD800},                   "\xEF\xBF\xBD\xEF\xBF\xBD"                    },
    {"HighThenPair", {0xD800, 0xD83D, 0xDE00},           "\xEF\xBF\xBD\xF0\x9F\x98\x80"                },
    {"Lengths",      {0x7F, 0x80, 0x7FF, 0x800, 0xFFFF}, "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF"},
};

class XMLElementSurrogates : public testing::TestWithParam<SurrogateRow>
{
};

// No document has an unpaired one, but a tree of the caller's may.
TEST_P(XMLElementSurrogates, BecomeUtf8)
{
    const std::string text = "<a/>";
    const auto parser = std::make_shared<xercesc::XercesDOMParser>();
    parser->parse(
        xercesc::MemBufInputSource(reinterpret_cast<const XMLByte*>(text.data()), text.size(), "memory"));
    xercesc::DOMElement* const root = parser->getDocument()->getDocumentElement();
    root->setAttribute(u"k", GetParam().value.c_str());
    root->setTextContent(GetParam().value.c_str());
    const XMLElement element(parser, nullptr, root);
    EXPECT_EQ(element.getAttributeValue("k"), GetParam().text);
    EXPECT_EQ(element.getText(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Rows, XMLElementSurrogates, testing::ValuesIn(SurrogateRows),
    [](const auto& row) { return std::string(row.param.name); });

// --- xercesStringToString

TEST(XercesStringToString, TranscodesAscii)
{
    EXPECT_EQ(xercesStringToString(u"plain text"), "plain text");
    EXPECT_EQ(xercesStringToString(u""), "");
}

TEST(XercesStringToString, AssertsOnNull)
{
    const Tests::RecordedAssertions assertions;
    EXPECT_EQ(xercesStringToString(nullptr), "");
    EXPECT_THAT(assertions.getExpressions(), ElementsAre("text"));
}

} // namespace
} // namespace QV::FilterUtils
