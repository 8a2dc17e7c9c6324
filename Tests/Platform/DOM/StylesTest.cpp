#include <DOM/Public/Styles.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
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
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/SharedObjectFactory.h>
#include <DOM/Public/TableStyle.h>
#include <DOM/Public/TrackChangesViewMode.h>
#include <DOM/Public/TrackedChange.h>
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

template <typename Style>
ValueRow<Style> makeRow(const char* name, std::function<void(Style&)> prepare)
{
    return {name, std::move(prepare)};
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

std::shared_ptr<const LineProps> makeRedLine()
{
    return std::make_shared<LineProps>(LineStyle::Solid, 1.0F, Red);
}

std::shared_ptr<const RunProps> makeBold(bool isBold)
{
    auto props = std::make_shared<RunProps>();
    props->setBold(isBold);
    return props;
}

std::shared_ptr<const ParaProps> makeAligned(HorizontalAlignment alignment)
{
    auto props = std::make_shared<ParaProps>();
    props->setAlignment(alignment);
    return props;
}

template <typename Style>
std::function<void(Style&)> withParent(const UUID& uuid)
{
    return [uuid](Style& style) { style.setParentUUID(uuid); };
}

template <typename Style>
std::function<void(Style&)> withTrackedParent(const UUID& uuid)
{
    return [uuid](Style& style) { style.setTrackedParent(uuid); };
}

template <typename Style>
std::function<void(Style&)> withBold(bool isBold)
{
    return [isBold](Style& style) { style.setRunProps(makeBold(isBold)); };
}

std::function<void(RunStyle&)> withTracked(const std::shared_ptr<const RunProps>& props)
{
    return [props](RunStyle& style) { style.setTrackedRunProps(std::make_shared<RunProps>(*props)); };
}

std::function<void(RunStyle&)> withChange(const TrackedChange& change)
{
    return [change](RunStyle& style) { style.setChange(std::make_shared<TrackedChange>(change)); };
}

std::function<void(RunStyle&)> withInstruction(const std::string& instruction)
{
    using Text = std::string;
    return [instruction](RunStyle& style) { style.setFieldInstruction(std::make_shared<Text>(instruction)); };
}

std::function<void(RunStyle&)> withLink(const char* url, const char* anchor)
{
    return [url, anchor](RunStyle& style) { style.setHyperlink(std::make_shared<Hyperlink>(url, anchor)); };
}

template <typename Style>
std::function<void(Style&)> withAlignment(HorizontalAlignment alignment)
{
    return [alignment](Style& style) { style.setParaProps(makeAligned(alignment)); };
}

using Change = TrackedChange::Kind;

const ValueRow<CellStyle> CellStyleRows[] = {
    makeRow("Parent", withParent<CellStyle>(UUID(1, 1))),
    makeRow("Fill", withCellProps([](CellProps& props) { props.setBackgroundColor(Red); })),
    makeRow("Left", withBorders(&BordersProps::setLeft, Thin)),
    makeRow("Top", withBorders(&BordersProps::setTop, Thin)),
    makeRow("Right", withBorders(&BordersProps::setRight, Thin)),
    makeRow("Bottom", withBorders(&BordersProps::setBottom, Thin)),
    makeRow("Vertical", withBorders(&BordersProps::setVertical, Thin)),
    makeRow("Horizontal", withBorders(&BordersProps::setHorizontal, Thin)),
    makeRow("OtherWidth", withBorders(&BordersProps::setLeft, LineProps(LineStyle::Solid, 1.5F))),
    makeRow("OtherStyle", withBorders(&BordersProps::setLeft, LineProps(LineStyle::Dotted, 0.75F))),
    makeRow("OtherColor", withBorders(&BordersProps::setLeft, LineProps(LineStyle::Solid, 0.75F, Red))),
    makeRow("NoneLine", withBorders(&BordersProps::setLeft, LineProps())),
    makeRow("DiagonalUp", withCellProps([](CellProps& props) { props.setDiagonalUp(makeRedLine()); })),
    makeRow("DiagonalDown", withCellProps([](CellProps& props) { props.setDiagonalDown(makeRedLine()); })),
    makeRow("Vertically",
        withCellProps([](CellProps& props) { props.setVerticalAlignment(VerticalAlignment::Top); })),
    makeRow("Wrapping", withCellProps([](CellProps& props) { props.setTextWrapping(true); })),
    makeRow("NotWrapping", withCellProps([](CellProps& props) { props.setTextWrapping(false); })),
    makeRow("Horizontally", withAlignment<CellStyle>(HorizontalAlignment::Center)),
    makeRow("Font", withBold<CellStyle>(true)),
};

const ValueRow<RunStyle> RunStyleRows[] = {
    makeRow("Parent", withParent<RunStyle>(UUID(1, 1))),
    makeRow("OtherParent", withParent<RunStyle>(UUID(1, 2))),
    makeRow("TrackedParent", withTrackedParent<RunStyle>(UUID(1, 1))),
    makeRow("Link", withLink("u", "")),
    makeRow("LinkWithAnchor", withLink("u", "a")),
    makeRow("Bold", withBold<RunStyle>(true)),
    makeRow("NotBold", withBold<RunStyle>(false)),
    makeRow("WasBold", withTracked(makeBold(true))),
    makeRow("WasPlain", withTracked(std::make_shared<RunProps>())),
    makeRow("Inserted", withChange(TrackedChange(Change::Inserted, "", ""))),
    makeRow("Deleted", withChange(TrackedChange(Change::Deleted, "", ""))),
    makeRow("MovedFrom", withChange(TrackedChange(Change::MovedFrom, "", ""))),
    makeRow("MovedTo", withChange(TrackedChange(Change::MovedTo, "", ""))),
    makeRow("InsertedBySomebody", withChange(TrackedChange(Change::Inserted, "a", ""))),
    makeRow("InsertedSometime", withChange(TrackedChange(Change::Inserted, "", "a"))),
    makeRow("Field", withInstruction("PAGE")),
    makeRow("OtherField", withInstruction("NUMPAGES")),
};

const ValueRow<ParagraphStyle> ParagraphStyleRows[] = {
    makeRow("Parent", withParent<ParagraphStyle>(UUID(1, 1))),
    makeRow("OtherParent", withParent<ParagraphStyle>(UUID(1, 2))),
    makeRow("TrackedParent", withTrackedParent<ParagraphStyle>(UUID(1, 1))),
    makeRow("Left", withAlignment<ParagraphStyle>(HorizontalAlignment::Left)),
    makeRow("Right", withAlignment<ParagraphStyle>(HorizontalAlignment::Right)),
    makeRow("Bold", withBold<ParagraphStyle>(true)),
    makeRow("NotBold", withBold<ParagraphStyle>(false)),
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

// An omitted part would make pools slow, and change nothing else.
template <typename Style, std::size_t Size>
void expectDistinctHashes(const ValueRow<Style> (&rows)[Size])
{
    std::map<std::size_t, const char*> names = {
        {hash_value(Style()), "nothing"}
    };
    for (const auto& row : rows) {
        const auto added = names.emplace(hash_value(make(row)), row.name);
        EXPECT_TRUE(added.second) << row.name << " hashes as " << added.first->second;
    }
}

TEST(CellStyle, IsAValue)
{
    expectValues(CellStyleRows);
}

TEST(RunStyle, IsAValue)
{
    expectValues(RunStyleRows);
    expectDistinctHashes(RunStyleRows);
}

TEST(ParagraphStyle, IsAValue)
{
    expectValues(ParagraphStyleRows);
    expectDistinctHashes(ParagraphStyleRows);
}

TEST(ParagraphStyle, ComparesThroughItsSetsOfProperties)
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
    props->setAlignment(HorizontalAlignment::Right);
    EXPECT_FALSE(a.isEmpty());
    EXPECT_FALSE(a == b);
    b.setTrackedParent(UUID(1, 1));
    EXPECT_FALSE(b.isEmpty());
}

TEST(RunStyle, FormerPropertiesAndInstructionsTellEvenWhenEmpty)
{
    RunStyle style;
    style.setRunProps(std::make_shared<RunProps>());
    EXPECT_TRUE(style.isEmpty());
    style.setTrackedRunProps(std::make_shared<RunProps>());
    EXPECT_FALSE(style.isEmpty());

    RunStyle field;
    field.setFieldInstruction(std::make_shared<std::string>());
    EXPECT_FALSE(field.isEmpty());
    EXPECT_FALSE(field == RunStyle());
}

TEST(Styles, SayNothingByDefaultUntilTold)
{
    Styles styles;
    EXPECT_TRUE(styles.getDefaultParagraphStyle().isEmpty());
    EXPECT_TRUE(styles.getDefaultTableStyle() == TableStyle());
    EXPECT_EQ(styles.getDefaultParaProps(), nullptr);
    EXPECT_EQ(styles.getDefaultRunProps(), nullptr);

    ParagraphStyle paragraphStyle;
    paragraphStyle.setParentUUID(UUID(1, 1));
    styles.setDefaultParagraphStyle(paragraphStyle);
    TableStyle tableStyle;
    tableStyle.setParentUUID(UUID(2, 2));
    styles.setDefaultTableStyle(tableStyle);
    styles.setDefaultParaProps(makeAligned(HorizontalAlignment::Justify));
    styles.setDefaultRunProps(makeBold(true));
    EXPECT_TRUE(styles.getDefaultParagraphStyle() == paragraphStyle);
    EXPECT_TRUE(styles.getDefaultTableStyle() == tableStyle);
    EXPECT_TRUE(styles.getDefaultParaProps()->getAlignment() == HorizontalAlignment::Justify);
    EXPECT_EQ(styles.getDefaultRunProps()->getBold(), true);
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
