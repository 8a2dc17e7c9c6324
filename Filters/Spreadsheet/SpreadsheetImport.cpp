#include <Filters/Spreadsheet/SpreadsheetImport.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <DOM/Public/Document.h>
#include <DOM/Public/Table.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/ChartReader.h>
#include <Filters/Package/Colors.h>
#include <Filters/Package/ContentTypes.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/MainPart.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/PackageError.h>
#include <Filters/Package/Relationships.h>
#include <Filters/Package/XmlParts.h>
#include <Filters/Spreadsheet/CellFormats.h>
#include <Filters/Spreadsheet/CellFormulas.h>
#include <Filters/Spreadsheet/ColumnWidths.h>
#include <Filters/Spreadsheet/DefinedNames.h>
#include <Filters/Spreadsheet/DrawingImport.h>
#include <Filters/Spreadsheet/FormulaNames.h>
#include <Filters/Spreadsheet/LeftOut.h>
#include <Filters/Spreadsheet/PivotReader.h>
#include <Filters/Spreadsheet/SharedStrings.h>
#include <Filters/Spreadsheet/SheetBuilder.h>
#include <Filters/Spreadsheet/SheetLinks.h>
#include <Filters/Spreadsheet/SheetNames.h>
#include <Filters/Spreadsheet/SheetReader.h>
#include <Filters/Spreadsheet/TableParts.h>
#include <Filters/Spreadsheet/Workbook.h>
#include <Formulas/Public/TableContext.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

constexpr const char* UsualFontName = "Calibri";
constexpr float UsualFontSize = 11;
constexpr std::size_t DocumentAddressBytesMax = 4096; // longer ones are left to "qvfilter links"
constexpr std::size_t DocumentsMax = 10000;           // whose parts are read

class SpreadsheetImporter
{
public:
    SpreadsheetImporter(Package& package, FilterRun& run)
        : _package(package)
        , _run(run)
    {
    }

    void import()
    {
        const MainPart mainPart = findWorkbook();
        _relationships =
            std::make_unique<Relationships>(Relationships::read(_package, mainPart.name, _run.getReport()));
        const XMLElement root = readXml(_package, mainPart.name, _run.getReport());
        if (!root.isValid())
            throw PackageError(PackageError::Kind::Damaged,
                "part \"" + makePrintable(mainPart.name) + "\" is not well-formed XML", mainPart.name);
        const Workbook workbook = readWorkbook(root, mainPart.dialect, _run);
        _run.getDocument().setDateSystem(workbook.dateSystem);
        readStyles(workbook.names);
        if (const Relationship* const strings = _relationships->findByType("sharedStrings"))
            _strings = readSharedStrings(_package, strings->target, _colors, _run);
        noteLeftOut();
        readDocuments(workbook.externalReferenceIds);

        const DOM::RunProps& font = *_formats.getDefaultFont();
        const int maxDigitWidth = getMaxDigitWidth(
            font.getFontName().value_or(UsualFontName), font.getFontSize().value_or(UsualFontSize));
        const WorkbookContext context{_formats, _strings, workbook.dateSystem, maxDigitWidth, _formulas};
        for (const SheetEntry& sheet : workbook.sheets)
            importSheet(sheet, context);
        readDefinedNames(workbook.definedNames, _tables, _formulas, _run);
        if (_formulas.hasTableColumns)
            _run.leaveOut(LeftOut::TableColumns);
        readDrawings();
        resolveFormulaNames(_run);
    }

private:
    MainPart findWorkbook()
    {
        const ContentTypes types = ContentTypes::read(_package, _run.getReport());
        const Relationships relationships = Relationships::read(_package, {}, _run.getReport());
        MainPart mainPart = findMainPart(_package, types, relationships);
        if (mainPart.kind != DocumentKind::Spreadsheet)
            throw PackageError(PackageError::Kind::Unsupported,
                mainPart.kind == DocumentKind::Text ? "a text document; only workbooks can be read"
                                                    : "a presentation; only workbooks can be read",
                mainPart.name);
        return mainPart;
    }

    void readStyles(const Names& names)
    {
        if (const Relationship* const theme = _relationships->findByType("theme"))
            _colors.readTheme(readXml(_package, theme->target, _run.getReport()), _run.getReport());
        if (const Relationship* const styles = _relationships->findByType("styles"))
            _formats.read(readXml(_package, styles->target, _run.getReport()), names, _colors, _run);
    }

    /// What else hangs on the workbook.
    void noteLeftOut()
    {
        for (const Relationship& relationship : _relationships->getAll()) {
            if (relationship.isType("externalLink"))
                for (const std::string& target : listTargets(relationship.target))
                    _run.addLink(target);
            else if (relationship.isType("pivotCacheDefinition"))
                _run.leaveOut(LeftOut::PivotSources);
            else if (relationship.isType("connections") || relationship.isType("xmlMaps"))
                _run.leaveOut(LeftOut::DataConnections);
            else if (relationship.type.find("vbaProject") != std::string::npos)
                _run.leaveOut(LeftOut::Macros);
        }
    }

    /// The documents that the part of an external link leads to.
    std::vector<std::string> listTargets(const std::string& part)
    {
        OperationReport unused; // that an external target is not followed is what the link says
        std::vector<std::string> targets;
        const Relationships relationships = Relationships::read(_package, part, unused);
        for (const Relationship& relationship : relationships.getAll())
            if (relationship.isExternal && !relationship.target.empty())
                targets.push_back(relationship.target);
        return targets;
    }

    void readDocuments(const std::vector<std::string>& relationshipIds)
    {
        for (const std::string& id : relationshipIds) {
            const Relationship* const link = _relationships->findById(id);
            std::vector<std::string> targets;
            if (link && !link->isExternal && _formulas.documents.size() < DocumentsMax)
                targets = listTargets(link->target);
            // Formulas take the address along at each reference.
            const bool isKnown = !targets.empty() && targets.front().size() <= DocumentAddressBytesMax;
            _formulas.documents.push_back(
                isKnown ? targets.front() : std::to_string(_formulas.documents.size() + 1));
            _formulas.longestAddress = std::max(_formulas.longestAddress, _formulas.documents.back().size());
        }
    }

    void importSheet(const SheetEntry& sheet, const WorkbookContext& context)
    {
        const Relationship* const relationship = _relationships->findById(sheet.relationshipId);
        if (relationship && !relationship->isType("worksheet")) {
            _run.leaveOut(LeftOut::AlternateSheets);
            _tables.push_back(nullptr);
            return;
        }
        auto table = std::make_unique<DOM::Table>();
        table->setName(_sheetNames.makeName(sheet.name, _run.getReport()));
        table->setVisible(sheet.isVisible);
        const bool isInside = relationship && !relationship->isExternal;
        if (isInside && _sheetParts.insert(relationship->target).second)
            readSheetPart(relationship->target, context, *table);
        else if (isInside) // else a small package would make a model of any size
            _run.getReport().emplace_back("Sheet {} has the part of an earlier sheet", sheet.name);
        else
            _run.getReport().emplace_back("Sheet {} has no part", sheet.name);
        _tables.push_back(table.get());
        _run.getDocument().getBlocks().append(std::move(table));
    }

    void readSheetPart(const std::string& part, const WorkbookContext& context, DOM::Table& table)
    {
        const SheetReferences references = readSheet(_package, part, context, _colors, table, _run);
        const Relationships relationships = Relationships::read(_package, part, _run.getReport());
        for (const Relationship& relationship : relationships.getAll()) {
            if (relationship.isType("comments"))
                _run.leaveOut(LeftOut::Comments);
            else if (relationship.isType("pivotTable") && !relationship.isExternal)
                addPivotTable(relationship.target, table);
        }
        applyLinks(references.links, relationships, table, _run);
        readTableParts(references.tableIds, relationships, table);
        if (references.drawingId.empty())
            return;
        const Relationship* const drawing = relationships.findById(references.drawingId);
        if (drawing && !drawing->isExternal)
            _drawings.emplace_back(drawing->target, &table);
        else
            _run.getReport().emplace_back(
                "Drawing {} of sheet {} is missing", references.drawingId, table.getName());
    }

    void readTableParts(
        const std::vector<std::string>& ids, const Relationships& relationships, DOM::Table& table)
    {
        for (const std::string& id : ids) {
            const Relationship* const part = relationships.findById(id);
            if (!part || part->isExternal)
                _run.getReport().emplace_back("Table {} of sheet {} is missing", id, table.getName());
            else if (_tableParts.insert(part->target).second)
                readTablePart(readXml(_package, part->target, _run.getReport()), table, _run.getReport());
        }
    }

    void addPivotTable(const std::string& part, DOM::Table& table)
    {
        if (auto pivotTable = readPivotTable(_package, part, _run))
            table.appendPivotTable(std::move(*pivotTable));
    }

    /// After all sheets, since charts refer to any of them.
    void readDrawings()
    {
        const Formulas::TableContext tables = Formulas::TableContext::makeFor(_run.getDocument());
        std::set<std::string> charts;
        const auto readOnce = [&](const std::string& part) -> std::unique_ptr<DOM::GraphicalObject> {
            if (charts.insert(part).second)
                return readChart(_package, part, &tables, _run, _formulas.documents);
            // Else a small package would make a model of any size.
            _run.getReport().emplace_back(
                "Chart {} is shown more than once, and read for the first time only", part);
            return nullptr;
        };
        DrawingImporter importer(_package, _run, _colors, readOnce);
        for (const auto& drawing : _drawings)
            importer.read(drawing.first, *drawing.second);
    }

    Package& _package;
    FilterRun& _run;
    std::unique_ptr<Relationships> _relationships; // of the workbook
    Colors _colors;
    CellFormats _formats;
    std::vector<DOM::CellTextStock> _strings;
    std::set<std::string> _sheetParts; // that were read
    std::set<std::string> _tableParts; // likewise
    SheetNames _sheetNames;
    FormulaContext _formulas;
    std::vector<const DOM::Table*> _tables;                     // of the sheets; null where a sheet is none
    std::vector<std::pair<std::string, DOM::Table*>> _drawings; // the parts, and where they lie
};

} // namespace

void importSpreadsheet(Package& package, FilterRun& run)
{
    SpreadsheetImporter(package, run).import();
}

} // namespace QV::Filters
