// SPDX-License-Identifier: MIT
#pragma once

#include "platform/clock.h"
#include "reg/fit_run.h"
#include "shell/report/report_text.h"

#include <string>

namespace kelvarin
{

/// The report of a regression as rich text; the outcome must have a report.
std::string fit_report(const fit_problem& problem, const fit_outcome& outcome, const settings& store,
                       calendar_date date);

/// The head of the reports of regressions: results, title and date.
void add_report_head(report_text& report, const fit_problem& problem, calendar_date date);

/// The right side of a linear model with the names of its coefficients: "a0 + a1*x + a2*x^2".
std::string linear_model_text(const fit_outcome& outcome, const regression_fit& fit);

} // namespace kelvarin
