// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"
#include "platform/clock.h"
#include "reg/table/table_content.h"
#include "shell/document/cell_block.h"
#include "shell/document/run_outcome.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

/// Calculations with rectangles of a table's cells as matrices. Nothing is written back to the table.
namespace kelvarin
{

enum class matrix_operation
{
    explore,
    add,
    subtract,
    multiply,
    transpose,
    inverse
};

/// In the order of the menu.
inline constexpr std::array<matrix_operation, 6> matrix_operations = {
    matrix_operation::explore,  matrix_operation::add,       matrix_operation::subtract,
    matrix_operation::multiply, matrix_operation::transpose, matrix_operation::inverse};

/// "explore" and so on.
std::string_view matrix_operation_name(matrix_operation operation);
bool needs_matrix_b(matrix_operation operation);

/// Two selections as they were when they were stored.
struct stored_matrices
{
    std::optional<matrix> a;
    std::optional<matrix> b;

    /// Whether all that the operation needs is stored.
    bool allows(matrix_operation operation) const { return a && (b || !needs_matrix_b(operation)); }
};

/// The range between two corners, given in any order.
cell_range range_between(int row, int column, int other_row, int other_column);

/// Stores the numbers that the cells of a selection begin with, 0 where there is none. Returns a box, and stores
/// nothing, if a number is too large.
std::optional<message_box> store_selection_as_matrix(const table_content& content, const cell_range& selection,
                                                     std::optional<matrix>& stored);

struct matrix_outcome : run_outcome
{
    matrix_operation operation = matrix_operation::explore;
    stored_matrices matrices;
    /// The result; of no size for explore.
    matrix c;
    /// What explore finds; absent if it was not calculated.
    int rank = 0;
    std::optional<double> trace;
    std::optional<double> determinant;
};

/// The matrices must allow the operation. A box stands beside the report where A can be explored only in part, in its
/// place where an operation can't be done. Never throws.
matrix_outcome run_matrix(matrix_operation operation, stored_matrices matrices);

inline constexpr std::string_view matrix_report_title = "Matrix Calculations";

/// The report in rich text. `title` is that of the table.
std::string matrix_report(std::string_view title, const matrix_outcome& outcome, calendar_date date);

} // namespace kelvarin
