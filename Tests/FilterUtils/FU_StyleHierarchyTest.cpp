#include <FilterUtils/FU_StyleHierarchy.h>

#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/TableStyle.h>
#include <FilterUtils/FU_NamedStylesFactory.h>
#include <Tests/Support/NumRefs.h>
#include <Tests/Support/Printers.h>

namespace QV::FilterUtils {
namespace {

using DOM::TrackChangesViewMode;
using testing::ElementsAre;
using testing::IsEmpty;
using Tests::makeNumRef;
using Tests::toText;

std::shared_ptr<const DOM::RunProps> makeFont(const char* name, boost::optional<float> size = boost::none)
{
    auto props = std::make_shared<DOM::RunProps>();
    if (name)
        props->setFontName(std::string(name));
    props->setFontSize(size);
    return props;
}

UUID addTextStyle(
    DOM::Styles& styles, const UUID& parent, const char* name, std::shared_ptr<const DOM::RunProps> props)
{
    DOM::NamedTextStyle style;
    style.setParentUUID(parent);
    style.setName(std::string(name));
    style.setRunProps(std::move(props));
    return styles.getTextStyles().insert(std::move(style)).getUUID();
}

std::vector<std::string> namesFrom(const DOM::Styles& styles, const DOM::NamedTextStyle* start)
{
    std::vector<std::string> names;
    forEachStyleInHierarchy(styles, start,
        [&](const DOM::NamedTextStyle& style) { names.push_back(boost::get<std::string>(style.getName())); });
    return names;
}

TEST(GetParent, FindsWhatAStyleDerivesFrom)
{
    DOM::Styles styles;
    const UUID root = addTextStyle(styles, {}, "root", nullptr);
    const UUID child = addTextStyle(styles, root, "child", nullptr);
    DOM::ParagraphStyle paragraph;
    paragraph.setParentUUID(child);
    const DOM::NamedTextStyle* const found = getParent(styles, paragraph);
    ASSERT_EQ(found, styles.getTextStyles().find(child));
    EXPECT_EQ(getParent(styles, *found), styles.getTextStyles().find(root));
    EXPECT_EQ(getParent(styles, *styles.getTextStyles().find(root)), nullptr);
    paragraph.setParentUUID(UUID::generate());
    EXPECT_EQ(getParent(styles, paragraph), nullptr);
}

TEST(GetParent, KeepsTextAndTableStylesApart)
{
    DOM::Styles styles;
    DOM::NamedTableStyle table;
    const UUID uuid = table.getUUID();
    styles.getTableStyles().emplace(uuid, table);
    DOM::NamedTableStyle child;
    child.setParentUUID(uuid);
    DOM::RunStyle run;
    run.setParentUUID(uuid);
    EXPECT_EQ((DOM::getParent<const DOM::Styles, DOM::NamedTableStyle>(styles, child)),
        &styles.getTableStyles().at(uuid));
    EXPECT_EQ(getParent(styles, run), nullptr);
}

TEST(ForEachStyleInHierarchy, GoesFromTheRootToTheStart)
{
    DOM::Styles styles;
    UUID last;
    for (const char* name : {"a", "b", "c", "d", "e"})
        last = addTextStyle(styles, last, name, nullptr);
    EXPECT_THAT(namesFrom(styles, styles.getTextStyles().find(last)), ElementsAre("a", "b", "c", "d", "e"));
    EXPECT_THAT(namesFrom(styles, nullptr), IsEmpty());
    const UUID orphan = addTextStyle(styles, UUID::generate(), "orphan", nullptr);
    EXPECT_THAT(namesFrom(styles, styles.getTextStyles().find(orphan)), ElementsAre("orphan"));
}

TEST(ForEachStyleInHierarchy, WalksLongChains)
{
    DOM::Styles styles;
    UUID last;
    for (int i = 0; i < 10000; ++i)
        last = addTextStyle(styles, last, "", nullptr);
    EXPECT_EQ(namesFrom(styles, styles.getTextStyles().find(last)).size(), 10000U);
}

TEST(Override, NullSourceChangesNothing)
{
    std::shared_ptr<DOM::RunProps> target;
    override<DOM::RunProps>(target, nullptr);
    EXPECT_EQ(target, nullptr);
    target = std::make_shared<DOM::RunProps>(*makeFont("A"));
    DOM::RunProps* const object = target.get();
    override<DOM::RunProps>(target, nullptr);
    EXPECT_EQ(target.get(), object);
    EXPECT_EQ(*target, *makeFont("A"));
}

TEST(Override, NullTargetBecomesACopy)
{
    std::shared_ptr<DOM::RunProps> target;
    const auto source = makeFont("A", 10.0F);
    override(target, source);
    EXPECT_NE(target, source);
    EXPECT_EQ(*target, *source);
}

TEST(Override, SetFieldsWinInTheTargetsObject)
{
    auto target = std::make_shared<DOM::RunProps>(*makeFont("A", 10.0F));
    DOM::RunProps* const object = target.get();
    override(target, makeFont("B"));
    EXPECT_EQ(target.get(), object);
    EXPECT_EQ(*target, *makeFont("B", 10.0F));
}

TEST(OverrideNumberingRef, NullSourceChangesNothing)
{
    std::unique_ptr<DOM::NumberingRef> target;
    override<DOM::NumberingRef>(target, nullptr);
    EXPECT_EQ(target, nullptr);
    target = makeNumRef({1, 2, 3});
    const DOM::NumberingRef* const object = target.get();
    override<DOM::NumberingRef>(target, nullptr);
    EXPECT_EQ(target.get(), object);
    EXPECT_EQ(toText(target), toText({1, 2, 3}));
}

TEST(OverrideNumberingRef, NullTargetBecomesACopy)
{
    std::unique_ptr<DOM::NumberingRef> target;
    const std::unique_ptr<DOM::NumberingRef> source = makeNumRef({1, -1, 0});
    override(target, source);
    EXPECT_NE(target, source);
    EXPECT_EQ(toText(target), toText({1, -1, 0}));
    EXPECT_EQ(toText(source), toText({1, -1, 0}));
}

TEST(OverrideNumberingRef, SetFieldsWinInTheTargetsObject)
{
    std::unique_ptr<DOM::NumberingRef> target = makeNumRef({1, 2, -1});
    const DOM::NumberingRef* const object = target.get();
    override(target, makeNumRef({-1, 0, 4}));
    EXPECT_EQ(target.get(), object);
    EXPECT_EQ(toText(target), toText({1, 0, 4}));
}

TEST(OverrideWithParentStyles, FoldsFromTheRoot)
{
    DOM::Styles styles;
    const UUID root = addTextStyle(styles, {}, "", makeFont("root", 10.0F));
    const UUID bare = addTextStyle(styles, root, "", nullptr);
    const UUID leaf = addTextStyle(styles, bare, "", makeFont("leaf"));
    std::shared_ptr<DOM::RunProps> result;
    overrideWithParentStyles(styles, result, styles.getTextStyles().find(leaf),
        [](const DOM::NamedTextStyle& style) { return style.getRunProps(); });
    ASSERT_TRUE(result);
    EXPECT_EQ(*result, *makeFont("leaf", 10.0F));
}

// Which of four layers a style has, and the font that they come to; each sets a font of its own name.
struct TrackedRow
{
    const char* name;
    bool hasParent;
    bool hasTracked;
    bool isTrackedDangling;
    bool hasOwn;
    unsigned mode;
    const char* font; // null for no properties at all
};

void PrintTo(const TrackedRow& row, std::ostream* out)
{
    *out << row.name << ", mode " << row.mode;
}

// name, hasParent, hasTracked, isTrackedDangling, hasOwn, mode, font
const TrackedRow TrackedRows[] = {
    {"Nothing",               false, false, false, false, 4, nullptr  },
    {"OwnAlone",              false, false, false, true,  4, "own"    },
    {"ParentAlone",           true,  false, false, false, 4, "parent" },
    {"OwnOverParent",         true,  false, false, true,  4, "own"    },
    {"TrackedInMode4",        true,  true,  false, false, 4, "tracked"},
    {"TrackedInMode5",        true,  true,  false, false, 5, "tracked"},
    {"TrackedInMode7",        true,  true,  false, false, 7, "tracked"},
    {"PresentInMode0",        true,  true,  false, false, 0, "parent" },
    {"PresentInMode3",        true,  true,  false, false, 3, "parent" },
    {"PresentInMode8",        true,  true,  false, false, 8, "parent" },
    {"TrackedWithoutParent",  false, true,  false, false, 4, "tracked"},
    {"DanglingHidesParent",   true,  true,  true,  false, 4, nullptr  },
    {"DanglingWithoutTheBit", true,  true,  true,  false, 2, "parent" },
    {"OwnOverTracked",        true,  true,  false, true,  4, "own"    },
};

/// The same styles, as they are before the document is finished.
NamedStylesFactory makeFactory(const DOM::Styles& styles)
{
    NamedStylesFactory factory;
    for (const DOM::NamedTextStyle& style : styles.getTextStyles())
        *factory.makeNamedTextStyle(boost::none) = style;
    return factory;
}

class OverrideRunPropsWithTracked : public testing::TestWithParam<TrackedRow>
{
protected:
    template <typename Style>
    void expectRow()
    {
        const TrackedRow& row = GetParam();
        DOM::Styles styles;
        const UUID root = addTextStyle(styles, {}, "", makeFont(nullptr, 10.0F));
        const UUID parent = addTextStyle(styles, root, "", makeFont("parent"));
        const UUID tracked = addTextStyle(styles, root, "", makeFont("tracked"));
        Style style;
        if (row.hasParent)
            style.setParentUUID(parent);
        if (row.hasTracked)
            style.setTrackedParent(row.isTrackedDangling ? UUID::generate() : tracked);
        if (row.hasOwn)
            style.setRunProps(makeFont("own"));
        expectFont(styles, style);
        expectFont(makeFactory(styles), style);
    }

private:
    template <typename C, typename Style>
    void expectFont(const C& styles, const Style& style)
    {
        const TrackedRow& row = GetParam();
        std::shared_ptr<DOM::RunProps> result;
        overrideRunPropsWithTracked(styles, result, style, static_cast<TrackChangesViewMode>(row.mode));
        ASSERT_EQ(result != nullptr, row.font != nullptr);
        if (result) {
            EXPECT_EQ(result->getFontName(), std::string(row.font));
        }
        const bool isUnderRoot = result && (*row.font != 'o' || row.hasParent);
        EXPECT_EQ(result && result->getFontSize(), isUnderRoot);
    }
};

TEST_P(OverrideRunPropsWithTracked, KeepsRowForRuns)
{
    expectRow<DOM::RunStyle>();
}

TEST_P(OverrideRunPropsWithTracked, KeepsRowForParagraphs)
{
    expectRow<DOM::ParagraphStyle>();
}

INSTANTIATE_TEST_SUITE_P(Rows, OverrideRunPropsWithTracked, testing::ValuesIn(TrackedRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(OverrideRunPropsWithTracked, TakesARunsOwnPropertiesAsTheModeShowsThem)
{
    DOM::Styles styles;
    DOM::RunStyle style;
    style.setParentUUID(addTextStyle(styles, {}, "", makeFont("parent", 10.0F)));
    style.setRunProps(makeFont("own"));
    style.setTrackedRunProps(makeFont("former"));
    for (unsigned mode = 0; mode < 16; ++mode) {
        std::shared_ptr<DOM::RunProps> result;
        overrideRunPropsWithTracked(styles, result, style, static_cast<TrackChangesViewMode>(mode));
        ASSERT_TRUE(result);
        EXPECT_EQ(*result, *makeFont(mode & 4U ? "former" : "own", 10.0F)) << "mode " << mode;
    }
}

TEST(OverrideRunPropsWithTracked, LaysItselfOverWhatIsThere)
{
    const DOM::Styles styles;
    auto result = std::make_shared<DOM::RunProps>(*makeFont("below", 10.0F));
    DOM::RunStyle style;
    style.setRunProps(makeFont("own"));
    overrideRunPropsWithTracked(styles, result, style, TrackChangesViewMode::Final);
    EXPECT_EQ(*result, *makeFont("own", 10.0F));
}

} // namespace
} // namespace QV::FilterUtils
