#include <Filters/Text/ListLevels.h>

#include <memory>
#include <utility>

#include <boost/optional.hpp>

#include <DOM/Public/ParaProps.h>
#include <DOM/Public/Properties.h>
#include <DOM/Public/RunProps.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Package/SymbolFonts.h>
#include <Filters/Package/Utf8Cut.h>
#include <Filters/Text/FormatReader.h>
#include <Filters/Text/FormatValues.h>

namespace QV::Filters {
namespace {

using DOM::NumListMarkerType;
using FilterUtils::XMLElement;

constexpr std::size_t MaxLabelBytes = 4096;
constexpr const char* PlainBullet = "\xE2\x80\xA2";

// ECMA-376 Part 1, 17.18.59. The digits of some systems stand for those of others that are written alike.
constexpr FormatName<NumListMarkerType> ListNumberFormats[] = {
    {"decimal",                      NumListMarkerType::Decimal           },
    {"decimalHalfWidth",             NumListMarkerType::Decimal           },
    {"upperRoman",                   NumListMarkerType::UpperRoman        },
    {"lowerRoman",                   NumListMarkerType::LowerRoman        },
    {"upperLetter",                  NumListMarkerType::UpperLetter       },
    {"lowerLetter",                  NumListMarkerType::LowerLetter       },
    {"bullet",                       NumListMarkerType::Bullet            },
    {"none",                         NumListMarkerType::None              },
    {"decimalZero",                  NumListMarkerType::DecimalZero       },
    {"ordinal",                      NumListMarkerType::Ordinal           },
    {"cardinalText",                 NumListMarkerType::CardinalText      },
    {"ordinalText",                  NumListMarkerType::OrdinalText       },
    {"hex",                          NumListMarkerType::Hexadecimal       },
    {"chicago",                      NumListMarkerType::Chicago           },
    {"numberInDash",                 NumListMarkerType::DecimalDash       },
    {"decimalEnclosedCircle",        NumListMarkerType::CircledDecimal    },
    {"decimalEnclosedCircleChinese", NumListMarkerType::CircledDecimal    },
    {"decimalFullWidth",             NumListMarkerType::FullWidthDecimal  },
    {"decimalFullWidth2",            NumListMarkerType::FullWidthDecimal  },
    {"ideographDigital",             NumListMarkerType::IdeographDigits   },
    {"taiwaneseDigital",             NumListMarkerType::IdeographDigits   },
    {"koreanDigital2",               NumListMarkerType::IdeographDigits   },
    {"chineseCounting",              NumListMarkerType::ChineseCounting   },
    {"chineseCountingThousand",      NumListMarkerType::ChineseCounting   },
    {"taiwaneseCounting",            NumListMarkerType::ChineseCounting   },
    {"taiwaneseCountingThousand",    NumListMarkerType::ChineseCounting   },
    {"japaneseCounting",             NumListMarkerType::ChineseCounting   },
    {"russianUpper",                 NumListMarkerType::RussianUpperLetter},
    {"russianLower",                 NumListMarkerType::RussianLowerLetter},
    {"hebrew1",                      NumListMarkerType::HebrewLetter      },
    {"hebrew2",                      NumListMarkerType::HebrewLetter      },
    {"arabicAlpha",                  NumListMarkerType::ArabicLetter      },
    {"aiueo",                        NumListMarkerType::Other             },
    {"aiueoFullWidth",               NumListMarkerType::Other             },
    {"iroha",                        NumListMarkerType::Other             },
    {"irohaFullWidth",               NumListMarkerType::Other             },
    {"japaneseLegal",                NumListMarkerType::Other             },
    {"japaneseDigitalTenThousand",   NumListMarkerType::Other             },
    {"ganada",                       NumListMarkerType::Other             },
    {"chosung",                      NumListMarkerType::Other             },
    {"decimalEnclosedFullstop",      NumListMarkerType::Other             },
    {"decimalEnclosedParen",         NumListMarkerType::Other             },
    {"ideographEnclosedCircle",      NumListMarkerType::Other             },
    {"ideographTraditional",         NumListMarkerType::Other             },
    {"ideographZodiac",              NumListMarkerType::Other             },
    {"ideographZodiacTraditional",   NumListMarkerType::Other             },
    {"ideographLegalTraditional",    NumListMarkerType::Other             },
    {"chineseLegalSimplified",       NumListMarkerType::Other             },
    {"koreanDigital",                NumListMarkerType::Other             },
    {"koreanCounting",               NumListMarkerType::Other             },
    {"koreanLegal",                  NumListMarkerType::Other             },
    {"vietnameseCounting",           NumListMarkerType::Other             },
    {"arabicAbjad",                  NumListMarkerType::Other             },
    {"hindiVowels",                  NumListMarkerType::Other             },
    {"hindiConsonants",              NumListMarkerType::Other             },
    {"hindiNumbers",                 NumListMarkerType::Other             },
    {"hindiCounting",                NumListMarkerType::Other             },
    {"thaiLetters",                  NumListMarkerType::Other             },
    {"thaiNumbers",                  NumListMarkerType::Other             },
    {"thaiCounting",                 NumListMarkerType::Other             },
    {"bahtText",                     NumListMarkerType::Other             },
    {"dollarText",                   NumListMarkerType::Other             },
    {"custom",                       NumListMarkerType::Other             },
};

constexpr FormatName<DOM::NumberingLevel::Suffix> ListSuffixes[] = {
    {"tab",     DOM::NumberingLevel::Suffix::Tab    },
    {"space",   DOM::NumberingLevel::Suffix::Space  },
    {"nothing", DOM::NumberingLevel::Suffix::Nothing},
};

/// A number format of the file's own: an example with leading zeros is all that is told apart.
boost::optional<NumListMarkerType> readCustomFormat(const FormatValues& values, const XMLElement& format)
{
    const auto example = values.attribute(format, "format").text;
    if (values.attribute(format, "val").text != std::string("custom") || !example || example->empty())
        return boost::none;
    return example->front() == '0' ? NumListMarkerType::DecimalZero : NumListMarkerType::Decimal;
}

/// Newer formats stand in alternate content, with an older one for those that do not know them.
NumListMarkerType readMarkerType(const FormatValues& values, const XMLElement& level)
{
    XMLElement format = level.getElement(values.getNames()(Vocabulary::WordProcessing, "numFmt"));
    if (!format.isValid()) {
        const auto named = [&](const char* name) {
            return values.getNames()(Vocabulary::MarkupCompatibility, name);
        };
        const XMLElement alternatives = level.getElement(named("AlternateContent"));
        const XMLElement choice = values.find(alternatives.getElement(named("Choice")), "numFmt");
        if (readCustomFormat(values, choice) == NumListMarkerType::DecimalZero)
            return NumListMarkerType::DecimalZero;
        format = values.find(alternatives.getElement(named("Fallback")), "numFmt");
        if (!format.isValid())
            format = choice;
    }
    if (const auto custom = readCustomFormat(values, format))
        return *custom;
    return values.readName(ListNumberFormats, {values.attribute(format, "val").text, "numFmt"})
        .value_or(NumListMarkerType::Decimal);
}

std::string readLabelText(const FormatValues& values, const XMLElement& level)
{
    const XMLElement label = values.find(level, "lvlText");
    if (values.readFlag(values.attribute(label, "null")) == true)
        return {};
    std::string text = values.attribute(label, "val").text.value_or("");
    if (cutUtf8(text, MaxLabelBytes))
        values.report("Label of a list is cut at {} bytes", std::to_string(MaxLabelBytes));
    return text;
}

/// Bullets are written in codes of symbol fonts. They become the characters that these show, in any font; a
/// bullet of a font that is not known becomes a plain one.
std::string mapBullet(const std::string& text, std::shared_ptr<const DOM::RunProps>& props)
{
    const std::string font = props ? props->getFontName().value_or("") : "";
    const auto mapped = mapSymbols(font, text);
    if (mapped && *mapped == text)
        return text;
    if (!font.empty()) {
        auto plain = std::make_shared<DOM::RunProps>(*props);
        plain->setFontName(boost::none);
        props = DOM::isEmpty(*plain) ? nullptr : std::move(plain);
    }
    return mapped ? *mapped : PlainBullet;
}

} // namespace

ListLevel readListLevel(const XMLElement& level, const FormatReader& formats)
{
    const FormatValues& values = formats.getValues();
    ListLevel result;
    auto marker = std::make_shared<DOM::NumListMarker>();
    auto runProps = formats.readRun(values.find(level, "rPr")).props;
    std::string text = readLabelText(values, level);
    NumListMarkerType type = readMarkerType(values, level);
    const bool hasPicture = values.find(level, "lvlPicBulletId").isValid();
    if (type == NumListMarkerType::Bullet || hasPicture)
        text = mapBullet(text, runProps);
    if (hasPicture) {
        type = NumListMarkerType::PictureBullet;
        if (text.empty())
            text = PlainBullet;
    }
    marker->setType(type);
    marker->setText(std::move(text));
    result.level.setListMarker(std::move(marker));

    constexpr long MaxStart = 0x7FFFFFFF;
    // Lists that do not say begin with 0: ECMA-376 Part 1, 17.9.25.
    result.level.setStart(values.readWhole(values.value(level, "start"), 0, MaxStart).value_or(0));
    if (const auto restart =
            values.readWhole(values.value(level, "lvlRestart"), 0, static_cast<long>(ListLevelsCount)))
        result.level.setRestartLevel(static_cast<unsigned long>(*restart));
    result.level.setLegal(values.readSwitch(level, "isLgl") == true);
    if (const auto suffix = values.readName(ListSuffixes, values.value(level, "suff")))
        result.level.setSuffix(*suffix);
    const auto alignment = values.readAlignment(values.value(level, "lvlJc"), false);
    if (alignment == DOM::HorizontalAlignment::Center || alignment == DOM::HorizontalAlignment::Right)
        result.level.setAlignment(*alignment);
    result.level.setParaProps(formats.readPara(values.find(level, "pPr")).props);
    result.level.setRunProps(std::move(runProps));
    result.styleId = values.value(level, "pStyle").text.value_or("");
    return result;
}

ListLevel makeUsualListLevel(std::size_t number)
{
    auto marker = std::make_shared<DOM::NumListMarker>();
    marker->setType(NumListMarkerType::Decimal);
    marker->setText('%' + std::to_string(number + 1) + '.');
    ListLevel result;
    result.level.setListMarker(std::move(marker));
    return result;
}

} // namespace QV::Filters
