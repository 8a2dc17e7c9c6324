#include <Filters/Text/TableStyleReader.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>

#include <boost/optional.hpp>

#include <DOM/Public/CellProps.h>
#include <DOM/Public/Properties.h>
#include <Filters/Text/FormatReader.h>
#include <Filters/Text/FormatValues.h>
#include <Filters/Text/TableFormats.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

// ECMA-376 Part 1, 17.18.89.
constexpr FormatName<TablePart> TablePartNames[] = {
    {"wholeTable", TablePart::WholeTable   },
    {"band1Vert",  TablePart::OddColumns   },
    {"band2Vert",  TablePart::EvenColumns  },
    {"band1Horz",  TablePart::OddRows      },
    {"band2Horz",  TablePart::EvenRows     },
    {"firstRow",   TablePart::FirstRow     },
    {"lastRow",    TablePart::LastRow      },
    {"firstCol",   TablePart::FirstColumn  },
    {"lastCol",    TablePart::LastColumn   },
    {"nwCell",     TablePart::NorthWestCell},
    {"neCell",     TablePart::NorthEastCell},
    {"swCell",     TablePart::SouthWestCell},
    {"seCell",     TablePart::SouthEastCell},
};

/// Objects are shared, so the one below stays as it is.
template <typename Props>
void layOver(std::shared_ptr<const Props>& below, const std::shared_ptr<const Props>& above)
{
    if (!above)
        return;
    if (!below) {
        below = above;
        return;
    }
    auto both = std::make_shared<Props>(*below);
    override(*both, *above);
    below = std::move(both);
}

void readStripe(const FormatValues& values, const FormatText& text, unsigned long& stripe)
{
    constexpr long MaxStripe = 32767;
    if (const auto count = values.readWhole(text, 0, MaxStripe))
        stripe = static_cast<unsigned long>(*count);
}

} // namespace

TablePartFormat readTablePart(const XMLElement& element, const FormatReader& formats)
{
    const FormatValues& values = formats.getValues();
    TablePartFormat format;
    format.cellProps = readTableFormat(values.find(element, "tblPr"), values);
    layOver(format.cellProps, readCellFormat(values.find(element, "tcPr"), values));
    format.paraProps = formats.readPara(values.find(element, "pPr")).props;
    format.runProps = formats.readRun(values.find(element, "rPr")).props;
    return format;
}

void readTableConditions(const XMLElement& style, const FormatReader& formats, TableConditions& conditions)
{
    const FormatValues& values = formats.getValues();
    const XMLElement tableProps = values.find(style, "tblPr");
    readStripe(values, values.value(tableProps, "tblStyleRowBandSize"), conditions.rowStripe);
    readStripe(values, values.value(tableProps, "tblStyleColBandSize"), conditions.columnStripe);
    values.processElements(style, "tblStylePr", [&](const XMLElement& element) {
        const auto part =
            values.readName(TablePartNames, {values.attribute(element, "type").text, "tblStylePr"});
        if (!part)
            return;
        TablePartFormat& format = conditions.parts.at(static_cast<std::size_t>(*part));
        const TablePartFormat above = readTablePart(element, formats);
        layOver(format.cellProps, above.cellProps);
        layOver(format.paraProps, above.paraProps);
        layOver(format.runProps, above.runProps);
    });
}

bool hasConditions(const TableConditions& conditions)
{
    return std::any_of(conditions.parts.begin(), conditions.parts.end(),
        [](const TablePartFormat& part) { return part.cellProps || part.paraProps || part.runProps; });
}

} // namespace QV::Filters
