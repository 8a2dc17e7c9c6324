#include <FilterUtils/FU_Errors.h>

namespace QV {

BaseRuntimeError::BaseRuntimeError(const char* message)
    : std::runtime_error(message)
{
}

BaseRuntimeError::~BaseRuntimeError() = default;

InternalFilterError::InternalFilterError(const char* message)
    : BaseRuntimeError(message)
{
}

InternalFilterError::~InternalFilterError() = default;

BadNumCastError::BadNumCastError(const char* message)
    : BaseRuntimeError(message)
{
}

BadNumCastError::~BadNumCastError() = default;

template unsigned long numCast<unsigned long, int>(int value);
template int numCast<int, unsigned long>(unsigned long value);
template unsigned int numCast<unsigned int, unsigned long>(unsigned long value);

} // namespace QV
