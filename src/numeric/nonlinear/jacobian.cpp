// SPDX-License-Identifier: MIT
#include "numeric/nonlinear/jacobian.h"

#include "numeric/arithmetic_check.h"
#include "numeric/forward_difference.h"
#include "numeric/nonlinear/NR_vbNLE.h"
#include "numeric/work_array.h"

#include <algorithm>
#include <cassert>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr double fdjac_relative_step = 1e-07;
constexpr double usrfun_step = 1e-05;

void make_absolute_steps(std::span<const double> x, std::span<double> moved, std::span<double> divisors)
{
    std::ranges::transform(x, moved.begin(), [](double value) { return value + usrfun_step; });
    std::ranges::fill(divisors, usrfun_step);
}

/// runtime_failure 6 unless all elements are finite; those outside of the pattern are zero.
void require_finite_at(const sparsity_pattern& pattern, const matrix& df)
{
    double sum = 0.0;
    for (int row = 0; row < df.rows(); ++row) {
        const std::span<const double> elements = df.row(row);
        for (const std::uint32_t column : pattern.columns_of(row))
            sum += elements[column] - elements[column];
    }
    if (sum != 0.0) throw runtime_failure(failure_number::overflow);
}

void take_differences(nonlinear_system& system, std::span<const double> x, std::span<const double> f,
                      jacobian_workspace& kept)
{
    const sparsity_pattern* const known = std::exchange(kept.pattern, nullptr);
    kept.pattern = system.difference_quotients(x, f, kept.moved, kept.divisors, kept.elements, known);
    if (kept.pattern != nullptr)
        require_finite_at(*kept.pattern, kept.elements);
    else
        require_finite(kept.elements.values());
}

} // namespace

void fdjac(nonlinear_system& system, std::span<const double> x, std::span<const double> fvec, matrix& df)
{
    relative_differences(system, x, fvec, fdjac_relative_step, df);
}

void usrfun(nonlinear_system& system, std::span<const double> x, std::span<double> fvec, matrix& fjac)
{
    assert(fjac.rows() == system.size() && fjac.columns() == system.size());
    evaluate_finite(system, x, fvec);
    std::vector<double> moved = work_array(system.size());
    std::vector<double> divisors = work_array(system.size());
    make_absolute_steps(x, moved, divisors);
    system.difference_columns(x, fvec, moved, divisors, fjac);
    require_finite(fjac.values());
}

jacobian_workspace::jacobian_workspace(int size)
    : elements(work_matrix(size)), moved(work_array(size)), divisors(work_array(size))
{
}

void fdjac(nonlinear_system& system, std::span<const double> x, std::span<const double> fvec, jacobian_workspace& kept)
{
    make_relative_steps(x, fdjac_relative_step, kept.moved, kept.divisors);
    take_differences(system, x, fvec, kept);
}

void usrfun(nonlinear_system& system, std::span<const double> x, std::span<double> fvec, jacobian_workspace& kept)
{
    evaluate_finite(system, x, fvec);
    make_absolute_steps(x, kept.moved, kept.divisors);
    take_differences(system, x, fvec, kept);
}

} // namespace kelvarin
