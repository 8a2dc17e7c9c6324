#include <Filters/Spreadsheet/SheetLinks.h>

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/Paragraph.h>
#include <FilterUtils/FU_CellQueries.h>
#include <Tests/Support/ImportedWorkbook.h>
#include <Tests/Support/Printers.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SheetLinks : public Tests::ImportedWorkbook
{
protected:
    void importLinks(const std::string& rows, const std::string& links)
    {
        builder.sheet =
            "<sheetData>" + rows + "</sheetData>" + rest + "<hyperlinks>" + links + "</hyperlinks>";
        for (const char* const id : {"a", "b"})
            builder.sheetRelationships += "<Relationship Id='" + std::string(id) + "' Type='" +
                                          Tests::TransitionalTypes + "hyperlink' Target='https://" + id +
                                          ".example/' TargetMode='External'/>";
        builder.sheetRelationships += "<Relationship Id='inside' Type='" + Tests::TransitionalTypes +
                                      "hyperlink' Target='#One!B2' TargetMode='External'/>";
        import();
    }

    /// URL and anchor with a blank between; empty where the cell leads nowhere.
    std::string getTarget(unsigned long row, unsigned long column) const
    {
        const DOM::Cell* const cell = findCell(row, column);
        const auto link = cell ? FilterUtils::getCellHyperlink(*cell) : nullptr;
        return link ? link->getURL() + " " + link->getAnchor() : std::string();
    }

    std::string rest; // between the rows and the links
};

TEST_F(SheetLinks, CellsOfAnyKindCarryThem)
{
    builder.strings = "<si><r><t>plain </t></r><r><rPr><b/></rPr><t>bold\n</t></r></si>";
    importLinks("<row><c t='s'><v>0</v></c><c><v>7</v></c><c t='b'><v>1</v></c><c t='e'><v>#N/A</v></c>"
                "<c t='s'><v>0</v></c></row>",
        "<hyperlink ref='A1' r:id='a'/><hyperlink ref='B1' r:id='a' location='x'/><hyperlink ref='C1' "
        "location=\"'S 2'!A1\" display='shown'/><hyperlink ref='D1' r:id='inside'/><hyperlink ref='F9' "
        "r:id='b' "
        "tooltip='tip'/>");
    EXPECT_EQ(getTarget(0, 0), "https://a.example/ ");
    EXPECT_EQ(getTarget(0, 1), "https://a.example/ x");
    EXPECT_EQ(getTarget(0, 2), " 'S 2'!A1");
    EXPECT_EQ(getTarget(0, 3), " One!B2");
    EXPECT_EQ(getTarget(8, 5), "https://b.example/ ");
    EXPECT_EQ(getTarget(0, 4), "") << "a cell with the same text";
    EXPECT_EQ(findCell(0, 1)->getNumber(), 7);
    EXPECT_TRUE(findCell(0, 2)->getBoolean());
    EXPECT_EQ(findCell(0, 3)->getKind(), DOM::Cell::Kind::Error);
    EXPECT_EQ(findCell(0, 3)->getText()->getPlainText(), "#N/A");
    EXPECT_EQ(findCell(8, 5)->getKind(), DOM::Cell::Kind::Empty);
    EXPECT_EQ(getTable().getLiveRowsCount(), 9U);
    EXPECT_THAT(listMessages(), IsEmpty());
    EXPECT_THAT(run->getLeftOut(), IsEmpty());
}

TEST_F(SheetLinks, RunsCarryThemBesideTheirFonts)
{
    builder.strings = "<si><r><t>plain\t</t></r><r><rPr><b/></rPr><t>bold\n</t></r></si>";
    importLinks("<row><c t='s'><v>0</v></c></row>", "<hyperlink ref='A1' r:id='a'/>");
    EXPECT_EQ(findCell(0, 0)->getText()->getPlainText(), "plain\tbold\n");
    const auto& paragraph = dynamic_cast<const DOM::Paragraph&>(*findCell(0, 0)->getRawBlocks()->front());
    ASSERT_EQ(paragraph.getRuns().size(), 4U);
    for (const DOM::Run& piece : paragraph.getRuns())
        EXPECT_NE(piece.getStyle().getHyperlink(), nullptr);
    EXPECT_NE(paragraph.getParaMarkStyle().getHyperlink(), nullptr);
    EXPECT_EQ(paragraph.getRuns()[2].getStyle().getRunProps()->getBold(), boost::optional<bool>(true));
    EXPECT_EQ(paragraph.getRuns()[0].getStyle().getRunProps(), nullptr);
}

TEST_F(SheetLinks, EqualTextsWithOneLinkAreOneObject)
{
    builder.strings = "<si><t>x</t></si>";
    importLinks("<row><c t='s'><v>0</v></c><c t='s'><v>0</v></c><c><v>1</v></c><c><v>2</v></c></row>",
        "<hyperlink ref='A1' r:id='a'/><hyperlink ref='B1:D1' r:id='a'/>");
    EXPECT_EQ(findCell(0, 0)->getText(), findCell(0, 1)->getText());
    EXPECT_EQ(findCell(0, 2)->getRawBlocks(), findCell(0, 3)->getRawBlocks());
}

TEST_F(SheetLinks, RangesTakeEmptyCellsToo)
{
    importLinks("<row><c><v>1</v></c></row>", "<hyperlink ref='C2:A1' r:id='a'/>");
    for (const unsigned long row : {0UL, 1UL})
        for (const unsigned long column : {0UL, 1UL, 2UL})
            EXPECT_EQ(getTarget(row, column), "https://a.example/ ") << row << ", " << column;
    EXPECT_EQ(findCell(2, 0), nullptr);
}

TEST_F(SheetLinks, MergedBlockIsLinkedOnItsFirstCell)
{
    rest = "<mergeCells><mergeCell ref='A1:C3'/></mergeCells>";
    importLinks("<row><c><v>1</v></c><c><v>2</v></c></row>", "<hyperlink ref='A1:C3' r:id='a'/>");
    EXPECT_EQ(getTarget(0, 0), "https://a.example/ ");
    EXPECT_EQ(getTarget(0, 1), "https://a.example/ ") << "a covered cell that is there";
    EXPECT_EQ(findCell(2, 2), nullptr);
    EXPECT_EQ(getTable().getMergedRanges().size(), 1U);
}

TEST_F(SheetLinks, LargeRangeMakesNoCellsButItsFirst)
{
    importLinks("<row r='7'><c r='B7'><v>1</v></c></row>",
        "<hyperlink ref='A1:XFD1048576' r:id='a'/><hyperlink ref='A1:XFD2' r:id='b'/>");
    EXPECT_EQ(getTarget(0, 0), "https://b.example/ ") << "the last one stays";
    EXPECT_EQ(findCell(0, 1), nullptr);
    EXPECT_EQ(getTarget(6, 1), "");
    EXPECT_EQ(getTable().getLiveColsCount(), 2U);
    EXPECT_THAT(listMessages(), ElementsAre("Hyperlink on A1:XFD1048576 shares cells with a later one"));
}

TEST_F(SheetLinks, CellsMadeForLinksAreBounded)
{
    static_assert(LinkedCellsMax == 10000, "the ranges below are of that size");
    importLinks("", "<hyperlink ref='A1:CV100' r:id='a'/><hyperlink ref='A101:B101' r:id='a'/>");
    EXPECT_EQ(getTarget(99, 99), "https://a.example/ ");
    EXPECT_EQ(getTarget(100, 0), "https://a.example/ ");
    EXPECT_EQ(findCell(100, 1), nullptr);
}

TEST_F(SheetLinks, WhatCannotBeReadIsLeftOut)
{
    importLinks("<row><c><v>1</v></c></row>",
        "<hyperlink ref='A1'/><hyperlink ref='A1' r:id='nowhere' location='x'/><hyperlink r:id='a'/>"
        "<hyperlink ref='A1:XFE1' r:id='a'/><hyperlink ref='A0' r:id='a'/>");
    EXPECT_EQ(getTarget(0, 0), "");
    EXPECT_EQ(findCell(0, 0)->getRawBlocks(), nullptr);
    EXPECT_THAT(listMessages(),
        ElementsAre("Hyperlink on A0 is on no range of a sheet",
            "Hyperlink on A1:XFE1 is on no range of a sheet", "Hyperlink on  is on no range of a sheet",
            "Hyperlink on A1 has an unknown relationship nowhere", "Hyperlink on A1 leads nowhere"));
}

TEST_F(SheetLinks, CopiesOfTextsAreBounded)
{
    builder.strings = "<si><t>" + std::string(32000, 'x') + "</t></si>";
    std::string rows;
    std::string links;
    constexpr unsigned long count = LinkedTextMax / 32000 + 2;
    for (unsigned long i = 1; i <= count; ++i) {
        rows += "<row><c t='s'><v>0</v></c></row>";
        links += "<hyperlink ref='A" + std::to_string(i) + "' location='x" + std::to_string(i) + "'/>";
    }
    importLinks(rows, links);
    EXPECT_EQ(getTarget(0, 0), " x1");
    EXPECT_EQ(getTarget(count - 3, 0), " x" + std::to_string(count - 2));
    EXPECT_EQ(getTarget(count - 2, 0), "");
    EXPECT_EQ(findCell(count - 1, 0)->getText()->getPlainText().size(), 32000U);
    EXPECT_EQ(listMessages().size(), 2U);
    EXPECT_EQ(listMessages().front(),
        "Hyperlink on A" + std::to_string(count - 1) + " has more text under it than links may have");
}

} // namespace
} // namespace QV::Filters
