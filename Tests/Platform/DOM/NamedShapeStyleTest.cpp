#include <DOM/Public/NamedShapeStyle.h>

#include <memory>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include <DOM/Public/ShapeStyle.h>
#include <DOM/Public/Styles.h>

namespace QV::DOM {
namespace {

// It owns its frames.
static_assert(!std::is_copy_constructible_v<NamedShapeStyle>);
static_assert(!std::is_copy_assignable_v<NamedShapeStyle>);
static_assert(std::is_nothrow_move_constructible_v<NamedShapeStyle>);
static_assert(std::is_nothrow_move_assignable_v<NamedShapeStyle>);

NamedShapeStyle makeStyle(const UUID& uuid, const UUID& parent)
{
    NamedShapeStyle style;
    style.setUUID(uuid);
    style.setParentUUID(parent);
    return style;
}

TEST(NamedShapeStyle, SaysNothingAtFirst)
{
    const NamedShapeStyle style;
    EXPECT_TRUE(style.getUUID());
    EXPECT_NE(style.getUUID(), NamedShapeStyle().getUUID());
    EXPECT_EQ(style.getParentUUID(), UUID());
    EXPECT_EQ(style.getName(), "");
    EXPECT_EQ(style.getShapeProps(), nullptr);
    EXPECT_TRUE(style.getChildren().empty());
    EXPECT_TRUE(style.showsParentShapes());
    EXPECT_EQ(style.getTitleLevels(), nullptr);
    EXPECT_EQ(style.getBodyLevels(), nullptr);
    EXPECT_EQ(style.getOtherLevels(), nullptr);
}

TEST(NamedShapeStyle, MoveTakesAllAlong)
{
    NamedShapeStyle style = makeStyle(UUID(1, 0), UUID(2, 0));
    const auto props = std::make_shared<ShapeProps>();
    const std::shared_ptr<const TextLevels> levels[] = {
        std::make_shared<TextLevels>(), std::make_shared<TextLevels>(), std::make_shared<TextLevels>()};
    auto frame = std::make_unique<Frame>();
    const Frame* const child = frame.get();
    style.setName("Title Slide");
    style.setShapeProps(props);
    style.appendChild(std::move(frame));
    style.appendChild(std::make_unique<Frame>());
    style.setShowsParentShapes(false);
    style.setTitleLevels(levels[0]);
    style.setBodyLevels(levels[1]);
    style.setOtherLevels(levels[2]);

    NamedShapeStyle constructed(std::move(style));
    NamedShapeStyle moved;
    moved = std::move(constructed);
    EXPECT_EQ(moved.getUUID(), UUID(1, 0));
    EXPECT_EQ(moved.getParentUUID(), UUID(2, 0));
    EXPECT_EQ(moved.getName(), "Title Slide");
    EXPECT_EQ(moved.getShapeProps(), props);
    ASSERT_EQ(moved.getChildren().size(), 2U);
    EXPECT_EQ(&moved.getChildren()[0], child) << "from back to front";
    EXPECT_FALSE(moved.showsParentShapes());
    EXPECT_EQ(moved.getTitleLevels(), levels[0]);
    EXPECT_EQ(moved.getBodyLevels(), levels[1]);
    EXPECT_EQ(moved.getOtherLevels(), levels[2]);
}

TEST(GetParent, FindsTheNamedShapeStyle)
{
    Styles styles;
    const NamedShapeStyle& master = styles.getShapeStyles().insert(makeStyle(UUID(1, 0), UUID()));
    const NamedShapeStyle& layout = styles.getShapeStyles().insert(makeStyle(UUID(2, 0), UUID(1, 0)));
    const NamedShapeStyle& orphan = styles.getShapeStyles().insert(makeStyle(UUID(3, 0), UUID(9, 0)));
    ShapeStyle slide;
    EXPECT_EQ(getParent(styles, slide), nullptr);
    slide.setParentUUID(UUID(2, 0));
    EXPECT_EQ(getParent(styles, slide), &layout);
    slide.setParentUUID(UUID(9, 0));
    EXPECT_EQ(getParent(styles, slide), nullptr);
    EXPECT_EQ(getParent(styles, layout), &master);
    EXPECT_EQ(getParent(styles, master), nullptr);
    EXPECT_EQ(getParent(styles, orphan), nullptr);
    EXPECT_TRUE(styles.getTextStyles().empty()) << "they are apart from those of texts";
}

} // namespace
} // namespace QV::DOM
