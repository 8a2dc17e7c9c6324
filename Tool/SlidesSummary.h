#pragma once

#include <iosfwd>
#include <string>

namespace QV::DOM {
class Document;
}

namespace QV::Tool {

/// Tells a person what a presentation holds: its slides and their size, what they are made after, what is on
/// them, and the titles of the first ones.
void writeSlidesSummary(const std::string& name, const DOM::Document& document, std::ostream& out);

} // namespace QV::Tool
