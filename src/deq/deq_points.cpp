// SPDX-License-Identifier: MIT
#include "deq/deq_points.h"

#include <algorithm>

namespace kelvarin
{

deq_points::deq_points(const std::string& independent, deq_system& system, const ode_range& range, deq_method method,
                       run_listener& listener, std::atomic<bool>& stiffness_suspected)
    : system_(system), listener_(listener), range_(range), stiffness_suspected_(stiffness_suspected)
{
    std::vector<std::string> names = {independent};
    for (const equation_list* equations : {&system.differential_equations(), &system.explicit_equations()})
        names.insert(names.end(), equations->names.begin(), equations->names.end());
    points_ = named_columns(std::move(names));
    // As many as a range from 0 has, the start and the end; others may take more.
    const double expected = std::min((range.x2 - range.x1) / range.spacing + 2.0, 1.0 * output_grid::most_points);
    for (std::vector<double>& column : points_.columns)
        column.reserve(static_cast<std::size_t>(expected));
    row_.reserve(points_.column_count());
    if (is_for_stiff(method) || system.draws_random()) return;
    const auto f = [this](double x, std::span<const double> y, std::span<double> dydx) {
        return system_.try_derivatives(x, y, dydx);
    };
    watch_.emplace(system.size(), longest_step(range), f);
}

void deq_points::store(double x, std::span<const double> y)
{
    const std::span<const double> explicit_values = system_.explicit_values();
    row_.assign(1, x);
    row_.insert(row_.end(), y.begin(), y.end());
    row_.insert(row_.end(), explicit_values.begin(), explicit_values.end());
    points_.add_row(row_);
}

void deq_points::step_done(const ode_summary& so_far, std::span<const double> y)
{
    so_far_ = so_far;
    listener_.fraction_done(std::min((so_far.x - range_.x1) / (range_.x2 - range_.x1), 1.0));
    if (!watch_) return;
    watch_->step_done(so_far.x, y);
    if (watch_->suspected()) stiffness_suspected_.store(true, std::memory_order_relaxed);
}

} // namespace kelvarin
