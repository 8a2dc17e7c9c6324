#pragma once

#include <string>
#include <vector>

#include <DOM/Public/DateSystem.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Spreadsheet/IsoDates.h>

namespace QV::Filters {

class FilterRun;

/// One sheet as the workbook part lists it.
struct SheetEntry
{
    std::string name;
    std::string relationshipId;
    bool isVisible;
};

/// A defined name as the workbook part lists it.
struct NameEntry
{
    std::string name;
    std::string text;        ///< of its formula
    std::string sheetNumber; ///< from 0; empty where the name is that of the whole workbook
    bool isVisible;
};

/// What the workbook part says.
struct Workbook
{
    std::vector<SheetEntry> sheets;                ///< in their order
    std::vector<std::string> externalReferenceIds; ///< of relationships; formulas number them from 1
    std::vector<NameEntry> definedNames;
    DateSystem dateSystem = DateSystem::From1900;
    Names names = Names(Dialect::Transitional); ///< of this part, and so of the others
};

/// Reads the workbook part's root element.
/// @param dialect what the package says; the part's own namespaces win
FILTERS_API Workbook readWorkbook(const FilterUtils::XMLElement& root, Dialect dialect, FilterRun& run);

} // namespace QV::Filters
