#pragma once

/// @file
/// What is thrown where a filter breaks an invariant of its own, and the cast between integers that throws
/// rather than lose the value. Bad outside data is never thrown: it goes into an OperationReport.

#include <stdexcept>

#include <boost/numeric/conversion/cast.hpp>

#include <FilterUtils/FU_Export.h>

namespace QV {

/// The root of the family: catch it to mean any failure of the filter layer.
class FILTERUTILS_API BaseRuntimeError : public std::runtime_error
{
public:
    explicit BaseRuntimeError(const char* message);
    ~BaseRuntimeError() override; // in the library, and with it the type information that others catch by
};

/// A state that filter code itself must never reach.
class FILTERUTILS_API InternalFilterError : public BaseRuntimeError
{
public:
    explicit InternalFilterError(const char* message);
    ~InternalFilterError() override;
};

/// A number that does not fit the type it is cast to.
class FILTERUTILS_API BadNumCastError : public BaseRuntimeError
{
public:
    explicit BadNumCastError(const char* message);
    ~BadNumCastError() override;
};

/// Casts @p value to another integer type, and never loses it.
///
///     numCast<unsigned long>(7);    // 7UL
///     numCast<unsigned long>(-1);   // throws BadNumCastError
///
/// Throws BadNumCastError where To cannot hold the value, with one of these messages:
///     - "bad numeric conversion: negative overflow": below To's minimum
///     - "bad numeric conversion: positive overflow": above To's maximum
template <typename To, typename From>
To numCast(From value)
{
    try {
        return boost::numeric_cast<To>(value);
    } catch (const boost::numeric::bad_numeric_cast& error) {
        throw BadNumCastError(error.what());
    }
}

extern template FILTERUTILS_API unsigned long numCast<unsigned long, int>(int value);
extern template FILTERUTILS_API int numCast<int, unsigned long>(unsigned long value);
extern template FILTERUTILS_API unsigned int numCast<unsigned int, unsigned long>(unsigned long value);

} // namespace QV
