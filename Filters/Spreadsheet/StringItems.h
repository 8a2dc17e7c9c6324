#pragma once

#include <memory>
#include <string>

#include <DOM/Public/CellText.h>
#include <DOM/Public/RunProps.h>
#include <FilterUtils/FU_XMLStreamReader.h>
#include <Filters/Spreadsheet/RichText.h>

namespace QV::Filters {

class Colors;
class FilterRun;

/// Reads string items, shared or within cells, out of a stream: the handler of the stream hands on what is
/// inside.
class StringItems
{
public:
    StringItems(const Colors& colors, FilterRun& run);

    void startItem();
    FilterUtils::XMLStep onStart(const FilterUtils::XMLStreamStart& element);
    void onEnd(const FilterUtils::XMLStreamEnd& element);
    void onTree(const FilterUtils::XMLStreamElement& element, const FilterUtils::XMLElement& tree);

    /// The text of the item. Reports more text than applications show in a cell.
    DOM::SharedCellText endItem();

private:
    const Colors& _colors;
    FilterRun& _run;
    RichText _richText;
    std::shared_ptr<const DOM::RunProps> _font; // of the run that is open; null outside of runs
    std::string _piece;
};

} // namespace QV::Filters
