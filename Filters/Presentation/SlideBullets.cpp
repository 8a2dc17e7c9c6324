#include <Filters/Presentation/SlideBullets.h>

#include <algorithm>
#include <utility>

#include <FilterUtils/FU_NumberedListsFactory.h>
#include <Filters/Package/DrawingColors.h>
#include <Filters/Package/DrawingTheme.h>
#include <Filters/Package/SymbolFonts.h>
#include <Filters/Package/Utf8Cut.h>
#include <Filters/Presentation/PresentationContext.h>
#include <Filters/Presentation/SlideTextValues.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using DOM::NumListMarkerType;
using FilterUtils::XMLElement;

constexpr const char* PlainSlideBullet = "\u2022";
constexpr std::size_t SlideBulletBytesMax = 1024;
constexpr std::size_t OpenListsMax = 16;
constexpr float UsualSlideFontSize = 18;

struct SlideNumberScheme
{
    NumListMarkerType type;
    const char* pattern;
};

// ECMA-376 Part 1, 20.1.10.61.
constexpr SlideTextName<SlideNumberScheme> SlideNumberSchemes[] = {
    {"alphaLcParenBoth",      {NumListMarkerType::LowerLetter, "(%1)"}    },
    {"alphaUcParenBoth",      {NumListMarkerType::UpperLetter, "(%1)"}    },
    {"alphaLcParenR",         {NumListMarkerType::LowerLetter, "%1)"}     },
    {"alphaUcParenR",         {NumListMarkerType::UpperLetter, "%1)"}     },
    {"alphaLcPeriod",         {NumListMarkerType::LowerLetter, "%1."}     },
    {"alphaUcPeriod",         {NumListMarkerType::UpperLetter, "%1."}     },
    {"arabicParenBoth",       {NumListMarkerType::Decimal, "(%1)"}        },
    {"arabicParenR",          {NumListMarkerType::Decimal, "%1)"}         },
    {"arabicPeriod",          {NumListMarkerType::Decimal, "%1."}         },
    {"arabicPlain",           {NumListMarkerType::Decimal, "%1"}          },
    {"romanLcParenBoth",      {NumListMarkerType::LowerRoman, "(%1)"}     },
    {"romanUcParenBoth",      {NumListMarkerType::UpperRoman, "(%1)"}     },
    {"romanLcParenR",         {NumListMarkerType::LowerRoman, "%1)"}      },
    {"romanUcParenR",         {NumListMarkerType::UpperRoman, "%1)"}      },
    {"romanLcPeriod",         {NumListMarkerType::LowerRoman, "%1."}      },
    {"romanUcPeriod",         {NumListMarkerType::UpperRoman, "%1."}      },
    {"circleNumDbPlain",      {NumListMarkerType::CircledDecimal, "%1"}   },
    {"circleNumWdBlackPlain", {NumListMarkerType::CircledDecimal, "%1"}   },
    {"circleNumWdWhitePlain", {NumListMarkerType::CircledDecimal, "%1"}   },
    {"arabicDbPeriod",        {NumListMarkerType::FullWidthDecimal, "%1."}},
    {"arabicDbPlain",         {NumListMarkerType::FullWidthDecimal, "%1"} },
    {"ea1ChsPeriod",          {NumListMarkerType::ChineseCounting, "%1."} },
    {"ea1ChsPlain",           {NumListMarkerType::ChineseCounting, "%1"}  },
    {"ea1ChtPeriod",          {NumListMarkerType::ChineseCounting, "%1."} },
    {"ea1ChtPlain",           {NumListMarkerType::ChineseCounting, "%1"}  },
    {"ea1JpnChsDbPeriod",     {NumListMarkerType::ChineseCounting, "%1."} },
    {"ea1JpnKorPlain",        {NumListMarkerType::ChineseCounting, "%1"}  },
    {"ea1JpnKorPeriod",       {NumListMarkerType::ChineseCounting, "%1."} },
    {"arabic1Minus",          {NumListMarkerType::ArabicLetter, "%1-"}    },
    {"arabic2Minus",          {NumListMarkerType::ArabicLetter, "%1-"}    },
    {"hebrew2Minus",          {NumListMarkerType::HebrewLetter, "%1-"}    },
    {"thaiAlphaPeriod",       {NumListMarkerType::Other, "%1."}           },
    {"thaiAlphaParenR",       {NumListMarkerType::Other, "%1)"}           },
    {"thaiAlphaParenBoth",    {NumListMarkerType::Other, "(%1)"}          },
    {"thaiNumPeriod",         {NumListMarkerType::Other, "%1."}           },
    {"thaiNumParenR",         {NumListMarkerType::Other, "%1)"}           },
    {"thaiNumParenBoth",      {NumListMarkerType::Other, "(%1)"}          },
    {"hindiAlphaPeriod",      {NumListMarkerType::Other, "%1."}           },
    {"hindiNumPeriod",        {NumListMarkerType::Other, "%1."}           },
    {"hindiNumParenR",        {NumListMarkerType::Other, "%1)"}           },
    {"hindiAlpha1Period",     {NumListMarkerType::Other, "%1."}           },
};

DOM::TextMarker makeSlideMarker(NumListMarkerType type, std::string text = {}, long start = 1)
{
    DOM::TextMarker marker;
    marker.type = type;
    marker.text = std::move(text);
    marker.start = start;
    return marker;
}

DOM::TextMarker readSlideNumber(const XMLElement& element, OperationReport& report)
{
    constexpr unsigned long StartMax = 32767;
    const auto scheme = SlideTextAttribute(element, "type", report)
                            .readName(SlideNumberSchemes)
                            .value_or(SlideNumberScheme{NumListMarkerType::Decimal, "%1."});
    const auto start = SlideTextAttribute(element, "startAt", report).readNumber(1, StartMax);
    return makeSlideMarker(scheme.type, scheme.pattern, static_cast<long>(start.value_or(1)));
}

DOM::TextMarker readSlideBulletText(const XMLElement& element, OperationReport& report)
{
    std::string text = element.getAttributeValue("char").value_or("");
    if (cutUtf8(text, SlideBulletBytesMax))
        report.emplace_back("Bullet of a slide is cut at {} bytes", std::to_string(SlideBulletBytesMax));
    // An empty one shows nothing.
    return makeSlideMarker(text.empty() ? NumListMarkerType::None : NumListMarkerType::Bullet, text);
}

bool readSlideMarker(const std::string& name, const XMLElement& child, OperationReport& report,
    boost::optional<DOM::TextMarker>& marker)
{
    if (name == "buNone")
        marker = makeSlideMarker(NumListMarkerType::None);
    else if (name == "buChar")
        marker = readSlideBulletText(child, report);
    else if (name == "buAutoNum")
        marker = readSlideNumber(child, report);
    else if (name == "buBlip")
        marker = makeSlideMarker(NumListMarkerType::PictureBullet, PlainSlideBullet);
    else
        return false;
    return true;
}

bool isCounted(const DOM::TextMarker& marker)
{
    return marker.type != NumListMarkerType::None && marker.type != NumListMarkerType::Bullet &&
           marker.type != NumListMarkerType::PictureBullet;
}

/// How a marker looks beside its text.
DOM::RunProps makeMarkerProps(const DOM::TextBullet& bullet, const DOM::RunProps& textProps)
{
    DOM::RunProps props;
    props.setBold(textProps.getBold());
    props.setItalic(textProps.getItalic());
    props.setColor(textProps.getColor());
    props.setFontName(textProps.getFontName());
    props.setFontSize(textProps.getFontSize());
    if (bullet.color && bullet.color->getRGBA().a != 0)
        props.setColor(bullet.color);
    if (bullet.fontName && !bullet.fontName->empty())
        props.setFontName(bullet.fontName);
    if (bullet.size)
        props.setFontSize(bullet.size);
    else if (bullet.sizeShare)
        props.setFontSize(textProps.getFontSize().value_or(UsualSlideFontSize) * *bullet.sizeShare);
    return props;
}

/// Bullets are mostly codes of symbol fonts. They become the characters that these show, in the text's font;
/// one that is not known becomes a plain one.
void showSlideBullet(const DOM::RunProps& textProps, DOM::TextMarker& marker, DOM::RunProps& props)
{
    const std::string font = props.getFontName().value_or("");
    const auto mapped = mapSymbols(font, marker.text);
    const bool isOfUnknownSigns = font == "Wingdings 3" || font == "Webdings";
    if (mapped && *mapped == marker.text && !isOfUnknownSigns)
        return;
    marker.text = mapped && !isOfUnknownSigns ? *mapped : PlainSlideBullet;
    props.setFontName(textProps.getFontName());
}

/// The pattern of a number of the outermost level, for one of a deeper level.
std::string makeLevelPattern(std::string pattern, std::size_t level)
{
    const std::size_t place = pattern.find("%1");
    if (place != std::string::npos)
        pattern.replace(place + 1, 1, std::to_string(level + 1));
    return pattern;
}

} // namespace

void readTextBullet(const std::string& name, const XMLElement& child, const SlidePart& part,
    OperationReport& report, DOM::TextBullet& bullet)
{
    constexpr float ShareMin = 0.25F; // ECMA-376 Part 1, 20.1.10.63 and 20.1.10.72
    constexpr float ShareMax = 4;
    constexpr unsigned long SizeMin = 100;
    constexpr unsigned long SizeMax = 400'000;
    const SlideTextAttribute value(child, "val", report);
    if (readSlideMarker(name, child, report, bullet.marker))
        return;
    if (name == "buFontTx")
        bullet.fontName = "";
    else if (name == "buFont")
        bullet.fontName = part.theme->findFont(readSlideFontName(child, report)).value_or("");
    else if (name == "buClrTx")
        bullet.color = DOM::Color(DOM::Color::RGBA(0, 0, 0, 0));
    else if (name == "buClr")
        bullet.color = readDrawingColor(child, part.colors, report);
    else if (name == "buSzTx")
        bullet.sizeShare = 1.0F;
    else if (name == "buSzPct")
        bullet.sizeShare = value.readShare(ShareMin, ShareMax);
    else if (name == "buSzPts")
        bullet.size = value.readPoints(SizeMin, SizeMax);
}

std::unique_ptr<DOM::NumberingRef> SlideLists::next(
    unsigned long level, const DOM::TextBullet& bullet, const DOM::RunProps& textProps)
{
    const auto place = static_cast<std::size_t>(level);
    Look look = {bullet.marker.value_or(DOM::TextMarker()), {}};
    for (std::size_t deeper = place + 1; deeper < LevelsCount; ++deeper)
        _counts[deeper].reset();
    if (!isCounted(look.marker))
        _counts[place].reset();
    if (look.marker.type == NumListMarkerType::None) {
        if (level == 0)
            return nullptr;
        auto none = FilterUtils::makeRemovedNumRef();
        none->setLevel(level);
        return none;
    }

    look.props = makeMarkerProps(bullet, textProps);
    if (look.marker.type == NumListMarkerType::Bullet)
        showSlideBullet(textProps, look.marker, look.props);
    const DOM::NumberedList& list = getList(place, look);
    auto reference = std::make_unique<DOM::NumberingRef>();
    reference->setNumListUUID(list.getUUID());
    reference->setListTagUUID(getTag(place, look.marker, list));
    reference->setLevel(level);
    return reference;
}

UUID SlideLists::getTag(std::size_t level, const DOM::TextMarker& marker, const DOM::NumberedList& list)
{
    if (!isCounted(marker))
        return list.getUUID();
    boost::optional<Count>& count = _counts[level];
    if (!count || count->marker != marker)
        count = Count{marker, UUID::generate()};
    return count->tag;
}

const DOM::NumberedList& SlideLists::getList(std::size_t level, const Look& look)
{
    const auto found = std::find_if(_lists.rbegin(), _lists.rend(),
        [&](const OpenList& open) { return !open.looks[level] || *open.looks[level] == look; });
    if (found == _lists.rend()) {
        if (_lists.size() >= OpenListsMax)
            _lists.erase(_lists.begin());
        _lists.push_back({_factory.makeNumberedList(), {}});
    } else {
        std::rotate(found.base() - 1, found.base(), _lists.end());
    }
    OpenList& open = _lists.back();
    if (open.looks[level])
        return *open.list;

    open.looks[level] = look;
    auto marker = std::make_shared<DOM::NumListMarker>();
    marker->setType(look.marker.type);
    marker->setText(isCounted(look.marker) ? makeLevelPattern(look.marker.text, level) : look.marker.text);
    auto none = std::make_shared<DOM::NumListMarker>();
    none->setType(NumListMarkerType::None);
    while (open.list->getLevels().size() <= level) {
        open.list->appendLevel(std::make_unique<DOM::NumberingLevel>());
        open.list->getLevels().back()->setListMarker(none);
    }
    DOM::NumberingLevel& definition = *open.list->getLevels()[level];
    definition.setListMarker(std::move(marker));
    definition.setStart(look.marker.start);
    definition.setRunProps(std::make_shared<DOM::RunProps>(look.props));
    return *open.list;
}

} // namespace QV::Filters
