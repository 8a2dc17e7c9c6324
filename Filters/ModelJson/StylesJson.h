#pragma once

#include <string>

namespace QV::DOM {
class Styles;
}

namespace QV {
class UUID;
}

namespace QV::Filters {

class JsonWriter;

/// The name of a text style; empty where there is none of that identifier.
std::string findTextStyleName(const DOM::Styles& styles, const UUID& uuid);

/// Writes an array with an object for each named style: its "name", its "type" ("paragraph", "character" or
/// "table"), and the name of its "parent" where it derives from one. By type, then by name.
void writeStylesJson(const DOM::Styles& styles, JsonWriter& json);

} // namespace QV::Filters
