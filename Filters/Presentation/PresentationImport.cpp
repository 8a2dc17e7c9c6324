#include <Filters/Presentation/PresentationImport.h>

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/Block.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/ShapeStyle.h>
#include <FilterUtils/FU_NumberedListsFactory.h>
#include <FilterUtils/FU_Slides.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/ContentTypes.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/MainPart.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/PackageError.h>
#include <Filters/Package/Relationships.h>
#include <Filters/Package/XmlParts.h>
#include <Filters/Presentation/MasterReader.h>
#include <Filters/Presentation/PresentationContext.h>
#include <Filters/Presentation/ShapeTree.h>
#include <Filters/Presentation/SlideNotes.h>
#include <Filters/Presentation/SlideParts.h>
#include <Filters/Presentation/SlideText.h>
#include <Utils/Public/OperationReport.h>
#include <Utils/Public/Size2D.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

constexpr std::size_t SlidesMax = 10'000;
constexpr float SlideSideMax = 4032; // points; ECMA-376 Part 1, ST_SlideSizeCoordinate

const Size2D<float> UsualSlideSize(720, 540); // of a screen, where a file says nothing

std::string findPresentationPart(Package& package, OperationReport& report)
{
    const ContentTypes types = ContentTypes::read(package, report);
    const Relationships relationships = Relationships::read(package, {}, report);
    const MainPart mainPart = findMainPart(package, types, relationships);
    if (mainPart.kind != DocumentKind::Presentation)
        throw PackageError(PackageError::Kind::Unsupported,
            mainPart.kind == DocumentKind::Spreadsheet ? "a workbook; only presentations can be read"
                                                       : "a text document; only presentations can be read",
            mainPart.name);
    return mainPart.name;
}

/// Nothing for what is no size of a slide.
boost::optional<float> readSlideSide(const std::string& text)
{
    OperationReport unheard; // both sides are reported together
    const auto side = readCoordinate(text, unheard);
    return side && *side > 0 && *side <= SlideSideMax ? side : boost::none;
}

Size2D<float> readSlideSize(const XMLElement& element, OperationReport& report)
{
    if (!element.isValid())
        return UsualSlideSize;
    const std::string width = element.getAttributeValue("cx").value_or(std::string());
    const std::string height = element.getAttributeValue("cy").value_or(std::string());
    const auto points = std::make_pair(readSlideSide(width), readSlideSide(height));
    if (points.first && points.second)
        return {*points.first, *points.second};
    report.emplace_back("Slides cannot be {} by {} EMU", width, height);
    return UsualSlideSize;
}

class PresentationImporter
{
public:
    PresentationImporter(Package& package, FilterRun& run)
        : _package(package)
        , _run(run)
        , _context(package, run)
        , _mainPart(findPresentationPart(package, run.getReport()))
        , _root(readXml(package, _mainPart, run.getReport()))
        , _relationships(Relationships::read(package, _mainPart, run.getReport()))
        , _parts(_context, _relationships)
        , _masters(_context, _parts, {_mainPart, _root, _relationships, _parts.getTheme()})
        , _notes(_context, _parts)
    {
        if (!_root.isValid())
            throw PackageError(PackageError::Kind::Damaged,
                "part \"" + makePrintable(_mainPart) + "\" is not well-formed XML", _mainPart);
    }

    void import()
    {
        _run.getDocument().setSlideSize(readSlideSize(findElement("sldSz"), _run.getReport()));
        noteLeftOutOfPresentation(_root, _relationships, _run);
        const std::string tableStyles = findRelatedPart(_relationships, "tableStyles");
        if (!tableStyles.empty())
            _context.tableStyles.read(readXml(_package, tableStyles, _run.getReport()));
        readMasters();
        readSlides();
        for (const auto& list : _context.lists.getNumberedLists())
            _run.getDocument().addNumberedList(list);
        _context.messages.finish(_run.getReport());
    }

private:
    XMLElement findElement(const char* name) const
    {
        return findDrawingElement(_root, Vocabulary::Presentation, name);
    }

    void readMasters()
    {
        const XMLElement list = findElement("sldMasterIdLst");
        std::vector<std::string> parts =
            _parts.listParts(list, "sldMasterId", _relationships, "slideMaster", SlideParts::BadMaster);
        if (!list.isValid())
            for (const Relationship& relationship : _relationships.getAll())
                if (!relationship.isExternal && relationship.isType("slideMaster"))
                    parts.push_back(relationship.target);
        for (const std::string& part : parts)
            _masters.readMaster(part);
    }

    void readSlides()
    {
        std::vector<std::string> parts =
            _parts.listParts(findElement("sldIdLst"), "sldId", _relationships, "slide", SlideParts::BadSlide);
        if (parts.size() > SlidesMax) {
            _run.getReport().emplace_back(
                "Presentation has more than {} slides, and the rest is left out", std::to_string(SlidesMax));
            parts.resize(SlidesMax);
        }
        std::vector<std::unique_ptr<DOM::Block>> slides;
        for (const std::string& part : parts)
            if (const auto slide = _parts.open(part, SlideParts::BadSlide))
                readSlide(*slide, slides);
        for (auto& slide : slides)
            _run.getDocument().getBlocks().append(std::move(slide));
    }

    void readSlide(SlidePart& part, std::vector<std::unique_ptr<DOM::Block>>& slides)
    {
        const std::string layoutName = findRelatedPart(part.relationships, "slideLayout");
        const SlideLayout& ownLayout = _masters.getLayout(layoutName);
        part.theme = ownLayout.master->theme;
        part.colors = readColorOverride(part.root, ownLayout.colors);
        const SlideLayout& layout = _masters.getLayout(layoutName, part.colors);

        auto slide = std::make_unique<DOM::Shape>();
        slide->setKind(DOM::Shape::Kind::Slide);
        slide->setSlideProps(readSlideProps(part));
        auto background = readBackgroundProps(part, _context);
        if (!background && &layout != &ownLayout)
            background = layout.background; // in the colours of the slide
        if (background) {
            DOM::ShapeStyle style;
            style.setShapeProps(std::move(background));
            slide->setSharedStyle(_run.getDocument().getSharedObjectFactory().getShared(style));
        }
        const auto findSource = [&layout](const DOM::Placeholder& placeholder) {
            return layout.placeholders.findForSlide(placeholder);
        };
        const XMLElement data = findDrawingElement(part.root, Vocabulary::Presentation, "cSld");
        for (auto& frame : readShapeTree(findDrawingElement(data, Vocabulary::Presentation, "spTree"),
                 {_context, part, layout.master->textStyles, findSource, nullptr}))
            slide->appendChild(std::move(frame));
        noteLeftOutOfPart(part, _run);
        FilterUtils::moveSlideToDocument(
            _run.getDocument(), _masters.getNames(), slides, std::move(slide), layoutName);
    }

    std::shared_ptr<const DOM::SlideProps> readSlideProps(const SlidePart& part)
    {
        auto props = std::make_shared<DOM::SlideProps>();
        const XMLElement data = findDrawingElement(part.root, Vocabulary::Presentation, "cSld");
        props->name = data.getAttributeValue("name").value_or(std::string());
        props->isHidden = !readSlideSwitch(part.root, "show", true);
        props->showsParentShapes = readSlideSwitch(part.root, "showMasterSp", true);
        props->notes = _notes.read(part);
        return props;
    }

    Package& _package;
    FilterRun& _run;
    PresentationContext _context;
    std::string _mainPart;
    XMLElement _root;             // of the main part
    Relationships _relationships; // likewise
    SlideParts _parts;
    MasterReader _masters;
    SlideNotes _notes;
};

} // namespace

void importPresentation(Package& package, FilterRun& run)
{
    PresentationImporter(package, run).import();
}

} // namespace QV::Filters
