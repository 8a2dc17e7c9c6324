#pragma once

// What stands inside of a drawing in text, and the frames that it becomes.

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <boost/variant.hpp>
#include <gtest/gtest.h>

#include <DOM/Public/Anchors.h>
#include <DOM/Public/Block.h>
#include <DOM/Public/Color.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Shape.h>
#include <FilterUtils/FU_XMLElement.h>
#include <FilterUtils/FU_XMLStreamReader.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/Relationships.h>
#include <Filters/Package/XmlParts.h>
#include <Filters/Text/TextContext.h>
#include <Filters/Text/TextDrawing.h>
#include <Filters/Text/TextWords.h>
#include <Utils/Public/OperationReport.h>

#include <Tests/Support/OoxmlBuilder.h>
#include <Tests/Support/TextPackageBuilder.h>
#include <Tests/Support/XercesEnvironment.h>

namespace QV::Tests {

inline const std::string PngBytes = "\x89PNG\r\n\x1A\n";

/// Hands the elements of one drawing on; the text of a text box is one paragraph.
class DrawingDriver final : public FilterUtils::XMLStreamHandler
{
public:
    explicit DrawingDriver(Filters::TextDrawing& drawing)
        : _drawing(drawing)
    {
    }

    FilterUtils::XMLStep onStart(const FilterUtils::XMLStreamStart& element) override
    {
        if (element.getDepth() == 1)
            return FilterUtils::XMLStep::Enter;
        if (element.getId() == Filters::TextWords::TextBoxContent)
            return FilterUtils::XMLStep::EnterText;
        return element.getParentId() == Filters::TextWords::TextBoxContent ? FilterUtils::XMLStep::Enter
                                                                           : _drawing.onStart(element);
    }

    FilterUtils::XMLFlow onTree(
        const FilterUtils::XMLStreamElement& element, const FilterUtils::XMLElement& tree) override
    {
        _drawing.onTree(element, tree);
        return FilterUtils::XMLFlow::Continue;
    }

    FilterUtils::XMLFlow onEnd(const FilterUtils::XMLStreamEnd& element) override
    {
        if (element.getDepth() == 1)
            return FilterUtils::XMLFlow::Continue;
        if (element.getId() == Filters::TextWords::TextBoxContent) {
            std::string text;
            element.appendText(text);
            auto paragraph = std::make_unique<DOM::Paragraph>();
            paragraph->appendText(text);
            std::vector<std::unique_ptr<DOM::Block>> blocks;
            blocks.push_back(std::move(paragraph));
            _drawing.addTextBox(std::move(blocks));
        } else if (element.getParentId() != Filters::TextWords::TextBoxContent) {
            _drawing.onEnd(element);
        }
        return FilterUtils::XMLFlow::Continue;
    }

private:
    Filters::TextDrawing& _drawing;
};

/// What stands inside of a drawing, and the frames that come of it.
class TextDrawingFixture : public testing::Test
{
protected:
    void read(const std::string& content, std::size_t objectsLeft = 100'000)
    {
        Filters::Package package = Filters::Package::openBytes(makeZip({
            makeContentTypes(""),
            {"d.xml", "<w:drawing" + makeTextDeclarations() + ">" + content + "</w:drawing>"},
            {"p.png", PngBytes                                                              },
            makeRelationships("_rels/d.xml.rels",
                makeRelationship("p", TransitionalTypes + "image", "p.png") +
                    makeRelationship("x", TransitionalTypes + "image", "x.png", "TargetMode='External'")),
        }));
        Filters::TextContext context(package, run);
        context.drawnObjectsLeft = objectsLeft;
        const Filters::Relationships relationships =
            Filters::Relationships::read(package, "d.xml", run.getReport());
        Filters::TextDrawing drawing(context, relationships);
        DrawingDriver driver(drawing);
        ASSERT_TRUE(
            Filters::readXmlStream(package, "d.xml", Filters::getTextWords(), driver, run.getReport()));
        frames = drawing.finish();
    }

    const DOM::Frame& getFrame(std::size_t index = 0) const { return *frames.at(index); }

    static const DOM::Shape& getShape(const DOM::Frame& frame)
    {
        return dynamic_cast<const DOM::Shape&>(*frame.getGraphicalObject());
    }

    static const DOM::AbsoluteAnchor& getPlace(const DOM::Frame& frame)
    {
        return boost::get<DOM::AbsoluteAnchor>(frame.getAnchor());
    }

    /// The colour that fills a shape, as numbers; empty where it is not filled.
    static std::string getFill(const DOM::Frame& frame)
    {
        const auto& color = getShape(frame).getFillColor();
        if (!color)
            return {};
        const DOM::Color::RGBA& rgba = color->getRGBA();
        return std::to_string(rgba.r) + ' ' + std::to_string(rgba.g) + ' ' + std::to_string(rgba.b) + ' ' +
               std::to_string(rgba.a);
    }

    static bool isPicture(const DOM::Frame& frame)
    {
        return dynamic_cast<const DOM::Picture*>(frame.getGraphicalObject()) != nullptr;
    }

    std::vector<std::string> listMessages() const
    {
        std::vector<std::string> texts;
        for (const OperationReport::Message& message : run.getReport().getMessages())
            texts.push_back(message.toString());
        return texts;
    }

    Filters::FilterRun run;
    std::vector<std::shared_ptr<const DOM::Frame>> frames;
};

inline DOM::AbsoluteAnchor makeOriginated(
    float x, float y, DOM::AbsoluteAnchor::Origin horizontal, DOM::AbsoluteAnchor::Origin vertical)
{
    DOM::AbsoluteAnchor anchor({x, y});
    anchor.setOrigins(horizontal, vertical);
    return anchor;
}

} // namespace QV::Tests
