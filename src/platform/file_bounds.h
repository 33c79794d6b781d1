// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// What the text of a file may hold: far more than any file of its sort has, and little enough to be read at once.
struct file_bounds
{
    std::size_t megabytes = 16;
    std::size_t lines = 100'000;
};

/// Tables and graphs: lists of numbers.
inline constexpr file_bounds bounds_of_numbers = {.megabytes = 64};
/// Settings, units, constants.
inline constexpr file_bounds bounds_of_configuration = {.megabytes = 4};
inline constexpr file_bounds bounds_of_reports = {.megabytes = 64, .lines = 1'000'000};
/// What a file may have whose sort isn't known yet.
inline constexpr file_bounds widest_bounds = {.megabytes = 64, .lines = std::numeric_limits<std::size_t>::max()};

/// The reason why `text` is refused, "it is larger than 16 MB"; nullopt if it keeps within the bounds. Takes no memory
/// for the lines.
std::optional<std::string> excess_of(std::string_view text, const file_bounds& bounds);

} // namespace kelvarin
