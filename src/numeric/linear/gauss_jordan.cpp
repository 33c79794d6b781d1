// SPDX-License-Identifier: MIT
#include "numeric/linear/gauss_jordan.h"

#include "numeric/arithmetic_check.h"
#include "numeric/linear/small_elimination.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

using place = inversion_workspace::place;

/// A row interchange brings each pivot to the diagonal, so that rows and columns are used in pairs and one
/// flag covers both.
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
    for (std::size_t step = pivots.size(); step-- > 0;) {
        const place pivot = pivots[step];
        if (pivot.row == pivot.column) continue;
        for (int row = 0; row < a.rows(); ++row)
            std::swap(a(row, pivot.row), a(row, pivot.column));
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

/// A row from which a multiple of the pivot's row is subtracted.
struct reduced_row
{
    double* elements = nullptr;
    double multiplier = 0.0;
    /// The largest absolute element, kept up to date; negative, and left so, where the row is used.
    double* largest = nullptr;
    int number = 0;
};

/// One step of the lean elimination over the first `count` elements, whole lanes: the pivot's row is
/// divided by the pivot, and its multiples subtracted from the other rows. Wider instructions, where the
/// processor has them, change no bit: each element sees the same two operations.
#ifdef KELVARIN_PROCESSOR_CLONES
[[gnu::target_clones("avx2", "default")]]
#endif
void reduce_rows(double* __restrict__ pivot_row, double pivot, std::span<const reduced_row> rows, int count)
{
    for (int k = 0; k < count; k += lanes)
        for (int lane = 0; lane < lanes; ++lane)
            pivot_row[k + lane] /= pivot;
    for (const reduced_row& reduced : rows) {
        const double multiplier = reduced.multiplier;
        double* __restrict__ const row = reduced.elements;
        double maxima[lanes] = {};
        for (int k = 0; k < count; k += lanes)
            for (int lane = 0; lane < lanes; ++lane) {
                const double value = row[k + lane] - pivot_row[k + lane] * multiplier;
                row[k + lane] = value;
                const double magnitude = std::fabs(value);
                maxima[lane] = magnitude > maxima[lane] ? magnitude : maxima[lane];
            }
        if (*reduced.largest >= 0.0) *reduced.largest = std::ranges::max(maxima);
    }
}

/// Sets of small numbers, one behind the other, as words of bits.
class number_sets
{
public:
    /// Makes `sets` empty sets of numbers below `numbers`.
    void start(std::size_t sets, std::size_t numbers)
    {
        words_ = (numbers + 63) / 64;
        bits_.assign(sets * words_, 0);
    }

    std::size_t words() const { return words_; }
    std::uint64_t* of(int set) { return bits_.data() + static_cast<std::size_t>(set) * words_; }
    const std::uint64_t* of(int set) const { return bits_.data() + static_cast<std::size_t>(set) * words_; }
    void fill(int set, std::size_t numbers)
    {
        for (std::size_t n = 0; n < numbers; n += 64)
            of(set)[n / 64] = numbers - n >= 64 ? ~std::uint64_t{0} : (std::uint64_t{1} << (numbers - n)) - 1;
    }
    void remove(int set, int number) { of(set)[number / 64] &= ~(std::uint64_t{1} << (number % 64)); }
    void insert(int set, int number) { of(set)[number / 64] |= std::uint64_t{1} << (number % 64); }

private:
    std::size_t words_ = 0;
    std::vector<std::uint64_t> bits_;
};

/// Calls `visit` with the number of each bit of a word.
template <class Visit> void for_each_bit(std::uint64_t word, std::size_t word_number, Visit visit)
{
    for (; word != 0; word &= word - 1)
        visit(static_cast<int>(word_number * 64) + std::countr_zero(word));
}

/// The largest of whole lanes of values, none below -1.
double largest_of(std::span<const double> values)
{
    double maxima[lanes] = {-1.0, -1.0, -1.0, -1.0};
    for (std::size_t k = 0; k < values.size(); k += lanes)
        for (std::size_t lane = 0; lane < lanes; ++lane)
            maxima[lane] = values[k + lane] > maxima[lane] ? values[k + lane] : maxima[lane];
    return std::ranges::max(maxima);
}

} // namespace

/// The elimination of gauss_jordan_solve. Rows are stored where they stood at the start, and `stored_` tells
/// where a row is after the interchanges. The columns not yet used lie side by side at the front of every
/// row, in an order of their own: a used one gives its place to the last. Behind them is nothing but zeros,
/// up to whole lanes. For each stored row is known in which columns it may differ from zero, and the other
/// way round, so that a sparse matrix costs what is in it.
class elimination_workspace::lean_elimination
{
public:
    /// Throws runtime_failure 6 where a pivot or an element of the solution is not finite.
    elimination_status solve(const matrix& a, std::span<double> b, const sparsity_pattern* pattern)
    {
        start(a, b);
        if (pattern != nullptr)
            take_pattern(a, *pattern);
        else
            take_everything(a);
        const elimination_status status = run();
        require_finite(b);
        left_zeros_ = status == elimination_status::done;
        return status;
    }

private:
    void start(const matrix& a, std::span<double> b)
    {
        const std::size_t n = b.size();
        b_ = b;
        active_ = a.columns();
        width_ = whole_lanes(a.columns());
        largest_.assign(index(whole_lanes(a.rows())), -1.0);
        for (std::vector<int>* each : {&stored_, &row_of_, &original_, &position_})
            each->resize(n);
        unused_.start(1, n);
        unused_.fill(0, n);
        columns_of_row_.start(n, n);
        rows_of_column_.start(n, n);
        for (std::vector<int>* each : {&stored_, &row_of_, &original_, &position_})
            std::iota(each->begin(), each->end(), 0);
        full_ = false;
    }

    /// The elements outside of the pattern are zero. A finished elimination leaves nothing but zeros, among
    /// which the next one puts its elements.
    void take_pattern(const matrix& a, const sparsity_pattern& pattern)
    {
        const std::size_t size = b_.size() * index(width_);
        if (!std::exchange(left_zeros_, false) || elements_.size() != size) elements_.assign(size, 0.0);
        for (int row = 0; row < a.rows(); ++row) {
            const std::span<const double> given = a.row(row);
            double* const taken = elements(row);
            double largest = 0.0;
            for (const std::uint32_t column : pattern.columns_of(row)) {
                const double value = taken[column] = given[column];
                if (value == 0.0) continue;
                largest = std::fabs(value) > largest ? std::fabs(value) : largest;
                columns_of_row_.insert(row, static_cast<int>(column));
                rows_of_column_.insert(static_cast<int>(column), row);
            }
            largest_[index(row)] = largest;
        }
    }

    void take_everything(const matrix& a)
    {
        left_zeros_ = false;
        elements_.resize(b_.size() * index(width_));
        int filled = 0;
        for (int row = 0; row < a.rows(); ++row) {
            std::copy_n(a.row(row).data(), a.columns(), elements(row));
            std::fill(elements(row) + a.columns(), elements(row) + width_, 0.0);
            filled += measure(row);
        }
        constexpr int sparse_part = 2;
        constexpr int worth_marking = 24;
        if (a.rows() < worth_marking || filled * sparse_part > a.rows() * a.columns()) {
            mark_everything();
            return;
        }
        for (int row = 0; row < a.rows(); ++row)
            mark(row);
    }

    elimination_status run()
    {
        while (active_ > 0) {
            const int row = pivot_row();
            if (largest_[index(row)] == 0.0) return elimination_status::singular;
            use(row, pivot_column(row));
        }
        return elimination_status::done;
    }

    static std::size_t index(int i) { return static_cast<std::size_t>(i); }
    double* elements(int stored) { return elements_.data() + index(stored) * index(width_); }

    static bool is_zero(const double* four)
    {
        return four[0] == 0.0 && four[1] == 0.0 && four[2] == 0.0 && four[3] == 0.0;
    }

    /// Finds the largest element of a row; gives about the number of those that are not zero.
    int measure(int row)
    {
        const double* values = elements(row);
        double maxima[lanes] = {};
        int filled = 0;
        for (int k = 0; k < width_; k += lanes) {
            if (is_zero(values + k)) continue;
            filled += lanes;
            for (int lane = 0; lane < lanes; ++lane) {
                const double magnitude = std::fabs(values[k + lane]);
                maxima[lane] = magnitude > maxima[lane] ? magnitude : maxima[lane];
            }
        }
        largest_[index(row)] = std::ranges::max(maxima);
        return filled;
    }

    /// Marks where a row differs from zero.
    void mark(int row)
    {
        const double* values = elements(row);
        for (int k = 0; k < width_; k += lanes) {
            if (is_zero(values + k)) continue;
            for (int column = k; column < k + lanes; ++column) {
                if (values[column] == 0.0) continue;
                columns_of_row_.insert(row, column);
                rows_of_column_.insert(column, row);
            }
        }
    }

    /// A full or small matrix is not worth the marks: everything may differ from zero.
    void mark_everything()
    {
        full_ = true;
        for (int i = 0; i < static_cast<int>(b_.size()); ++i) {
            columns_of_row_.fill(i, b_.size());
            rows_of_column_.fill(i, b_.size());
        }
    }

    /// The last row that holds the largest element; used ones hold a negative one.
    int pivot_row() const
    {
        const double largest = largest_of(largest_);
        finite(largest);
        return static_cast<int>(std::find(largest_.rbegin(), largest_.rend(), largest).base() - largest_.begin()) - 1;
    }

    /// The column of the row's largest element; among equals the last one.
    int pivot_column(int row)
    {
        const double* values = elements(stored_[index(row)]);
        const std::uint64_t* columns = columns_of_row_.of(stored_[index(row)]);
        for (std::size_t w = columns_of_row_.words(); w-- > 0;)
            for (std::uint64_t word = columns[w]; word != 0;) {
                const int bit = 63 - std::countl_zero(word);
                const int column = static_cast<int>(w * 64) + bit;
                const int position = position_[index(column)];
                if (position >= 0 && std::fabs(values[position]) == largest_[index(row)]) return column;
                word &= ~(std::uint64_t{1} << bit);
            }
        assert(false);
        return -1;
    }

    /// Eliminates the column with the pivot in `row`.
    void use(int row, int column)
    {
        interchange(row, column);
        --active_;
        const int last = original_[index(active_)];
        const int position = std::exchange(position_[index(column)], -1);
        unused_.remove(0, column);
        if (last != column) {
            original_[index(position)] = last;
            position_[index(last)] = position;
        }
        const int pivot_store = stored_[index(column)];
        const double pivot = take(elements(pivot_store), position);
        collect_reduced_rows(pivot_store, column, last, position);
        largest_[index(column)] = -1.0;
        reduce_rows(elements(pivot_store), pivot, reduced_, whole_lanes(active_));
        const double quotient = b_[index(column)] /= pivot;
        for (const reduced_row& reduced : reduced_)
            b_[index(reduced.number)] -= quotient * reduced.multiplier;
    }

    /// Takes the column at `position` out of all rows but the pivot's and keeps those in which it is not
    /// zero. Rows that hold neither it nor the last column, which moves to its place, stay as they are.
    void collect_reduced_rows(int pivot_store, int column, int last, int position)
    {
        reduced_.clear();
        for (std::size_t w = 0; w < rows_of_column_.words(); ++w) {
            const std::uint64_t either = rows_of_column_.of(column)[w] | rows_of_column_.of(last)[w];
            for_each_bit(either, w, [&](int stored) {
                if (stored == pivot_store) return;
                const double multiplier = take(elements(stored), position);
                if (multiplier == 0.0) return;
                const int row = row_of_[index(stored)];
                reduced_.push_back({elements(stored), multiplier, &largest_[index(row)], row});
                if (!full_) add_columns(stored, pivot_store);
            });
        }
    }

    /// A row that changes may differ from zero in the unused columns wherever the pivot's row does.
    void add_columns(int stored, int pivot_store)
    {
        std::uint64_t* columns = columns_of_row_.of(stored);
        const std::uint64_t* added = columns_of_row_.of(pivot_store);
        for (std::size_t w = 0; w < columns_of_row_.words(); ++w) {
            const std::uint64_t made = added[w] & unused_.of(0)[w] & ~columns[w];
            for_each_bit(made, w, [&](int column) { rows_of_column_.insert(column, stored); });
            columns[w] |= made;
        }
    }

    void interchange(int one, int other)
    {
        if (one == other) return;
        std::swap(stored_[index(one)], stored_[index(other)]);
        row_of_[index(stored_[index(one)])] = one;
        row_of_[index(stored_[index(other)])] = other;
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
    int width_ = 0;
    std::vector<double> elements_;
    /// By row: the largest absolute element among the unused columns, -1 where the row is used and behind
    /// the last row.
    std::vector<double> largest_;
    /// Where each row is stored, and which row is stored there.
    std::vector<int> stored_;
    std::vector<int> row_of_;
    /// By position: the number that the column had at the start; and the other way round, -1 for used ones.
    std::vector<int> original_;
    std::vector<int> position_;
    number_sets unused_;
    number_sets columns_of_row_;
    number_sets rows_of_column_;
    bool full_ = false;
    /// All elements are zero, as the last elimination left them.
    bool left_zeros_ = false;
    /// Those of the present step.
    std::vector<reduced_row> reduced_;
    /// How many columns are not yet used.
    int active_ = 0;
};

elimination_workspace::elimination_workspace()
    : kept_(std::make_unique<lean_elimination>()), small_(std::make_unique<small_elimination>())
{
}
elimination_workspace::~elimination_workspace() = default;

elimination_status gauss_jordan_inverse(matrix& a, std::span<double> b)
{
    inversion_workspace memory;
    return gauss_jordan_inverse(a, b, memory);
}

elimination_status gauss_jordan_inverse(matrix& a, std::span<double> b, inversion_workspace& memory)
{
    assert(a.rows() == a.columns() && static_cast<int>(b.size()) == a.rows());
    used_flags& used = memory.used;
    std::vector<place>& pivots = memory.pivots;
    used.assign(b.size(), false);
    pivots.clear();
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
    elimination_workspace memory;
    return gauss_jordan_solve(a, b, memory);
}

elimination_status gauss_jordan_solve(const matrix& a, std::span<double> b, elimination_workspace& memory,
                                      const sparsity_pattern* pattern)
{
    assert(a.rows() == a.columns() && static_cast<int>(b.size()) == a.rows());
    const elimination_status status =
        a.rows() <= small_elimination::most_unknowns ? memory.small_->solve(a, b) : memory.kept_->solve(a, b, pattern);
    drop_signs_of_zeros(b);
    require_finite(b);
    return status;
}

} // namespace kelvarin
