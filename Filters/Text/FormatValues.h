#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/Color.h>
#include <DOM/Public/LineProps.h>
#include <DOM/Public/ParaProps.h>
#include <FilterUtils/FU_Lengths.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/AlternateContent.h>
#include <Filters/Package/Export.h>
#include <Utils/Public/Unit.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

class Colors;
class MessageCounts;
class Names;
class TextTheme;

/// The text of an attribute, and what messages call it.
struct FormatText
{
    boost::optional<std::string> text; ///< nothing where the attribute is not there
    const char* name;
};

/// One of the names that an attribute may have as its value.
template <typename Value>
struct FormatName
{
    const char* name;
    Value value;
};

/// Which attributes of an element give a colour.
struct ColorAttributes
{
    const char* value;
    const char* theme;
    const char* tint;
    const char* shade;
};

/// Reads the values of word-processing elements, one by one. What is not there is nothing; what cannot be
/// read is nothing as well, after one message:
///     - "Unknown value {} of {}": a name that is none of those allowed; with the element or attribute
///     - "Unexpected value {} of {}": no number, or one out of its range
///     - those of FilterUtils::convertLength and convertToRGBColor
///
///     const FormatValues values(names, colors, theme, report);
///     props.setBold(values.readSwitch(runProps, "b"));
///     props.setLeftIndent(values.readMeasure(values.attribute(indent, "left")));
///
/// Immutable; references live as long as the object.
class FILTERS_API FormatValues
{
public:
    /// @param messages where not null, a thousand messages of a pattern are told, and it counts the others
    /// @param root of the part, whose declarations alternate content refers to; the invalid view where there
    ///     is no such content, or it declares its prefixes by itself
    FormatValues(const Names& names, const Colors& colors, const TextTheme& theme, OperationReport& report,
        MessageCounts* messages = nullptr, const FilterUtils::XMLElement& root = {});

    const Names& getNames() const { return _names; }
    const TextTheme& getTheme() const { return _theme; }

    /// The first child of that name in the word-processing vocabulary, or the invalid view. Children in
    /// alternate content count, see AlternateContent.
    FilterUtils::XMLElement find(const FilterUtils::XMLElement& parent, const char* name) const;
    /// Calls @p function for each of these children.
    void processElements(const FilterUtils::XMLElement& parent, const char* name,
        const std::function<void(const FilterUtils::XMLElement&)>& function) const;
    /// An attribute of the word-processing vocabulary.
    FormatText attribute(const FilterUtils::XMLElement& element, const char* name) const;
    /// The attribute "val" of a child, under the child's name.
    FormatText value(const FilterUtils::XMLElement& parent, const char* child) const;

    /// "1", "true" and "on"; "0", "false" and "off".
    boost::optional<bool> readFlag(const FormatText& text) const;
    /// A child that switches something on by being there, unless its "val" says otherwise.
    boost::optional<bool> readSwitch(const FilterUtils::XMLElement& parent, const char* child) const;

    /// A whole number with its sign, between two bounds that belong to the range.
    boost::optional<long> readWhole(const FormatText& text, long min, long max) const;

    /// A length in points: twentieths of a point, or a number with its unit. At most MaxPoints either way.
    UnitOpt readMeasure(const FormatText& text, FilterUtils::LengthType type = FilterUtils::anyLength) const;
    /// The same where a number without a unit is of half points.
    UnitOpt readHalfPoints(
        const FormatText& text, FilterUtils::LengthType type = FilterUtils::anyLength) const;
    static constexpr float MaxPoints = 1584; ///< 22 inches, the largest page

    /// The value of one of @p names.
    template <typename Value, std::size_t Size>
    boost::optional<Value> readName(const FormatName<Value> (&names)[Size], const FormatText& text) const
    {
        if (!text.text)
            return boost::none;
        const auto found = std::find_if(std::begin(names), std::end(names),
            [&](const FormatName<Value>& candidate) { return candidate.name == *text.text; });
        if (found != std::end(names))
            return found->value;
        report("Unknown value {} of {}", *text.text, text.name);
        return boost::none;
    }

    /// A "color" element: "themeColor" wins over "val". "auto" is a colour without opacity, which takes away
    /// that of a style.
    boost::optional<DOM::Color> readColor(const FilterUtils::XMLElement& element) const;
    /// The colour that some attributes give.
    boost::optional<DOM::Color> readColor(
        const FilterUtils::XMLElement& element, const ColorAttributes& attributes) const;
    /// A "highlight" element; nothing for "none".
    boost::optional<DOM::Color> readHighlight(const FilterUtils::XMLElement& parent) const;
    /// A "shd" element: what its pattern makes of its colour and its filling at a distance; nothing for none.
    boost::optional<DOM::Color> readShading(const FilterUtils::XMLElement& shading) const;
    /// The same of the "shd" child of properties. One that is set to none is a colour without opacity, which
    /// takes away that of a style.
    boost::optional<DOM::Color> readFilling(const FilterUtils::XMLElement& parent) const;

    /// An element of a border, of 0.25 to 12 points, and half a point where it does not say. Null for an
    /// invalid view, and where it names no kind of line.
    std::shared_ptr<const DOM::LineProps> readBorderLine(const FilterUtils::XMLElement& border) const;

    /// A "jc" element.
    /// @param isRightToLeft whether text of the paragraph runs that way: its lines begin at the right then
    boost::optional<DOM::HorizontalAlignment> readAlignment(const FormatText& text, bool isRightToLeft) const;

    /// Adds a message, within the bounds of the counts.
    void report(const char* pattern, const std::string& argument) const;
    void report(const char* pattern, const std::string& first, const std::string& second) const;

private:
    UnitOpt readLength(const FormatText& text, double unitsPerPoint, FilterUtils::LengthType type) const;
    boost::optional<DOM::Color::RGBA> findThemeColor(const FormatText& text) const;
    boost::optional<DOM::Color::RGBA> convertHexColor(const std::string& text) const;
    boost::optional<double> readHexShare(const FormatText& text) const;
    void takeMessages(const OperationReport& messages) const;

    const Names& _names;
    const Colors& _colors;
    const TextTheme& _theme;
    OperationReport& _report;
    MessageCounts* _messages;
    AlternateContent _children;
};

} // namespace QV::Filters
