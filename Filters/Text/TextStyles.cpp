#include <Filters/Text/TextStyles.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>
#include <utility>

#include <boost/none.hpp>
#include <boost/optional.hpp>
#include <boost/variant.hpp>

#include <DOM/Public/ParaProps.h>
#include <DOM/Public/PredefinedTextStyles.h>
#include <DOM/Public/TableStyle.h>
#include <Filters/Package/MessageCounts.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Package/Utf8Cut.h>
#include <Filters/Text/FormatReader.h>
#include <Filters/Text/FormatValues.h>
#include <Filters/Text/StyleParents.h>
#include <Filters/Text/TableStyleReader.h>
#include <Filters/Text/TextNumbering.h>
#include <Utils/Public/CaseInsensitiveLess.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;
using PredefinedNames = boost::container::map<std::string, DOM::PredefinedStyleName, CaseInsensitiveLess>;

constexpr std::size_t MaxStyles = 20'000;
constexpr std::size_t MaxStyleNameBytes = 1024;

enum class StyleType
{
    Paragraph,
    Character,
    Table,
    Numbering,
};

// ECMA-376 Part 1, 17.18.83.
constexpr FormatName<StyleType> StyleTypes[] = {
    {"paragraph", StyleType::Paragraph},
    {"character", StyleType::Character},
    {"table",     StyleType::Table    },
    {"numbering", StyleType::Numbering},
};

/// A style of the part.
struct StyleEntry
{
    XMLElement element;
    StyleType type;
    std::string id; // empty where it has none
    std::string parentId;
    UUID uuid; // of the model's style; nil for a style of lists
};

const PredefinedNames& getPredefinedStyleNames()
{
    static const PredefinedNames names = [] {
        PredefinedNames result;
        for (unsigned i = 0; i <= static_cast<unsigned>(DOM::PredefinedStyleName::Emphasis); ++i) {
            const auto name = static_cast<DOM::PredefinedStyleName>(i);
            result.emplace(DOM::getPredefinedStyleText(name), name);
        }
        return result;
    }();
    return names;
}

/// What keeps apart styles that may have the same id: styles refer to those of their own family alone.
StyleType getStyleFamily(StyleType type)
{
    return type == StyleType::Character ? StyleType::Paragraph : type;
}

/// Reads one styles part.
class StylesPartReader
{
public:
    StylesPartReader(
        const FormatReader& formats, TextNumbering& numbering, TextStyles& styles, OperationReport& report)
        : _formats(formats)
        , _values(formats.getValues())
        , _numbering(numbering)
        , _styles(styles)
        , _report(report)
    {
    }

    void read(const XMLElement& root)
    {
        readDefaults(_values.find(root, "docDefaults"));
        gatherStyles(root);
        for (StyleEntry& entry : _entries)
            makeStyle(entry);
        setParents();
        for (std::size_t i = 0; i < _entries.size(); ++i)
            if (_entries[i].type == StyleType::Table)
                getConditions(i);
        storeConditions();
        _messages.finish(_report);
    }

private:
    template <typename... Arguments>
    void tell(const char* pattern, const Arguments&... arguments)
    {
        if (_messages.add(pattern))
            _report.emplace_back(pattern, arguments...);
    }

    void readDefaults(const XMLElement& defaults)
    {
        const XMLElement run = _values.find(_values.find(defaults, "rPrDefault"), "rPr");
        const XMLElement paragraph = _values.find(_values.find(defaults, "pPrDefault"), "pPr");
        _styles.factory.setDefaultRunProps(_formats.readRun(run).props);
        _styles.factory.setDefaultParaProps(_formats.readPara(paragraph).props);
    }

    void gatherStyles(const XMLElement& root)
    {
        std::vector<StyleEntry> all;
        std::size_t count = 0;
        _values.processElements(root, "style", [&](const XMLElement& style) {
            if (++count <= MaxStyles)
                addEntry(style, all);
        });
        if (count > MaxStyles)
            tell("Styles beyond {} are left out", std::to_string(MaxStyles));

        // Of several with one id the last one stays.
        std::set<std::pair<StyleType, std::string>> known;
        for (auto entry = all.rbegin(); entry != all.rend(); ++entry)
            if (entry->id.empty() || known.emplace(getStyleFamily(entry->type), entry->id).second)
                _entries.insert(_entries.end(), std::move(*entry));
            else
                tell("Style {} is defined more than once", entry->id);
        std::reverse(_entries.begin(), _entries.end());
        for (std::size_t i = 0; i < _entries.size(); ++i)
            if (!_entries[i].id.empty())
                _places.emplace(std::make_pair(getStyleFamily(_entries[i].type), _entries[i].id), i);
    }

    void addEntry(const XMLElement& style, std::vector<StyleEntry>& entries) const
    {
        FormatText type = _values.attribute(style, "type");
        if (!type.text)
            type.text = "paragraph"; // 17.7.4.17
        const auto known = _values.readName(StyleTypes, type);
        if (!known)
            return;
        StyleEntry entry;
        entry.element = style;
        entry.type = *known;
        entry.id = _values.attribute(style, "styleId").text.value_or("");
        entry.parentId = _values.value(style, "basedOn").text.value_or("");
        entries.push_back(std::move(entry));
    }

    std::string readName(const StyleEntry& entry)
    {
        std::string name = _values.value(entry.element, "name").text.value_or(entry.id);
        if (cutUtf8(name, MaxStyleNameBytes))
            tell("Name of a style is cut at {} bytes", std::to_string(MaxStyleNameBytes));
        return name;
    }

    void makeStyle(StyleEntry& entry)
    {
        if (entry.type == StyleType::Numbering)
            noteListStyle(entry);
        else if (entry.type == StyleType::Table)
            makeTableStyle(entry);
        else
            makeTextStyle(entry);
    }

    void noteListStyle(const StyleEntry& entry)
    {
        const auto format = _formats.readPara(_values.find(entry.element, "pPr"));
        if (format.numbering && format.numbering->id && !entry.id.empty())
            _numbering.noteListStyle(entry.id, *format.numbering->id);
    }

    void makeTextStyle(StyleEntry& entry)
    {
        std::shared_ptr<DOM::NamedTextStyle> style = _styles.factory.makeNamedTextStyle(boost::none);
        const bool isParagraph = entry.type == StyleType::Paragraph;
        style->setKind(
            isParagraph ? DOM::NamedTextStyle::Kind::Paragraph : DOM::NamedTextStyle::Kind::Character);
        std::string name = readName(entry);
        FilterUtils::setNamedTextStyleType(_styles.predefinedStyles, style, name, getPredefinedStyleNames());
        if (!boost::get<DOM::PredefinedStyleName>(&style->getName()))
            style->setName(std::move(name));
        style->setRunProps(_formats.readRun(_values.find(entry.element, "rPr")).props);
        noteHidden(style->getRunProps());
        if (isParagraph) {
            const ParaFormat format = _formats.readPara(_values.find(entry.element, "pPr"));
            style->setParaProps(format.props);
            if (format.numbering)
                _numbering.noteStyle(style, *format.numbering);
        }
        // The predefined name has given the style another identifier.
        entry.uuid = style->getUUID();
        if (!entry.id.empty())
            _styles.textStyleIds.emplace(entry.id, entry.uuid);
        if (isParagraph && isDefault(entry))
            _styles.factory.setDefaultParagraphStyleUUID(entry.uuid);
        _textStyles.emplace(entry.uuid, std::move(style));
    }

    void makeTableStyle(StyleEntry& entry)
    {
        const std::shared_ptr<DOM::NamedTableStyle> style = _styles.factory.makeNamedTableStyle();
        const TablePartFormat format = readTablePart(entry.element, _formats);
        style->setName(readName(entry));
        style->setCellProps(format.cellProps);
        style->setParaProps(format.paraProps);
        style->setRunProps(format.runProps);
        noteHidden(format.runProps);
        entry.uuid = style->getUUID();
        if (!entry.id.empty())
            _styles.tableStyleIds.emplace(entry.id, entry.uuid);
        if (isDefault(entry))
            _styles.factory.setDefaultTableStyleUUID(entry.uuid);
        _tableStyles.emplace(entry.uuid, style);
    }

    /// The last one of a type stays the default.
    bool isDefault(const StyleEntry& entry) const
    {
        return _values.readFlag(_values.attribute(entry.element, "default")) == true;
    }

    void noteHidden(const std::shared_ptr<const DOM::RunProps>& props)
    {
        if (props && props->getHidden() == true)
            _styles.hiddenProps.insert(props);
    }

    void setParents()
    {
        findParents();
        const CutStyles cuts = cutStyleParents(_parents);
        for (const std::size_t place : cuts.circular)
            tell("Style {} derives from itself", _entries[place].id);
        for (const std::size_t place : cuts.tooDeep)
            tell("Style {} has too many ancestors", _entries[place].id);
        for (std::size_t i = 0; i < _entries.size(); ++i) {
            const StyleEntry& entry = _entries[i];
            if (_parents[i] == NoStyleParent || entry.type == StyleType::Numbering)
                continue;
            if (entry.type == StyleType::Table)
                _tableStyles.at(entry.uuid)
                    ->setParentUUID(FilterUtils::findParentUUID(_styles.tableStyleIds, entry.parentId));
            else
                _textStyles.at(entry.uuid)
                    ->setParentUUID(FilterUtils::findParentUUID(_styles.textStyleIds, entry.parentId));
        }
    }

    void findParents()
    {
        _parents.assign(_entries.size(), NoStyleParent);
        for (std::size_t i = 0; i < _entries.size(); ++i) {
            const StyleEntry& entry = _entries[i];
            if (entry.parentId.empty())
                continue;
            const auto found = _places.find(std::make_pair(getStyleFamily(entry.type), entry.parentId));
            if (found != _places.end())
                _parents[i] = found->second;
            else
                tell("Style {} derives from {}, which is not there", entry.id, entry.parentId);
        }
    }

    /// Chains of parents are short by now.
    const TableConditions& getConditions(std::size_t place)
    {
        const auto known = _conditions.find(place);
        if (known != _conditions.end())
            return known->second;
        const std::size_t parent = _parents[place];
        TableConditions conditions = parent == NoStyleParent ? TableConditions() : getConditions(parent);
        readTableConditions(_entries[place].element, _formats, conditions);
        return _conditions.emplace(place, std::move(conditions)).first->second;
    }

    void storeConditions()
    {
        for (auto& [place, conditions] : _conditions)
            if (hasConditions(conditions))
                _styles.tableConditions.emplace(_entries[place].uuid, std::move(conditions));
    }

    const FormatReader& _formats;
    const FormatValues& _values;
    TextNumbering& _numbering;
    TextStyles& _styles;
    OperationReport& _report;
    MessageCounts _messages;
    std::vector<StyleEntry> _entries; // in the order of the file, each id once
    std::map<std::pair<StyleType, std::string>, std::size_t> _places; // in that list, by family and id
    StyleParents _parents;
    std::map<UUID, std::shared_ptr<DOM::NamedTextStyle>> _textStyles;
    std::map<UUID, std::shared_ptr<DOM::NamedTableStyle>> _tableStyles;
    std::map<std::size_t, TableConditions> _conditions; // by place
};

} // namespace

void readTextStyles(const XMLElement& root, const Names&, const FormatReader& formats,
    TextNumbering& numbering, TextStyles& styles, OperationReport& report)
{
    StylesPartReader(formats, numbering, styles, report).read(root);
}

} // namespace QV::Filters
