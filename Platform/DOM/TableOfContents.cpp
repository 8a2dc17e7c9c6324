#include <DOM/Public/TableOfContents.h>

namespace QV::DOM {

TableOfContents::~TableOfContents() = default;

} // namespace QV::DOM
