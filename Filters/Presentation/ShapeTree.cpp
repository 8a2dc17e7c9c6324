#include <Filters/Presentation/ShapeTree.h>

#include <string>
#include <utility>

#include <boost/optional.hpp>

#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Shape.h>
#include <Filters/Package/AlternateContent.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/DrawingFormats.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Package/XmlParts.h>
#include <Filters/Presentation/GraphicFrames.h>
#include <Filters/Presentation/PresentationContext.h>
#include <Filters/Presentation/ShapeReader.h>
#include <Filters/Presentation/SlideLeftOut.h>
#include <Filters/Presentation/TreeElements.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

using FramePtr = std::unique_ptr<DOM::Frame>;
using TakeFrame = std::function<void(FramePtr)>;

class ShapeTreeReader
{
public:
    enum class Source
    {
        Slide,
        Diagram, ///< which holds no frames, and so no diagrams in turn
    };

    ShapeTreeReader(const ShapeTreeScope& scope, Source source)
        : _scope(scope)
        , _source(source)
        , _alternatives(scope.part.root, {})
    {
    }

    void readChildren(const XMLElement& parent, const TreeSurroundings& surroundings, const TakeFrame& take)
    {
        static const std::string alternateContent =
            Names(Dialect::Transitional)(Vocabulary::MarkupCompatibility, "AlternateContent");
        parent.processAllElements([&](const std::string& name, const XMLElement& child) {
            if (name == alternateContent)
                readChildren(_alternatives.findBranch(child, parent), surroundings, take);
            else if (FramePtr frame = readFrame(findTreeElementName(name), child, surroundings))
                take(std::move(frame));
        });
    }

private:
    using Kind = DOM::Shape::Kind;
    using ObjectPtr = std::unique_ptr<DOM::GraphicalObject>;
    using Read = ObjectPtr (ShapeTreeReader::*)(const TreeObject&, const TreeSurroundings&);

    struct Reading
    {
        const char* name;
        Read read;
    };

    /// Null for what is no object, and beyond a limit.
    FramePtr readFrame(
        const std::string& name, const XMLElement& element, const TreeSurroundings& surroundings)
    {
        static const Reading readings[] = {
            {"sp",           &ShapeTreeReader::readShape    },
            {"cxnSp",        &ShapeTreeReader::readConnector},
            {"pic",          &ShapeTreeReader::readPicture  },
            {"grpSp",        &ShapeTreeReader::readGroup    },
            {"graphicFrame", &ShapeTreeReader::readGraphic  },
        };
        if (name == "contentPart")
            _scope.context.run.leaveOut(SlideLeftOut::Ink);
        for (const Reading& reading : readings) {
            if (name != reading.name || !isWithinLimits(name, surroundings))
                continue;
            const TreeObject object = readTreeObject(element, surroundings, _scope);
            FramePtr frame = makeTreeFrame(object, _scope);
            frame->setGraphicalObject((this->*reading.read)(object, surroundings));
            return frame;
        }
        return nullptr;
    }

    bool isWithinLimits(const std::string& name, const TreeSurroundings& surroundings)
    {
        PresentationContext& context = _scope.context;
        if (name == "grpSp" && surroundings.depth >= PresentationContext::GroupDepthMax) {
            if (!std::exchange(_isDepthReported, true))
                context.report("Groups deeper than {} levels are left out",
                    std::to_string(PresentationContext::GroupDepthMax));
            return false;
        }
        if (context.shapesCount > PresentationContext::ShapesMax)
            return false;
        if (++context.shapesCount <= PresentationContext::ShapesMax)
            return true;
        context.report("The presentation has more than {} shapes; the rest is left out",
            std::to_string(PresentationContext::ShapesMax));
        return false;
    }

    ObjectPtr readShape(const TreeObject& object, const TreeSurroundings& surroundings)
    {
        return readTreeShape(object, Kind::Drawn, surroundings, _scope);
    }

    ObjectPtr readConnector(const TreeObject& object, const TreeSurroundings& surroundings)
    {
        return readTreeShape(object, Kind::Connector, surroundings, _scope);
    }

    ObjectPtr readPicture(const TreeObject& object, const TreeSurroundings& surroundings)
    {
        return readTreePicture(object, surroundings, _scope);
    }

    ObjectPtr readGroup(const TreeObject& object, const TreeSurroundings& surroundings)
    {
        const DrawingScope drawing = _scope.part.makeDrawingScope(_scope.context, surroundings.fill);
        const auto fill = readFill(object.shapeProps, drawing);
        TreeSurroundings inner = surroundings;
        inner.fill = fill ? &*fill : surroundings.fill;
        ++inner.depth;
        if (object.transform && object.transform->box) {
            const DrawnBox& place = *object.transform->box;
            inner.scale = GroupScale(place, object.transform->childBox.value_or(place));
        }
        auto group = std::make_unique<DOM::Shape>();
        group->setKind(Kind::Group);
        readChildren(object.element, inner, [&](FramePtr child) { group->appendChild(std::move(child)); });
        return group;
    }

    ObjectPtr readGraphic(const TreeObject& object, const TreeSurroundings& surroundings)
    {
        if (_source == Source::Diagram)
            return nullptr;
        return readGraphicFrame(object, surroundings, _scope,
            [&](const std::string& part) { return readDiagram(part, object, surroundings); });
    }

    /// The shapes of a diagram have places in its frame.
    ObjectPtr readDiagram(
        const std::string& part, const TreeObject& object, const TreeSurroundings& surroundings)
    {
        PresentationContext& context = _scope.context;
        if (!context.takeRead(part))
            return nullptr;
        SlidePart drawing(part, readXml(context.package, part, context.run.getReport()),
            Relationships::read(context.package, part, context.run.getReport()), _scope.part.theme);
        drawing.colors = _scope.part.colors;
        const XMLElement tree = findTreeElement(drawing.root, "spTree");
        if (!tree.isValid())
            return nullptr;
        TreeSurroundings inner;
        inner.depth = surroundings.depth + 1;
        if (object.transform && object.transform->box) {
            const DrawnBox& place = *object.transform->box;
            inner.scale = GroupScale(place, DrawnBox{{}, place.extent});
        }
        auto diagram = std::make_unique<DOM::Shape>();
        diagram->setKind(Kind::Object);
        const ShapeTreeScope scope{context, drawing, _scope.textStyles, nullptr, nullptr};
        ShapeTreeReader(scope, Source::Diagram).readChildren(tree, inner, [&](FramePtr child) {
            diagram->appendChild(std::move(child));
        });
        return diagram;
    }

    const ShapeTreeScope& _scope;
    const Source _source;
    const AlternateContent _alternatives;
    bool _isDepthReported = false;
};

// Their alternatives are pictures, so the trees themselves do not tell.
void leaveOutNewerCharts(const ShapeTreeScope& scope)
{
    for (const Relationship& relationship : scope.part.relationships.getAll())
        if (relationship.type.find("/chartEx") != std::string::npos)
            scope.context.run.leaveOut(SlideLeftOut::NewerCharts);
}

} // namespace

std::vector<std::unique_ptr<DOM::Frame>> readShapeTree(const XMLElement& tree, const ShapeTreeScope& scope)
{
    leaveOutNewerCharts(scope);
    std::vector<FramePtr> frames;
    ShapeTreeReader(scope, ShapeTreeReader::Source::Slide).readChildren(tree, {}, [&](FramePtr frame) {
        frames.push_back(std::move(frame));
    });
    return frames;
}

} // namespace QV::Filters
