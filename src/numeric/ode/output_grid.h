// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/ode/ode_observer.h"

#include <span>
#include <string_view>

namespace kelvarin
{

/// Where an integration goes and how close its stored points lie.
struct ode_range
{
    double x1 = 0.0;
    double x2 = 0.0;
    /// About the distance of stored points; 0.8 of it is the longest step.
    double spacing = 0.0;
};

/// The longest step that the integrators choose.
inline double longest_step(const ode_range& range)
{
    return 0.8 * range.spacing;
}

/// What cannot be integrated, or would be without end, fails at once (runtime_failure 8888, its text after the
/// name of the method): a range that does not ascend, a spacing of 0.
void check_range(const ode_range& range, std::string_view method);
/// The same for an option that has to be above 0.
void check_positive(double option, std::string_view description, std::string_view method);

/// Which points of an integration are stored. The multiples of the spacing are counted from 0 and not from the
/// start of the range, one for each point stored: a range that begins far above 0 stores every step until the
/// count has caught up, one that begins below 0 nothing before 2 spacings.
class output_grid
{
public:
    /// Most points that are stored by the test.
    static constexpr int most_tested = 1200;
    /// Most points in all: some methods append one at the end without the test.
    static constexpr int most_points = most_tested + 1;

    output_grid(double spacing, ode_observer& observer) : spacing_(spacing), observer_(observer) {}

    bool due(double x) const { return points_ < most_tested && (points_ + 1) * spacing_ < x; }
    bool full() const { return points_ >= most_tested; }
    double longest_step() const { return 0.8 * spacing_; }
    double spacing() const { return spacing_; }
    double last_x() const { return last_x_; }

    void store(double x, std::span<const double> y, ode_summary& summary)
    {
        summary.points = ++points_;
        last_x_ = x;
        observer_.store(x, y);
    }

private:
    double spacing_;
    ode_observer& observer_;
    int points_ = 0;
    double last_x_ = 0.0;
};

} // namespace kelvarin
