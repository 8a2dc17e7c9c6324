#include <Filters/Text/TextImport.h>

#include <cstddef>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Document.h>
#include <DOM/Public/HeaderFooterPair.h>
#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/Section.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TrackedChange.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Text/TextSections.h>
#include <Tests/Support/OoxmlBuilder.h>
#include <Tests/Support/TextPackageBuilder.h>

namespace QV::Filters {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::string repeatText(const std::string& text, std::size_t count)
{
    std::string result;
    result.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        result += text;
    return result;
}

/// Documents that no application writes, and that must neither harm nor lose anything.
class TextLimits : public Tests::ImportedText
{
};

TEST_F(TextLimits, SectionsAreAllThereUpToTheLimit)
{
    builder.header = Tests::makeTextParagraph("head");
    importBody(repeatText("<w:p><w:pPr><w:sectPr><w:headerReference w:type='default' r:id='header1'/>"
                          "</w:sectPr></w:pPr></w:p>",
        TextSections::SectionsMax));
    const auto& sections = run->getDocument().getSections();
    ASSERT_THAT(sections, SizeIs(TextSections::SectionsMax));
    EXPECT_EQ(sections.back().getFirstBlock().get(), TextSections::SectionsMax - 1);
    // However many show it, a header is there once.
    EXPECT_EQ(sections.front().getDefaultPair()->getHeader(), sections.back().getDefaultPair()->getHeader());
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(TextLimits, BlocksBeyondTheSectionsBelongToTheLast)
{
    importBody(repeatText("<w:p><w:pPr><w:sectPr/></w:pPr></w:p>", TextSections::SectionsMax + 1) + "<w:p/>");
    EXPECT_THAT(run->getDocument().getSections(), SizeIs(TextSections::SectionsMax));
    EXPECT_THAT(listBlocks(), SizeIs(TextSections::SectionsMax + 2));
    EXPECT_THAT(listMessages(), ElementsAre("Sections beyond 10000 are left out"));
}

TEST_F(TextLimits, MessagesOfOneKindAreCountedBeyondAThousand)
{
    std::string references;
    for (std::size_t i = 0; i < 1002; ++i)
        references += "<w:footnoteReference w:id='" + std::to_string(i) + "'/>";
    importBody("<w:p><w:r>" + references + "</w:r></w:p>");
    ASSERT_THAT(listMessages(), SizeIs(1001));
    EXPECT_EQ(listMessages().front(), "Note 0 is not there");
    EXPECT_EQ(listMessages().back(), "2 more times: Note {} is not there");
}

TEST_F(TextLimits, WideCellsCostNoMoreThanOthers)
{
    const std::string row =
        "<w:tr><w:tc><w:tcPr><w:gridSpan w:val='16384'/><w:vMerge/></w:tcPr><w:p/></w:tc></w:tr>";
    importBody("<w:tbl><w:tr><w:tc><w:tcPr><w:gridSpan w:val='16384'/><w:vMerge w:val='restart'/></w:tcPr>"
               "<w:p/></w:tc></w:tr>" +
               repeatText(row, 1000) + "</w:tbl>");
    const DOM::Table& table = getTable(0);
    EXPECT_EQ(table.getLiveColsCount(), 16384U);
    EXPECT_EQ(table.getLiveRowsCount(), 1001U);
    ASSERT_THAT(table.getMergedRanges(), SizeIs(1));
    EXPECT_EQ(table.getMergedRanges()[0].getEndRow(), 1001U);
    EXPECT_LT(table.getAllocatedSize(), 10000U); // one cell, whatever it spans
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(TextLimits, TableIsToldToBeTooWideOnce)
{
    const std::string row = "<w:tr><w:tc><w:tcPr><w:gridSpan w:val='16385'/></w:tcPr><w:p/></w:tc></w:tr>";
    importBody("<w:tbl>" + repeatText(row, 3) + "</w:tbl><w:tbl>" + row + "</w:tbl>");
    EXPECT_THAT(listMessages(),
        ElementsAre("A table has more than 16384 columns", "A table has more than 16384 columns"));
}

TEST_F(TextLimits, CellsAreNarrowWhereAllTablesAreWide)
{
    const auto makeTable = [](const std::string& span) {
        return "<w:tbl><w:tr><w:tc><w:tcPr><w:gridSpan w:val='" + span + "'/></w:tcPr>" +
               Tests::makeTextParagraph("a") + "</w:tc></w:tr></w:tbl>";
    };
    // There is room for a million columns beyond the 64 that each table may have.
    constexpr std::size_t WideTables = 61;
    importBody(repeatText(makeTable("16384"), WideTables + 1) + makeTable("64") + makeTable("65"));
    EXPECT_EQ(getTable(WideTables - 1).getLiveColsCount(), 16384U);
    EXPECT_EQ(getTable(WideTables).getLiveColsCount(), 64U);
    EXPECT_NE(getTable(WideTables).getTableIterators().begin()->getText(), nullptr);
    EXPECT_EQ(getTable(WideTables + 1).getLiveColsCount(), 64U);
    EXPECT_EQ(getTable(WideTables + 2).getLiveColsCount(), 65U);
    EXPECT_THAT(listMessages(), ElementsAre("Cells of more than 64 columns are narrowed"));
}

TEST_F(TextLimits, LongLinksAreTextAlone)
{
    const auto makeLink = [](std::size_t size) {
        return "<w:p><w:hyperlink w:anchor='" + std::string(size, 'x') +
               "'><w:r><w:t>a</w:t></w:r></w:hyperlink></w:p>";
    };
    const auto makeField = [](std::size_t size) {
        return "<w:p><w:fldSimple w:instr='HYPERLINK " + std::string(size, 'x') +
               "'><w:r><w:t>a</w:t></w:r></w:fldSimple></w:p>";
    };
    importBody(makeLink(8192) + makeField(8192) + makeLink(8193) + makeField(8193));
    ASSERT_THAT(listTexts(), ElementsAre("a", "a", "a", "a"));
    const std::string message = "Hyperlink of more than 8192 bytes is left out";
    EXPECT_THAT(listMessages(), ElementsAre(message, message));
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(getParagraph(i).getRuns()[0].getStyle().getHyperlink() != nullptr, i < 2) << i;
}

TEST_F(TextLimits, NamesOfFontsAreCut)
{
    const auto makeRun = [](std::size_t size) {
        return "<w:p><w:r><w:rPr><w:rFonts w:ascii='" + std::string(size, 'f') +
               "'/></w:rPr><w:t>a</w:t></w:r></w:p>";
    };
    importBody(makeRun(1024) + makeRun(1025));
    EXPECT_THAT(listMessages(), ElementsAre("Name of a font is cut at 1024 bytes"));
    for (std::size_t i = 0; i < 2; ++i)
        EXPECT_THAT(
            getParagraph(i).getRuns()[0].getStyle().getRunProps()->getFontName().value_or(""), SizeIs(1024));
}

TEST_F(TextLimits, LongInstructionsAndAuthorsStandAtTheirRuns)
{
    const std::string text(2000, 'x');
    importBody("<w:p><w:fldSimple w:instr='" + text + "'><w:ins w:author='" + text +
               "'><w:r><w:t>a</w:t></w:r><w:r><w:rPr><w:b/></w:rPr><w:t>b</w:t></w:r>"
               "<w:r><w:t>c</w:t></w:r></w:ins></w:fldSimple></w:p>");
    const auto runs = getParagraph(0).getRuns();
    ASSERT_EQ(runs.size(), 3U);
    for (const DOM::Run& each : runs) {
        ASSERT_NE(each.getStyle().getFieldInstruction(), nullptr);
        EXPECT_EQ(*each.getStyle().getFieldInstruction(), text);
        ASSERT_NE(each.getStyle().getChange(), nullptr);
        EXPECT_EQ(each.getStyle().getChange()->getAuthor(), text);
    }
}

TEST_F(TextLimits, MessagesAreCutBetweenCharacters)
{
    const auto makePicture = [](std::size_t size) {
        return "<w:p><w:r><w:pict><v:shape><v:imagedata src='data:" + std::string(size, 'a') +
               "\xC3\xA9'/></v:shape></w:pict></w:r></w:p>";
    };
    importBody(makePicture(93) + makePicture(94));
    EXPECT_THAT(
        listMessages(), ElementsAre("Picture data:" + std::string(93, 'a') + "\xC3\xA9 cannot be decoded",
                            "Picture data:" + std::string(94, 'a') + " cannot be decoded"));
}

TEST_F(TextLimits, MainPartAsItsOwnHeaderIsNone)
{
    builder.relationships =
        Tests::makeRelationship("self", Tests::TransitionalTypes + "officeDocument", "document.xml");
    importBody(Tests::makeTextParagraph("a") +
               "<w:sectPr><w:headerReference w:type='default' r:id='self'/></w:sectPr>");
    EXPECT_EQ(run->getDocument().getSections().at(0).getDefaultPair(), nullptr);
    EXPECT_THAT(listMessages(), Contains("Header or footer self is not there"));
}

} // namespace
} // namespace QV::Filters
