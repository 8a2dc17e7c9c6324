#pragma once

#include <memory>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/CellFormat.h>
#include <DOM/Public/CellProps.h>
#include <DOM/Public/Color.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/RunProps.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Colors.h>
#include <Filters/Package/Export.h>
#include <Filters/Spreadsheet/Borders.h>
#include <Filters/Spreadsheet/NumberFormats.h>

namespace QV {
class OperationReport;
}
namespace QV::Filters {
class FilterRun;
class Names;
} // namespace QV::Filters

namespace QV::Filters {

/// Reads the properties of a font: an element whose children are "b", "i", "sz", "color" and "name", or
/// "rFont" in its place. A property that cannot be read is reported and stays unset.
FILTERS_API std::shared_ptr<const DOM::RunProps> readFont(
    const FilterUtils::XMLElement& font, const Names& names, const Colors& colors, OperationReport& report);

/// All that a format says, with what it leaves unsaid as nothing: the colour of no filling, the alignment
/// that values have by themselves.
struct Format
{
    std::shared_ptr<const DOM::RunProps> font; ///< null where the format has none
    boost::optional<DOM::Color> fill;
    CellLines lines;
    boost::optional<DOM::HorizontalAlignment> horizontalAlignment;
    boost::optional<DOM::VerticalAlignment> verticalAlignment;
    bool isWrapping = false;
    std::shared_ptr<const DOM::CellFormat> numberFormat; ///< null where values are shown as they are
};

/// The lists of fonts, fillings, borders and number formats that the formats of a workbook refer to by
/// number.
class FILTERS_API FormatParts
{
public:
    /// Notes what it does not read to @p run. Everything given must live as long as this.
    FormatParts(
        const FilterUtils::XMLElement& styleSheet, const Names& names, const Colors& colors, FilterRun& run);

    /// Reads an "xf" element. A number beyond its list is reported, and leaves that part of the format
    /// unsaid.
    Format readFormat(const FilterUtils::XMLElement& xf) const;

    /// Reads a "dxf" element, which has its parts inside.
    Format readDifferentialFormat(const FilterUtils::XMLElement& dxf) const;

private:
    void readAlignment(const FilterUtils::XMLElement& format, Format& result) const;

    const Names& _names;
    const Colors& _colors;
    FilterRun& _run;
    std::vector<std::shared_ptr<const DOM::RunProps>> _fonts;
    std::vector<boost::optional<DOM::Color>> _fills;
    std::vector<CellLines> _borders;
    NumberFormats _numberFormats;
};

} // namespace QV::Filters
