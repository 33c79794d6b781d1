// SPDX-License-Identifier: MIT
#include "deq/deq_points.h"

#include "numeric/ode/output_grid.h"

#include <algorithm>

namespace kelvarin
{

deq_points::deq_points(const std::string& independent, deq_system& system, double x1, double x2, run_listener& listener)
    : system_(system), listener_(listener), x1_(x1), range_(x2 - x1)
{
    std::vector<std::string> names = {independent};
    for (const equation_list* equations : {&system.differential_equations(), &system.explicit_equations()})
        names.insert(names.end(), equations->names.begin(), equations->names.end());
    points_ = named_columns(std::move(names));
    for (std::vector<double>& column : points_.columns)
        column.reserve(output_grid::most_points);
    row_.reserve(points_.column_count());
}

void deq_points::store(double x, std::span<const double> y)
{
    const std::span<const double> explicit_values = system_.explicit_values();
    row_.assign(1, x);
    row_.insert(row_.end(), y.begin(), y.end());
    row_.insert(row_.end(), explicit_values.begin(), explicit_values.end());
    points_.add_row(row_);
}

void deq_points::step_done(const ode_summary& so_far)
{
    so_far_ = so_far;
    listener_.fraction_done(std::min((so_far.x - x1_) / range_, 1.0));
}

} // namespace kelvarin
