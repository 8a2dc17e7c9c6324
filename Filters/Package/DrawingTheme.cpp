#include <Filters/Package/DrawingTheme.h>

#include <utility>

#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/Utf8Cut.h>
#include <Filters/Package/XmlParts.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;
using FormatList = std::vector<DrawingTheme::Format>;

constexpr unsigned long FirstBackground = 1001; // ECMA-376 Part 1, 20.1.4.2.10

struct ThemeFontName
{
    const char* name;
    const char* fonts;
    const char* script;
};
constexpr ThemeFontName ThemeFontNames[] = {
    {"+mj-lt", "majorFont", "latin"},
    {"+mj-ea", "majorFont", "ea"   },
    {"+mj-cs", "majorFont", "cs"   },
    {"+mn-lt", "minorFont", "latin"},
    {"+mn-ea", "minorFont", "ea"   },
    {"+mn-cs", "minorFont", "cs"   },
};

XMLElement findThemeElement(const XMLElement& parent, const char* name)
{
    return findDrawingElement(parent, Vocabulary::Drawing, name);
}

/// The children of a list; one that is too long keeps its place as the invalid view.
FormatList readFormatList(const XMLElement& list, const std::string& part, OperationReport& report)
{
    FormatList formats;
    forEachDrawingElement(list, Vocabulary::Drawing, [&](const std::string& name, const XMLElement& element) {
        const bool isShort =
            countDrawingElements(element, DrawingTheme::FormatElementsMax) <= DrawingTheme::FormatElementsMax;
        if (!isShort)
            report.emplace_back("Format of theme {} has too many elements", part);
        formats.push_back({name, isShort ? element : XMLElement()});
    });
    return formats;
}

DrawingTheme::Format findFormat(const FormatList& formats, unsigned long index)
{
    return index >= 1 && index <= formats.size() ? formats[index - 1] : DrawingTheme::Format();
}

} // namespace

DrawingTheme::DrawingTheme() = default;

DrawingTheme::DrawingTheme(Package& package, const std::string& part, OperationReport& report)
{
    if (part.empty())
        return;
    const XMLElement root = readXml(package, part, report);
    if (!root.isValid())
        return;
    _name = root.getAttributeValue("name").value_or(std::string());
    _colors.readTheme(root, report);
    _relationships = Relationships::read(package, part, report);

    const XMLElement elements = findThemeElement(root, "themeElements");
    const XMLElement fonts = findThemeElement(elements, "fontScheme");
    for (const ThemeFontName& font : ThemeFontNames) {
        const XMLElement element = findThemeElement(findThemeElement(fonts, font.fonts), font.script);
        auto typeface = element.getAttributeValue("typeface");
        if (typeface && cutUtf8(*typeface, FontNameBytesMax))
            report.emplace_back("Name of a font is cut at {} bytes", std::to_string(FontNameBytesMax));
        if (typeface && !typeface->empty())
            _fonts[font.name] = std::move(*typeface);
    }
    const XMLElement formats = findThemeElement(elements, "fmtScheme");
    const auto readList = [&](const char* name) {
        return readFormatList(findThemeElement(formats, name), part, report);
    };
    _fills = readList("fillStyleLst");
    _lines = readList("lnStyleLst");
    _effects = readList("effectStyleLst");
    _backgroundFills = readList("bgFillStyleLst");
}

boost::optional<std::string> DrawingTheme::findFont(const std::string& name) const
{
    if (name.empty() || name.front() != '+')
        return boost::make_optional(!name.empty(), name);
    const auto found = _fonts.find(name);
    return found == _fonts.end() ? boost::none : boost::make_optional(found->second);
}

DrawingTheme::Format DrawingTheme::findFill(unsigned long index) const
{
    return index < FirstBackground ? findFormat(_fills, index)
                                   : findFormat(_backgroundFills, index - (FirstBackground - 1));
}

XMLElement DrawingTheme::findLine(unsigned long index) const
{
    return findFormat(_lines, index).element;
}

XMLElement DrawingTheme::findEffects(unsigned long index) const
{
    return findFormat(_effects, index).element;
}

} // namespace QV::Filters
