#include <DOM/Public/ShapeStyle.h>

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/CellStyle.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/SharedObjectFactory.h>
#include <Tests/Support/Printers.h>

namespace QV::DOM {
namespace {

const Color Red(Color::RGBA(255, 0, 0, 255));

std::shared_ptr<const ShapeProps> makeProps(float lineWidth)
{
    auto props = std::make_shared<ShapeProps>();
    props->setLineWidth(lineWidth);
    return props;
}

SharedShapeStyle makeShared(const UUID& parent, std::shared_ptr<const ShapeProps> props)
{
    const boost::intrusive_ptr<ShapeStyle> style(new ShapeStyle);
    style->setParentUUID(parent);
    style->setShapeProps(std::move(props));
    return style;
}

// Each of them differs from all others.
std::vector<SharedShapeStyle> makeDistinctStyles()
{
    auto filled = std::make_shared<ShapeProps>();
    filled->setFill(ShapeFill(SolidFill(Red)));
    return {
        makeShared(UUID(), nullptr),
        makeShared(UUID(1, 1), nullptr),
        makeShared(UUID(1, 2), nullptr),
        makeShared(UUID(), makeProps(1)),
        makeShared(UUID(), makeProps(2)),
        makeShared(UUID(), filled),
        makeShared(UUID(1, 1), makeProps(1)),
    };
}

TEST(ShapeStyle, IsAValue)
{
    const auto styles = makeDistinctStyles();
    const auto same = makeDistinctStyles();
    SharedObjectFactory factory;
    for (std::size_t i = 0; i < styles.size(); ++i)
        for (std::size_t j = 0; j < styles.size(); ++j) {
            SCOPED_TRACE(testing::Message() << i << ", " << j);
            EXPECT_EQ(*styles[i] == *same[j], i == j);
            EXPECT_EQ(*styles[i] != *same[j], i != j);
            EXPECT_EQ(hash_value(*styles[i]) == hash_value(*same[j]), i == j);
            EXPECT_EQ(factory.getShared(*styles[i]) == factory.getShared(*same[j]), i == j);
        }
    EXPECT_EQ(factory.getShapeStylesCount(), styles.size());
}

TEST(ShapeStyle, IsEmptyWhileItHasNoParentAndNothingIsSet)
{
    ShapeStyle style;
    EXPECT_TRUE(style.isEmpty());
    style.setShapeProps(std::make_shared<ShapeProps>());
    EXPECT_TRUE(style.isEmpty()) << "no property is set";
    EXPECT_FALSE(style == ShapeStyle()) << "but the set of properties is there";
    style.setShapeProps(makeProps(0));
    EXPECT_FALSE(style.isEmpty());
    style.setShapeProps(nullptr);
    style.set(ParentUUID(UUID(1, 1)));
    EXPECT_EQ(style.getParentUUID(), UUID(1, 1));
    EXPECT_FALSE(style.isEmpty());
}

// Each kind of style is in a pool of its own.
TEST(SharedObjectFactory, CountsEachKindByItself)
{
    SharedObjectFactory factory;
    factory.getShared(CellStyle());
    const auto getCounts = [&factory] {
        return std::vector<std::size_t>{factory.getCellStylesCount(), factory.getRunStylesCount(),
            factory.getParagraphStylesCount(), factory.getShapeStylesCount()};
    };
    EXPECT_THAT(getCounts(), testing::ElementsAre(1, 0, 0, 0));
    factory.getShared(RunStyle());
    EXPECT_THAT(getCounts(), testing::ElementsAre(1, 1, 0, 0));
    factory.getShared(ParagraphStyle());
    EXPECT_THAT(getCounts(), testing::ElementsAre(1, 1, 1, 0));
    factory.getShared(ShapeStyle());
    EXPECT_THAT(getCounts(), testing::ElementsAre(1, 1, 1, 1));
    factory.getShared(ShapeStyle());
    EXPECT_THAT(getCounts(), testing::ElementsAre(1, 1, 1, 1));
}

TEST(EmptyShapeStyle, IsOneObject)
{
    EXPECT_EQ(&getEmptyShapeStyle(), &getEmptyShapeStyle());
    EXPECT_TRUE(getEmptyShapeStyle() == ShapeStyle());
}

TEST(SetToSharedStyle, ReplacesTheStyleByTheSharedOneOfThatParent)
{
    SharedObjectFactory factory;
    const SharedShapeStyle original = makeShared(UUID(1, 1), makeProps(1));
    SharedShapeStyle a = original;
    SharedShapeStyle b = makeShared(UUID(), makeProps(1));
    setToSharedStyle(factory, a, ParentUUID(UUID(2, 2)));
    setToSharedStyle(factory, b, ParentUUID(UUID(2, 2)));
    EXPECT_EQ(a, b);
    EXPECT_TRUE(*a == *makeShared(UUID(2, 2), makeProps(1)));
    EXPECT_EQ(original->getParentUUID(), UUID(1, 1)) << "others may have it";
    EXPECT_EQ(original->use_count(), 1U);
    EXPECT_EQ(factory.getShapeStylesCount(), 1U);

    setToSharedStyle(factory, a, ParentUUID(UUID()));
    EXPECT_EQ(a->getParentUUID(), UUID());
    EXPECT_EQ(b->getParentUUID(), UUID(2, 2));
    EXPECT_EQ(factory.getShared(*b), b) << "what the pool has does not change";
}

TEST(SetToSharedStyle, TakesNoneForTheEmptyOne)
{
    SharedObjectFactory factory;
    SharedShapeStyle style;
    setToSharedStyle(factory, style, ParentUUID(UUID(1, 1)));
    ASSERT_NE(style, nullptr);
    EXPECT_TRUE(*style == *makeShared(UUID(1, 1), nullptr));
    EXPECT_TRUE(getEmptyShapeStyle().isEmpty());
}

TEST(Shape, HasTheEmptyStyleWhileItHasNone)
{
    Shape shape;
    EXPECT_EQ(shape.getSharedStyle(), nullptr);
    EXPECT_EQ(&shape.getStyle(), &getEmptyShapeStyle());
    EXPECT_EQ(shape.getPresetGeometry(), "");
    EXPECT_FALSE(shape.getFillColor());
    const SharedShapeStyle style = makeShared(UUID(1, 1), nullptr);
    shape.setSharedStyle(style);
    EXPECT_EQ(&shape.getStyle(), style.get());
    EXPECT_EQ(shape.getPresetGeometry(), "");
    EXPECT_FALSE(shape.getFillColor());
}

TEST(Shape, ChangesAStyleOfItsOwnAndKeepsTheRest)
{
    const SharedShapeStyle shared = makeShared(UUID(1, 1), makeProps(1));
    Shape shape;
    shape.setSharedStyle(shared);
    shape.setPresetGeometry("ooxml-rect");
    shape.setFillColor(Red);
    EXPECT_EQ(shape.getPresetGeometry(), "ooxml-rect");
    EXPECT_TRUE(shape.getFillColor() == Red);
    EXPECT_EQ(shape.getStyle().getParentUUID(), UUID(1, 1));
    EXPECT_EQ(shape.getStyle().getShapeProps()->getLineWidth(), 1.0F);
    EXPECT_TRUE(*shared == *makeShared(UUID(1, 1), makeProps(1)));

    shape.setFillColor(boost::none);
    EXPECT_FALSE(shape.getFillColor());
    EXPECT_FALSE(shape.getStyle().getShapeProps()->getFill()) << "that of the styles below is seen";
    EXPECT_EQ(shape.getPresetGeometry(), "ooxml-rect");
}

TEST(Shape, HasNoFillColorWhereItIsFilledOtherwise)
{
    for (const ShapeFill& fill : {ShapeFill(NoFill()), ShapeFill(GradientFill()), ShapeFill(PictureFill()),
             ShapeFill(PatternFill())}) {
        auto props = std::make_shared<ShapeProps>();
        props->setFill(fill);
        Shape shape;
        shape.setSharedStyle(makeShared(UUID(), props));
        EXPECT_FALSE(shape.getFillColor()) << fill.which();
    }
}

TEST(Shape, IsADrawnOneAndNoSlideOrPlaceholderAtFirst)
{
    Shape shape;
    EXPECT_TRUE(shape.getKind() == Shape::Kind::Drawn);
    EXPECT_FALSE(shape.getPlaceholder());
    EXPECT_EQ(shape.getSlideProps(), nullptr);
    shape.setKind(Shape::Kind::Slide);
    EXPECT_TRUE(shape.getKind() == Shape::Kind::Slide);

    Placeholder placeholder;
    EXPECT_EQ(placeholder.type, "obj");
    placeholder.index = 1;
    shape.setPlaceholder(placeholder);
    EXPECT_TRUE(shape.getPlaceholder() == placeholder);
    EXPECT_TRUE(placeholder != Placeholder());
}

} // namespace
} // namespace QV::DOM
