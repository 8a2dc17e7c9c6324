#pragma once

namespace QV::DOM {
class Paragraph;
}

namespace QV::Filters {

class TextJsonState;
struct CellScope;

/// Writes an array with an object for each run that stands for something: its text, how it looks with every
/// style considered, its link, picture, tracked change, field, note and frame. Ends of bookmarks are left
/// out.
void writeRunsJson(const DOM::Paragraph& paragraph, const CellScope& scope, TextJsonState& state);

} // namespace QV::Filters
