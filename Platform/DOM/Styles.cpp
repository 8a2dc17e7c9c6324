#include <DOM/Public/Styles.h>

namespace QV::DOM {

Styles::Styles() = default;
Styles::~Styles() = default;

} // namespace QV::DOM
