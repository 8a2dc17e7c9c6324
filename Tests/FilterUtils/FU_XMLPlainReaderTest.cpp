// The short way for plain markup and the long way give the same, events, places and messages: each document
// is read in UTF-8, and in UTF-16, which goes the long way.

#include <FilterUtils/FU_XMLStreamReader.h>

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <Tests/Support/Printers.h>
#include <Tests/Support/XMLEventLog.h>
#include <Tests/Support/XercesEnvironment.h>

namespace QV::FilterUtils {
namespace {

using Tests::XMLReading;

std::string describe(const XMLReading& reading)
{
    std::string text;
    for (const char16_t unit :
        reading.log.substr(reading.log.size() - std::min<std::size_t>(reading.log.size(), 300)))
        text += unit < 0x80 ? static_cast<char>(unit) : '?';
    return text + "\n" + std::to_string(reading.result.line) + ":" + std::to_string(reading.result.column) +
           " " + reading.result.message;
}

// Empty where both ways agree.
std::string compareWays(const std::string& xml, const XMLReadOptions& options = XMLReadOptions())
{
    const auto utf16 = Tests::convertToUtf16(xml);
    if (!utf16)
        return "not UTF-8";
    const XMLReading plain = Tests::readWithLog(xml, options);
    const XMLReading other = Tests::readWithLog(*utf16, options);
    return plain == other ? "" : describe(plain) + "\n instead of\n" + describe(other);
}

struct Row
{
    const char* name;
    const char* xml; // inside <root xmlns:p='urn:x' xmlns:q='urn:y'>
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name << ": " << row.xml;
}

const Row Rows[] = {
    {"Nothing",                    ""                                                                  },
    {"Element",                    "<a>1</a>"                                                          },
    {"Empty",                      "<a/><a />"                                                         },
    {"Nested",                     "<a>1<b>2<c>3</c>4</b>5</a>"                                        },
    {"Prefixed",                   "<p:a>1</p:a><q:a/>"                                                },
    {"EndOfAnotherPrefix",         "<p:a>1</q:a>"                                                      },
    {"EndOfAnotherName",           "<a><b>1</c></a>"                                                   },
    {"EndOfAnEarlierName",         "<a><b>1</a></b>"                                                   },
    {"EndTooMany",                 "<a/></a>"                                                          },
    {"EndMissing",                 "<a><b>1</b>"                                                       },
    {"EndOfTheRootInside",         "<a></root>"                                                        },
    {"EndWithBlanks",              "<a>1</a \t\n>"                                                     },
    {"EndWithAttribute",           "<a>1</a k='1'>"                                                    },
    {"EndBeyondAscii",             "<a>1</\xC3\xA4>"                                                   },
    {"PrefixUndeclared",           "<a><z:a/></a>"                                                     },
    {"PrefixDeclaredHere",         "<z:a xmlns:z='urn:x'><z:b>1</z:b></z:a><z:a/>"                     },
    {"PrefixRedeclared",           "<p:a k='1'/><b xmlns:p='urn:z'><p:a k='1'/></b><p:a k='1'/>"       },
    {"DefaultRedeclared",          "<a/><b xmlns='urn:x'><a k='1'/></b><a/>"                           },
    {"DefaultTakenBack",           "<a xmlns='urn:x'><b xmlns=''><a/></b><a/></a>"                     },
    {"PrefixXml",                  "<a xml:space='preserve'> </a>"                                     },
    {"ElementXml",                 "<xml:a/>"                                                          },
    {"PrefixXmlns",                "<xmlns:a/>"                                                        },
    {"Attributes",                 "<a k='1' p:k=\"2\" l=''/>"                                         },
    {"AttributeTwice",             "<a k='1' l='2' k='3'/>"                                            },
    {"AttributeTwiceByNamespace",  "<a xmlns:r='urn:x' p:k='1' r:k='2'/>"                              },
    {"AttributesOfOneNumber",      "<a q:k='1' p:k='2'/>"                                              },
    {"AttributeUnbound",           "<a z:k='1'/>"                                                      },
    {"AttributeUnquoted",          "<a k=1/>"                                                          },
    {"AttributeBlankAroundEquals", "<a k = '1'/>"                                                      },
    {"AttributesUnparted",         "<a k='1'l='2'/>"                                                   },
    {"AttributeWithLess",          "<a k='<'/>"                                                        },
    {"AttributeWithGreater",       "<a k='>' l=\"'\">1</a>"                                            },
    {"AttributeWithQuotes",        "<a k='\"' l=\"'\"/>"                                               },
    {"AttributeWithBlanks",        "<a k=' 1\t2\n3\r\n4\r5 '/>"                                        },
    {"AttributeWithReferences",    "<a k='&lt;&gt;&amp;&quot;&apos;&#10;&#x20AC;&#x1F600;'/>"          },
    {"AttributeWithSectionEnd",    "<a k=']]>'/>"                                                      },
    {"AttributeWithControl",       "<a k='\x01'/>"                                                     },
    {"AttributeBeyondAscii",       "<a k='\xC3\xA4\xF0\x9F\x98\x80' \xC3\xA4='1'/>"                    },
    {"AttributeNoncharacter",      "<a k='\xEF\xBF\xBE'/>"                                             },
    {"AttributeEntity",            "<a k='&e;'/>"                                                      },
    {"AttributeNameless",          "<a ='1'/>"                                                         },
    {"AttributeTwoColons",         "<a p:k:l='1'/>"                                                    },
    {"AttributeColonFirst",        "<a :k='1'/>"                                                       },
    {"TagCut",                     "<a k='1"                                                           },
    {"TagCutAtName",               "<a"                                                                },
    {"TagOfDigit",                 "<1/>"                                                              },
    {"TagOfBlank",                 "< a/>"                                                             },
    {"TagSlashBlank",              "<a / >"                                                            },
    {"TagAcrossLines",             "<a\n k='1'\r\n l='2'\r>\n</a>"                                     },
    {"Text",                       "<a>1 2\t3\n4\r\n5\r6</a>"                                          },
    {"TextReferences",             "<a>&lt;&gt;&amp;&quot;&apos;&#65;&#x42;&#0000067;</a>"             },
    {"TextReferenceBad",           "<a>&#0;</a>"                                                       },
    {"TextReferenceSurrogate",     "<a>&#xD800;</a>"                                                   },
    {"TextReferenceBig",           "<a>&#x110000;</a>"                                                 },
    {"TextReferenceHuge",          "<a>&#99999999999999999999;</a>"                                    },
    {"TextReferenceEmpty",         "<a>&#;&;</a>"                                                      },
    {"TextReferenceUpperX",        "<a>&#X41;</a>"                                                     },
    {"TextReferenceOpen",          "<a>&amp</a>"                                                       },
    {"TextEntity",                 "<a>1&e;2</a>"                                                      },
    {"TextAmpersand",              "<a>1 & 2</a>"                                                      },
    {"TextSectionEnd",             "<a>1]]>2</a>"                                                      },
    {"TextSectionEndEscaped",      "<a>1]]&gt;2]]]]</a>"                                               },
    {"TextGreater",                "<a>1>2]>3</a>"                                                     },
    {"TextControl",                "<a>1\x02</a>"                                                      },
    {"TextDelete",                 "<a>1\x7F</a>"                                                      },
    {"TextBeyondAscii",            "<a>\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80</a><b></c>"                },
    {"TextNoncharacter",           "<a>\xEF\xBF\xBF</a>"                                               },
    {"TextAfterLineThenError",     "<a>1\n\n23</a>\n  <b></c>"                                         },
    {"TextOnly",                   "just text"                                                         },
    {"Comment",                    "<a>1<!-- <b> -- ></a>-->2</a>"                                     },
    {"CommentGood",                "<a>1<!-- <b> </a>-->2</a>"                                         },
    {"CommentShort",               "<a><!--></a>--></a>"                                               },
    {"CommentTiny",                "<a><!----><!--c--><!--<-->1<!--&--><!--ä--><!--\n-->2</a><b>3</b>"},
    {"CommentDashes",              "<a><!----->1</a>"                                                  },
    {"CommentOpen",                "<a><!-- "                                                          },
    {"Section",                    "<a>1<![CDATA[<b>]]]]>2<![CDATA[]]></a>"                            },
    {"SectionOpen",                "<a><![CDATA[1]] ></a>"                                             },
    {"Instruction",                "<a>1<?p <b> ?? > ?>2<?p?></a>"                                     },
    {"InstructionXml",             "<a><?xml version='1.0'?></a>"                                      },
    {"Declaration",                "<a><!ELEMENT a ANY></a>"                                           },
    {"DoctypeInside",              "<a><!DOCTYPE a></a>"                                               },
    {"Skip",                       "<s><a>1</a>&amp;<!--c--><z/></s><a/>"                              },
    {"SkipMalformed",              "<s><a>1</b></s>"                                                   },
    {"Tree",                       "<a>1<t k='1'>2<b>3&lt;</b><!--c--><t/></t>4<t/></a>"               },
    {"TreeInPrefix",               "<p:t><p:a>1</p:a></p:t><b/>"                                       },
    {"TreeMalformed",              "<a><t><b>1</c></t></a>"                                            },
    {"TreeOpen",                   "<a><t>1"                                                           },
    {"TreeUnplain",                "<a><t k = '1'>2<b xmlns:z='urn:z'><z:c/></b></t>3</a>"             },
    {"Stop",                       "<a>1\n<q/>"                                                        },
    {"NoText",                     "<n>1<a>2</a>3<!--c-->4</n>"                                        },
    {"Zero",                       "<a>1</a>\x01"                                                      },
};

class XMLPlainReaderRow : public testing::TestWithParam<Row>
{
};

TEST_P(XMLPlainReaderRow, GoesTheSameEitherWay)
{
    const std::string root = "<root xmlns:p='urn:x' xmlns:q='urn:y'>";
    EXPECT_EQ(compareWays(root + GetParam().xml + "</root>"), "");
    EXPECT_EQ(compareWays(root + "\n" + GetParam().xml + "\n</root>\n<!-- end -->\n"), "");
    EXPECT_EQ(compareWays("<!--c-->\n<a>" + std::string(GetParam().xml)), "");
}

INSTANTIATE_TEST_SUITE_P(Rows, XMLPlainReaderRow, testing::ValuesIn(Rows),
    [](const auto& row) { return std::string(row.param.name); });

// Documents out of pieces, mostly well-formed ones.
class Maker
{
public:
    explicit Maker(unsigned seed)
        : _random(seed)
    {
    }

    std::string makeDocument(std::size_t size, std::size_t longestText)
    {
        _longestText = longestText;
        std::string xml = "<root xmlns:p='urn:x'>";
        std::vector<std::string> open{"root"};
        while (xml.size() < size) {
            xml += makeText();
            if (open.size() > 1 && chooses(3)) {
                xml += "</" + open.back() + (chooses(9) ? " >" : ">");
                open.pop_back();
            } else {
                xml += makeElement(open);
            }
        }
        while (!open.empty()) {
            xml += "</" + open.back() + ">";
            open.pop_back();
        }
        return xml;
    }

    std::string damage(std::string xml)
    {
        static const std::string bytes = "<>/&;='\" \n\r]!?-a:k\x01";
        const std::size_t place = pick(xml.size());
        switch (pick(3)) {
        case 0:
            xml[place] = bytes[pick(bytes.size())];
            break;
        case 1:
            xml.insert(place, 1, bytes[pick(bytes.size())]);
            break;
        default:
            xml.erase(place, 1 + pick(4));
        }
        return xml;
    }

private:
    std::size_t pick(std::size_t count)
    {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(_random);
    }
    bool chooses(std::size_t oneIn) { return pick(oneIn) == 0; }
    std::string pickOf(const std::vector<std::string>& list) { return list[pick(list.size())]; }

    std::string makeText()
    {
        static const std::vector<std::string> texts{"", "", "", "1", "text", "&lt;", "&#x20AC;", "\xC3\xA4",
            "\n", "\r\n", "]]", "<!--c<b>-->", "<![CDATA[<a>]]>", "<?p d?>", " "};
        if (chooses(20))
            return std::string(pick(_longestText), pickOf({"y", "&", "]", "\xC3"}) == "]" ? ']' : 'y');
        return pickOf(texts);
    }
    std::string makeElement(std::vector<std::string>& open)
    {
        static const std::vector<std::string> names{
            "a", "b", "n", "p:a", "p:b", "s", "t", "abcdefghijklmnopqrstuvwxyz", "r", "\xC3\xA4"};
        const std::string name = pickOf(names);
        std::string xml = "<" + name;
        for (const char* const attribute : {" k='1'", " p:k=\"&amp;2\"", " l='a\nb'", " xmlns:r='urn:r'",
                 " xmlns='urn:x'", " m = 'x'", " xml:space='preserve'"})
            if (chooses(6))
                xml += attribute;
        if (chooses(3))
            return xml + "/>";
        open.push_back(name);
        return xml + ">";
    }

    std::mt19937 _random;
    std::size_t _longestText = 0;
};

TEST(XMLPlainReader, GoesTheSameEitherWayOverManyDocuments)
{
    for (unsigned seed = 0; seed < 4000; ++seed) {
        Maker maker(seed);
        const std::string xml = maker.makeDocument(20 + seed % 300, 30);
        ASSERT_EQ(compareWays(xml), "") << seed << "\n" << xml;
        const std::string damaged = maker.damage(xml);
        if (Tests::convertToUtf16(damaged)) {
            ASSERT_EQ(compareWays(damaged), "") << seed << "\n" << damaged;
        }
    }
}

TEST(XMLPlainReader, GoesTheSameEitherWayOverManyWindows)
{
    for (unsigned seed = 0; seed < 12; ++seed) {
        Maker maker(seed);
        const std::string xml = maker.makeDocument(300'000, 20'000 * (1 + seed % 5));
        ASSERT_EQ(compareWays(xml), "") << seed;
        const std::string damaged = maker.damage(xml);
        if (Tests::convertToUtf16(damaged)) {
            ASSERT_EQ(compareWays(damaged), "") << seed;
        }
    }
}

// Longer than what is looked at together, at each place of it.
TEST(XMLPlainReader, LongPiecesGoTheSameEitherWay)
{
    for (const std::size_t length : {65'000u, 65'530u, 65'536u, 66'000u, 200'000u}) {
        const std::string filler(length, 'y');
        std::string euros;
        while (euros.size() < length)
            euros += "\xE2\x82\xAC";
        for (const std::string& xml : {"<a>" + filler + "</a>", "<a>" + filler + "&amp;" + filler + "</a>",
                 "<a k='" + filler + "'>1</a>", "<a>" + std::string(length, ' ') + "</a>",
                 "<a" + std::string(length, ' ') + ">1</a>", "<a>1</a" + std::string(length, ' ') + ">",
                 "<a>1<!--" + filler + "-->2</a>", "<a>1<![CDATA[" + filler + "]]>2</a>",
                 "<a>1<?p " + filler + "?>2</a>", "<a>" + euros + "</a>",
                 "<a>" + std::string(length, '\n') + "</a><b></c>", "<a>" + std::string(length, ']') + "</a>",
                 "<a>" + std::string(length, ']') + "></a>", "<a>" + std::string(length, '>') + "</a>",
                 "<t>" + filler + "<b>" + filler + "</b></t><a>1</a>", "<" + filler + ">1</" + filler + ">",
                 "<a>1</" + filler + ">", "<a>" + filler,
                 "<b><a>&#" + std::string(length, '0') + "65;</a></b>", "<a>&#" + std::string(length, '0')})
            EXPECT_EQ(compareWays("<root xmlns='urn:x'>" + xml + "</root>"), "")
                << length << " " << xml.substr(0, 12);
    }
}

// The same names count, wherever they stand.
TEST(XMLPlainReader, DifferentNamesCountTheSameEitherWay)
{
    XMLReadOptions options;
    options.distinctNames = 10;
    std::string attributes, elements;
    for (const char c : {'0', '1', '2', '3', '4', '5', '6', '7', '8', '9'}) {
        attributes += std::string(" e") + c + "=''";
        elements += std::string("<e") + c + "/>";
    }
    EXPECT_EQ(compareWays("<rootroot><n" + attributes + "/>" + elements + "</rootroot>", options), "");
    EXPECT_EQ(compareWays("<rootroot>" + elements + "</rootroot>", options), "");
    EXPECT_EQ(compareWays("<rootroot><s>" + elements + "</s></rootroot>", options), "");
    EXPECT_EQ(compareWays("<rootroot><s>" + elements + "</s>" + elements + "</rootroot>", options), "");
}

// Neither the text of a namespace nor names are kept over and over.
TEST(XMLPlainReader, LongNamespacesAndNamesAreBounded)
{
    std::string names;
    for (int i = 0; i < 2000; ++i)
        names += "<p:a" + std::to_string(i) + "/>";
    const std::string xml =
        "<rootroot><n xmlns:p='" + std::string(900'000, 'u') + "'>" + names + "</n></rootroot>";
    EXPECT_EQ(Tests::readWithLog(xml).result.outcome, XMLOutcome::NameLimit);
    EXPECT_EQ(compareWays("<rootroot><n " + std::string(300, 'k') + "='1'><" + std::string(300, 'a') +
                          ">1</" + std::string(300, 'a') + "></n></rootroot>"),
        "");
}

} // namespace
} // namespace QV::FilterUtils
