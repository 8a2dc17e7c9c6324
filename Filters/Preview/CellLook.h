#pragma once

#include <string>
#include <unordered_map>

#include <DOM/Public/CellStyle.h>
#include <DOM/Public/LineProps.h>
#include <DOM/Public/RunProps.h>
#include <Filters/Package/Export.h>

namespace QV::DOM {
class Styles;
}

namespace QV::Filters {

/// The declarations of a run's font and colours; what is not set has none.
std::string makeFontCss(const DOM::RunProps& props);

/// The declarations of one side's line, such as "border-left:1px solid #000;"; none for no line.
FILTERS_API std::string makeLineCss(const char* side, const DOM::LineProps* line);

/// Which of two lines that meet on one edge is seen: the wider one, or the second of two equal ones.
FILTERS_API const DOM::LineProps* chooseLine(const DOM::LineProps* first, const DOM::LineProps* second);

/// What the styles of cells look like, each worked out once.
class CellLooks
{
public:
    explicit CellLooks(const DOM::Styles& styles);

    struct Look
    {
        std::string css;       ///< fill, font, alignment
        std::string diagonals; ///< an image of the lines across the cell; empty for none
        bool wrapsText = false;
        bool isAligned = false; ///< says by itself where text stands, whatever the value is
    };

    const Look& getLook(const DOM::CellStyle& style);

private:
    Look makeLook(const DOM::CellStyle& style) const;

    const DOM::Styles& _styles;
    std::unordered_map<const DOM::CellStyle*, Look> _looks;
};

} // namespace QV::Filters
