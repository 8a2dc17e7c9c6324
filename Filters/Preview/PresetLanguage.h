#pragma once

/// @file
/// The short form in which preset shapes are written down.
///
///     PRESETS    ::= PRESET+                         each begins a line; further lines of it are indented
///     PRESET     ::= NAME (STATEMENT ";")+
///     STATEMENT  ::= "@" NAME                        all that the preset "@" NAME states
///                  | NAME ":" INTEGER                an adjust value
///                  | NAME "=" EXPRESSION             a guide
///                  | "T" EXPRESSION{4}               the rectangle of the text
///                  | "P" ATTRIBUTE* COMMAND+         a path
///     ATTRIBUTE  ::= "none" | "light" | "lightless" | "dark" | "darkless"    how it is filled
///                  | "bare"                                                  without a line
///                  | INTEGER "x" INTEGER                                     size of its coordinates
///     COMMAND    ::= ("M" | "L" | "A" | "Q" | "C" | "Z") EXPRESSION*    more operands than one takes repeat
///     it
///                  | "N" INTEGER EXPRESSION{6}       a star: its points, centre, outer and inner radii
///     EXPRESSION ::= without blanks: "+", "-", "*", "/", parentheses, and functions, which are the operators
///                    of guides; "if(x,y,z)" is "?:"
///
/// Names stand without marks: first the preset's own adjust values and guides are meant, then the names that
/// every shape has. Guides that have no name of their own in the text are called "_1", "_2" and so on.

#include <map>
#include <string>

#include <DOM/Public/ShapeGeometry.h>

namespace QV::Filters {

/// Presets by names; those that begin with "@" are but parts of others.
using PresetTexts = std::map<std::string, std::string>;

/// Adds what @p text holds to @p presets.
void splitPresets(const std::string& text, PresetTexts& presets);

/// Reads one preset. The text is trusted: what is wrong there gives operands that nothing knows.
DOM::ShapeGeometry readPresetShape(const std::string& text, const PresetTexts& presets);

} // namespace QV::Filters
