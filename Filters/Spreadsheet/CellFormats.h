#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include <DOM/Public/CellStyle.h>
#include <DOM/Public/RunProps.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Colors.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {
class FilterRun;
class Names;
} // namespace QV::Filters

namespace QV::Filters {

/// The cell formats of a workbook, by the number under which cells name them.
class FILTERS_API CellFormats
{
public:
    /// Takes the formats of a styles part's root element, its palette into @p colors, and its named styles
    /// into the document of @p run. Notes what it does not read to @p run.
    void read(const FilterUtils::XMLElement& styleSheet, const Names& names, Colors& colors, FilterRun& run);

    std::size_t getCount() const { return _styles.size(); }
    /// The style of a format; null for one that sets nothing over the workbook's default font.
    const DOM::SharedCellStyle& getStyle(std::size_t format) const { return _styles[format]; }

    /// The style of cells that keep the formats of their row and column away, and set nothing; never null.
    const DOM::SharedCellStyle& getPlainStyle() const { return _plainStyle; }

    /// The font of cells without a format of their own; never null, its properties may be unset.
    const std::shared_ptr<const DOM::RunProps>& getDefaultFont() const { return _defaultFont; }

private:
    std::vector<DOM::SharedCellStyle> _styles;
    DOM::SharedCellStyle _plainStyle = DOM::SharedCellStyle(new DOM::CellStyle());
    std::shared_ptr<const DOM::RunProps> _defaultFont = std::make_shared<DOM::RunProps>();
};

} // namespace QV::Filters
