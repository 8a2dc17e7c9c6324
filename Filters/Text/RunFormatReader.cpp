// How FormatReader reads runs.

#include <Filters/Text/FormatReader.h>

#include <cstddef>
#include <string>

#include <DOM/Public/Properties.h>
#include <Filters/Package/Utf8Cut.h>
#include <Filters/Text/TextTheme.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

// ECMA-376 Part 1, 17.18.99.
constexpr FormatName<DOM::Underline> RunUnderlineNames[] = {
    {"none",            DOM::Underline::None      },
    {"single",          DOM::Underline::Single    },
    {"words",           DOM::Underline::Words     },
    {"double",          DOM::Underline::Double    },
    {"thick",           DOM::Underline::Thick     },
    {"dotted",          DOM::Underline::Dotted    },
    {"dottedHeavy",     DOM::Underline::Dotted    },
    {"dash",            DOM::Underline::Dashed    },
    {"dashedHeavy",     DOM::Underline::Dashed    },
    {"dashLong",        DOM::Underline::Dashed    },
    {"dashLongHeavy",   DOM::Underline::Dashed    },
    {"dotDash",         DOM::Underline::DashDot   },
    {"dashDotHeavy",    DOM::Underline::DashDot   },
    {"dotDotDash",      DOM::Underline::DashDotDot},
    {"dashDotDotHeavy", DOM::Underline::DashDotDot},
    {"wave",            DOM::Underline::Wave      },
    {"wavyHeavy",       DOM::Underline::Wave      },
    {"wavyDouble",      DOM::Underline::Wave      },
};

constexpr FormatName<DOM::VerticalPosition> RunVerticalPositionNames[] = {
    {"baseline",    DOM::VerticalPosition::Baseline   },
    {"superscript", DOM::VerticalPosition::Superscript},
    {"subscript",   DOM::VerticalPosition::Subscript  },
};

// In the order in which they count: what is put in and taken away again is taken away.
constexpr FormatName<DOM::TrackedChange::Kind> MarkChangeNames[] = {
    {"del",      DOM::TrackedChange::Kind::Deleted  },
    {"moveFrom", DOM::TrackedChange::Kind::MovedFrom},
    {"ins",      DOM::TrackedChange::Kind::Inserted },
    {"moveTo",   DOM::TrackedChange::Kind::MovedTo  },
};

constexpr std::size_t RunFontNameBytesMax = 1024;

/// Reads the properties of one run.
class RunPropsReader
{
public:
    RunPropsReader(const FormatValues& values, const XMLElement& runProps)
        : _values(values)
        , _element(runProps)
        , _isComplex(isOn("rtl") || isOn("cs"))
    {
    }

    std::shared_ptr<const DOM::RunProps> read() const
    {
        auto props = std::make_shared<DOM::RunProps>();
        props->setBold(readSwitch(_isComplex ? "bCs" : "b"));
        props->setItalic(readSwitch(_isComplex ? "iCs" : "i"));
        props->setFontSize(_values.readHalfPoints(
            _values.value(_element, _isComplex ? "szCs" : "sz"), FilterUtils::positiveLength));
        props->setFontName(readFontName(_values.find(_element, "rFonts")));
        props->setColor(_values.readColor(_values.find(_element, "color")));
        props->setBackgroundColor(readBackground());
        props->setUnderline(_values.readName(RunUnderlineNames, _values.value(_element, "u")));
        props->setStrikethrough(readStrikethrough());
        props->setHidden(readSwitch("vanish"));
        props->setVerticalPosition(
            _values.readName(RunVerticalPositionNames, _values.value(_element, "vertAlign")));
        props->setLetterCase(readLetterCase());
        if (DOM::isEmpty(*props))
            return nullptr;
        return props;
    }

private:
    boost::optional<bool> readSwitch(const char* name) const { return _values.readSwitch(_element, name); }

    bool isOn(const char* name) const { return readSwitch(name) == true; }

    /// The font of Latin letters, or of complex scripts where the run is of one.
    boost::optional<std::string> readFontName(const XMLElement& fonts) const
    {
        if (_isComplex)
            if (auto name = findFontName(fonts, "cs", "cstheme"))
                return name;
        if (auto name = findFontName(fonts, "ascii", "asciiTheme"))
            return name;
        if (auto name = findFontName(fonts, "hAnsi", "hAnsiTheme"))
            return name;
        // Files give a font for other scripts to text that has no such characters, unless they say so.
        if (_values.attribute(fonts, "hint").text == std::string("eastAsia"))
            return findFontName(fonts, "eastAsia", "eastAsiaTheme");
        return boost::none;
    }

    boost::optional<std::string> findFontName(
        const XMLElement& fonts, const char* attribute, const char* themeAttribute) const
    {
        const auto themeName = _values.attribute(fonts, themeAttribute).text;
        auto name = themeName ? _values.getTheme().findFont(*themeName) : boost::none;
        if (!name)
            name = _values.attribute(fonts, attribute).text;
        if (!name || name->empty())
            return boost::none;
        // Formats are copied for each run that is looked at, and so are the names in them.
        if (cutUtf8(*name, RunFontNameBytesMax))
            _values.report("Name of a font is cut at {} bytes", std::to_string(RunFontNameBytesMax));
        return name;
    }

    boost::optional<DOM::Color> readBackground() const
    {
        const auto highlight = _values.readHighlight(_element);
        return highlight ? highlight : _values.readFilling(_element);
    }

    boost::optional<bool> readStrikethrough() const
    {
        const auto single = readSwitch("strike");
        const auto twice = readSwitch("dstrike");
        if (!single && !twice)
            return boost::none;
        return single == true || twice == true;
    }

    boost::optional<DOM::LetterCase> readLetterCase() const
    {
        const auto capitals = readSwitch("caps");
        const auto smallCapitals = readSwitch("smallCaps");
        if (capitals == true)
            return DOM::LetterCase::Capitals;
        if (smallCapitals == true)
            return DOM::LetterCase::SmallCapitals;
        if (capitals || smallCapitals)
            return DOM::LetterCase::AsWritten;
        return boost::none;
    }

    const FormatValues& _values;
    const XMLElement& _element;
    bool _isComplex; // the run has properties of its own for scripts such as Arabic
};

std::shared_ptr<const DOM::TrackedChange> readMarkChange(
    const FormatValues& values, const XMLElement& runProps)
{
    for (const auto& candidate : MarkChangeNames) {
        const XMLElement change = values.find(runProps, candidate.name);
        if (change.isValid())
            return std::make_shared<DOM::TrackedChange>(candidate.value,
                values.attribute(change, "author").text.value_or(""),
                values.attribute(change, "date").text.value_or(""));
    }
    return nullptr;
}

} // namespace

RunFormat FormatReader::readRun(const XMLElement& runProps) const
{
    RunFormat format = readRunProps(runProps);
    const XMLElement change = _values.find(runProps, "rPrChange");
    if (change.isValid())
        format.before = std::make_shared<RunFormat>(readRunProps(_values.find(change, "rPr")));
    return format;
}

RunFormat FormatReader::readRunProps(const XMLElement& runProps) const
{
    RunFormat format;
    if (!runProps.isValid())
        return format;
    format.styleId = _values.value(runProps, "rStyle").text.value_or("");
    format.props = RunPropsReader(_values, runProps).read();
    format.change = readMarkChange(_values, runProps);
    return format;
}

} // namespace QV::Filters
