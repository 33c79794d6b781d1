// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"
#include "shell/document/cell_columns.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

inline constexpr int least_leq_count = 2;
inline constexpr int largest_leq_count = 64;
/// The number of equations of a new problem.
inline constexpr int first_leq_count = 3;

/// The default name of an unknown: "x1" for column 0.
std::string default_leq_name(int column);

/// The content of a problem of linear equations: a plain value. Rows and columns count from 0; column n, after those of
/// the n unknowns, is beta.
struct leq_content
{
    /// Trimmed.
    std::string title;
    /// One for each unknown.
    std::vector<std::string> names;
    /// A column for each unknown, and beta.
    cell_columns cells;

    /// Empty cells and default names.
    explicit leq_content(int count = first_leq_count);

    int count() const { return static_cast<int>(names.size()); }
    const std::string& cell(int row, int column) const { return cells.cell(row, column); }

    friend bool operator==(const leq_content&, const leq_content&) = default;
};

struct leq_cell
{
    int row = 0;
    int column = 0;

    friend bool operator==(const leq_cell&, const leq_cell&) = default;
};

/// A cell that prevents solving, and the box that says so.
struct leq_fault
{
    leq_cell cell;
    message_box box;
};

/// The first cell, row by row, that is empty or not a number as a whole. `edited`, the cell that is being typed in, may
/// hold anything. Returns nullopt if all cells are numeric.
std::optional<leq_fault> first_leq_fault(const leq_content& content, std::optional<leq_cell> edited = std::nullopt);

/// Whether every cell is numeric, except `edited`.
bool ok_to_run(const leq_content& content, std::optional<leq_cell> edited = std::nullopt);

/// The problem with another number of equations (2 to 64); cells and names that fit are kept, and beta stays beta.
leq_content with_count(const leq_content& content, int count);

int count_empty_cells(const leq_content& content);
/// The problem with 0 in its empty cells.
leq_content with_zeros(leq_content content);

} // namespace kelvarin
