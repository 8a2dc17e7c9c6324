#include <Filters/Package/DrawingFormats.h>
#include <Filters/Package/GeometryReader.h>

#include <cstddef>
#include <string>
#include <utility>

#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/DrawingTheme.h>
#include <Filters/Package/FilterRun.h>
#include <Utils/Public/NumberText.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

constexpr unsigned long NoBackground = 1000; // as is 0: ECMA-376 Part 1, 20.1.4.2.10

/// The number of an element that refers to the theme; nothing where it has none, or after a message.
boost::optional<unsigned long> readFormatIndex(const XMLElement& reference, OperationReport& report)
{
    const auto text = reference.getAttributeValue("idx");
    if (!text)
        return boost::none;
    std::size_t end = 0;
    const auto number = strToUlong(*text, &end, 10);
    if (number && end == text->size())
        return number;
    report.emplace_back("Number {} of a theme's format is none", *text);
    return boost::none;
}

/// What a number of the theme is read with: the placeholder colour is that of the element that refers to it,
/// and pictures are those of the theme.
class ReferredScope
{
public:
    ReferredScope(const XMLElement& reference, const DrawingScope& scope)
        : _index(readFormatIndex(reference, scope.run.getReport()))
        , _color(readDrawingColor(reference, scope.colors, scope.run.getReport()))
        , _colors(scope.colors.withPlaceholderColor(_color))
        , _scope{scope.theme, _colors, scope.theme.getRelationships(), scope.pictures, scope.run,
              scope.groupFill}
    {
    }

    ReferredScope(const ReferredScope&) = delete; // refers to itself
    ReferredScope& operator=(const ReferredScope&) = delete;

    const boost::optional<unsigned long>& getIndex() const { return _index; }
    const boost::optional<DOM::Color>& getColor() const { return _color; }
    const DrawingScope& getScope() const { return _scope; }

    boost::optional<DOM::ShapeFill> readThemeFill() const
    {
        const DrawingTheme::Format fill = _scope.theme.findFill(_index.value_or(0));
        return readFillElement(fill.name, fill.element, _scope);
    }

private:
    boost::optional<unsigned long> _index;
    boost::optional<DOM::Color> _color;
    ColorScheme _colors;
    DrawingScope _scope;
};

void readFontReference(const XMLElement& reference, const DrawingScope& scope, ReferredFormats& formats)
{
    const std::string index = reference.getAttributeValue("idx").value_or(std::string());
    if (index == "major")
        formats.fontName = "+mj-lt";
    else if (index == "minor")
        formats.fontName = "+mn-lt";
    formats.fontColor = readDrawingColor(reference, scope.colors, scope.run.getReport());
}

} // namespace

void readShapeProps(const XMLElement& shapeProperties, const DrawingScope& scope, DOM::ShapeProps& props)
{
    if (auto fill = readFill(shapeProperties, scope))
        props.setFill(std::move(fill));
    const XMLElement line = findDrawingElement(shapeProperties, Vocabulary::Drawing, "ln");
    if (line.isValid())
        readLine(line, scope, props);
    readEffects(shapeProperties, scope, props);
    if (auto geometry = readGeometry(shapeProperties, scope.run.getReport()))
        props.setGeometry(std::move(geometry));
}

ReferredFormats readReferredFormats(const XMLElement& style, const DrawingScope& scope)
{
    const auto find = [&](const char* name) { return findDrawingElement(style, Vocabulary::Drawing, name); };
    ReferredFormats formats;
    const ReferredScope line(find("lnRef"), scope);
    readLine(scope.theme.findLine(line.getIndex().value_or(0)), line.getScope(), formats.props);
    formats.props.setFill(ReferredScope(find("fillRef"), scope).readThemeFill());
    const ReferredScope effects(find("effectRef"), scope);
    readEffects(scope.theme.findEffects(effects.getIndex().value_or(0)), effects.getScope(), formats.props);
    readFontReference(find("fontRef"), scope, formats);
    return formats;
}

boost::optional<DOM::ShapeFill> readBackground(const XMLElement& background, const DrawingScope& scope)
{
    const XMLElement props = findDrawingElement(background, Vocabulary::Presentation, "bgPr");
    if (props.isValid())
        return readFill(props, scope);
    const XMLElement reference = findDrawingElement(background, Vocabulary::Presentation, "bgRef");
    if (!reference.isValid())
        return boost::none;
    const ReferredScope referred(reference, scope);
    const auto index = referred.getIndex();
    if (index && (*index == 0 || *index == NoBackground))
        return DOM::ShapeFill(DOM::NoFill());
    return referred.readThemeFill();
}

} // namespace QV::Filters
