#include <Filters/Text/FormatReader.h>

#include <string>

#include <boost/none.hpp>
#include <boost/optional.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/BordersProps.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/TrackedChange.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Namespaces.h>

#include <Tests/Support/FormatReadingFixture.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const auto RowName = [](const auto& row) { return std::string(row.param.name); };

// Fonts

struct FontRowValue
{
    const char* font; // empty for none
};

const FormatRow<FontRowValue> FontRows[] = {
    {"Ascii",            "<w:rFonts w:ascii='A' w:hAnsi='H' w:cs='C' w:eastAsia='E'/>",   {"A"},       nullptr},
    {"HighAnsi",         "<w:rFonts w:hAnsi='H' w:cs='C' w:eastAsia='E'/>",               {"H"},       nullptr},
    {"OtherScripts",     "<w:rFonts w:cs='C' w:eastAsia='E'/>",                           {""},        nullptr},
    {"EastAsianHint",    "<w:rFonts w:hint='eastAsia' w:eastAsia='E'/>",                  {"E"},       nullptr},
    {"Theme",            "<w:rFonts w:ascii='A' w:asciiTheme='minorHAnsi'/>",             {"Minor"},   nullptr},
    {"MajorTheme",       "<w:rFonts w:hAnsiTheme='majorAscii'/>",                         {"Major"},   nullptr},
    {"ThemeWithoutFont", "<w:rFonts w:ascii='A' w:asciiTheme='majorEastAsia'/>",          {"A"},       nullptr},
    {"UnknownTheme",     "<w:rFonts w:ascii='A' w:asciiTheme='other'/>",                  {"A"},       nullptr},
    {"Complex",          "<w:rtl/><w:rFonts w:ascii='A' w:cs='C'/>",                      {"C"},       nullptr},
    {"ComplexTheme",     "<w:cs/><w:rFonts w:ascii='A' w:cs='C' w:cstheme='minorBidi'/>", {"Complex"}, nullptr},
    {"ComplexWithout",   "<w:rtl/><w:rFonts w:ascii='A'/>",                               {"A"},       nullptr},
    {"Empty",            "<w:rFonts w:ascii=''/>",                                        {""},        nullptr},
};

class ReadFontName : public FormatRows<FontRowValue>
{
};

TEST_P(ReadFontName, KeepsRow)
{
    EXPECT_EQ(readRunProps(GetParam().xml).getFontName().value_or(""), GetParam().value.font);
    expectMessage();
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadFontName, testing::ValuesIn(FontRows), RowName);

// Alignments

using Alignment = DOM::HorizontalAlignment;

const FormatRow<boost::optional<Alignment>> AlignmentRows[] = {
    {"Left",       "<w:jc w:val='left'/>",                    Alignment::Left,        nullptr                     },
    {"Start",      "<w:jc w:val='start'/>",                   Alignment::Left,        nullptr                     },
    {"Center",     "<w:jc w:val='center'/>",                  Alignment::Center,      nullptr                     },
    {"Right",      "<w:jc w:val='right'/>",                   Alignment::Right,       nullptr                     },
    {"End",        "<w:jc w:val='end'/>",                     Alignment::Right,       nullptr                     },
    {"Both",       "<w:jc w:val='both'/>",                    Alignment::Justify,     nullptr                     },
    {"Distribute", "<w:jc w:val='distribute'/>",              Alignment::Distributed, nullptr                     },
    {"BidiLeft",   "<w:bidi/><w:jc w:val='left'/>",           Alignment::Right,       nullptr                     },
    {"BidiEnd",    "<w:bidi/><w:jc w:val='end'/>",            Alignment::Left,        nullptr                     },
    {"BidiCenter", "<w:bidi/><w:jc w:val='center'/>",         Alignment::Center,      nullptr                     },
    {"NoBidi",     "<w:bidi w:val='0'/><w:jc w:val='left'/>", Alignment::Left,        nullptr                     },
    {"Unknown",    "<w:jc w:val='middle'/>",                  boost::none,            "Unknown value middle of jc"},
};

class ReadAlignment : public FormatRows<boost::optional<Alignment>>
{
};

TEST_P(ReadAlignment, KeepsRow)
{
    EXPECT_TRUE(readParaProps(GetParam().xml).getAlignment() == GetParam().value);
    expectMessage();
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadAlignment, testing::ValuesIn(AlignmentRows), RowName);

// Indents: left, right, first line

struct IndentsRowValue
{
    boost::optional<float> left;
    boost::optional<float> right;
    boost::optional<float> firstLine;
};

const boost::optional<float> Unset;

const FormatRow<IndentsRowValue> IndentRows[] = {
    {"Transitional", "<w:ind w:left='720' w:right='-10' w:firstLine='200'/>", {36.0F, -0.5F, 10.0F},    nullptr                          },
    {"Strict",       "<w:ind w:start='1in' w:end='-5pt'/>",                   {72.0F, -5.0F, Unset},    nullptr                          },
    {"Hanging",      "<w:ind w:hanging='360' w:firstLine='200'/>",            {Unset, Unset, -18.0F},   nullptr                          },
    {"NoHanging",    "<w:ind w:hanging='0'/>",                                {Unset, Unset, 0.0F},     nullptr                          },
    {"Fraction",     "<w:ind w:left='708.5'/>",                               {35.425F, Unset, Unset},  nullptr                          },
    {"RightToLeft",  "<w:bidi/><w:ind w:left='720' w:right='20'/>",           {1.0F, 36.0F, Unset},     nullptr                          },
    {"Characters",   "<w:ind w:leftChars='100' w:firstLineChars='200'/>",     {Unset, Unset, Unset},    nullptr                          },
    {"Farthest",     "<w:ind w:left='-31680'/>",                              {-1584.0F, Unset, Unset}, nullptr                          },
    {"TooFar",       "<w:ind w:left='-31681'/>",                              {Unset, Unset, Unset},    "Unexpected value -31681 of left"},
    {"Overflow",     "<w:ind w:left='18446744073709551617'/>",                {Unset, Unset, Unset},
     "Unexpected value 18446744073709551617 of left"                                                                                     },
    {"NoNumber",     "<w:ind w:right='wide'/>",                               {Unset, Unset, Unset},    "Can't parse length value wide"  },
};

class ReadIndents : public FormatRows<IndentsRowValue>
{
};

TEST_P(ReadIndents, KeepsRow)
{
    const DOM::ParaProps props = readParaProps(GetParam().xml);
    EXPECT_EQ(props.getLeftIndent(), GetParam().value.left);
    EXPECT_EQ(props.getRightIndent(), GetParam().value.right);
    EXPECT_EQ(props.getFirstLineIndent(), GetParam().value.firstLine);
    expectMessage();
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadIndents, testing::ValuesIn(IndentRows), RowName);

// Spacing

using Spacing = DOM::LineSpacing;

const FormatRow<boost::optional<Spacing>> LineSpacingRows[] = {
    {"Multiple",                                       "<w:spacing w:line='360'/>",                       Spacing(Spacing::Kind::Multiple,                         1.5F),                                                                                     nullptr},
    {"Automatic",                                                "<w:spacing w:line='240' w:lineRule='auto'/>",                                                                                       Spacing(Spacing::Kind::Multiple,                                                  1),
     nullptr},
    {"AtLeast",                                          "<w:spacing w:line='240' w:lineRule='atLeast'/>",                                                                                           Spacing(Spacing::Kind::AtLeast,                                                                                                                                          12),
     nullptr},
    {"AtLeastNone",                                             "<w:spacing w:line='0' w:lineRule='atLeast'/>",                                                                                             Spacing(Spacing::Kind::AtLeast,                                                                                                                                                    0),
     nullptr},
    {"Exact",                  "<w:spacing w:line='10pt' w:lineRule='exact'/>",Spacing(Spacing::Kind::Exact,                                                                                                                                                      10),                                                                                                                                                                                                                                               nullptr},
    {"ExactlyNone","<w:spacing w:line='0' w:lineRule='exact'/>",                                 boost::none,"Unexpected value 0 of line"},
    {"Negative",                                    "<w:spacing w:line='-240'/>",                                                          boost::none,                                                                      "Unexpected value -240 of line"                                                                                                                                                                                                   },
    {"UnknownRule",                                       "<w:spacing w:line='240' w:lineRule='about'/>",                         Spacing(Spacing::Kind::Multiple,            1),
     "Unknown value about of lineRule"},
    {"RuleAlone",                                    "<w:spacing w:lineRule='exact'/>", boost::none, nullptr                                                                            },
};

class ReadLineSpacing : public FormatRows<boost::optional<Spacing>>
{
};

TEST_P(ReadLineSpacing, KeepsRow)
{
    EXPECT_TRUE(readParaProps(GetParam().xml).getLineSpacing() == GetParam().value);
    expectMessage();
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadLineSpacing, testing::ValuesIn(LineSpacingRows), RowName);

class ReadPara : public Formats
{
};

TEST_F(ReadPara, ReadsSpaceAround)
{
    const DOM::ParaProps props = readParaProps("<w:spacing w:before='100' w:after='0'/>");
    EXPECT_EQ(props.getSpaceBefore(), 5.0F);
    EXPECT_EQ(props.getSpaceAfter(), 0.0F);
    const DOM::ParaProps automatic = readParaProps(
        "<w:spacing w:before='100' w:beforeAutospacing='1' w:after='40' w:afterAutospacing='0'/>");
    EXPECT_EQ(automatic.getSpaceBefore(), 14.0F);
    EXPECT_EQ(automatic.getSpaceAfter(), 2.0F);
    EXPECT_EQ(readParaProps("<w:spacing w:before='-1'/>").getSpaceBefore(), boost::none);
    EXPECT_THAT(getMessages(), ElementsAre("Unexpected value -1 of before"));
}

TEST_F(ReadPara, ReadsSwitchesAndLevel)
{
    const DOM::ParaProps props =
        readParaProps("<w:contextualSpacing/><w:pageBreakBefore w:val='0'/><w:bidi/><w:outlineLvl w:val='9'/>"
                      "<w:shd w:val='clear' w:fill='112233'/>");
    EXPECT_EQ(props.getContextualSpacing(), true);
    EXPECT_EQ(props.getPageBreakBefore(), false);
    EXPECT_EQ(props.getRightToLeft(), true);
    EXPECT_EQ(props.getOutlineLevel(), 9UL);
    EXPECT_EQ(toText(props.getBackgroundColor()), "112233");
    EXPECT_EQ(readParaProps("<w:outlineLvl w:val='10'/>").getOutlineLevel(), boost::none);
    EXPECT_THAT(getMessages(), ElementsAre("Unexpected value 10 of outlineLvl"));
}

TEST_F(ReadPara, ReadsBorders)
{
    const auto borders = readParaProps("<w:pBdr><w:top w:val='single' w:sz='12' w:color='FF0000'/>"
                                       "<w:left w:val='nil'/><w:bottom w:val='double' w:sz='1'/>"
                                       "<w:right w:val='apples' w:sz='97'/><w:between w:val='dashSmallGap'/>"
                                       "</w:pBdr>")
                             .getBorders();
    ASSERT_TRUE(borders);
    EXPECT_EQ(toText(borders->getTop()), "1 1.5 FF0000");
    EXPECT_EQ(toText(borders->getLeft()), "0 0 ");
    EXPECT_EQ(toText(borders->getBottom()), "2 0.25 ");
    EXPECT_EQ(toText(borders->getRight()), "1 12 ");
    EXPECT_EQ(toText(borders->getHorizontal()), "5 0.5 ");
    EXPECT_EQ(borders->getVertical(), nullptr);
    EXPECT_EQ(readParaProps("<w:pBdr><w:top/></w:pBdr>").getBorders(), nullptr);
    EXPECT_THAT(getMessages(), IsEmpty());
    readParaProps("<w:pBdr><w:top w:val='single' w:sz='-1'/></w:pBdr>");
    EXPECT_THAT(getMessages(), ElementsAre("Unexpected value -1 of sz"));
}

TEST_F(ReadPara, SortsTabStops)
{
    using Kind = DOM::TabStop::Kind;
    const ParaFormat format = readPara(
        "<w:tabs><w:tab w:val='right' w:pos='9360'/><w:tab w:val='clear' w:pos='720' w:leader='dot'/>"
        "<w:tab w:val='num' w:pos='-20'/><w:tab w:val='slanted' w:pos='5'/></w:tabs>");
    ASSERT_TRUE(format.props && format.props->getTabStops());
    EXPECT_THAT(
        *format.props->getTabStops(), ElementsAre(DOM::TabStop(Kind::Left, -1), DOM::TabStop(Kind::Clear, 36),
                                          DOM::TabStop(Kind::Right, 468)));
    EXPECT_FALSE(format.hasTabLeaders);
    EXPECT_THAT(getMessages(), ElementsAre("Unknown value slanted of tab"));
    EXPECT_TRUE(readPara("<w:tabs><w:tab w:val='left' w:pos='5' w:leader='dot'/></w:tabs>").hasTabLeaders);
}

TEST_F(ReadPara, Keeps64TabStops)
{
    std::string tabs;
    for (int i = 0; i < 64; ++i)
        tabs += "<w:tab w:val='left' w:pos='" + std::to_string(i) + "'/>";
    EXPECT_EQ(readParaProps("<w:tabs>" + tabs + "</w:tabs>").getTabStops()->size(), 64U);
    EXPECT_THAT(getMessages(), IsEmpty());
    tabs += "<w:tab w:val='left' w:pos='64'/><w:tab w:val='left' w:pos='65'/>";
    EXPECT_EQ(readParaProps("<w:tabs>" + tabs + "</w:tabs>").getTabStops()->size(), 64U);
    EXPECT_THAT(getMessages(), ElementsAre("Tab stops beyond 64 are left out"));
}

TEST_F(ReadPara, ReadsNumbering)
{
    const auto request = readPara("<w:numPr><w:ilvl w:val='8'/><w:numId w:val='12'/></w:numPr>").numbering;
    ASSERT_TRUE(request);
    EXPECT_EQ(request->id, std::string("12"));
    EXPECT_EQ(request->level, 8UL);
    EXPECT_FALSE(readPara("<w:numPr/>").numbering);
    EXPECT_FALSE(readPara("<w:numPr><w:ilvl w:val='9'/></w:numPr>").numbering);
    EXPECT_FALSE(readPara("<w:numPr><w:numId w:val='-1'/></w:numPr>").numbering);
    EXPECT_THAT(getMessages(), ElementsAre("Unexpected value 9 of ilvl", "Unexpected value -1 of numId"));
    EXPECT_EQ(readPara("<w:numPr><w:numId w:val='0'/></w:numPr>").numbering->id, std::string("0"));
}

TEST_F(ReadPara, ReadsTheMarkAndWhatWasBefore)
{
    const ParaFormat format =
        readPara("<w:pStyle w:val='New'/><w:rPr><w:del w:author='Ann' w:date='2024-05-01T10:00:00Z'/>"
                 "<w:ins w:author='Bob'/><w:i/></w:rPr>"
                 "<w:pPrChange><w:pPr><w:pStyle w:val='Old'/><w:jc w:val='center'/></w:pPr></w:pPrChange>");
    EXPECT_EQ(format.styleId, "New");
    EXPECT_EQ(format.props, nullptr);
    ASSERT_TRUE(format.mark.change);
    EXPECT_EQ(*format.mark.change,
        DOM::TrackedChange(DOM::TrackedChange::Kind::Deleted, "Ann", "2024-05-01T10:00:00Z"));
    ASSERT_TRUE(format.mark.props);
    EXPECT_EQ(format.mark.props->getItalic(), true);
    ASSERT_TRUE(format.before);
    EXPECT_EQ(format.before->styleId, "Old");
    ASSERT_TRUE(format.before->props);
    EXPECT_TRUE(format.before->props->getAlignment() == Alignment::Center);
    EXPECT_EQ(format.before->before, nullptr);
}

TEST_F(ReadPara, HasNothingWhereNothingIsSaid)
{
    for (const ParaFormat& format : {readPara(""), _reader.readPara(FilterUtils::XMLElement())}) {
        EXPECT_EQ(format.styleId, "");
        EXPECT_EQ(format.props, nullptr);
        EXPECT_FALSE(format.numbering);
        EXPECT_EQ(format.mark.props, nullptr);
        EXPECT_EQ(format.before, nullptr);
    }
}

class ReadRun : public Formats
{
};

TEST_F(ReadRun, ReadsWhatIsLeft)
{
    const RunFormat format = readRun("<w:rStyle w:val='Strong'/><w:i w:val='0'/><w:dstrike/><w:smallCaps/>"
                                     "<w:vanish/><w:u w:val='dashLong'/><w:vertAlign w:val='subscript'/>");
    EXPECT_EQ(format.styleId, "Strong");
    ASSERT_TRUE(format.props);
    EXPECT_EQ(format.props->getItalic(), false);
    EXPECT_EQ(format.props->getStrikethrough(), true);
    EXPECT_EQ(format.props->getHidden(), true);
    EXPECT_TRUE(format.props->getLetterCase() == DOM::LetterCase::SmallCapitals);
    EXPECT_TRUE(format.props->getUnderline() == DOM::Underline::Dashed);
    EXPECT_TRUE(format.props->getVerticalPosition() == DOM::VerticalPosition::Subscript);
    EXPECT_EQ(format.change, nullptr);
    EXPECT_EQ(format.before, nullptr);
}

TEST_F(ReadRun, ReadsWhatIsSwitchedOff)
{
    const DOM::RunProps props =
        readRunProps("<w:strike w:val='0'/><w:caps w:val='0'/><w:u w:val='none'/><w:specVanish/>");
    EXPECT_EQ(props.getStrikethrough(), false);
    EXPECT_TRUE(props.getLetterCase() == DOM::LetterCase::AsWritten);
    EXPECT_TRUE(props.getUnderline() == DOM::Underline::None);
    EXPECT_EQ(props.getHidden(), boost::none);
    EXPECT_TRUE(readRunProps("<w:caps/><w:smallCaps/>").getLetterCase() == DOM::LetterCase::Capitals);
}

TEST_F(ReadRun, KeepsWhatWasBefore)
{
    const RunFormat format = readRun(
        "<w:b/><w:rPrChange w:author='Ann'><w:rPr><w:rStyle w:val='Old'/><w:i/></w:rPr></w:rPrChange>");
    ASSERT_TRUE(format.before);
    EXPECT_EQ(format.before->styleId, "Old");
    ASSERT_TRUE(format.before->props);
    EXPECT_EQ(format.before->props->getItalic(), true);
    EXPECT_EQ(format.before->props->getBold(), boost::none);

    const RunFormat fromNothing = readRun("<w:b/><w:rPrChange/>");
    ASSERT_TRUE(fromNothing.before);
    EXPECT_EQ(fromNothing.before->props, nullptr);
}

TEST_F(ReadRun, HasNothingWhereNothingIsSaid)
{
    EXPECT_EQ(readRun("<w:lang w:val='en'/>").props, nullptr);
    EXPECT_EQ(_reader.readRun(FilterUtils::XMLElement()).props, nullptr);
}

class StrictFormats : public Formats
{
protected:
    StrictFormats()
        : Formats(Dialect::Strict)
    {
    }
};

TEST_F(StrictFormats, AreReadByTheirOwnNames)
{
    EXPECT_EQ(readRunProps("<w:b/>").getBold(), true);
    EXPECT_EQ(readParaProps("<w:ind w:start='10pt'/>").getLeftIndent(), 10.0F);
    EXPECT_EQ(_reader.readRun(parseWord("rPr", "<w:b/>")).props, nullptr);
}

} // namespace
} // namespace QV::Filters
