#pragma once

#include <cstddef>
#include <string>
#include <tuple>
#include <utility>

#include <boost/optional.hpp>

#include <DOM/Public/Color.h>
#include <DOM/Public/Properties.h>

namespace QV::DOM {

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

    void setBold(const boost::optional<bool>& bold) { _bold = bold; }
    void setItalic(const boost::optional<bool>& italic) { _italic = italic; }
    void setFontSize(const boost::optional<float>& points) { _fontSize = points; }
    void setFontName(boost::optional<std::string> name) { _fontName = std::move(name); }
    void setColor(const boost::optional<Color>& color) { _color = color; }
    void setBackgroundColor(const boost::optional<Color>& color) { _backgroundColor = color; }

    static constexpr auto getFields()
    {
        return std::make_tuple(&RunProps::_bold, &RunProps::_italic, &RunProps::_fontSize,
            &RunProps::_fontName, &RunProps::_color, &RunProps::_backgroundColor);
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
};

} // namespace QV::DOM
