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

/// Elements that are worked on side by side, so that the loops over them become vector instructions.
constexpr int lanes = 4;

int whole_lanes(int count)
{
    return (count + lanes - 1) / lanes * lanes;
}

/// One step of the lean elimination over the first `count` elements, whole lanes, of all rows: the pivot's
/// row is divided by the pivot, and its multiple subtracted from each row that has a multiplier. Where
/// `largest` is not negative it becomes the largest absolute value of the changed row. Wider instructions,
/// where the processor has them, change no bit: each element sees the same two operations.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && !defined(__SANITIZE_ADDRESS__)
[[gnu::target_clones("avx2", "default")]]
#endif
void reduce_rows(double* __restrict__ pivot_row, double pivot, std::span<double* const> rows,
                 std::span<const double> multipliers, std::span<double> largest, int count)
{
    for (int k = 0; k < count; k += lanes)
        for (int lane = 0; lane < lanes; ++lane)
            pivot_row[k + lane] /= pivot;
    for (std::size_t r = 0; r < rows.size(); ++r) {
        const double multiplier = multipliers[r];
        if (multiplier == 0.0) continue;
        double* __restrict__ const row = rows[r];
        double maxima[lanes] = {};
        for (int k = 0; k < count; k += lanes)
            for (int lane = 0; lane < lanes; ++lane) {
                const double value = row[k + lane] - pivot_row[k + lane] * multiplier;
                row[k + lane] = value;
                const double magnitude = std::fabs(value);
                maxima[lane] = magnitude > maxima[lane] ? magnitude : maxima[lane];
            }
        if (largest[r] >= 0.0) largest[r] = std::ranges::max(maxima);
    }
}

/// The elimination of gauss_jordan_solve. Rows are held by reference, in the order that the interchanges
/// give them. The columns not yet used lie side by side at the front of every row, in an order of their
/// own: a used one gives its place to the last. Behind them is nothing but zeros, up to whole lanes.
class lean_elimination
{
public:
    lean_elimination(const matrix& a, std::span<double> b)
        : b_(b), elements_(b.size() * index(whole_lanes(a.columns()))), largest_(b.size()), original_(b.size()),
          multipliers_(b.size()), active_(a.columns())
    {
        for (int row = 0; row < a.rows(); ++row) {
            rows_.push_back(elements_.data() + index(row) * index(whole_lanes(a.columns())));
            std::ranges::copy(a.row(row), rows_.back());
            for (const double element : a.row(row))
                largest_[index(row)] = std::max(largest_[index(row)], std::fabs(element));
            original_[index(row)] = row;
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

    /// The last row that holds the largest element; used ones hold a negative one.
    int pivot_row() const
    {
        double largest = -1.0;
        for (const double candidate : largest_)
            largest = candidate > largest ? candidate : largest;
        finite(largest);
        return static_cast<int>(std::find(largest_.rbegin(), largest_.rend(), largest).base() - largest_.begin()) - 1;
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
        for (std::size_t r = 0; r < rows_.size(); ++r)
            multipliers_[r] = take(rows_[r], position);

        const double pivot = std::exchange(multipliers_[index(diagonal)], 0.0);
        largest_[index(diagonal)] = -1.0;
        reduce_rows(rows_[index(diagonal)], pivot, rows_, multipliers_, largest_, whole_lanes(active_));
        const double quotient = b_[index(diagonal)] /= pivot;
        for (std::size_t r = 0; r < rows_.size(); ++r)
            if (multipliers_[r] != 0.0) b_[r] -= quotient * multipliers_[r];
    }

    void interchange(int one, int other)
    {
        std::swap(rows_[index(one)], rows_[index(other)]);
        std::swap(largest_[index(one)], largest_[index(other)]);
        std::swap(b_[index(one)], b_[index(other)]);
    }

    /// Takes the element at `position` out of the row; the last active one moves there and leaves a zero.
    double take(double* row, int position) const
    {
        const double last = std::exchange(row[active_], 0.0);
        return position == active_ ? last : std::exchange(row[position], last);
    }

    std::span<double> b_;
    std::vector<double> elements_;
    std::vector<double*> rows_;
    /// By row: the largest absolute element among the unused columns, -1 where the row is used.
    std::vector<double> largest_;
    /// By position: the number that the column had at the start.
    std::vector<int> original_;
    std::vector<double> multipliers_;
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

elimination_status gauss_jordan_solve(const matrix& a, std::span<double> b)
{
    assert(a.rows() == a.columns() && static_cast<int>(b.size()) == a.rows());
    const elimination_status status = lean_elimination(a, b).run();
    drop_signs_of_zeros(b);
    require_finite(b);
    return status;
}

} // namespace kelvarin
