#pragma once

#include <memory>
#include <string>
#include <vector>

#include <DOM/Public/Block.h>

namespace QV::DOM {
class Section;
}

namespace QV::Filters {

class ListLabels;
struct TextPageContext;
struct TextPlace;

/// Appends blocks in their order: paragraphs, tables, tables of contents, shapes. What is deeper than the
/// limits allow, or beyond them, is counted.
void writeTextBlocks(const std::vector<const DOM::Block*>& blocks, const TextPlace& place,
    TextPageContext& context, std::string& page);
void writeTextBlocks(const std::vector<std::unique_ptr<DOM::Block>>& blocks, const TextPlace& place,
    TextPageContext& context, std::string& page);

/// Appends a section as one sheet of paper: its header, its blocks, its footer. Of several headers, that of
/// the first page; the usual one where the first page has none.
/// @param section null for a document that says nothing of its pages
/// @param labels of the lists of the document's text, which go on from section to section
void writeTextSection(const DOM::Section* section, const std::vector<const DOM::Block*>& blocks,
    ListLabels& labels, TextPageContext& context, std::string& page);

} // namespace QV::Filters
