#pragma once

#include <string>
#include <utility>
#include <vector>

#include <Tests/Support/OoxmlBuilder.h>

namespace QV::Tests {

inline const std::string SheetNamespace = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";

/// A workbook in the making: one sheet named "One", and whatever parts a test adds or replaces.
class WorkbookBuilder
{
public:
    /// What stands inside of the worksheet element.
    std::string sheet = "<sheetData/>";
    /// What stands inside of the styleSheet element; empty: there is no such part.
    std::string styles;
    /// What stands inside of the sst element; empty: there is no such part.
    std::string strings;
    /// What stands before and inside of the sheets element.
    std::string workbookHead;
    std::string sheetEntries = "<sheet name=\"One\" sheetId=\"1\" r:id=\"s1\"/>";
    /// Relationship elements of the workbook and of the sheet, beside those of the parts above.
    std::string workbookRelationships;
    std::string sheetRelationships;
    std::vector<ZipItem> items;

    std::string make() const
    {
        const std::string declarations = " xmlns=\"" + SheetNamespace +
                                         "\" xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/"
                                         "relationships\"";
        std::string relationships =
            workbookRelationships + makeRelationship("s1", TransitionalTypes + "worksheet", "sheet1.xml");
        std::vector<ZipItem> all = items;
        all.push_back(makeContentTypes(makeOverride("/xl/workbook.xml", WorkbookType)));
        all.push_back(makeRelationships(
            "_rels/.rels", makeRelationship("w", TransitionalTypes + "officeDocument", "xl/workbook.xml")));
        all.push_back({"xl/workbook.xml", "<workbook" + declarations + ">" + workbookHead + "<sheets>" +
                                              sheetEntries + "</sheets></workbook>"});
        all.push_back({"xl/sheet1.xml", "<worksheet" + declarations + ">" + sheet + "</worksheet>"});
        if (!styles.empty()) {
            relationships += makeRelationship("st", TransitionalTypes + "styles", "styles.xml");
            all.push_back({"xl/styles.xml", "<styleSheet" + declarations + ">" + styles + "</styleSheet>"});
        }
        if (!strings.empty()) {
            relationships += makeRelationship("ss", TransitionalTypes + "sharedStrings", "strings.xml");
            all.push_back({"xl/strings.xml", "<sst" + declarations + ">" + strings + "</sst>"});
        }
        all.push_back(makeRelationships("xl/_rels/workbook.xml.rels", relationships));
        if (!sheetRelationships.empty())
            all.push_back(makeRelationships("xl/_rels/sheet1.xml.rels", sheetRelationships));
        return makeZip(all);
    }
};

} // namespace QV::Tests
