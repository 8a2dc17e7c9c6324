#pragma once

/// @file
/// What a table may be called.

#include <string>

#include <DOM/Public/Export.h>

namespace QV::DOM {

/// Whether a table may have this name.
///
///     NAME ::= C{1,31} in UTF-16 units, with "'" neither first nor last
///     C    ::= any character but : \ / ? * [ ], control characters (U+0000 to U+001F, U+007F to U+009F) and
///              U+FFFE and U+FFFF
///
/// A text that is not UTF-8 is no name. Nothing is asked about other tables.
DOM_API bool validateTableName(const std::string& name);

/// The valid name that is nearest to @p name: a valid one itself. Always the same for the same text.
///
///     fixTableNameIfNeed("a/b");    // "a_b"
///     fixTableNameIfNeed("'a'");    // "_a_"
///     fixTableNameIfNeed("");       // "_"
///
/// Each character that may not be there, and each byte that is no UTF-8, becomes "_"; what is beyond 31 units
/// is cut off, a character of two units as a whole.
DOM_API std::string fixTableNameIfNeed(const std::string& name);

} // namespace QV::DOM
