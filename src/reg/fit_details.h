// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/fit/fit_diagnosis.h"
#include "numeric/fit/refined_fit.h"
#include "platform/clock.h"
#include "reg/fit_run.h"

#include <optional>
#include <string>
#include <vector>

/// What can be asked about a fit beyond its report.
namespace kelvarin
{

/// A fit with its derivatives by each parameter, and what they tell.
struct fit_details
{
    /// Nullopt where the parameters depend on each other or there are as many as observations.
    std::optional<fit_diagnosis> diagnosis;
    /// Of a linear fit: the coefficients by QR, and how many digits of the reported ones agree with them.
    std::vector<double> by_qr;
    double agreeing_digits = 17.0;
};

/// Throws what the model throws.
fit_details details_of(const fit_outcome& outcome, const regression_fit& fit, run_listener& listener);

/// The columns of the design of a linear fit, as rows.
matrix columns_of(const fit_outcome& outcome, const regression_fit& fit);

/// The boxes that end what is asked about a fit.
run_ending_boxes details_endings();

/// Everything that the last run's fits tell, in their order. Never throws.
struct details_outcome : run_outcome
{
    std::vector<fit_details> details;
};
details_outcome examine_fits(const fit_outcome& outcome, run_listener& listener);

/// The report "More statistics" as rich text.
std::string more_statistics_report(const fit_problem& problem, const fit_outcome& outcome,
                                   const details_outcome& details, calendar_date date);

/// The last fit carried on to the digits that its arithmetic gives: a nonlinear one by damped steps of tight tolerance,
/// a linear one by QR. Its widths come from the derivatives there and the table of t values.
struct polished_fit : run_outcome
{
    regression_fit fit;
    bool converged = false;
};
polished_fit polish_fit(const fit_outcome& outcome, run_listener& listener);

/// The report of polishing as rich text: what changed.
std::string polish_report(const fit_problem& problem, const fit_outcome& outcome, const polished_fit& polished,
                          calendar_date date);

} // namespace kelvarin
