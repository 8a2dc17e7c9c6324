#pragma once

#include <iosfwd>

namespace QV::DOM {
class Document;
}

namespace QV::Tool {

/// Shows the first cells of the first visible sheet that has any, as a spreadsheet shows them. Writes nothing
/// where there are none.
void writeBeginning(const DOM::Document& document, std::ostream& out);

} // namespace QV::Tool
