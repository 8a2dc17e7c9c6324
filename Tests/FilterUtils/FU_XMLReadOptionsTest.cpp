// What both XML readers refuse: malformed XML, encodings, and documents that cost too much.

#include <FilterUtils/FU_XMLReadOptions.h>

#include <cstddef>
#include <functional>
#include <ostream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tests/Support/Printers.h>
#include <Tests/Support/XMLReaders.h>
#include <Tests/Support/XercesEnvironment.h>

namespace QV::FilterUtils {
namespace {

using Tests::readAsStream;
using Tests::readAsTree;

std::string repeat(std::size_t count, const std::function<std::string(std::size_t)>& make)
{
    std::string result;
    for (std::size_t i = 0; i < count; ++i)
        result += make(i);
    return result;
}

std::string repeat(std::size_t count, const std::string& text)
{
    return repeat(count, [&text](std::size_t) { return text; });
}

std::string encodeUtf16(const std::string& ascii, bool isBigEndian)
{
    return repeat(ascii.size(), [&](std::size_t i) {
        return isBigEndian ? std::string{'\0', ascii[i]} : std::string{ascii[i], '\0'};
    });
}

// --- malformed XML

struct MalformedRow
{
    const char* name;
    std::string xml;
};

void PrintTo(const MalformedRow& row, std::ostream* out)
{
    *out << row.name;
}

const MalformedRow MalformedRows[] = {
    {"Empty",                   ""                                            },
    {"Blank",                   " \n"                                         },
    {"NoXml",                   "PK\x03\x04"                                  },
    {"Text",                    "text"                                        },
    {"OnlyDeclaration",         "<?xml version='1.0'?>"                       },
    {"OnlyComment",             "<!-- c -->"                                  },
    {"Open",                    "<a>"                                         },
    {"OpenTag",                 "<a"                                          },
    {"OpenChild",               "<a><b></a>"                                  },
    {"Crossed",                 "<a><b></a></b>"                              },
    {"EndAlone",                "</a>"                                        },
    {"OtherEnd",                "<a></b>"                                     },
    {"TwoRoots",                "<a/><a/>"                                    },
    {"TextAfterRoot",           "<a/>text"                                    },
    {"TextBeforeRoot",          "text<a/>"                                    },
    {"BlankBeforeDeclaration",  " <?xml version='1.0'?><a/>"                  },
    {"SecondDeclaration",       "<a><?xml version='1.0'?></a>"                },
    {"AttributeTwice",          "<a k='1' k='2'/>"                            },
    {"AttributeTwiceByUri",     "<a xmlns:p='u' xmlns:q='u' p:k='1' q:k='2'/>"},
    {"NoValue",                 "<a k/>"                                      },
    {"NoQuotes",                "<a k=1/>"                                    },
    {"NoBlank",                 "<a k='1'l='2'/>"                             },
    {"OpenQuote",               "<a k='1/>"                                   },
    {"LessThanInValue",         "<a k='<'/>"                                  },
    {"UnboundPrefix",           "<p:a/>"                                      },
    {"UnboundAttribute",        "<a p:k='1'/>"                                },
    {"TwoColons",               "<p:q:a xmlns:p='u'/>"                        },
    {"DigitFirst",              "<1a/>"                                       },
    {"UnknownEntity",           "<a>&e;</a>"                                  },
    {"UnknownEntityInValue",    "<a k='&e;'/>"                                },
    {"BareAmpersand",           "<a>1 & 2</a>"                                },
    {"OpenReference",           "<a>&lt</a>"                                  },
    {"CharacterZero",           "<a>&#0;</a>"                                 },
    {"SurrogateReference",      "<a>&#xD800;</a>"                             },
    {"BeyondUnicode",           "<a>&#x110000;</a>"                           },
    {"ControlCharacter",        "<a>\x01</a>"                                 },
    {"NulInText",               std::string("<a>1\0002</a>",                    10)},
    {"NulInTag",                         std::string("<a\0/>",                                                              5)},
    {"NulAfterRoot",                       std::string("<a/>\0text",        9)},
    {"CDataEndInText","<a>]]></a>"               },
    {"OpenCData",          "<a><![CDATA[</a>"                                                                 },
    {"CDataOutside",               "<![CDATA[1]]><a/>"                                 },
    {"OpenComment",            "<a><!-- </a>"                        },
    {"DashesInComment",             "<a><!-- -- --></a>"                                 },
    {"OpenInstruction",         "<a><?p </a>"                      },
};

class MalformedXML : public testing::TestWithParam<MalformedRow>
{
};

TEST_P(MalformedXML, IsToldByBothReaders)
{
    for (const XMLReadResult& result : {readAsTree(GetParam().xml), readAsStream(GetParam().xml)}) {
        EXPECT_EQ(result.outcome, XMLOutcome::Malformed);
        EXPECT_NE(result.message, "");
        EXPECT_GE(result.line, 1U);
        EXPECT_EQ(result.limit, 0U);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, MalformedXML, testing::ValuesIn(MalformedRows),
    [](const auto& row) { return std::string(row.param.name); });

struct VersionRow
{
    const char* name;
    const char* version;
    XMLOutcome outcome;
};

void PrintTo(const VersionRow& row, std::ostream* out)
{
    *out << row.version;
}

const VersionRow VersionRows[] = {
    {"First",       "1.0",   XMLOutcome::WellFormed},
    {"Second",      "1.1",   XMLOutcome::WellFormed},
    {"LaterFirst",  "1.5",   XMLOutcome::WellFormed},
    {"MuchLater",   "1.234", XMLOutcome::WellFormed},
    {"OtherNumber", "2.0",   XMLOutcome::Malformed },
    {"NoNumber",    "x",     XMLOutcome::Malformed },
    {"EmptyNumber", "",      XMLOutcome::Malformed },
};

class XMLVersion : public testing::TestWithParam<VersionRow>
{
};

TEST_P(XMLVersion, IsReadOrMalformed)
{
    const std::string xml = std::string("<?xml version='") + GetParam().version + "'?><a/>";
    EXPECT_EQ(readAsTree(xml).outcome, GetParam().outcome);
    EXPECT_EQ(readAsStream(xml).outcome, GetParam().outcome);
}

INSTANTIATE_TEST_SUITE_P(Rows, XMLVersion, testing::ValuesIn(VersionRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(XMLReaders, TellWhereXmlIsMalformed)
{
    const std::string xml = "<a>\n <b/>\n <b></c>\n</a>";
    for (const XMLReadResult& result : {readAsTree(xml), readAsStream(xml)}) {
        EXPECT_EQ(result.line, 3U);
        EXPECT_EQ(result.column, 7U);
        EXPECT_EQ(result.message, "expected end of tag 'b'");
    }
}

TEST(XMLReaders, RefuseEveryTruncation)
{
    const std::string xml = "<?xml version='1.0' encoding='UTF-8'?><!-- c --><p:a xmlns:p='urn:x' k='v&amp;'>"
                            "<b>1&#x20AC;\xC3\xA4</b><![CDATA[2]]><?p d?><c/></p:a>";
    ASSERT_EQ(readAsTree(xml).outcome, XMLOutcome::WellFormed);
    ASSERT_EQ(readAsStream(xml).outcome, XMLOutcome::WellFormed);
    for (std::size_t size = 0; size < xml.size(); ++size) {
        EXPECT_EQ(readAsTree(xml.substr(0, size)).outcome, XMLOutcome::Malformed) << size;
        EXPECT_EQ(readAsStream(xml.substr(0, size)).outcome, XMLOutcome::Malformed) << size;
        EXPECT_EQ(readAsStream(xml.substr(0, size), {}, XMLStep::Tree).outcome, XMLOutcome::Malformed)
            << size;
    }
}

// --- encodings

// How a document is written: each byte as it stands, after a UTF-8 mark, or as a UTF-16 unit after a mark or
// none.
enum class Form
{
    Plain,
    Marked,
    Little,
    Big,
    UnmarkedLittle
};

const char* const Malformed = nullptr;

struct EncodingRow
{
    const char* name;
    Form form;
    const char* declared; // null: no declaration
    const char* body;
    const char* text; // of the root, as UTF-8; or Malformed
    bool isUnicode;   // in UTF-8 or UTF-16
};

void PrintTo(const EncodingRow& row, std::ostream* out)
{
    *out << row.name;
}

std::string declare(const std::string& encoding, const std::string& rest)
{
    return "<?xml version='1.0' encoding='" + encoding + "'?>" + rest;
}

std::string write(const EncodingRow& row)
{
    const std::string xml = row.declared ? declare(row.declared, row.body) : row.body;
    switch (row.form) {
    case Form::Marked:
        return "\xEF\xBB\xBF" + xml;
    case Form::Little:
        return "\xFF\xFE" + encodeUtf16(xml, false);
    case Form::Big:
        return "\xFE\xFF" + encodeUtf16(xml, true);
    case Form::UnmarkedLittle:
        return encodeUtf16(xml, false);
    case Form::Plain:
        break;
    }
    return xml;
}

const EncodingRow EncodingRows[] = {
    {"Undeclared",          Form::Plain,          nullptr,            "<a>\xC3\xA4</a>",         "\xC3\xA4",     true },
    {"Marked",              Form::Marked,         nullptr,            "<a>\xC3\xA4</a>",         "\xC3\xA4",     true },
    {"Utf8",                Form::Plain,          "UTF-8",            "<a>\xC3\xA4</a>",         "\xC3\xA4",     true },
    {"Utf8InLowerCase",     Form::Plain,          "utf-8",            "<a>\xC3\xA4</a>",         "\xC3\xA4",     true },
    {"MarkedAndDeclared",   Form::Marked,         "UTF-8",            "<a>1</a>",                "1",            true },
    {"Utf16Little",         Form::Little,         nullptr,            "<a>1</a>",                "1",            true },
    {"Utf16Big",            Form::Big,            nullptr,            "<a>1</a>",                "1",            true },
    {"Utf16LittleDeclared", Form::Little,         "UTF-16",           "<a>1</a>",                "1",            true },
    {"Utf16BigDeclared",    Form::Big,            "utf-16",           "<a>1</a>",                "1",            true },
    {"Utf16WithoutMark",    Form::UnmarkedLittle, "UTF-16LE",         "<a>1</a>",                "1",            true },
    {"Latin1",              Form::Plain,          "ISO-8859-1",       "<a>\xE4</a>",             "\xC3\xA4",     false},
    {"Windows1252",         Form::Plain,          "windows-1252",     "<a>\x80</a>",             "\xE2\x82\xAC", false},
    {"Ascii",               Form::Plain,          "US-ASCII",         "<a>1</a>",                "1",            false},
    {"Latin1Undeclared",    Form::Plain,          nullptr,            "<a>\xE4</a>",             Malformed,      true },
    {"Latin1AsUtf8",        Form::Plain,          "UTF-8",            "<a>\xE4</a>",             Malformed,      true },
    {"OverlongUtf8",        Form::Plain,          nullptr,            "<a>\xC0\xAF</a>",         Malformed,      true },
    {"SurrogateInUtf8",     Form::Plain,          nullptr,            "<a>\xED\xA0\x80</a>",     Malformed,      true },
    {"BeyondUnicodeInUtf8", Form::Plain,          nullptr,            "<a>\xF5\x80\x80\x80</a>", Malformed,      true },
    {"CutUtf8",             Form::Plain,          nullptr,            "<a>\xE2\x82</a>",         Malformed,      true },
    {"BadUtf8InAttribute",  Form::Plain,          nullptr,            "<a k='\xFF'/>",           Malformed,      true },
    {"BadUtf8InName",       Form::Plain,          nullptr,            "<a\xFF/>",                Malformed,      true },
    {"Utf8AsUtf16",         Form::Plain,          "UTF-16",           "<a>1</a>",                "1",            true },
    {"Utf16AsUtf8",         Form::Little,         "UTF-8",            "<a>1</a>",                Malformed,      true },
    {"UnknownEncoding",     Form::Plain,          "no-such-encoding", "<a>1</a>",                Malformed,      false},
    {"EmptyEncoding",       Form::Plain,          "",                 "<a>1</a>",                Malformed,      false},
};

class XMLEncoding : public testing::TestWithParam<EncodingRow>
{
};

TEST_P(XMLEncoding, IsReadOrMalformed)
{
    const EncodingRow& row = GetParam();
    const auto expected = row.text ? XMLOutcome::WellFormed : XMLOutcome::Malformed;
    std::istringstream stream(write(row));
    XMLReadResult result;
    const XMLElement root = XMLElement::getRootElement(stream, boost::none, {}, &result);
    EXPECT_EQ(result.outcome, expected) << result.message;
    EXPECT_EQ(root.getText(), boost::make_optional(root.isValid(), std::string(row.text ? row.text : "")));
    EXPECT_EQ(readAsStream(write(row)).outcome, expected);
}

TEST_P(XMLEncoding, IsRefusedWhereOnlyUnicodeIsAccepted)
{
    const EncodingRow& row = GetParam();
    XMLReadOptions options;
    options.encodings = XMLEncodings::Utf8AndUtf16;
    const XMLOutcome readable = row.isUnicode ? XMLOutcome::WellFormed : XMLOutcome::EncodingRefused;
    const XMLOutcome expected = row.text ? readable : XMLOutcome::Malformed;
    EXPECT_EQ(readAsTree(write(row), options).outcome, expected);
    EXPECT_EQ(readAsStream(write(row), options).outcome, expected);
}

TEST_P(XMLEncoding, IsReadInLatin1WhereThatIsAccepted)
{
    const EncodingRow& row = GetParam();
    XMLReadOptions options;
    options.encodings = XMLEncodings::Utf8Utf16AndLatin1;
    const bool isAccepted =
        row.isUnicode || row.name == std::string("Latin1") || row.name == std::string("Ascii");
    const XMLOutcome readable = isAccepted ? XMLOutcome::WellFormed : XMLOutcome::EncodingRefused;
    const XMLOutcome expected = row.text ? readable : XMLOutcome::Malformed;
    EXPECT_EQ(readAsTree(write(row), options).outcome, expected);
    EXPECT_EQ(readAsStream(write(row), options).outcome, expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, XMLEncoding, testing::ValuesIn(EncodingRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(XMLReaders, RefuseHalfAUnit)
{
    const std::string xml = "\xFF\xFE" + encodeUtf16("<a>1</a", false) + ">";
    EXPECT_EQ(readAsTree(xml).outcome, XMLOutcome::Malformed);
    EXPECT_EQ(readAsStream(xml).outcome, XMLOutcome::Malformed);
}

TEST(XMLReaders, NameRefusedEncoding)
{
    XMLReadOptions options;
    options.encodings = XMLEncodings::Utf8AndUtf16;
    EXPECT_EQ(readAsTree(declare("iso-8859-1", "<a/>"), options).message,
        "the document is in ISO-8859-1, and not in UTF-8 or UTF-16");
}

// --- bounds that both readers keep

struct BoundRow
{
    const char* name;
    std::string (*make)(std::size_t count); // a document that has so many of something
    XMLOutcome outcome;
    const char* message;
};

void PrintTo(const BoundRow& row, std::ostream* out)
{
    *out << row.name;
}

std::string makeAttributes(std::size_t count, const std::string& before, const std::string& after)
{
    return repeat(count, [&](std::size_t i) {
        return " " + before + std::to_string(i) + "='" + after + std::to_string(i) + "'";
    });
}

constexpr std::size_t BoundLimit = 1000; // of all that the rows are about
const char* const DeeperMessage = "elements are nested deeper than 1000 levels";
const char* const AttributesMessage = "an element has more than 1000 attributes";
const char* const NamespacesMessage = "more than 1000 namespace declarations are in force";

std::string makeNested(std::size_t depth)
{
    return repeat(depth, "<a>") + repeat(depth, "</a>");
}

std::string makeNestedWithEmpty(std::size_t depth)
{
    return repeat(depth - 1, "<a>") + "<b/>" + repeat(depth - 1, "</a>");
}

std::string makeNestedAfterOthers(std::size_t depth)
{
    return "<r>" + repeat(5, "<a><b/></a>") + makeNested(depth - 1) + "</r>";
}

std::string makeRootWithAttributes(std::size_t count)
{
    return "<a" + makeAttributes(count, "k", "v") + "/>";
}

std::string makeChildWithAttributes(std::size_t count)
{
    return "<r><a" + makeAttributes(count, "k", "v") + "></a></r>";
}

std::string makeNamespacesOfLevels(std::size_t count)
{
    return "<r" + makeAttributes(count / 2, "xmlns:p", "urn:") + "><a" +
           makeAttributes(count - count / 2, "xmlns:q", "urn:") + "/></r>";
}

std::string makeDefaultNamespacesOfLevels(std::size_t count)
{
    return "<r" + makeAttributes(count - 2, "xmlns:p", "urn:") +
           "><a xmlns='u:a'/><a xmlns='u:a'><b xmlns='u:b'/></a></r>";
}

const BoundRow BoundRows[] = {
    {"Depth",             makeNested,                    XMLOutcome::DepthLimit,     DeeperMessage    },
    {"DepthOfEmpty",      makeNestedWithEmpty,           XMLOutcome::DepthLimit,     DeeperMessage    },
    {"DepthAfterOthers",  makeNestedAfterOthers,         XMLOutcome::DepthLimit,     DeeperMessage    },
    {"AttributesOfRoot",  makeRootWithAttributes,        XMLOutcome::AttributeLimit, AttributesMessage},
    {"AttributesOfChild", makeChildWithAttributes,       XMLOutcome::AttributeLimit, AttributesMessage},
    {"Namespaces",        makeNamespacesOfLevels,        XMLOutcome::NamespaceLimit, NamespacesMessage},
    {"DefaultNamespaces", makeDefaultNamespacesOfLevels, XMLOutcome::NamespaceLimit, NamespacesMessage},
};

class XMLBound : public testing::TestWithParam<BoundRow>
{
};

TEST_P(XMLBound, HoldsExactly)
{
    const BoundRow& row = GetParam();
    for (const std::size_t count : {BoundLimit - 1, BoundLimit}) {
        EXPECT_EQ(readAsTree(row.make(count)).outcome, XMLOutcome::WellFormed) << count;
        EXPECT_EQ(readAsStream(row.make(count)).outcome, XMLOutcome::WellFormed) << count;
        EXPECT_EQ(readAsStream(row.make(count), {}, XMLStep::Skip).outcome, XMLOutcome::WellFormed) << count;
        EXPECT_EQ(readAsStream(row.make(count), {}, XMLStep::Tree).outcome, XMLOutcome::WellFormed) << count;
    }
    const std::string xml = row.make(BoundLimit + 1);
    for (const XMLReadResult& result : {readAsTree(xml), readAsStream(xml),
             readAsStream(xml, {}, XMLStep::Skip), readAsStream(xml, {}, XMLStep::Tree)}) {
        EXPECT_EQ(result.outcome, row.outcome);
        EXPECT_EQ(result.limit, BoundLimit);
        EXPECT_EQ(result.value, BoundLimit + 1);
        EXPECT_EQ(result.message, row.message);
        EXPECT_EQ(result.line, 1U);
        EXPECT_GT(result.column, 1000U);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, XMLBound, testing::ValuesIn(BoundRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(XMLBounds, AreTheCallers)
{
    XMLReadOptions options;
    options.depth = 2;
    EXPECT_EQ(readAsTree("<a><b/><b/></a>", options).outcome, XMLOutcome::WellFormed);
    EXPECT_EQ(readAsTree("<a><b><c/></b></a>", options).outcome, XMLOutcome::DepthLimit);
    EXPECT_EQ(readAsStream("<a><b><c/></b></a>", options).outcome, XMLOutcome::DepthLimit);
}

TEST(XMLBounds, NamespacesOfSiblingsDoNotAddUp)
{
    const std::string xml = "<r>" + repeat(2000, "<a xmlns:p='urn:p' xmlns='urn:d'/>") + "</r>";
    EXPECT_EQ(readAsTree(xml).outcome, XMLOutcome::WellFormed);
    EXPECT_EQ(readAsStream(xml).outcome, XMLOutcome::WellFormed);
}

TEST(XMLBounds, TagOfEndlessAttributesEndsEarly)
{
    // Xerces compares each attribute with all before it; a million of them would take minutes.
    const std::string xml = "<a" + makeAttributes(1'000'000, "k", "") + "/>";
    const XMLReadResult result = readAsStream(xml);
    EXPECT_EQ(result.outcome, XMLOutcome::AttributeLimit);
    EXPECT_EQ(result.limit, 1000U);
    EXPECT_EQ(readAsTree(xml).outcome, XMLOutcome::AttributeLimit);
}

TEST(XMLBounds, InputIsBoundedWhereTheCallerSaysSo)
{
    const std::string xml = "<a>" + std::string(100'000, 'x') + "</a>";
    XMLReadOptions options;
    options.inputBytes = xml.size();
    EXPECT_EQ(readAsTree(xml, options).outcome, XMLOutcome::WellFormed);
    EXPECT_EQ(readAsStream(xml, options).outcome, XMLOutcome::WellFormed);
    options.inputBytes = xml.size() - 1;
    for (const XMLReadResult& result : {readAsTree(xml, options), readAsStream(xml, options)}) {
        EXPECT_EQ(result.outcome, XMLOutcome::InputLimit);
        EXPECT_EQ(result.limit, xml.size() - 1);
        EXPECT_EQ(result.value, xml.size());
        EXPECT_EQ(result.message, "the document is longer than 100006 bytes");
    }
}

TEST(XMLBounds, MarkupIsBounded)
{
    XMLReadOptions options;
    options.markupBytes = 200'000;
    const std::string half(100'000, 'x');
    const std::string twice(400'000, 'x');
    EXPECT_EQ(readAsStream("<r>" + repeat(20, "<a k='" + half + "'/>") + "</r>", options).outcome,
        XMLOutcome::WellFormed);
    EXPECT_EQ(readAsTree("<r>" + repeat(20, "<!--" + half + "-->") + "</r>", options).outcome,
        XMLOutcome::WellFormed);
    for (const std::string& xml : {"<r><a k='" + twice + "'/></r>", "<r><!--" + twice + "--></r>",
             "<r><?p " + twice + "?></r>", "<r><" + twice + "/></r>", "<r xmlns='" + twice + "'/>"}) {
        EXPECT_EQ(readAsTree(xml, options).outcome, XMLOutcome::MarkupLimit) << xml.substr(0, 8);
        EXPECT_EQ(readAsStream(xml, options).outcome, XMLOutcome::MarkupLimit) << xml.substr(0, 8);
    }
}

// --- bounds of the stream reader alone

TEST(XMLStreamBounds, DifferentNamesAreBounded)
{
    XMLReadOptions options;
    options.distinctNames = 100;
    const auto makeNames = [](std::size_t count) {
        return "<r>" + repeat(count - 1, [](std::size_t i) { return "<a" + std::to_string(i) + "/>"; }) +
               repeat(500, "<a0/>") + "</r>";
    };
    EXPECT_EQ(readAsStream(makeNames(100), options).outcome, XMLOutcome::WellFormed);
    const XMLReadResult result = readAsStream(makeNames(101), options);
    EXPECT_EQ(result.outcome, XMLOutcome::NameLimit);
    EXPECT_EQ(result.value, 101U);
    EXPECT_EQ(result.message, "the document has more than 100 different names");
    EXPECT_EQ(readAsTree(makeNames(101), options).outcome, XMLOutcome::WellFormed);
}

TEST(XMLStreamBounds, DifferentNamespacesAreBounded)
{
    const auto makeNamespaces = [](std::size_t count) {
        return "<r>" + repeat(count, [](std::size_t i) {
            return "<a xmlns:p='urn:" + std::to_string(i) + "'/>";
        }) + "</r>";
    };
    EXPECT_EQ(readAsStream(makeNamespaces(9'000)).outcome, XMLOutcome::WellFormed);
    EXPECT_EQ(readAsStream(makeNamespaces(10'000)).outcome, XMLOutcome::NameLimit);
    XMLReadOptions options;
    options.distinctNameCharacters = 10'000;
    const std::string uri(9'000, 'u');
    EXPECT_EQ(readAsStream("<r xmlns='" + uri + "'/>", options).outcome, XMLOutcome::WellFormed);
    EXPECT_EQ(readAsStream("<r xmlns='" + uri + uri + "'/>", options).outcome, XMLOutcome::NameLimit);
    EXPECT_EQ(readAsStream("<r><" + uri + uri + "/></r>", options).outcome, XMLOutcome::NameLimit);
}

// Gathers the text of the root.
struct TextHandler : XMLStreamHandler
{
    XMLStep onStart(const XMLStreamStart& /*element*/) override { return XMLStep::EnterText; }
    XMLFlow onEnd(const XMLStreamEnd& element) override
    {
        size = element.getText().size();
        return XMLFlow::Continue;
    }
    std::size_t size = 0;
};

TEST(XMLStreamBounds, GatheredTextIsBounded)
{
    const XMLVocabulary noWords({}, {});
    XMLReadOptions options;
    options.textCharacters = 3'000'000;
    for (const std::size_t size : {std::size_t(2'999'999), std::size_t(3'000'000), std::size_t(3'000'001)}) {
        const std::string xml = "<a>" + std::string(size - 1, 'x') + "<b>y</b></a>";
        TextHandler handler;
        std::istringstream stream(xml);
        const XMLReadResult result = XMLStreamReader(noWords, options).read(stream, handler);
        const bool isTooLong = size > options.textCharacters;
        EXPECT_EQ(result.outcome, isTooLong ? XMLOutcome::TextLimit : XMLOutcome::WellFormed) << size;
        EXPECT_EQ(handler.size, isTooLong ? 0 : size);
        EXPECT_EQ(readAsStream(xml, options).outcome, XMLOutcome::WellFormed);
    }
}

TEST(XMLStreamBounds, TreesAreBounded)
{
    XMLReadOptions options;
    options.subtreeNodes = 1000;
    const auto makeTrees = [](std::size_t nodes) {
        return "<r>" + repeat(3, "<t>" + repeat((nodes - 1) / 3, "<a k='v'>1</a>") + "</t>") + "</r>";
    };
    EXPECT_EQ(readAsStream(makeTrees(1000), options, XMLStep::Tree).outcome, XMLOutcome::WellFormed);
    const XMLReadResult result = readAsStream(makeTrees(1003), options, XMLStep::Tree);
    EXPECT_EQ(result.outcome, XMLOutcome::SubtreeLimit);
    EXPECT_EQ(result.limit, 1000U);
    EXPECT_EQ(result.message, "an element has more than 1000 nodes");
    EXPECT_EQ(readAsStream(makeTrees(1003), options).outcome, XMLOutcome::WellFormed);
}

} // namespace
} // namespace QV::FilterUtils
