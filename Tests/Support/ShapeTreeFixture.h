#pragma once

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <boost/optional.hpp>
#include <boost/variant.hpp>
#include <gtest/gtest.h>

#include <DOM/Public/ChartSpace.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/Table.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/DrawingTheme.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/Relationships.h>
#include <Filters/Presentation/PresentationContext.h>
#include <Filters/Presentation/ShapeTree.h>
#include <Tests/Support/PresentationBuilder.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Tests {

inline std::string describeFrame(const DOM::Frame& frame);

inline std::string describeShape(const DOM::Shape& shape)
{
    static const char* const kinds[] = {"shape", "group", "connector", "object", "slide"};
    std::string text = kinds[static_cast<int>(shape.getKind())];
    if (const auto& placeholder = shape.getPlaceholder())
        text += " <" + placeholder->type + (placeholder->isPlaceInherited ? "^>" : ">");
    if (shape.getText() && !shape.getText()->getPlainText().empty())
        text += " '" + shape.getText()->getPlainText() + "'";
    std::string children;
    for (const DOM::Frame& child : shape.getChildren())
        children += (children.empty() ? "" : "; ") + describeFrame(child);
    return children.empty() ? text : text + " {" + children + "}";
}

/// What a frame shows: "shape", "picture", "empty" and so on.
inline std::string describeObject(const DOM::GraphicalObject* object)
{
    if (!object)
        return "empty";
    if (dynamic_cast<const DOM::Picture*>(object))
        return "picture";
    if (dynamic_cast<const DOM::Table*>(object))
        return "table";
    if (dynamic_cast<const DOM::ChartSpace*>(object))
        return "chart";
    return describeShape(dynamic_cast<const DOM::Shape&>(*object));
}

/// "NAME: OBJECT X,Y WIDTHxHEIGHT", with what else is said of the place behind it.
inline std::string describeFrame(const DOM::Frame& frame)
{
    std::ostringstream out;
    const auto& offset = boost::get<DOM::AbsoluteAnchor>(frame.getAnchor()).getOffset();
    out << frame.getName() << ": " << describeObject(frame.getGraphicalObject()) << ' ' << offset.x << ','
        << offset.y;
    if (frame.getExtent())
        out << ' ' << frame.getExtent()->getWidth() << 'x' << frame.getExtent()->getHeight();
    if (frame.getRotation() != 0)
        out << " turned " << frame.getRotation();
    out << (frame.isFlippedHorizontally() ? " flipH" : "") << (frame.isFlippedVertically() ? " flipV" : "")
        << (frame.isHidden() ? " hidden" : "");
    if (!frame.getDescription().empty())
        out << " (" << frame.getDescription() << ')';
    if (const auto& link = frame.getHyperlink())
        out << " -> " << link->getURL() << '#' << link->getAnchor();
    return out.str();
}

/// Reads the trees of one slide. A test adds parts and relationships before the first reading.
class ShapeTreeFixture : public testing::Test
{
protected:
    void addPart(const std::string& name, const std::string& content) { _items.push_back({name, content}); }
    /// @param family the end of the type, or a whole one
    void relate(const std::string& id, const std::string& family, const std::string& target,
        const std::string& more = {})
    {
        const bool isWhole = family.find("://") != std::string::npos;
        _relationships += makeRelationship(id, isWhole ? family : TransitionalTypes + family, target, more);
    }

    Filters::PresentationContext& getContext()
    {
        if (!_context) {
            _items.push_back({"ppt/slides/slide1.xml", "<x/>"});
            _items.push_back(makeRelationships("ppt/slides/_rels/slide1.xml.rels", _relationships));
            _package = std::make_unique<Filters::Package>(Filters::Package::openBytes(makeZip(_items)));
            _context = std::make_unique<Filters::PresentationContext>(*_package, run);
        }
        return *_context;
    }

    /// Any element, with the usual prefixes.
    static FilterUtils::XMLElement parse(const std::string& content, bool isStrict = false)
    {
        std::istringstream stream(
            "<p:spTree" + makePresentationDeclarations(isStrict) + ">" + content + "</p:spTree>");
        auto root = FilterUtils::XMLElement::getRootElement(stream, boost::none);
        EXPECT_TRUE(root.isValid()) << content;
        return root;
    }

    Filters::ShapeTreeScope makeScope(const FilterUtils::XMLElement& root)
    {
        getContext();
        part = std::make_unique<Filters::SlidePart>("ppt/slides/slide1.xml", root,
            Filters::Relationships::read(*_package, "ppt/slides/slide1.xml", run.getReport()),
            std::make_shared<Filters::DrawingTheme>(*_package, themePart, run.getReport()));
        return {*_context, *part, textStyles,
            [this](const DOM::Placeholder& placeholder) { return sources.findForSlide(placeholder); },
            gathered};
    }

    /// The frames of a tree with that content, as text.
    std::string read(const std::string& content, bool isStrict = false)
    {
        const FilterUtils::XMLElement root = parse(content, isStrict);
        frames = Filters::readShapeTree(root, makeScope(root));
        std::string text;
        for (const auto& frame : frames)
            text += (text.empty() ? "" : "; ") + describeFrame(*frame);
        return text;
    }

    template <typename Object = DOM::Shape>
    const Object& getObject(std::size_t index = 0) const
    {
        return dynamic_cast<const Object&>(*frames.at(index)->getGraphicalObject());
    }

    std::string joinMessages() const
    {
        std::string all;
        for (const OperationReport::Message& message : run.getReport().getMessages())
            if (message.getText() != Filters::FilterRun::LeftOutMessage)
                all += (all.empty() ? "" : "|") + message.toString();
        return all;
    }

    Filters::FilterRun run;
    Filters::MasterTextStyles textStyles;
    Filters::PlaceholderSources sources; ///< what placeholders find
    Filters::PlaceholderSources* gathered = nullptr;
    std::string themePart; ///< empty for none
    std::unique_ptr<Filters::SlidePart> part;
    std::vector<std::unique_ptr<DOM::Frame>> frames;

private:
    std::vector<ZipItem> _items;
    std::string _relationships;
    std::unique_ptr<Filters::Package> _package;
    std::unique_ptr<Filters::PresentationContext> _context;
};

/// The a:xfrm, or p:xfrm, of a place in points.
inline std::string makeTransform(
    const std::string& box, const std::string& attributes = {}, const std::string& prefix = "a")
{
    return "<" + prefix + ":xfrm " + attributes + ">" + box + "</" + prefix + ":xfrm>";
}

inline std::string makeBox(long x, long y, long width, long height, const std::string& names = "off ext")
{
    const auto emu = [](long points) { return std::to_string(points * 12700); };
    const std::size_t blank = names.find(' ');
    return "<a:" + names.substr(0, blank) + " x=\"" + emu(x) + "\" y=\"" + emu(y) +
           "\"/><a:" + names.substr(blank + 1) + " cx=\"" + emu(width) + "\" cy=\"" + emu(height) + "\"/>";
}

/// An object with its names: @p kind is "Sp", "Pic", "CxnSp", "GrpSp" or "GraphicFrame".
inline std::string makeNonVisual(
    const std::string& kind, const std::string& names, const std::string& application = {})
{
    return "<p:nv" + kind + "Pr><p:cNvPr id='2' " + names + "/><p:cNv" + kind + "Pr/><p:nvPr>" + application +
           "</p:nvPr></p:nv" + kind + "Pr>";
}

} // namespace QV::Tests
