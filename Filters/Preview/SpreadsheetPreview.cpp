#include <Filters/Preview/SpreadsheetPreview.h>

#include <ostream>
#include <unordered_map>
#include <vector>

#include <fmt/format.h>

#include <DOM/Public/Document.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/Table.h>
#include <Filters/Package/CellDisplays.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Preview/CellLook.h>
#include <Filters/Preview/HtmlText.h>
#include <Filters/Preview/SheetPage.h>
#include <Filters/Preview/StyleSheet.h>

namespace QV::Filters {
namespace {

// What all pages share. A cell's text lies over the cell, so that it cannot change the sizes of rows and
// columns; so do its lines. Where a browser does not know ":has", all sheets are seen below each other.
constexpr const char* PageCss = R"(
body{margin:0;font:11pt Calibri,Carlito,"Liberation Sans",sans-serif;color:#000;background:#fff}
nav{position:sticky;top:0;left:0;z-index:3;background:#f3f3f3;border-bottom:1px solid #999;padding:4px;font-size:10pt}
nav a{display:inline-block;padding:3px 10px;color:#000;text-decoration:none;border:1px solid transparent}
nav a:hover,nav a:focus{border-color:#1a66cc}
nav .hidden{font-style:italic;color:#555}
h2{position:absolute;width:1px;height:1px;overflow:hidden;clip-path:inset(50%)}
.sheet{position:relative;width:max-content;min-height:100vh}
table{table-layout:fixed;border-collapse:separate;border-spacing:0}
th{position:relative;padding:0;background:#f3f3f3;box-shadow:inset -1px -1px #bbb}
th>b{position:absolute;inset:0;display:flex;align-items:center;justify-content:center;overflow:hidden;font-size:9pt;
font-weight:normal;color:#333}
td{position:relative;padding:0;white-space:pre;box-shadow:inset -1px -1px #e2e2e2}
td>i{position:absolute;inset:0;box-sizing:border-box;pointer-events:none}
td>svg{position:absolute;inset:0;width:100%;height:100%;pointer-events:none}
td>div{position:absolute;inset:0;box-sizing:border-box;padding:0 2px;overflow:hidden;display:flex;
flex-direction:column;justify-content:inherit;line-height:1.2}
td{justify-content:flex-end}
td p{margin:0;min-width:0}
td a{color:inherit}
.frame{position:absolute;box-sizing:border-box;overflow:hidden}
.frame>img,.frame>svg{display:block;width:100%;height:100%}
.shape{display:flex;flex-direction:column;justify-content:center;text-align:center;white-space:pre-wrap}
.note{margin:8px;color:#555}
)";

struct SheetTab
{
    const DOM::Table* table;
    std::string id;
};

/// The visible sheets, then the hidden ones.
std::vector<SheetTab> listSheets(const DOM::Document& document)
{
    std::vector<SheetTab> tabs;
    for (const bool isVisible : {true, false})
        for (const DOM::Block& block : document.getBlocks()) {
            const auto* const table = dynamic_cast<const DOM::Table*>(&block);
            if (table && table->isVisible() == isVisible)
                tabs.push_back({table, fmt::format("s{}", tabs.size() + 1)});
        }
    return tabs;
}

std::string makeTabs(const std::vector<SheetTab>& tabs)
{
    std::string html = "<nav aria-label=\"Sheets\">";
    for (const SheetTab& tab : tabs)
        html += fmt::format("<a href=\"#{}\"{}>{}</a>", tab.id,
            tab.table->isVisible() ? "" : " class=\"hidden\"", escapeHtml(tab.table->getName()));
    return html + "</nav>\n";
}

/// The sheet that a link leads to is shown, and the first one where none does.
std::string makeTabsCss(const std::vector<SheetTab>& tabs)
{
    std::string css = "@supports selector(:has(*)){section{display:none}section:target{display:block}\n";
    if (!tabs.empty())
        css += "body:not(:has(section:target)) #" + tabs.front().id + "{display:block}\n";
    for (const SheetTab& tab : tabs) {
        css += fmt::format("body:has(#{0}:target) nav a[href=\"#{0}\"]", tab.id);
        if (&tab == &tabs.front())
            css += fmt::format(",body:not(:has(section:target)) nav a[href=\"#{}\"]", tab.id);
        css += "{background:#fff;border-color:#999}\n";
    }
    return css + "}\n";
}

} // namespace

void writeSpreadsheetPreview(
    FilterRun& run, const std::string& title, std::ostream& out, const PreviewLimits& limits)
{
    const std::vector<SheetTab> tabs = listSheets(run.getDocument());
    std::unordered_map<std::string, std::string> ids;
    for (const SheetTab& tab : tabs)
        ids.emplace(tab.table->getName(), tab.id);
    StyleSheet styles;
    CellLooks looks(run.getDocument().getStyles());
    CellDisplays displays(run.getDocument());
    const PageContext context{run, limits, styles, looks, displays, ids};
    std::string body;
    for (const SheetTab& tab : tabs)
        writeSheet(*tab.table, tab.id, context, body);
    if (tabs.empty())
        body = "<p class=\"note\">There are no sheets with cells here.</p>\n";

    out << makePageHead(title) << PageCss << makeTabsCss(tabs);
    for (const std::string& rule : styles.getRules())
        out << rule << '\n';
    out << "</style></head>\n<body>\n" << makeTabs(tabs) << body << "</body></html>\n";
}

} // namespace QV::Filters
