// SPDX-License-Identifier: MIT
#include "numeric/linear/lu.h"

#include "numeric/arithmetic_check.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstddef>
#include <utility>

namespace kelvarin
{

namespace
{

/// Stands in for a pivot of exactly 0.
constexpr double smallest_pivot = 1e-20;
/// Elements that are worked on side by side, so that the loops over them become vector instructions.
constexpr int lanes = 4;

std::size_t index(int i)
{
    return static_cast<std::size_t>(i);
}

/// Weight and extent of each row.
void measure_rows(lu_factors& lu)
{
    for (int i = 0; i < lu.a.rows(); ++i) {
        const std::span<const double> row = lu.a.row(i);
        double largest = 0.0;
        int first = i;
        int end = i + 1;
        for (int j = 0; j < lu.a.columns(); ++j) {
            const double magnitude = std::fabs(row[index(j)]);
            if (magnitude == 0.0) continue;
            largest = magnitude > largest ? magnitude : largest;
            first = std::min(first, j);
            end = std::max(end, j + 1);
        }
        if (largest == 0.0) nrerror("LUDCMP: Singular matrix in routine ludcmp");
        lu.weight[index(i)] = finite(1.0 / largest);
        lu.first[index(i)] = first;
        lu.end[index(i)] = end;
    }
}

int pivot_row(const lu_factors& lu, int step)
{
    int found = step;
    double largest = 0.0;
    for (int i = step; i < lu.a.rows(); ++i) {
        const double candidate = lu.weight[index(i)] * std::fabs(lu.a(i, step));
        if (!(candidate >= largest)) continue;
        largest = candidate;
        found = i;
    }
    return found;
}

/// Row `one` takes the place of row `other`, which is the step's own and is not asked for its weight again.
void interchange_rows(lu_factors& lu, int one, int step)
{
    lu.indx[index(step)] = one;
    if (one == step) return;
    std::ranges::swap_ranges(lu.a.row(one), lu.a.row(step));
    std::swap(lu.first[index(one)], lu.first[index(step)]);
    std::swap(lu.end[index(one)], lu.end[index(step)]);
    lu.weight[index(one)] = lu.weight[index(step)];
    lu.d = -lu.d;
}

/// Subtracts a multiple of the pivot's row. Wider instructions, where the processor has them, change no bit:
/// each element sees the same two operations.
#ifdef KELVARIN_PROCESSOR_CLONES
[[gnu::target_clones("avx2", "default")]]
#endif
void subtract_multiple(double* __restrict__ row, const double* __restrict__ pivot_row, double multiplier, int count)
{
    int k = 0;
    for (; k + lanes <= count; k += lanes)
        for (int lane = 0; lane < lanes; ++lane)
            row[k + lane] -= multiplier * pivot_row[k + lane];
    for (; k < count; ++k)
        row[k] -= multiplier * pivot_row[k];
}

/// Subtracts the pivot's row from those below it. Crout's method forms each element at once, as a sum in the
/// order of the steps; here all elements take one term in each step, which is the same sum.
void reduce_rows(lu_factors& lu, int step)
{
    const double reciprocal = 1.0 / lu.a(step, step);
    const int end = lu.end[index(step)];
    const double* const pivot_row = lu.a.row(step).data();
    for (int i = step + 1; i < lu.a.rows(); ++i) {
        double* const row = lu.a.row(i).data();
        if (row[step] == 0.0) continue;
        const double multiplier = row[step] *= reciprocal;
        subtract_multiple(row + step + 1, pivot_row + step + 1, multiplier, end - step - 1);
        lu.first[index(i)] = std::min(lu.first[index(i)], step);
        lu.end[index(i)] = std::max(lu.end[index(i)], end);
    }
}

} // namespace

lu_factors::lu_factors(int size)
    : a(size, size), indx(index(size)), first(index(size)), end(index(size)), weight(index(size))
{
}

void ludcmp(lu_factors& lu)
{
    require_finite(lu.a.values());
    measure_rows(lu);
    lu.d = 1.0;
    for (int step = 0; step < lu.a.rows(); ++step) {
        interchange_rows(lu, pivot_row(lu, step), step);
        lu.end[index(step)] = std::max(lu.end[index(step)], step + 1);
        double& pivot = lu.a(step, step);
        if (pivot == 0.0) pivot = smallest_pivot;
        reduce_rows(lu, step);
    }
}

void lubksb(const lu_factors& lu, std::span<double> b)
{
    assert(static_cast<int>(b.size()) == lu.a.rows());
    const int n = lu.a.rows();
    for (int i = 0; i < n; ++i) {
        double sum = std::exchange(b[index(lu.indx[index(i)])], b[index(i)]);
        const double* const row = lu.a.row(i).data();
        for (int j = lu.first[index(i)]; j < i; ++j)
            sum -= row[j] * b[index(j)];
        b[index(i)] = sum;
    }
    for (int i = n; i-- > 0;) {
        double sum = b[index(i)];
        const double* const row = lu.a.row(i).data();
        for (int j = i + 1; j < lu.end[index(i)]; ++j)
            sum -= row[j] * b[index(j)];
        b[index(i)] = sum / row[i];
    }
    require_finite(b);
}

} // namespace kelvarin
