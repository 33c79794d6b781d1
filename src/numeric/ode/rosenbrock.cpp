// SPDX-License-Identifier: MIT
#include "numeric/ode/rosenbrock.h"

#include "numeric/arithmetic_check.h"
#include "numeric/work_array.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>

namespace kelvarin
{

namespace
{

/// Tenfold of [Press1992].
constexpr int most_tries = 420;
constexpr double safety = 0.9;
constexpr double strongest_growth = 1.5;
constexpr double growth_exponent = -0.25;
constexpr double strongest_shrinkage = 0.5;
constexpr double shrinkage_exponent = -1.0 / 3.0;
/// Below this part of the tolerance the growth would exceed its bound.
constexpr double error_of_strongest_growth = 0.1296;

/// The parameters of [Shampine1982], in the form of [Press1992] eq. 16.6.21 to 16.6.26.
namespace shampine
{
constexpr double gamma = 0.5;
constexpr double a21 = 2.0;
constexpr double a31 = 1.92;
constexpr double a32 = 0.24;
constexpr double c21 = -8.0;
constexpr double c31 = 14.88;
constexpr double c32 = 2.4;
constexpr double c41 = -0.896;
constexpr double c42 = -0.432;
constexpr double c43 = -0.4;
constexpr double b1 = 19.0 / 9.0;
constexpr double b2 = 0.5;
constexpr double b3 = 25.0 / 108.0;
constexpr double b4 = 125.0 / 108.0;
constexpr double e1 = 17.0 / 54.0;
constexpr double e2 = 7.0 / 36.0;
constexpr double e4 = 125.0 / 108.0;
constexpr double c1x = 0.5;
constexpr double c2x = -1.5;
constexpr double c3x = 2.42;
constexpr double c4x = 0.116;
constexpr double a2x = 1.0;
constexpr double a3x = 0.6;
} // namespace shampine

constexpr std::string_view not_significant = "STIFF: stepsize not significant in stiff";

} // namespace

stiff::stiff(watched_system& system)
    : system_(system), jacobian_(system.size()), lu_(system.size()), start_(work_array(system.size())),
      slopes_(work_array(system.size())), g1_(work_array(system.size())), g2_(work_array(system.size())),
      g3_(work_array(system.size())), g4_(work_array(system.size())), err_(work_array(system.size()))
{
}

void stiff::advance(ode_position& at, double htry, double eps, std::span<const double> yscal, ode_step& step)
{
    if (htry == 0.0) nrerror(not_significant);
    const double x = at.x;
    std::ranges::copy(at.y, start_.begin());
    system_.jacobian(x, start_, jacobian_);
    double h = htry;
    for (int attempt = 0; attempt < most_tries; ++attempt) {
        decompose(h);
        make_stages(x, at.dydx, h, at.y);
        make_result(at.y);
        at.x = x + h;
        if (at.x == x) nrerror(not_significant);
        const double errmax = error_norm(eps, yscal);
        if (errmax <= 1.0) {
            step.hdid = h;
            step.hnext = errmax > error_of_strongest_growth ? safety * h * std::pow(errmax, growth_exponent)
                                                            : strongest_growth * h;
            return;
        }
        const double shorter = safety * h * std::pow(errmax, shrinkage_exponent);
        const double shortest = strongest_shrinkage * h;
        h = h >= 0.0 ? std::max(shorter, shortest) : std::min(shorter, shortest);
    }
    nrerror("STIFF: exceeded MAXTRY in stiff");
}

/// I/(gamma h) - dfdy
void stiff::decompose(double h)
{
    std::ranges::transform(jacobian_.dfdy.values(), lu_.a.values().begin(), [](double element) { return -element; });
    const double diagonal = finite(1.0 / (shampine::gamma * h));
    for (int i = 0; i < system_.size(); ++i)
        lu_.a(i, i) += diagonal;
    ludcmp(lu_);
}

void stiff::make_stages(double x, std::span<const double> dydx, double h, std::span<double> y)
{
    using namespace shampine;
    const std::size_t n = y.size();
    const std::span<const double> dfdx = jacobian_.dfdx;
    for (std::size_t i = 0; i < n; ++i)
        g1_[i] = dydx[i] + h * c1x * dfdx[i];
    lubksb(lu_, g1_);

    for (std::size_t i = 0; i < n; ++i)
        y[i] = start_[i] + a21 * g1_[i];
    system_.derivatives(x + a2x * h, y, slopes_);
    for (std::size_t i = 0; i < n; ++i)
        g2_[i] = slopes_[i] + h * c2x * dfdx[i] + c21 * g1_[i] / h;
    lubksb(lu_, g2_);

    for (std::size_t i = 0; i < n; ++i)
        y[i] = start_[i] + a31 * g1_[i] + a32 * g2_[i];
    system_.derivatives(x + a3x * h, y, slopes_);
    for (std::size_t i = 0; i < n; ++i)
        g3_[i] = slopes_[i] + h * c3x * dfdx[i] + (c31 * g1_[i] + c32 * g2_[i]) / h;
    lubksb(lu_, g3_);

    // The fourth stage has the slopes of the third.
    for (std::size_t i = 0; i < n; ++i)
        g4_[i] = slopes_[i] + h * c4x * dfdx[i] + (c41 * g1_[i] + c42 * g2_[i] + c43 * g3_[i]) / h;
    lubksb(lu_, g4_);
}

void stiff::make_result(std::span<double> y)
{
    using namespace shampine;
    for (std::size_t i = 0; i < y.size(); ++i) {
        y[i] = start_[i] + b1 * g1_[i] + b2 * g2_[i] + b3 * g3_[i] + b4 * g4_[i];
        err_[i] = e1 * g1_[i] + e2 * g2_[i] + e4 * g4_[i];
    }
    require_finite(y);
    require_finite(err_);
}

/// The largest error over the permitted one. Departs from the publication: a variable whose error, with its
/// sign, reaches its scale replaces what was found before it by its own error, which is not scaled then.
double stiff::error_norm(double eps, std::span<const double> yscal) const
{
    double errmax = 0.0;
    for (std::size_t i = 0; i < yscal.size(); ++i) {
        if (err_[i] < yscal[i])
            errmax = std::max(errmax, std::fabs(err_[i] / yscal[i]));
        else
            errmax = std::fabs(err_[i]);
    }
    return finite(errmax / eps);
}

} // namespace kelvarin
