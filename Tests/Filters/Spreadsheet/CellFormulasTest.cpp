#include <Filters/Spreadsheet/CellFormulas.h>

#include <regex>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/FormulaSyntaxTree.h>
#include <Formulas/Public/FormulaText.h>
#include <Formulas/Public/TableContext.h>
#include <Tests/Support/ImportedWorkbook.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class CellFormulasImport : public Tests::ImportedWorkbook
{
protected:
    /// Imports one cell for each formula element, downwards from A1.
    void importCells(const std::vector<std::string>& formulas)
    {
        builder.sheet = "<sheetData>";
        for (const std::string& formula : formulas)
            builder.sheet += "<row><c>" + formula + "<v>7</v></c></row>";
        builder.sheet += "</sheetData>";
        import();
    }

    const DOM::Formula* findFormula(unsigned long row) const
    {
        const DOM::Cell* const cell = findCell(row, 0);
        return cell ? cell->getFormula() : nullptr;
    }

    std::string print(unsigned long row) const
    {
        const DOM::Formula* const formula = findFormula(row);
        return formula ? Formulas::toText(*formula, Formulas::TableContext::makeFor(run->getDocument()))
                       : "none";
    }
};

TEST_F(CellFormulasImport, ValuesStayBesideFormulas)
{
    importCells({"<f>SUM(One!B1,2)</f>", "", "<f/>"});
    EXPECT_EQ(print(0), "SUM(One!B1,2)");
    EXPECT_EQ(findCell(0, 0)->getNumber(), 7);
    EXPECT_EQ(print(1), "none");
    EXPECT_EQ(print(2), "none");
    EXPECT_THAT(listMessages(), IsEmpty());
    EXPECT_THAT(writeJson(),
        HasSubstr(R"json({"ref": "A1", "type": "number", "value": 7.0, "formula": "SUM(One!B1,2)"})json"));
}

TEST_F(CellFormulasImport, FormulaWithoutValueIsACell)
{
    builder.sheet = "<sheetData><row><c><f>B1&amp;\"&lt;\"</f></c></row></sheetData>";
    import();
    EXPECT_EQ(print(0), "B1&\"<\"");
    EXPECT_EQ(findCell(0, 0)->getKind(), DOM::Cell::Kind::Empty);
    EXPECT_THAT(writeJson(), HasSubstr(R"json({"ref": "A1", "formula": "B1&\"<\"")json"));
}

TEST_F(CellFormulasImport, FollowersGetTheSharedFormulaAsTheyMeanIt)
{
    importCells({"<f t='shared' si='0' ref='A1:A4'>B1+$C$1</f>", "<f t='shared' si='0'/>",
        "<f t='shared' si='0'>D3*2</f>", "<f t='shared' si='0'/>", "<f t='shared' si='1'>B1</f>",
        "<f t='shared' si='0' ref='A6:A7'>F6</f>", "<f t='shared' si='0'/>"});
    EXPECT_EQ(print(0), "B1+$C$1");
    EXPECT_EQ(print(1), "B2+$C$1");
    EXPECT_EQ(print(2), "D3*2");
    EXPECT_EQ(print(3), "B4+$C$1");
    EXPECT_EQ(print(4), "B1");
    EXPECT_EQ(print(6), "F7");
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST(FormulaContext, TextsAndAddressesCost)
{
    FormulaContext context;
    context.documents = {std::string(640, 'd')};
    context.longestAddress = 640;
    ASSERT_TRUE(context.parse('"' + std::string(6398, 'x') + '"'));
    EXPECT_EQ(context.nodesLeft, FormulaContext::NodesMax - 1 - 100);
    ASSERT_TRUE(context.parse("[1]S!A1"));
    EXPECT_EQ(context.nodesLeft, FormulaContext::NodesMax - 1 - 100 - 1 - 10);
}

TEST_F(CellFormulasImport, SharedFormulasThatAreNotThereAreReported)
{
    importCells({"<f t='shared' si='3'/>", "<f t='shared' si='4' ref='A2:A3'>1+</f>",
        "<f t='shared' si='4'/>", "<f t='shared'/>"});
    EXPECT_EQ(print(0), "none");
    EXPECT_EQ(print(1), "1+");
    EXPECT_EQ(print(2), "none");
    EXPECT_THAT(listMessages(), ElementsAre("Cell A1 shares the formula 3, which there is not",
                                    "Cell A2 has a formula that cannot be read; its text is kept: 1+",
                                    "Cell A3 shares the formula 4, which cannot be read",
                                    "Cell A4 shares the formula without a number, which there is not"));
}

TEST_F(CellFormulasImport, ReferencesThatLeaveTheSheetAreErrors)
{
    importCells({"<f/>", "<f t='shared' si='0' ref='A2:A3'>B1048575</f>", "<f t='shared' si='0'/>",
        "<f t='shared' si='0'/>"});
    EXPECT_EQ(print(2), "B1048576");
    EXPECT_EQ(print(3), "#REF!");
}

TEST_F(CellFormulasImport, ArraysKeepTheirCells)
{
    importCells({"<f t='array' ref='A1:B3'>C1:D3*2</f>", "<f t='array' ref='?'>C1</f>"});
    EXPECT_EQ(print(0), "C1:D3*2");
    EXPECT_TRUE(findFormula(0)->getArrayRange() == TableRange(0, 0, 3, 2));
    EXPECT_FALSE(findFormula(1)->getArrayRange());
}

TEST_F(CellFormulasImport, DataTablesAreCallsWithTheirInputs)
{
    importCells({"<f t='dataTable' ref='A1:B2' dt2D='1' dtr='1' r1='C1' r2='D1'/>",
        "<f t='dataTable' ref='A1:B2' dtr='1' r1='C1'/>", "<f t='dataTable' ref='A1:B2' r1='C1'/>",
        "<f t='dataTable' ref='A1:B2' r1='C1),F('/>"});
    EXPECT_EQ(print(0), "TABLE(C1,D1)");
    EXPECT_EQ(print(1), "TABLE(C1,)");
    EXPECT_EQ(print(2), "TABLE(,C1)");
    EXPECT_TRUE(findFormula(2)->getArrayRange() == TableRange(0, 0, 2, 2));
    EXPECT_EQ(print(3), "none");
    EXPECT_THAT(listMessages(), ElementsAre("Cell A4 has a data table whose input is no cell: C1),F("));
}

TEST_F(CellFormulasImport, NumbersOfDocumentsBecomeTheirAddresses)
{
    builder.workbookHead = "<externalReferences><externalReference r:id='x2'/><externalReference r:id='x1'/>"
                           "<externalReference r:id='none'/></externalReferences>";
    builder.workbookRelationships =
        Tests::makeRelationship("x1", Tests::TransitionalTypes + "externalLink", "ext1.xml") +
        Tests::makeRelationship("x2", Tests::TransitionalTypes + "externalLink", "ext2.xml");
    for (const std::string number : {"1", "2"}) {
        builder.items.push_back({"xl/ext" + number + ".xml", "<externalLink/>"});
        builder.items.push_back({"xl/_rels/ext" + number + ".xml.rels",
            "<Relationships "
            "xmlns='http://schemas.openxmlformats.org/package/2006/relationships'><Relationship "
            "Id='a' Type='" +
                Tests::TransitionalTypes + "externalLinkPath' Target='file:///b" + number +
                ".xlsx' TargetMode='External'/></Relationships>"});
    }
    importCells(
        {"<f>[1]S!A1</f>", "<f>SUM([2]S!A1)</f>", "<f>[3]S!A1</f>", "<f>[4]S!A1</f>", "<f>[0]!Rate</f>"});
    const auto* const cell =
        dynamic_cast<const DOM::FormulaSyntaxTree::CellAddress*>(&findFormula(0)->getSyntaxTree());
    ASSERT_TRUE(cell);
    EXPECT_EQ(cell->getDocURL(), "file:///b2.xlsx");
    EXPECT_EQ(print(1), "SUM('file:///[b1.xlsx]S'!A1)");
    EXPECT_EQ(print(2), "[3]S!A1");
    EXPECT_EQ(print(3), "[4]S!A1");
    EXPECT_EQ(print(4), "Rate");
    EXPECT_THAT(run->getLinks(), ElementsAre("file:///b1.xlsx", "file:///b2.xlsx"));
    EXPECT_THAT(listMessages(), ElementsAre("Formulas refer to document 3, whose address is not known",
                                    "Formulas refer to document 4, whose address is not known"));
}

TEST_F(CellFormulasImport, DocumentsWithoutAddressesAreNoLinks)
{
    const std::string none = "<Relationships "
                             "xmlns='http://schemas.openxmlformats.org/package/2006/relationships'/>";
    const std::string empty = "<Relationships "
                              "xmlns='http://schemas.openxmlformats.org/package/2006/relationships'>"
                              "<Relationship Id='a' Type='" +
                              Tests::TransitionalTypes +
                              "externalLinkPath' Target='' TargetMode='External'/></Relationships>";
    builder.workbookHead = "<externalReferences><externalReference r:id='x1'/><externalReference r:id='x2'/>"
                           "</externalReferences>";
    for (const std::string number : {"1", "2"}) {
        builder.workbookRelationships += Tests::makeRelationship(
            "x" + number, Tests::TransitionalTypes + "externalLink", "ext" + number + ".xml");
        builder.items.push_back({"xl/ext" + number + ".xml", "<externalLink/>"});
        builder.items.push_back({"xl/_rels/ext" + number + ".xml.rels", number == "1" ? none : empty});
    }
    importCells({"<f>[1]S!A1+[2]S!A1</f>", "<f>[1]S!A2</f>"});
    EXPECT_EQ(print(0), "[1]S!A1+[2]S!A1");
    EXPECT_THAT(run->getLinks(), IsEmpty());
    EXPECT_THAT(listMessages(), ElementsAre("Formulas refer to document 1, whose address is not known",
                                    "Formulas refer to document 2, whose address is not known"));
}

TEST_F(CellFormulasImport, ColumnsOfTablesAreKeptAndSaidOnce)
{
    importCells({"<f>SUM(T[a])</f>", "<f>T[b]</f>"});
    EXPECT_EQ(print(0), "SUM(T[a])");
    EXPECT_THAT(run->getLeftOut(), ElementsAre("columns of tables in formulas (kept as they are written)"));
}

TEST_F(CellFormulasImport, LongFormulasAreKeptAsText)
{
    const std::string longest = "\"" + std::string(FormulaContext::BytesMax - 2, 'a') + "\"";
    importCells({"<f>" + longest + "</f>", "<f>" + longest + " </f>"});
    EXPECT_EQ(findFormula(0)->getUnreadText(), "");
    EXPECT_EQ(findFormula(1)->getUnreadText(), longest + " ");
    EXPECT_THAT(listMessages(),
        ElementsAre("Cell A2 has a formula of 32769 bytes, more than applications take; its text is kept"));
}

TEST_F(CellFormulasImport, DefinedNamesAreRead)
{
    builder.workbookHead =
        "<definedNames><definedName name='Rate'>One!$B$1*2</definedName><definedName name='Area' "
        "localSheetId='0' hidden='1'>$A$1,$C$1</definedName><definedName name='Bad'>1+"
        "</definedName><definedName name='Far' localSheetId='1'>1</definedName></definedNames>";
    importCells({"<f>Rate</f>"});
    EXPECT_EQ(run->getDocument().getDefinedNames().size(), 3U);
    const std::string json = std::regex_replace(writeJson(), std::regex("\\n *"), "");
    EXPECT_THAT(json, HasSubstr(R"({"name": "Rate","formula": "One!$B$1*2"})"));
    EXPECT_THAT(json,
        HasSubstr(R"json({"name": "Area","table": "One","formula": "($A$1,$C$1)","visible": false})json"));
    EXPECT_THAT(json, HasSubstr(R"({"name": "Bad","formula": "1+"})"));
    EXPECT_THAT(listMessages(),
        ElementsAre("Defined name Bad has a formula that cannot be read; its text is kept: 1+",
            "Defined name Far belongs to sheet 1, which there is not"));
    EXPECT_THAT(run->getLeftOut(), IsEmpty());
}

TEST(CellFormulas, StopAtTheLimitOfNodes)
{
    FormulaContext context;
    context.nodesLeft = 6;
    CellFormulas formulas(context);
    WrittenFormula written;
    written.kind = WrittenFormula::Kind::Shared;
    written.text = "A1+B1";
    const CellIndex first(RowIndex(0), ColumnIndex(2));
    const CellIndex next(RowIndex(1), ColumnIndex(2));
    EXPECT_TRUE(formulas.make(written, first).formula);
    written.text.clear();
    EXPECT_TRUE(formulas.make(written, next).formula);
    const auto follower = formulas.make(written, next);
    EXPECT_FALSE(follower.formula);
    EXPECT_THAT(follower.message, HasSubstr("one too many"));
    written.kind = WrittenFormula::Kind::Usual;
    written.text = "1";
    EXPECT_EQ(formulas.make(written, next).formula->getUnreadText(), "1");
    context.nodesLeft = 1;
    EXPECT_EQ(formulas.make(written, next).formula->getUnreadText(), "");
    EXPECT_EQ(context.nodesLeft, 0U);
}

} // namespace
} // namespace QV::Filters
