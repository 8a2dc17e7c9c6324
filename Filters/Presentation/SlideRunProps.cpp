#include <Filters/Presentation/SlideRunProps.h>

#include <cstddef>

#include <DOM/Public/Color.h>
#include <Filters/Package/DrawingColors.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/DrawingTheme.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Package/SymbolFonts.h>
#include <Filters/Presentation/PresentationContext.h>
#include <Filters/Presentation/SlideLeftOut.h>
#include <Filters/Presentation/SlideTextValues.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

// ECMA-376 Part 1, 20.1.10.82.
constexpr SlideTextName<DOM::Underline> SlideUnderlines[] = {
    {"none",            DOM::Underline::None      },
    {"words",           DOM::Underline::Words     },
    {"sng",             DOM::Underline::Single    },
    {"dbl",             DOM::Underline::Double    },
    {"heavy",           DOM::Underline::Thick     },
    {"dotted",          DOM::Underline::Dotted    },
    {"dottedHeavy",     DOM::Underline::Dotted    },
    {"dash",            DOM::Underline::Dashed    },
    {"dashHeavy",       DOM::Underline::Dashed    },
    {"dashLong",        DOM::Underline::Dashed    },
    {"dashLongHeavy",   DOM::Underline::Dashed    },
    {"dotDash",         DOM::Underline::DashDot   },
    {"dotDashHeavy",    DOM::Underline::DashDot   },
    {"dotDotDash",      DOM::Underline::DashDotDot},
    {"dotDotDashHeavy", DOM::Underline::DashDotDot},
    {"wavy",            DOM::Underline::Wave      },
    {"wavyHeavy",       DOM::Underline::Wave      },
    {"wavyDbl",         DOM::Underline::Wave      },
};

constexpr SlideTextName<bool> SlideStrikes[] = {
    {"noStrike",  false},
    {"sngStrike", true },
    {"dblStrike", true },
};

constexpr SlideTextName<DOM::LetterCase> SlideLetterCases[] = {
    {"none",  DOM::LetterCase::AsWritten    },
    {"all",   DOM::LetterCase::Capitals     },
    {"small", DOM::LetterCase::SmallCapitals},
};

constexpr unsigned long SlideFontMin = 100; // in hundredths of a point: ECMA-376 Part 1, 20.1.10.72
constexpr unsigned long SlideFontMax = 400'000;
constexpr float BaselineMax = 1000; // lines; far more than is ever seen

boost::optional<DOM::VerticalPosition> readBaseline(const XMLElement& element, OperationReport& report)
{
    const auto share = SlideTextAttribute(element, "baseline", report).readShare(-BaselineMax, BaselineMax);
    if (!share)
        return boost::none;
    if (*share > 0)
        return DOM::VerticalPosition::Superscript;
    return *share < 0 ? DOM::VerticalPosition::Subscript : DOM::VerticalPosition::Baseline;
}

void readSlideRunAttributes(const XMLElement& element, OperationReport& report, DOM::RunProps& props)
{
    const auto attribute = [&](const char* name) { return SlideTextAttribute(element, name, report); };
    props.setFontSize(attribute("sz").readPoints(SlideFontMin, SlideFontMax));
    props.setBold(attribute("b").readFlag());
    props.setItalic(attribute("i").readFlag());
    props.setUnderline(attribute("u").readName(SlideUnderlines));
    props.setStrikethrough(attribute("strike").readName(SlideStrikes));
    props.setLetterCase(attribute("cap").readName(SlideLetterCases));
    props.setVerticalPosition(readBaseline(element, report));
}

/// The one colour that stands for a fill; nothing for elements that are none.
boost::optional<DOM::Color> readSlideTextFill(
    const std::string& name, const XMLElement& fill, const SlidePart& part, OperationReport& report)
{
    const auto find = [](const XMLElement& parent, const char* child) {
        return findDrawingElement(parent, Vocabulary::Drawing, child);
    };
    if (name == "solidFill")
        return readDrawingColor(fill, part.colors, report);
    if (name == "gradFill")
        return readDrawingColor(find(find(fill, "gsLst"), "gs"), part.colors, report);
    if (name == "pattFill")
        return readDrawingColor(find(fill, "fgClr"), part.colors, report);
    if (name != "noFill")
        return boost::none;
    return DOM::Color(DOM::Color::RGBA(0, 0, 0, 0));
}

bool hasColorOfText(const XMLElement& link)
{
    static const std::string Uri = "http://schemas.microsoft.com/office/drawing/2018/hyperlinkcolor";
    bool isOfText = false;
    const XMLElement extensions = findDrawingElement(link, Vocabulary::Drawing, "extLst");
    forEachDrawingElement(
        extensions, Vocabulary::Drawing, [&](const std::string&, const XMLElement& extension) {
            const auto value = extension.getElement(Uri + ":hlinkClr").getAttributeValue("val");
            isOfText = isOfText || value == std::string("tx");
        });
    return isOfText;
}

void lookLikeSlideLink(const XMLElement& link, const SlidePart& part, DOM::RunProps& props)
{
    props.setUnderline(DOM::Underline::Single);
    if (hasColorOfText(link))
        return;
    if (const auto color = part.colors.findColor("hlink"))
        props.setColor(DOM::Color(*color));
}

/// Whether text besides blanks is one character beyond ASCII, or all between U+F000 and U+F0FF.
bool isOneSlideSymbol(const std::string& text)
{
    std::size_t characters = 0;
    std::size_t privateOnes = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte == ' ' || (byte & 0xC0U) == 0x80) // a blank, or inside of a character
            continue;
        if (byte < 0x80)
            return false;
        ++characters;
        const auto next = static_cast<unsigned char>(i + 1 < text.size() ? text[i + 1] : 0);
        privateOnes += byte == 0xEF && next >= 0x80 && next <= 0x83 ? 1 : 0;
    }
    return characters == 1 || (characters > 0 && characters == privateOnes);
}

} // namespace

DOM::RunProps readSlideRunProps(
    const XMLElement& properties, const SlidePart& part, PresentationContext& context)
{
    DOM::RunProps props;
    if (!properties.isValid())
        return props;
    OperationReport report;
    readSlideRunAttributes(properties, report, props);
    boost::optional<DOM::Color> lineColor;
    XMLElement link;
    forEachDrawingElement(
        properties, Vocabulary::Drawing, [&](const std::string& name, const XMLElement& child) {
            if (name == "latin") {
                const std::string font = readSlideFontName(child, report);
                if (!font.empty())
                    props.setFontName(part.theme->findFont(font));
            } else if (name == "highlight") {
                props.setBackgroundColor(readDrawingColor(child, part.colors, report));
            } else if (name == "hlinkClick") {
                link = child;
            } else if (name == "ln") {
                const XMLElement fill = findDrawingElement(child, Vocabulary::Drawing, "solidFill");
                lineColor = readDrawingColor(fill, part.colors, report);
                if (lineColor)
                    context.run.leaveOut(SlideLeftOut::TextEffects);
            } else if (name == "effectLst" || name == "effectDag") {
                forEachDrawingElement(child, Vocabulary::Drawing, [&](const std::string&, const XMLElement&) {
                    context.run.leaveOut(SlideLeftOut::TextEffects);
                });
            } else if (const auto color = readSlideTextFill(name, child, part, report)) {
                props.setColor(color);
            }
        });
    if (lineColor && props.getColor() && props.getColor()->getRGBA().a == 0)
        props.setColor(lineColor);
    if (link.isValid())
        lookLikeSlideLink(link, part, props);
    takeSlideMessages(report, context);
    return props;
}

std::string showSlideSymbols(const XMLElement& properties, const std::string& text)
{
    const XMLElement symbols = findDrawingElement(properties, Vocabulary::Drawing, "sym");
    if (!symbols.isValid() || !isOneSlideSymbol(text))
        return text;
    const std::string font = symbols.getAttributeValue("typeface").value_or("");
    return mapSymbols(font, text).value_or(text);
}

} // namespace QV::Filters
