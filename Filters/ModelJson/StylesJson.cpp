#include <Filters/ModelJson/StylesJson.h>

#include <algorithm>
#include <tuple>
#include <vector>

#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/PredefinedTextStyles.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/TableStyle.h>
#include <Filters/ModelJson/JsonWriter.h>
#include <Filters/ModelJson/TextJsonState.h>
#include <Filters/Package/Utf8Cut.h>
#include <Utils/Public/UUID.h>

namespace QV::Filters {
namespace {

/// The members of one style.
struct NamedStyleEntry
{
    const char* type;
    unsigned typeOrder;
    std::string name;
    std::string parent;
};

std::string shortenStyleName(std::string name)
{
    cutUtf8(name, TextJsonState::NameBytesMax);
    return name;
}

std::string findTableStyleName(const DOM::Styles& styles, const UUID& uuid)
{
    const auto found = styles.getTableStyles().find(uuid);
    return found == styles.getTableStyles().end() ? std::string() : found->second.getName();
}

std::vector<NamedStyleEntry> gatherNamedStyles(const DOM::Styles& styles)
{
    std::vector<NamedStyleEntry> entries;
    for (const DOM::NamedTextStyle& style : styles.getTextStyles()) {
        const bool isOfParagraphs = style.getKind() == DOM::NamedTextStyle::Kind::Paragraph;
        entries.push_back({isOfParagraphs ? "paragraph" : "character", isOfParagraphs ? 0U : 1U,
            shortenStyleName(DOM::getStyleNameText(style)),
            shortenStyleName(findTextStyleName(styles, style.getParentUUID()))});
    }
    for (const auto& style : styles.getTableStyles())
        entries.push_back({"table", 2U, shortenStyleName(style.second.getName()),
            shortenStyleName(findTableStyleName(styles, style.second.getParentUUID()))});
    return entries;
}

} // namespace

std::string findTextStyleName(const DOM::Styles& styles, const UUID& uuid)
{
    const DOM::NamedTextStyle* const style = styles.getTextStyles().find(uuid);
    return style ? DOM::getStyleNameText(*style) : std::string();
}

void writeStylesJson(const DOM::Styles& styles, JsonWriter& json)
{
    // Their own order is that of identifiers, which differ from run to run.
    std::vector<NamedStyleEntry> entries = gatherNamedStyles(styles);
    std::sort(entries.begin(), entries.end(), [](const NamedStyleEntry& a, const NamedStyleEntry& b) {
        return std::tie(a.typeOrder, a.name, a.parent) < std::tie(b.typeOrder, b.name, b.parent);
    });
    json.beginArray();
    for (const NamedStyleEntry& entry : entries) {
        json.beginObject();
        json.writeMember("name", entry.name);
        json.writeMember("type", entry.type);
        if (!entry.parent.empty())
            json.writeMember("parent", entry.parent);
        json.endObject();
    }
    json.endArray();
}

} // namespace QV::Filters
