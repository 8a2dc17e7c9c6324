// Formats of cells, rows, columns and tables, through the import of a workbook.

#include <Filters/Spreadsheet/CellFormats.h>

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Adapter/ResolvedCellStyle.h>
#include <DOM/Public/Adapter/TableCellIterator.h>
#include <DOM/Public/SharedObjectFactory.h>
#include <Tests/Support/ImportedWorkbook.h>
#include <Tests/Support/Printers.h>
#include <Tests/Support/StyledTable.h>

namespace QV::Filters {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

// Fonts 0 to 2, fillings 0 to 2, borders 0 to 2.
const std::string Parts =
    "<fonts><font><sz val='11'/><name val='Calibri'/></font>"
    "<font><b/><sz val='15'/><color rgb='FF112233'/><name val='Calibri'/></font>"
    "<font><i/><sz val='9'/><name val='Arial'/></font></fonts>"
    "<fills><fill><patternFill patternType='none'/></fill><fill><patternFill patternType='gray125'/></fill>"
    "<fill><patternFill patternType='solid'><fgColor rgb='FFFFCC00'/></patternFill></fill></fills>"
    "<borders><border/><border diagonalUp='1'><left style='thin'/><bottom style='double'><color "
    "rgb='FF00FF00'/></bottom>"
    "<diagonal style='thin'/></border><border><left style='medium'/></border></borders>";

class FormatsImport : public Tests::ImportedWorkbook
{
protected:
    /// @param formats the entries of the table of cell formats
    void importFormats(const std::string& formats, const std::string& styleFormats = {},
        const std::string& namedStyles = {}, const std::string& rest = {})
    {
        builder.styles = Parts + "<cellStyleXfs>" + styleFormats + "</cellStyleXfs><cellXfs>" + formats +
                         "</cellXfs><cellStyles>" + namedStyles + "</cellStyles>" + rest;
        import();
    }

    const DOM::CellStyle& getStyle(unsigned long column) const { return findCell(0, column)->getStyle(); }
};

TEST_F(FormatsImport, FormatsGiveBordersAndAlignment)
{
    builder.sheet = "<sheetData><row><c s='1'/><c s='2'><v>1</v></c></row></sheetData>";
    importFormats(
        "<xf/><xf borderId='1'><alignment horizontal='center' vertical='top' wrapText='1'/></xf>"
        "<xf borderId='9'><alignment horizontal='sideways' vertical='upside' wrapText='maybe'/></xf>");
    const DOM::CellProps& props = *getStyle(0).getCellProps();
    EXPECT_EQ(Tests::getWidths(props.getBorders()), (std::vector<float>{0.75F, 0, 0, 2.25F, 0, 0}));
    EXPECT_NE(props.getDiagonalUp(), nullptr);
    EXPECT_EQ(props.getDiagonalDown(), nullptr);
    EXPECT_TRUE(props.getVerticalAlignment() == DOM::VerticalAlignment::Top);
    EXPECT_EQ(props.getTextWrapping(), boost::optional<bool>(true));
    EXPECT_TRUE(getStyle(0).getParaProps()->getAlignment() == DOM::HorizontalAlignment::Center);
    EXPECT_EQ(findCell(0, 1)->getSharedStyle(), nullptr);
    EXPECT_THAT(listMessages(),
        ElementsAre("Cell format has an unknown borderId 9", "Unknown horizontal alignment sideways",
            "Unknown vertical alignment upside", "Can't parse boolean value maybe"));
}

TEST_F(FormatsImport, AlignmentThatValuesHaveAnywayIsNoFormat)
{
    builder.sheet = "<sheetData><row><c s='1'/></row></sheetData>";
    importFormats("<xf/><xf><alignment horizontal='general' vertical='bottom' wrapText='0'/></xf>");
    EXPECT_EQ(findCell(0, 0), nullptr);
    EXPECT_EQ(getTable().getLiveColsCount(), 1U);
}

const std::string NamedStyles = "<cellStyle name='Normal' xfId='0' builtinId='0'/>"
                                "<cellStyle name='Loud' xfId='1'/><cellStyle name='Lost' xfId='7'/>";
const std::string StyleFormats =
    "<xf/><xf fontId='1' fillId='2' borderId='1' xfId='1'><alignment horizontal='right' vertical='center' "
    "wrapText='1'/></xf>";

TEST_F(FormatsImport, NamedStylesComeIntoTheDocumentWithoutParents)
{
    importFormats("<xf/>", StyleFormats, NamedStyles); // formats that name themselves make no circle
    ASSERT_NE(findStyle("Loud"), nullptr);
    const DOM::NamedTableStyle& loud = *findStyle("Loud");
    EXPECT_EQ(loud.getRunProps()->getBold(), boost::optional<bool>(true));
    EXPECT_TRUE(loud.getCellProps()->getBackgroundColor());
    EXPECT_NE(loud.getCellProps()->getBorders(), nullptr);
    EXPECT_NE(findStyle("Normal"), nullptr);
    EXPECT_EQ(findStyle("Lost"), nullptr);
    for (const auto& style : run->getDocument().getStyles().getTableStyles())
        EXPECT_FALSE(style.second.getParentUUID());
    EXPECT_THAT(listMessages(), ElementsAre("Cell style Lost has no format"));
}

TEST_F(FormatsImport, NamedStylesLeaveOutWhatDoesNotApply)
{
    importFormats("<xf/>",
        "<xf/><xf fontId='1' applyFont='0' fillId='2' applyFill='false' borderId='1' applyBorder='0' "
        "applyAlignment='0'><alignment horizontal='right'/></xf>",
        NamedStyles);
    ASSERT_NE(findStyle("Loud"), nullptr);
    EXPECT_EQ(findStyle("Loud")->getRunProps(), nullptr);
    EXPECT_EQ(findStyle("Loud")->getCellProps(), nullptr);
    EXPECT_EQ(findStyle("Loud")->getParaProps(), nullptr);
}

TEST_F(FormatsImport, OwnFormatWinsOverItsNamedStyle)
{
    builder.sheet = "<sheetData><row><c s='1'><v>1</v></c><c s='2'><v>1</v></c></row></sheetData>";
    importFormats("<xf/><xf xfId='1'/><xf xfId='1' fontId='2' fillId='2' borderId='2' applyBorder='0'/>",
        StyleFormats, NamedStyles);
    const DOM::CellStyle& plain = getStyle(0);
    EXPECT_EQ(plain.getParentUUID(), findStyle("Loud")->getUUID());
    EXPECT_EQ(plain.getRunProps()->getBold(), boost::optional<bool>(false));
    EXPECT_EQ(plain.getRunProps()->getFontSize(), boost::optional<float>(11.0F));
    EXPECT_EQ(plain.getRunProps()->getColor()->getRGBA(), DOM::Color::RGBA(0, 0, 0, 255));
    const DOM::CellProps& props = *plain.getCellProps();
    EXPECT_EQ(props.getBackgroundColor()->getRGBA().a, 0);
    EXPECT_EQ(props.getBorders()->getLeft()->getStyle(), DOM::LineStyle::None);
    EXPECT_EQ(props.getBorders()->getTop(), nullptr);
    EXPECT_EQ(props.getDiagonalUp()->getStyle(), DOM::LineStyle::None);
    EXPECT_TRUE(props.getVerticalAlignment() == DOM::VerticalAlignment::Bottom);
    EXPECT_EQ(props.getTextWrapping(), boost::optional<bool>(false));
    EXPECT_TRUE(plain.getParaProps()->getAlignment() == DOM::HorizontalAlignment::General);

    const DOM::BordersProps& borders = *getStyle(1).getCellProps()->getBorders();
    EXPECT_EQ(borders.getLeft()->getWidth(), 1.5F) << "the entry's own numbers hold, whatever its flags say";
    EXPECT_EQ(borders.getBottom()->getStyle(), DOM::LineStyle::None);
    EXPECT_EQ(getStyle(1).getRunProps()->getItalic(), boost::optional<bool>(true));
    const std::string json = writeJson();
    EXPECT_THAT(json, HasSubstr("\"borders\": {\"left\": {\"width\": 1.5, \"style\": \"solid\"}}"));
}

TEST_F(FormatsImport, NormalStyleIsNobodysParent)
{
    builder.sheet =
        "<sheetData><row><c s='0'><v>1</v></c><c s='1'><v>1</v></c><c s='2'><v>1</v></c></row></sheetData>";
    importFormats("<xf xfId='0'/><xf borderId='2'/><xf xfId='9' borderId='2'/>", StyleFormats, NamedStyles);
    EXPECT_EQ(findCell(0, 0)->getSharedStyle(), nullptr);
    EXPECT_FALSE(getStyle(1).getParentUUID());
    EXPECT_EQ(findCell(0, 1)->getSharedStyle(), findCell(0, 2)->getSharedStyle());
}

TEST_F(FormatsImport, BordersAreWrittenInTheirOrder)
{
    builder.sheet = "<sheetData><row><c s='1'/></row></sheetData>";
    importFormats("<xf/><xf fontId='1' fillId='2' borderId='1'/>");
    EXPECT_THAT(writeJson(),
        HasSubstr(
            "{\"ref\": \"A1\", \"fill\": \"FFCC00\", \"borders\": {\"left\": {\"width\": 0.75, \"style\": "
            "\"solid\"}, \"bottom\": {\"width\": 2.25, \"color\": \"00FF00\", \"style\": \"double\"}, "
            "\"diagonalUp\": {\"width\": 0.75, \"style\": \"solid\"}}, \"bold\": true"));
}

TEST_F(FormatsImport, FiftyFormatsAreFiftyStylesInAnyNumberOfCells)
{
    std::string formats = "<xf/>";
    for (int i = 1; i <= 50; ++i)
        formats +=
            "<xf borderId='" + std::to_string(1 + i % 2) + "' fontId='" + std::to_string(i % 3) + "'/>";
    std::string row;
    for (int i = 1; i <= 50; ++i)
        row += "<c s='" + std::to_string(i) + "'><v>1</v></c>";
    std::string rows;
    for (int i = 0; i < 200; ++i)
        rows += "<row>" + row + "</row>";
    builder.sheet = "<sheetData>" + rows + "</sheetData>";
    importFormats(formats);
    EXPECT_EQ(run->getDocument().getSharedObjectFactory().getCellStylesCount(), 6U) << "equal ones are one";
    EXPECT_EQ(findCell(0, 3)->getSharedStyle(), findCell(199, 3)->getSharedStyle());
}

TEST_F(FormatsImport, WholeRowsAndColumnsHaveFormats)
{
    builder.sheet =
        "<cols><col min='2' max='3' style='1'/><col min='4' max='4' style='77'/></cols><sheetData>"
        "<row s='2' customFormat='1'><c><v>1</v></c><c/></row><row s='2'><c><v>1</v></c></row>"
        "<row s='88' customFormat='1'/></sheetData>";
    importFormats("<xf/><xf borderId='1'/><xf borderId='2'/>");
    const DOM::Table& table = getTable();
    const auto ofColumn = [&](unsigned long column) {
        return table.getColumnProps(ColumnIndex(column)).getSharedCellStyle();
    };
    const auto ofRow = [&](unsigned long row) {
        return table.getRowProps(RowIndex(row)).getSharedCellStyle();
    };
    EXPECT_EQ(ofColumn(0), nullptr);
    ASSERT_NE(ofColumn(1), nullptr);
    EXPECT_EQ(ofColumn(1), ofColumn(2));
    EXPECT_EQ(Tests::getWidths(ofColumn(1)->getCellProps()->getBorders()).front(), 0.75F);
    EXPECT_EQ(ofColumn(3), nullptr);
    ASSERT_NE(ofRow(0), nullptr);
    EXPECT_EQ(Tests::getWidths(ofRow(0)->getCellProps()->getBorders()).front(), 1.5F);
    EXPECT_EQ(ofRow(1), nullptr) << "the row does not say that its format counts";
    EXPECT_THAT(listMessages(),
        ElementsAre("A row or column has an unknown format 77", "A row or column has an unknown format 88"));

    // Cells that are there look as they say, plain ones too.
    for (const auto column : {0UL, 1UL}) {
        ASSERT_NE(findCell(0, column), nullptr);
        ASSERT_NE(findCell(0, column)->getSharedStyle(), nullptr);
        EXPECT_TRUE(findCell(0, column)->getStyle().isEmpty());
    }
    EXPECT_THAT(writeJson(), Not(HasSubstr("borders")));
    EXPECT_THAT(writeJson(), HasSubstr("\"rowHeights\": []"));
}

const std::string TableStyles =
    "<dxfs><dxf><font><b/></font></dxf><dxf><fill><patternFill><bgColor rgb='FF00FF00'/></patternFill></fill>"
    "<border><left style='thin'/><vertical style='hair'/><horizontal style='dotted'/></border></dxf></dxfs>"
    "<tableStyles><tableStyle name='Mine'><tableStyleElement type='wholeTable' dxfId='1'/>"
    "<tableStyleElement type='headerRow' dxfId='0'/></tableStyle>"
    "<tableStyle name='Lost'><tableStyleElement type='wholeTable' dxfId='2'/></tableStyle></tableStyles>";

TEST_F(FormatsImport, TableStylesGiveLinesInside)
{
    importFormats("<xf/>", {}, {}, TableStyles);
    ASSERT_NE(findStyle("Mine"), nullptr);
    const DOM::CellProps& props = *findStyle("Mine")->getCellProps();
    EXPECT_EQ(props.getBackgroundColor()->getRGBA(), DOM::Color::RGBA(0, 255, 0, 255));
    EXPECT_EQ(props.getBorders()->getVertical()->getStyle(), DOM::LineStyle::Hair);
    EXPECT_EQ(props.getBorders()->getHorizontal()->getStyle(), DOM::LineStyle::Dotted);
    EXPECT_EQ(findStyle("Mine")->getRunProps(), nullptr);
    ASSERT_NE(findStyle("Lost"), nullptr);
    EXPECT_EQ(findStyle("Lost")->getCellProps(), nullptr);
    EXPECT_THAT(listMessages(), ElementsAre("Table style Lost has an unknown format 2"));
    EXPECT_THAT(run->getLeftOut(), ElementsAre("table styles of single rows, columns and stripes"));
}

TEST_F(FormatsImport, TablesWithinASheetAreStyledRanges)
{
    const auto addTable = [&](const std::string& id, const std::string& content) {
        builder.sheetRelationships +=
            Tests::makeRelationship(id, Tests::TransitionalTypes + "table", id + ".xml");
        builder.items.push_back({"xl/" + id + ".xml", content});
    };
    const std::string head = "<table xmlns='" + Tests::SheetNamespace + "' ";
    addTable("t1", head + "name='n' displayName='Sales' ref='B2:D9'><tableStyleInfo name='Mine'/></table>");
    addTable("t2", head + "name='Bare' ref='A20'/>");
    addTable("t3", head + "displayName='Odd' ref='A1:XFE2'/>");
    addTable("t4", head + "displayName='Broken'");
    builder.sheet =
        "<sheetData/><tableParts><tablePart r:id='t1'/><tablePart r:id='t2'/><tablePart r:id='t3'/>"
        "<tablePart r:id='t4'/><tablePart r:id='t1'/><tablePart r:id='t9'/></tableParts>";
    import();
    const auto& ranges = getTable().getStyledRanges();
    ASSERT_EQ(ranges.size(), 2U);
    EXPECT_EQ(ranges[0].name, "Sales");
    EXPECT_EQ(ranges[0].range, TableRange(1, 1, 9, 4));
    EXPECT_EQ(ranges[0].styleName, "Mine");
    EXPECT_EQ(ranges[1].name, "Bare");
    EXPECT_EQ(ranges[1].range, TableRange(19, 0, 20, 1));
    EXPECT_EQ(ranges[1].styleName, "");
    EXPECT_THAT(listMessages(), Contains("Table Odd takes A1:XFE2, which is no range of a sheet"));
    EXPECT_THAT(listMessages(), Contains("Table t9 of sheet One is missing"));
    EXPECT_THAT(run->getLeftOut(), IsEmpty());
}

} // namespace
} // namespace QV::Filters
