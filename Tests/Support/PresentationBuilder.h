#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional.hpp>

#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
#include <Filters/Presentation/PresentationImport.h>
#include <Tests/Support/OoxmlBuilder.h>
#include <Tests/Support/XercesEnvironment.h>

namespace QV::Tests {

inline const std::string PresentationType =
    "application/vnd.openxmlformats-officedocument.presentationml.presentation.main+xml";

/// The prefixes that the parts of a PresentationBuilder may use.
inline std::string makePresentationDeclarations(bool isStrict = false)
{
    const std::string root = isStrict ? "http://purl.oclc.org/ooxml/" : "http://schemas.openxmlformats.org/";
    const std::string main = isStrict ? "main" : "2006/main";
    const std::string year = isStrict ? "" : "2006/";
    const std::string microsoft = "http://schemas.microsoft.com/office/";
    const auto declare = [](const std::string& prefix, const std::string& uri) {
        return " xmlns:" + prefix + "=\"" + uri + "\"";
    };
    return declare("p", root + "presentationml/" + main) + declare("a", root + "drawingml/" + main) +
           declare("r", root + "officeDocument/" + year + "relationships") +
           declare("c", root + "drawingml/" + year + "chart") +
           declare("dgm", root + "drawingml/" + year + "diagram") +
           declare("mc", "http://schemas.openxmlformats.org/markup-compatibility/2006") +
           declare("v", "urn:schemas-microsoft-com:vml") +
           declare("dsp", microsoft + "drawing/2008/diagram") +
           declare("p14", microsoft + "powerpoint/2010/main") +
           declare("p15", microsoft + "powerpoint/2012/main") +
           declare("a14", microsoft + "drawing/2010/main") + declare("a16", microsoft + "drawing/2014/main") +
           declare("unknown", "urn:nobody-knows");
}

/// A presentation in the making. What is not asked for is made where it is needed: a slide without a layout
/// before it gets an empty one, and a layout without a master an empty master.
///
///     PresentationBuilder()
///         .theme("<a:themeElements>...")       // of the next masters
///         .master("<p:sp>...</p:sp>", "<p:titleStyle>...")
///         .layout("Title", "<p:sp>...</p:sp>")  // of the last master
///         .slide("<p:sp>...</p:sp>")            // of the last layout
///         .relationship("pic1", "image", "../media/a.png") // of the last master, layout or slide
///         .part("ppt/media/a.png", bytes)
///         .importInto(run);
///
/// Masters are the parts ppt/slideMasters/slideMaster1.xml and so on; likewise slideLayouts/slideLayout1.xml,
/// slides/slide1.xml, notesSlides/notesSlide1.xml, theme/theme1.xml. The presentation's relationships to them
/// have the ids "master1", "slide1", ...; a master's to its layouts are "layout1", ... by the part.
class PresentationBuilder
{
public:
    /// Everything in the strict dialect; to be said first.
    PresentationBuilder& strict()
    {
        _isStrict = true;
        return *this;
    }

    /// @param content of the a:theme element
    PresentationBuilder& theme(const std::string& content, const std::string& name = {})
    {
        const std::string part = "theme/theme" + std::to_string(++_themesCount) + ".xml";
        _theme = "../" + part;
        return this->part("ppt/" + part, makeRoot("a:theme", content, "name=\"" + name + "\""));
    }

    /// @param shapes what stands in the p:spTree element
    /// @param textStyles what stands in the p:txStyles element
    PresentationBuilder& master(const std::string& shapes = {}, const std::string& textStyles = {})
    {
        Part& part = addPart(_masters, "p:sldMaster", shapes);
        part.colorMap = "<p:clrMap bg1=\"lt1\" tx1=\"dk1\" bg2=\"lt2\" tx2=\"dk2\" accent1=\"accent1\" "
                        "accent2=\"accent2\" accent3=\"accent3\" accent4=\"accent4\" accent5=\"accent5\" "
                        "accent6=\"accent6\" hlink=\"hlink\" folHlink=\"folHlink\"/>";
        part.more = "<p:txStyles>" + textStyles + "</p:txStyles>";
        return _theme.empty() ? *this : relationship("theme", "theme", _theme);
    }

    PresentationBuilder& layout(const std::string& name = {}, const std::string& shapes = {})
    {
        if (_masters.empty())
            master();
        const std::string number = std::to_string(_layouts.size() + 1);
        _masters.back()->relationships +=
            makeRelation("layout" + number, "slideLayout", "../slideLayouts/slideLayout" + number + ".xml");
        _masters.back()->layoutIds += "<p:sldLayoutId id=\"" + std::to_string(2147483648 + _layouts.size()) +
                                      "\" r:id=\"layout" + number + "\"/>";
        addPart(_layouts, "p:sldLayout", shapes);
        return named(name).relationship("master", "slideMaster",
            "../slideMasters/slideMaster" + std::to_string(_masters.size()) + ".xml");
    }

    PresentationBuilder& slide(const std::string& shapes = {})
    {
        if (_layouts.empty())
            layout();
        return slideOf("../slideLayouts/slideLayout" + std::to_string(_layouts.size()) + ".xml", shapes);
    }

    /// @param layout the target of the relationship; empty for none
    PresentationBuilder& slideOf(const std::string& layout, const std::string& shapes = {})
    {
        addPart(_slides, "p:sld", shapes);
        return layout.empty() ? *this : relationship("layout", "slideLayout", layout);
    }

    // These are of the last master, layout or slide.

    /// Its p:cSld/@name.
    PresentationBuilder& named(const std::string& name)
    {
        _last->name = name;
        return *this;
    }
    /// Attributes of its root element, such as "show='0'".
    PresentationBuilder& attributes(const std::string& text)
    {
        _last->attributes = text;
        return *this;
    }
    /// @param content of its p:bg element
    PresentationBuilder& background(const std::string& content)
    {
        _last->background = "<p:bg>" + content + "</p:bg>";
        return *this;
    }
    /// What stands behind its p:cSld, such as p:clrMapOvr; the p:clrMap of a master.
    PresentationBuilder& colorMap(const std::string& element)
    {
        _last->colorMap = element;
        return *this;
    }
    /// What stands behind that, such as p:transition.
    PresentationBuilder& more(const std::string& elements)
    {
        _last->more += elements;
        return *this;
    }
    /// @param family the end of the type, such as "image", or a whole type
    PresentationBuilder& relationship(const std::string& id, const std::string& family,
        const std::string& target, const std::string& attributes = {})
    {
        _last->relationships += makeRelation(id, family, target, attributes);
        return *this;
    }
    /// Gives it notes. @param shapes what stands in their p:spTree element
    PresentationBuilder& notes(const std::string& shapes)
    {
        const std::string name = "notesSlides/notesSlide" + std::to_string(++_notesCount) + ".xml";
        part("ppt/" + name, makeRoot("p:notes", makeCommonData({}, {}, shapes)));
        return relationship("notes", "notesSlide", "../" + name);
    }

    /// What stands in the root element of the main part besides the lists of masters and slides, and the
    /// notes' size; "p:sldSz" included.
    PresentationBuilder& presentation(const std::string& elements)
    {
        _presentation += elements;
        return *this;
    }
    PresentationBuilder& presentationRelationship(const std::string& id, const std::string& family,
        const std::string& target, const std::string& attributes = {})
    {
        _presentationRelationships += makeRelation(id, family, target, attributes);
        return *this;
    }
    /// @param elements the content of p:sldIdLst in the place of all slides in their order
    PresentationBuilder& slideList(const std::string& elements)
    {
        _slideList = elements;
        return *this;
    }
    /// As slideList; the empty text for no list.
    PresentationBuilder& masterList(const std::string& elements)
    {
        _masterList = elements;
        return *this;
    }

    /// Any part, in the place of one of that name.
    PresentationBuilder& part(const std::string& name, const std::string& content)
    {
        for (ZipItem& item : _items)
            if (item.name == name) {
                item.content = content;
                return *this;
            }
        _items.push_back({name, content});
        return *this;
    }
    /// A part with the prefixes declared.
    PresentationBuilder& xmlPart(
        const std::string& name, const std::string& rootName, const std::string& content)
    {
        return part(name, makeRoot(rootName, content));
    }

    std::string make() const
    {
        std::vector<ZipItem> all = _items;
        const auto add = [&](const ZipItem& item) {
            for (const ZipItem& known : _items)
                if (known.name == item.name)
                    return;
            all.push_back(item);
        };
        std::string relations = _presentationRelationships;
        const auto addParts = [&](const Parts& parts, const char* folder, const char* stem) {
            for (std::size_t i = 0; i < parts.size(); ++i) {
                const std::string file = stem + std::to_string(i + 1) + ".xml";
                add({std::string("ppt/") + folder + file, makePart(*parts[i])});
                if (!parts[i]->relationships.empty())
                    add(makeRelationships(
                        std::string("ppt/") + folder + "_rels/" + file + ".rels", parts[i]->relationships));
            }
        };
        addParts(_masters, "slideMasters/", "slideMaster");
        addParts(_layouts, "slideLayouts/", "slideLayout");
        addParts(_slides, "slides/", "slide");
        const std::string masters = listParts(
            _masters, "p:sldMasterId", "master", "slideMaster", "slideMasters/slideMaster", relations);
        const std::string slides = listParts(_slides, "p:sldId", "slide", "slide", "slides/slide", relations);
        const auto makeList = [](const char* name, const std::string& content) {
            return content.empty() ? content : std::string("<") + name + ">" + content + "</" + name + ">";
        };
        add(makeContentTypes("<Default Extension=\"png\" ContentType=\"image/png\"/>" +
                             makeOverride("/ppt/presentation.xml", PresentationType)));
        add(makeRelationships("_rels/.rels", makeRelation("d", "officeDocument", "ppt/presentation.xml")));
        add({"ppt/presentation.xml",
            makeRoot("p:presentation", makeList("p:sldMasterIdLst", _masterList.value_or(masters)) +
                                           makeList("p:sldIdLst", _slideList.value_or(slides)) +
                                           _presentation)});
        add(makeRelationships("ppt/_rels/presentation.xml.rels", relations));
        return makeZip(all);
    }

    /// Imports what make makes.
    void importInto(Filters::FilterRun& run) const
    {
        Filters::Package package = Filters::Package::openBytes(make());
        Filters::importPresentation(package, run);
    }

private:
    struct Part
    {
        std::string rootName;
        std::string name;
        std::string attributes;
        std::string background;
        std::string shapes;
        std::string colorMap;
        std::string layoutIds;
        std::string more;
        std::string relationships;
    };
    using Parts = std::vector<std::unique_ptr<Part>>;

    Part& addPart(Parts& parts, const std::string& rootName, const std::string& shapes)
    {
        parts.push_back(std::make_unique<Part>());
        _last = parts.back().get();
        _last->rootName = rootName;
        _last->shapes = shapes;
        return *_last;
    }

    std::string makeRelation(const std::string& id, const std::string& family, const std::string& target,
        const std::string& attributes = {}) const
    {
        const bool isWhole = family.find("://") != std::string::npos;
        const std::string& types = _isStrict ? StrictTypes : TransitionalTypes;
        return makeRelationship(id, isWhole ? family : types + family, target, attributes);
    }

    /// Adds the relationships, and returns the list.
    std::string listParts(const Parts& parts, const std::string& element, const std::string& id,
        const std::string& family, const std::string& target, std::string& relations) const
    {
        std::string list;
        for (std::size_t i = 1; i <= parts.size(); ++i) {
            const std::string number = std::to_string(i);
            relations += makeRelation(id + number, family, target + number + ".xml");
            list += "<" + element + " id=\"" + std::to_string(255 + i) + "\" r:id=\"" + id + number + "\"/>";
        }
        return list;
    }

    std::string makeRoot(
        const std::string& name, const std::string& content, const std::string& attributes = {}) const
    {
        return "<" + name + makePresentationDeclarations(_isStrict) + " " + attributes + ">" + content +
               "</" + name + ">";
    }

    static std::string makeCommonData(
        const std::string& name, const std::string& background, const std::string& shapes)
    {
        return "<p:cSld" + (name.empty() ? "" : " name=\"" + name + "\"") + ">" + background +
               "<p:spTree><p:nvGrpSpPr><p:cNvPr id=\"1\" name=\"\"/><p:cNvGrpSpPr/><p:nvPr/></p:nvGrpSpPr>"
               "<p:grpSpPr/>" +
               shapes + "</p:spTree></p:cSld>";
    }

    std::string makePart(const Part& part) const
    {
        return makeRoot(part.rootName,
            makeCommonData(part.name, part.background, part.shapes) + part.colorMap +
                (part.layoutIds.empty() ? ""
                                        : "<p:sldLayoutIdLst>" + part.layoutIds + "</p:sldLayoutIdLst>") +
                part.more,
            part.attributes);
    }

    bool _isStrict = false;
    std::string _theme; // the target of the next masters' relationships; empty for none
    unsigned _themesCount = 0;
    unsigned _notesCount = 0;
    Parts _masters;
    Parts _layouts;
    Parts _slides;
    Part* _last = nullptr; // into those
    std::string _presentation;
    std::string _presentationRelationships;
    boost::optional<std::string> _slideList;
    boost::optional<std::string> _masterList;
    std::vector<ZipItem> _items;
};

/// The text body of a shape with a paragraph for each text.
inline std::string makeTextBody(const std::vector<std::string>& paragraphs)
{
    std::string body = "<p:txBody><a:bodyPr/>";
    for (const std::string& text : paragraphs)
        body += "<a:p><a:r><a:t>" + text + "</a:t></a:r></a:p>";
    return body + "</p:txBody>";
}

/// A shape.
///
/// @param placeholder attributes of its p:ph, such as "type='title'"; null for no placeholder
/// @param properties what stands in its p:spPr
inline std::string makeSlideShape(const std::string& name, const char* placeholder = nullptr,
    const std::string& properties = {}, const std::string& textBody = {})
{
    const std::string element = placeholder ? "<p:ph " + std::string(placeholder) + "/>" : std::string();
    return "<p:sp><p:nvSpPr><p:cNvPr id=\"2\" name=\"" + name + "\"/><p:cNvSpPr/><p:nvPr>" + element +
           "</p:nvPr></p:nvSpPr><p:spPr>" + properties + "</p:spPr>" + textBody + "</p:sp>";
}

/// The a:xfrm of a place in points.
inline std::string makeSlideTransform(long x, long y, long width, long height)
{
    const auto emu = [](long points) { return std::to_string(points * 12700); };
    return "<a:xfrm><a:off x=\"" + emu(x) + "\" y=\"" + emu(y) + "\"/><a:ext cx=\"" + emu(width) +
           "\" cy=\"" + emu(height) + "\"/></a:xfrm>";
}

} // namespace QV::Tests
