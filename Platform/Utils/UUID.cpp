#include <Utils/Public/UUID.h>

#include <pthread.h>
#include <sys/random.h>

#include <cerrno>
#include <system_error>

namespace QV {
namespace {

constexpr std::size_t HalfSize = sizeof(std::uint64_t);
constexpr std::size_t TextSize = 36;

// Where a hyphen stands before a byte of the text form.
constexpr bool isGroupBegin(std::size_t byteIndex)
{
    return byteIndex == 4 || byteIndex == 6 || byteIndex == 8 || byteIndex == 10;
}

// One system call serves 16 identifiers; an importer makes one for each paragraph and cell style.
struct RandomBatch
{
    std::uint64_t words[32];
    std::size_t unused = 0;
};

RandomBatch& getBatch()
{
    thread_local RandomBatch batch;
    return batch;
}

// The child of a fork has one thread, a copy of the caller: what its batch still holds belongs to the parent.
bool dropBatchInForkedChildren()
{
    return pthread_atfork(nullptr, nullptr, [] { getBatch().unused = 0; }) == 0;
}

void fill(RandomBatch& batch)
{
    static const bool areChildrenSafe = dropBatchInForkedChildren();
    auto* const begin = reinterpret_cast<char*>(batch.words);
    const std::size_t wanted = areChildrenSafe ? sizeof(batch.words) : 2 * HalfSize;
    for (std::size_t size = 0; size < wanted;) {
        const ssize_t count = getrandom(begin + size, wanted - size, 0);
        if (count < 0 && errno != EINTR)
            throw std::system_error(errno, std::system_category(), "no random bytes for an identifier");
        size += count < 0 ? 0 : static_cast<std::size_t>(count);
    }
    batch.unused = wanted / HalfSize;
}

std::uint64_t readHalf(const std::uint8_t* bytes)
{
    std::uint64_t half = 0;
    for (std::size_t i = 0; i < HalfSize; ++i)
        half = half << 8 | bytes[i];
    return half;
}

int findHexDigitValue(char digit)
{
    if ('0' <= digit && digit <= '9')
        return digit - '0';
    if ('a' <= digit && digit <= 'f')
        return digit - 'a' + 10;
    if ('A' <= digit && digit <= 'F')
        return digit - 'A' + 10;
    return -1;
}

} // namespace

UUID UUID::generate()
{
    constexpr std::uint64_t VersionMask = 0xf000;
    constexpr std::uint64_t Version4 = 0x4000;
    constexpr std::uint64_t VariantMask = 0xc000000000000000;
    constexpr std::uint64_t Rfc4122Variant = 0x8000000000000000;
    RandomBatch& batch = getBatch();
    if (batch.unused == 0)
        fill(batch);
    const std::uint64_t high = batch.words[--batch.unused];
    const std::uint64_t low = batch.words[--batch.unused];
    return UUID((high & ~VersionMask) | Version4, (low & ~VariantMask) | Rfc4122Variant);
}

UUID UUID::fromBytes(const Bytes& bytes)
{
    return UUID(readHalf(bytes.data()), readHalf(bytes.data() + HalfSize));
}

boost::optional<UUID> UUID::fromString(boost::string_ref text)
{
    if (text.size() != TextSize)
        return boost::none;
    Bytes bytes;
    std::size_t position = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (isGroupBegin(i) && text[position++] != '-')
            return boost::none;
        const int high = findHexDigitValue(text[position++]);
        const int low = findHexDigitValue(text[position++]);
        if (high < 0 || low < 0)
            return boost::none;
        bytes[i] = static_cast<std::uint8_t>(high * 16 + low);
    }
    return fromBytes(bytes);
}

std::string UUID::toString() const
{
    constexpr const char* HexDigits = "0123456789abcdef";
    const Bytes bytes = getBytes();
    std::string text(TextSize, '-');
    std::size_t position = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        position += isGroupBegin(i) ? 1 : 0;
        text[position++] = HexDigits[bytes[i] >> 4];
        text[position++] = HexDigits[bytes[i] & 0xf];
    }
    return text;
}

UUID::Bytes UUID::getBytes() const
{
    Bytes bytes;
    for (std::size_t i = 0; i < HalfSize; ++i) {
        const std::size_t shift = 8 * (HalfSize - 1 - i);
        bytes[i] = static_cast<std::uint8_t>(_high >> shift);
        bytes[i + HalfSize] = static_cast<std::uint8_t>(_low >> shift);
    }
    return bytes;
}

} // namespace QV
