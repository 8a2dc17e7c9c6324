#include <Filters/DocumentImport.h>

#include <Filters/Package/ContentTypes.h>
#include <Filters/Package/Relationships.h>
#include <Filters/Presentation/PresentationImport.h>
#include <Filters/Spreadsheet/SpreadsheetImport.h>
#include <Filters/Text/TextImport.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {

DocumentKind importDocument(Package& package, FilterRun& run)
{
    OperationReport unheard; // the importers read these parts again, and report what is wrong with them
    const MainPart mainPart = findMainPart(
        package, ContentTypes::read(package, unheard), Relationships::read(package, {}, unheard));
    switch (mainPart.kind) {
    case DocumentKind::Spreadsheet:
        importSpreadsheet(package, run);
        break;
    case DocumentKind::Text:
        importText(package, run);
        break;
    case DocumentKind::Presentation:
        importPresentation(package, run);
        break;
    }
    return mainPart.kind;
}

} // namespace QV::Filters
