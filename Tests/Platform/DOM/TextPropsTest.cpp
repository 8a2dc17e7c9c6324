#include <DOM/Public/Properties.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include <DOM/Public/BordersProps.h>
#include <DOM/Public/Color.h>
#include <DOM/Public/LineProps.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/RunProps.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {
namespace {

// Sets of properties, field by field. Rows set one field each; no two set the same value.
template <typename Props>
struct FieldRow
{
    const char* name;
    std::function<void(Props&)> set;
};

template <typename Props, typename Value>
FieldRow<Props> field(const char* name, void (Props::*set)(const boost::optional<Value>&), Value value)
{
    return {name, [set, value](Props& props) { (props.*set)(value); }};
}

FieldRow<ParaProps> tabStops(const char* name, const TabStops& stops)
{
    return {name, [stops](ParaProps& props) { props.setTabStops(std::make_shared<TabStops>(stops)); }};
}

FieldRow<ParaProps> borders(const char* name, float width)
{
    return {name, [width](ParaProps& props) {
                auto sides = std::make_shared<BordersProps>();
                sides->setTop(std::make_shared<LineProps>(LineStyle::Solid, width));
                props.setBorders(sides);
            }};
}

FieldRow<RunProps> fontName(const char* name, const char* font)
{
    return {name, [font](RunProps& props) { props.setFontName(std::string(font)); }};
}

const Color Red(Color::RGBA(255, 0, 0, 255));
const Color Faint(Color::RGBA(255, 0, 0, 64));

std::vector<FieldRow<ParaProps>> makeParaRows()
{
    using P = ParaProps;
    const LineSpacing::Kind multiple = LineSpacing::Kind::Multiple;
    return {
        field("Left", &P::setAlignment, HorizontalAlignment::Left),
        field("General", &P::setAlignment, HorizontalAlignment::General),
        field("LeftIndent", &P::setLeftIndent, 36.0F),
        field("NoLeftIndent", &P::setLeftIndent, 0.0F),
        field("RightIndent", &P::setRightIndent, 36.0F),
        field("FirstLineIndent", &P::setFirstLineIndent, 36.0F),
        field("Hanging", &P::setFirstLineIndent, -36.0F),
        field("SpaceBefore", &P::setSpaceBefore, 36.0F),
        field("SpaceAfter", &P::setSpaceAfter, 36.0F),
        field("Contextual", &P::setContextualSpacing, true),
        field("NotContextual", &P::setContextualSpacing, false),
        field("Multiple", &P::setLineSpacing, LineSpacing(multiple, 12)),
        field("OtherMultiple", &P::setLineSpacing, LineSpacing(multiple, 1)),
        field("AtLeast", &P::setLineSpacing, LineSpacing(LineSpacing::Kind::AtLeast, 12)),
        field("Exact", &P::setLineSpacing, LineSpacing(LineSpacing::Kind::Exact, 12)),
        field("PageBreak", &P::setPageBreakBefore, true),
        field("NoPageBreak", &P::setPageBreakBefore, false),
        field("OutermostLevel", &P::setOutlineLevel, 0UL),
        field("NoHeading", &P::setOutlineLevel, 9UL),
        field("RightToLeft", &P::setRightToLeft, true),
        field("LeftToRight", &P::setRightToLeft, false),
        field("Fill", &P::setBackgroundColor, Red),
        field("FaintFill", &P::setBackgroundColor, Faint),
        borders("Thin", 0.75F),
        borders("Thick", 2.25F),
        tabStops("NoTabs", {}),
        tabStops("LeftTab", {TabStop(TabStop::Kind::Left, 36)}),
        tabStops("OtherLeftTab", {TabStop(TabStop::Kind::Left, 72)}),
        tabStops("RightTab", {TabStop(TabStop::Kind::Right, 36)}),
        tabStops("Tabs", {TabStop(TabStop::Kind::Left, 36), TabStop(TabStop::Kind::Left, 72)}),
    };
}

std::vector<FieldRow<RunProps>> makeRunRows()
{
    using R = RunProps;
    return {
        field("Bold", &R::setBold, true),
        field("NotBold", &R::setBold, false),
        field("Italic", &R::setItalic, true),
        field("NotItalic", &R::setItalic, false),
        field("Size", &R::setFontSize, 12.0F),
        field("OtherSize", &R::setFontSize, 12.5F),
        fontName("Font", "Serif"),
        fontName("OtherFont", "serif"),
        field("Red", &R::setColor, Red),
        field("Faint", &R::setColor, Faint),
        field("Highlight", &R::setBackgroundColor, Red),
        field("NotUnderlined", &R::setUnderline, Underline::None),
        field("Wave", &R::setUnderline, Underline::Wave),
        field("Struck", &R::setStrikethrough, true),
        field("NotStruck", &R::setStrikethrough, false),
        field("Hidden", &R::setHidden, true),
        field("NotHidden", &R::setHidden, false),
        field("Baseline", &R::setVerticalPosition, VerticalPosition::Baseline),
        field("Superscript", &R::setVerticalPosition, VerticalPosition::Superscript),
        field("AsWritten", &R::setLetterCase, LetterCase::AsWritten),
        field("SmallCapitals", &R::setLetterCase, LetterCase::SmallCapitals),
    };
}

template <typename Props>
Props make(const FieldRow<Props>& row)
{
    Props props;
    row.set(props);
    return props;
}

template <typename Props>
std::size_t countFieldsSet(const Props& props)
{
    std::size_t count = 0;
    forEachField<Props>([&](auto member) { count += props.*member ? 1 : 0; });
    return count;
}

template <typename Props>
void expectEqualFieldByField(const std::vector<FieldRow<Props>>& rows)
{
    EXPECT_TRUE(isEmpty(Props()));
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(countFieldsSet(make(row)), 1U);
        EXPECT_FALSE(isEmpty(make(row)));
        EXPECT_NE(hash_value(make(row)), hash_value(Props()));
        for (const auto& other : rows) {
            const bool isSame = &row == &other;
            EXPECT_EQ(make(row) == make(other), isSame) << other.name;
            EXPECT_EQ(make(row) != make(other), !isSame) << other.name;
            EXPECT_EQ(hash_value(make(row)) == hash_value(make(other)), isSame) << other.name;
        }
    }
}

template <typename Props>
void expectOverriddenFieldByField(const std::vector<FieldRow<Props>>& rows)
{
    Props all;
    for (const auto& row : rows) {
        row.set(all);
        for (const auto& other : rows) {
            Props target = make(row);
            override(target, make(other));
            Props expected = make(row);
            other.set(expected);
            EXPECT_TRUE(target == expected) << other.name << " over " << row.name;
        }
        Props target = make(row);
        override(target, Props());
        EXPECT_TRUE(target == make(row)) << row.name;
    }
    EXPECT_EQ(countFieldsSet(all), std::tuple_size_v<decltype(Props::getFields())>) << "a field has no row";
}

TEST(ParaProps, EqualAndHashFieldByField)
{
    expectEqualFieldByField(makeParaRows());
}

TEST(ParaProps, OverrideFieldByField)
{
    expectOverriddenFieldByField(makeParaRows());
}

TEST(RunProps, EqualAndHashFieldByField)
{
    expectEqualFieldByField(makeRunRows());
}

TEST(RunProps, OverrideFieldByField)
{
    expectOverriddenFieldByField(makeRunRows());
}

TEST(NumberingRef, IsEmptyUntilAFieldIsSet)
{
    EXPECT_TRUE(isEmpty(std::unique_ptr<NumberingRef>()));
    EXPECT_TRUE(isEmpty(std::make_unique<NumberingRef>()));
    const std::vector<FieldRow<NumberingRef>> rows = {
        field("NilTag", &NumberingRef::setListTagUUID, UUID()),
        field("Tag", &NumberingRef::setListTagUUID, UUID(1, 1)),
        field("NilList", &NumberingRef::setNumListUUID, UUID()),
        field("List", &NumberingRef::setNumListUUID, UUID(1, 1)),
        field("OutermostLevel", &NumberingRef::setLevel, 0UL),
        field("Level", &NumberingRef::setLevel, 8UL),
    };
    for (const auto& row : rows) {
        EXPECT_FALSE(isEmpty(std::make_unique<NumberingRef>(make(row)))) << row.name;
        for (const auto& other : rows)
            EXPECT_EQ(make(row) == make(other), &row == &other) << row.name << ", " << other.name;
    }
    expectOverriddenFieldByField(rows);
}

} // namespace
} // namespace QV::DOM
