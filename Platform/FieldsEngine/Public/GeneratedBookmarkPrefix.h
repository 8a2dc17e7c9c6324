#pragma once

#include <string>

#include <FieldsEngine/Public/Export.h>

namespace QV::FieldsEngine {

/// What the names of bookmarks begin with that the suite makes for its own fields; a number follows. Letters
/// and underlines alone, so it may stand in a regular expression as it is.
FIELDSENGINE_API extern const std::string GeneratedBookmarkPrefix;

} // namespace QV::FieldsEngine
