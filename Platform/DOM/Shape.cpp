#include <DOM/Public/Shape.h>

namespace QV::DOM {

Shape::Shape() = default;
Shape::~Shape() = default;

} // namespace QV::DOM
