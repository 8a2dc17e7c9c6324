#include <Filters/Spreadsheet/Workbook.h>

#include <utility>

#include <boost/optional.hpp>

#include <Filters/Package/FilterRun.h>
#include <Filters/Spreadsheet/LeftOut.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

constexpr Dialect Dialects[] = {Dialect::Transitional, Dialect::Strict};

/// A root element does not tell its name, but a workbook has sheets in its own namespace.
Dialect findDialect(const XMLElement& root, Dialect expected)
{
    for (const Dialect dialect : Dialects)
        if (root.getElement(Names(dialect)(Vocabulary::Spreadsheet, "sheets")).isValid())
            return dialect;
    return expected;
}

/// Some writers mix the two dialects in one part.
std::string readRelationshipId(const XMLElement& element)
{
    for (const Dialect dialect : Dialects)
        if (const auto id = element.getAttributeValue(Names(dialect)(Vocabulary::Relationships, "id")))
            return *id;
    return {};
}

bool isTrue(const boost::optional<std::string>& text)
{
    return text && (*text == FilterUtils::XSDTrueValue || *text == "true");
}

void noteLeftOut(const XMLElement& root, const Names& names, FilterRun& run)
{
    const std::pair<const char*, const char*> parts[] = {
        {"pivotCaches",        LeftOut::PivotSources},
        {"workbookProtection", LeftOut::Protection  },
    };
    for (const auto& part : parts)
        if (root.getElement(names(Vocabulary::Spreadsheet, part.first)).isValid())
            run.leaveOut(part.second);
}

} // namespace

Workbook readWorkbook(const XMLElement& root, Dialect dialect, FilterRun& run)
{
    Workbook workbook;
    workbook.names = Names(findDialect(root, dialect));
    const auto named = [&](const char* name) { return workbook.names(Vocabulary::Spreadsheet, name); };
    if (isTrue(root.getElement(named("workbookPr")).getAttributeValue("date1904")))
        workbook.dateSystem = DateSystem::From1904;

    root.getElement(named("sheets")).processElements(named("sheet"), [&](const XMLElement& sheet) {
        const std::string name = sheet.getAttributeValue("name").value_or(std::string());
        const std::string state = sheet.getAttributeValue("state").value_or("visible");
        const bool isHidden = state == "hidden" || state == "veryHidden";
        if (!isHidden && state != "visible")
            run.getReport().emplace_back("Sheet {} has an unknown state {}", name, state);
        workbook.sheets.push_back({name, readRelationshipId(sheet), !isHidden});
    });
    root.getElement(named("externalReferences"))
        .processElements(named("externalReference"), [&](const XMLElement& reference) {
            workbook.externalReferenceIds.push_back(readRelationshipId(reference));
        });
    root.getElement(named("definedNames")).processElements(named("definedName"), [&](const XMLElement& name) {
        const auto read = [&](const char* attribute) {
            return name.getAttributeValue(attribute).value_or(std::string());
        };
        workbook.definedNames.push_back({read("name"), name.getText().value_or(std::string()),
            read("localSheetId"), !isTrue(name.getAttributeValue("hidden"))});
    });
    noteLeftOut(root, workbook.names, run);
    return workbook;
}

} // namespace QV::Filters
