// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace kelvarin
{

/// The elements of a matrix that may differ from zero, row by row with ascending columns.
struct sparsity_pattern
{
    /// The columns of all rows, one row behind the other.
    std::vector<std::uint32_t> columns;
    /// For each row the end of its part of `columns`.
    std::vector<std::uint32_t> row_ends;

    std::span<const std::uint32_t> columns_of(int row) const
    {
        const std::uint32_t first = row == 0 ? 0 : row_ends[static_cast<std::size_t>(row) - 1];
        return std::span(columns).subspan(first, row_ends[static_cast<std::size_t>(row)] - first);
    }
};

} // namespace kelvarin
