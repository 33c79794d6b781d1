// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/fit/normal_equations.h"
#include "reg/fit_run.h"
#include "reg/table/table_reader.h"

#include <span>
#include <string>
#include <vector>

/// The three regressions as steps of a run, and what they share. They leave their results in the outcome as they come
/// about; what they throw ends the run.
namespace kelvarin
{

void run_polynomial(const fit_problem& problem, run_listener& listener, fit_outcome& outcome);
void run_multiple(const fit_problem& problem, fit_outcome& outcome);
void run_nonlinear(const fit_problem& problem, const settings& store, run_listener& listener, fit_outcome& outcome);

/// The column of a name. Throws runtime_failure 9 if there is none.
int required_column(const table_reader& table, std::string_view name);

/// "a0", "a1" ..; without a constant term from "a1" on.
std::vector<std::string> coefficient_names(std::size_t count, bool constant_term);

/// Takes over coefficients and calculated values.
void keep_solution(regression_fit& fit, const linear_fit& solved, bool constant_term);

/// The model column of the last fit, if one is asked for and can be found.
void store_model(const fit_problem& problem, const regression_fit& fit, std::string formula, fit_outcome& outcome);

} // namespace kelvarin
