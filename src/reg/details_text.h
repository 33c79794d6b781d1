// SPDX-License-Identifier: MIT
#pragma once

#include "platform/clock.h"
#include "reg/fit_run.h"
#include "shell/report/report_text.h"

#include <cstddef>
#include <string>

/// What the reports beyond that of a run are made of.
namespace kelvarin
{

/// A number in five digits, "none" where it is not finite.
std::string shown(double value);

/// A text as a column of a table with fixed letters.
std::string cell(std::string text, std::size_t width = 12);

void begin_report(report_text& report, const fit_problem& problem, const std::string& title, calendar_date date);
void add_sub_head(report_text& report, const std::string& head);
/// A row of a table.
void add_row(report_text& report, const std::string& text);

/// "P = a0 + a1*T".
std::string model_of(const fit_outcome& outcome, const regression_fit& fit);

/// The number of a solution as captions have it, with the degree of a polynomial behind it: "#3.2".
std::string number_of_fit(const fit_problem& problem, const regression_fit& fit);

} // namespace kelvarin
