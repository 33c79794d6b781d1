// SPDX-License-Identifier: MIT
#pragma once

#include <array>

namespace kelvarin
{

/// An explicit Runge-Kutta method with an error estimate: stage m is the right sides at
/// x + c[m] h, y + h sum(a[m][l] k[l]) over l < m; the step ends at y + h sum(b[l] k[l]).
struct butcher_tableau
{
    static constexpr int most_stages = 8;
    using stage_weights = std::array<double, most_stages>;

    int stages = 0;
    /// Of the solution that is kept; the estimate is that of one order less.
    int order = 0;
    stage_weights c = {};
    std::array<stage_weights, most_stages> a = {};
    stage_weights b = {};
    /// error_factor h sum(e[l] k[l]) is the solution of one order less minus the solution that is kept.
    stage_weights e = {};
    double error_factor = 1.0;
};

/// Orders 4 and 5, the fifth is kept. [Fehlberg1970]
extern const butcher_tableau fehlberg_45;
/// Orders 5 and 6, the sixth is kept. The estimate is a difference of stages at the same two nodes, so that it
/// is 0 where the right sides depend on x alone. [Fehlberg1968]
extern const butcher_tableau fehlberg_56;

} // namespace kelvarin
