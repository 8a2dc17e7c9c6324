#pragma once

#include <utility>

namespace QV {

namespace TypeUtils {

/// A type of its own for each value of an enumeration, to tag a TaggedValue with.
template <typename Enum, Enum Value>
struct ValueTag
{
};

} // namespace TypeUtils

/// A value wrapped in a type of its own, so that one kind of number is never passed where another is meant.
/// Made and taken apart explicitly: `RowIndex(3)`, `row.get()`, `static_cast<unsigned long>(row)`.
template <typename T, typename Tag>
class TaggedValue
{
public:
    using ValueType = T;

    constexpr TaggedValue() = default;
    constexpr explicit TaggedValue(T value)
        : _value(std::move(value))
    {
    }

    constexpr const T& get() const { return _value; }
    constexpr explicit operator const T&() const { return _value; }

    friend constexpr bool operator==(const TaggedValue& a, const TaggedValue& b)
    {
        return a._value == b._value;
    }
    friend constexpr bool operator!=(const TaggedValue& a, const TaggedValue& b) { return !(a == b); }
    friend constexpr bool operator<(const TaggedValue& a, const TaggedValue& b)
    {
        return a._value < b._value;
    }
    friend constexpr bool operator>(const TaggedValue& a, const TaggedValue& b) { return b < a; }
    friend constexpr bool operator<=(const TaggedValue& a, const TaggedValue& b) { return !(b < a); }
    friend constexpr bool operator>=(const TaggedValue& a, const TaggedValue& b) { return !(a < b); }

private:
    T _value = T();
};

} // namespace QV
