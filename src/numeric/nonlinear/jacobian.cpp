// SPDX-License-Identifier: MIT
#include "numeric/arithmetic_check.h"
#include "numeric/forward_difference.h"
#include "numeric/nonlinear/NR_vbNLE.h"
#include "numeric/work_array.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr double fdjac_relative_step = 1e-07;
constexpr double usrfun_step = 1e-05;

/// The moved unknowns and the steps as represented, with steps relative to the size of the unknowns.
void make_relative_steps(std::span<const double> x, double relative, std::span<double> moved,
                         std::span<double> divisors)
{
    for (std::size_t j = 0; j < x.size(); ++j) {
        double step = relative * std::fabs(x[j]);
        if (step == 0.0) step = relative;
        moved[j] = finite(x[j] + step);
        divisors[j] = moved[j] - x[j];
    }
}

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

void nonlinear_system::difference_columns(std::span<const double> x, std::span<const double> f,
                                          std::span<const double> moved, std::span<const double> divisors, matrix& df)
{
    std::vector<double> point(x.begin(), x.end());
    std::vector<double> scratch = work_array(size());
    for (std::size_t j = 0; j < x.size(); ++j) {
        point[j] = moved[j];
        evaluate(point, scratch);
        point[j] = x[j];
        for (std::size_t i = 0; i < f.size(); ++i)
            df(static_cast<int>(i), static_cast<int>(j)) = (scratch[i] - f[i]) / divisors[j];
    }
}

const sparsity_pattern* nonlinear_system::difference_quotients(std::span<const double> x, std::span<const double> f,
                                                               std::span<const double> moved,
                                                               std::span<const double> divisors, matrix& df,
                                                               [[maybe_unused]] const sparsity_pattern* known)
{
    difference_columns(x, f, moved, divisors, df);
    return nullptr;
}

void evaluate_finite(nonlinear_system& system, std::span<const double> x, std::span<double> f)
{
    assert(static_cast<int>(x.size()) == system.size() && x.size() == f.size());
    system.evaluate(x, f);
    require_finite(f);
}

void relative_differences(nonlinear_system& system, std::span<const double> x, std::span<const double> f,
                          double relative, matrix& df)
{
    assert(df.rows() == system.size() && df.columns() == system.size());
    std::vector<double> moved = work_array(system.size());
    std::vector<double> divisors = work_array(system.size());
    make_relative_steps(x, relative, moved, divisors);
    system.difference_columns(x, f, moved, divisors, df);
    require_finite(df.values());
}

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
