#include <Filters/Package/EffectiveFormats.h>

#include <cstddef>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include <DOM/Public/BordersProps.h>
#include <DOM/Public/CellStyle.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/LineProps.h>
#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/NumberedList.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/TableStyle.h>
#include <FilterUtils/FU_NumberedListsFactory.h>
#include <Utils/Public/UUID.h>

#include <Tests/Support/Printers.h>

namespace QV::Filters {
namespace {

const auto None = boost::none;

/// A document with one of each layer; all are empty at first.
struct LayeredDocument
{
    LayeredDocument()
    {
        DOM::NamedTableStyle named;
        named.setUUID(tableUUID);
        document.getStyles().getTableStyles().emplace(tableUUID, named);
        table.setParentUUID(tableUUID);
    }

    UUID addTextStyle(const std::shared_ptr<const DOM::RunProps>& runProps, const UUID& parent = {},
        const std::shared_ptr<const DOM::ParaProps>& paraProps = nullptr,
        std::unique_ptr<DOM::NumberingRef> numRef = nullptr)
    {
        DOM::NamedTextStyle style;
        style.setParentUUID(parent);
        style.setRunProps(runProps);
        style.setParaProps(paraProps);
        style.setNumRef(std::move(numRef));
        return document.getStyles().getTextStyles().insert(std::move(style)).getUUID();
    }

    DOM::NamedTableStyle& getNamedTable() { return document.getStyles().getTableStyles().at(tableUUID); }

    DOM::Document document;
    UUID tableUUID = UUID::generate();
    DOM::TableStyle table;
    DOM::CellStyle cell;
    DOM::ParagraphStyle paragraphStyle;
    DOM::RunStyle runStyle;
};

DOM::Paragraph& setUp(DOM::Paragraph& paragraph, const LayeredDocument& layers)
{
    paragraph.setStyle(layers.paragraphStyle);
    return paragraph;
}

// --- Runs: the layers one by one

/// What each layer sets of one property.
template <typename Value>
struct RunLayerValues
{
    const char* name;
    boost::optional<Value> defaults;
    boost::optional<Value> table;
    boost::optional<Value> paragraph;
    boost::optional<Value> character;
    boost::optional<Value> direct;
    boost::optional<Value> expected;
};

template <typename Value>
void PrintTo(const RunLayerValues<Value>& row, std::ostream* out)
{
    *out << row.name;
}

template <typename Value>
std::shared_ptr<const DOM::RunProps> makeRunProps(
    const boost::optional<Value>& value, void (DOM::RunProps::*set)(const boost::optional<Value>&))
{
    if (!value)
        return nullptr;
    auto props = std::make_shared<DOM::RunProps>();
    ((*props).*set)(value);
    return props;
}

template <typename Value>
DOM::RunProps foldRow(
    const RunLayerValues<Value>& row, void (DOM::RunProps::*set)(const boost::optional<Value>&))
{
    LayeredDocument layers;
    layers.document.getStyles().setDefaultRunProps(makeRunProps(row.defaults, set));
    layers.getNamedTable().setRunProps(makeRunProps(row.table, set));
    layers.paragraphStyle.setParentUUID(layers.addTextStyle(makeRunProps(row.paragraph, set)));
    layers.runStyle.setParentUUID(layers.addTextStyle(makeRunProps(row.character, set)));
    layers.runStyle.setRunProps(makeRunProps(row.direct, set));
    DOM::Paragraph paragraph;
    EffectiveFormats formats(layers.document);
    return formats.getRunProps(setUp(paragraph, layers), layers.runStyle, {&layers.table, &layers.cell});
}

using SizeRow = RunLayerValues<float>;

// name, defaults, table, paragraph, character, direct, expected
const SizeRow SizeRows[] = {
    {"Nothing",                None,  None,  None,  None,  None,  None },
    {"Defaults",               10.0F, None,  None,  None,  None,  10.0F},
    {"TableOverDefaults",      10.0F, 11.0F, None,  None,  None,  11.0F},
    {"ParagraphOverTable",     10.0F, 11.0F, 12.0F, None,  None,  12.0F},
    {"CharacterOverParagraph", 10.0F, 11.0F, 12.0F, 13.0F, None,  13.0F},
    {"DirectOverAll",          10.0F, 11.0F, 12.0F, 13.0F, 14.0F, 14.0F},
    {"DirectAlone",            None,  None,  None,  None,  14.0F, 14.0F},
};

class EffectiveFontSize : public testing::TestWithParam<SizeRow>
{
};

TEST_P(EffectiveFontSize, KeepsRow)
{
    EXPECT_EQ(foldRow(GetParam(), &DOM::RunProps::setFontSize).getFontSize(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, EffectiveFontSize, testing::ValuesIn(SizeRows),
    [](const auto& row) { return std::string(row.param.name); });

using ToggleRow = RunLayerValues<bool>;

const ToggleRow ToggleRows[] = {
    {"Nothing",               None,  None,  None,  None,  None,  None },
    {"OneStyle",              None,  None,  true,  None,  None,  true },
    {"OneStyleSaysNo",        None,  None,  false, None,  None,  false},
    {"TwoStylesTurnBack",     None,  None,  true,  true,  None,  false},
    {"TableAndParagraph",     None,  true,  true,  None,  None,  false},
    {"TableAndCharacter",     None,  true,  None,  true,  None,  false},
    {"ThreeStyles",           None,  true,  true,  true,  None,  true },
    {"NoTurnsNothing",        None,  true,  false, false, None,  true },
    {"DirectStands",          None,  true,  true,  true,  true,  true },
    {"DirectNoStands",        None,  true,  None,  None,  false, false},
    {"DefaultStays",          true,  None,  true,  None,  None,  true },
    {"DefaultStaysOverNo",    true,  false, false, false, None,  true },
    {"DirectNoOverDefault",   true,  None,  None,  None,  false, false},
    {"DefaultNoIsNoLayer",    false, None,  true,  None,  None,  true },
    {"DefaultNoAndTwoStyles", false, true,  true,  None,  None,  false},
};

class EffectiveToggle : public testing::TestWithParam<ToggleRow>
{
};

TEST_P(EffectiveToggle, KeepsRow)
{
    const ToggleRow& row = GetParam();
    EXPECT_EQ(foldRow(row, &DOM::RunProps::setBold).getBold(), row.expected);
    EXPECT_EQ(foldRow(row, &DOM::RunProps::setItalic).getItalic(), row.expected);
    EXPECT_EQ(foldRow(row, &DOM::RunProps::setStrikethrough).getStrikethrough(), row.expected);
    EXPECT_EQ(foldRow(row, &DOM::RunProps::setHidden).getHidden(), row.expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, EffectiveToggle, testing::ValuesIn(ToggleRows),
    [](const auto& row) { return std::string(row.param.name); });

using LetterCaseRow = RunLayerValues<DOM::LetterCase>;
constexpr DOM::LetterCase Written = DOM::LetterCase::AsWritten;
constexpr DOM::LetterCase Capitals = DOM::LetterCase::Capitals;
constexpr DOM::LetterCase Small = DOM::LetterCase::SmallCapitals;

const LetterCaseRow LetterCaseRows[] = {
    {"Nothing",                 None,     None,     None,     None,     None,    None    },
    {"OneStyle",                None,     None,     Small,    None,     None,    Small   },
    {"TwoStylesTurnBack",       None,     None,     Capitals, Capitals, None,    Written },
    {"CapitalsShowBeforeSmall", None,     None,     Capitals, Small,    None,    Capitals},
    {"SmallAreLeft",            None,     Capitals, Small,    Capitals, None,    Small   },
    {"DefaultStays",            Capitals, None,     Capitals, None,     None,    Capitals},
    {"DirectStands",            None,     None,     Capitals, None,     Written, Written },
};

class EffectiveLetterCase : public testing::TestWithParam<LetterCaseRow>
{
};

TEST_P(EffectiveLetterCase, KeepsRow)
{
    EXPECT_TRUE(foldRow(GetParam(), &DOM::RunProps::setLetterCase).getLetterCase() == GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, EffectiveLetterCase, testing::ValuesIn(LetterCaseRows),
    [](const auto& row) { return std::string(row.param.name); });

std::shared_ptr<const DOM::RunProps> makeBold(bool isBold)
{
    return makeRunProps(boost::optional<bool>(isBold), &DOM::RunProps::setBold);
}

boost::optional<bool> getBold(LayeredDocument& layers)
{
    DOM::Paragraph paragraph;
    EffectiveFormats formats(layers.document);
    return formats.getRunProps(setUp(paragraph, layers), layers.runStyle, {&layers.table, &layers.cell})
        .getBold();
}

TEST(EffectiveFormats, ChainOfOneLayerTurnsOnce)
{
    LayeredDocument layers;
    const UUID parent = layers.addTextStyle(makeBold(true));
    layers.paragraphStyle.setParentUUID(layers.addTextStyle(makeBold(true), parent));
    EXPECT_EQ(getBold(layers), true);
}

TEST(EffectiveFormats, CellBelongsToTheTablesLayer)
{
    LayeredDocument layers;
    layers.getNamedTable().setRunProps(makeBold(true));
    layers.cell.setRunProps(makeBold(true));
    EXPECT_EQ(getBold(layers), true);
    layers.cell.setRunProps(makeBold(false));
    EXPECT_EQ(getBold(layers), false);
}

TEST(EffectiveFormats, ParagraphsOwnRunPropsBelongToItsStylesLayer)
{
    LayeredDocument layers;
    layers.paragraphStyle.setParentUUID(layers.addTextStyle(makeBold(true)));
    layers.paragraphStyle.setRunProps(makeBold(true));
    EXPECT_EQ(getBold(layers), true);
    layers.runStyle.setParentUUID(layers.addTextStyle(makeBold(true)));
    EXPECT_EQ(getBold(layers), false);
}

TEST(EffectiveFormats, OutsideOfTablesTheirStylesDoNotCount)
{
    LayeredDocument layers;
    layers.getNamedTable().setRunProps(makeBold(true));
    DOM::Paragraph paragraph;
    EffectiveFormats formats(layers.document);
    EXPECT_EQ(formats.getRunProps(paragraph, layers.runStyle).getBold(), None);
}

TEST(EffectiveFormats, TableWithoutAStyleHasTheDefaultOne)
{
    LayeredDocument layers;
    layers.getNamedTable().setRunProps(makeBold(true));
    layers.table.setParentUUID({});
    EXPECT_EQ(getBold(layers), None);
    DOM::TableStyle defaultStyle;
    defaultStyle.setParentUUID(layers.tableUUID);
    layers.document.getStyles().setDefaultTableStyle(defaultStyle);
    EXPECT_EQ(getBold(layers), true);
}

TEST(EffectiveFormats, DefaultParagraphStyleStandsIn)
{
    LayeredDocument layers;
    DOM::ParagraphStyle defaultStyle;
    defaultStyle.setParentUUID(layers.addTextStyle(makeBold(true)));
    layers.document.getStyles().setDefaultParagraphStyle(defaultStyle);
    EXPECT_EQ(getBold(layers), true); // the paragraph names none
    layers.paragraphStyle.setParentUUID(UUID::generate());
    EXPECT_EQ(getBold(layers), true); // one that is not there
    layers.paragraphStyle.setParentUUID(layers.addTextStyle(nullptr));
    EXPECT_EQ(getBold(layers), None);
}

TEST(EffectiveFormats, MoreStylesThanAreKeptAreAnswered)
{
    constexpr int StylesCount = 5000; // 4,096 are kept
    LayeredDocument layers;
    std::vector<UUID> styles;
    styles.reserve(StylesCount);
    for (int i = 0; i < StylesCount; ++i)
        styles.push_back(layers.addTextStyle(
            makeRunProps(boost::optional<float>(static_cast<float>(i)), &DOM::RunProps::setFontSize)));
    EffectiveFormats formats(layers.document);
    for (int repeat = 0; repeat < 2; ++repeat)
        for (int i = 0; i < StylesCount; ++i) {
            layers.paragraphStyle.setParentUUID(styles[static_cast<std::size_t>(i)]);
            DOM::Paragraph paragraph;
            ASSERT_EQ(formats.getRunProps(setUp(paragraph, layers), layers.runStyle).getFontSize(),
                static_cast<float>(i));
        }
}

// --- Paragraphs

std::shared_ptr<const DOM::ParaProps> makeIndent(const boost::optional<float>& left)
{
    if (!left)
        return nullptr;
    auto props = std::make_shared<DOM::ParaProps>();
    props->setLeftIndent(left);
    return props;
}

enum class NumberedBy
{
    Nothing,
    Grandparent,
    Parent,
    Paragraph,
};

struct IndentRow
{
    const char* name;
    boost::optional<float> defaults;
    boost::optional<float> table;
    boost::optional<float> grandparent;
    boost::optional<float> parent;
    boost::optional<float> level;
    boost::optional<float> direct;
    NumberedBy numberedBy;
    boost::optional<float> expected;
};

void PrintTo(const IndentRow& row, std::ostream* out)
{
    *out << row.name;
}

// name, defaults, table, grandparent, parent, level, direct, numbered by, expected
const IndentRow IndentRows[] = {
    {"Nothing",                 None, None, None, None, None, None, NumberedBy::Nothing,     None},
    {"Defaults",                1.0F, None, None, None, None, None, NumberedBy::Nothing,     1.0F},
    {"Table",                   1.0F, 2.0F, None, None, None, None, NumberedBy::Nothing,     2.0F},
    {"Grandparent",             1.0F, 2.0F, 3.0F, None, None, None, NumberedBy::Nothing,     3.0F},
    {"Parent",                  1.0F, 2.0F, 3.0F, 4.0F, None, None, NumberedBy::Nothing,     4.0F},
    {"Direct",                  1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F, NumberedBy::Paragraph,   6.0F},
    {"LevelOfNoList",           1.0F, None, None, None, 5.0F, None, NumberedBy::Nothing,     1.0F},
    {"LevelOverAllStyles",      1.0F, 2.0F, 3.0F, 4.0F, 5.0F, None, NumberedBy::Paragraph,   5.0F},
    {"LevelOverTable",          1.0F, 2.0F, None, None, 5.0F, None, NumberedBy::Grandparent, 5.0F},
    {"LevelOverFartherStyle",   None, None, 3.0F, None, 5.0F, None, NumberedBy::Parent,      5.0F},
    {"StyleThatNumbersWins",    None, None, 3.0F, 4.0F, 5.0F, None, NumberedBy::Parent,      4.0F},
    {"NearerStyleWins",         None, None, None, 4.0F, 5.0F, None, NumberedBy::Grandparent, 4.0F},
    {"FartherStyleThatNumbers", None, None, 3.0F, None, 5.0F, None, NumberedBy::Grandparent, 3.0F},
};

class EffectiveIndent : public testing::TestWithParam<IndentRow>
{
};

std::unique_ptr<DOM::NumberingRef> makeReference(const UUID& list)
{
    auto reference = std::make_unique<DOM::NumberingRef>();
    reference->setNumListUUID(list);
    return reference;
}

UUID addList(DOM::Document& document, const std::shared_ptr<const DOM::ParaProps>& paraProps,
    const std::shared_ptr<const DOM::RunProps>& runProps = nullptr)
{
    auto list = std::make_shared<DOM::NumberedList>();
    auto level = std::make_unique<DOM::NumberingLevel>();
    level->setParaProps(paraProps);
    level->setRunProps(runProps);
    list->appendLevel(std::move(level));
    document.addNumberedList(list);
    return list->getUUID();
}

TEST_P(EffectiveIndent, KeepsRow)
{
    const IndentRow& row = GetParam();
    LayeredDocument layers;
    layers.document.getStyles().setDefaultParaProps(makeIndent(row.defaults));
    layers.getNamedTable().setParaProps(makeIndent(row.table));
    const UUID list = addList(layers.document, makeIndent(row.level));
    const auto numberIf = [&](bool isNumbered) { return isNumbered ? makeReference(list) : nullptr; };
    const UUID grandparent = layers.addTextStyle(
        nullptr, {}, makeIndent(row.grandparent), numberIf(row.numberedBy == NumberedBy::Grandparent));
    layers.paragraphStyle.setParentUUID(layers.addTextStyle(
        nullptr, grandparent, makeIndent(row.parent), numberIf(row.numberedBy == NumberedBy::Parent)));
    layers.paragraphStyle.setParaProps(makeIndent(row.direct));
    DOM::Paragraph paragraph;
    paragraph.setNumRef(numberIf(row.numberedBy == NumberedBy::Paragraph));
    EffectiveFormats formats(layers.document);
    const CellScope scope = {&layers.table, &layers.cell};
    EXPECT_EQ(formats.getParaProps(setUp(paragraph, layers), scope).getLeftIndent(), row.expected);
    EXPECT_EQ(formats.getParaProps(paragraph, scope).getLeftIndent(), row.expected); // of what is kept
}

INSTANTIATE_TEST_SUITE_P(Rows, EffectiveIndent, testing::ValuesIn(IndentRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(EffectiveFormats, CellLiesOverTheTablesStyle)
{
    LayeredDocument layers;
    layers.getNamedTable().setParaProps(makeIndent(1.0F));
    layers.cell.setParaProps(makeIndent(2.0F));
    DOM::Paragraph paragraph;
    EffectiveFormats formats(layers.document);
    EXPECT_EQ(formats.getParaProps(paragraph, {&layers.table, &layers.cell}).getLeftIndent(), 2.0F);
    EXPECT_EQ(formats.getParaProps(paragraph).getLeftIndent(), None);
}

std::shared_ptr<const DOM::ParaProps> makeStops(DOM::TabStops stops)
{
    auto props = std::make_shared<DOM::ParaProps>();
    props->setTabStops(std::make_shared<DOM::TabStops>(std::move(stops)));
    return props;
}

TEST(EffectiveFormats, TabStopsComeTogether)
{
    using Kind = DOM::TabStop::Kind;
    LayeredDocument layers;
    layers.paragraphStyle.setParentUUID(layers.addTextStyle(nullptr,
        {
    },
        makeStops({{Kind::Left, 10}, {Kind::Left, 20}, {Kind::Right, 30}})));
    layers.paragraphStyle.setParaProps(makeStops({
        {Kind::Center,  5 },
        {Kind::Clear,   20},
        {Kind::Decimal, 30},
        {Kind::Clear,   40}
    }));
    DOM::Paragraph paragraph;
    EffectiveFormats formats(layers.document);
    const auto stops = formats.getParaProps(setUp(paragraph, layers)).getTabStops();
    ASSERT_TRUE(stops);
    const DOM::TabStops expected = {
        {Kind::Center,  5 },
        {Kind::Left,    10},
        {Kind::Decimal, 30}
    };
    EXPECT_TRUE(*stops == expected);
}

TEST(EffectiveFormats, NoTabStopsAreLeft)
{
    using Kind = DOM::TabStop::Kind;
    LayeredDocument layers;
    layers.paragraphStyle.setParentUUID(layers.addTextStyle(nullptr,
        {
    },
        makeStops({{Kind::Left, 10}})));
    layers.paragraphStyle.setParaProps(makeStops({
        {Kind::Clear, 10}
    }));
    DOM::Paragraph paragraph;
    EffectiveFormats formats(layers.document);
    EXPECT_FALSE(formats.getParaProps(setUp(paragraph, layers)).getTabStops());
}

TEST(EffectiveFormats, LeftmostOfManyTabStopsStay)
{
    DOM::TabStops even;
    DOM::TabStops odd;
    for (int i = 0; i < 100; ++i) {
        even.emplace_back(DOM::TabStop::Kind::Left, static_cast<float>(2 * i));
        odd.emplace_back(DOM::TabStop::Kind::Left, static_cast<float>(2 * i + 1));
    }
    LayeredDocument layers;
    layers.paragraphStyle.setParentUUID(layers.addTextStyle(nullptr, {}, makeStops(even)));
    layers.paragraphStyle.setParaProps(makeStops(odd));
    DOM::Paragraph paragraph;
    EffectiveFormats formats(layers.document);
    const auto stops = formats.getParaProps(setUp(paragraph, layers)).getTabStops();
    ASSERT_TRUE(stops);
    ASSERT_EQ(stops->size(), 64U);
    EXPECT_EQ(stops->back().getPosition(), 63);
}

TEST(EffectiveFormats, BordersLieOverEachOtherSideBySide)
{
    const auto line = std::make_shared<DOM::LineProps>();
    DOM::BordersProps left;
    left.setLeft(std::shared_ptr<const DOM::LineProps>(line));
    DOM::BordersProps right;
    right.setRight(std::shared_ptr<const DOM::LineProps>(line));
    auto ofStyle = std::make_shared<DOM::ParaProps>();
    ofStyle->setBorders(std::make_shared<DOM::BordersProps>(left));
    auto direct = std::make_shared<DOM::ParaProps>();
    direct->setBorders(std::make_shared<DOM::BordersProps>(right));
    LayeredDocument layers;
    layers.paragraphStyle.setParentUUID(layers.addTextStyle(nullptr, {}, ofStyle));
    layers.paragraphStyle.setParaProps(direct);
    DOM::Paragraph paragraph;
    EffectiveFormats formats(layers.document);
    const auto borders = formats.getParaProps(setUp(paragraph, layers)).getBorders();
    ASSERT_TRUE(borders);
    EXPECT_TRUE(borders->getLeft());
    EXPECT_TRUE(borders->getRight());
    EXPECT_FALSE(ofStyle->getBorders()->getRight()); // the style's own stay as they were
}

// --- Numbering

TEST(EffectiveFormats, NumberingComesFromStyleAndParagraph)
{
    LayeredDocument layers;
    const UUID list = addList(layers.document, nullptr);
    layers.paragraphStyle.setParentUUID(layers.addTextStyle(nullptr, {}, nullptr, makeReference(list)));
    DOM::Paragraph paragraph;
    setUp(paragraph, layers);
    EffectiveFormats formats(layers.document);
    for (int repeat = 0; repeat < 2; ++repeat) {
        const auto reference = formats.getNumRef(paragraph);
        ASSERT_TRUE(reference);
        EXPECT_TRUE(reference->getNumListUUID() == list);
        EXPECT_FALSE(reference->getLevel());
        EXPECT_TRUE(formats.findList(*reference));
        EXPECT_TRUE(formats.findLevel(*reference));
    }
    auto level = std::make_unique<DOM::NumberingRef>();
    level->setLevel(1);
    paragraph.setNumRef(std::move(level));
    const auto deeper = formats.getNumRef(paragraph);
    ASSERT_TRUE(deeper);
    EXPECT_TRUE(deeper->getNumListUUID() == list);
    EXPECT_EQ(deeper->getLevel(), 1UL);
    paragraph.setNumRef(FilterUtils::makeRemovedNumRef());
    EXPECT_FALSE(formats.getNumRef(paragraph));
}

TEST(EffectiveFormats, LevelAloneIsNoNumbering)
{
    const DOM::Document document;
    DOM::Paragraph paragraph;
    auto level = std::make_unique<DOM::NumberingRef>();
    level->setLevel(1);
    paragraph.setNumRef(std::move(level));
    const EffectiveFormats formats(document);
    EXPECT_FALSE(formats.getNumRef(paragraph));
}

TEST(EffectiveFormats, ListThatIsNotThereHasNoLevel)
{
    const DOM::Document document;
    const EffectiveFormats formats(document);
    EXPECT_FALSE(formats.findList(*makeReference(UUID::generate())));
    EXPECT_FALSE(formats.findLevel(*makeReference(UUID::generate())));
    EXPECT_FALSE(formats.findList(DOM::NumberingRef()));
}

TEST(EffectiveFormats, LabelLooksLikeTheMarkWithItsLevelOverIt)
{
    LayeredDocument layers;
    const UUID list = addList(layers.document, nullptr, makeBold(false));
    DOM::RunProps props;
    props.setBold(true);
    props.setItalic(true);
    DOM::RunStyle mark;
    mark.setRunProps(std::make_shared<DOM::RunProps>(props));
    DOM::Paragraph paragraph;
    paragraph.setSharedParaMarkStyle(DOM::SharedRunStyle(new DOM::RunStyle(mark)));
    EffectiveFormats formats(layers.document);
    EXPECT_EQ(formats.getLabelProps(paragraph).getBold(), true);
    paragraph.setNumRef(makeReference(list));
    EXPECT_EQ(formats.getLabelProps(paragraph).getBold(), false);
    EXPECT_EQ(formats.getLabelProps(paragraph).getItalic(), true);
}

} // namespace
} // namespace QV::Filters
