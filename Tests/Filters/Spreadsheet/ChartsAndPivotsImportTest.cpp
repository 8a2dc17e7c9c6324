#include <Filters/Spreadsheet/SpreadsheetImport.h>

#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Document.h>
#include <DOM/Public/Table.h>
#include <Filters/ModelJson/SpreadsheetJson.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
#include <Tests/Support/ChartBuilder.h>
#include <Tests/Support/WorkbookBuilder.h>
#include <Tests/Support/XercesEnvironment.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Tests::makeRelationship;
using Tests::TransitionalTypes;

class ChartsAndPivotsImport : public testing::Test
{
protected:
    void import()
    {
        run = std::make_unique<FilterRun>();
        Package package = Package::openBytes(builder.make());
        importSpreadsheet(package, *run);
        std::ostringstream out;
        writeSpreadsheetJson(*run, out);
        json = out.str();
    }

    /// @param charts the ids of the charts that the drawing shows, in its order; an empty one for a diagram
    void addDrawing(const std::string& relationships, const std::vector<std::string>& charts)
    {
        std::string anchors;
        for (const std::string& id : charts)
            anchors += "<xdr:absoluteAnchor><xdr:pos x='0' y='0'/><xdr:ext cx='12700' cy='12700'/>"
                       "<xdr:graphicFrame><a:graphic><a:graphicData>" +
                       (id.empty() ? std::string() : "<c:chart r:id='" + id + "'/>") +
                       "</a:graphicData></a:graphic></xdr:graphicFrame></xdr:absoluteAnchor>";
        builder.sheet = "<sheetData/><drawing r:id='d'/>";
        builder.sheetRelationships += makeRelationship("d", TransitionalTypes + "drawing", "drawing.xml");
        builder.items.push_back({"xl/drawing.xml",
            "<xdr:wsDr xmlns:xdr='http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing' "
            "xmlns:a='http://schemas.openxmlformats.org/drawingml/2006/main' "
            "xmlns:c='http://schemas.openxmlformats.org/drawingml/2006/chart' "
            "xmlns:r='http://schemas.openxmlformats.org/officeDocument/2006/relationships'>" +
                anchors + "</xdr:wsDr>"});
        builder.items.push_back(Tests::makeRelationships("xl/_rels/drawing.xml.rels", relationships));
    }

    void addChart(const std::string& name, const std::string& values)
    {
        builder.items.push_back(
            {"xl/" + name, Tests::makeChartPart(Tests::makePlotArea("barChart", Tests::makeSeries(values)))});
    }

    void addPivotTable(const std::string& part)
    {
        builder.sheetRelationships += makeRelationship("p", TransitionalTypes + "pivotTable", "pivot.xml");
        builder.items.push_back({"xl/pivot.xml", part});
    }

    const DOM::Table& getFirstTable() const
    {
        return dynamic_cast<const DOM::Table&>(*run->getDocument().getBlocks().begin());
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
    std::string json;
};

TEST_F(ChartsAndPivotsImport, ChartsMayReferToLaterSheets)
{
    addDrawing(makeRelationship("c", TransitionalTypes + "chart", "chart.xml"), {"c"});
    addChart("chart.xml", "Later!A1");
    builder.sheetEntries += "<sheet name='Later' sheetId='2' r:id='s2'/>";
    builder.workbookRelationships += makeRelationship("s2", TransitionalTypes + "worksheet", "sheet2.xml");
    builder.items.push_back({"xl/sheet2.xml", "<worksheet xmlns='" + Tests::SheetNamespace + "'/>"});
    import();
    EXPECT_EQ(getFirstTable().getFrames().size(), 1U);
    EXPECT_THAT(json, HasSubstr(R"("values": "Later!A1")"));
    EXPECT_THAT(listMessages(), IsEmpty());
    EXPECT_THAT(run->getLeftOut(), ElementsAre("axes, legends and formatting of charts"));
}

TEST_F(ChartsAndPivotsImport, ReferencesFollowTheNamesOfSheets)
{
    addDrawing(makeRelationship("c", TransitionalTypes + "chart", "chart.xml"), {"c"});
    addChart("chart.xml", "LATER!A1");
    builder.sheetEntries += "<sheet name='Later' sheetId='2' r:id='s2'/>";
    builder.workbookRelationships += makeRelationship("s2", TransitionalTypes + "worksheet", "sheet2.xml");
    builder.items.push_back({"xl/sheet2.xml", "<worksheet xmlns='" + Tests::SheetNamespace + "'/>"});
    import();
    EXPECT_THAT(json, HasSubstr(R"("values": "Later!A1")"));
    for (DOM::Block& block : run->getDocument().getBlocks())
        if (auto& table = dynamic_cast<DOM::Table&>(block); table.getName() == "Later")
            table.setName("Much later");
    std::ostringstream out;
    writeSpreadsheetJson(*run, out);
    EXPECT_THAT(out.str(), HasSubstr(R"("values": "'Much later'!A1")"));
}

TEST_F(ChartsAndPivotsImport, SeriesOfOtherWorkbooksAreLost)
{
    addDrawing(makeRelationship("c", TransitionalTypes + "chart", "chart.xml"), {"c"});
    addChart("chart.xml", "[1]One!A1");
    import();
    EXPECT_THAT(listMessages(),
        ElementsAre("Chart xl/chart.xml loses series #1: its values are no cells of the workbook"));
}

TEST_F(ChartsAndPivotsImport, EachChartPartIsReadOnce)
{
    addDrawing(makeRelationship("c", TransitionalTypes + "chart", "chart.xml") +
                   makeRelationship("e", TransitionalTypes + "chart", "chart.xml"),
        {"c", "e"});
    addChart("chart.xml", "One!A1");
    import();
    ASSERT_EQ(getFirstTable().getFrames().size(), 2U);
    EXPECT_TRUE(getFirstTable().getFrames()[0]->getGraphicalObject());
    EXPECT_FALSE(getFirstTable().getFrames()[1]->getGraphicalObject());
    EXPECT_THAT(listMessages(),
        ElementsAre("Chart xl/chart.xml is shown more than once, and read for the first time only"));
}

TEST_F(ChartsAndPivotsImport, WhatIsNoChartIsToldOnceOrLeftOut)
{
    addDrawing(makeRelationship("c", TransitionalTypes + "chart", "bad.xml") +
                   makeRelationship("e", TransitionalTypes + "chart", "missing.xml") +
                   makeRelationship("f", TransitionalTypes + "chart", "http://a.example/chart.xml",
                       "TargetMode='External'") +
                   makeRelationship("g", TransitionalTypes + "diagramData", "data.xml") +
                   makeRelationship(
                       "h", "http://schemas.microsoft.com/office/2014/relationships/chartEx", "new.xml"),
        {"c", "e", "f", ""});
    for (const std::string name : {"bad.xml", "data.xml", "new.xml"})
        builder.items.push_back({"xl/" + name, "<root/>"});
    import();
    ASSERT_EQ(getFirstTable().getFrames().size(), 4U) << "their places are known";
    for (const auto& frame : getFirstTable().getFrames())
        EXPECT_FALSE(frame->getGraphicalObject());
    EXPECT_THAT(
        listMessages(), ElementsAre("Target xl/missing.xml in xl/_rels/drawing.xml.rels is missing",
                            "External target http://a.example/chart.xml in xl/_rels/drawing.xml.rels is "
                            "not followed",
                            "Part xl/bad.xml is no chart", "Chart e of xl/drawing.xml is missing",
                            "Chart f of xl/drawing.xml is missing"));
    EXPECT_THAT(run->getLeftOut(), ElementsAre("charts of newer kinds (treemaps, waterfalls and the like)",
                                       "diagrams and other graphics in frames"));
}

TEST_F(ChartsAndPivotsImport, PivotTablesHaveNameAndPlace)
{
    for (const char* uri : {"http://schemas.openxmlformats.org/spreadsheetml/2006/main",
             "http://purl.oclc.org/ooxml/spreadsheetml/main"}) {
        builder = {};
        addPivotTable(
            "<pivotTableDefinition xmlns='" + std::string(uri) +
            "' name='Totals &amp; more'><location ref='A3:C20' firstHeaderRow='1'/></pivotTableDefinition>");
        import();
        ASSERT_EQ(getFirstTable().getPivotTables().size(), 1U);
        const DOM::PivotTable& pivotTable = getFirstTable().getPivotTables()[0];
        EXPECT_EQ(pivotTable.getName(), "Totals & more");
        EXPECT_EQ(pivotTable.getLocation(), CellIndex(RowIndex(2), ColumnIndex(0)));
        EXPECT_EQ(pivotTable.getSize(), Size2D<int>(3, 18));
        EXPECT_THAT(json, HasSubstr(R"("name": "Totals & more", "range": "A3:C20")"));
        EXPECT_THAT(listMessages(), IsEmpty());
    }
}

struct PlaceRow
{
    const char* name;
    const char* reference;
    const char* range; // null: refused
};

void PrintTo(const PlaceRow& row, std::ostream* out)
{
    *out << row.reference;
}

const PlaceRow PlaceRows[] = {
    {"Range",         "B2:C3",          "B2:C3"        },
    {"OneCell",       "C4",             "C4"           },
    {"Absolute",      "$B$2:$C$3",      "B2:C3"        },
    {"Disorder",      "C3:B2",          "B2:C3"        },
    {"Whole",         "A1:XFD1048576",  "A1:XFD1048576"},
    {"BeyondRows",    "A1:A1048577",    nullptr        },
    {"BeyondColumns", "XFE1",           nullptr        },
    {"Empty",         "",               nullptr        },
    {"Name",          "Totals",         nullptr        },
    {"Columns",       "A:C",            nullptr        },
    {"Table",         "One!A1",         nullptr        },
    {"BeyondAscii",   "\xC3\xA4",       nullptr        },
    {"HugeRow",       "A1:A4294967296", nullptr        },
};

class PivotPlaces : public ChartsAndPivotsImport, public testing::WithParamInterface<PlaceRow>
{
};

TEST_P(PivotPlaces, KeepRow)
{
    addPivotTable("<pivotTableDefinition xmlns='" + Tests::SheetNamespace + "' name='P'><location ref='" +
                  std::string(GetParam().reference) + "'/></pivotTableDefinition>");
    import();
    if (GetParam().range) {
        EXPECT_THAT(json, HasSubstr(std::string(R"("range": ")") + GetParam().range + '"'));
        EXPECT_THAT(listMessages(), IsEmpty());
        return;
    }
    EXPECT_THAT(getFirstTable().getPivotTables(), IsEmpty());
    EXPECT_THAT(json, HasSubstr(R"("pivotTables": [])"));
    EXPECT_THAT(listMessages(),
        ElementsAre(std::string("Pivot table P has no place ") + GetParam().reference + " on a sheet"));
}

INSTANTIATE_TEST_SUITE_P(Rows, PivotPlaces, testing::ValuesIn(PlaceRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(ChartsAndPivotsImport, OtherPartsAreNoPivotTables)
{
    addPivotTable("<root/>");
    import();
    EXPECT_THAT(listMessages(), ElementsAre("Part xl/pivot.xml is no pivot table"));
    builder = {};
    addPivotTable("<root");
    import();
    EXPECT_THAT(listMessages(), ElementsAre(HasSubstr("Part xl/pivot.xml is not well-formed XML")));
    EXPECT_THAT(json, HasSubstr(R"("pivotTables": [])"));
}

TEST_F(ChartsAndPivotsImport, SourcesOfPivotTablesAreLeftOut)
{
    builder.workbookHead = "<pivotCaches/>";
    import();
    EXPECT_THAT(run->getLeftOut(), ElementsAre("sources and fields of pivot tables"));
}

} // namespace
} // namespace QV::Filters
