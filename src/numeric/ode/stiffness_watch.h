// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <span>
#include <vector>

namespace kelvarin
{

/// Watches the steps of an explicit integration for stiffness: steps that are as short as the fastest decay demands,
/// though the solution itself hardly changes in one of them. The fastest decay is followed by the power method on
/// differences of the right sides. [SommeijerShampineVerwer1998] sec. 4, [HairerWanner1996] sec. IV.2
class stiffness_watch
{
public:
    /// dydx = f(x, y). Returns false if that can't be evaluated.
    using right_sides = std::function<bool(double x, std::span<const double> y, std::span<double> dydx)>;

    /// `longest_step`: the limit of the steps for another reason; steps near it say nothing.
    stiffness_watch(int size, double longest_step, right_sides f);

    /// To be called with the state after each step. Evaluates the right sides twice at every tenth step.
    void step_done(double x, std::span<const double> y);
    /// Whether a hundred steps in a row have been so short.
    bool suspected() const { return suspected_; }

private:
    /// Whether the last step, of length h, was held down by the fastest decay at (x, y).
    bool held_down(double x, std::span<const double> y, double h);

    right_sides f_;
    double longest_step_;
    double last_x_ = 0.0;
    int steps_ = 0;
    int probes_in_a_row_ = 0;
    bool suspected_ = false;
    std::vector<double> slopes_;
    /// The direction of the fastest change, of length 1.
    std::vector<double> direction_;
    std::vector<double> moved_;
    std::vector<double> change_;
};

} // namespace kelvarin
