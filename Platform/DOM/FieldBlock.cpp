#include <DOM/Public/FieldBlock.h>

namespace QV::DOM {

FieldBlock::~FieldBlock() = default;

} // namespace QV::DOM
