// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace kelvarin
{

/// The places in which the elements of a matrix may differ from zero, row by row and in ascending order.
struct sparse_places
{
    /// Of all rows one behind the other.
    std::vector<std::uint32_t> columns;
    /// Where those of each row end.
    std::vector<std::uint32_t> row_ends;

    std::span<const std::uint32_t> columns_of(int row) const
    {
        const std::uint32_t first = row == 0 ? 0 : row_ends[static_cast<std::size_t>(row) - 1];
        return std::span(columns).subspan(first, row_ends[static_cast<std::size_t>(row)] - first);
    }
};

} // namespace kelvarin
