#pragma once

#include <cstdint>

namespace QV::Filters {

/// What one package may cost its reader. Everything is counted on bytes that were really inflated; no number
/// that a file declares about itself is believed.
///
/// | Limit            | Default | Why                                                                     |
/// |------------------|---------|-------------------------------------------------------------------------|
/// | `entries`        | 10,000  | documents of real life have hundreds                                    |
/// | `unpackedBytes`  | 4 GiB   | all parts together                                                      |
/// | `partBytes`      | 1 GiB   | one part                                                                |
/// | `inflatedBytes`  | 16 GiB  | work: every byte inflated, those of repeated reads included             |
/// | `treeBytes`      | 64 MiB  | one part that is read as a tree, which takes some 40 times its size     |
/// | `ratio`          | 100     | honest XML stays below; deflate reaches 1,000 on purpose-made input     |
/// | `ratioFreeBytes` | 64 MiB  | small repetitive parts pass the ratio honestly, and cost nothing        |
/// | `streamBytes`    | 1 GiB   | a package from a stream, such as standard input, is held in memory      |
///
/// A limit is the last value that passes.
struct PackageLimits
{
    std::uint64_t entries = 10'000;
    std::uint64_t unpackedBytes = std::uint64_t{4} << 30;
    std::uint64_t partBytes = std::uint64_t{1} << 30;
    std::uint64_t inflatedBytes = std::uint64_t{16} << 30;

    std::uint64_t treeBytes = std::uint64_t{64} << 20;

    /// Unpacked bytes for each packed byte, of one part and of all parts read so far together.
    std::uint64_t ratio = 100;

    /// The ratio is looked at only where more bytes than these were unpacked.
    std::uint64_t ratioFreeBytes = std::uint64_t{64} << 20;

    /// What a stream may hold that a package is read from.
    std::uint64_t streamBytes = std::uint64_t{1} << 30;
};

} // namespace QV::Filters
