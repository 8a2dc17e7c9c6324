// Chains of styles that are still in the making, and what paragraphs get of their numbering.

#include <FilterUtils/FU_StyleHierarchy.h>

#include <cstddef>
#include <memory>
#include <ostream>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/CellStyle.h>
#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/TableStyle.h>
#include <FilterUtils/FU_NamedStylesFactory.h>
#include <Tests/Support/NumRefs.h>
#include <Utils/Public/Ptr/PtrUtils.h>
#include <Utils/Public/UUID.h>

namespace QV::FilterUtils {
namespace {

using DOM::TrackChangesViewMode;
using testing::ElementsAre;
using testing::IsEmpty;
using Tests::makeNumRef;
using Tests::NumRef;
using Tests::toText;

/// The same styles in a factory and in a finished collection.
struct StylesInBoth
{
    UUID add(const UUID& parent, std::unique_ptr<DOM::NumberingRef> reference = nullptr,
        std::shared_ptr<const DOM::RunProps> props = nullptr)
    {
        const std::shared_ptr<DOM::NamedTextStyle> style = factory.makeNamedTextStyle(boost::none);
        style->setParentUUID(parent);
        style->setNumRef(std::move(reference));
        style->setRunProps(std::move(props));
        styles.getTextStyles().insert(*style);
        return style->getUUID();
    }

    void setDefault(const UUID& uuid)
    {
        factory.setDefaultParagraphStyleUUID(uuid);
        styles.setDefaultParagraphStyle(factory.getDefaultParagraphStyle());
    }

    NamedStylesFactory factory;
    DOM::Styles styles;
};

template <typename C>
std::vector<UUID> getChain(const C& styles, const DOM::NamedTextStyle* start)
{
    std::vector<UUID> chain;
    forEachStyleInHierarchy(
        styles, start, [&](const DOM::NamedTextStyle& style) { chain.push_back(style.getUUID()); });
    return chain;
}

template <typename C>
std::string getNumRefText(const C& styles, const DOM::Paragraph& paragraph, unsigned mode)
{
    return toText(getOverridenNumRefWithTracked(styles, paragraph, static_cast<TrackChangesViewMode>(mode)));
}

TEST(GetParentInAFactory, FindsWhatATextStyleDerivesFrom)
{
    NamedStylesFactory factory;
    const auto child = factory.makeNamedTextStyle(boost::none);
    const auto root = factory.makeNamedTextStyle(boost::none);
    child->setParentUUID(root->getUUID());
    DOM::ParagraphStyle paragraph;
    paragraph.setParentUUID(child->getUUID());
    DOM::RunStyle run;
    run.setParentUUID(root->getUUID());
    EXPECT_EQ((getParent<NamedStylesFactory, DOM::ParagraphStyle>(factory, paragraph)), child.get());
    EXPECT_EQ((DOM::getParent<NamedStylesFactory, DOM::RunStyle>(factory, run)), root.get());
    EXPECT_EQ((getParent<NamedStylesFactory, DOM::NamedTextStyle>(factory, *child)), root.get());
    EXPECT_EQ(getParent(factory, *root), nullptr);
    paragraph.setParentUUID(UUID::generate());
    EXPECT_EQ(getParent(factory, paragraph), nullptr);
    EXPECT_EQ(getParent(NamedStylesFactory(), run), nullptr);
}

TEST(GetParentInAFactory, FindsWhatATableStyleDerivesFrom)
{
    NamedStylesFactory factory;
    const auto child = factory.makeNamedTableStyle();
    const auto root = factory.makeNamedTableStyle();
    child->setParentUUID(root->getUUID());
    DOM::TableStyle table;
    table.setParentUUID(child->getUUID());
    DOM::CellStyle cell;
    cell.setParentUUID(root->getUUID());
    EXPECT_EQ((getParent<NamedStylesFactory, DOM::TableStyle>(factory, table)), child.get());
    EXPECT_EQ((getParent<NamedStylesFactory, DOM::NamedTableStyle>(factory, *child)), root.get());
    EXPECT_EQ(getParent(factory, cell), root.get());
    EXPECT_EQ(getParent(factory, *root), nullptr);
}

TEST(GetParentInAFactory, KeepsTextAndTableStylesApart)
{
    NamedStylesFactory factory;
    DOM::ParagraphStyle paragraph;
    paragraph.setParentUUID(factory.makeNamedTableStyle()->getUUID());
    DOM::TableStyle table;
    table.setParentUUID(factory.makeNamedTextStyle(boost::none)->getUUID());
    EXPECT_EQ(getParent(factory, paragraph), nullptr);
    EXPECT_EQ(getParent(factory, table), nullptr);
}

TEST(GetParentInAFactory, TakesTheFirstOfTheSameIdentifier)
{
    NamedStylesFactory factory;
    const auto other = factory.makeNamedTextStyle(boost::none);
    const auto first = factory.makeNamedTextStyle(boost::none);
    const auto second = factory.makeNamedTextStyle(boost::none);
    second->setUUID(first->getUUID());
    DOM::ParagraphStyle paragraph;
    paragraph.setParentUUID(first->getUUID());
    EXPECT_EQ(getParent(factory, paragraph), first.get());
    other->setUUID(first->getUUID()); // the factory looks at the styles as they are now
    EXPECT_EQ(getParent(factory, paragraph), other.get());
}

TEST(ForEachStyleInHierarchyOfAFactory, GoesFromTheRootToTheStart)
{
    NamedStylesFactory factory;
    const auto middle = factory.makeNamedTextStyle(boost::none);
    const auto leaf = factory.makeNamedTextStyle(boost::none);
    const auto root = factory.makeNamedTextStyle(boost::none);
    leaf->setParentUUID(middle->getUUID());
    middle->setParentUUID(root->getUUID());
    EXPECT_THAT(
        getChain(factory, leaf.get()), ElementsAre(root->getUUID(), middle->getUUID(), leaf->getUUID()));
    EXPECT_THAT(getChain(factory, root.get()), ElementsAre(root->getUUID()));
    EXPECT_THAT(getChain(factory, nullptr), IsEmpty());
    root->setParentUUID(UUID::generate());
    EXPECT_THAT(getChain(factory, middle.get()), ElementsAre(root->getUUID(), middle->getUUID()));
}

enum class Link
{
    None,
    There,
    Dangling,
};

// The named styles of a row: a root with tag 1 and list 1; below it the present parent, with level 2, and the
// tracked one, with level 3; and the default one, of which all is 9.
struct NumRefRow
{
    const char* name;
    Link present;
    Link tracked;
    Link byDefault;
    NumRef own; // nothing set: the paragraph has none
    unsigned mode;
    NumRef expected; // nothing set: null
};

void PrintTo(const NumRefRow& row, std::ostream* out)
{
    *out << row.name << ", mode " << row.mode;
}

// name, present, tracked, byDefault, own, mode, expected
const NumRefRow NumRefRows[] = {
    {"NothingAtAll",           Link::None,     Link::None,     Link::None,     {},          4, {}         },
    {"OwnAlone",               Link::None,     Link::None,     Link::None,     {5, 6, 7},   4, {5, 6, 7}  },
    {"StylesAlone",            Link::There,    Link::None,     Link::There,    {},          4, {1, 1, 2}  },
    {"OwnLevelWins",           Link::There,    Link::None,     Link::There,    {-1, -1, 0}, 4, {1, 1, 0}  },
    {"OwnNilListWins",         Link::There,    Link::None,     Link::There,    {-1, 0, -1}, 4, {1, 0, 2}  },
    {"TrackedInMode4",         Link::There,    Link::There,    Link::There,    {},          4, {1, 1, 3}  },
    {"TrackedInMode5",         Link::There,    Link::There,    Link::There,    {},          5, {1, 1, 3}  },
    {"TrackedInMode7",         Link::There,    Link::There,    Link::There,    {},          7, {1, 1, 3}  },
    {"PresentInMode0",         Link::There,    Link::There,    Link::There,    {},          0, {1, 1, 2}  },
    {"PresentInMode3",         Link::There,    Link::There,    Link::There,    {},          3, {1, 1, 2}  },
    {"PresentInMode8",         Link::There,    Link::There,    Link::There,    {},          8, {1, 1, 2}  },
    {"TrackedWithoutPresent",  Link::None,     Link::There,    Link::There,    {},          4, {1, 1, 3}  },
    {"DefaultWithoutParent",   Link::None,     Link::None,     Link::There,    {},          0, {9, 9, 9}  },
    {"DefaultForDangling",     Link::Dangling, Link::None,     Link::There,    {},          0, {9, 9, 9}  },
    {"DefaultForTrackedAway",  Link::None,     Link::There,    Link::There,    {},          3, {9, 9, 9}  },
    {"DefaultForLostTracked",  Link::There,    Link::Dangling, Link::There,    {},          4, {9, 9, 9}  },
    {"LostTrackedNotAskedFor", Link::There,    Link::Dangling, Link::There,    {},          3, {1, 1, 2}  },
    {"OwnOverDefault",         Link::None,     Link::None,     Link::There,    {-1, 6, -1}, 4, {9, 6, 9}  },
    {"LostDefault",            Link::None,     Link::None,     Link::Dangling, {},          4, {}         },
    {"LostDefaultUnderOwn",    Link::Dangling, Link::None,     Link::Dangling, {-1, -1, 7}, 4, {-1, -1, 7}},
    {"LostTrackedNoDefault",   Link::There,    Link::Dangling, Link::None,     {},          4, {}         },
};

class GetOverridenNumRefWithTracked : public testing::TestWithParam<NumRefRow>
{
};

UUID follow(Link link, const UUID& there)
{
    if (link == Link::None)
        return {};
    return link == Link::There ? there : UUID::generate();
}

TEST_P(GetOverridenNumRefWithTracked, KeepsRow)
{
    const NumRefRow& row = GetParam();
    StylesInBoth both;
    const UUID root = both.add({}, makeNumRef({1, 1, -1}));
    const UUID bare = both.add(root); // says nothing of numbering
    const UUID present = both.add(bare, makeNumRef({-1, -1, 2}));
    const UUID tracked = both.add(bare, makeNumRef({-1, -1, 3}));
    both.setDefault(follow(row.byDefault, both.add({}, makeNumRef({9, 9, 9}))));
    DOM::ParagraphStyle style;
    style.setParentUUID(follow(row.present, present));
    if (row.tracked != Link::None)
        style.setTrackedParent(follow(row.tracked, tracked));
    DOM::Paragraph paragraph;
    paragraph.setStyle(style);
    if (!isEmpty(*makeNumRef(row.own)))
        paragraph.setNumRef(makeNumRef(row.own));
    const std::string expected = isEmpty(*makeNumRef(row.expected)) ? "null" : toText(row.expected);
    EXPECT_EQ(getNumRefText(both.factory, paragraph, row.mode), expected);
    EXPECT_EQ(getNumRefText(both.styles, paragraph, row.mode), expected);
    EXPECT_EQ(toText(paragraph.getNumRef()), isEmpty(*makeNumRef(row.own)) ? "null" : toText(row.own));
}

INSTANTIATE_TEST_SUITE_P(Rows, GetOverridenNumRefWithTracked, testing::ValuesIn(NumRefRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(GetOverridenNumRefWithTracked, IsNullForReferencesWithNothingInThem)
{
    StylesInBoth both;
    DOM::ParagraphStyle style;
    style.setParentUUID(both.add({}, makeNumRef({})));
    DOM::Paragraph paragraph;
    paragraph.setStyle(style);
    EXPECT_EQ(getNumRefText(both.factory, paragraph, 4), "null");
    paragraph.setNumRef(makeNumRef({}));
    EXPECT_EQ(getNumRefText(both.factory, paragraph, 4), "null");
    EXPECT_EQ(getNumRefText(both.styles, paragraph, 4), "null");
}

TEST(GetOverridenNumRefWithTracked, IsReachedThroughTheModelToo)
{
    const NamedStylesFactory factory;
    DOM::Paragraph paragraph;
    paragraph.setNumRef(makeNumRef({1, 2, 3}));
    const auto reference = DOM::getOverridenNumRefWithTracked<NamedStylesFactory, DOM::Paragraph>(
        factory, paragraph, TrackChangesViewMode::Final);
    EXPECT_EQ(toText(reference), toText({1, 2, 3}));
    EXPECT_NE(reference, paragraph.getNumRef());
}

/// Styles that derive from any that came before, or from one that is not there, and set any of their
/// properties; and paragraphs and runs under them.
class RandomStyles
{
public:
    RandomStyles()
    {
        for (int i = 0; i < 60; ++i)
            _uuids.push_back(both.add(pickUUID(), pickNumRef(), pickRunProps()));
    }

    UUID pickUUID()
    {
        const std::size_t choice = _random() % (_uuids.size() + 4);
        if (choice < _uuids.size())
            return _uuids[choice];
        return choice % 2 == 0 ? UUID() : UUID(7, 7);
    }

    std::unique_ptr<DOM::NumberingRef> pickNumRef()
    {
        if (_random() % 2 == 0)
            return nullptr;
        return makeNumRef({pickNumber(), pickNumber(), pickNumber()});
    }

    std::shared_ptr<const DOM::RunProps> pickRunProps()
    {
        if (_random() % 2 == 0)
            return nullptr;
        auto props = std::make_shared<DOM::RunProps>();
        if (_random() % 2 == 0)
            props->setFontSize(static_cast<float>(_random() % 100));
        if (_random() % 2 == 0)
            props->setBold(_random() % 2 == 0);
        if (_random() % 2 == 0)
            props->setFontName(std::to_string(_random() % 100));
        return props;
    }

    template <typename Style>
    Style pickStyle()
    {
        Style style;
        style.setParentUUID(pickUUID());
        if (_random() % 2 == 0)
            style.setTrackedParent(pickUUID());
        style.setRunProps(pickRunProps());
        return style;
    }

    StylesInBoth both;

private:
    int pickNumber() { return static_cast<int>(_random() % 6) - 2; }

    std::mt19937 _random{1};
    std::vector<UUID> _uuids;
};

TEST(StyleHierarchy, IsTheSameInAFactoryAndInFinishedStyles)
{
    RandomStyles random;
    for (const auto& style : random.both.factory.getTextStyles())
        EXPECT_EQ(getChain(random.both.factory, style.get()),
            getChain(random.both.styles, random.both.styles.getTextStyles().find(style->getUUID())));
    for (unsigned i = 0; i < 800; ++i) {
        random.both.setDefault(random.pickUUID());
        DOM::Paragraph paragraph;
        paragraph.setStyle(random.pickStyle<DOM::ParagraphStyle>());
        paragraph.setNumRef(random.pickNumRef());
        EXPECT_EQ(getNumRefText(random.both.factory, paragraph, i % 8),
            getNumRefText(random.both.styles, paragraph, i % 8));
    }
}

template <typename Style>
void expectSameRunProps(RandomStyles& random)
{
    for (unsigned i = 0; i < 800; ++i) {
        const auto mode = static_cast<TrackChangesViewMode>(i % 8);
        const Style style = random.pickStyle<Style>();
        std::shared_ptr<DOM::RunProps> inFactory;
        std::shared_ptr<DOM::RunProps> inStyles;
        overrideRunPropsWithTracked(random.both.factory, inFactory, style, mode);
        overrideRunPropsWithTracked(random.both.styles, inStyles, style, mode);
        EXPECT_TRUE(pointeesEqual(inFactory, inStyles)) << "style " << i;
    }
}

TEST(StyleHierarchy, GivesTheSameRunProperties)
{
    RandomStyles random;
    expectSameRunProps<DOM::RunStyle>(random);
    expectSameRunProps<DOM::ParagraphStyle>(random);
}

} // namespace
} // namespace QV::FilterUtils
