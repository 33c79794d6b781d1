// SPDX-License-Identifier: MIT
#include "reg/matrix_work.h"

#include "numeric/linear/matrix_algebra.h"
#include "reg/table/table_reader.h"

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <utility>

namespace kelvarin
{

namespace
{

message_box failure_box(const runtime_failure& failure)
{
    const std::string text = failure.detail().empty() ? std::string(failure.description()) : failure.detail();
    return {"Error during calculation. " + text, box_icon::critical};
}

bool is_square(const matrix& a)
{
    return a.rows() == a.columns();
}

/// Why an operation on these sizes can't be done.
std::optional<message_box> refusal_of(matrix_operation operation, const stored_matrices& matrices)
{
    const matrix& a = *matrices.a;
    const bool sums = operation == matrix_operation::add || operation == matrix_operation::subtract;
    if (sums && (a.rows() != matrices.b->rows() || a.columns() != matrices.b->columns()))
        return message_box{"Dimensions of matrix A and B are different.", box_icon::exclamation};
    if (operation == matrix_operation::multiply && matrices.b->rows() != a.columns())
        return message_box{"The numberof rows in matrix B are not equal to the number of columns in matrix A",
                           box_icon::exclamation};
    return std::nullopt;
}

void explore(matrix_outcome& outcome)
{
    const matrix& a = *outcome.matrices.a;
    outcome.rank = matrix_rank(a);
    outcome.has_report = true;
    const auto tell = [&](const char* text) { outcome.boxes.push_back({text, box_icon::exclamation}); };
    if (!is_square(a)) return tell("Number of rows is not equal to number of columns in A matrix.");
    outcome.trace = matrix_trace(a);
    outcome.determinant = matrix_determinant(a);
    if (!outcome.determinant) tell("Singular matrix.");
}

void invert(matrix_outcome& outcome)
{
    const matrix& a = *outcome.matrices.a;
    std::optional<matrix> inverse = is_square(a) ? matrix_inverted(a) : std::nullopt;
    if (!inverse)
        return outcome.refuse(
            {"Singular matrix or number of columns different than the number of rows.", box_icon::exclamation});
    outcome.c = std::move(*inverse);
    outcome.has_report = true;
}

matrix result_of(matrix_operation operation, const stored_matrices& matrices)
{
    const matrix& a = *matrices.a;
    switch (operation) {
    case matrix_operation::add:
        return matrix_add(a, *matrices.b);
    case matrix_operation::subtract:
        return matrix_subtract(a, *matrices.b);
    case matrix_operation::multiply:
        return matrix_product(a, *matrices.b);
    default:
        return matrix_transposed(a);
    }
}

void calculate(matrix_outcome& outcome)
{
    if (outcome.operation == matrix_operation::explore) return explore(outcome);
    if (outcome.operation == matrix_operation::inverse) return invert(outcome);
    if (std::optional<message_box> refused = refusal_of(outcome.operation, outcome.matrices))
        return outcome.refuse(std::move(*refused));
    outcome.c = result_of(outcome.operation, outcome.matrices);
    outcome.has_report = true;
}

} // namespace

std::string_view matrix_operation_name(matrix_operation operation)
{
    static constexpr std::array<std::string_view, 6> names = {"explore",  "add",       "subtract",
                                                              "multiply", "transpose", "inverse"};
    return names[static_cast<std::size_t>(operation)];
}

bool needs_matrix_b(matrix_operation operation)
{
    return operation == matrix_operation::add || operation == matrix_operation::subtract ||
           operation == matrix_operation::multiply;
}

cell_range range_between(int row, int column, int other_row, int other_column)
{
    return {std::min(row, other_row), std::min(column, other_column), std::abs(row - other_row) + 1,
            std::abs(column - other_column) + 1};
}

std::optional<message_box> store_selection_as_matrix(const table_content& content, const cell_range& selection,
                                                     std::optional<matrix>& stored)
{
    run_outcome reading;
    guard_run(reading, {failure_box, {}}, [&] {
        const table_reader table(content);
        matrix cells(selection.rows, selection.columns);
        for (int row = 0; row < selection.rows; ++row)
            for (int column = 0; column < selection.columns; ++column)
                cells(row, column) = table.prefix_value(selection.row + row, selection.column + column);
        stored = std::move(cells);
    });
    if (reading.boxes.empty()) return std::nullopt;
    return reading.boxes.front();
}

matrix_outcome run_matrix(matrix_operation operation, stored_matrices matrices)
{
    assert(matrices.allows(operation));
    matrix_outcome outcome;
    outcome.operation = operation;
    outcome.matrices = std::move(matrices);
    guard_run(outcome, {failure_box, {}}, [&] { calculate(outcome); });
    return outcome;
}

} // namespace kelvarin
