#include <FilterUtils/FU_Slides.h>

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Document.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/ShapeFill.h>
#include <DOM/Public/ShapeProps.h>
#include <DOM/Public/ShapeStyle.h>
#include <Tests/Support/RecordedAssertions.h>

namespace QV::FilterUtils {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using StyleNames = boost::unordered_map<std::string, UUID>;

// Callers are linked against just these.
static_assert(std::is_same_v<decltype(&moveSlideMasterToDocumentStyles),
    void (*)(DOM::Document&, StyleNames&, DOM::NamedShapeStyle, const std::string&)>);
static_assert(std::is_same_v<decltype(&moveSlideLayoutToDocumentStyles),
    void (*)(DOM::Document&, StyleNames&, DOM::NamedShapeStyle, const std::string&, const std::string&)>);
static_assert(std::is_same_v<decltype(&moveSlideToDocument),
    void (*)(DOM::Document&, StyleNames&, std::vector<std::unique_ptr<DOM::Block>>&,
        std::unique_ptr<DOM::Shape>, const std::string&)>);

const UUID First(1, 0);
const UUID Second(2, 0);
const UUID Third(3, 0);

DOM::NamedShapeStyle makeStyle(const UUID& uuid, const std::string& name = {})
{
    DOM::NamedShapeStyle style;
    style.setUUID(uuid);
    style.setName(name);
    return style;
}

DOM::SharedShapeStyle makeFilled(unsigned char red)
{
    auto props = std::make_shared<DOM::ShapeProps>();
    props->setFill(DOM::ShapeFill(DOM::SolidFill(DOM::Color(DOM::Color::RGBA(red, 0, 0, 255)))));
    const boost::intrusive_ptr<DOM::ShapeStyle> style(new DOM::ShapeStyle);
    style->setShapeProps(std::move(props));
    return style;
}

// One import: a document, the names of its file, and its slides.
class Slides : public testing::Test
{
protected:
    const DOM::Styles::ShapeStyles& getStyles() const { return _document.getStyles().getShapeStyles(); }

    void moveMaster(const UUID& uuid, const std::string& name)
    {
        moveSlideMasterToDocumentStyles(_document, _names, makeStyle(uuid), name);
    }
    void moveLayout(const UUID& uuid, const std::string& name, const std::string& master)
    {
        moveSlideLayoutToDocumentStyles(_document, _names, makeStyle(uuid), name, master);
    }
    const DOM::Shape& moveSlide(const std::string& layout, const DOM::SharedShapeStyle& style = {})
    {
        auto slide = std::make_unique<DOM::Shape>();
        slide->setSharedStyle(style);
        const DOM::Shape& moved = *slide;
        moveSlideToDocument(_document, _names, _blocks, std::move(slide), layout);
        return moved;
    }

    /// Nil where there is no such style.
    UUID getParentOf(const UUID& uuid) const
    {
        const DOM::NamedShapeStyle* const style = getStyles().find(uuid);
        return style ? style->getParentUUID() : UUID();
    }
    UUID getNamed(const std::string& name) const
    {
        const auto found = _names.find(name);
        return found == _names.end() ? UUID() : found->second;
    }

    DOM::Document _document;
    boost::unordered_map<std::string, UUID> _names;
    std::vector<std::unique_ptr<DOM::Block>> _blocks;
};

TEST_F(Slides, HangUnderLayoutsAndThoseUnderMasters)
{
    moveMaster(First, "master");
    moveLayout(Second, "layout", "master");
    const DOM::Shape& slide = moveSlide("layout");
    EXPECT_EQ(slide.getStyle().getParentUUID(), Second);
    EXPECT_EQ(getParentOf(Second), First);
    EXPECT_EQ(getParentOf(First), UUID());
    EXPECT_EQ(getStyles().size(), 2U) << "no blank one is needed";
    EXPECT_EQ(_names.size(), 2U);
}

TEST_F(Slides, StylesAreMovedWithAllTheyHold)
{
    DOM::NamedShapeStyle master = makeStyle(First, "shown name");
    auto frame = std::make_unique<DOM::Frame>();
    const DOM::Frame* const kept = frame.get();
    master.appendChild(std::move(frame));
    master.setShowsParentShapes(false);
    moveSlideMasterToDocumentStyles(_document, _names, std::move(master), "file name");
    const DOM::NamedShapeStyle* const moved = getStyles().find(First);
    ASSERT_NE(moved, nullptr);
    EXPECT_EQ(moved->getName(), "shown name");
    ASSERT_EQ(moved->getChildren().size(), 1U);
    EXPECT_EQ(&moved->getChildren()[0], kept);
    EXPECT_FALSE(moved->showsParentShapes());
    EXPECT_EQ(getNamed("file name"), First);
    EXPECT_EQ(getNamed("shown name"), UUID());
}

TEST_F(Slides, MasterKeepsTheParentItCameWith)
{
    DOM::NamedShapeStyle master = makeStyle(First);
    master.setParentUUID(Third);
    moveSlideMasterToDocumentStyles(_document, _names, std::move(master), "master");
    EXPECT_EQ(getParentOf(First), Third);
}

TEST_F(Slides, LayoutLosesTheParentItCameWith)
{
    moveMaster(First, "master");
    DOM::NamedShapeStyle layout = makeStyle(Second);
    layout.setParentUUID(Third);
    moveSlideLayoutToDocumentStyles(_document, _names, std::move(layout), "layout", "master");
    EXPECT_EQ(getParentOf(Second), First);
}

TEST_F(Slides, SlideOfAnUnknownLayoutMakesBothBlankStylesOnce)
{
    const DOM::Shape& slide = moveSlide("unknown");
    ASSERT_EQ(getStyles().size(), 2U);
    const UUID master = getNamed("EMPTY_MASTER_NAME");
    const UUID layout = getNamed("EMPTY_LAYOUT_NAME");
    EXPECT_EQ(slide.getStyle().getParentUUID(), layout);
    EXPECT_EQ(getParentOf(layout), master);
    ASSERT_NE(getStyles().find(layout), nullptr);
    ASSERT_NE(getStyles().find(master), nullptr);
    EXPECT_EQ(getParentOf(master), UUID());
    EXPECT_EQ(_names.size(), 2U) << "the unknown name stays unknown";

    for (const char* const name : {"unknown", "another", ""}) {
        EXPECT_EQ(moveSlide(name).getStyle().getParentUUID(), layout) << name;
        EXPECT_EQ(getStyles().size(), 2U) << name;
        EXPECT_EQ(_names.size(), 2U) << name;
    }
}

TEST_F(Slides, LayoutOfAnUnknownMasterHangsUnderTheBlankOne)
{
    moveLayout(Second, "layout", "unknown");
    const UUID master = getNamed("EMPTY_MASTER_NAME");
    ASSERT_NE(getStyles().find(master), nullptr);
    EXPECT_EQ(getParentOf(Second), master);
    EXPECT_EQ(getStyles().size(), 2U);
    EXPECT_EQ(getNamed("EMPTY_LAYOUT_NAME"), UUID());

    moveLayout(Third, "other", "also unknown");
    EXPECT_EQ(getParentOf(Third), master);
    EXPECT_EQ(getStyles().size(), 3U);
    moveSlide("unknown");
    EXPECT_EQ(getParentOf(getNamed("EMPTY_LAYOUT_NAME")), master) << "the blank layout shares it";
    EXPECT_EQ(getStyles().size(), 4U);
}

TEST_F(Slides, BlankStylesSetNothing)
{
    moveSlide("unknown");
    for (const DOM::NamedShapeStyle& style : getStyles()) {
        EXPECT_TRUE(style.getUUID());
        EXPECT_EQ(style.getName(), "");
        EXPECT_EQ(style.getShapeProps(), nullptr);
        EXPECT_THAT(style.getChildren(), IsEmpty());
        EXPECT_TRUE(style.showsParentShapes());
        EXPECT_EQ(style.getTitleLevels(), nullptr);
        EXPECT_EQ(style.getBodyLevels(), nullptr);
        EXPECT_EQ(style.getOtherLevels(), nullptr);
    }
}

TEST_F(Slides, AnotherMapHasBlankStylesOfItsOwn)
{
    moveSlide("unknown");
    const UUID layout = getNamed("EMPTY_LAYOUT_NAME");
    _names.clear();
    moveSlide("unknown");
    EXPECT_NE(getNamed("EMPTY_LAYOUT_NAME"), layout);
    EXPECT_EQ(getStyles().size(), 4U);
}

TEST_F(Slides, FileMayUseTheReservedNames)
{
    moveMaster(First, "EMPTY_MASTER_NAME");
    moveLayout(Second, "layout", "unknown");
    EXPECT_EQ(getParentOf(Second), First);
    moveLayout(Third, "EMPTY_LAYOUT_NAME", "unknown");
    EXPECT_EQ(moveSlide("unknown").getStyle().getParentUUID(), Third);
    EXPECT_EQ(getStyles().size(), 3U);
}

TEST_F(Slides, WhatComesBeforeItsParentHangsUnderTheBlankOneAndStaysThere)
{
    const DOM::Shape& slide = moveSlide("layout");
    moveLayout(Second, "layout", "master");
    moveMaster(First, "master");
    EXPECT_EQ(slide.getStyle().getParentUUID(), getNamed("EMPTY_LAYOUT_NAME"));
    EXPECT_EQ(getParentOf(Second), getNamed("EMPTY_MASTER_NAME"));
    EXPECT_EQ(moveSlide("layout").getStyle().getParentUUID(), Second);
}

TEST_F(Slides, LaterOneOfANameHasIt)
{
    moveMaster(First, "name");
    moveLayout(Second, "name", "name");
    EXPECT_EQ(getParentOf(Second), First) << "at that time the master had it";
    EXPECT_EQ(getNamed("name"), Second);
    moveLayout(Third, "third", "name");
    EXPECT_EQ(getParentOf(Third), Second) << "masters and layouts share the names";
    EXPECT_EQ(moveSlide("name").getStyle().getParentUUID(), Second);

    moveMaster(UUID(4, 0), "name");
    EXPECT_EQ(getNamed("name"), UUID(4, 0));
    EXPECT_EQ(moveSlide("name").getStyle().getParentUUID(), UUID(4, 0)) << "a master as well";
    EXPECT_EQ(getStyles().size(), 4U);
}

TEST_F(Slides, StyleWhoseIdentifierIsThereFailsAndTheFirstStays)
{
    const Tests::RecordedAssertions assertions;
    moveMaster(First, "master");
    EXPECT_THAT(assertions.getExpressions(), IsEmpty());
    const DOM::NamedShapeStyle* const there = getStyles().find(First);

    moveSlideMasterToDocumentStyles(_document, _names, makeStyle(First, "second"), "other");
    EXPECT_THAT(assertions.getExpressions(), ElementsAre("_collection.find(uuid) == _collection.end()"));
    moveSlideLayoutToDocumentStyles(_document, _names, makeStyle(First, "third"), "layout", "master");
    EXPECT_THAT(assertions.getExpressions(), ElementsAre("_collection.find(uuid) == _collection.end()",
                                                 "_collection.find(uuid) == _collection.end()"));
    ASSERT_EQ(getStyles().find(First), there);
    EXPECT_EQ(there->getName(), "");
    EXPECT_EQ(there->getParentUUID(), UUID()) << "the layout would be its own parent";
    EXPECT_EQ(getStyles().size(), 1U);
}

TEST_F(Slides, StandAfterTheBlocksThatAreThereInTheirOrder)
{
    _blocks.push_back(std::make_unique<DOM::Paragraph>());
    _blocks.push_back(std::make_unique<DOM::Shape>());
    std::vector<const DOM::Block*> expected = {_blocks[0].get(), _blocks[1].get()};
    for (const char* const name : {"b", "a", "b"})
        expected.push_back(&moveSlide(name));
    ASSERT_EQ(_blocks.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_EQ(_blocks[i].get(), expected[i]) << i;
}

TEST_F(Slides, OfEqualStylesShareOneObject)
{
    moveMaster(First, "master");
    moveLayout(Second, "layout", "master");
    moveLayout(Third, "other", "master");
    const DOM::Shape& red = moveSlide("layout", makeFilled(255));
    const DOM::Shape& alsoRed = moveSlide("layout", makeFilled(255));
    const DOM::Shape& dark = moveSlide("layout", makeFilled(0));
    const DOM::Shape& elsewhere = moveSlide("other", makeFilled(255));
    EXPECT_EQ(red.getSharedStyle(), alsoRed.getSharedStyle());
    EXPECT_NE(red.getSharedStyle(), dark.getSharedStyle());
    EXPECT_NE(red.getSharedStyle(), elsewhere.getSharedStyle());
    EXPECT_EQ(_document.getSharedObjectFactory().getShapeStylesCount(), 3U);
    EXPECT_EQ(_document.getSharedObjectFactory().getShared(red.getStyle()), red.getSharedStyle());
}

TEST_F(Slides, NewParentLeavesWhatSharedTheStyleAlone)
{
    moveMaster(First, "first");
    moveMaster(Second, "second");
    const DOM::SharedShapeStyle shared = makeFilled(255);
    const DOM::Shape& a = moveSlide("first", shared);
    const DOM::Shape& b = moveSlide("second", shared);
    EXPECT_EQ(shared->getParentUUID(), UUID());
    EXPECT_EQ(shared->use_count(), 1U) << "both slides gave it up";
    EXPECT_EQ(a.getStyle().getParentUUID(), First);
    EXPECT_EQ(b.getStyle().getParentUUID(), Second);
    EXPECT_EQ(a.getStyle().getShapeProps(), shared->getShapeProps()) << "all else is kept";
    EXPECT_EQ(b.getStyle().getShapeProps(), shared->getShapeProps());

    const DOM::Shape& again = moveSlide("second", a.getSharedStyle());
    EXPECT_EQ(again.getSharedStyle(), b.getSharedStyle());
    EXPECT_EQ(a.getStyle().getParentUUID(), First);
}

TEST_F(Slides, WithoutAStyleGetOneThatNamesTheLayoutAlone)
{
    moveMaster(First, "master");
    const DOM::Shape& slide = moveSlide("master");
    ASSERT_NE(slide.getSharedStyle(), nullptr);
    DOM::ShapeStyle expected;
    expected.setParentUUID(First);
    EXPECT_TRUE(slide.getStyle() == expected);
    EXPECT_EQ(moveSlide("master").getSharedStyle(), slide.getSharedStyle());
    EXPECT_TRUE(DOM::getEmptyShapeStyle().isEmpty()) << "the constant one does not change";
}

TEST_F(Slides, NullOneFailsBeforeAnythingChanges)
{
    const Tests::RecordedAssertions assertions;
    EXPECT_THROW(moveSlideToDocument(_document, _names, _blocks, nullptr, "layout"), std::logic_error);
    EXPECT_THAT(assertions.getExpressions(), ElementsAre("plainPtr"));
    EXPECT_TRUE(_names.empty());
    EXPECT_TRUE(_blocks.empty());
    EXPECT_TRUE(getStyles().empty());
}

} // namespace
} // namespace QV::FilterUtils
