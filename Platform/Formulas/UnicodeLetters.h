#pragma once

namespace QV::Formulas {

/// Whether a character beyond ASCII is a letter or a decimal digit of any script. Not the marks that are
/// written with letters. ICU would know, but is not for this library.
bool isLetterOrDigit(char32_t character);

} // namespace QV::Formulas
