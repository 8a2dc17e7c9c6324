#include <Filters/Presentation/SlideParts.h>

#include <utility>

#include <boost/algorithm/string/predicate.hpp>

#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/DrawingFormats.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Package/XmlParts.h>
#include <Filters/Presentation/SlideLeftOut.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

std::string readReferenceId(const XMLElement& element)
{
    for (const Dialect dialect : {Dialect::Transitional, Dialect::Strict})
        if (auto id = element.getAttributeValue(Names(dialect)(Vocabulary::Relationships, "id")))
            return std::move(*id);
    return {};
}

XMLElement findPresentationElement(const XMLElement& parent, const char* name)
{
    return findDrawingElement(parent, Vocabulary::Presentation, name);
}

/// The child of that name, also inside of alternatives: any of them tells that there is such a thing.
XMLElement findInAlternatives(const XMLElement& root, const char* name)
{
    XMLElement found = findPresentationElement(root, name);
    forEachDrawingElement(
        root, Vocabulary::MarkupCompatibility, [&](const std::string&, const XMLElement& alternatives) {
            forEachDrawingElement(alternatives, Vocabulary::MarkupCompatibility,
                [&](const std::string&, const XMLElement& branch) {
                    if (!found.isValid())
                        found = findPresentationElement(branch, name);
                });
        });
    return found;
}

/// Whether a p:timing element does more than to stand there, as it does in most files.
bool hasAnimations(const XMLElement& timing)
{
    XMLElement node = timing;
    for (const char* const name : {"tnLst", "par", "cTn", "childTnLst"})
        node = findPresentationElement(node, name);
    return node.isValid();
}

bool hasSections(const XMLElement& presentation)
{
    bool isFound = false;
    forEachDrawingElement(findPresentationElement(presentation, "extLst"), Vocabulary::Presentation,
        [&](const std::string&, const XMLElement& extension) {
            if (extension.getAttributeValue("uri") == std::string("{521415D9-36F7-43E2-AB2F-B90AF26B5E84}"))
                isFound = true;
        });
    return isFound;
}

bool isMedia(const Relationship& relationship)
{
    return relationship.isType("audio") || relationship.isType("video") ||
           boost::algorithm::ends_with(relationship.type, "/relationships/media");
}

void noteRelationship(const Relationship& relationship, FilterRun& run)
{
    if (isMedia(relationship))
        run.leaveOut(SlideLeftOut::Media);
    else if (boost::algorithm::ends_with(relationship.type, "/relationships/comments")) // of any maker
        run.leaveOut(SlideLeftOut::Comments);
    else if (relationship.isType("themeOverride"))
        run.leaveOut(SlideLeftOut::ThemeOverrides);
    else if (relationship.isType("handoutMaster"))
        run.leaveOut(SlideLeftOut::Handouts);
    else if (relationship.type.find("vbaProject") != std::string::npos)
        run.leaveOut(SlideLeftOut::Macros);
    const bool isFile = isMedia(relationship) || relationship.isType("oleObject");
    if (relationship.isExternal && isFile && !relationship.target.empty())
        run.addLink(relationship.target);
}

} // namespace

SlideParts::SlideParts(PresentationContext& context, const Relationships& relationships)
    : _context(context)
    , _theme(readTheme(relationships, std::make_shared<const DrawingTheme>()))
{
}

std::shared_ptr<const DrawingTheme> SlideParts::readTheme(
    const Relationships& relationships, std::shared_ptr<const DrawingTheme> fallback)
{
    const std::string part = findRelatedPart(relationships, "theme");
    if (part.empty())
        return fallback;
    auto& theme = _themes[part];
    if (!theme)
        theme = std::make_shared<DrawingTheme>(_context.package, part, _context.run.getReport());
    return theme;
}

std::unique_ptr<SlidePart> SlideParts::open(const std::string& part, const char* message)
{
    if (!_context.takeRead(part))
        return nullptr;
    const XMLElement root = readXml(_context.package, part, _context.run.getReport());
    if (!root.isValid())
        return nullptr;
    if (!findPresentationElement(root, "cSld").isValid()) {
        _context.report(message, part);
        return nullptr;
    }
    Relationships relationships = Relationships::read(_context.package, part, _context.run.getReport());
    auto theme = readTheme(relationships, _theme);
    return std::make_unique<SlidePart>(part, root, std::move(relationships), std::move(theme));
}

std::vector<std::string> SlideParts::listParts(const XMLElement& list, const char* entry,
    const Relationships& relationships, const char* family, const char* message)
{
    std::vector<std::string> parts;
    forEachDrawingElement(
        list, Vocabulary::Presentation, [&](const std::string& name, const XMLElement& reference) {
            if (name != entry)
                return;
            const std::string id = readReferenceId(reference);
            const Relationship* const relationship = relationships.findById(id);
            if (relationship && !relationship->isExternal && relationship->isType(family))
                parts.push_back(relationship->target);
            else
                _context.report(message, id);
        });
    return parts;
}

std::string findRelatedPart(const Relationships& relationships, const char* family)
{
    for (const Relationship& relationship : relationships.getAll())
        if (!relationship.isExternal && relationship.isType(family))
            return relationship.target;
    return {};
}

bool readSlideSwitch(const XMLElement& element, const char* name, bool usual)
{
    const auto text = element.getAttributeValue(name);
    if (!text)
        return usual;
    if (*text == FilterUtils::XSDTrueValue || *text == "true")
        return true;
    return *text == FilterUtils::XSDFalseValue || *text == "false" ? false : usual;
}

ColorScheme readColorOverride(const XMLElement& root, ColorScheme parent)
{
    // "masterClrMapping" stands on most slides, also on those of layouts with a mapping of their own.
    parent.readMapping(findDrawingElement(
        findPresentationElement(root, "clrMapOvr"), Vocabulary::Drawing, "overrideClrMapping"));
    return parent;
}

std::shared_ptr<const DOM::ShapeProps> readBackgroundProps(
    const SlidePart& part, PresentationContext& context)
{
    const XMLElement background = findPresentationElement(findPresentationElement(part.root, "cSld"), "bg");
    if (!background.isValid())
        return nullptr;
    auto fill = readBackground(background, part.makeDrawingScope(context));
    if (!fill)
        return nullptr;
    DOM::ShapeProps props;
    props.setFill(std::move(fill));
    return std::make_shared<const DOM::ShapeProps>(std::move(props));
}

void noteLeftOutOfPart(const SlidePart& part, FilterRun& run)
{
    if (findInAlternatives(part.root, "transition").isValid())
        run.leaveOut(SlideLeftOut::Transitions);
    if (hasAnimations(findInAlternatives(part.root, "timing")))
        run.leaveOut(SlideLeftOut::Animations);
    if (findPresentationElement(part.root, "hf").isValid())
        run.leaveOut(SlideLeftOut::HeadersFooters);
    for (const Relationship& relationship : part.relationships.getAll())
        noteRelationship(relationship, run);
}

void noteLeftOutOfPresentation(const XMLElement& root, const Relationships& relationships, FilterRun& run)
{
    if (findPresentationElement(root, "custShowLst").isValid())
        run.leaveOut(SlideLeftOut::CustomShows);
    if (findPresentationElement(root, "embeddedFontLst").isValid())
        run.leaveOut(SlideLeftOut::EmbeddedFonts);
    if (hasSections(root))
        run.leaveOut(SlideLeftOut::Sections);
    for (const Relationship& relationship : relationships.getAll())
        noteRelationship(relationship, run);
}

} // namespace QV::Filters
