#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include <boost/optional.hpp>
#include <boost/utility/string_ref.hpp>

#include <Utils/Public/Export.h>

namespace QV {

/// The identifier of a model object: 128 bits, nil unless made otherwise.
///
///     const UUID table = UUID::generate();
///     table.toString();                                // "0a5c3f0e-6d1b-4c7e-9a41-5e2f7b8c9d10", say
///     constexpr UUID Heading(0x51e54bd2a6c84b1f, 0x8a0d6f4e2b7c9301); // a fixed one
///
/// A plain value of 16 bytes. Order and hash follow the bytes, so they are the same in every run.
class UTILS_API UUID
{
public:
    using Bytes = std::array<std::uint8_t, 16>;

    /// The nil identifier.
    constexpr UUID() = default;

    /// The identifier whose text shows @p high in its first 16 hexadecimal digits and @p low in the others.
    constexpr UUID(std::uint64_t high, std::uint64_t low)
        : _high(high)
        , _low(low)
    {
    }

    /// A random identifier (version 4 of RFC 4122) from the operating system's generator. Safe to call from
    /// any thread, and in the child of a fork. Throws std::system_error where the system gives no randomness.
    static UUID generate();

    /// The identifier with these bytes, in the order in which its text shows them.
    static UUID fromBytes(const Bytes& bytes);

    /// Reads the text form: hexadecimal digits of either case in groups of 8, 4, 4, 4 and 12 with hyphens
    /// between. Any version, and the nil identifier, are accepted; nothing for any other text.
    static boost::optional<UUID> fromString(boost::string_ref text);

    /// 36 characters: lower-case hexadecimal digits in groups of 8, 4, 4, 4 and 12 with hyphens between.
    std::string toString() const;

    Bytes getBytes() const;

    /// False for the nil identifier alone.
    constexpr explicit operator bool() const { return (_high | _low) != 0; }

    friend constexpr bool operator==(const UUID& a, const UUID& b)
    {
        return a._high == b._high && a._low == b._low;
    }
    friend constexpr bool operator!=(const UUID& a, const UUID& b) { return !(a == b); }
    friend constexpr bool operator<(const UUID& a, const UUID& b)
    {
        return a._high != b._high ? a._high < b._high : a._low < b._low;
    }
    friend constexpr bool operator>(const UUID& a, const UUID& b) { return b < a; }
    friend constexpr bool operator<=(const UUID& a, const UUID& b) { return !(b < a); }
    friend constexpr bool operator>=(const UUID& a, const UUID& b) { return !(a < b); }

    /// Found by boost::hash and the boost containers.
    friend constexpr std::size_t hash_value(const UUID& uuid)
    {
        return uuid._high ^ (uuid._low * 0x9e3779b97f4a7c15); // fixed identifiers may differ in few bits only
    }

private:
    std::uint64_t _high = 0;
    std::uint64_t _low = 0;
};

} // namespace QV

template <>
struct std::hash<QV::UUID>
{
    std::size_t operator()(const QV::UUID& uuid) const noexcept { return hash_value(uuid); }
};
