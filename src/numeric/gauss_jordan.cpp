// SPDX-License-Identifier: MIT
#include "numeric/gauss_jordan.h"

#include "numeric/arithmetic_check.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

struct place
{
    int row = -1;
    int column = -1;
};

/// A row interchange brings each pivot to the diagonal, so that rows and columns are used in pairs and one
/// flag tells both.
using used_flags = std::vector<bool>;

/// The largest absolute element among unused rows and columns, the last of equals in row-major order.
place largest_unused(const matrix& a, const used_flags& used)
{
    place found;
    double largest = 0.0;
    for (int row = 0; row < a.rows(); ++row) {
        if (used[static_cast<std::size_t>(row)]) continue;
        for (int column = 0; column < a.columns(); ++column) {
            if (used[static_cast<std::size_t>(column)] || !(std::fabs(a(row, column)) >= largest)) continue;
            largest = std::fabs(a(row, column));
            found = {row, column};
        }
    }
    // Nothing compares as larger only where all that is left is not a number.
    if (found.row < 0) throw runtime_failure(failure_number::overflow);
    finite(largest);
    return found;
}

void interchange_rows(matrix& a, std::span<double> b, int one, int other)
{
    if (one == other) return;
    std::ranges::swap_ranges(a.row(one), a.row(other));
    std::swap(b[static_cast<std::size_t>(one)], b[static_cast<std::size_t>(other)]);
}

/// Divides the pivot's row by the pivot, which stands on the diagonal; its own place takes the element of
/// the inverse.
void divide_pivot_row(matrix& a, std::span<double> b, int pivot)
{
    const double value = std::exchange(a(pivot, pivot), 1.0);
    for (double& element : a.row(pivot))
        element /= value;
    b[static_cast<std::size_t>(pivot)] /= value;
}

/// Subtracts the pivot's row from all others, so that its column vanishes there and makes room for the
/// inverse.
void reduce_other_rows(matrix& a, std::span<double> b, int pivot)
{
    const std::span<const double> pivot_row = a.row(pivot);
    for (int row = 0; row < a.rows(); ++row) {
        if (row == pivot) continue;
        const double multiplier = std::exchange(a(row, pivot), 0.0);
        const std::span<double> reduced = a.row(row);
        for (std::size_t k = 0; k < reduced.size(); ++k)
            reduced[k] -= pivot_row[k] * multiplier;
        b[static_cast<std::size_t>(row)] -= b[static_cast<std::size_t>(pivot)] * multiplier;
    }
}

/// The inverse of the matrix whose rows were interchanged is the inverse with its columns interchanged in
/// the same way: undone in reverse order.
void undo_interchanges(matrix& a, const std::vector<place>& pivots)
{
    for (auto pivot = pivots.rbegin(); pivot != pivots.rend(); ++pivot) {
        if (pivot->row == pivot->column) continue;
        for (int row = 0; row < a.rows(); ++row)
            std::swap(a(row, pivot->row), a(row, pivot->column));
    }
}

/// Whether a zero carries a sign depends on multipliers of zero being skipped or not: zeros end unsigned.
void drop_signs_of_zeros(std::span<double> values)
{
    for (double& value : values)
        value += 0.0;
}

/// row[k] -= multiplier * pivot_row[k] for the first `count` elements; returns the largest absolute value
/// among them. Four lanes side by side, so that the loop becomes vector instructions, twice as wide where
/// the processor has them; each element sees the same two operations either way.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && !defined(__SANITIZE_ADDRESS__)
[[gnu::target_clones("avx2", "default")]]
#endif
double
subtract_multiple(double* __restrict__ row, const double* __restrict__ pivot_row, double multiplier, int count)
{
    constexpr int lanes = 4;
    double largest[lanes] = {};
    int k = 0;
    for (; k + lanes <= count; k += lanes)
        for (int lane = 0; lane < lanes; ++lane) {
            const double value = row[k + lane] - pivot_row[k + lane] * multiplier;
            row[k + lane] = value;
            const double magnitude = std::fabs(value);
            largest[lane] = magnitude > largest[lane] ? magnitude : largest[lane];
        }
    for (; k < count; ++k) {
        row[k] -= pivot_row[k] * multiplier;
        largest[0] = std::max(largest[0], std::fabs(row[k]));
    }
    return std::ranges::max(largest);
}

/// The elimination of gauss_jordan_solve. Rows are held by reference in the order that the interchanges
/// give them. The columns not yet used lie side by side at the front of every row, in an order of their
/// own: a used one gives its place to the last.
class lean_elimination
{
public:
    lean_elimination(matrix& a, std::span<double> b)
        : b_(b), used_(b.size(), false), largest_(b.size()), original_(b.size()), active_(a.rows())
    {
        for (int row = 0; row < a.rows(); ++row) {
            rows_.push_back(a.row(row).data());
            original_[index(row)] = row;
            for (const double element : a.row(row))
                largest_[index(row)] = std::max(largest_[index(row)], std::fabs(element));
        }
    }

    elimination_status run()
    {
        while (active_ > 0) {
            const int row = pivot_row();
            if (largest_[index(row)] == 0.0) return elimination_status::singular;
            use(row, pivot_position(row));
        }
        return elimination_status::done;
    }

private:
    static std::size_t index(int i) { return static_cast<std::size_t>(i); }

    /// The last unused row that holds the largest element.
    int pivot_row() const
    {
        int found = -1;
        double largest = 0.0;
        for (int row = 0; row < static_cast<int>(rows_.size()); ++row) {
            if (used_[index(row)] || !(largest_[index(row)] >= largest)) continue;
            largest = largest_[index(row)];
            found = row;
        }
        finite(largest);
        return found;
    }

    /// Where in the row its largest element stands; among equals the one of the last original column.
    int pivot_position(int row) const
    {
        int found = -1;
        for (int position = 0; position < active_; ++position) {
            if (std::fabs(rows_[index(row)][position]) != largest_[index(row)]) continue;
            if (found < 0 || original_[index(position)] > original_[index(found)]) found = position;
        }
        assert(found >= 0);
        return found;
    }

    /// Eliminates the column at `position` with the pivot in `row`.
    void use(int row, int position)
    {
        const int diagonal = original_[index(position)];
        interchange(row, diagonal);
        --active_;
        original_[index(position)] = original_[index(active_)];

        double* const pivot_row = rows_[index(diagonal)];
        const double pivot = take(pivot_row, position);
        for (int k = 0; k < active_; ++k)
            pivot_row[k] /= pivot;
        b_[index(diagonal)] /= pivot;
        used_[index(diagonal)] = true;

        for (int other = 0; other < static_cast<int>(rows_.size()); ++other)
            if (other != diagonal) reduce(other, diagonal, take(rows_[index(other)], position));
    }

    void interchange(int one, int other)
    {
        std::swap(rows_[index(one)], rows_[index(other)]);
        std::swap(largest_[index(one)], largest_[index(other)]);
        std::swap(b_[index(one)], b_[index(other)]);
    }

    /// Takes the element at `position` out of the row; the last one that is still active moves there.
    double take(double* row, int position) const { return std::exchange(row[position], row[active_]); }

    /// A row whose multiplier is 0 keeps its elements, and so its largest.
    void reduce(int row, int diagonal, double multiplier)
    {
        if (multiplier == 0.0) return;
        largest_[index(row)] = subtract_multiple(rows_[index(row)], rows_[index(diagonal)], multiplier, active_);
        b_[index(row)] -= b_[index(diagonal)] * multiplier;
    }

    std::span<double> b_;
    std::vector<double*> rows_;
    used_flags used_;
    /// By row: the largest absolute element among the unused columns.
    std::vector<double> largest_;
    /// By position: the number that the column had at the start.
    std::vector<int> original_;
    /// How many columns are not yet used.
    int active_;
};

} // namespace

elimination_status gauss_jordan_inverse(matrix& a, std::span<double> b)
{
    assert(a.rows() == a.columns() && static_cast<int>(b.size()) == a.rows());
    used_flags used(b.size(), false);
    std::vector<place> pivots;
    elimination_status status = elimination_status::done;
    for (int step = 0; step < a.rows(); ++step) {
        const place pivot = largest_unused(a, used);
        if (a(pivot.row, pivot.column) == 0.0) {
            status = elimination_status::singular;
            break;
        }
        interchange_rows(a, b, pivot.row, pivot.column);
        used[static_cast<std::size_t>(pivot.column)] = true;
        divide_pivot_row(a, b, pivot.column);
        reduce_other_rows(a, b, pivot.column);
        pivots.push_back(pivot);
    }
    if (status == elimination_status::done) undo_interchanges(a, pivots);
    drop_signs_of_zeros(b);
    require_finite(a.values());
    require_finite(b);
    return status;
}

elimination_status gauss_jordan_solve(matrix& a, std::span<double> b)
{
    assert(a.rows() == a.columns() && static_cast<int>(b.size()) == a.rows());
    const elimination_status status = lean_elimination(a, b).run();
    drop_signs_of_zeros(b);
    require_finite(b);
    return status;
}

} // namespace kelvarin
