#pragma once

#include <string>

namespace QV::OfficeUtils {

/// A number of at most 15 significant decimal digits, without a sign: 0.DIGITS * 10^point.
class Decimal
{
public:
    /// @param magnitude its sign does not count; what is not finite counts as zero
    explicit Decimal(double magnitude);

    bool isZero() const { return _digits.empty(); }

    /// The power of ten of the first digit: 0 for 1.5. 0 for zero.
    int getExponent() const { return isZero() ? 0 : _point - 1; }

    /// Multiplies by a power of ten.
    void shift(int places);

    /// Rounds half away from zero to so many digits after the point; before it for a negative count.
    void round(int decimals);

    /// The digits before the point, without leading zeros; empty below 1.
    std::string getWhole() const;

    /// The digits after the point, without trailing zeros.
    std::string getFraction() const;

private:
    void stripZeros();

    std::string _digits; // neither begins nor ends with "0"; empty for zero
    int _point = 0;
};

} // namespace QV::OfficeUtils
