#include <FilterUtils/FU_IDGenerators.h>

#include <utility>

#include <fmt/format.h>

#include <Utils/Public/UUID.h>

namespace QV::FilterUtils {
namespace {

class UUIDIDGenerator final : public IDGenerator
{
public:
    std::string generateId() override { return UUID::generate().toString(); }
};

} // namespace

IDGenerator::~IDGenerator() = default;

std::unique_ptr<IDGenerator> makeUUIDIDGenerator()
{
    return std::make_unique<UUIDIDGenerator>();
}

NumberIdGenerator::NumberIdGenerator(unsigned int start)
    : _lastNumber(start)
{
}

unsigned int NumberIdGenerator::generateId()
{
    return ++_lastNumber;
}

StringIdGenerator::StringIdGenerator(std::string prefix)
    : _prefix(std::move(prefix))
    , _numbers(0)
{
}

std::string StringIdGenerator::generateId()
{
    return fmt::format("{}{}", _prefix, _numbers.generateId());
}

} // namespace QV::FilterUtils
