#include <Filters/Text/TextNumbering.h>

#include <cstddef>
#include <utility>

#include <DOM/Public/NumberedList.h>
#include <FilterUtils/FU_NamedStylesFactory.h>
#include <Filters/Package/MessageCounts.h>
#include <Filters/Text/FormatValues.h>
#include <Filters/Text/ListLevels.h>
#include <Filters/Text/TextStyles.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

constexpr std::size_t MaxLists = 20'000;
constexpr std::size_t MaxUnknownLists = 1'000;
constexpr long MaxListNumber = 0x7FFFFFFF;

/// An abstract list of the part.
struct AbstractList
{
    XMLElement element;
    std::string listStyleId; // of the list style whose levels it has instead of its own; empty for none
    UUID tag = UUID::generate();
    std::vector<ListLevel> levels; // once they are asked for
};

/// A concrete list as it is read.
struct ListEntry
{
    std::string id;
    XMLElement element;
    std::string abstractId;
};

/// Reads one part of lists.
class NumberingPartReader
{
public:
    NumberingPartReader(const FormatReader& formats, const std::map<std::string, std::string>& listStyles,
        OperationReport& report)
        : _formats(formats)
        , _values(formats.getValues())
        , _listStyles(listStyles)
        , _report(report)
    {
    }

    void gather(const XMLElement& root)
    {
        std::size_t count = 0;
        _values.processElements(root, "abstractNum", [&](const XMLElement& list) {
            if (++count <= MaxLists)
                addAbstractList(list);
        });
        std::size_t concreteCount = 0;
        _values.processElements(root, "num", [&](const XMLElement& list) {
            if (++concreteCount <= MaxLists)
                addList(list);
        });
        if (count > MaxLists || concreteCount > MaxLists)
            tell("Lists beyond {} are left out", std::to_string(MaxLists));
    }

    const std::vector<ListEntry>& getEntries() const { return _entries; }

    /// The abstract list whose levels a concrete one has; null where it is not there.
    AbstractList* findAbstractList(const ListEntry& entry)
    {
        const auto found = _abstractLists.find(entry.abstractId);
        if (found != _abstractLists.end())
            return &resolve(found->second);
        tell("List {} has no definition", entry.id);
        return nullptr;
    }

    /// The levels of a list with what it overrides of them.
    std::vector<ListLevel> readLevels(
        const ListEntry& entry, AbstractList& abstractList, std::set<unsigned long>& restarted)
    {
        std::vector<ListLevel> levels = getLevels(abstractList);
        _values.processElements(entry.element, "lvlOverride", [&](const XMLElement& change) {
            const auto number = readLevelNumber(change);
            if (!number)
                return;
            ListLevel& level = levels.at(*number);
            const XMLElement own = _values.find(change, "lvl");
            if (own.isValid())
                level = readListLevel(own, _formats);
            const auto start = _values.readWhole(_values.value(change, "startOverride"), 0, MaxListNumber);
            if (start) {
                level.level.setStart(*start);
                restarted.insert(*number);
            }
        });
        return levels;
    }

    void finish() { _messages.finish(_report); }

private:
    template <typename... Arguments>
    void tell(const char* pattern, const Arguments&... arguments)
    {
        if (_messages.add(pattern))
            _report.emplace_back(pattern, arguments...);
    }

    void addAbstractList(const XMLElement& element)
    {
        const auto number = _values.readWhole(_values.attribute(element, "abstractNumId"), 0, MaxListNumber);
        if (!number)
            return;
        AbstractList list;
        list.element = element;
        list.listStyleId = _values.value(element, "numStyleLink").text.value_or("");
        const std::string id = std::to_string(*number);
        const auto added = _abstractLists.emplace(id, std::move(list));
        if (!added.second) {
            tell("List {} is defined more than once", id);
            return;
        }
        if (const auto styleId = _values.value(element, "styleLink").text)
            _abstractListsOfStyles.emplace(*styleId, &added.first->second);
    }

    void addList(const XMLElement& element)
    {
        const auto number = _values.readWhole(_values.attribute(element, "numId"), 0, MaxListNumber);
        if (!number)
            return;
        const auto abstractNumber =
            _values.readWhole(_values.value(element, "abstractNumId"), 0, MaxListNumber);
        ListEntry entry;
        entry.id = std::to_string(*number);
        entry.element = element;
        entry.abstractId = abstractNumber ? std::to_string(*abstractNumber) : std::string();
        if (_abstractIds.emplace(entry.id, entry.abstractId).second)
            _entries.push_back(std::move(entry));
        else
            tell("List {} is defined more than once", entry.id);
    }

    /// Follows the names of list styles. Files have one such step; the bound ends circles.
    AbstractList& resolve(AbstractList& list)
    {
        constexpr int MaxSteps = 8;
        AbstractList* last = &list;
        for (int step = 0; step < MaxSteps && !last->listStyleId.empty(); ++step) {
            AbstractList* const next = findOfStyle(last->listStyleId);
            if (!next)
                break;
            last = next;
        }
        return *last;
    }

    AbstractList* findOfStyle(const std::string& styleId)
    {
        const auto own = _abstractListsOfStyles.find(styleId);
        if (own != _abstractListsOfStyles.end())
            return own->second;
        const auto style = _listStyles.find(styleId);
        const auto list = style == _listStyles.end() ? _abstractIds.end() : _abstractIds.find(style->second);
        if (list == _abstractIds.end())
            return nullptr;
        const auto found = _abstractLists.find(list->second);
        return found == _abstractLists.end() ? nullptr : &found->second;
    }

    const std::vector<ListLevel>& getLevels(AbstractList& list)
    {
        if (!list.levels.empty())
            return list.levels;
        for (std::size_t i = 0; i < ListLevelsCount; ++i)
            list.levels.push_back(makeUsualListLevel(i));
        _values.processElements(list.element, "lvl", [&](const XMLElement& level) {
            if (const auto number = readLevelNumber(level))
                list.levels.at(*number) = readListLevel(level, _formats);
        });
        return list.levels;
    }

    boost::optional<unsigned long> readLevelNumber(const XMLElement& element) const
    {
        FormatText text = _values.attribute(element, "ilvl");
        text.text = text.text.value_or(""); // must be there, so nothing is an unexpected value as well
        const auto number = _values.readWhole(text, 0, static_cast<long>(ListLevelsCount) - 1);
        return number ? boost::make_optional(static_cast<unsigned long>(*number)) : boost::none;
    }

    const FormatReader& _formats;
    const FormatValues& _values;
    const std::map<std::string, std::string>& _listStyles;
    OperationReport& _report;
    MessageCounts _messages;
    std::vector<ListEntry> _entries;                             // in the order of the file
    std::map<std::string, AbstractList> _abstractLists;          // by their numbers
    std::map<std::string, AbstractList*> _abstractListsOfStyles; // by the list styles that they define
    std::map<std::string, std::string> _abstractIds;             // by the numbers of concrete lists
};

} // namespace

void TextNumbering::read(
    const XMLElement& root, const Names&, const FormatReader& formats, OperationReport& report)
{
    NumberingPartReader reader(formats, _listStyles, report);
    reader.gather(root);
    for (const ListEntry& entry : reader.getEntries()) {
        const std::shared_ptr<DOM::NumberedList> list = _lists.makeNumberedList();
        ConcreteList& concrete = _concrete[entry.id];
        concrete.list = list->getUUID();
        AbstractList* const abstractList = reader.findAbstractList(entry);
        concrete.tag = abstractList ? abstractList->tag : UUID::generate();
        if (!abstractList)
            continue;
        std::set<unsigned long> restarted;
        for (ListLevel& level : reader.readLevels(entry, *abstractList, restarted)) {
            list->appendLevel(std::make_unique<DOM::NumberingLevel>(std::move(level.level)));
            concrete.levelStyleIds.push_back(std::move(level.styleId));
        }
        list->setRestartedLevels({restarted.begin(), restarted.end()});
    }
    reader.finish();
}

void TextNumbering::noteStyle(std::shared_ptr<DOM::NamedTextStyle> style, const NumberingRequest& request)
{
    _styles.emplace_back(std::move(style), request);
}

void TextNumbering::noteListStyle(const std::string& styleId, const std::string& listId)
{
    _listStyles[styleId] = listId;
}

void TextNumbering::applyStyleNumbering(const TextStyles& styles, OperationReport& report)
{
    for (const auto& [style, request] : _styles) {
        std::unique_ptr<DOM::NumberingRef> reference = makeReference(request, report);
        const auto list = request.id ? _concrete.find(*request.id) : _concrete.end();
        if (list != _concrete.end()) {
            const std::vector<std::string>& styleIds = list->second.levelStyleIds;
            for (std::size_t i = 0; i < styleIds.size(); ++i)
                if (!styleIds[i].empty() &&
                    FilterUtils::findParentUUID(styles.textStyleIds, styleIds[i]) == style->getUUID())
                    reference->setLevel(static_cast<unsigned long>(i));
        }
        style->setNumRef(std::move(reference));
    }
}

std::unique_ptr<DOM::NumberingRef> TextNumbering::makeReference(
    const NumberingRequest& request, OperationReport& report)
{
    if (request.id == std::string("0"))
        return FilterUtils::makeRemovedNumRef();
    auto reference = std::make_unique<DOM::NumberingRef>();
    reference->setLevel(request.level);
    if (!request.id)
        return reference;
    const auto found = _concrete.find(*request.id);
    if (found != _concrete.end()) {
        reference->setNumListUUID(found->second.list);
        reference->setListTagUUID(found->second.tag);
    } else if (_unknown.size() <= MaxUnknownLists && _unknown.insert(*request.id).second) {
        if (_unknown.size() <= MaxUnknownLists)
            report.emplace_back("List {} is not defined", *request.id);
        else
            report.emplace_back("More than {} lists are not defined", std::to_string(MaxUnknownLists));
    }
    return reference;
}

} // namespace QV::Filters
