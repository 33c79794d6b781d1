// SPDX-License-Identifier: MIT
#include "published_problems.h"

#include <cmath>
#include <numbers>

namespace kelvarin::test
{

namespace
{

using point = std::span<const double>;
using residuals = std::span<double>;

double before(point x, std::size_t i)
{
    return i == 0 ? 0.0 : x[i - 1];
}

double behind(point x, std::size_t i)
{
    return i + 1 == x.size() ? 0.0 : x[i + 1];
}

/// The angle of the helical valley, in turns.
double turns(double x1, double x2)
{
    const double angle = std::atan(x2 / x1) / (2.0 * std::numbers::pi);
    return x1 > 0.0 ? angle : angle + 0.5;
}

void powell_badly_scaled(point x, residuals f)
{
    f[0] = 1e4 * x[0] * x[1] - 1.0;
    f[1] = std::exp(-x[0]) + std::exp(-x[1]) - 1.0001;
}

void helical_valley(point x, residuals f)
{
    f[0] = 10.0 * (x[2] - 10.0 * turns(x[0], x[1]));
    f[1] = 10.0 * (std::hypot(x[0], x[1]) - 1.0);
    f[2] = x[2];
}

void powell_singular(point x, residuals f)
{
    f[0] = x[0] + 10.0 * x[1];
    f[1] = std::sqrt(5.0) * (x[2] - x[3]);
    f[2] = (x[1] - 2.0 * x[2]) * (x[1] - 2.0 * x[2]);
    f[3] = std::sqrt(10.0) * (x[0] - x[3]) * (x[0] - x[3]);
}

void trigonometric(point x, residuals f)
{
    double sum = 0.0;
    for (const double value : x)
        sum += std::cos(value);
    const auto n = static_cast<double>(x.size());
    for (std::size_t i = 0; i < x.size(); ++i)
        f[i] = n - sum + static_cast<double>(i + 1) * (1.0 - std::cos(x[i])) - std::sin(x[i]);
}

void brown_almost_linear(point x, residuals f)
{
    double sum = 0.0;
    double product = 1.0;
    for (const double value : x) {
        sum += value;
        product *= value;
    }
    for (std::size_t i = 0; i < x.size(); ++i)
        f[i] = x[i] + sum - static_cast<double>(x.size() + 1);
    f[x.size() - 1] = product - 1.0;
}

void discrete_boundary_value(point x, residuals f)
{
    const double h = 1.0 / static_cast<double>(x.size() + 1);
    for (std::size_t i = 0; i < x.size(); ++i) {
        const double cubed = std::pow(x[i] + static_cast<double>(i + 1) * h + 1.0, 3);
        f[i] = 2.0 * x[i] - before(x, i) - behind(x, i) + h * h * cubed / 2.0;
    }
}

void broyden_tridiagonal(point x, residuals f)
{
    for (std::size_t i = 0; i < x.size(); ++i)
        f[i] = (3.0 - 2.0 * x[i]) * x[i] - before(x, i) - 2.0 * behind(x, i) + 1.0;
}

/// Molar volume of carbon dioxide by van der Waals, in l/mol, at 300 K and a pressure in atm.
auto carbon_dioxide(double pressure)
{
    return [pressure](point v, residuals f) {
        f[0] = (pressure + 3.592 / (v[0] * v[0])) * (v[0] - 0.04267) - 0.082054 * 300.0;
    };
}

/// Colebrook's friction factor of air in a smooth tube of 5 mm, at 40 m/s.
void friction_factor(point x, residuals f)
{
    const double reynolds = 1.23 * 40.0 * 0.005 / 1.79e-5;
    const double roughness = 0.0015 / 5.0;
    f[0] = 1.0 / std::sqrt(x[0]) + 2.0 * std::log10(roughness / 3.7 + 2.51 / (reynolds * std::sqrt(x[0])));
}

std::vector<double> boundary_value_start(int n)
{
    std::vector<double> start;
    for (int i = 1; i <= n; ++i)
        start.push_back(i / (n + 1.0) * (i / (n + 1.0) - 1.0));
    return start;
}

std::vector<double> repeated(int n, double value)
{
    return std::vector<double>(static_cast<std::size_t>(n), value);
}

std::vector<double> brown_root(double repeated_value, double last)
{
    std::vector<double> root = repeated(5, repeated_value);
    root.back() = last;
    return root;
}

} // namespace

void rosenbrock(point x, residuals f)
{
    f[0] = 10.0 * (x[1] - x[0] * x[0]);
    f[1] = 1.0 - x[0];
}

void hyperbola_and_circle(point x, residuals f)
{
    f[0] = x[0] * x[0] + x[1] * x[1] - 4.0;
    f[1] = x[0] * x[1] - 1.0;
}

// Roots that are not whole numbers were computed apart, in 40 digits. The first digits of "Broyden tridiagonal",
// n = 9, stand in the MINPACK guide [MoreGarbowHillstrom1980]; those of both equations of [ChapraCanale2002] in its
// text.
std::vector<published_problem> published_problems()
{
    return {
        {"Rosenbrock, MGH 1", {-1.2, 1.0}, {{1.0, 1.0}}, 6, rosenbrock},
        {"Powell badly scaled, MGH 3",
         {0.0, 1.0},
         {{1.0981593296998175e-5, 9.106146739866524}},
         6,
         powell_badly_scaled},
        {"helical valley, MGH 7", {-1.0, 0.0, 0.0}, {{1.0, 0.0, 0.0}}, 6, helical_valley},
        // A double root: half the digits are lost.
        {"Powell singular, MGH 13", {3.0, -1.0, 0.0, 1.0}, {repeated(4, 0.0)}, 3, powell_singular},
        {"trigonometric, MGH 26",
         repeated(5, 0.2),
         {{0.061754918923492302, 0.063939925418427973, 0.066486697392267019, 0.069530558129543235,
           0.32148909434561194}},
         6,
         trigonometric,
         "broydn"},
        // (a, ..., a, a^-4) for the real roots a of 5 a^5 - 6 a^4 + 1.
        {"Brown almost linear, MGH 27",
         repeated(5, 0.5),
         {brown_root(1.0, 1.0), brown_root(0.91635458253384934, 1.4182270873307533),
          brown_root(-0.5790430884941158, 8.895215442470579)},
         6,
         brown_almost_linear},
        {"discrete boundary value, MGH 28",
         boundary_value_start(10),
         {{-0.043164982518764871, -0.081577156535386882, -0.11448571438052929, -0.14097357686259668,
           -0.15990869618198312, -0.16987720231277492, -0.16908998378120835, -0.15524953522183182, -0.12535589167893499,
           -0.075416533685892084}},
         6,
         discrete_boundary_value},
        {"Broyden tridiagonal, MGH 30",
         repeated(9, -1.0),
         {{-0.57065451246466349, -0.68162834129327802, -0.70173245136181078, -0.7042129396903333, -0.70136904828189555,
           -0.69186564446552861, -0.66579201254904639, -0.59603420056491483, -0.41641206281590616}},
         6,
         broyden_tridiagonal},
        // sqrt(2 + sqrt 3) and its inverse.
        {"hyperbola and circle", {2.0, 0.3}, {{1.9318516525781366, 0.51763809020504152}}, 6, hyperbola_and_circle},
        {"carbon dioxide, 1 atm", {24.6162}, {{24.512588128441501}}, 6, carbon_dioxide(1.0)},
        {"carbon dioxide, 10 atm", {2.46162}, {{2.3544955807020395}}, 6, carbon_dioxide(10.0)},
        {"friction factor", {0.02}, {{0.028967810171440568}}, 6, friction_factor},
    };
}

} // namespace kelvarin::test
