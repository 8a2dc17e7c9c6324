#include <Filters/Text/FormatValues.h>

#include <ostream>
#include <string>

#include <boost/none.hpp>
#include <boost/optional.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Colors.h>
#include <Filters/Package/MessageCounts.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Text/FormatReader.h>
#include <Filters/Text/TextTheme.h>
#include <Utils/Public/OperationReport.h>

#include <Tests/Support/FormatReadingFixture.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const auto RowName = [](const auto& row) { return std::string(row.param.name); };

// On and off

const FormatRow<boost::optional<bool>> SwitchRows[] = {
    {"Absent",      "",                                 boost::none, nullptr                  },
    {"NoValue",     "<w:b/>",                           true,        nullptr                  },
    {"One",         "<w:b w:val='1'/>",                 true,        nullptr                  },
    {"True",        "<w:b w:val='true'/>",              true,        nullptr                  },
    {"On",          "<w:b w:val='on'/>",                true,        nullptr                  },
    {"Zero",        "<w:b w:val='0'/>",                 false,       nullptr                  },
    {"False",       "<w:b w:val='false'/>",             false,       nullptr                  },
    {"Off",         "<w:b w:val='off'/>",               false,       nullptr                  },
    {"Other",       "<w:b w:val='yes'/>",               boost::none, "Unknown value yes of b" },
    {"Empty",       "<w:b w:val=''/>",                  boost::none, "Unknown value  of b"    },
    {"OtherCase",   "<w:b w:val='True'/>",              boost::none, "Unknown value True of b"},
    {"ForeignName", "<w:b val='0'/>",                   true,        nullptr                  },
    {"ForComplex",  "<w:bCs/>",                         boost::none, nullptr                  },
    {"Complex",     "<w:rtl/><w:bCs/><w:b w:val='0'/>", true,        nullptr                  },
    {"ComplexOff",  "<w:rtl w:val='0'/><w:bCs/>",       boost::none, nullptr                  },
    {"ComplexText", "<w:cs/><w:b/>",                    boost::none, nullptr                  },
};

class ReadBold : public FormatRows<boost::optional<bool>>
{
};

TEST_P(ReadBold, KeepsRow)
{
    EXPECT_EQ(readRunProps(GetParam().xml).getBold(), GetParam().value);
    expectMessage();
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadBold, testing::ValuesIn(SwitchRows), RowName);

// Sizes

const FormatRow<boost::optional<float>> SizeRows[] = {
    {"HalfPoints",    "<w:sz w:val='21'/>",                           10.5F,       nullptr                        },
    {"Points",        "<w:sz w:val='12pt'/>",                         12.0F,       nullptr                        },
    {"Least",         "<w:sz w:val='1'/>",                            0.5F,        nullptr                        },
    {"Largest",       "<w:sz w:val='3168'/>",                         1584.0F,     nullptr                        },
    {"TooLarge",      "<w:sz w:val='3169'/>",                         boost::none, "Unexpected value 3169 of sz"  },
    {"TooManyInches", "<w:sz w:val='22.1in'/>",                       boost::none, "Unexpected value 22.1in of sz"},
    {"Zero",          "<w:sz w:val='0'/>",                            boost::none, "Unexpected value 0 of sz"     },
    {"Negative",      "<w:sz w:val='-2'/>",                           boost::none, "Unexpected value -2 of sz"    },
    {"Endless",       "<w:sz w:val='1e999'/>",                        boost::none, "Unexpected value 1e999 of sz" },
    {"UnknownUnit",   "<w:sz w:val='12q'/>",                          boost::none, "Unknown units in 12q"         },
    {"Pixels",        "<w:sz w:val='12px'/>",                         boost::none, "Unexpected value 12px of sz"  },
    {"Empty",         "<w:sz w:val=''/>",                             boost::none, "Unexpected value  of sz"      },
    {"Absent",        "<w:sz/>",                                      boost::none, nullptr                        },
    {"Complex",       "<w:cs/><w:sz w:val='1'/><w:szCs w:val='40'/>", 20.0F,       nullptr                        },
};

class ReadFontSize : public FormatRows<boost::optional<float>>
{
};

TEST_P(ReadFontSize, KeepsRow)
{
    EXPECT_EQ(readRunProps(GetParam().xml).getFontSize(), GetParam().value);
    expectMessage();
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadFontSize, testing::ValuesIn(SizeRows), RowName);

// Colours of text

struct ColorRowValue
{
    const char* rgb; // empty for none
};

using ColorRow = FormatRow<ColorRowValue>;
using ColorRows = FormatRows<ColorRowValue>;

const ColorRow TextColorRows[] = {
    {"Hex",          "<w:color w:val='1F497D'/>",                               {"1F497D"},      nullptr                      },
    {"Automatic",    "<w:color w:val='auto'/>",                                 {"transparent"}, nullptr                      },
    {"AutoTheme",    "<w:color w:val='auto' w:themeColor='accent1'/>",          {"4F81BD"},      nullptr                      },
    {"NoValue",      "<w:color/>",                                              {""},            nullptr                      },
    {"NoHex",        "<w:color w:val='red'/>",                                  {""},            "Incorrect color: red"       },
    {"TooLong",      "<w:color w:val='1234567890'/>",                           {""},            "Incorrect color: 1234567890"},
    {"Theme",        "<w:color w:val='FF0000' w:themeColor='accent1'/>",        {"4F81BD"},      nullptr                      },
    {"Text",         "<w:color w:themeColor='text1'/>",                         {"000000"},      nullptr                      },
    {"Background",   "<w:color w:themeColor='background2'/>",                   {"EEECE1"},      nullptr                      },
    {"Dark",         "<w:color w:themeColor='dark2'/>",                         {"1F497D"},      nullptr                      },
    {"Link",         "<w:color w:themeColor='hyperlink'/>",                     {"0000FF"},      nullptr                      },
    {"NoTheme",      "<w:color w:val='FF0000' w:themeColor='none'/>",           {"FF0000"},      nullptr                      },
    {"UnknownTheme", "<w:color w:val='FF0000' w:themeColor='accent7'/>",        {"FF0000"},
     "Unknown value accent7 of themeColor"                                                                                    },
    {"WholeTint",    "<w:color w:themeColor='text1' w:themeTint='FF'/>",        {"000000"},      nullptr                      },
    {"Tint",         "<w:color w:themeColor='text1' w:themeTint='80'/>",        {"7F7F7F"},      nullptr                      },
    {"NoTint",       "<w:color w:themeColor='text1' w:themeTint='00'/>",        {"FFFFFF"},      nullptr                      },
    {"Shade",        "<w:color w:themeColor='background1' w:themeShade='80'/>", {"808080"},      nullptr                      },
    {"NoShade",      "<w:color w:themeColor='background1' w:themeShade='0'/>",  {"000000"},      nullptr                      },
    {"LongTint",     "<w:color w:themeColor='text1' w:themeTint='100'/>",       {"000000"},
     "Unexpected value 100 of themeTint"                                                                                      },
    {"SignedShade",  "<w:color w:themeColor='text1' w:themeShade='-1'/>",       {"000000"},
     "Unexpected value -1 of themeShade"                                                                                      },
    {"TintOfHex",    "<w:color w:val='FF0000' w:themeTint='80'/>",              {"FF0000"},      nullptr                      },
};

class ReadTextColor : public ColorRows
{
};

TEST_P(ReadTextColor, KeepsRow)
{
    EXPECT_EQ(toText(readRunProps(GetParam().xml).getColor()), GetParam().value.rgb);
    expectMessage();
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadTextColor, testing::ValuesIn(TextColorRows), RowName);

// What lies behind text

const ColorRow BackgroundRows[] = {
    {"Highlight",       "<w:highlight w:val='darkYellow'/>",                                      {"808000"},      nullptr                          },
    {"NoHighlight",     "<w:highlight w:val='none'/>",                                            {""},            nullptr                          },
    {"OtherHighlight",  "<w:highlight w:val='pink'/>",                                            {""},            "Unknown value pink of highlight"},
    {"HighlightWins",   "<w:highlight w:val='red'/><w:shd w:val='clear' w:fill='00FF00'/>",       {"FF0000"},
     nullptr                                                                                                                                        },
    {"Filling",         "<w:shd w:val='clear' w:color='auto' w:fill='00FF00'/>",                  {"00FF00"},      nullptr                          },
    {"NoPattern",       "<w:shd w:fill='00FF00'/>",                                               {"00FF00"},      nullptr                          },
    {"Nothing",         "<w:shd w:val='clear' w:color='auto' w:fill='auto'/>",                    {"transparent"}, nullptr                          },
    {"Nil",             "<w:shd w:val='nil' w:fill='00FF00'/>",                                   {"transparent"}, nullptr                          },
    {"Solid",           "<w:shd w:val='solid' w:color='123456' w:fill='00FF00'/>",                {"123456"},      nullptr                          },
    {"SolidAutomatic",  "<w:shd w:val='solid' w:color='auto' w:fill='00FF00'/>",                  {"000000"},      nullptr                          },
    {"Quarter",         "<w:shd w:val='pct25' w:color='000000' w:fill='FFFFFF'/>",                {"BFBFBF"},      nullptr                          },
    {"Eighth",          "<w:shd w:val='pct12' w:color='auto' w:fill='auto'/>",                    {"DFDFDF"},      nullptr                          },
    {"Stripes",         "<w:shd w:val='thinDiagStripe' w:color='FF0000' w:fill='auto'/>",         {"FFBFBF"},      nullptr                          },
    {"UnknownPattern",  "<w:shd w:val='dots' w:color='FF0000' w:fill='00FF00'/>",                 {"00FF00"},
     "Unknown value dots of shd"                                                                                                                    },
    {"ThemeFilling",    "<w:shd w:val='clear' w:fill='00FF00' w:themeFill='accent2'/>",           {"C0504D"},      nullptr                          },
    {"FillingOfAShade", "<w:shd w:val='clear' w:themeFill='background1' w:themeFillShade='80'/>", {"808080"},
     nullptr                                                                                                                                        },
};

class ReadBackground : public ColorRows
{
};

TEST_P(ReadBackground, KeepsRow)
{
    EXPECT_EQ(toText(readRunProps(GetParam().xml).getBackgroundColor()), GetParam().value.rgb);
    expectMessage();
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadBackground, testing::ValuesIn(BackgroundRows), RowName);

TEST_F(Formats, TellAThousandMessagesWhereTheyAreCounted)
{
    MessageCounts counts;
    const FormatReader reader(_names, _colors, _theme, _report, &counts);
    const FilterUtils::XMLElement bad = parseWord("rPr", "<w:b w:val='x'/>");
    for (int i = 0; i < 1001; ++i)
        reader.readRun(bad);
    EXPECT_EQ(_report.getMessages().size(), 1000U);
}

struct WholeRow
{
    const char* name;
    const char* text;
    boost::optional<long> number;
};

void PrintTo(const WholeRow& row, std::ostream* out)
{
    *out << '"' << row.text << '"';
}

const WholeRow WholeRows[] = {
    {"Smallest",   "-5",                   -5L        },
    {"Largest",    "9",                    9L         },
    {"Plus",       "+3",                   3L         },
    {"Zeros",      "007",                  7L         },
    {"TooSmall",   "-6",                   boost::none},
    {"TooLarge",   "10",                   boost::none},
    {"BeyondLong", "9223372036854775808",  boost::none},
    {"Wrapping",   "18446744073709551617", boost::none},
    {"Fraction",   "1.0",                  boost::none},
    {"Blank",      " 1",                   boost::none},
    {"Sign",       "-",                    boost::none},
    {"Empty",      "",                     boost::none},
};

class ReadWhole : public Formats, public testing::WithParamInterface<WholeRow>
{
};

TEST_P(ReadWhole, KeepsRow)
{
    const std::string text = GetParam().text;
    EXPECT_EQ(_reader.getValues().readWhole({text, "n"}, -5, 9), GetParam().number);
    if (GetParam().number)
        EXPECT_THAT(getMessages(), IsEmpty());
    else
        EXPECT_THAT(getMessages(), ElementsAre("Unexpected value " + text + " of n"));
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadWhole, testing::ValuesIn(WholeRows), RowName);

TEST(TextTheme, MapsColors)
{
    const Colors colors;
    TextTheme theme;
    const Names names(Dialect::Transitional);
    EXPECT_EQ(toText(theme.findColor("text1", colors)), toText(colors.findThemeColor("dk1")));
    EXPECT_EQ(toText(theme.findColor("nothing", colors)), "");
    theme.readColorMapping(
        parseXml("<w:m xmlns:w='" + getNamespace(Vocabulary::WordProcessing, Dialect::Transitional) +
                 "' w:t1='light1' w:bg1='dark1' w:accent1='accent2' w:accent3='gone'/>"),
        names);
    EXPECT_EQ(toText(theme.findColor("text1", colors)), toText(colors.findThemeColor("lt1")));
    EXPECT_EQ(toText(theme.findColor("background1", colors)), toText(colors.findThemeColor("dk1")));
    EXPECT_EQ(toText(theme.findColor("accent1", colors)), toText(colors.findThemeColor("accent2")));
    EXPECT_EQ(toText(theme.findColor("accent3", colors)), toText(colors.findThemeColor("accent3")));
    EXPECT_EQ(toText(theme.findColor("dark1", colors)), toText(colors.findThemeColor("dk1")));
    theme.readColorMapping(FilterUtils::XMLElement(), names);
    EXPECT_EQ(toText(theme.findColor("text1", colors)), toText(colors.findThemeColor("lt1")));
}

TEST(TextTheme, FindsFonts)
{
    const TextTheme theme = makeTheme();
    EXPECT_EQ(theme.findFont("minorBidi"), std::string("Complex"));
    EXPECT_EQ(theme.findFont("minorEastAsia"), std::string("East"));
    EXPECT_EQ(theme.findFont("majorHAnsi"), std::string("Major"));
    EXPECT_EQ(theme.findFont("majorEastAsia"), boost::none);
    EXPECT_EQ(theme.findFont(""), boost::none);
}

} // namespace
} // namespace QV::Filters
