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

/// The name that an unknown has until it is given one: "x1" for column 0.
std::string default_leq_name(int column);

/// What a problem of linear equations holds: a plain value. Rows and columns count from 0; column n, behind
/// those of the n unknowns, is beta.
struct leq_content
{
    /// Without blanks around it.
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

/// A cell with which a problem can not be solved, and the box that says so.
struct leq_fault
{
    leq_cell cell;
    message_box box;
};

/// The first cell, by rows, that is empty or no number as a whole. `edited`, the cell that is being typed in,
/// passes whatever it holds.
std::optional<leq_fault> first_leq_fault(const leq_content& content, std::optional<leq_cell> edited = std::nullopt);

/// Whether every cell is numeric, with the same exception.
bool ok_to_run(const leq_content& content, std::optional<leq_cell> edited = std::nullopt);

/// The problem with another number of equations (2 to 64): what fits is kept, beta as beta.
leq_content with_count(const leq_content& content, int count);

int count_empty_cells(const leq_content& content);
/// The problem with 0 in its empty cells.
leq_content with_zeros(leq_content content);

} // namespace kelvarin
