#include <Filters/Text/TextNumbering.h>

#include <cstddef>
#include <memory>
#include <ostream>
#include <string>

#include <boost/none.hpp>
#include <boost/optional.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/NumberedList.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/RunProps.h>
#include <FilterUtils/FU_NumberedListsFactory.h>
#include <Filters/Text/ListLevels.h>
#include <Filters/Text/TextStyles.h>
#include <Utils/Public/UUID.h>

#include <Tests/Support/FormatReadingFixture.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using MarkerType = DOM::NumListMarkerType;

std::string makeAbstractList(const std::string& id, const std::string& content)
{
    return "<w:abstractNum w:abstractNumId='" + id + "'>" + content + "</w:abstractNum>";
}

std::string makeList(const std::string& id, const std::string& abstractId, const std::string& more = {})
{
    return "<w:num w:numId='" + id + "'><w:abstractNumId w:val='" + abstractId + "'/>" + more + "</w:num>";
}

std::string makeLevel(const std::string& number, const std::string& content)
{
    return "<w:lvl w:ilvl='" + number + "'>" + content + "</w:lvl>";
}

class Lists : public Formats
{
protected:
    void read(const std::string& content)
    {
        _numbering.read(parseWord("numbering", content), _names, _reader, _report);
    }

    const DOM::NumberedList& getList(std::size_t index) const
    {
        return *_numbering.getLists().getNumberedLists().at(index);
    }

    const DOM::NumberingLevel& getLevel(std::size_t list, std::size_t level) const
    {
        return *getList(list).getLevels().at(level);
    }

    const std::string& getLabel(std::size_t list, std::size_t level) const
    {
        return getLevel(list, level).getListMarker()->getText();
    }

    std::unique_ptr<DOM::NumberingRef> makeReference(const std::string& id)
    {
        NumberingRequest request;
        request.id = id;
        return _numbering.makeReference(request, _report);
    }

    /// The only level of the only list, from what stands in its element.
    const DOM::NumberingLevel& readLevel(const std::string& content)
    {
        read(makeAbstractList("0", makeLevel("0", content)) + makeList("1", "0"));
        return getLevel(0, 0);
    }

    TextNumbering _numbering;
};

TEST_F(Lists, HaveNineLevels)
{
    read(makeAbstractList("3", makeLevel("1", "<w:numFmt w:val='upperRoman'/><w:lvlText w:val='%1-%2)'/>")) +
         makeList("7", "3"));
    ASSERT_EQ(getList(0).getLevels().size(), 9U);
    EXPECT_EQ(getLabel(0, 0), "%1.");
    EXPECT_EQ(getLevel(0, 0).getStart(), 1);
    EXPECT_TRUE(getLevel(0, 0).getListMarker()->getType() == MarkerType::Decimal);
    EXPECT_EQ(getLabel(0, 1), "%1-%2)");
    EXPECT_TRUE(getLevel(0, 1).getListMarker()->getType() == MarkerType::UpperRoman);
    EXPECT_EQ(getLabel(0, 8), "%9.");
    EXPECT_THAT(getMessages(), IsEmpty());
}

TEST_F(Lists, ReadLevels)
{
    const DOM::NumberingLevel& level = readLevel(
        "<w:start w:val='5'/><w:numFmt w:val='lowerLetter'/><w:lvlRestart w:val='0'/><w:pStyle w:val='S'/>"
        "<w:isLgl/><w:suff w:val='space'/><w:lvlText w:val='%1)'/><w:lvlJc w:val='end'/>"
        "<w:pPr><w:ind w:left='720' w:hanging='360'/></w:pPr><w:rPr><w:b/></w:rPr>");
    EXPECT_EQ(level.getStart(), 5);
    EXPECT_EQ(level.getRestartLevel(), 0UL);
    EXPECT_TRUE(level.isLegal());
    EXPECT_TRUE(level.getSuffix() == DOM::NumberingLevel::Suffix::Space);
    EXPECT_TRUE(level.getAlignment() == DOM::HorizontalAlignment::Right);
    ASSERT_TRUE(level.getParaProps() && level.getRunProps());
    EXPECT_EQ(level.getParaProps()->getLeftIndent(), 36.0F);
    EXPECT_EQ(level.getParaProps()->getFirstLineIndent(), -18.0F);
    EXPECT_EQ(level.getRunProps()->getBold(), true);
    EXPECT_TRUE(level.getListMarker()->getType() == MarkerType::LowerLetter);
}

TEST_F(Lists, ReadLevelsThatSayNothing)
{
    const DOM::NumberingLevel& level = readLevel("");
    EXPECT_EQ(level.getStart(), 0);
    EXPECT_EQ(level.getRestartLevel(), boost::none);
    EXPECT_FALSE(level.isLegal());
    EXPECT_TRUE(level.getSuffix() == DOM::NumberingLevel::Suffix::Tab);
    EXPECT_TRUE(level.getAlignment() == DOM::HorizontalAlignment::Left);
    EXPECT_TRUE(level.getListMarker()->getType() == MarkerType::Decimal);
    EXPECT_EQ(level.getListMarker()->getText(), "");
    EXPECT_THAT(getMessages(), IsEmpty());
}

struct MarkerRow
{
    const char* name;
    const char* xml;
    MarkerType type;
    const char* text;
    const char* message; // null for none
};

void PrintTo(const MarkerRow& row, std::ostream* out)
{
    *out << row.xml;
}

const MarkerRow MarkerRows[] = {
    {"Decimal",         "<w:numFmt w:val='decimal'/><w:lvlText w:val='%1.'/>",                              MarkerType::Decimal,     "%1.",    nullptr                        },
    {"None",            "<w:numFmt w:val='none'/><w:lvlText w:val='Note'/>",                                MarkerType::None,        "Note",   nullptr                        },
    {"Padded",          "<w:numFmt w:val='decimalZero'/>",                                                  MarkerType::DecimalZero, "",       nullptr                        },
    {"Other",           "<w:numFmt w:val='bahtText'/>",                                                     MarkerType::Other,       "",       nullptr                        },
    {"Unknown",         "<w:numFmt w:val='runes'/>",                                                        MarkerType::Decimal,     "",       "Unknown value runes of numFmt"},
    {"NullText",        "<w:numFmt w:val='decimal'/><w:lvlText w:val='x' w:null='1'/>",                     MarkerType::Decimal,     "",
     nullptr                                                                                                                                                                  },
    {"CustomPadded",    "<w:numFmt w:val='custom' w:format='001, 002, 003, ...'/>",                         MarkerType::DecimalZero, "",
     nullptr                                                                                                                                                                  },
    {"CustomPlain",     "<w:numFmt w:val='custom' w:format='1, 2, 3, ...'/>",                               MarkerType::Decimal,     "",       nullptr                        },
    {"Choice",
     "<mc:AlternateContent xmlns:mc='http://schemas.openxmlformats.org/markup-compatibility/2006'>"
        "<mc:Choice Requires='w14'><w:numFmt w:val='custom' w:format='0001, ...'/></mc:Choice>"
        "<mc:Fallback><w:numFmt w:val='decimal'/></mc:Fallback></mc:AlternateContent>",                     MarkerType::DecimalZero, "",       nullptr                        },
    {"Fallback",
     "<mc:AlternateContent xmlns:mc='http://schemas.openxmlformats.org/markup-compatibility/2006'>"
        "<mc:Choice Requires='w14'><w:numFmt w:val='custom' w:format='I, ...'/></mc:Choice>"
        "<mc:Fallback><w:numFmt w:val='upperRoman'/></mc:Fallback></mc:AlternateContent>",                  MarkerType::UpperRoman,  "",       nullptr                        },
    {"Bullet",          "<w:numFmt w:val='bullet'/><w:lvlText w:val='&#x2013;'/>",                          MarkerType::Bullet,      "\u2013",
     nullptr                                                                                                                                                                  },
    {"LetterBullet",
     "<w:numFmt w:val='bullet'/><w:lvlText w:val='o'/><w:rPr><w:rFonts w:ascii='Courier New'/></w:rPr>",    MarkerType::Bullet,      "o",      nullptr                        },
    {"SymbolBullet",
     "<w:numFmt w:val='bullet'/><w:lvlText w:val='&#xF0B7;'/><w:rPr><w:rFonts w:ascii='Symbol'/></w:rPr>",  MarkerType::Bullet,      "\u2022", nullptr                        },
    {"WingdingsBullet",
     "<w:numFmt w:val='bullet'/><w:lvlText w:val='&#xA7;'/><w:rPr><w:rFonts w:ascii='Wingdings'/></w:rPr>", MarkerType::Bullet,      "\u25AA", nullptr                        },
    {"UnknownBullet",
     "<w:numFmt w:val='bullet'/><w:lvlText w:val='&#xF07D;'/><w:rPr><w:rFonts "
        "w:ascii='Dingbats'/></w:rPr>",                                                                     MarkerType::Bullet,      "\u2022", nullptr                        },
    {"SymbolNumber",
     "<w:numFmt w:val='decimal'/><w:lvlText w:val='%1a'/><w:rPr><w:rFonts w:ascii='Symbol'/></w:rPr>",      MarkerType::Decimal,     "%1a",    nullptr                        },
    {"Picture",         "<w:numFmt w:val='bullet'/><w:lvlText w:val=''/><w:lvlPicBulletId w:val='0'/>",
     MarkerType::PictureBullet,                                                                                                      "\u2022", nullptr                        },
};

class ReadMarker : public Lists, public testing::WithParamInterface<MarkerRow>
{
};

TEST_P(ReadMarker, KeepsRow)
{
    const DOM::NumberingLevel& level = readLevel(GetParam().xml);
    EXPECT_TRUE(level.getListMarker()->getType() == GetParam().type);
    EXPECT_EQ(level.getListMarker()->getText(), GetParam().text);
    if (GetParam().message)
        EXPECT_THAT(getMessages(), ElementsAre(GetParam().message));
    else
        EXPECT_THAT(getMessages(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadMarker, testing::ValuesIn(MarkerRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(Lists, TakeTheSymbolFontAway)
{
    const DOM::NumberingLevel& level = readLevel("<w:numFmt w:val='bullet'/><w:lvlText w:val='&#xF0B7;'/>"
                                                 "<w:rPr><w:rFonts w:ascii='Symbol'/><w:b/></w:rPr>");
    ASSERT_TRUE(level.getRunProps());
    EXPECT_EQ(level.getRunProps()->getFontName(), boost::none);
    EXPECT_EQ(level.getRunProps()->getBold(), true);
}

TEST_F(Lists, CutLabels)
{
    const std::string longest(4096, 'x');
    read(makeAbstractList("0", makeLevel("0", "<w:lvlText w:val='" + longest + "'/>") +
                                   makeLevel("1", "<w:lvlText w:val='" + longest + "y'/>")) +
         makeList("1", "0"));
    EXPECT_EQ(getLabel(0, 0), longest);
    EXPECT_EQ(getLabel(0, 1), longest);
    EXPECT_THAT(getMessages(), ElementsAre("Label of a list is cut at 4096 bytes"));
}

TEST_F(Lists, ShareTheTagOfTheirAbstractList)
{
    read(makeAbstractList("0", "") + makeAbstractList("1", "") + makeList("1", "0") + makeList("2", "0") +
         makeList("3", "1"));
    const auto first = makeReference("1");
    const auto second = makeReference("2");
    const auto third = makeReference("3");
    EXPECT_TRUE(first->getNumListUUID() == getList(0).getUUID());
    EXPECT_TRUE(second->getNumListUUID() == getList(1).getUUID());
    EXPECT_TRUE(first->getNumListUUID() != second->getNumListUUID());
    EXPECT_TRUE(first->getListTagUUID() == second->getListTagUUID());
    EXPECT_TRUE(first->getListTagUUID() != third->getListTagUUID());
    EXPECT_EQ(first->getLevel(), boost::none);
}

TEST_F(Lists, OverrideLevels)
{
    const std::string changes =
        "<w:lvlOverride w:ilvl='2'><w:startOverride w:val='4'/></w:lvlOverride>"
        "<w:lvlOverride w:ilvl='0'><w:startOverride w:val='1'/><w:lvl w:ilvl='0'><w:start w:val='9'/>"
        "<w:lvlText w:val='new'/></w:lvl></w:lvlOverride>"
        "<w:lvlOverride w:ilvl='1'><w:lvl w:ilvl='1'><w:start w:val='7'/></w:lvl></w:lvlOverride>"
        "<w:lvlOverride w:ilvl='9'><w:startOverride w:val='4'/></w:lvlOverride>";
    read(makeAbstractList("0", makeLevel("0", "<w:start w:val='1'/><w:lvlText w:val='old'/>")) +
         makeList("1", "0", changes) + makeList("2", "0"));
    EXPECT_THAT(getList(0).getRestartedLevels(), ElementsAre(0, 2));
    EXPECT_EQ(getLevel(0, 0).getStart(), 1);
    EXPECT_EQ(getLabel(0, 0), "new");
    EXPECT_EQ(getLevel(0, 1).getStart(), 7);
    EXPECT_EQ(getLevel(0, 2).getStart(), 4);
    EXPECT_THAT(getList(1).getRestartedLevels(), IsEmpty());
    EXPECT_EQ(getLabel(1, 0), "old");
    EXPECT_EQ(getLevel(1, 2).getStart(), 1);
    EXPECT_THAT(getMessages(), ElementsAre("Unexpected value 9 of ilvl"));
}

TEST_F(Lists, TakeLevelsFromListStyles)
{
    const std::string levels = makeLevel("0", "<w:lvlText w:val='styled'/>");
    // By the list that the style names, and by the abstract list that names the style.
    _numbering.noteListStyle("Named", "3");
    read(makeAbstractList("0", "<w:numStyleLink w:val='Named'/>") +
         makeAbstractList("1", "<w:numStyleLink w:val='Naming'/>") +
         makeAbstractList("2", "<w:styleLink w:val='Naming'/>" + levels) +
         makeAbstractList("4", "<w:numStyleLink w:val='Nobody'/>") + makeList("1", "0") + makeList("2", "1") +
         makeList("3", "2") + makeList("4", "4"));
    EXPECT_EQ(getLabel(0, 0), "styled");
    EXPECT_EQ(getLabel(1, 0), "styled");
    EXPECT_EQ(getLabel(2, 0), "styled");
    EXPECT_EQ(getLabel(3, 0), "%1.");
    EXPECT_TRUE(makeReference("1")->getListTagUUID() == makeReference("3")->getListTagUUID());
}

TEST_F(Lists, EndCirclesOfListStyles)
{
    read(makeAbstractList("0", "<w:styleLink w:val='a'/><w:numStyleLink w:val='b'/>") +
         makeAbstractList("1", "<w:styleLink w:val='b'/><w:numStyleLink w:val='a'/>") + makeList("1", "0"));
    EXPECT_EQ(getLabel(0, 0), "%1.");
}

TEST_F(Lists, ReportWhatIsWrong)
{
    read(makeAbstractList("0", "") + makeAbstractList("0", "") + makeList("1", "0") + makeList("01", "0") +
         makeList("2", "5") + makeList("-1", "0") + makeAbstractList("x", "") +
         makeAbstractList("6", "<w:lvl/>") + makeList("6", "6"));
    EXPECT_THAT(getList(1).getLevels(), IsEmpty());
    EXPECT_TRUE(makeReference("2")->getNumListUUID());
    EXPECT_THAT(
        getMessages(), ElementsAre("List 0 is defined more than once", "Unexpected value x of abstractNumId",
                           "List 1 is defined more than once", "Unexpected value -1 of numId",
                           "List 2 has no definition", "Unexpected value  of ilvl"));
}

TEST_F(Lists, StopAt20000)
{
    std::string content = makeAbstractList("0", "");
    for (int i = 1; i <= 20'000; ++i)
        content += makeList(std::to_string(i), "1");
    read(content + makeList("20001", "0"));
    EXPECT_EQ(_numbering.getLists().getNumberedLists().size(), 20'000U);
    EXPECT_EQ(_report.getMessages().front().toString(), "Lists beyond 20000 are left out");
}

TEST_F(Lists, AreReferredTo)
{
    read(makeAbstractList("0", "") + makeList("1", "0"));
    EXPECT_TRUE(FilterUtils::isRemovedNumRef(*makeReference("0")));
    NumberingRequest level;
    level.level = 3;
    const auto reference = _numbering.makeReference(level, _report);
    EXPECT_EQ(reference->getLevel(), 3UL);
    EXPECT_FALSE(reference->getNumListUUID());
    EXPECT_THAT(getMessages(), IsEmpty());

    level.id = "8";
    EXPECT_FALSE(_numbering.makeReference(level, _report)->getNumListUUID());
    EXPECT_EQ(_numbering.makeReference(level, _report)->getLevel(), 3UL);
    EXPECT_THAT(getMessages(), ElementsAre("List 8 is not defined"));
}

TEST_F(Lists, TellAThousandUnknownOnes)
{
    for (int i = 1; i <= 1'002; ++i)
        makeReference(std::to_string(i));
    EXPECT_EQ(_report.getMessages().size(), 1'001U);
    EXPECT_EQ(_report.getMessages().at(999).toString(), "List 1000 is not defined");
    EXPECT_EQ(_report.getMessages().back().toString(), "More than 1000 lists are not defined");
}

TEST_F(Lists, GiveStylesTheirLevels)
{
    TextStyles styles;
    const auto linked = styles.factory.makeNamedTextStyle(boost::none);
    const auto plain = styles.factory.makeNamedTextStyle(boost::none);
    styles.textStyleIds.emplace("Linked", linked->getUUID());
    styles.textStyleIds.emplace("Plain", plain->getUUID());
    NumberingRequest request;
    request.id = "1";
    request.level = 1;
    _numbering.noteStyle(linked, request);
    _numbering.noteStyle(plain, request);
    read(makeAbstractList("0", makeLevel("3", "<w:pStyle w:val='Linked'/>")) + makeList("1", "0"));
    _numbering.applyStyleNumbering(styles, _report);
    ASSERT_TRUE(linked->getNumRef() && plain->getNumRef());
    EXPECT_EQ(linked->getNumRef()->getLevel(), 3UL);
    EXPECT_TRUE(linked->getNumRef()->getNumListUUID() == getList(0).getUUID());
    EXPECT_EQ(plain->getNumRef()->getLevel(), 1UL);
}

} // namespace
} // namespace QV::Filters
