#include <DOM/Public/Styles.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/BordersProps.h>
#include <DOM/Public/CellProps.h>
#include <DOM/Public/CellStyle.h>
#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/SharedObjectFactory.h>
#include <DOM/Public/TrackChangesViewMode.h>
#include <DOM/Public/UUIDContainer.h>
#include <Tests/Support/Printers.h>
#include <Tests/Support/RecordedAssertions.h>
#include <Tests/Support/StyledTable.h>

namespace QV::DOM {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::getWidths;
using Tests::makeBorders;

NamedTextStyle makeTextStyle(const UUID& uuid, const char* name)
{
    NamedTextStyle style;
    style.setUUID(uuid);
    style.setName(std::string(name));
    return style;
}

std::vector<std::string> getNames(const UUIDContainer<NamedTextStyle>& styles)
{
    std::vector<std::string> names;
    for (const NamedTextStyle& style : styles)
        names.push_back(boost::get<std::string>(style.getName()));
    return names;
}

TEST(UUIDContainer, KeepsTheOrderOfIdentifiers)
{
    UUIDContainer<NamedTextStyle> styles;
    EXPECT_TRUE(styles.empty());
    styles.insert(makeTextStyle(UUID(2, 0), "b"));
    styles.insert(makeTextStyle(UUID(3, 0), "c"));
    styles.insert(makeTextStyle(UUID(1, 0), "a"));
    EXPECT_THAT(getNames(styles), ElementsAre("a", "b", "c"));
    EXPECT_EQ(styles.size(), 3U);
    ASSERT_NE(styles.find(UUID(2, 0)), nullptr);
    EXPECT_EQ(styles.find(UUID(2, 0))->getUUID(), UUID(2, 0));
    EXPECT_EQ(styles.find(UUID(4, 0)), nullptr);
}

TEST(UUIDContainer, SecondOfAnIdentifierFailsAndTheFirstStays)
{
    const Tests::RecordedAssertions assertions;
    UUIDContainer<NamedTextStyle> styles;
    const NamedTextStyle* const first = &styles.insert(makeTextStyle(UUID(1, 0), "first"));
    EXPECT_THAT(assertions.getExpressions(), IsEmpty());
    EXPECT_EQ(&styles.insert(makeTextStyle(UUID(1, 0), "second")), first);
    EXPECT_THAT(assertions.getExpressions(), ElementsAre("_collection.find(uuid) == _collection.end()"));
    EXPECT_THAT(getNames(styles), ElementsAre("first"));
}

TEST(UUIDContainer, ObjectsStayInTheirPlace)
{
    UUIDContainer<NamedTextStyle> styles;
    const NamedTextStyle* const first = &styles.insert(makeTextStyle(UUID(50, 0), "first"));
    for (std::uint64_t i = 100; i > 0; --i)
        styles.insert(makeTextStyle(UUID(i, 1), ""));
    EXPECT_EQ(styles.find(UUID(50, 0)), first);
}

TEST(TrackChangesViewMode, IsASetOfBits)
{
    EXPECT_EQ(static_cast<unsigned>(TrackChangesViewMode::FollowTrackedParents), 4U);
    const auto both = TrackChangesViewMode::ShowInsertions | TrackChangesViewMode::FollowTrackedParents;
    EXPECT_EQ(static_cast<unsigned>(both), 5U);
    EXPECT_TRUE(hasBits(both, TrackChangesViewMode::FollowTrackedParents));
    EXPECT_FALSE(hasBits(TrackChangesViewMode::ShowInsertions, both));
}

TEST(BordersProps, OverrideLaysSideBySide)
{
    BordersProps target = *makeBorders({1, 1, 0, 0, 1, 0});
    override(target, *makeBorders({0, 2, 2, 0, 0, 2}));
    EXPECT_EQ(getWidths(std::make_shared<BordersProps>(target)), (std::vector<float>{1, 2, 2, 0, 1, 2}));
}

TEST(CellProps, OverrideKeepsTheSidesThatTheSourceDoesNotSet)
{
    CellProps target;
    target.setBorders(makeBorders({1, 1, 0, 0, 0, 0}));
    target.setTextWrapping(true);
    CellProps source;
    source.setBorders(makeBorders({0, 2, 2, 0, 0, 0}));
    override(target, source);
    EXPECT_EQ(getWidths(target.getBorders()), (std::vector<float>{1, 2, 2, 0, 0, 0}));
    EXPECT_EQ(target.getTextWrapping(), true);
    override(target, CellProps());
    EXPECT_EQ(getWidths(target.getBorders()), (std::vector<float>{1, 2, 2, 0, 0, 0}));
}

// A value of each kind that differs in one thing from what a default one is. Two of them that are made alike
// are equal, hash alike and share one object; of two things, no two are equal.
template <typename Style>
struct ValueRow
{
    const char* name;
    std::function<void(Style&)> prepare;
};

std::shared_ptr<const LineProps> makeLine(LineStyle style, float width, boost::optional<Color> color)
{
    return std::make_shared<LineProps>(style, width, color);
}

template <typename Set>
std::function<void(CellStyle&)> withCellProps(Set set)
{
    return [set](CellStyle& style) {
        auto props = std::make_shared<CellProps>();
        set(*props);
        style.setCellProps(props);
    };
}

std::function<void(CellStyle&)> withBorders(void (BordersProps::*set)(BordersProps::Line&&), LineProps line)
{
    return withCellProps([set, line](CellProps& props) {
        auto borders = std::make_shared<BordersProps>();
        (*borders.*set)(std::make_shared<LineProps>(line));
        props.setBorders(borders);
    });
}

const Color Red(Color::RGBA(255, 0, 0, 255));
const LineProps Thin(LineStyle::Solid, 0.75F);

const ValueRow<CellStyle> CellStyleRows[] = {
    {"Parent",                                                                                           [](CellStyle& style) { style.setParentUUID(UUID(1, 1)); }             },
    {"Fill",                                                                                             withCellProps([](CellProps& props) { props.setBackgroundColor(Red); })},
    {"Left",                                                                                             withBorders(&BordersProps::setLeft,                                     Thin)},
    {"Top",                                                                                                  withBorders(&BordersProps::setTop,                                                                                                                                                                    Thin)},
    {"Right",                                                                                             withBorders(&BordersProps::setRight,Thin)},
    {"Bottom",withBorders(&BordersProps::setBottom,                                     Thin)},
    {"Vertical",                                                                                           withBorders(&BordersProps::setVertical,                                                                                                                                                           Thin)},
    {"Horizontal",                                                                                                  withBorders(&BordersProps::setHorizontal,                                                                                                                                                               Thin)},
    {"OtherWidth",                                                                                             withBorders(&BordersProps::setLeft,         LineProps(LineStyle::Solid, 1.5F))},
    {"OtherStyle",withBorders(&BordersProps::setLeft,LineProps(LineStyle::Dotted, 0.75F))},
    {"OtherColor",                                                                                       withBorders(&BordersProps::setLeft,                               LineProps(LineStyle::Solid, 0.75F, Red))},
    {"NoneLine",                                                                                            withBorders(&BordersProps::setLeft,                                                                                                                                                                  LineProps())},
    {"DiagonalUp",
     withCellProps([](CellProps& props) { props.setDiagonalUp(makeLine(LineStyle::Solid, 1, Red)); })                                                                                                                                                                                                                                                                                       },
    {"DiagonalDown",
     withCellProps([](CellProps& props) { props.setDiagonalDown(makeLine(LineStyle::Solid, 1, Red)); })                                                                                                                                                            },
    {"Vertically",
     withCellProps([](CellProps& props) { props.setVerticalAlignment(VerticalAlignment::Top); })                                                                                                          },
    {"Wrapping",                                                                                                  withCellProps([](CellProps& props) { props.setTextWrapping(true); })                                                                                                                                                              },
    {"NotWrapping",                                                                                      withCellProps([](CellProps& props) { props.setTextWrapping(false); })},
    {"Horizontally",
     [](CellStyle& style) {
            auto props = std::make_shared<ParaProps>();
            props->setHorizontalAlignment(HorizontalAlignment::Center);
            style.setParaProps(props);
        }},
    {"Font",
     [](CellStyle& style) {
            auto props = std::make_shared<RunProps>();
            props->setBold(true);
            style.setRunProps(props);
        }},
};

const ValueRow<RunStyle> RunStyleRows[] = {
    {"Parent",         [](RunStyle& style) { style.setParentUUID(UUID(1, 1)); }                          },
    {"TrackedParent",  [](RunStyle& style) { style.setTrackedParent(UUID(1, 1)); }                       },
    {"Link",           [](RunStyle& style) { style.setHyperlink(std::make_shared<Hyperlink>("u")); }     },
    {"LinkWithAnchor", [](RunStyle& style) { style.setHyperlink(std::make_shared<Hyperlink>("u", "a")); }},
    {"Font",
     [](RunStyle& style) {
            auto props = std::make_shared<RunProps>();
            props->setBold(true);
            style.setRunProps(props);
        }                                                                                                },
};

template <typename Style>
Style make(const ValueRow<Style>& row)
{
    Style style;
    row.prepare(style);
    return style;
}

template <typename Style, std::size_t Size>
void expectValues(const ValueRow<Style> (&rows)[Size])
{
    SharedObjectFactory factory;
    EXPECT_TRUE(Style().isEmpty());
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_FALSE(make(row).isEmpty());
        EXPECT_FALSE(make(row) == Style());
        EXPECT_EQ(hash_value(make(row)), hash_value(make(row)));
        EXPECT_EQ(factory.getShared(make(row)), factory.getShared(make(row)));
        for (const auto& other : rows)
            EXPECT_EQ(make(row) == make(other), &row == &other) << other.name;
    }
}

TEST(CellStyle, IsAValue)
{
    expectValues(CellStyleRows);
}

TEST(RunStyle, IsAValue)
{
    expectValues(RunStyleRows);
}

TEST(ParagraphStyle, IsAValue)
{
    ParagraphStyle a;
    EXPECT_TRUE(a.isEmpty());
    ParagraphStyle b;
    auto props = std::make_shared<ParaProps>();
    a.setParaProps(props);
    EXPECT_TRUE(a.isEmpty()) << "no property is set";
    EXPECT_FALSE(a == b);
    b.setParaProps(std::make_shared<ParaProps>());
    EXPECT_TRUE(a == b);
    EXPECT_EQ(hash_value(a), hash_value(b));
    props->setHorizontalAlignment(HorizontalAlignment::Right);
    EXPECT_FALSE(a.isEmpty());
    EXPECT_FALSE(a == b);
    b.setTrackedParent(UUID(1, 1));
    EXPECT_FALSE(b.isEmpty());
}

TEST(CellStyle, SetsOfPropertiesThatSetNothingAreEmpty)
{
    CellStyle style;
    style.setCellProps(std::make_shared<CellProps>());
    style.setParaProps(std::make_shared<ParaProps>());
    style.setRunProps(std::make_shared<RunProps>());
    EXPECT_TRUE(style.isEmpty());
}

} // namespace
} // namespace QV::DOM
