// SPDX-License-Identifier: MIT
#include "numeric/ode/stiffness_watch.h"

#include "numeric/work_array.h"

#include <cmath>
#include <cstddef>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr int steps_between_probes = 10;
constexpr int probes_for_suspicion = 10;
/// Explicit methods are stable up to a step of about 3 times the time of decay; a step chosen by its error alone is a
/// fraction of it.
constexpr double least_step_in_decays = 2.0;
/// Most change of the solution in a step, relative to it.
constexpr double slow_change = 0.1;
/// Steps beyond this part of the longest are limited by that.
constexpr double free_part = 0.5;
constexpr double relative_difference = 1e-7;

double norm(std::span<const double> v)
{
    double sum = 0.0;
    for (const double each : v)
        sum += each * each;
    return std::sqrt(sum);
}

} // namespace

stiffness_watch::stiffness_watch(int size, double longest_step, right_sides f)
    : f_(std::move(f)), longest_step_(longest_step), slopes_(work_array(size)),
      direction_(static_cast<std::size_t>(size), 1.0 / std::sqrt(size)), moved_(work_array(size)),
      change_(work_array(size))
{
}

void stiffness_watch::step_done(double x, std::span<const double> y)
{
    const double h = std::fabs(x - std::exchange(last_x_, x));
    if (suspected_ || h == 0.0 || ++steps_ % steps_between_probes != 0) return;
    probes_in_a_row_ = held_down(x, y, h) ? probes_in_a_row_ + 1 : 0;
    suspected_ = probes_in_a_row_ >= probes_for_suspicion;
}

bool stiffness_watch::held_down(double x, std::span<const double> y, double h)
{
    const double size = norm(y);
    if (h > free_part * longest_step_ || !f_(x, y, slopes_)) return false;
    const double difference = relative_difference * (size > 0.0 ? size : 1.0);
    for (std::size_t i = 0; i < y.size(); ++i)
        moved_[i] = y[i] + difference * direction_[i];
    if (!f_(x, moved_, change_)) return false;
    double along = 0.0;
    for (std::size_t i = 0; i < y.size(); ++i) {
        change_[i] = (change_[i] - slopes_[i]) / difference;
        along += change_[i] * direction_[i];
    }
    const double rate = norm(change_);
    if (!std::isfinite(rate) || rate == 0.0) return false;
    for (std::size_t i = 0; i < y.size(); ++i)
        direction_[i] = change_[i] / rate;
    // The fastest change is a decay, not a growth or a swing.
    return along < -0.5 * rate && h * rate >= least_step_in_decays && h * norm(slopes_) <= slow_change * size;
}

} // namespace kelvarin
