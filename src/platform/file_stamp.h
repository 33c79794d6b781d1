// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace kelvarin
{

/// What changes when a file is written by anybody: which file stands under a name, its size, and when it was written.
struct file_stamp
{
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    std::int64_t size = 0;
    /// In nanoseconds since 1970-01-01 UTC.
    std::int64_t written_at = 0;

    friend bool operator==(const file_stamp&, const file_stamp&) = default;
};

/// The stamp of a file, following links; nullopt if there is none.
std::optional<file_stamp> stamp_of(const std::filesystem::path& path);

} // namespace kelvarin
