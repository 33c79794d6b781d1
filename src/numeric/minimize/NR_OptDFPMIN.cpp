// SPDX-License-Identifier: MIT
#include "numeric/minimize/NR_OptDFPMIN.h"

#include "numeric/backtracking_search.h"
#include "numeric/linear/matrix.h"
#include "numeric/vector_sums.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstddef>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr int ITMAX = 200;
constexpr double EPS = 3e-8;
constexpr double TOLX = 1.2e-7;
constexpr double STPMX = 100.0;

/// The largest element of `values`, each scaled by x (at least by 1): multiplied where `by_x`, else divided.
double largest_scaled(std::span<const double> values, std::span<const double> x, bool by_x)
{
    double largest = 0.0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double scale = std::max(std::fabs(x[i]), 1.0);
        largest = std::max(largest, std::fabs(values[i]) * (by_x ? scale : 1.0 / scale));
    }
    return largest;
}

/// out = H v
void multiply(const matrix& h, std::span<const double> v, std::span<double> out)
{
    for (int i = 0; i < h.rows(); ++i)
        out[static_cast<std::size_t>(i)] = dot(h.row(i), v);
}

/// The update of the inverse Hessian by a step xi and the change dg of the gradient; eq. 10.7.8, 10.7.9.
void update_inverse_hessian(matrix& hessin, std::span<const double> xi, std::vector<double>& dg, std::span<double> hdg)
{
    multiply(hessin, dg, hdg);
    const double fac = dot(dg, xi);
    const double fae = dot(dg, hdg);
    // Without the sign: a step against the curvature updates as well.
    if (!(fac * fac > EPS * dot(dg, dg) * dot(xi, xi))) return;
    const double along = quotient(1.0, fac);
    const double across = quotient(1.0, fae);
    for (std::size_t i = 0; i < dg.size(); ++i)
        dg[i] = along * xi[i] - across * hdg[i];
    for (int i = 0; i < hessin.rows(); ++i) {
        const auto row = static_cast<std::size_t>(i);
        for (int j = i; j < hessin.columns(); ++j) {
            const auto column = static_cast<std::size_t>(j);
            hessin(i, j) = finite(hessin(i, j) + along * xi[row] * xi[column] - across * hdg[row] * hdg[column] +
                                  fae * dg[row] * dg[column]);
            hessin(j, i) = hessin(i, j);
        }
    }
}

} // namespace

dfpmin_summary dfpmin(objective& target, std::span<double> x, const dfpmin_options& options)
{
    const auto n = static_cast<std::size_t>(target.size());
    assert(x.size() == n);
    std::vector<double> g(n), xi(n), dg(n), hdg(n), pnew(n), point(n);
    matrix hessin(target.size(), target.size());
    for (int i = 0; i < target.size(); ++i)
        hessin(i, i) = 1.0;

    dfpmin_summary summary;
    double fp = summary.fret = finite(target.value(x));
    ridders_gradient(target, x, g, point);
    if (std::ranges::all_of(g, [](double slope) { return slope == 0.0; })) return summary;
    std::ranges::transform(g, xi.begin(), [](double slope) { return -slope; });
    const double stpmax = STPMX * std::max(norm(x), static_cast<double>(n));

    for (int its = 1; its <= ITMAX; ++its) {
        summary.iterations = its;
        if (options.on_iteration) options.on_iteration(its, ITMAX);
        summary.fret =
            backtracking_search(
                x, fp, xi, pnew, stpmax, point, [&](std::span<const double> at) { return finite(target.value(at)); },
                [&](std::span<const double> along) { return dot(g, along); })
                .f;
        fp = summary.fret;
        for (std::size_t i = 0; i < n; ++i) {
            xi[i] = pnew[i] - x[i];
            x[i] = pnew[i];
        }
        if (largest_scaled(xi, x, false) < TOLX) return summary;
        dg = g;
        ridders_gradient(target, x, g, point);
        if (largest_scaled(g, x, true) / std::max(summary.fret, 1.0) < options.gtol) return summary;
        for (std::size_t i = 0; i < n; ++i)
            dg[i] = g[i] - dg[i];
        update_inverse_hessian(hessin, xi, dg, hdg);
        multiply(hessin, g, xi);
        for (double& element : xi)
            element = -element;
    }
    nrerror("too many iterations in dfpmin");
}

} // namespace kelvarin
