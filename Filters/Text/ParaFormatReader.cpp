// How FormatReader reads paragraphs.

#include <Filters/Text/FormatReader.h>

#include <algorithm>
#include <cstddef>
#include <utility>

#include <DOM/Public/BordersProps.h>
#include <DOM/Public/Properties.h>
#include <FilterUtils/FU_Lengths.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

constexpr std::size_t MaxTabStops = 64;
constexpr float AutomaticSpace = 14; // what word processors leave where HTML would decide

// ECMA-376 Part 1, 17.18.48.
constexpr FormatName<DOM::LineSpacing::Kind> LineRules[] = {
    {"auto",    DOM::LineSpacing::Kind::Multiple},
    {"atLeast", DOM::LineSpacing::Kind::AtLeast },
    {"exact",   DOM::LineSpacing::Kind::Exact   },
};

// 17.18.84; "num" is of the oldest files.
constexpr FormatName<DOM::TabStop::Kind> TabStopKinds[] = {
    {"left",    DOM::TabStop::Kind::Left   },
    {"start",   DOM::TabStop::Kind::Left   },
    {"num",     DOM::TabStop::Kind::Left   },
    {"center",  DOM::TabStop::Kind::Center },
    {"right",   DOM::TabStop::Kind::Right  },
    {"end",     DOM::TabStop::Kind::Right  },
    {"decimal", DOM::TabStop::Kind::Decimal},
    {"bar",     DOM::TabStop::Kind::Bar    },
    {"clear",   DOM::TabStop::Kind::Clear  },
};

/// Reads the properties of one paragraph.
class ParaPropsReader
{
public:
    ParaPropsReader(const FormatValues& values, const XMLElement& paragraphProps)
        : _values(values)
        , _element(paragraphProps)
    {
    }

    void read(ParaFormat& format) const
    {
        auto props = std::make_shared<DOM::ParaProps>();
        props->setRightToLeft(readSwitch("bidi"));
        const bool isRightToLeft = props->getRightToLeft() == true;
        props->setAlignment(_values.readAlignment(_values.value(_element, "jc"), isRightToLeft));
        readIndents(*props, isRightToLeft);
        readSpacing(*props);
        props->setContextualSpacing(readSwitch("contextualSpacing"));
        props->setPageBreakBefore(readSwitch("pageBreakBefore"));
        constexpr long BodyText = 9;
        if (const auto level = _values.readWhole(_values.value(_element, "outlineLvl"), 0, BodyText))
            props->setOutlineLevel(static_cast<unsigned long>(*level));
        props->setBackgroundColor(_values.readFilling(_element));
        props->setBorders(readBorders(_values.find(_element, "pBdr")));
        props->setTabStops(readTabStops(format.hasTabLeaders));
        if (!DOM::isEmpty(*props))
            format.props = std::move(props);
        format.numbering = readNumbering(_values.find(_element, "numPr"));
    }

private:
    boost::optional<bool> readSwitch(const char* name) const { return _values.readSwitch(_element, name); }

    /// A length that has another name in strict documents.
    UnitOpt readSide(const XMLElement& element, const char* strictName, const char* name) const
    {
        FormatText text = _values.attribute(element, strictName);
        if (!text.text)
            text = _values.attribute(element, name);
        return _values.readMeasure(text);
    }

    void readIndents(DOM::ParaProps& props, bool isRightToLeft) const
    {
        const XMLElement indents = _values.find(_element, "ind");
        const UnitOpt start = readSide(indents, "start", "left");
        const UnitOpt end = readSide(indents, "end", "right");
        props.setLeftIndent(isRightToLeft ? end : start);
        props.setRightIndent(isRightToLeft ? start : end);
        const FormatText hanging = _values.attribute(indents, "hanging");
        if (hanging.text) { // wins: ECMA-376 Part 1, 17.3.1.12
            const UnitOpt indent = _values.readMeasure(hanging);
            props.setFirstLineIndent(indent ? UnitOpt(0.0F - *indent) : indent);
        } else {
            props.setFirstLineIndent(_values.readMeasure(_values.attribute(indents, "firstLine")));
        }
    }

    UnitOpt readSpace(const XMLElement& spacing, const char* name, const char* automaticName) const
    {
        if (_values.readFlag(_values.attribute(spacing, automaticName)) == true)
            return AutomaticSpace;
        return _values.readMeasure(_values.attribute(spacing, name), FilterUtils::nonNegativeLength);
    }

    void readSpacing(DOM::ParaProps& props) const
    {
        const XMLElement spacing = _values.find(_element, "spacing");
        props.setSpaceBefore(readSpace(spacing, "before", "beforeAutospacing"));
        props.setSpaceAfter(readSpace(spacing, "after", "afterAutospacing"));
        const auto kind = _values.readName(LineRules, _values.attribute(spacing, "lineRule"))
                              .value_or(DOM::LineSpacing::Kind::Multiple);
        const bool isAtLeast = kind == DOM::LineSpacing::Kind::AtLeast;
        const UnitOpt line = _values.readMeasure(_values.attribute(spacing, "line"),
            isAtLeast ? FilterUtils::nonNegativeLength : FilterUtils::positiveLength);
        if (!line)
            return;
        constexpr float PointsPerLine = 12; // a multiple is written in 240ths, where lengths are in 20ths
        const bool isMultiple = kind == DOM::LineSpacing::Kind::Multiple;
        props.setLineSpacing(DOM::LineSpacing(kind, isMultiple ? *line / PointsPerLine : *line));
    }

    std::shared_ptr<const DOM::BordersProps> readBorders(const XMLElement& borders) const
    {
        const auto line = [&](const char* name) {
            return _values.readBorderLine(_values.find(borders, name));
        };
        auto props = std::make_shared<DOM::BordersProps>();
        props->setTop(line("top"));
        props->setLeft(line("left"));
        props->setBottom(line("bottom"));
        props->setRight(line("right"));
        props->setHorizontal(line("between"));
        if (DOM::isEmpty(*props))
            return nullptr;
        return props;
    }

    std::shared_ptr<const DOM::TabStops> readTabStops(bool& hasLeaders) const
    {
        auto stops = std::make_shared<DOM::TabStops>();
        bool isTooMany = false;
        _values.processElements(_values.find(_element, "tabs"), "tab", [&](const XMLElement& tab) {
            isTooMany = stops->size() == MaxTabStops;
            if (isTooMany)
                return;
            const auto kind = _values.readName(TabStopKinds, {_values.attribute(tab, "val").text, "tab"});
            const UnitOpt position = _values.readMeasure(_values.attribute(tab, "pos"));
            if (!kind || !position)
                return;
            stops->emplace_back(*kind, *position);
            const std::string leader = _values.attribute(tab, "leader").text.value_or("none");
            hasLeaders = hasLeaders || (leader != "none" && *kind != DOM::TabStop::Kind::Clear);
        });
        if (isTooMany)
            _values.report("Tab stops beyond {} are left out", std::to_string(MaxTabStops));
        if (stops->empty())
            return nullptr;
        std::stable_sort(stops->begin(), stops->end(),
            [](const DOM::TabStop& a, const DOM::TabStop& b) { return a.getPosition() < b.getPosition(); });
        return stops;
    }

    boost::optional<NumberingRequest> readNumbering(const XMLElement& numbering) const
    {
        constexpr long MaxLevel = 8;
        constexpr long MaxList = 0x7FFFFFFF;
        const auto list = _values.readWhole(_values.value(numbering, "numId"), 0, MaxList);
        const auto level = _values.readWhole(_values.value(numbering, "ilvl"), 0, MaxLevel);
        if (!list && !level)
            return boost::none;
        NumberingRequest request;
        if (list)
            request.id = std::to_string(*list);
        if (level)
            request.level = static_cast<unsigned long>(*level);
        return request;
    }

    const FormatValues& _values;
    const XMLElement& _element;
};

} // namespace

ParaFormat FormatReader::readPara(const XMLElement& paragraphProps) const
{
    ParaFormat format = readParaProps(paragraphProps);
    format.mark = readRun(_values.find(paragraphProps, "rPr"));
    const XMLElement change = _values.find(paragraphProps, "pPrChange");
    if (change.isValid())
        format.before = std::make_shared<ParaFormat>(readParaProps(_values.find(change, "pPr")));
    return format;
}

ParaFormat FormatReader::readParaProps(const XMLElement& paragraphProps) const
{
    ParaFormat format;
    if (!paragraphProps.isValid())
        return format;
    format.styleId = _values.value(paragraphProps, "pStyle").text.value_or("");
    ParaPropsReader(_values, paragraphProps).read(format);
    return format;
}

} // namespace QV::Filters
