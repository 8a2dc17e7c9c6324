#include <DOM/Public/GraphicalObject.h>

namespace QV::DOM {

GraphicalObject::~GraphicalObject() = default;

} // namespace QV::DOM
