// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_start.h"
#include "numeric/fit/fit_statistics.h"
#include "platform/run_listener.h"
#include "platform/stopwatch.h"
#include "reg/fit_request.h"
#include "reg/table/table_content.h"
#include "shell/document/run_outcome.h"
#include "shell/settings.h"

#include <optional>
#include <string>
#include <vector>

namespace kelvarin
{

/// The input of a run: a copy of the table and what is asked of it.
struct fit_problem
{
    table_content content;
    fit_request request;
    /// Appears in captions; each run of the program has one of its own, also a run that fails.
    int solution_number = 1;
};

/// One fitted model.
struct regression_fit
{
    int n = 0;
    /// "a0", "a1" .. (through the origin from "a1"), or the names of a nonlinear model.
    std::vector<std::string> names = {};
    std::vector<double> values = {};
    /// The 95 % half-widths.
    std::vector<double> conf = {};
    fit_statistics statistics = {};
    /// Measured and calculated values, and of the independent variables one vector each.
    std::vector<double> y = {};
    std::vector<double> calculated = {};
    std::vector<std::vector<double>> x = {};

    /// Of a polynomial.
    int degree = 0;
    std::optional<double> integral = {};
    std::optional<double> derivative = {};

    /// Of a nonlinear model; chisq and alamda of mrqmin alone.
    std::vector<double> guesses = {};
    int iterations = 0;
    bool limit_reached = false;
    double chisq = 0.0;
    double alamda = 0.0;
};

/// A model as a column of the table: the texts of its first cells, and the formula.
struct model_column
{
    int column = 0;
    std::string name;
    std::string formula;
    std::vector<std::string> cells;
};

/// The result of a run. Report and JSON are functions of it, the problem and the date. What a run handed over before a
/// failure stays: fits and graphs of earlier degrees, and the model column of the last of them.
struct fit_outcome : run_outcome
{
    regression kind = regression::polynomial;
    std::string dependent;
    std::vector<std::string> independents;
    /// With a constant term.
    bool free_parameter = true;
    nonlinear_method method = nonlinear_method::mrqmin;
    /// The right side of a nonlinear model.
    std::string expression;

    std::vector<regression_fit> fits;
    /// In the order in which their windows open.
    std::vector<graph_start> graphs;
    std::optional<model_column> stored;
};

/// `check_regression_input`: the box that refuses a request before the run begins, nullopt if there is none.
std::optional<message_box> check_regression_input(const table_content& content, const fit_request& request);

/// `solve_regression`: checks and runs. Every refusal or failure is a box of the outcome, and so is a stop asked for by
/// the listener. Never throws; changes none of its arguments but the listener.
fit_outcome solve_regression(const fit_problem& problem, const settings& store, run_listener& listener,
                             const stopwatch& seconds = steady_seconds);

/// The caption of a report's window.
std::string report_caption(const fit_problem& problem);
/// "Linear Regression" or "Polynomial Regression": several degrees, or one above 1.
std::string polynomial_run_title(const fit_request& request);

} // namespace kelvarin
