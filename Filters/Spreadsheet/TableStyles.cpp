#include <Filters/Spreadsheet/TableStyles.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <DOM/Public/Document.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/TableStyle.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Spreadsheet/LeftOut.h>
#include <Filters/Spreadsheet/NamedCellStyles.h>
#include <Utils/Public/NumberText.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {

using FilterUtils::XMLElement;

void readTableStyles(
    const XMLElement& styleSheet, const Names& names, const FormatParts& parts, FilterRun& run)
{
    const auto named = [&](const char* name) { return names(Vocabulary::Spreadsheet, name); };
    std::vector<XMLElement> formats;
    styleSheet.getElement(named("dxfs")).processElements(named("dxf"), [&](const XMLElement& format) {
        formats.push_back(format);
    });
    const auto readWholeTable = [&](const XMLElement& element, DOM::NamedTableStyle& style) {
        const std::string text = element.getAttributeValue("dxfId").value_or(std::string());
        std::size_t position = 0;
        const auto index = strToUlong(text, &position, 10);
        if (!index || position != text.size() || *index >= formats.size()) {
            run.getReport().emplace_back("Table style {} has an unknown format {}", style.getName(), text);
            return;
        }
        const Format format = parts.readDifferentialFormat(formats[*index]);
        style.setCellProps(makeCellProps(format));
        style.setParaProps(makeParaProps(format));
        style.setRunProps(format.font);
    };

    styleSheet.getElement(named("tableStyles"))
        .processElements(named("tableStyle"), [&](const XMLElement& element) {
            DOM::NamedTableStyle style;
            style.setName(element.getAttributeValue("name").value_or(std::string()));
            element.processElements(named("tableStyleElement"), [&](const XMLElement& part) {
                if (part.getAttributeValue("type").value_or("") == "wholeTable")
                    readWholeTable(part, style);
                else
                    run.leaveOut(LeftOut::TableStyleParts);
            });
            const UUID uuid = style.getUUID();
            run.getDocument().getStyles().getTableStyles().emplace(uuid, std::move(style));
        });
}

} // namespace QV::Filters
