#include <DOM/Public/NamedTextStyle.h>

namespace QV::DOM {

NamedTextStyle::NamedTextStyle() = default;
NamedTextStyle::~NamedTextStyle() = default;
NamedTextStyle::NamedTextStyle(NamedTextStyle&& other) noexcept = default;
NamedTextStyle& NamedTextStyle::operator=(NamedTextStyle&& other) noexcept = default;

NamedTextStyle::NamedTextStyle(const NamedTextStyle& other)
    : UUIDable(other)
    , _parentUUID(other._parentUUID)
    , _name(other._name)
    , _runProps(other._runProps)
    , _paraProps(other._paraProps)
    , _numRef(other._numRef ? std::make_unique<NumberingRef>(*other._numRef) : nullptr)
    , _kind(other._kind)
{
}

NamedTextStyle& NamedTextStyle::operator=(const NamedTextStyle& other)
{
    *this = NamedTextStyle(other);
    return *this;
}

} // namespace QV::DOM
