#include <FieldsEngine/Public/GeneratedBookmarkPrefix.h>

namespace QV::FieldsEngine {

const std::string GeneratedBookmarkPrefix = "_QVGenerated";

} // namespace QV::FieldsEngine
