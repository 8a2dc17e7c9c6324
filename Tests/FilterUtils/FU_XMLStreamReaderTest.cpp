#include <FilterUtils/FU_XMLStreamReader.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <ostream>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <xercesc/sax/SAXParseException.hpp>

#include <FilterUtils/FU_XMLElement.h>
#include <Tests/Support/Printers.h>
#include <Tests/Support/XercesEnvironment.h>

namespace QV::FilterUtils {
namespace {

using testing::ElementsAre;

enum Word
{
    Row,
    Cell,
    Value,
    Reference,
    RelationId
};

const XMLVocabulary Words(
    {
        {"x", {"urn:new", "urn:old"}   },
        {"r", {"urn:rel", "urn:oldrel"}}
},
    {{Row, "x:row"}, {Cell, "x:c"}, {Value, "x:v"}, {Reference, "ref"}, {RelationId, "r:id"}});

std::string narrow(std::u16string_view text)
{
    std::string result;
    for (const char16_t unit : text)
        result += unit < 0x80 ? static_cast<char>(unit) : '?';
    return result;
}

// Writes what it receives as a short text; an element's name decides what becomes of it.
class Recorder : public XMLStreamHandler
{
public:
    using Decide = std::function<XMLStep(const XMLStreamStart&)>;

    explicit Recorder(Decide decide = [](const XMLStreamStart&) { return XMLStep::EnterText; })
        : _decide(std::move(decide))
    {
    }

    XMLStep onStart(const XMLStreamStart& element) override
    {
        log += "<" + narrow(element.getLocalName()) + ">";
        return _decide(element);
    }
    XMLFlow onEnd(const XMLStreamEnd& element) override
    {
        std::string text;
        element.appendText(text);
        log += text + "</" + narrow(element.getLocalName()) + ">";
        return flow;
    }
    XMLFlow onTree(const XMLStreamElement& element, const XMLElement& tree) override
    {
        log += "[" + narrow(element.getLocalName()) + ":" + tree.getText().value_or("nothing") + "]";
        trees.push_back(tree);
        return flow;
    }

    XMLFlow flow = XMLFlow::Continue;
    std::string log;
    std::vector<XMLElement> trees;

private:
    Decide _decide;
};

XMLReadResult read(const std::string& xml, XMLStreamHandler& handler)
{
    std::istringstream stream(xml);
    return XMLStreamReader(Words).read(stream, handler);
}

// "s..." is skipped, "t..." taken as a tree, "q..." stops, "n..." entered without its text; others give it.
XMLStep decideByName(const XMLStreamStart& element)
{
    switch (element.getLocalName().front()) {
    case u's':
        return XMLStep::Skip;
    case u't':
        return XMLStep::Tree;
    case u'q':
        return XMLStep::Stop;
    case u'n':
        return XMLStep::Enter;
    default:
        return XMLStep::EnterText;
    }
}

struct LogRow
{
    const char* name;
    const char* xml;
    const char* log;
    XMLOutcome outcome;
};

void PrintTo(const LogRow& row, std::ostream* out)
{
    *out << row.name << ": " << row.xml;
}

const LogRow LogRows[] = {
    {"EmptyElement",       "<a/>",                                                    "<a></a>",                                XMLOutcome::WellFormed    },
    {"EmptyTags",          "<a></a>",                                                 "<a></a>",                                XMLOutcome::WellFormed    },
    {"Text",               "<a>1</a>",                                                "<a>1</a>",                               XMLOutcome::WellFormed    },
    {"TextInPieces",       "<a>1&amp;<![CDATA[2]]><!--c-->3<?p?>4&#65;</a>",          "<a>1&234A</a>",
     XMLOutcome::WellFormed                                                                                                                               },
    {"NonAsciiText",       "<a>\xC3\xA4\xF0\x9F\x98\x80</a>",                         "<a>\xC3\xA4\xF0\x9F\x98\x80</a>",
     XMLOutcome::WellFormed                                                                                                                               },
    {"Children",           "<a><b>1</b><b/><b>2</b></a>",                             "<a><b>1</b><b></b><b>2</b>12</a>",       XMLOutcome::WellFormed    },
    {"Mixed",              "<a>1<b>2</b>3</a>",                                       "<a><b>2</b>123</a>",                     XMLOutcome::WellFormed    },
    {"TextNotWanted",      "<n>1<b>2</b>3<b>4</b></n>",                               "<n><b>2</b><b>4</b></n>",                XMLOutcome::WellFormed    },
    {"WantedOutside",      "<a>1<n>2</n>3</a>",                                       "<a><n></n>123</a>",                      XMLOutcome::WellFormed    },
    {"TextIsForgotten",    "<n><a>1</a>2<a>3</a></n>",                                "<n><a>1</a><a>3</a></n>",                XMLOutcome::WellFormed    },
    {"Skip",               "<a>1<s>2<b>3</b></s>4</a>",                               "<a><s>14</a>",                           XMLOutcome::WellFormed    },
    {"SkipEmpty",          "<a><s/><b>1</b></a>",                                     "<a><s><b>1</b>1</a>",                    XMLOutcome::WellFormed    },
    {"SkipInSkip",         "<a><s><s/><s>1</s></s><b/></a>",                          "<a><s><b></b></a>",                      XMLOutcome::WellFormed    },
    {"SkipRoot",           "<s><b/></s>",                                             "<s>",                                    XMLOutcome::WellFormed    },
    {"SkipEmptyRoot",      "<s/>",                                                    "<s>",                                    XMLOutcome::WellFormed    },
    {"Tree",               "<a>1<t>2<b>3</b></t>4</a>",                               "<a><t>[t:23]14</a>",                     XMLOutcome::WellFormed    },
    {"TreeEmpty",          "<a><t/><b>1</b></a>",                                     "<a><t>[t:]<b>1</b>1</a>",                XMLOutcome::WellFormed    },
    {"TreeInTree",         "<a><t><t>1</t></t><b/></a>",                              "<a><t>[t:1]<b></b></a>",                 XMLOutcome::WellFormed    },
    {"TreeRoot",           "<t><b>1</b></t>",                                         "<t>[t:1]",                               XMLOutcome::WellFormed    },
    {"TreeEmptyRoot",      "<t/>",                                                    "<t>[t:]",                                XMLOutcome::WellFormed    },
    {"TreeHasCommentsOut", "<t><!--c-->1<?p d?>2<![CDATA[3]]></t>",                   "<t>[t:123]",                             XMLOutcome::WellFormed    },
    {"TreesInARow",        "<n><t>1</t><t>2</t><t/><t>3</t></n>",                     "<n><t>[t:1]<t>[t:2]<t>[t:]<t>[t:3]</n>",
     XMLOutcome::WellFormed                                                                                                                               },
    {"Stop",               "<a><q><b/></q>",                                          "<a><q>",                                 XMLOutcome::Stopped       },
    {"StopAtRoot",         "<q/>",                                                    "<q>",                                    XMLOutcome::Stopped       },
    {"AroundRoot",         "<?xml version='1.0'?><!--c--><?p?> <a/> <!--c--><?p?>\n", "<a></a>",
     XMLOutcome::WellFormed                                                                                                                               },
    {"SecondRoot",         "<a/><b/>",                                                "<a></a>",                                XMLOutcome::Malformed     },
    {"MalformedLater",     "<a><b>1</b></c>",                                         "<a><b>1</b>",                            XMLOutcome::Malformed     },
    {"MalformedInSkip",    "<a><s><b></c></s></a>",                                   "<a><s>",                                 XMLOutcome::Malformed     },
    {"MalformedInTree",    "<a><t><b></c></t></a>",                                   "<a><t>",                                 XMLOutcome::Malformed     },
    {"UnboundPrefix",      "<p:a/>",                                                  "",                                       XMLOutcome::Malformed     },
    {"UnknownEntity",      "<a>&e;</a>",                                              "<a>",                                    XMLOutcome::Malformed     },
    {"Doctype",            "<!DOCTYPE a><a/>",                                        "",                                       XMLOutcome::DoctypeRefused},
};

class XMLStreamReaderLog : public testing::TestWithParam<LogRow>
{
};

TEST_P(XMLStreamReaderLog, KeepsRow)
{
    Recorder recorder(decideByName);
    EXPECT_EQ(read(GetParam().xml, recorder).outcome, GetParam().outcome);
    EXPECT_EQ(recorder.log, GetParam().log);
}

INSTANTIATE_TEST_SUITE_P(Rows, XMLStreamReaderLog, testing::ValuesIn(LogRows),
    [](const auto& row) { return std::string(row.param.name); });

// --- names

// Writes number, parent's number and depth of each element.
struct NumberRecorder : XMLStreamHandler
{
    XMLStep onStart(const XMLStreamStart& element) override
    {
        record(element);
        return element.getId() == Value ? XMLStep::Tree : XMLStep::Enter;
    }
    XMLFlow onEnd(const XMLStreamEnd& element) override
    {
        record(element);
        return XMLFlow::Continue;
    }
    XMLFlow onTree(const XMLStreamElement& element, const XMLElement&) override
    {
        record(element);
        return XMLFlow::Continue;
    }
    void record(const XMLStreamElement& element)
    {
        log.push_back(std::to_string(element.getId()) + "/" + std::to_string(element.getParentId()) + "/" +
                      std::to_string(element.getDepth()) + narrow(element.getNamespace()));
    }

    std::vector<std::string> log;
};

TEST(XMLStreamReader, NumbersNamesOfEveryNamespaceFamily)
{
    NumberRecorder recorder;
    read("<row xmlns='urn:new' xmlns:o='urn:old'><o:c><v/></o:c><c xmlns=''/></row>", recorder);
    EXPECT_THAT(recorder.log, ElementsAre("0/-1/1urn:new", "1/0/2urn:old", "2/1/3urn:new", "2/1/3urn:new",
                                  "1/0/2urn:old", "-1/0/2", "-1/0/2", "0/-1/1urn:new"));
}

TEST(XMLStreamReader, TellsOnePrefixInTwoNamespacesApart)
{
    NumberRecorder recorder;
    read("<r><p:c xmlns:p='urn:new'/><p:c xmlns:p='urn:other'/><p:c xmlns:p='urn:old'/></r>", recorder);
    EXPECT_THAT(recorder.log, ElementsAre("-1/-1/1", "1/-1/2urn:new", "1/-1/2urn:new", "-1/-1/2urn:other",
                                  "-1/-1/2urn:other", "1/-1/2urn:old", "1/-1/2urn:old", "-1/-1/1"));
}

struct NamespaceRow
{
    const char* name;
    std::u16string prefix;
    const char* outer;
    const char* inner;
    const char* after;
};

void PrintTo(const NamespaceRow& row, std::ostream* out)
{
    *out << row.name;
}

const NamespaceRow NamespaceRows[] = {
    {"Default",    u"",    "urn:d",                                "(none)",                               "urn:d" },
    {"Kept",       u"p",   "urn:p",                                "urn:p",                                "urn:p" },
    {"Redeclared", u"q",   "urn:q",                                "urn:q2",                               "urn:q" },
    {"InnerOnly",  u"i",   "(none)",                               "urn:i",                                "(none)"},
    {"Unknown",    u"u",   "(none)",                               "(none)",                               "(none)"},
    {"Xml",        u"xml", "http://www.w3.org/XML/1998/namespace", "http://www.w3.org/XML/1998/namespace",
     "http://www.w3.org/XML/1998/namespace"                                                                        },
};

class XMLStreamNamespace : public testing::TestWithParam<NamespaceRow>
{
};

TEST_P(XMLStreamNamespace, IsInForce)
{
    std::vector<std::string> found;
    Recorder recorder([&found](const XMLStreamStart& element) {
        const auto uri = element.findNamespace(GetParam().prefix);
        found.push_back(uri ? narrow(*uri) : "(none)");
        return XMLStep::Enter;
    });
    read("<a xmlns='urn:d' xmlns:p='urn:p' xmlns:q='urn:q'><b xmlns='' xmlns:q='urn:q2' "
         "xmlns:i='urn:i'/><b/></a>",
        recorder);
    EXPECT_THAT(found, ElementsAre(GetParam().outer, GetParam().inner, GetParam().after));
}

INSTANTIATE_TEST_SUITE_P(Rows, XMLStreamNamespace, testing::ValuesIn(NamespaceRows),
    [](const auto& row) { return std::string(row.param.name); });

// --- attributes

struct AttributeRow
{
    const char* name;
    const char* xml;
    int id;
    boost::optional<std::string> value;
};

void PrintTo(const AttributeRow& row, std::ostream* out)
{
    *out << row.name << ": " << row.xml;
}

const AttributeRow AttributeRows[] = {
    {"Plain",           "<a ref='1'/>",                           Reference,              std::string("1")       },
    {"Empty",           "<a ref=''/>",                            Reference,              std::string()          },
    {"Missing",         "<a re='1' refs='2' Ref='3'/>",           Reference,              boost::none            },
    {"None",            "<a/>",                                   Reference,              boost::none            },
    {"Last",            "<a a='1' r='2' ref='3'/>",               Reference,              std::string("3")       },
    {"PlainInDefault",  "<a xmlns='urn:new' ref='1'/>",           Reference,              std::string("1")       },
    {"Prefixed",        "<a xmlns:p='urn:rel' p:id='1'/>",        RelationId,             std::string("1")       },
    {"OtherFamily",     "<a xmlns:p='urn:oldrel' p:id='1'/>",     RelationId,             std::string("1")       },
    {"OtherNamespace",  "<a xmlns:p='urn:x' p:id='1'/>",          RelationId,             boost::none            },
    {"PlainInstead",    "<a id='1'/>",                            RelationId,             boost::none            },
    {"PrefixedInstead", "<a xmlns:p='urn:rel' p:ref='1'/>",       Reference,              boost::none            },
    {"Both",            "<a xmlns:p='urn:rel' id='1' p:id='2'/>", RelationId,             std::string("2")       },
    {"NonAscii",        "<a ref='\xC3\xA4'/>",                    Reference,              std::string("\xC3\xA4")},
    {"NameOfElement",   "<a row='1'/>",                           Row,                    boost::none            },
    {"UnknownNumber",   "<a ref='1'/>",                           99,                     boost::none            },
    {"NoNumber",        "<a ref='1'/>",                           XMLVocabulary::Unknown, boost::none            },
};

class XMLStreamAttribute : public testing::TestWithParam<AttributeRow>
{
};

TEST_P(XMLStreamAttribute, IsFound)
{
    boost::optional<std::string> value = std::string("not asked");
    Recorder recorder([&value](const XMLStreamStart& element) {
        value = element.findAttributeText(GetParam().id);
        EXPECT_EQ(element.findAttribute(GetParam().id).has_value(), value.has_value());
        return XMLStep::Enter;
    });
    EXPECT_EQ(read(GetParam().xml, recorder).outcome, XMLOutcome::WellFormed);
    EXPECT_EQ(value, GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Rows, XMLStreamAttribute, testing::ValuesIn(AttributeRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(XMLStreamReader, ListsAttributes)
{
    std::vector<std::string> found;
    Recorder recorder([&found](const XMLStreamStart& element) {
        for (std::size_t i = 0; i < element.getAttributeCount(); ++i) {
            const XMLStreamStart::Attribute attribute = element.getAttribute(i);
            found.push_back(
                narrow(attribute.uri) + "|" + narrow(attribute.localName) + "=" + narrow(attribute.value));
        }
        return XMLStep::Enter;
    });
    read("<a x='1' p:y='2' xmlns:p='urn:p'><b/><c z=''/></a>", recorder);
    EXPECT_THAT(found, ElementsAre("|x=1", "urn:p|y=2", "http://www.w3.org/2000/xmlns/|p=urn:p", "|z="));
}

// --- trees

TEST(XMLStreamReader, TreesOutliveTheReading)
{
    Recorder recorder(decideByName);
    read("<n xmlns='urn:x' xmlns:p='urn:p'><t k='1'><p:b p:k='2'>3</p:b></t><t k='4'/></n>", recorder);
    ASSERT_EQ(recorder.trees.size(), 2U);
    EXPECT_EQ(recorder.trees[0].getAttributeValue("k"), std::string("1"));
    EXPECT_EQ(recorder.trees[0].getElement("urn:p:b").getAttributeValue("urn:p:k"), std::string("2"));
    EXPECT_EQ(recorder.trees[0].getElement("urn:p:b").getText(), std::string("3"));
    EXPECT_EQ(recorder.trees[1].getAttributeValue("k"), std::string("4"));
    EXPECT_FALSE(recorder.trees[1].getElement("urn:p:b").isValid());
    EXPECT_NE(recorder.trees[0], recorder.trees[1]);
}

TEST(XMLStreamReader, StopsAtEndsAndTrees)
{
    for (const char* const xml : {"<n><t>1</t><t>2</t></n>", "<n><a>1</a><a>2</a></n>"}) {
        Recorder recorder(decideByName);
        recorder.flow = XMLFlow::Stop;
        const XMLReadResult result = read(xml, recorder);
        EXPECT_EQ(result.outcome, XMLOutcome::Stopped);
        EXPECT_EQ(result.message, "");
        EXPECT_THAT(recorder.log, testing::AnyOf("<n><t>[t:1]", "<n><a>1</a>"));
    }
}

// --- what a handler throws

struct ThrowingHandler : XMLStreamHandler
{
    explicit ThrowingHandler(std::function<void()> throwing)
        : raise(std::move(throwing))
    {
    }
    XMLStep onStart(const XMLStreamStart& element) override
    {
        if (element.getLocalName() == u"start")
            raise();
        return element.getLocalName() == u"tree" ? XMLStep::Tree : XMLStep::Enter;
    }
    XMLFlow onEnd(const XMLStreamEnd& element) override
    {
        if (element.getLocalName() == u"end")
            raise();
        return XMLFlow::Continue;
    }
    XMLFlow onTree(const XMLStreamElement&, const XMLElement&) override
    {
        raise();
        return XMLFlow::Continue;
    }

    std::function<void()> raise;
};

TEST(XMLStreamReader, HandlersExceptionPassesUnchanged)
{
    for (const char* const xml : {"<a><start><b/></start></a>", "<a><b/><end>1</end></a>",
             "<a><tree>1</tree></a>", "<start/>", "<tree/>"}) {
        ThrowingHandler standard([] { throw std::out_of_range("mine"); });
        try {
            read(xml, standard);
            FAIL() << xml;
        } catch (const std::out_of_range& exception) {
            EXPECT_STREQ(exception.what(), "mine");
        }
        ThrowingHandler number([] { throw 42; });
        EXPECT_THROW(read(xml, number), int);
        // Not to be taken for an error of the parsing that is under way.
        ThrowingHandler parsers([] { throw xercesc::SAXParseException(u"mine", nullptr, nullptr, 1, 1); });
        EXPECT_THROW(read(xml, parsers), xercesc::SAXParseException);
    }
}

TEST(XMLStreamReader, ReadsInsideAReading)
{
    std::string inner;
    Recorder outer([&inner](const XMLStreamStart&) {
        Recorder recorder;
        read("<i>1</i>", recorder);
        inner += recorder.log;
        return XMLStep::EnterText;
    });
    EXPECT_EQ(read("<o>1<p/>2</o>", outer).outcome, XMLOutcome::WellFormed);
    EXPECT_EQ(outer.log, "<o><p></p>12</o>");
    EXPECT_EQ(inner, "<i>1</i><i>1</i>");
}

// --- compared with the tree

// Writes random documents; names, namespaces and text repeat often enough to meet.
class RandomDocument
{
public:
    explicit RandomDocument(unsigned seed)
        : _random(seed)
    {
    }

    std::string make()
    {
        std::string xml = "<root xmlns:p='urn:p'";
        xml += pick({"", " xmlns='urn:d'"});
        return xml + ">" + makeContent(0) + "</root>";
    }

private:
    std::string pick(const std::vector<std::string>& choices)
    {
        return choices[std::uniform_int_distribution<std::size_t>(0, choices.size() - 1)(_random)];
    }
    std::string makeContent(int depth)
    {
        std::string xml;
        for (auto count = std::uniform_int_distribution<int>(0, 4)(_random); count > 0; --count)
            xml += depth < 6 && pick({"e", "t"}) == "e" ? makeElement(depth) : makeText();
        return xml;
    }
    std::string makeText()
    {
        return pick({"text", " ", "&lt;", "&#x20AC;", "<![CDATA[<x>]]>", "<!-- c -->", "<?p d?>", "\xC3\xA4",
            "\r\n"});
    }
    std::string makeElement(int depth)
    {
        const std::string name = pick({"a", "b", "p:a", "p:b", "c"});
        std::string xml = "<" + name;
        xml += pick({"", "", " xmlns='urn:e'", " xmlns=''", " xmlns:p='urn:q'"});
        xml += pick({"", " k='v'", " k=''", " k='&amp;\xE2\x82\xAC'"}) + pick({"", " p:k='w'"});
        const std::string content = makeContent(depth + 1);
        return content.empty() ? xml + "/>" : xml + ">" + content + "</" + name + ">";
    }

    std::mt19937 _random;
};

std::vector<XMLElement> getChildren(const XMLElement& parent, const std::string& name)
{
    std::vector<XMLElement> children;
    parent.processElements(name, [&children](const XMLElement& child) { children.push_back(child); });
    return children;
}

void expectSame(const XMLElement& tree, const XMLElement& expected)
{
    EXPECT_EQ(tree.getText(), expected.getText());
    for (const char* const name : {"k", "urn:p:k", "urn:q:k"})
        EXPECT_EQ(tree.getAttributeValue(name), expected.getAttributeValue(name));
    for (const char* const uri : {"", "urn:d:", "urn:e:", "urn:p:", "urn:q:"})
        for (const char* const localName : {"a", "b", "c"}) {
            const auto children = getChildren(tree, std::string(uri) + localName);
            const auto expectedChildren = getChildren(expected, std::string(uri) + localName);
            ASSERT_EQ(children.size(), expectedChildren.size());
            for (std::size_t i = 0; i < children.size(); ++i)
                expectSame(children[i], expectedChildren[i]);
        }
}

// Skips, takes and enters elements at random, and checks each against the same element of a tree.
class TreeComparer : public XMLStreamHandler
{
public:
    TreeComparer(const XMLElement& root, unsigned seed)
        : _root(root)
        , _random(seed)
    {
    }

    XMLStep onStart(const XMLStreamStart& element) override
    {
        const XMLElement expected = element.getDepth() == 1 ? _root : takeChild(getName(element));
        EXPECT_EQ(element.findAttributeText(0), expected.getAttributeValue("k"));
        EXPECT_EQ(element.findAttributeText(1), expected.getAttributeValue("urn:p:k"));
        EXPECT_EQ(element.findAttributeText(2), expected.getAttributeValue("urn:q:k"));
        ++elements;
        const auto choice = _random() % 8;
        if (choice == 0) {
            noteGap();
            return XMLStep::Skip;
        }
        _path.push_back({expected, {}, false});
        return choice == 1 ? XMLStep::Tree : XMLStep::EnterText;
    }
    XMLFlow onEnd(const XMLStreamEnd& element) override
    {
        std::string text;
        element.appendText(text);
        EXPECT_EQ(element.getDepth(), _path.size());
        if (!_path.back().hasGap) {
            EXPECT_EQ(text, _path.back().expected.getText());
        }
        _path.pop_back();
        return XMLFlow::Continue;
    }
    XMLFlow onTree(const XMLStreamElement& element, const XMLElement& tree) override
    {
        EXPECT_EQ(element.getDepth(), _path.size());
        expectSame(tree, _path.back().expected);
        _path.pop_back();
        noteGap();
        return XMLFlow::Continue;
    }

    std::size_t elements = 0;

private:
    struct Level
    {
        XMLElement expected;
        std::vector<std::string> taken; // names of the children that events have told of
        bool hasGap;                    // text inside was skipped or taken as a tree
    };

    static std::string getName(const XMLStreamElement& element)
    {
        const std::string uri = narrow(element.getNamespace());
        return uri.empty() ? narrow(element.getLocalName()) : uri + ":" + narrow(element.getLocalName());
    }

    void noteGap()
    {
        for (Level& level : _path)
            level.hasGap = true;
    }

    XMLElement takeChild(const std::string& name)
    {
        Level& parent = _path.back();
        const auto children = getChildren(parent.expected, name);
        const auto index =
            static_cast<std::size_t>(std::count(parent.taken.begin(), parent.taken.end(), name));
        parent.taken.push_back(name);
        EXPECT_LT(index, children.size()) << name;
        return index < children.size() ? children[index] : XMLElement();
    }

    XMLElement _root;
    std::mt19937 _random;
    std::vector<Level> _path;
};

TEST(XMLStreamReader, PredefinedEntitiesAndCharacterReferencesAreNoExpansions)
{
    std::string xml = "<a k='";
    for (int i = 0; i < 3000; ++i)
        xml += "&amp;&#65;";
    xml += "'>";
    for (int i = 0; i < 3000; ++i)
        xml += "&lt;&#66;";
    xml += "</a>";
    Recorder recorder;
    EXPECT_EQ(read(xml, recorder).outcome, XMLOutcome::WellFormed);
    EXPECT_EQ(recorder.log.size(), std::string("<a></a>").size() + 6000);

    std::istringstream stream(xml);
    const XMLElement root = XMLElement::getRootElement(stream, boost::none);
    ASSERT_TRUE(root.isValid());
    EXPECT_EQ(root.getAttributeValue("k")->size(), 6000U);
    EXPECT_EQ(root.getText()->size(), 6000U);
}

TEST(XMLStreamReader, AgreesWithTreeOnRandomDocuments)
{
    const XMLVocabulary words(
        {
    },
        {{0, "k"}, {1, "urn:p:k"}, {2, "urn:q:k"}});
    std::size_t elements = 0;
    for (unsigned seed = 0; seed < 1500; ++seed) {
        const std::string xml = RandomDocument(seed).make();
        std::istringstream forTree(xml);
        std::istringstream forStream(xml);
        const XMLElement root = XMLElement::getRootElement(forTree, boost::none);
        ASSERT_TRUE(root.isValid()) << xml;
        TreeComparer comparer(root, seed);
        ASSERT_EQ(XMLStreamReader(words).read(forStream, comparer).outcome, XMLOutcome::WellFormed) << xml;
        ASSERT_FALSE(HasFailure()) << xml;
        elements += comparer.elements;
    }
    EXPECT_GT(elements, 5'000U);
}

} // namespace
} // namespace QV::FilterUtils
