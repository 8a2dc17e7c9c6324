#include <DOM/Public/Series.h>

namespace QV::DOM {

Series::~Series() = default;

std::unique_ptr<Series> Series::clone() const
{
    return std::unique_ptr<Series>(new Series(*this)); // the constructor is for this class and its heirs
}

} // namespace QV::DOM
