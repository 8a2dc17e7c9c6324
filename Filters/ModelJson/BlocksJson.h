#pragma once

/// @file
/// The blocks of a text document as JSON: paragraphs, tables, tables of contents.

#include <memory>
#include <vector>

#include <DOM/Public/Block.h>
#include <DOM/Public/ParaProps.h>

namespace QV::Filters {

class JsonWriter;
class ListLabels;
class TextJsonState;

/// Writes one block that stands outside of tables as an object.
/// @param labels of the story that the block belongs to
void writeBlockJson(const DOM::Block& block, ListLabels& labels, TextJsonState& state);

/// Writes an array with the blocks of a story of its own, whose lists are counted apart.
void writeStoryJson(const std::vector<std::unique_ptr<DOM::Block>>& blocks, TextJsonState& state);

/// Writes "alignment" where these properties have one that means something in a text.
void writeAlignmentMember(const DOM::ParaProps& props, JsonWriter& json);

} // namespace QV::Filters
