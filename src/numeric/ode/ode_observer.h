// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace kelvarin
{

/// How far an integration is, and at its end what it took.
struct ode_summary
{
    /// The last reached value of the independent variable.
    double x = 0.0;
    /// Passes of the step loop. That of a Fehlberg method counts the pass that finds itself at the end.
    std::int64_t steps = 0;
    /// Calls of the derivatives, those of Jacobians and of refused attempts included.
    std::int64_t evaluations = 0;
    /// Of a Fehlberg method attempts taken and refused. Of the others steps made as long as tried, and steps
    /// that had to be shortened.
    std::int64_t good = 0;
    std::int64_t bad = 0;
    /// Of the steps made; 0 before the first.
    double smallest_step = 0.0;
    double largest_step = 0.0;
    /// As asked, or as relaxed on the way.
    double tolerance = 0.0;
    int relaxations = 0;
    /// Points stored, the start included.
    int points = 0;
    /// x is the end of the range, but for a millionth of it, and not a point where the steps came to nothing.
    bool end_reached = false;
};

/// What an integration fails with (runtime_failure 8888) when its observer wishes it to stop.
inline constexpr std::string_view calculations_aborted = "Calculations aborted.";

/// Sees an integration on its way and keeps what it wants of it. It may throw to end it.
class ode_observer
{
public:
    virtual ~ode_observer() = default;

    /// A point of the solution, at most output_grid::most_points. The derivatives were last called where the
    /// method says, which is not always this point.
    virtual void store(double x, std::span<const double> y) = 0;
    /// Called once a step with the state y at so_far.x: by a Fehlberg method at the end of each attempt, by the others
    /// before each step.
    virtual void step_done([[maybe_unused]] const ode_summary& so_far, [[maybe_unused]] std::span<const double> y) {}
    /// Asked before each call of the derivatives and after each step_done.
    virtual bool stop_wished() const { return false; }
};

} // namespace kelvarin
