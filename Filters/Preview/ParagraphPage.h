#pragma once

#include <string>

namespace QV::DOM {
class Paragraph;
}

namespace QV::Filters {

struct TextPageContext;
struct TextPlace;

/// The paragraphs right before and after one; null where there is none.
struct ParagraphNeighbours
{
    const DOM::Paragraph* previous = nullptr;
    const DOM::Paragraph* next = nullptr;
};

/// Appends a paragraph as an element: a heading by its outline level, else "p". Shapes that stand in it,
/// which hold blocks of their own, come before it. A paragraph that is hidden with its mark is not there.
void writeTextParagraph(const DOM::Paragraph& paragraph, const ParagraphNeighbours& neighbours,
    const TextPlace& place, TextPageContext& context, std::string& page);

} // namespace QV::Filters
