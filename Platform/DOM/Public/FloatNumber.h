#pragma once

namespace QV {

/// A floating-point number of the document model, in a type of its own so that it is never taken for a length
/// or any other bare double.
class FloatNumber
{
public:
    constexpr FloatNumber() = default;
    constexpr explicit FloatNumber(double value)
        : _value(value)
    {
    }

    constexpr double get() const { return _value; }

    friend constexpr bool operator==(FloatNumber a, FloatNumber b) { return a._value == b._value; }
    friend constexpr bool operator!=(FloatNumber a, FloatNumber b) { return !(a == b); }
    friend constexpr bool operator<(FloatNumber a, FloatNumber b) { return a._value < b._value; }

private:
    double _value = 0;
};

} // namespace QV
