#include <Utils/Public/StreamAdapterFactory.h>

#include <ios>
#include <utility>

namespace QV {
namespace {

class StdInputStream final : public InputStream
{
public:
    explicit StdInputStream(std::shared_ptr<std::istream> stream)
        : _stream(std::move(stream))
    {
    }

    std::size_t read(char* buffer, std::size_t count, int /*flags*/) override
    {
        if (!_stream->good())
            return 0;
        _stream->read(buffer, static_cast<std::streamsize>(count));
        return static_cast<std::size_t>(_stream->gcount());
    }

private:
    const std::shared_ptr<std::istream> _stream;
};

} // namespace

InputStream::~InputStream() = default;

std::shared_ptr<InputStream> StreamAdapterFactory::convertToInputStream(std::istream& stream)
{
    return convertToInputStream(
        std::shared_ptr<std::istream>(std::shared_ptr<void>(), &stream)); // owns nothing
}

std::shared_ptr<InputStream> StreamAdapterFactory::convertToInputStream(std::shared_ptr<std::istream> stream)
{
    if (!stream)
        return nullptr;
    return std::make_shared<StdInputStream>(std::move(stream));
}

} // namespace QV
