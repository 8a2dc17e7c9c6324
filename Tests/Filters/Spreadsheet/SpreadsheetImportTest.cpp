#include <Filters/Spreadsheet/SpreadsheetImport.h>

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Document.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/Table.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/PackageError.h>
#include <Tests/Support/Printers.h>
#include <Tests/Support/TemporaryFolder.h>
#include <Tests/Support/WorkbookBuilder.h>
#include <Tests/Support/XercesEnvironment.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string Png("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16);

class SpreadsheetImport : public testing::Test
{
protected:
    void import(ImportOptions options = {})
    {
        run = std::make_unique<FilterRun>(std::move(options));
        Package package = Package::openBytes(builder.make());
        importSpreadsheet(package, *run);
    }

    std::vector<const DOM::Table*> listTables() const
    {
        std::vector<const DOM::Table*> tables;
        for (const DOM::Block& block : run->getDocument().getBlocks())
            tables.push_back(dynamic_cast<const DOM::Table*>(&block));
        return tables;
    }

    const DOM::Cell& getCell(unsigned long row, unsigned long column) const
    {
        static const DOM::Cell none;
        const DOM::Cell* const cell = listTables().at(0)->findCell(RowIndex(row), ColumnIndex(column));
        return cell ? *cell : none;
    }

    std::vector<std::string> listMessages() const
    {
        std::vector<std::string> texts;
        for (const OperationReport::Message& message : run->getReport().getMessages())
            if (message.getText() != FilterRun::LeftOutMessage)
                texts.push_back(message.toString());
        return texts;
    }

    Tests::WorkbookBuilder builder;
    std::unique_ptr<FilterRun> run;
};

TEST_F(SpreadsheetImport, SheetsComeInTheirOrderWithNameAndState)
{
    builder.sheetEntries = "<sheet name='B &amp; C' sheetId='1' r:id='s1'/>"
                           "<sheet name='Hidden' sheetId='2' state='hidden' r:id='s2'/>"
                           "<sheet name='Very' sheetId='3' state='veryHidden' r:id='s3'/>"
                           "<sheet name='Odd' sheetId='4' state='sleepy' r:id='s4'/>"
                           "<sheet name='Lost' sheetId='5' r:id='nowhere'/>";
    for (const std::string number : {"2", "3", "4"}) {
        builder.workbookRelationships += Tests::makeRelationship(
            "s" + number, Tests::TransitionalTypes + "worksheet", "sheet" + number + ".xml");
        builder.items.push_back(
            {"xl/sheet" + number + ".xml", "<worksheet xmlns='" + Tests::SheetNamespace + "'/>"});
    }
    import();
    const auto tables = listTables();
    ASSERT_EQ(tables.size(), 5U);
    EXPECT_EQ(tables[0]->getName(), "B & C");
    EXPECT_TRUE(tables[0]->isVisible());
    EXPECT_FALSE(tables[1]->isVisible());
    EXPECT_FALSE(tables[2]->isVisible());
    EXPECT_TRUE(tables[3]->isVisible());
    EXPECT_EQ(tables[4]->getName(), "Lost");
    EXPECT_THAT(
        listMessages(), ElementsAre("Sheet Odd has an unknown state sleepy", "Sheet Lost has no part"));
}

TEST_F(SpreadsheetImport, DateSystemDecidesIsoDates)
{
    builder.workbookHead = "<workbookPr date1904='1'/>";
    builder.sheet = "<sheetData><row><c t='d'><v>1904-01-02</v></c></row></sheetData>";
    import();
    EXPECT_EQ(getCell(0, 0).getNumber(), 1);
}

TEST_F(SpreadsheetImport, SharedStringsMayHaveFontsOfTheirOwn)
{
    builder.strings =
        "<si><t xml:space='preserve'> a </t></si>"
        "<si><r><t>plain </t></r><r><rPr><b/><sz val='14'/><color rgb='FF112233'/><rFont val='Arial'/>"
        "</rPr><t>bold</t></r><rPh sb='0' eb='1'><t>read so</t></rPh><phoneticPr fontId='1'/></si>"
        "<si/>";
    builder.sheet = "<sheetData><row><c t='s'><v>0</v></c><c t='s'><v>1</v></c><c t='s'><v>2</v></c>"
                    "<c t='s'><v>1</v></c></row></sheetData>";
    import();
    EXPECT_EQ(getCell(0, 0).getText()->getPlainText(), " a ");
    EXPECT_EQ(getCell(0, 1).getText()->getPlainText(), "plain bold");
    EXPECT_EQ(getCell(0, 2).getText()->getPlainText(), "");
    EXPECT_EQ(getCell(0, 1).getText(), getCell(0, 3).getText()) << "cells share one text";
    const auto& paragraph =
        dynamic_cast<const DOM::Paragraph&>(*getCell(0, 1).getText()->getBlocks().front());
    ASSERT_EQ(paragraph.getRuns().size(), 2U);
    EXPECT_TRUE(paragraph.getRuns()[0].getStyle().isEmpty());
    const DOM::RunProps& font = *paragraph.getRuns()[1].getStyle().getRunProps();
    EXPECT_EQ(font.getBold(), boost::optional<bool>(true));
    EXPECT_EQ(font.getFontSize(), boost::optional<float>(14.0F));
    EXPECT_EQ(font.getFontName(), boost::optional<std::string>("Arial"));
    EXPECT_EQ(font.getColor()->getRGBA(), DOM::Color::RGBA(0x11, 0x22, 0x33, 255));
    EXPECT_THAT(run->getLeftOut(), Contains("phonetic text"));
}

TEST_F(SpreadsheetImport, InlineStringsAreTextToo)
{
    builder.sheet =
        "<sheetData><row><c t='inlineStr'><is><r><rPr><i/></rPr><t>a</t></r><r><t>b_x0009_</t></r></is>"
        "</c></row></sheetData>";
    import();
    EXPECT_EQ(getCell(0, 0).getText()->getPlainText(), "ab\t");
}

const char* const Styles =
    "<fonts><font><sz val='11'/><name val='Calibri'/></font>"
    "<font><b/><i val='0'/><sz val='20'/><color theme='4' tint='0.7999816888943144'/><name "
    "val='Arial'/></font></fonts>"
    "<fills><fill><patternFill patternType='none'/></fill><fill><patternFill patternType='gray125'/></fill>"
    "<fill><patternFill patternType='solid'><fgColor indexed='10'/></patternFill></fill></fills>"
    "<cellXfs><xf fontId='0' fillId='0'/><xf fontId='1' fillId='2'/><xf fontId='0' fillId='2'/>"
    "<xf fontId='9' fillId='x'/></cellXfs>";

TEST_F(SpreadsheetImport, FormatsGiveFontsAndFills)
{
    builder.styles = Styles;
    builder.sheet = "<sheetData><row><c s='0'><v>1</v></c><c s='1'><v>1</v></c><c s='2'/></row></sheetData>";
    import();
    EXPECT_EQ(getCell(0, 0).getSharedStyle(), nullptr) << "the default font is no format of the cell's own";
    const DOM::CellStyle& style = getCell(0, 1).getStyle();
    EXPECT_EQ(style.getRunProps()->getBold(), boost::optional<bool>(true));
    EXPECT_EQ(style.getRunProps()->getItalic(), boost::optional<bool>(false));
    EXPECT_EQ(style.getRunProps()->getFontSize(), boost::optional<float>(20.0F));
    EXPECT_EQ(style.getRunProps()->getColor()->getRGBA(), DOM::Color::RGBA(0xDC, 0xE6, 0xF1, 255));
    EXPECT_EQ(style.getCellProps()->getBackgroundColor()->getRGBA(), DOM::Color::RGBA(0xFF, 0, 0, 255));
    EXPECT_EQ(getCell(0, 2).getKind(), DOM::Cell::Kind::Empty);
    EXPECT_EQ(getCell(0, 2).getStyle().getRunProps(), nullptr);
    EXPECT_THAT(listMessages(),
        ElementsAre("Cell format has an unknown fontId 9", "Cell format has an unknown fillId x"));
}

TEST_F(SpreadsheetImport, EqualFormatsAreOneObject)
{
    builder.styles = Styles;
    for (int i = 0; i < 100; ++i)
        builder.sheet += "";
    std::string cells;
    for (int i = 0; i < 1000; ++i)
        cells += i % 2 == 0 ? "<c s='1'><v>1</v></c>" : "<c s='2'><v>1</v></c>";
    builder.sheet = "<sheetData><row>" + cells + "</row></sheetData>";
    import();
    EXPECT_EQ(run->getDocument().getSharedObjectFactory().getCellStylesCount(), 2U);
}

constexpr long NoColor = -1;

struct ColorRow
{
    const char* name;
    const char* color; // the attributes of the colour
    long rgb;
    const char* message; // empty: none
};

void PrintTo(const ColorRow& row, std::ostream* out)
{
    *out << row.color;
}

const ColorRow ColorRows[] = {
    {"Argb",             "rgb='80FF8000'",             0xFF8000, ""                           },
    {"Rgb",              "rgb='FF8000'",               0xFF8000, ""                           },
    {"White",            "theme='0'",                  0xFFFFFF, ""                           },
    {"Black",            "theme='1'",                  0x000000, ""                           },
    {"LastOfTheme",      "theme='11'",                 0x800080, ""                           },
    {"BeyondTheTheme",   "theme='12'",                 NoColor,  "Unknown theme color 12"     },
    {"LastOfPalette",    "indexed='63'",               0x333333, ""                           },
    {"SystemText",       "indexed='64'",               0x000000, ""                           },
    {"SystemWindow",     "indexed='65'",               0xFFFFFF, ""                           },
    {"BeyondThePalette", "indexed='66'",               NoColor,  "Unknown indexed color 66"   },
    {"NotANumber",       "indexed='-1'",               NoColor,  "Unknown indexed color -1"   },
    {"NotHexadecimal",   "rgb='FFGG0000'",             NoColor,  "Incorrect color: FFGG0000"  },
    {"TooLong",          "rgb='1FFFFFFFF'",            NoColor,  "Incorrect color: 1FFFFFFFF" },
    {"Automatic",        "auto='1'",                   NoColor,  ""                           },
    {"BadTint",          "rgb='FF0000FF' tint='much'", 0x0000FF, "Can't parse color tint much"},
};

class ImportedColor : public SpreadsheetImport, public testing::WithParamInterface<ColorRow>
{
};

TEST_P(ImportedColor, KeepsRow)
{
    builder.styles =
        std::string("<fonts><font/></fonts><fills><fill><patternFill patternType='solid'><fgColor ") +
        GetParam().color + "/></patternFill></fill></fills><cellXfs><xf/></cellXfs>";
    builder.sheet = "<sheetData><row><c><v>1</v></c></row></sheetData>";
    import();
    std::vector<std::string> messages;
    if (*GetParam().message != 0)
        messages.push_back(GetParam().message);
    EXPECT_EQ(listMessages(), messages);
    const auto& props = getCell(0, 0).getStyle().getCellProps();
    long rgb = NoColor;
    if (props) {
        const DOM::Color::RGBA color = props->getBackgroundColor()->getRGBA();
        EXPECT_EQ(color.a, 255);
        rgb = color.r * 0x10000L + color.g * 0x100L + color.b;
    }
    EXPECT_EQ(rgb, GetParam().rgb);
}

INSTANTIATE_TEST_SUITE_P(Rows, ImportedColor, testing::ValuesIn(ColorRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(SpreadsheetImport, ThemeAndPaletteOfTheFileCount)
{
    builder.workbookRelationships =
        Tests::makeRelationship("t", Tests::TransitionalTypes + "theme", "theme.xml");
    builder.items.push_back({"xl/theme.xml",
        "<a:theme "
        "xmlns:a='http://schemas.openxmlformats.org/drawingml/2006/main'><a:themeElements><a:clrScheme>"
        "<a:dk1><a:sysClr val='windowText' lastClr='101010'/></a:dk1><a:lt1><a:srgbClr val='FAFAFA'/></a:lt1>"
        "</a:clrScheme></a:themeElements></a:theme>"});
    builder.styles = "<fonts><font><color theme='0'/></font><font><color theme='1'/></font>"
                     "<font><color indexed='1'/></font></fonts>"
                     "<cellXfs><xf/><xf fontId='1'/><xf fontId='2'/></cellXfs>"
                     "<colors><indexedColors><rgbColor rgb='FF000001'/><rgbColor "
                     "rgb='00ABCDEF'/></indexedColors></colors>";
    builder.sheet = "<sheetData><row><c s='1'><v>1</v></c><c s='2'><v>1</v></c></row></sheetData>";
    import();
    EXPECT_EQ(
        getCell(0, 0).getStyle().getRunProps()->getColor()->getRGBA(), DOM::Color::RGBA(16, 16, 16, 255));
    EXPECT_EQ(getCell(0, 1).getStyle().getRunProps()->getColor()->getRGBA(),
        DOM::Color::RGBA(0xAB, 0xCD, 0xEF, 255));
}

TEST_F(SpreadsheetImport, SizesOfRowsAndColumns)
{
    builder.sheet = "<sheetFormatPr baseColWidth='10' defaultRowHeight='12.5'/>"
                    "<cols><col min='1' max='2' width='9.140625'/><col min='3' max='3' hidden='true'/></cols>"
                    "<sheetData><row r='2' ht='30' hidden='1'/><row r='3' ht='-1'/></sheetData>";
    import();
    const DOM::Table& table = *listTables().at(0);
    EXPECT_EQ(table.getDefaultRowHeight(), 12.5F);
    EXPECT_EQ(table.getDefaultColumnWidth(), 60.0F);
    EXPECT_EQ(table.getColumnProps(ColumnIndex(1)).getWidth(), boost::optional<float>(48.0F));
    EXPECT_TRUE(table.getColumnProps(ColumnIndex(2)).isHidden());
    EXPECT_TRUE(table.getRowProps(RowIndex(1)).isHidden());
    EXPECT_EQ(table.getRowProps(RowIndex(1)).getHeight(), boost::optional<float>(30.0F));
    EXPECT_THAT(listMessages(), ElementsAre("Unexpected row height -1"));
}

TEST_F(SpreadsheetImport, BrokenSheetKeepsWhatCameBefore)
{
    builder.sheet = "<sheetData><row><c><v>1</v></c></row><row><c><v>2</c></row></sheetData>";
    import();
    EXPECT_EQ(getCell(0, 0).getNumber(), 1);
    EXPECT_THAT(listMessages(), ElementsAre(HasSubstr("Part xl/sheet1.xml is not well-formed XML")));
}

TEST_F(SpreadsheetImport, DoctypeInAnyPartThatIsReadIsRefused)
{
    builder.items.push_back({"xl/styles2.xml", "<!DOCTYPE a><a/>"});
    builder.workbookRelationships =
        Tests::makeRelationship("t", Tests::TransitionalTypes + "styles", "styles2.xml");
    EXPECT_THROW(import(), PackageError);
}

TEST_F(SpreadsheetImport, WhatIsNotReadIsSaidOnce)
{
    builder.sheet =
        "<sheetData><row><c><f>1+1</f><v>2</v></c><c><f>A1</f><v>2</v></c></row></sheetData>"
        "<autoFilter ref='A1:B2'/><conditionalFormatting/><conditionalFormatting/><dataValidations/>";
    builder.workbookHead = "<definedNames/>";
    import();
    EXPECT_EQ(getCell(0, 0).getNumber(), 2) << "the stored value of a formula is kept";
    EXPECT_THAT(
        run->getLeftOut(), ElementsAre("filters and sorting", "conditional formats", "data validations"));
    EXPECT_EQ(run->getReport().getMessages().size(), run->getLeftOut().size());
}

class ImportedPictures : public SpreadsheetImport
{
protected:
    void addDrawing(const std::string& content, const std::string& relationships)
    {
        builder.sheet = "<sheetData/><drawing r:id='d1'/>";
        builder.sheetRelationships =
            Tests::makeRelationship("d1", Tests::TransitionalTypes + "drawing", "drawing1.xml");
        builder.items.push_back({"xl/drawing1.xml",
            "<xdr:wsDr xmlns:xdr='http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing' "
            "xmlns:a='http://schemas.openxmlformats.org/drawingml/2006/main' "
            "xmlns:mc='http://schemas.openxmlformats.org/markup-compatibility/2006' "
            "xmlns:r='http://schemas.openxmlformats.org/officeDocument/2006/relationships'>" +
                content + "</xdr:wsDr>"});
        builder.items.push_back(Tests::makeRelationships("xl/_rels/drawing1.xml.rels", relationships));
    }

    static std::string makePicture(const std::string& attribute)
    {
        return "<xdr:pic><xdr:blipFill><a:blip " + attribute + "/></xdr:blipFill></xdr:pic>";
    }

    static std::string makeImage(
        const std::string& id, const std::string& target, const std::string& more = {})
    {
        return Tests::makeRelationship(id, Tests::TransitionalTypes + "image", target, more);
    }

    static void addPictures(const DOM::Frame& frame, std::vector<std::string>& ids)
    {
        if (const auto* const picture = dynamic_cast<const DOM::Picture*>(frame.getGraphicalObject()))
            ids.push_back(picture->getMediaId());
        else
            for (const DOM::Frame& child :
                dynamic_cast<const DOM::Shape&>(*frame.getGraphicalObject()).getChildren())
                addPictures(child, ids);
    }

    std::vector<std::string> listPictures() const
    {
        std::vector<std::string> ids;
        for (const auto& frame : listTables().at(0)->getFrames())
            addPictures(*frame, ids);
        return ids;
    }
};

TEST_F(ImportedPictures, AreStoredOnceUnderTheirRealType)
{
    addDrawing("<xdr:oneCellAnchor>" + makePicture("r:embed='p1'") +
                   "</xdr:oneCellAnchor><xdr:twoCellAnchor><xdr:grpSp>" + makePicture("r:embed='p1'") +
                   "<xdr:grpSp>" + makePicture("r:embed='p2'") +
                   "</xdr:grpSp></xdr:grpSp></xdr:twoCellAnchor>",
        makeImage("p1", "media/a.jpeg") + makeImage("p2", "/xl/media/b.qqq"));
    builder.items.push_back({"xl/media/a.jpeg", Png});
    builder.items.push_back({"xl/media/b.qqq", "nothing that is known"});
    const Tests::TemporaryFolder folder;
    ImportOptions options;
    options.mediaFolder = folder.getPath("media");
    options.areIdsSequential = true;
    import(options);
    EXPECT_THAT(listPictures(), ElementsAre("id2.png", "id2.png", "id4"));
    ASSERT_EQ(run->getMedia().size(), 2U);
    EXPECT_EQ(run->getMedia()[0].mimeType, "image/png");
    EXPECT_EQ(run->getMedia()[0].bytes, Png.size());
    EXPECT_EQ(Tests::readFile(folder.getPath("media/id2.png")), Png);
}

TEST_F(ImportedPictures, HaveTheSameNamesWithoutAFolder)
{
    addDrawing(makePicture("r:embed='p1'"), makeImage("p1", "media/a.png"));
    builder.items.push_back({"xl/media/a.png", Png});
    ImportOptions options;
    options.areIdsSequential = true;
    import(options);
    EXPECT_THAT(listPictures(), ElementsAre("id2.png"));
    EXPECT_EQ(run->getMedia()[0].bytes, Png.size());
}

TEST_F(ImportedPictures, MissingOnesAreReported)
{
    addDrawing(makePicture("r:embed='p1'") + makePicture("r:embed='p2'") + makePicture(""),
        makeImage("p1", "gone.png"));
    import();
    EXPECT_THAT(listPictures(), IsEmpty());
    EXPECT_THAT(listMessages(), ElementsAre(HasSubstr("gone.png"), "Picture p1 of xl/drawing1.xml is missing",
                                    "Picture p2 of xl/drawing1.xml is missing"));
}

TEST_F(ImportedPictures, OfAlternateContentAreThoseOfTheFallback)
{
    addDrawing("<mc:AlternateContent><mc:Choice Requires='x'>" + makePicture("r:embed='p1'") +
                   "</mc:Choice><mc:Fallback>" + makePicture("r:embed='p2'") +
                   "</mc:Fallback></mc:AlternateContent>",
        makeImage("p1", "media/a.png") + makeImage("p2", "media/b.png"));
    builder.items.push_back({"xl/media/a.png", Png});
    builder.items.push_back({"xl/media/b.png", Png + "b"});
    import();
    ASSERT_EQ(run->getMedia().size(), 1U);
    EXPECT_EQ(run->getMedia()[0].bytes, Png.size() + 1);
}

TEST_F(ImportedPictures, LinkedOnesAreReadOnlyWhenAskedAndOnlyBesideTheDocument)
{
    const Tests::TemporaryFolder outside;
    const std::string secret = outside.write("secret.png", Png);
    const Tests::TemporaryFolder folder;
    folder.write("near me.png", Png);
    boost::filesystem::create_symlink(secret, folder.getPath("link.png"));
    const std::string external = "TargetMode='External'";
    addDrawing(makePicture("r:link='p1'") + makePicture("r:link='p2'") + makePicture("r:link='p3'") +
                   makePicture("r:link='p4'"),
        makeImage("p1", "near%20me.png", external) + makeImage("p2", "file://" + secret, external) +
            makeImage("p3", "link.png", external) + makeImage("p4", "../" + secret, external));
    import();
    EXPECT_THAT(run->getMedia(), IsEmpty());
    EXPECT_EQ(listMessages().size(), 4U);

    ImportOptions options;
    options.followsLinks = true;
    options.documentFolder = folder.getPath();
    import(options);
    ASSERT_EQ(run->getMedia().size(), 1U);
    EXPECT_EQ(run->getMedia()[0].bytes, Png.size());
    EXPECT_THAT(listMessages(), ElementsAre(HasSubstr("secret.png is no file beside the document"),
                                    "Linked picture link.png is no file beside the document",
                                    HasSubstr("secret.png is no file beside the document")));
}

TEST(SpreadsheetImportErrors, OtherDocumentsAreRefusedByName)
{
    const std::string bytes = Tests::makeZip({
        Tests::makeContentTypes(Tests::makeOverride("/word/document.xml",
            "application/vnd.openxmlformats-officedocument.wordprocessingml."
            "document.main+xml")),
        Tests::makeRelationships("_rels/.rels",
            Tests::makeRelationship("w", Tests::TransitionalTypes + "officeDocument", "word/document.xml")),
        {"word/document.xml", "<a/>"}
    });
    Package package = Package::openBytes(bytes);
    FilterRun run;
    try {
        importSpreadsheet(package, run);
        FAIL();
    } catch (const PackageError& error) {
        EXPECT_EQ(error.getKind(), PackageError::Kind::Unsupported);
        EXPECT_THAT(error.what(), HasSubstr("a text document"));
    }
}

} // namespace
} // namespace QV::Filters
