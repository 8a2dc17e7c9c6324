#include <DOM/Public/ShapeProps.h>

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include <boost/functional/hash.hpp>
#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include <DOM/Public/TextLevels.h>

namespace QV::DOM {
namespace {

const Color Red(Color::RGBA(255, 0, 0, 255));

// --- values, member by member

// Each change makes a value that differs from a default one, and from what all other changes make.
template <typename Value>
void expectMemberByMember(std::initializer_list<std::function<void(Value&)>> changes)
{
    std::vector<Value> values(1);
    for (const auto& change : changes) {
        values.emplace_back();
        change(values.back());
    }
    for (std::size_t i = 0; i < values.size(); ++i)
        for (std::size_t j = 0; j < values.size(); ++j) {
            SCOPED_TRACE(testing::Message() << i << ", " << j);
            const Value other = values[j]; // in another place
            EXPECT_EQ(values[i] == other, i == j);
            EXPECT_EQ(values[i] != other, i != j);
            EXPECT_EQ(hash_value(values[i]) == hash_value(other), i == j);
        }
    EXPECT_EQ(values.size(), std::tuple_size_v<decltype(Value().tie())> + 1) << "a member has no change";
}

TEST(ShapeFill, ComparesMemberByMember)
{
    expectMemberByMember<RelativeRect>({
        [](auto& rect) { rect.left = 1; },
        [](auto& rect) { rect.top = 1; },
        [](auto& rect) { rect.right = 1; },
        [](auto& rect) { rect.bottom = 1; },
    });
    expectMemberByMember<NoFill>({});
    expectMemberByMember<SolidFill>({[](auto& fill) { fill.color = Red; }});
    expectMemberByMember<GradientFill::Stop>({
        [](auto& stop) { stop.position = 1; },
        [](auto& stop) { stop.color = Red; },
    });
    expectMemberByMember<GradientFill>({
        [](auto& fill) { fill.kind = GradientFill::Kind::Shape; },
        [](auto& fill) { fill.stops.emplace_back(); },
        [](auto& fill) { fill.angle = 1; },
        [](auto& fill) { fill.isScaled = true; },
        [](auto& fill) { fill.centre.left = 0.5F; },
        [](auto& fill) { fill.turnsWithShape = false; },
    });
    expectMemberByMember<PictureFill>({
        [](auto& fill) { fill.mediaId = "a"; },
        [](auto& fill) { fill.mimeType = "a"; },
        [](auto& fill) { fill.crop.left = 2; },
        [](auto& fill) { fill.opacity = 0.5F; },
        [](auto& fill) { fill.isTiled = true; },
        [](auto& fill) { fill.stretch.left = 2; },
        [](auto& fill) { fill.tileScale.x = 2; },
        [](auto& fill) { fill.tileScale.y = 2; },
        [](auto& fill) {
            fill.duotone = {Red, Red};
        },
        [](auto& fill) { fill.tileOffset.x = 2; },
        [](auto& fill) { fill.tileOffset.y = 2; },
    });
    expectMemberByMember<PatternFill>({
        [](auto& fill) { fill.preset = "pct20"; },
        [](auto& fill) { fill.foreground = Red; },
        [](auto& fill) { fill.background = Red; },
    });
}

TEST(ShapeFill, DiffersByItsKind)
{
    const ShapeFill fills[] = {NoFill(), SolidFill(), GradientFill(), PictureFill(), PatternFill()};
    const boost::hash<ShapeFill> hash;
    for (const ShapeFill& fill : fills)
        for (const ShapeFill& other : fills) {
            const ShapeFill copy = other;
            EXPECT_EQ(fill == copy, &fill == &other) << fill.which() << ", " << other.which();
            EXPECT_EQ(hash(fill) == hash(copy), &fill == &other) << fill.which() << ", " << other.which();
        }
}

TEST(ShapeGeometry, ComparesMemberByMember)
{
    expectMemberByMember<GeometryGuide>({
        [](auto& guide) { guide.name = "a"; },
        [](auto& guide) { guide.formula = "a"; },
    });
    expectMemberByMember<PathCommand>({
        [](auto& command) { command.kind = PathCommand::Kind::Close; },
        [](auto& command) { command.operands.emplace_back("a"); },
    });
    expectMemberByMember<GeometryPath>({
        [](auto& path) { path.width = 1; },
        [](auto& path) { path.height = 1; },
        [](auto& path) { path.filling = GeometryPath::Filling::Darken; },
        [](auto& path) { path.isStroked = false; },
        [](auto& path) { path.commands.emplace_back(); },
    });
    expectMemberByMember<ConnectionSite>({
        [](auto& site) { site.x = "a"; },
        [](auto& site) { site.y = "a"; },
        [](auto& site) { site.angle = "a"; },
    });
    expectMemberByMember<TextRectangle>({
        [](auto& rectangle) { rectangle.left = "a"; },
        [](auto& rectangle) { rectangle.top = "a"; },
        [](auto& rectangle) { rectangle.right = "a"; },
        [](auto& rectangle) { rectangle.bottom = "a"; },
    });
    expectMemberByMember<ShapeGeometry>({
        [](auto& geometry) { geometry.preset = "ooxml-rect"; },
        [](auto& geometry) { geometry.adjustValues.emplace_back(); },
        [](auto& geometry) { geometry.guides.emplace_back(); },
        [](auto& geometry) { geometry.connectionSites.emplace_back(); },
        [](auto& geometry) { geometry.textRectangle.emplace_back(); },
        [](auto& geometry) { geometry.paths.emplace_back(); },
    });
}

TEST(ShapeLook, ComparesMemberByMember)
{
    expectMemberByMember<LineEnd>({
        [](auto& end) { end.kind = LineEnd::Kind::Oval; },
        [](auto& end) { end.width = LineEnd::Size::Large; },
        [](auto& end) { end.length = LineEnd::Size::Large; },
    });
    expectMemberByMember<ShapeShadow>({
        [](auto& shadow) { shadow.color = Red; },
        [](auto& shadow) { shadow.blur = 1; },
        [](auto& shadow) { shadow.distance = 1; },
        [](auto& shadow) { shadow.direction = 1; },
        [](auto& shadow) { shadow.isInner = true; },
        [](auto& shadow) { shadow.turnsWithShape = false; },
    });
    expectMemberByMember<TextFit>({
        [](auto& fit) { fit.kind = TextFit::Kind::ShrinkText; },
        [](auto& fit) { fit.fontScale = 0.5F; },
        [](auto& fit) { fit.lineSpacingReduction = 0.5F; },
    });
    expectMemberByMember<TextMarker>({
        [](auto& marker) { marker.type = NumListMarkerType::Bullet; },
        [](auto& marker) { marker.text = "a"; },
        [](auto& marker) { marker.start = 2; },
    });
}

// --- sets of properties, field by field

// Rows set one field each; no two set the same value.
using FieldRows = std::vector<std::function<void(ShapeProps&)>>;

template <typename Value>
void appendRows(FieldRows& rows, void (ShapeProps::*set)(const boost::optional<Value>&), Value a, Value b)
{
    rows.emplace_back([set, a](ShapeProps& props) { (props.*set)(a); });
    rows.emplace_back([set, b](ShapeProps& props) { (props.*set)(b); });
}

void appendFillRows(FieldRows& rows)
{
    rows.emplace_back([](ShapeProps& props) { props.setFill(ShapeFill(NoFill())); });
    rows.emplace_back([](ShapeProps& props) { props.setFill(ShapeFill(SolidFill())); });
    rows.emplace_back([](ShapeProps& props) { props.setFill(ShapeFill(SolidFill(Red))); });
    rows.emplace_back([](ShapeProps& props) { props.setLineFill(ShapeFill(NoFill())); });
    rows.emplace_back([](ShapeProps& props) { props.setLineFill(ShapeFill(SolidFill(Red))); });
    for (const bool isInner : {false, true})
        rows.emplace_back([isInner](ShapeProps& props) {
            auto shadow = std::make_shared<ShapeShadow>();
            shadow->isInner = isInner;
            props.setShadow(shadow);
        });
    for (const char* const preset : {"", "ooxml-rect"})
        rows.emplace_back([preset](ShapeProps& props) {
            auto geometry = std::make_shared<ShapeGeometry>();
            geometry->preset = preset;
            props.setGeometry(geometry);
        });
}

FieldRows makeRows()
{
    using P = ShapeProps;
    FieldRows rows;
    appendFillRows(rows);
    appendRows(rows, &P::setLineWidth, 0.0F, 1.0F);
    appendRows(rows, &P::setLineDash, LineDash::Solid, LineDash::Dot);
    appendRows(rows, &P::setLineCap, LineCap::Flat, LineCap::Round);
    appendRows(rows, &P::setLineJoin, LineJoin::Miter, LineJoin::Round);
    LineEnd arrow;
    arrow.kind = LineEnd::Kind::Arrow;
    appendRows(rows, &P::setLineHead, LineEnd(), arrow);
    appendRows(rows, &P::setLineTail, LineEnd(), arrow);
    appendRows(rows, &P::setTextLeftInset, 0.0F, 1.0F);
    appendRows(rows, &P::setTextTopInset, 0.0F, 1.0F);
    appendRows(rows, &P::setTextRightInset, 0.0F, 1.0F);
    appendRows(rows, &P::setTextBottomInset, 0.0F, 1.0F);
    appendRows(rows, &P::setTextAlignment, VerticalAlignment::Top, VerticalAlignment::Bottom);
    appendRows(rows, &P::setTextCentered, false, true);
    appendRows(rows, &P::setTextWrapping, false, true);
    appendRows(rows, &P::setTextDirection, TextDirection::Horizontal, TextDirection::Stacked);
    TextFit shrunk;
    shrunk.kind = TextFit::Kind::ShrinkText;
    appendRows(rows, &P::setTextFit, TextFit(), shrunk);
    appendRows(rows, &P::setTextColumns, 1U, 2U);
    return rows;
}

ShapeProps make(const FieldRows::value_type& set)
{
    ShapeProps props;
    set(props);
    return props;
}

std::size_t countFieldsSet(const ShapeProps& props)
{
    std::size_t count = 0;
    forEachField<ShapeProps>([&](auto member) { count += props.*member ? 1 : 0; });
    return count;
}

TEST(ShapeProps, EqualAndHashFieldByField)
{
    const FieldRows rows = makeRows();
    EXPECT_TRUE(isEmpty(ShapeProps()));
    EXPECT_TRUE(ShapeProps() == ShapeProps());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(countFieldsSet(make(rows[i])), 1U);
        EXPECT_FALSE(isEmpty(make(rows[i])));
        EXPECT_TRUE(make(rows[i]) != ShapeProps());
        EXPECT_NE(hash_value(make(rows[i])), hash_value(ShapeProps()));
        for (std::size_t j = 0; j < rows.size(); ++j) {
            EXPECT_EQ(make(rows[i]) == make(rows[j]), i == j) << j;
            EXPECT_EQ(hash_value(make(rows[i])) == hash_value(make(rows[j])), i == j) << j;
        }
    }
}

TEST(ShapeProps, OverrideFieldByField)
{
    const FieldRows rows = makeRows();
    ShapeProps all;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows[i](all);
        for (std::size_t j = 0; j < rows.size(); ++j) {
            ShapeProps target = make(rows[i]);
            override(target, make(rows[j]));
            ShapeProps expected = make(rows[i]);
            rows[j](expected);
            EXPECT_TRUE(target == expected) << j << " over " << i;
        }
        ShapeProps target = make(rows[i]);
        override(target, ShapeProps());
        EXPECT_TRUE(target == make(rows[i])) << i;
    }
    EXPECT_EQ(countFieldsSet(all), std::tuple_size_v<decltype(ShapeProps::getFields())>)
        << "a field has no row";
}

// --- levels of text

struct Sizes
{
    boost::optional<float> share;
    boost::optional<float> points;
};

void expectSizes(const Sizes& actual, const Sizes& expected)
{
    EXPECT_TRUE(actual.share == expected.share);
    EXPECT_TRUE(actual.points == expected.points);
}

TEST(OverrideLevel, LaysEachPropertyOverThatOfTheTarget)
{
    TextLevel target;
    target.paraProps.setLeftIndent(1.0F);
    target.runProps.setBold(true);
    target.bullet.fontName = std::string("a");
    target.bullet.color = Red;
    TextLevel source;
    source.paraProps.setRightIndent(2.0F);
    source.runProps.setBold(false);
    source.bullet.fontName = std::string();
    source.bullet.marker = TextMarker();
    overrideLevel(target, source);
    EXPECT_TRUE(target.paraProps.getLeftIndent() == 1.0F);
    EXPECT_TRUE(target.paraProps.getRightIndent() == 2.0F);
    EXPECT_TRUE(target.runProps.getBold() == false);
    EXPECT_TRUE(target.bullet.fontName == std::string());
    EXPECT_TRUE(target.bullet.color == Red);
    EXPECT_TRUE(target.bullet.marker == TextMarker());
}

// Of a share and of points, what the nearer level says holds, whichever it is.
TEST(OverrideLevel, SizesOfBulletsTakeTurns)
{
    const struct
    {
        Sizes target;
        Sizes source;
        Sizes result;
    } rows[] = {
        {{{}, 12.0F},   {{}, {}},      {{}, 12.0F}  },
        {{{}, 12.0F},   {0.5F, {}},    {0.5F, {}}   },
        {{{}, 12.0F},   {0.5F, 10.0F}, {0.5F, 10.0F}},
        {{0.5F, {}},    {{}, {}},      {0.5F, {}}   },
        {{0.5F, {}},    {{}, 12.0F},   {0.5F, 12.0F}}, // points go before the share
        {{0.5F, 12.0F}, {0.75F, {}},   {0.75F, {}}  },
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        TextLevel target;
        target.bullet.sizeShare = row.target.share;
        target.bullet.size = row.target.points;
        TextLevel source;
        source.bullet.sizeShare = row.source.share;
        source.bullet.size = row.source.points;
        overrideLevel(target, source);
        expectSizes({target.bullet.sizeShare, target.bullet.size}, row.result);
    }
}

TEST(OverrideLevel, SpacesTakeTurns)
{
    const struct
    {
        Sizes target;
        Sizes source;
        Sizes result;
    } rows[] = {
        {{0.2F, {}},   {{}, {}},     {0.2F, {}}  },
        {{0.2F, {}},   {{}, 6.0F},   {{}, 6.0F}  },
        {{0.2F, {}},   {0.5F, {}},   {0.5F, {}}  },
        {{{}, 6.0F},   {0.2F, {}},   {0.2F, 6.0F}}, // the share goes before points
        {{{}, 6.0F},   {{}, 0.0F},   {{}, 0.0F}  },
        {{0.2F, 6.0F}, {0.5F, 3.0F}, {0.5F, 3.0F}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        TextLevel target;
        target.spaceBeforeShare = row.target.share;
        target.paraProps.setSpaceBefore(row.target.points);
        target.spaceAfterShare = row.target.share;
        target.paraProps.setSpaceAfter(row.target.points);
        TextLevel source;
        source.spaceBeforeShare = row.source.share;
        source.paraProps.setSpaceBefore(row.source.points);
        TextLevel before = target;
        overrideLevel(before, source);
        expectSizes({before.spaceBeforeShare, before.paraProps.getSpaceBefore()}, row.result);
        expectSizes({before.spaceAfterShare, before.paraProps.getSpaceAfter()}, row.target);

        TextLevel after = target;
        source = TextLevel();
        source.spaceAfterShare = row.source.share;
        source.paraProps.setSpaceAfter(row.source.points);
        overrideLevel(after, source);
        expectSizes({after.spaceAfterShare, after.paraProps.getSpaceAfter()}, row.result);
        expectSizes({after.spaceBeforeShare, after.paraProps.getSpaceBefore()}, row.target);
    }
}

TEST(OverrideLevels, GoLevelByLevel)
{
    TextLevels target;
    TextLevels source;
    for (std::size_t i = 0; i < target.size(); ++i) {
        target[i].runProps.setFontSize(static_cast<float>(i));
        if (i % 2 == 1)
            source[i].runProps.setFontSize(static_cast<float>(10 + i));
    }
    overrideLevels(target, source);
    for (std::size_t i = 0; i < target.size(); ++i)
        EXPECT_TRUE(target[i].runProps.getFontSize() == static_cast<float>(i % 2 == 1 ? 10 + i : i)) << i;
}

} // namespace
} // namespace QV::DOM
