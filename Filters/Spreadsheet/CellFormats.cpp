#include <Filters/Spreadsheet/CellFormats.h>

#include <boost/optional.hpp>

#include <DOM/Public/Document.h>
#include <DOM/Public/SharedObjectFactory.h>
#include <DOM/Public/TableStyle.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Spreadsheet/FormatParts.h>
#include <Filters/Spreadsheet/NamedCellStyles.h>
#include <Filters/Spreadsheet/TableStyles.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;
using Font = std::shared_ptr<const DOM::RunProps>;

/// The style of cells with a format of the table of cell formats. Applications write each of its entries
/// complete, so its own numbers hold, whatever its flags say and its parent sets.
DOM::CellStyle makeStyle(const Format& format, const DOM::NamedTableStyle* parent, const Font& defaultFont)
{
    if (parent)
        return makeOwnStyle(format, *parent, defaultFont);
    DOM::CellStyle style;
    style.setCellProps(makeCellProps(format));
    style.setParaProps(makeParaProps(format));
    if (format.font != defaultFont)
        style.setRunProps(format.font);
    return style;
}

} // namespace

void CellFormats::read(const XMLElement& styleSheet, const Names& names, Colors& colors, FilterRun& run)
{
    const auto named = [&](const char* name) { return names(Vocabulary::Spreadsheet, name); };
    colors.readPalette(styleSheet.getElement(named("colors")), names, run.getReport());
    const FormatParts parts(styleSheet, names, colors, run);
    NamedCellStyles namedStyles;
    namedStyles.read(styleSheet, names, parts, run);
    readTableStyles(styleSheet, names, parts, run);

    DOM::SharedObjectFactory& factory = run.getDocument().getSharedObjectFactory();
    Font defaultFont; // null where the first format has none
    styleSheet.getElement(named("cellXfs")).processElements(named("xf"), [&](const XMLElement& element) {
        const Format format = parts.readFormat(element);
        if (_styles.empty() && format.font) {
            defaultFont = format.font;
            _defaultFont = format.font;
        }
        const DOM::CellStyle style = makeStyle(format, namedStyles.findParent(element), defaultFont);
        _styles.push_back(style.isEmpty() ? nullptr : factory.getShared(style));
    });
}

} // namespace QV::Filters
