#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <tuple>
#include <utility>

#include <boost/optional.hpp>

#include <DOM/Public/Color.h>
#include <DOM/Public/Properties.h>

namespace QV::DOM {

/// The line below a text.
enum class Underline : std::uint8_t
{
    None,
    Single,
    Words, ///< a single line, not below blanks
    Double,
    Thick,
    Dotted,
    Dashed,
    DashDot,
    DashDotDot,
    Wave,
};

/// Where a text stands in its line.
enum class VerticalPosition : std::uint8_t
{
    Baseline,
    Superscript,
    Subscript,
};

/// In which letters a text is shown.
enum class LetterCase : std::uint8_t
{
    AsWritten,
    Capitals,
    SmallCapitals, ///< small letters become small capital letters
};

/// How a run of text looks. A property that is not set comes from the styles below.
class RunProps
{
public:
    const boost::optional<bool>& getBold() const { return _bold; }
    const boost::optional<bool>& getItalic() const { return _italic; }
    /// In points.
    const boost::optional<float>& getFontSize() const { return _fontSize; }
    const boost::optional<std::string>& getFontName() const { return _fontName; }
    const boost::optional<Color>& getColor() const { return _color; }
    const boost::optional<Color>& getBackgroundColor() const { return _backgroundColor; }
    const boost::optional<Underline>& getUnderline() const { return _underline; }
    const boost::optional<bool>& getStrikethrough() const { return _strikethrough; }
    /// Whether readers do not see the text.
    const boost::optional<bool>& getHidden() const { return _hidden; }
    const boost::optional<VerticalPosition>& getVerticalPosition() const { return _verticalPosition; }
    const boost::optional<LetterCase>& getLetterCase() const { return _letterCase; }

    void setBold(const boost::optional<bool>& bold) { _bold = bold; }
    void setItalic(const boost::optional<bool>& italic) { _italic = italic; }
    void setFontSize(const boost::optional<float>& points) { _fontSize = points; }
    void setFontName(boost::optional<std::string> name) { _fontName = std::move(name); }
    void setColor(const boost::optional<Color>& color) { _color = color; }
    void setBackgroundColor(const boost::optional<Color>& color) { _backgroundColor = color; }
    void setUnderline(const boost::optional<Underline>& underline) { _underline = underline; }
    void setStrikethrough(const boost::optional<bool>& isStruck) { _strikethrough = isStruck; }
    void setHidden(const boost::optional<bool>& isHidden) { _hidden = isHidden; }
    void setVerticalPosition(const boost::optional<VerticalPosition>& position)
    {
        _verticalPosition = position;
    }
    void setLetterCase(const boost::optional<LetterCase>& letterCase) { _letterCase = letterCase; }

    static constexpr auto getFields()
    {
        return std::make_tuple(&RunProps::_bold, &RunProps::_italic, &RunProps::_fontSize,
            &RunProps::_fontName, &RunProps::_color, &RunProps::_backgroundColor, &RunProps::_underline,
            &RunProps::_strikethrough, &RunProps::_hidden, &RunProps::_verticalPosition,
            &RunProps::_letterCase);
    }

    friend bool operator==(const RunProps& a, const RunProps& b) { return areEqual(a, b); }
    friend bool operator!=(const RunProps& a, const RunProps& b) { return !(a == b); }
    friend std::size_t hash_value(const RunProps& props) { return hashProps(props); }

private:
    boost::optional<bool> _bold;
    boost::optional<bool> _italic;
    boost::optional<float> _fontSize;
    boost::optional<std::string> _fontName;
    boost::optional<Color> _color;
    boost::optional<Color> _backgroundColor;
    boost::optional<Underline> _underline;
    boost::optional<bool> _strikethrough;
    boost::optional<bool> _hidden;
    boost::optional<VerticalPosition> _verticalPosition;
    boost::optional<LetterCase> _letterCase;
};

} // namespace QV::DOM
