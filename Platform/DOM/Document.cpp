#include <DOM/Public/Document.h>

namespace QV::DOM {

Document::Document() = default;
Document::~Document() = default;

} // namespace QV::DOM
