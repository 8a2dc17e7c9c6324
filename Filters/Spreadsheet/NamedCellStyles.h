#pragma once

#include <memory>
#include <string>
#include <unordered_map>

#include <DOM/Public/CellProps.h>
#include <DOM/Public/CellStyle.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/RunProps.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Spreadsheet/Borders.h>
#include <Filters/Spreadsheet/FormatParts.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {
class NamedTableStyle;
class Styles;
} // namespace QV::DOM

namespace QV::Filters {

class FilterRun;
class Names;

/// The named styles of a workbook's cells, which become named table styles of its document. None of them
/// derives from another one: the format has no such thing.
class NamedCellStyles
{
public:
    void read(const FilterUtils::XMLElement& styleSheet, const Names& names, const FormatParts& parts,
        FilterRun& run);

    /// The style that a cell's format derives from; null for the workbook's normal one, and where the format
    /// names none.
    const DOM::NamedTableStyle* findParent(const FilterUtils::XMLElement& cellFormat) const;

private:
    const DOM::Styles* _styles = nullptr;
    std::unordered_map<std::string, UUID> _parents; // by the number of their formats, as it is written
};

/// What a style of all that @p format says sets; nothing where it says nothing.
std::shared_ptr<const DOM::CellProps> makeCellProps(const Format& format);
std::shared_ptr<const DOM::ParaProps> makeParaProps(const Format& format);

/// Makes what a cell's own format says out of a format and its parent, such that laid over the parent it
/// comes to the whole format: where the parent sets something that the format does not have, it says so.
/// @param defaultFont need not be said; may be null
DOM::CellStyle makeOwnStyle(const Format& format, const DOM::NamedTableStyle& parent,
    const std::shared_ptr<const DOM::RunProps>& defaultFont);

} // namespace QV::Filters
