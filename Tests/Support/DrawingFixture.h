#pragma once

// Drawings in tests: elements, a theme with a few formats, and results as short text.

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <boost/optional.hpp>
#include <boost/variant.hpp>
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <DOM/Public/Color.h>
#include <DOM/Public/ShapeFill.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/DrawingColors.h>
#include <Filters/Package/DrawingFormats.h>
#include <Filters/Package/DrawingTheme.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/PartPictures.h>
#include <Filters/Package/Relationships.h>
#include <Utils/Public/OperationReport.h>

#include <Tests/Support/OoxmlBuilder.h>
#include <Tests/Support/XercesEnvironment.h>

namespace QV::Tests {

/// The prefixes of drawings.
inline std::string makeDrawingDeclarations(bool isStrict = false)
{
    const std::string base = isStrict ? "http://purl.oclc.org/ooxml/" : "http://schemas.openxmlformats.org/";
    const std::string year = isStrict ? "" : "2006/";
    return " xmlns:a='" + base + "drawingml/" + year + "main' xmlns:p='" + base + "presentationml/" + year +
           "main' xmlns:r='" + base + "officeDocument/" + year + "relationships'";
}

/// An element around some content.
inline FilterUtils::XMLElement parseDrawing(
    const std::string& content, bool isStrict = false, const std::string& attributes = {})
{
    std::istringstream stream(
        "<root" + makeDrawingDeclarations(isStrict) + ' ' + attributes + ">" + content + "</root>");
    return FilterUtils::XMLElement::getRootElement(stream, boost::none);
}

/// "RRGGBB", and the opacity of what is not opaque: "RRGGBB/80".
inline std::string describe(const DOM::Color& color)
{
    const DOM::Color::RGBA& rgba = color.getRGBA();
    const std::string parts = fmt::format("{:02X}{:02X}{:02X}", rgba.r, rgba.g, rgba.b);
    return rgba.a == 255 ? parts : parts + fmt::format("/{:02X}", rgba.a);
}

inline std::string describe(const boost::optional<DOM::Color>& color)
{
    return color ? describe(*color) : "nothing";
}

inline std::string describe(const boost::optional<DOM::Color::RGBA>& color)
{
    return color ? describe(DOM::Color(*color)) : "nothing";
}

inline std::string describe(const DOM::RelativeRect& rect)
{
    return fmt::format("{} {} {} {}", rect.left, rect.top, rect.right, rect.bottom);
}

struct FillDescriber : boost::static_visitor<std::string>
{
    std::string operator()(const DOM::NoFill&) const { return "none"; }
    std::string operator()(const DOM::SolidFill& fill) const { return describe(fill.color); }
    std::string operator()(const DOM::GradientFill& fill) const
    {
        static const char* const kinds[] = {"linear", "circle", "rectangle", "shape"};
        std::string text = kinds[static_cast<int>(fill.kind)];
        text += fill.kind == DOM::GradientFill::Kind::Linear ? fmt::format(" {}", fill.angle)
                                                             : " (" + describe(fill.centre) + ")";
        text += fill.isScaled ? " scaled" : "";
        text += fill.turnsWithShape ? "" : " upright";
        for (const DOM::GradientFill::Stop& stop : fill.stops)
            text += fmt::format(" {}:{}", stop.position, describe(stop.color));
        return text;
    }
    std::string operator()(const DOM::PictureFill& fill) const
    {
        std::string text = "picture " + fill.mediaId + " " + fill.mimeType + " (" + describe(fill.crop) + ")";
        if (fill.opacity < 1)
            text += fmt::format(" opacity {}", fill.opacity);
        for (const DOM::Color& color : fill.duotone)
            text += " duotone " + describe(color);
        if (!fill.isTiled)
            return text + " stretched (" + describe(fill.stretch) + ")";
        return text + fmt::format(" tiled {} {} {} {}", fill.tileScale.x, fill.tileScale.y, fill.tileOffset.x,
                          fill.tileOffset.y);
    }
    std::string operator()(const DOM::PatternFill& fill) const
    {
        return fill.preset + " " + describe(fill.foreground) + " " + describe(fill.background);
    }
};

inline std::string describe(const boost::optional<DOM::ShapeFill>& fill)
{
    return fill ? boost::apply_visitor(FillDescriber(), *fill) : "nothing";
}

inline std::vector<std::string> listMessages(const OperationReport& report)
{
    std::vector<std::string> texts;
    for (const OperationReport::Message& message : report.getMessages())
        texts.push_back(message.toString());
    return texts;
}

/// A part of drawings whose picture is "p", and a theme whose picture is "t"; media get the ids id2, id4, ...
class DrawingFixture : public testing::Test
{
protected:
    static constexpr const char* ThemeFormats =
        "<a:fillStyleLst><a:solidFill><a:schemeClr val='phClr'/></a:solidFill><a:gradFill><a:gsLst>"
        "<a:gs pos='0'><a:schemeClr val='phClr'><a:lumMod val='50000'/></a:schemeClr></a:gs>"
        "<a:gs pos='100000'><a:schemeClr val='bg1'/></a:gs></a:gsLst><a:lin ang='5400000'/></a:gradFill>"
        "<a:blipFill><a:blip r:embed='t'/></a:blipFill></a:fillStyleLst>"
        "<a:lnStyleLst><a:ln w='25400'><a:solidFill><a:schemeClr val='phClr'/></a:solidFill>"
        "<a:prstDash val='dash'/></a:ln></a:lnStyleLst>"
        "<a:effectStyleLst><a:effectStyle><a:effectLst/></a:effectStyle><a:effectStyle><a:effectLst>"
        "<a:outerShdw blurRad='12700' dist='25400' dir='2700000'><a:schemeClr val='phClr'/></a:outerShdw>"
        "</a:effectLst></a:effectStyle></a:effectStyleLst>"
        "<a:bgFillStyleLst><a:noFill/><a:solidFill><a:schemeClr val='phClr'><a:shade val='50000'/>"
        "</a:schemeClr></a:solidFill></a:bgFillStyleLst>";

    static constexpr const char* ThemeParts =
        "<a:clrScheme><a:lt1><a:srgbClr val='FFFFFF'/></a:lt1><a:accent1><a:srgbClr val='4472C4'/>"
        "</a:accent1></a:clrScheme><a:fontScheme><a:majorFont><a:latin typeface='Major'/><a:ea typeface=''/>"
        "</a:majorFont><a:minorFont><a:latin typeface='Minor'/><a:cs typeface='Complex'/></a:minorFont>"
        "</a:fontScheme>";

    static std::string makeTheme(const std::string& formats, bool isStrict = false)
    {
        return "<a:theme name='Name'" + makeDrawingDeclarations(isStrict) + "><a:themeElements>" +
               ThemeParts + "<a:fmtScheme>" + formats + "</a:fmtScheme></a:themeElements></a:theme>";
    }

    static Filters::ImportOptions makeOptions()
    {
        Filters::ImportOptions options;
        options.areIdsSequential = true;
        return options;
    }

    static std::vector<ZipItem> makeItems(const std::string& themeXml)
    {
        const std::string png = "\x89PNG\r\n\x1A\n";
        const std::string image = TransitionalTypes + "image";
        std::vector<ZipItem> items = {
            {"d.xml",     ""      },
            {"theme.xml", themeXml},
            {"p.png",     png     },
            {"t.png",     png     },
        };
        items.push_back(makeRelationships("_rels/d.xml.rels", makeRelationship("p", image, "p.png")));
        items.push_back(makeRelationships("_rels/theme.xml.rels", makeRelationship("t", image, "t.png")));
        return items;
    }

    explicit DrawingFixture(const std::string& themeXml = makeTheme(ThemeFormats))
        : run(makeOptions())
        , package(Filters::Package::openBytes(makeZip(makeItems(themeXml))))
        , relationships(Filters::Relationships::read(package, "d.xml", run.getReport()))
        , theme(package, "theme.xml", run.getReport())
        , colors(theme.getColors())
        , pictures(package, run)
        , scope{theme, colors, relationships, pictures, run, nullptr}
    {
    }

    Filters::FilterRun run;
    Filters::Package package;
    Filters::Relationships relationships;
    Filters::DrawingTheme theme;
    Filters::ColorScheme colors;
    Filters::PartPictures pictures;
    Filters::DrawingScope scope;
};

} // namespace QV::Tests
