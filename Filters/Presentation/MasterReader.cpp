#include <Filters/Presentation/MasterReader.h>

#include <utility>

#include <boost/optional.hpp>

#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/ShapeFill.h>
#include <DOM/Public/ShapeProps.h>
#include <FilterUtils/FU_Slides.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/DrawingFormats.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Presentation/PresentationContext.h>
#include <Filters/Presentation/SlideText.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

/// The name of a part without its folder and extension.
std::string getPartStem(const std::string& part)
{
    const std::string file = part.substr(part.rfind('/') + 1); // npos + 1 is the beginning
    return file.substr(0, file.rfind('.'));
}

std::shared_ptr<const DOM::TextLevels> readMasterLevels(
    const XMLElement& styles, DOM::TextLevels& levels, const SlidePart& part, PresentationContext& context)
{
    if (!styles.isValid())
        return nullptr;
    levels = readTextLevels(styles, part, context);
    return std::make_shared<const DOM::TextLevels>(levels);
}

} // namespace

MasterReader::MasterReader(PresentationContext& context, SlideParts& parts, const SlidePart& presentation)
    : _context(context)
    , _parts(parts)
    , _presentation(presentation)
{
}

void MasterReader::readMaster(const std::string& part)
{
    const auto [known, isNew] = _masters.try_emplace(part);
    if (!isNew)
        return;
    const auto master = _parts.open(part, SlideParts::BadMaster);
    if (!master)
        return;
    master->colors.readMapping(findDrawingElement(master->root, Vocabulary::Presentation, "clrMap"));
    auto [content, style] = makeMaster(*master);
    known->second = std::move(content);
    if (style.getName().empty())
        style.setName(master->theme->getName().empty() ? getPartStem(part) : master->theme->getName());
    FilterUtils::moveSlideMasterToDocumentStyles(_context.run.getDocument(), _names, std::move(style), part);
    noteLeftOutOfPart(*master, _context.run);
    readLayouts(*master);
}

const SlideLayout& MasterReader::getLayout(const std::string& part)
{
    if (part.empty())
        return getBlankLayout();
    readLayout(part, {});
    const auto& layout = _layouts[part];
    return layout ? *layout : getBlankLayout();
}

const SlideLayout& MasterReader::getLayout(const std::string& part, const ColorScheme& colors)
{
    const SlideLayout& layout = getLayout(part);
    if (layout.part.empty() || layout.colors == colors)
        return layout;
    for (const LayoutPtr& known : _recoloredLayouts)
        if (known->part == part && known->colors == colors)
            return *known;
    const auto opened =
        _recoloredLayouts.size() < RecoloredMax ? _parts.open(part, SlideParts::BadLayout) : nullptr;
    if (!opened)
        return layout;
    opened->theme = layout.master->theme;
    opened->colors = colors;
    _recoloredLayouts.push_back(makeLayout(*opened, layout.master).first);
    return *_recoloredLayouts.back();
}

/// What the presentation says of all text, in the colours and fonts of @p part.
DOM::TextLevels MasterReader::readDefaults(const SlidePart& part)
{
    DOM::TextLevels levels = readTextLevels(
        findDrawingElement(_presentation.root, Vocabulary::Presentation, "defaultTextStyle"), part, _context);
    if (!std::exchange(_hasDefaults, true))
        _context.defaultLevels = levels;
    return levels;
}

const SlideLayout& MasterReader::getBlankLayout()
{
    if (!_blankLayout) {
        auto master = std::make_shared<SlideMaster>(
            SlideMaster{{}, _presentation.theme, _presentation.colors, {}, {}, nullptr});
        master->textStyles.defaults = readDefaults(_presentation);
        _blankLayout = std::make_unique<const SlideLayout>(
            SlideLayout{{}, std::move(master), _presentation.colors, {}, nullptr});
    }
    return *_blankLayout;
}

std::pair<MasterReader::MasterPtr, DOM::NamedShapeStyle> MasterReader::makeMaster(const SlidePart& part)
{
    auto master =
        std::make_shared<SlideMaster>(SlideMaster{part.name, part.theme, part.colors, {}, {}, nullptr});
    const XMLElement styles = findDrawingElement(part.root, Vocabulary::Presentation, "txStyles");
    const auto readLevels = [&](const char* name, DOM::TextLevels& levels) {
        return readMasterLevels(
            findDrawingElement(styles, Vocabulary::Presentation, name), levels, part, _context);
    };
    master->textStyles.defaults = readDefaults(part);
    const auto titleLevels = readLevels("titleStyle", master->textStyles.title);
    const auto bodyLevels = readLevels("bodyStyle", master->textStyles.body);
    const auto otherLevels = readLevels("otherStyle", master->textStyles.other);

    const auto findNothing = [](const DOM::Placeholder&) -> const PlaceholderSource* { return nullptr; };
    DOM::NamedShapeStyle style =
        makeStyle({_context, part, master->textStyles, findNothing, &master->placeholders});
    style.setTitleLevels(titleLevels);
    style.setBodyLevels(bodyLevels);
    style.setOtherLevels(otherLevels);
    master->background = style.getShapeProps();
    return {std::move(master), std::move(style)};
}

MasterReader::MasterPtr MasterReader::recolorMaster(const MasterPtr& master, const ColorScheme& colors)
{
    if (master->part.empty() || master->colors == colors)
        return master;
    for (const MasterPtr& known : _recoloredMasters)
        if (known->part == master->part && known->colors == colors)
            return known;
    const auto opened =
        _recoloredMasters.size() < RecoloredMax ? _parts.open(master->part, SlideParts::BadMaster) : nullptr;
    if (!opened)
        return master;
    opened->colors = colors;
    _recoloredMasters.push_back(makeMaster(*opened).first);
    return _recoloredMasters.back();
}

void MasterReader::readLayouts(const SlidePart& masterPart)
{
    const XMLElement list = findDrawingElement(masterPart.root, Vocabulary::Presentation, "sldLayoutIdLst");
    std::vector<std::string> parts =
        _parts.listParts(list, "sldLayoutId", masterPart.relationships, "slideLayout", SlideParts::BadLayout);
    for (const Relationship& relationship : masterPart.relationships.getAll())
        if (!relationship.isExternal && relationship.isType("slideLayout"))
            parts.push_back(relationship.target); // most of them once more
    for (const std::string& part : parts)
        readLayout(part, masterPart.name);
}

void MasterReader::readLayout(const std::string& part, std::string masterName)
{
    const auto [known, isNew] = _layouts.try_emplace(part);
    if (!isNew)
        return;
    const auto layoutPart = _parts.open(part, SlideParts::BadLayout);
    if (!layoutPart)
        return;
    if (masterName.empty()) {
        masterName = findRelatedPart(layoutPart->relationships, "slideMaster");
        if (!masterName.empty())
            readMaster(masterName); // and its layouts, but for this one
    }
    const auto found = _masters.find(masterName);
    const MasterPtr master =
        found != _masters.end() && found->second ? found->second : getBlankLayout().master;
    layoutPart->theme = master->theme;
    layoutPart->colors = readColorOverride(layoutPart->root, master->colors);

    auto [layout, style] = makeLayout(*layoutPart, master);
    if (style.getName().empty())
        style.setName(getPartStem(part));
    if (layout->colors != master->colors)
        style.setShapeProps(layout->background);
    style.setShowsParentShapes(readSlideSwitch(layoutPart->root, "showMasterSp", true));
    FilterUtils::moveSlideLayoutToDocumentStyles(
        _context.run.getDocument(), _names, std::move(style), part, masterName);
    noteLeftOutOfPart(*layoutPart, _context.run);
    known->second = std::move(layout);
}

std::pair<MasterReader::LayoutPtr, DOM::NamedShapeStyle> MasterReader::makeLayout(
    const SlidePart& part, const MasterPtr& master)
{
    auto layout = std::make_unique<SlideLayout>(
        SlideLayout{part.name, recolorMaster(master, part.colors), part.colors, {}, nullptr});
    const auto findSource = [&layout](const DOM::Placeholder& placeholder) {
        return layout->master->placeholders.findForLayout(placeholder);
    };
    DOM::NamedShapeStyle style =
        makeStyle({_context, part, layout->master->textStyles, findSource, &layout->placeholders});
    layout->background = style.getShapeProps() ? style.getShapeProps() : layout->master->background;
    return {std::move(layout), std::move(style)};
}

DOM::NamedShapeStyle MasterReader::makeStyle(const ShapeTreeScope& scope) const
{
    const XMLElement data = findDrawingElement(scope.part.root, Vocabulary::Presentation, "cSld");
    DOM::NamedShapeStyle style;
    style.setName(data.getAttributeValue("name").value_or(std::string()));
    style.setShapeProps(readBackgroundProps(scope.part, _context));
    for (auto& frame : readShapeTree(findDrawingElement(data, Vocabulary::Presentation, "spTree"), scope))
        style.appendChild(std::move(frame));
    return style;
}

} // namespace QV::Filters
