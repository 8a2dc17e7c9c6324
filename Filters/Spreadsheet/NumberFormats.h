#pragma once

#include <memory>
#include <unordered_map>

#include <DOM/Public/CellFormat.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

class Names;

/// The number formats of a workbook: its own, and those that every workbook has (ECMA-376-1, 18.8.30).
class FILTERS_API NumberFormats
{
public:
    /// Reads the formats of a styles part. One whose code is not valid is reported, and kept for its code.
    NumberFormats(const FilterUtils::XMLElement& styleSheet, const Names& names, OperationReport& report);

    /// The format that an "xf" element names; null for the general one. A number beyond those that
    /// applications know by themselves, and that the workbook does not define, is reported.
    std::shared_ptr<const DOM::CellFormat> find(
        const FilterUtils::XMLElement& xf, OperationReport& report) const;

private:
    std::unordered_map<unsigned long, std::shared_ptr<const DOM::CellFormat>> _formats;
};

/// The format of a "numFmt" element; null where there is no element, or it is the general one.
std::shared_ptr<const DOM::CellFormat> makeNumberFormat(
    const FilterUtils::XMLElement& numberFormat, OperationReport& report);

/// The general format, for what must say it to keep another one away.
const std::shared_ptr<const DOM::CellFormat>& getGeneralFormat();

} // namespace QV::Filters
