// The examples of Docs/library.md about slides and shapes: what stands between two marks is there word for
// word.

#include <array>
#include <memory>
#include <string>
#include <vector>

#include <boost/unordered_map.hpp>
#include <gtest/gtest.h>

#include <DOM/Public/Block.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/NamedShapeStyle.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/ShapeStyle.h>
#include <FilterUtils/FU_GeometryParserUtils.h>
#include <FilterUtils/FU_Slides.h>
#include <FilterUtils/FU_TransformMatrices.h>
#include <Utils/Public/UUID.h>

namespace QV::FilterUtils {
namespace {

TEST(Example, Slides)
{
    // example: FU_Slides
    DOM::Document document;
    boost::unordered_map<std::string, UUID> names; // of the file, for one import
    std::vector<std::unique_ptr<DOM::Block>> slides;
    moveSlideMasterToDocumentStyles(document, names, DOM::NamedShapeStyle(), "slideMaster1.xml");
    moveSlideLayoutToDocumentStyles(
        document, names, DOM::NamedShapeStyle(), "slideLayout1.xml", "slideMaster1.xml");
    moveSlideToDocument(document, names, slides, std::make_unique<DOM::Shape>(), "slideLayout1.xml");

    const auto& slide = dynamic_cast<const DOM::Shape&>(*slides.front());
    const auto* const layout = document.getStyles().getShapeStyles().find(slide.getStyle().getParentUUID());
    ASSERT_NE(layout, nullptr);
    EXPECT_EQ(layout->getParentUUID(), names.at("slideMaster1.xml"));
    // end
}

TEST(Example, TransformMatrices)
{
    // example: FU_TransformMatrices
    const auto turned = buildTransformMatrixFromAngleDegrees(0, 0, 30); // about the axis Z alone
    EXPECT_FLOAT_EQ(turned.at(0, 1), 0.5);                              // row 0, column 1
    const std::array<float, 3> angles =
        convertMatrixToAnglesDegree(buildTransformMatrixFromAngleDegrees(10, 20, 30));
    EXPECT_NEAR(angles[0], 10, 0.001);
    EXPECT_NEAR(angles[1], 20, 0.001);
    EXPECT_NEAR(angles[2], 30, 0.001);
    // end
}

TEST(Example, GeometryParserUtils)
{
    // example: FU_GeometryParserUtils
    EXPECT_EQ(makeOOXMLPresetType("rect"), "ooxml-rect"); // a shape by its name, none of the model's own
    EXPECT_EQ(makePlainPresetType("ooxml-rect"), "rect");
    EXPECT_EQ(makeModifierReference("adj"), "$adj"); // a value that the shape's handle changes
    EXPECT_EQ(makeFormulaReference("x1"), "?x1");    // a value that is computed
    EXPECT_TRUE(looksLikeFormulaReference("?x1"));
    EXPECT_EQ(makeFormulaPlainName("?x1"), "x1");
    // end
}

} // namespace
} // namespace QV::FilterUtils
