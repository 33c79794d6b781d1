// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_start.h"
#include "reg/fit_run.h"

#include <string>
#include <string_view>

/// What regressions hand over to graphs.
namespace kelvarin
{

/// The measured values over the independent variable with the polynomial as a function of x.
graph_start polynomial_graph(const fit_outcome& outcome, const regression_fit& fit, std::string caption);

/// Measured and calculated values over the numbers of the observations.
graph_start multiple_graph(const fit_outcome& outcome, const regression_fit& fit, int solution_number);
graph_start nonlinear_graph(const fit_outcome& outcome, const regression_fit& fit, int solution_number);

/// The residuals over the measured values, with the line of zeros.
graph_start residual_graph(const fit_outcome& outcome, const regression_fit& fit, std::string caption);

} // namespace kelvarin
