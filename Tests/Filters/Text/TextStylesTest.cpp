#include <Filters/Text/TextStyles.h>

#include <cstddef>
#include <memory>
#include <string>

#include <boost/variant.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/CellProps.h>
#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/PredefinedTextStyles.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/TableStyle.h>
#include <FilterUtils/FU_NumberedListsFactory.h>
#include <Filters/Text/TableConditions.h>
#include <Filters/Text/TextNumbering.h>
#include <Utils/Public/UUID.h>

#include <Tests/Support/FormatReadingFixture.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ReadTextStyles : public Formats
{
protected:
    void read(const std::string& content)
    {
        readTextStyles(parseWord("styles", content), _names, _reader, _numbering, _styles, _report);
    }

    /// Null where there is no style of that id.
    std::shared_ptr<DOM::NamedTextStyle> findText(const std::string& id)
    {
        const UUID uuid = FilterUtils::findParentUUID(_styles.textStyleIds, id);
        for (const auto& style : _styles.factory.getTextStyles())
            if (style->getUUID() == uuid)
                return style;
        return nullptr;
    }

    std::shared_ptr<DOM::NamedTableStyle> findTable(const std::string& id)
    {
        const UUID uuid = FilterUtils::findParentUUID(_styles.tableStyleIds, id);
        for (const auto& style : _styles.factory.getTableStyles())
            if (style->getUUID() == uuid)
                return style;
        return nullptr;
    }

    const TablePartFormat& getPart(const std::string& id, TablePart part)
    {
        return _styles.tableConditions.at(_styles.tableStyleIds.at(id))
            .parts.at(static_cast<std::size_t>(part));
    }

    TextNumbering _numbering;
    TextStyles _styles;
};

TEST_F(ReadTextStyles, TakesNothingFromAnInvalidView)
{
    readTextStyles(FilterUtils::XMLElement(), _names, _reader, _numbering, _styles, _report);
    EXPECT_TRUE(_styles.factory.getTextStyles().empty());
    EXPECT_EQ(_styles.factory.getDefaultRunProps(), nullptr);
    EXPECT_THAT(getMessages(), IsEmpty());
}

TEST_F(ReadTextStyles, ReadsDefaults)
{
    read("<w:docDefaults><w:rPrDefault><w:rPr><w:sz w:val='22'/></w:rPr></w:rPrDefault>"
         "<w:pPrDefault><w:pPr><w:spacing w:after='160'/></w:pPr></w:pPrDefault></w:docDefaults>"
         "<w:style w:type='paragraph' w:styleId='First' w:default='1'/>"
         "<w:style w:type='paragraph' w:styleId='Last' w:default='1'/>"
         "<w:style w:type='paragraph' w:styleId='Other' w:default='0'/>"
         "<w:style w:type='character' w:styleId='Letters' w:default='1'/>"
         "<w:style w:type='table' w:styleId='Grid' w:default='true'/>");
    ASSERT_TRUE(_styles.factory.getDefaultRunProps());
    EXPECT_EQ(_styles.factory.getDefaultRunProps()->getFontSize(), 11.0F);
    ASSERT_TRUE(_styles.factory.getDefaultParaProps());
    EXPECT_EQ(_styles.factory.getDefaultParaProps()->getSpaceAfter(), 8.0F);
    EXPECT_EQ(_styles.factory.getDefaultParagraphStyleUUID(), _styles.textStyleIds.at("Last"));
    EXPECT_EQ(_styles.factory.getDefaultTableStyleUUID(), _styles.tableStyleIds.at("Grid"));
}

TEST_F(ReadTextStyles, KeepsNamesKindsAndProps)
{
    read("<w:style w:type='paragraph' w:styleId='a'><w:name w:val='Remark'/><w:pPr><w:jc "
         "w:val='center'/></w:pPr>"
         "<w:rPr><w:i/></w:rPr></w:style>"
         "<w:style w:styleId='b'/>"
         "<w:style w:type='character' w:styleId='c'><w:name w:val='Code'/><w:rPr><w:b/></w:rPr></w:style>"
         "<w:style w:type='unknown' w:styleId='d'/>");
    const auto remark = findText("a");
    ASSERT_TRUE(remark);
    EXPECT_EQ(DOM::getStyleNameText(*remark), "Remark");
    EXPECT_TRUE(remark->getKind() == DOM::NamedTextStyle::Kind::Paragraph);
    EXPECT_TRUE(remark->getParaProps()->getAlignment() == DOM::HorizontalAlignment::Center);
    EXPECT_EQ(remark->getRunProps()->getItalic(), true);
    ASSERT_TRUE(findText("b"));
    EXPECT_EQ(DOM::getStyleNameText(*findText("b")), "b");
    EXPECT_TRUE(findText("b")->getKind() == DOM::NamedTextStyle::Kind::Paragraph);
    ASSERT_TRUE(findText("c"));
    EXPECT_TRUE(findText("c")->getKind() == DOM::NamedTextStyle::Kind::Character);
    EXPECT_EQ(findText("d"), nullptr);
    EXPECT_THAT(getMessages(), ElementsAre("Unknown value unknown of type"));
}

TEST_F(ReadTextStyles, KnowsPredefinedNames)
{
    using Predefined = DOM::PredefinedStyleName;
    read("<w:style w:type='paragraph' w:styleId='berschrift1'><w:name w:val='Heading 1'/>"
         "<w:rPr><w:sz w:val='30'/></w:rPr></w:style>"
         "<w:style w:type='paragraph' w:styleId='second'><w:name w:val='heading 1'/>"
         "<w:basedOn w:val='berschrift1'/></w:style>"
         "<w:style w:type='character' w:styleId='last'><w:name w:val='EMPHASIS'/></w:style>");
    const auto heading = findText("berschrift1");
    ASSERT_TRUE(heading);
    EXPECT_EQ(heading->getUUID(), DOM::makePredefinedTextStyleUUID(Predefined::Heading1));
    ASSERT_TRUE(boost::get<Predefined>(&heading->getName()));
    EXPECT_TRUE(boost::get<Predefined>(heading->getName()) == Predefined::Heading1);
    EXPECT_EQ(heading->getRunProps()->getFontSize(), 15.0F);
    EXPECT_EQ(
        heading->getRunProps()->getBold(), boost::none); // of this document, not of the predefined style
    EXPECT_EQ(_styles.predefinedStyles.at(Predefined::Heading1), heading);

    const auto second = findText("second");
    ASSERT_TRUE(second);
    EXPECT_EQ(boost::get<std::string>(second->getName()), "heading 1");
    EXPECT_EQ(second->getParentUUID(), heading->getUUID());
    EXPECT_EQ(_styles.textStyleIds.at("last"), DOM::makePredefinedTextStyleUUID(Predefined::Emphasis));
}

TEST_F(ReadTextStyles, FindsParentsBehindTheirChildren)
{
    read("<w:style w:type='paragraph' w:styleId='child'><w:basedOn w:val='parent'/></w:style>"
         "<w:style w:type='paragraph' w:styleId='parent'/>"
         "<w:style w:type='paragraph' w:styleId='orphan'><w:basedOn w:val='nobody'/></w:style>"
         "<w:style w:type='table' w:styleId='grid'><w:basedOn w:val='parent'/></w:style>");
    EXPECT_EQ(findText("child")->getParentUUID(), _styles.textStyleIds.at("parent"));
    EXPECT_EQ(findText("parent")->getParentUUID(), UUID());
    EXPECT_EQ(findText("orphan")->getParentUUID(), UUID());
    EXPECT_EQ(findTable("grid")->getParentUUID(), UUID());
    EXPECT_THAT(getMessages(), ElementsAre("Style orphan derives from nobody, which is not there",
                                   "Style grid derives from parent, which is not there"));
}

TEST_F(ReadTextStyles, BreaksCircles)
{
    read("<w:style w:type='paragraph' w:styleId='a'><w:basedOn w:val='b'/></w:style>"
         "<w:style w:type='paragraph' w:styleId='b'><w:basedOn w:val='a'/></w:style>"
         "<w:style w:type='table' w:styleId='t'><w:basedOn w:val='t'/>"
         "<w:tblStylePr w:type='firstRow'><w:rPr><w:b/></w:rPr></w:tblStylePr></w:style>");
    EXPECT_EQ(findText("a")->getParentUUID(), _styles.textStyleIds.at("b"));
    EXPECT_EQ(findText("b")->getParentUUID(), UUID());
    EXPECT_EQ(findTable("t")->getParentUUID(), UUID());
    EXPECT_EQ(getPart("t", TablePart::FirstRow).runProps->getBold(), true);
    EXPECT_THAT(getMessages(), ElementsAre("Style b derives from itself", "Style t derives from itself"));
}

TEST_F(ReadTextStyles, EndsChainsThatAreTooLong)
{
    std::string content = "<w:style w:type='table' w:styleId='0'/>";
    for (int i = 1; i <= 100; ++i)
        content += "<w:style w:type='table' w:styleId='" + std::to_string(i) + "'><w:basedOn w:val='" +
                   std::to_string(i - 1) + "'/></w:style>";
    read(content);
    EXPECT_EQ(findTable("99")->getParentUUID(), _styles.tableStyleIds.at("98"));
    EXPECT_EQ(findTable("100")->getParentUUID(), UUID());
    EXPECT_THAT(getMessages(), ElementsAre("Style 100 has too many ancestors"));
}

TEST_F(ReadTextStyles, KeepsTheLastOfAnId)
{
    read("<w:style w:type='paragraph' w:styleId='a'><w:name w:val='First'/></w:style>"
         "<w:style w:type='character' w:styleId='a'><w:name w:val='Last'/></w:style>"
         "<w:style w:type='table' w:styleId='a'><w:name w:val='Table'/></w:style>");
    EXPECT_EQ(_styles.factory.getTextStyles().size(), 1U);
    EXPECT_EQ(DOM::getStyleNameText(*findText("a")), "Last");
    EXPECT_EQ(findTable("a")->getName(), "Table");
    EXPECT_THAT(getMessages(), ElementsAre("Style a is defined more than once"));
}

TEST_F(ReadTextStyles, CutsNames)
{
    const std::string longest(1024, 'n');
    read("<w:style w:type='table' w:styleId='fits'><w:name w:val='" + longest +
         "'/></w:style><w:style w:type='table' w:styleId='cut'><w:name w:val='" + longest + "x'/></w:style>");
    EXPECT_EQ(findTable("fits")->getName(), longest);
    EXPECT_EQ(findTable("cut")->getName(), longest);
    EXPECT_THAT(getMessages(), ElementsAre("Name of a style is cut at 1024 bytes"));
}

TEST_F(ReadTextStyles, Reads20000Styles)
{
    std::string content;
    for (int i = 0; i < 20'001; ++i)
        content += "<w:style w:type='numbering'/>";
    read(content + "<w:style w:type='table' w:styleId='late'/>");
    EXPECT_EQ(findTable("late"), nullptr);
    EXPECT_THAT(getMessages(), ElementsAre("Styles beyond 20000 are left out"));
}

TEST_F(ReadTextStyles, NotesHiddenProps)
{
    read("<w:style w:type='character' w:styleId='a'><w:rPr><w:vanish/></w:rPr></w:style>"
         "<w:style w:type='paragraph' w:styleId='b'><w:rPr><w:vanish w:val='0'/></w:rPr></w:style>"
         "<w:style w:type='paragraph' w:styleId='c'><w:rPr><w:specVanish/></w:rPr></w:style>");
    EXPECT_THAT(_styles.hiddenProps, ElementsAre(findText("a")->getRunProps()));
}

TEST_F(ReadTextStyles, NotesNumbering)
{
    read("<w:style w:type='paragraph' w:styleId='a'><w:pPr><w:numPr><w:numId w:val='0'/></w:numPr></w:pPr>"
         "</w:style><w:style w:type='paragraph' w:styleId='b'><w:pPr><w:numPr><w:ilvl "
         "w:val='2'/></w:numPr></w:pPr>"
         "</w:style>");
    EXPECT_EQ(findText("a")->getNumRef(), nullptr);
    _numbering.applyStyleNumbering(_styles, _report);
    ASSERT_TRUE(findText("a")->getNumRef());
    EXPECT_TRUE(FilterUtils::isRemovedNumRef(*findText("a")->getNumRef()));
    ASSERT_TRUE(findText("b")->getNumRef());
    EXPECT_EQ(findText("b")->getNumRef()->getLevel(), 2UL);
    EXPECT_FALSE(findText("b")->getNumRef()->getNumListUUID());
}

TEST_F(ReadTextStyles, ReadsTablesAsAWhole)
{
    read("<w:style w:type='table' w:styleId='t'><w:name w:val='Grid'/><w:pPr><w:jc w:val='right'/></w:pPr>"
         "<w:rPr><w:i/><w:vanish/></w:rPr><w:tblPr><w:tblBorders><w:top "
         "w:val='single'/></w:tblBorders></w:tblPr>"
         "<w:tcPr><w:shd w:val='clear' w:fill='102030'/></w:tcPr></w:style>");
    const auto style = findTable("t");
    ASSERT_TRUE(style && style->getCellProps() && style->getParaProps() && style->getRunProps());
    EXPECT_EQ(style->getName(), "Grid");
    EXPECT_EQ(toText(style->getCellProps()->getBackgroundColor()), "102030");
    ASSERT_TRUE(style->getCellProps()->getBorders());
    EXPECT_EQ(toText(style->getCellProps()->getBorders()->getTop()), "1 0.5 ");
    EXPECT_TRUE(style->getParaProps()->getAlignment() == DOM::HorizontalAlignment::Right);
    EXPECT_EQ(style->getRunProps()->getItalic(), true);
    EXPECT_THAT(_styles.hiddenProps, ElementsAre(style->getRunProps()));
    EXPECT_THAT(_styles.tableConditions, IsEmpty());
}

TEST_F(ReadTextStyles, LaysConditionsOverThoseOfParents)
{
    read("<w:style w:type='table' w:styleId='child'><w:basedOn w:val='parent'/>"
         "<w:tblPr><w:tblStyleRowBandSize w:val='2'/></w:tblPr>"
         "<w:tblStylePr w:type='firstRow'><w:rPr><w:i/><w:b w:val='0'/></w:rPr>"
         "<w:tcPr><w:tcBorders><w:top w:val='double'/></w:tcBorders></w:tcPr></w:tblStylePr></w:style>"
         "<w:style w:type='table' w:styleId='parent'>"
         "<w:tblPr><w:tblStyleRowBandSize w:val='3'/><w:tblStyleColBandSize w:val='0'/></w:tblPr>"
         "<w:tblStylePr w:type='firstRow'><w:rPr><w:b/><w:sz w:val='20'/></w:rPr>"
         "<w:tcPr><w:tcBorders><w:bottom w:val='dotted'/></w:tcBorders></w:tcPr></w:tblStylePr>"
         "<w:tblStylePr w:type='band2Vert'><w:pPr><w:jc w:val='center'/></w:pPr></w:tblStylePr>"
         "<w:tblStylePr w:type='middle'/></w:style>");
    const TablePartFormat& row = getPart("child", TablePart::FirstRow);
    ASSERT_TRUE(row.runProps && row.cellProps && row.cellProps->getBorders());
    EXPECT_EQ(row.runProps->getItalic(), true);
    EXPECT_EQ(row.runProps->getBold(), false);
    EXPECT_EQ(row.runProps->getFontSize(), 10.0F);
    EXPECT_EQ(toText(row.cellProps->getBorders()->getTop()), "2 0.5 ");
    EXPECT_EQ(toText(row.cellProps->getBorders()->getBottom()), "4 0.5 ");
    EXPECT_TRUE(getPart("child", TablePart::EvenColumns).paraProps->getAlignment() ==
                DOM::HorizontalAlignment::Center);
    const TableConditions& child = _styles.tableConditions.at(_styles.tableStyleIds.at("child"));
    EXPECT_EQ(child.rowStripe, 2UL);
    EXPECT_EQ(child.columnStripe, 0UL);

    const TablePartFormat& parentRow = getPart("parent", TablePart::FirstRow);
    EXPECT_EQ(parentRow.runProps->getBold(), true);
    EXPECT_EQ(parentRow.runProps->getItalic(), boost::none);
    EXPECT_EQ(parentRow.cellProps->getBorders()->getTop(), nullptr);
    EXPECT_EQ(getPart("parent", TablePart::LastRow).cellProps, nullptr);
    EXPECT_EQ(_styles.tableConditions.at(_styles.tableStyleIds.at("parent")).rowStripe, 3UL);
    EXPECT_THAT(getMessages(), ElementsAre("Unknown value middle of tblStylePr"));
}

} // namespace
} // namespace QV::Filters
