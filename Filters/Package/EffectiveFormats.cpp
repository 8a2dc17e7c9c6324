#include <Filters/Package/EffectiveFormats.h>

#include <cstddef>
#include <map>
#include <unordered_map>
#include <utility>

#include <DOM/Public/Document.h>
#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/NumberedList.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/Properties.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/TrackChangesViewMode.h>
#include <FilterUtils/FU_NumberedListsFactory.h>
#include <FilterUtils/FU_StyleHierarchy.h>
#include <Filters/Package/ParaLayers.h>
#include <Filters/Package/RunLayers.h>

namespace QV::Filters {
namespace {

constexpr std::size_t FoldsMax = 4096; // of each kind

template <typename Folds>
void makeRoomForFold(Folds& folds)
{
    if (folds.size() >= FoldsMax)
        folds.clear();
}

template <typename Style>
const std::shared_ptr<const DOM::RunProps>& getRunPropsOf(const Style& style)
{
    return style.getRunProps();
}

} // namespace

/// What the chains of named styles come to. What is set outside of them is laid over it at each question.
class EffectiveFormats::Caches
{
public:
    struct TableFold
    {
        DOM::ParaProps paraProps;
        std::shared_ptr<DOM::RunProps> runProps; // null where nothing is set
    };

    explicit Caches(const DOM::Styles& styles)
        : _styles(styles)
    {
    }

    const TableFold& getTableFold(const DOM::TableStyle& table);
    /// Null where nothing is set.
    const DOM::RunProps* findRunFold(const DOM::NamedTextStyle* named);
    /// @param level lies below the style that sets the numbering; null for none
    const DOM::ParaProps& getParaFold(const DOM::NamedTextStyle* named, const DOM::NumberingLevel* level);
    /// Null where the styles say nothing of numbering.
    const std::unique_ptr<DOM::NumberingRef>& getNumRefFold(const DOM::NamedTextStyle* named);

    DOM::ParaProps paraProps; // the last answer
    DOM::RunProps runProps;   // the same

private:
    using ParaKey = std::pair<const DOM::NamedTextStyle*, const DOM::NumberingLevel*>;

    const DOM::NamedTextStyle* findNumberedStyle(const DOM::NamedTextStyle* named) const;

    const DOM::Styles& _styles;
    std::unordered_map<const DOM::NamedTableStyle*, TableFold> _tables;
    std::unordered_map<const DOM::NamedTextStyle*, std::shared_ptr<DOM::RunProps>> _runs;
    std::map<ParaKey, DOM::ParaProps> _paras;
    std::unordered_map<const DOM::NamedTextStyle*, std::unique_ptr<DOM::NumberingRef>> _numRefs;
};

const EffectiveFormats::Caches::TableFold& EffectiveFormats::Caches::getTableFold(
    const DOM::TableStyle& table)
{
    const DOM::NamedTableStyle* named = DOM::getParent(_styles, table);
    if (!named)
        named = DOM::getParent(_styles, _styles.getDefaultTableStyle());
    const auto known = _tables.find(named);
    if (known != _tables.end())
        return known->second;
    makeRoomForFold(_tables);
    TableFold& fold = _tables[named];
    DOM::overrideWithParentStyles(_styles, fold.runProps, named, getRunPropsOf<DOM::NamedTableStyle>);
    DOM::forEachStyleInHierarchy(_styles, named, [&fold](const DOM::NamedTableStyle& style) {
        layParaPropsOver(fold.paraProps, style.getParaProps());
    });
    return fold;
}

const DOM::RunProps* EffectiveFormats::Caches::findRunFold(const DOM::NamedTextStyle* named)
{
    if (!named)
        return nullptr;
    const auto known = _runs.find(named);
    if (known != _runs.end())
        return known->second.get();
    makeRoomForFold(_runs);
    std::shared_ptr<DOM::RunProps>& fold = _runs[named];
    DOM::overrideWithParentStyles(_styles, fold, named, getRunPropsOf<DOM::NamedTextStyle>);
    return fold.get();
}

const DOM::NamedTextStyle* EffectiveFormats::Caches::findNumberedStyle(const DOM::NamedTextStyle* named) const
{
    while (named && DOM::isEmpty(named->getNumRef()))
        named = DOM::getParent(_styles, *named);
    return named;
}

const DOM::ParaProps& EffectiveFormats::Caches::getParaFold(
    const DOM::NamedTextStyle* named, const DOM::NumberingLevel* level)
{
    const ParaKey key(named, level);
    const auto known = _paras.find(key);
    if (known != _paras.end())
        return known->second;
    makeRoomForFold(_paras);
    DOM::ParaProps& fold = _paras[key];
    const DOM::NamedTextStyle* const numbered = level ? findNumberedStyle(named) : nullptr;
    DOM::forEachStyleInHierarchy(_styles, named, [&](const DOM::NamedTextStyle& style) {
        if (&style == numbered)
            layParaPropsOver(fold, level->getParaProps());
        layParaPropsOver(fold, style.getParaProps());
    });
    return fold;
}

const std::unique_ptr<DOM::NumberingRef>& EffectiveFormats::Caches::getNumRefFold(
    const DOM::NamedTextStyle* named)
{
    const auto known = _numRefs.find(named);
    if (known != _numRefs.end())
        return known->second;
    makeRoomForFold(_numRefs);
    DOM::Paragraph paragraph;
    if (named) {
        DOM::ParagraphStyle style;
        style.setParentUUID(named->getUUID());
        paragraph.setStyle(style);
    }
    std::unique_ptr<DOM::NumberingRef>& fold = _numRefs[named];
    fold = DOM::getOverridenNumRefWithTracked(_styles, paragraph, DOM::TrackChangesViewMode::Final);
    return fold;
}

EffectiveFormats::EffectiveFormats(const DOM::Document& document)
    : _document(document)
    , _caches(std::make_unique<Caches>(document.getStyles()))
{
}

EffectiveFormats::~EffectiveFormats() = default;

const DOM::NamedTextStyle* EffectiveFormats::findNamedStyle(const DOM::Paragraph& paragraph) const
{
    const DOM::Styles& styles = _document.getStyles();
    const DOM::NamedTextStyle* const named = DOM::getParent(styles, paragraph.getStyle());
    return named ? named : DOM::getParent(styles, styles.getDefaultParagraphStyle());
}

const DOM::ParaProps& EffectiveFormats::getParaProps(const DOM::Paragraph& paragraph, const CellScope& scope)
{
    const std::unique_ptr<DOM::NumberingRef> reference = getNumRef(paragraph);
    const DOM::NumberingLevel* const level = reference ? findLevel(*reference) : nullptr;
    const bool isNumberedDirectly = !DOM::isEmpty(paragraph.getNumRef());
    DOM::ParaProps& props = _caches->paraProps;
    props = DOM::ParaProps();
    layParaPropsOver(props, _document.getStyles().getDefaultParaProps());
    if (scope.tableStyle)
        layParaPropsOver(props, _caches->getTableFold(*scope.tableStyle).paraProps);
    if (scope.cellStyle)
        layParaPropsOver(props, scope.cellStyle->getParaProps());
    layParaPropsOver(
        props, _caches->getParaFold(findNamedStyle(paragraph), isNumberedDirectly ? nullptr : level));
    if (level && isNumberedDirectly)
        layParaPropsOver(props, level->getParaProps());
    layParaPropsOver(props, paragraph.getStyle().getParaProps());
    dropClearedTabStops(props);
    return props;
}

const DOM::RunProps& EffectiveFormats::getRunProps(
    const DOM::Paragraph& paragraph, const DOM::RunStyle& style, const CellScope& scope)
{
    const DOM::Styles& styles = _document.getStyles();
    RunLayers layers(styles.getDefaultRunProps().get());

    DOM::RunProps ofTable;
    if (scope.tableStyle)
        if (const auto& fold = _caches->getTableFold(*scope.tableStyle).runProps)
            ofTable = *fold;
    if (scope.cellStyle && scope.cellStyle->getRunProps())
        DOM::override(ofTable, *scope.cellStyle->getRunProps());
    layers.addStyle(ofTable);

    const DOM::RunProps* const ofParagraph = _caches->findRunFold(findNamedStyle(paragraph));
    if (const auto& own = paragraph.getStyle().getRunProps()) {
        DOM::RunProps both = ofParagraph ? *ofParagraph : DOM::RunProps();
        DOM::override(both, *own);
        layers.addStyle(both);
    } else if (ofParagraph) {
        layers.addStyle(*ofParagraph);
    }

    if (const DOM::RunProps* const ofCharacters = _caches->findRunFold(DOM::getParent(styles, style)))
        layers.addStyle(*ofCharacters);
    if (style.getRunProps())
        layers.addDirect(*style.getRunProps());
    _caches->runProps = layers.getProps();
    return _caches->runProps;
}

DOM::RunProps EffectiveFormats::getLabelProps(const DOM::Paragraph& paragraph, const CellScope& scope)
{
    DOM::RunProps props = getRunProps(paragraph, paragraph.getParaMarkStyle(), scope);
    const std::unique_ptr<DOM::NumberingRef> reference = getNumRef(paragraph);
    const DOM::NumberingLevel* const level = reference ? findLevel(*reference) : nullptr;
    if (level && level->getRunProps())
        DOM::override(props, *level->getRunProps());
    return props;
}

std::unique_ptr<DOM::NumberingRef> EffectiveFormats::getNumRef(const DOM::Paragraph& paragraph) const
{
    std::unique_ptr<DOM::NumberingRef> reference;
    DOM::override(reference, _caches->getNumRefFold(findNamedStyle(paragraph)));
    DOM::override(reference, paragraph.getNumRef());
    if (!reference || !reference->getNumListUUID() || FilterUtils::isRemovedNumRef(*reference))
        return nullptr;
    return reference;
}

const DOM::NumberedList* EffectiveFormats::findList(const DOM::NumberingRef& reference) const
{
    if (!reference.getNumListUUID())
        return nullptr;
    const auto& lists = _document.getNumberedLists();
    const auto found = lists.find(*reference.getNumListUUID());
    return found == lists.end() ? nullptr : found->second.get();
}

const DOM::NumberingLevel* EffectiveFormats::findLevel(const DOM::NumberingRef& reference) const
{
    const DOM::NumberedList* const list = findList(reference);
    return list ? list->findLevel(reference.getLevel().value_or(0)) : nullptr;
}

} // namespace QV::Filters
