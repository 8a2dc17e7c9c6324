#include <DOM/Public/Block.h>

namespace QV::DOM {

Block::~Block() = default;

} // namespace QV::DOM
