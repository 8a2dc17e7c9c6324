#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include <zip.h>

namespace QV::Tests {

/// One item of an archive in the making.
struct ZipItem
{
    std::string name;
    std::string content;
    bool isStored = false;
    std::string password = {}; // encrypts the item (the traditional way) where it is not empty
};

/// Packs items in memory.
inline std::string makeZip(const std::vector<ZipItem>& items)
{
    const auto require = [](bool isDone) {
        if (!isDone)
            throw std::runtime_error("the archive of a test cannot be made");
    };
    zip_source_t* const target = zip_source_buffer_create(nullptr, 0, 0, nullptr);
    require(target != nullptr);
    zip_source_keep(target);
    zip_t* const zip = zip_open_from_source(target, ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    require(zip != nullptr);
    for (const ZipItem& item : items) {
        zip_source_t* const source = zip_source_buffer(zip, item.content.data(), item.content.size(), 0);
        const zip_int64_t index = zip_file_add(zip, item.name.c_str(), source, ZIP_FL_ENC_GUESS);
        require(index >= 0);
        const auto place = static_cast<zip_uint64_t>(index);
        require(zip_set_file_compression(zip, place, item.isStored ? ZIP_CM_STORE : ZIP_CM_DEFLATE, 0) == 0);
        require(zip_file_set_dostime(zip, place, 0, 0x21, 0) == 0); // the same bytes at any time of day
        if (!item.password.empty())
            require(zip_file_set_encryption(zip, place, ZIP_EM_TRAD_PKWARE, item.password.c_str()) == 0);
    }
    require(zip_close(zip) == 0);
    require(zip_source_open(target) == 0);
    zip_stat_t status;
    zip_stat_init(&status);
    require(zip_source_stat(target, &status) == 0);
    std::string bytes(static_cast<std::size_t>(status.size), '\0');
    require(zip_source_read(target, &bytes[0], bytes.size()) == static_cast<zip_int64_t>(bytes.size()));
    zip_source_close(target);
    zip_source_free(target);
    return bytes;
}

/// Replaces every @p from by the text @p to of the same size: how an archive is made to tell a lie that no
/// packer tells.
inline std::string replaceBytes(std::string bytes, const std::string& from, const std::string& to)
{
    std::size_t place = bytes.find(from);
    if (place == std::string::npos || from.size() != to.size())
        throw std::runtime_error("nothing to replace in the archive of a test");
    for (; place != std::string::npos; place = bytes.find(from, place + to.size()))
        bytes.replace(place, from.size(), to);
    return bytes;
}

/// @p count low bytes of a number, the lowest first, as archives write numbers.
inline std::string makeLittleEndian(std::uint64_t number, std::size_t count)
{
    std::string bytes;
    for (std::size_t i = 0; i < count; ++i, number >>= 8U)
        bytes += static_cast<char>(number & 0xFFU);
    return bytes;
}

} // namespace QV::Tests
