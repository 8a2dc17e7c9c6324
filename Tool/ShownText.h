#pragma once

#include <cstddef>
#include <string>

namespace QV::Tool {

/// A document's text on a terminal.
struct ShownText
{
    std::string text;
    std::size_t width; ///< in characters
};

/// As much of a text as there is room for, made harmless; an ellipsis stands for the rest.
ShownText makeShownText(const std::string& text, std::size_t charactersMax);

} // namespace QV::Tool
