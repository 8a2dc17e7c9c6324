#pragma once

#include <iosfwd>
#include <string>

namespace QV::DOM {
class Document;
}

namespace QV::Tool {

/// Tells a person what a text document holds, and how it begins.
void writeTextSummary(const std::string& name, const DOM::Document& document, std::ostream& out);

} // namespace QV::Tool
