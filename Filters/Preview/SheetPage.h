#pragma once

#include <string>
#include <unordered_map>

#include <DOM/Public/Table.h>
#include <Filters/Package/CellDisplays.h>
#include <Filters/Preview/CellLook.h>
#include <Filters/Preview/SpreadsheetPreview.h>
#include <Filters/Preview/StyleSheet.h>

namespace QV::DOM {
class Hyperlink;
class Styles;
} // namespace QV::DOM

namespace QV::Filters {

class FilterRun;

/// What the sheets of one page share.
struct PageContext
{
    FilterRun& run;
    const PreviewLimits& limits;
    StyleSheet& styles;
    CellLooks& looks;
    CellDisplays& displays;
    const std::unordered_map<std::string, std::string>& sheetIds; ///< the elements' ids, by the sheets' names
};

/// Appends a sheet's section, whose id is @p id, to a page.
void writeSheet(
    const DOM::Table& table, const std::string& id, const PageContext& context, std::string& page);

/// Where a link of the document leads to in the page or outside; empty where it must not lead anywhere.
std::string makeLinkTarget(const DOM::Hyperlink& link, const PageContext& context);

} // namespace QV::Filters
