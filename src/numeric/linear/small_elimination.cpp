// SPDX-License-Identifier: MIT
#include "numeric/linear/small_elimination.h"

#include "numeric/arithmetic_check.h"

#include <algorithm>
#include <bit>

namespace kelvarin
{

namespace
{

/// Elements that are worked on side by side, so that the loops over them become vector instructions.
constexpr int lanes = 4;
constexpr std::uint64_t magnitude_bits = ~(std::uint64_t{1} << 63);
constexpr std::int64_t used = -1;

/// A system of n equations in memory that belongs to another; see small_elimination.
struct small_system
{
    double* elements = nullptr;
    const std::uint64_t* magnitudes = nullptr;
    std::int64_t* largest = nullptr;
    int n = 0;
    /// The length of a row: whole lanes.
    int width = 0;

    double* row(int i) const { return elements + static_cast<std::ptrdiff_t>(i) * width; }
    std::uint64_t magnitude(int row_number, int column) const
    {
        return std::bit_cast<std::uint64_t>(row(row_number)[column]) & magnitudes[column];
    }
};

/// Four elements that are worked on side by side. Wider instructions, where the processor has them, change
/// no bit: each element sees the same operations.
typedef double four_doubles __attribute__((vector_size(32)));
typedef std::int64_t four_words __attribute__((vector_size(32)));

// In the next three functions a choice without a jump is the faster one: nobody can foresee which of a few
// elements it will be.

/// The last row that holds the largest element.
int pivot_row(const small_system& system)
{
    int found = 0;
    std::int64_t largest = used;
    for (int row = 0; row < system.n; ++row) {
        const std::int64_t here = system.largest[row];
        found = here >= largest ? row : found;
        largest = here >= largest ? here : largest;
    }
    return found;
}

/// The last column of the row's largest element.
int pivot_column(const small_system& system, int row)
{
    const auto largest = static_cast<std::uint64_t>(system.largest[row]);
    int found = 0;
    for (int column = 0; column < system.n; ++column)
        found = system.magnitude(row, column) == largest ? column : found;
    return found;
}

using row_list = std::array<int, small_elimination::most_unknowns>;

/// The rows that the elimination of the pivot's column changes.
std::span<const int> rows_to_reduce(const small_system& system, int pivot, row_list& rows)
{
    std::size_t count = 0;
    for (int row = 0; row < system.n; ++row) {
        rows[count] = row;
        count += static_cast<std::size_t>(system.magnitude(row, pivot) != 0) & static_cast<std::size_t>(row != pivot);
    }
    return std::span(rows).first(count);
}

/// The largest magnitude of a row, as bits, when f has been applied to its elements, four by four.
template <class Change>
[[gnu::always_inline]] inline std::int64_t change_row(double* row, const small_system& system, Change change)
{
    auto* const elements = reinterpret_cast<four_doubles*>(row);
    const auto* const magnitudes = reinterpret_cast<const four_words*>(system.magnitudes);
    four_words largest = {};
    for (int k = 0; k < system.width / lanes; ++k) {
        change(elements[k], k);
        const four_words magnitude = reinterpret_cast<four_words>(elements[k]) & magnitudes[k];
        largest = magnitude > largest ? magnitude : largest;
    }
    const std::int64_t lower = largest[0] > largest[1] ? largest[0] : largest[1];
    const std::int64_t upper = largest[2] > largest[3] ? largest[2] : largest[3];
    return lower > upper ? lower : upper;
}

#ifdef KELVARIN_PROCESSOR_CLONES
[[gnu::target_clones("avx2", "default")]]
#endif
void interchange_rows(const small_system& system, int one, int other)
{
    auto* const a = reinterpret_cast<four_doubles*>(system.row(one));
    auto* const b = reinterpret_cast<four_doubles*>(system.row(other));
    for (int k = 0; k < system.width / lanes; ++k)
        std::swap(a[k], b[k]);
    std::swap(system.largest[one], system.largest[other]);
}

/// Divides the pivot's row by the pivot and subtracts its multiples from the given rows.
#ifdef KELVARIN_PROCESSOR_CLONES
[[gnu::target_clones("avx2", "default")]]
#endif
void reduce_rows(const small_system& system, int pivot, std::span<const int> rows)
{
    double* const pivot_row = system.row(pivot);
    const double value = pivot_row[pivot];
    change_row(pivot_row, system, [=](four_doubles& elements, int) { elements /= value; });
    const auto* const quotients = reinterpret_cast<const four_doubles*>(pivot_row);
    for (const int number : rows) {
        double* const row = system.row(number);
        const double multiplier = row[pivot];
        const std::int64_t largest =
            change_row(row, system, [=](four_doubles& elements, int k) { elements -= quotients[k] * multiplier; });
        if (system.largest[number] != used) system.largest[number] = largest;
    }
}

elimination_status eliminate(const small_system& system)
{
    row_list rows;
    for (int step = 0; step < system.n; ++step) {
        const int row = pivot_row(system);
        if (finite(std::bit_cast<double>(system.largest[row])) == 0.0) return elimination_status::singular;
        const int column = pivot_column(system, row);
        if (row != column) interchange_rows(system, row, column);
        system.largest[column] = used;
        reduce_rows(system, column, rows_to_reduce(system, column, rows));
    }
    return elimination_status::done;
}

/// Row and right side of a, and the row's largest element.
void take_row(const small_system& system, int number, const double* from, double right_side)
{
    double* const row = system.row(number);
    std::int64_t largest = 0;
    for (int k = 0; k < system.n; ++k) {
        row[k] = from[k];
        const auto magnitude = static_cast<std::int64_t>(std::bit_cast<std::uint64_t>(from[k]) & magnitude_bits);
        largest = magnitude > largest ? magnitude : largest;
    }
    row[system.n] = right_side;
    system.largest[number] = largest;
}

} // namespace

elimination_status small_elimination::solve(const matrix& a, std::span<double> b)
{
    const int n = a.rows();
    const int width = n / lanes * lanes + lanes;
    const small_system system = {elements_.data(), magnitudes_.data(), largest_.data(), n, width};
    std::fill_n(elements_.begin(), n * width, 0.0);
    std::fill_n(magnitudes_.begin(), width, 0);
    std::fill_n(magnitudes_.begin(), n, magnitude_bits);
    for (int row = 0; row < n; ++row)
        take_row(system, row, a.row(row).data(), b[static_cast<std::size_t>(row)]);
    const elimination_status status = eliminate(system);
    for (int row = 0; row < n; ++row)
        b[static_cast<std::size_t>(row)] = system.row(row)[n];
    return status;
}

} // namespace kelvarin
