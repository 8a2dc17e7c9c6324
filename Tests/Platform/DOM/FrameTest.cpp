#include <DOM/Public/Frame.h>

#include <array>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

#include <boost/mpl/at.hpp>
#include <gtest/gtest.h>

#include <DOM/Public/Anchors.h>
#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/Shape.h>
#include <cinder/Vector.h>

namespace QV::DOM {
namespace {

template <int Index>
using AnchorKind = typename boost::mpl::at_c<Anchor::types, Index>::type;

static_assert(std::is_same_v<AnchorKind<0>, TextAnchor>);
static_assert(std::is_same_v<AnchorKind<1>, AbsoluteAnchor>);
static_assert(std::is_same_v<AnchorKind<2>, OneCellAnchor>);
static_assert(std::is_same_v<AnchorKind<3>, TwoCellAnchor>);

TEST(Frame, StandsInTheTextAtFirst)
{
    const Frame frame;
    EXPECT_EQ(frame.getAnchor().which(), 0);
    EXPECT_FALSE(frame.getExtent());
    EXPECT_EQ(frame.getGraphicalObject(), nullptr);
    EXPECT_EQ(frame.getRotation(), 0);
}

TEST(Frame, SharesItsObjectWithItsCopies)
{
    auto copy = std::make_unique<Frame>();
    const GraphicalObject* object = nullptr;
    {
        Frame frame;
        frame.setGraphicalObject(std::make_unique<Picture>("id1.png", "image/png"));
        object = frame.getGraphicalObject();
        *copy = frame;
        EXPECT_EQ(*copy, frame);
    }
    ASSERT_EQ(copy->getGraphicalObject(), object);
    EXPECT_EQ(dynamic_cast<const Picture&>(*copy->getGraphicalObject()).getMediaId(), "id1.png");

    Frame other(*copy);
    other.setGraphicalObject(std::make_unique<Picture>("id2.png", "image/png"));
    EXPECT_EQ(dynamic_cast<const Picture&>(*copy->getGraphicalObject()).getMediaId(), "id1.png");
    EXPECT_NE(*copy, other);
}

TEST(Frame, EqualsByEverythingItHolds)
{
    const std::function<void(Frame&)> changes[] = {
        [](Frame& frame) { frame.setAnchor(AbsoluteAnchor()); },
        [](Frame& frame) { frame.setExtent(Size2D<float>()); },
        [](Frame& frame) { frame.setRotation(1); },
        [](Frame& frame) { frame.setFlippedHorizontally(true); },
        [](Frame& frame) { frame.setFlippedVertically(true); },
        [](Frame& frame) { frame.setSpatialRotation(std::array<float, 3>{}); },
        [](Frame& frame) { frame.setHidden(true); },
        [](Frame& frame) { frame.setHyperlink(std::make_shared<Hyperlink>("")); },
        [](Frame& frame) { frame.setDescription("a"); },
        [](Frame& frame) { frame.setName("a"); },
        [](Frame& frame) { frame.setGraphicalObject(std::make_unique<Picture>("", "")); },
    };
    Frame linked;
    linked.setHyperlink(std::make_shared<Hyperlink>("a"));
    Frame alsoLinked;
    alsoLinked.setHyperlink(std::make_shared<Hyperlink>("a"));
    EXPECT_EQ(linked, alsoLinked) << "by where the link leads";
    const Frame frame;
    for (const auto& change : changes) {
        Frame other(frame);
        EXPECT_EQ(other, frame);
        change(other);
        EXPECT_NE(other, frame);
    }
}

TEST(AbsoluteAnchor, EqualsByItsOffsetAndWhatThatIsCountedFrom)
{
    using Origin = AbsoluteAnchor::Origin;
    const AbsoluteAnchor anchor(cinder::Vec2<float>(1, 2));
    EXPECT_TRUE(anchor.getHorizontalOrigin() == Origin::Page);
    EXPECT_TRUE(anchor.getVerticalOrigin() == Origin::Page);
    EXPECT_TRUE(anchor == AbsoluteAnchor(cinder::Vec2<float>(1, 2)));
    EXPECT_TRUE(anchor != AbsoluteAnchor(cinder::Vec2<float>(1, 3)));

    AbsoluteAnchor other(anchor);
    other.setOrigins(Origin::Column, Origin::Page);
    EXPECT_TRUE(other.getHorizontalOrigin() == Origin::Column);
    EXPECT_TRUE(other.getVerticalOrigin() == Origin::Page);
    EXPECT_TRUE(anchor != other);
    other.setOrigins(Origin::Page, Origin::Paragraph);
    EXPECT_TRUE(other.getHorizontalOrigin() == Origin::Page);
    EXPECT_TRUE(other.getVerticalOrigin() == Origin::Paragraph);
    EXPECT_TRUE(anchor != other);
    other.setOrigins(Origin::Page, Origin::Page);
    EXPECT_TRUE(anchor == other);
}

TEST(Shape, StandsInAFrameOrAmongBlocks)
{
    auto shape = std::make_unique<Shape>();
    shape->setPresetGeometry("rect");
    shape->setText(makePlainCellText("a"));
    shape->appendChild(std::make_unique<Frame>());
    const Block& block = *shape;
    EXPECT_TRUE(block.getUUID());
    Frame frame;
    frame.setGraphicalObject(std::move(shape));
    const auto* shown = dynamic_cast<const Shape*>(frame.getGraphicalObject());
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(shown->getPresetGeometry(), "rect");
    EXPECT_EQ(shown->getText()->getPlainText(), "a");
    EXPECT_EQ(shown->getChildren().size(), 1U);
    EXPECT_FALSE(shown->getFillColor());
}

} // namespace
} // namespace QV::DOM
