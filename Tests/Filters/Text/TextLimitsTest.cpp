#include <Filters/Text/TextImport.h>

#include <cstddef>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Document.h>
#include <DOM/Public/HeaderFooterPair.h>
#include <DOM/Public/Section.h>
#include <DOM/Public/Table.h>
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
