// SPDX-License-Identifier: MIT
#pragma once

#include "reg/table/table_content.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kelvarin
{

/// The regressions in the order of their pages.
enum class regression
{
    polynomial,
    multiple,
    nonlinear
};

/// In the order of cmbNLRMethod.
enum class nonlinear_method
{
    mrqmin,
    lm
};

/// What is asked of a regression, by its page or by a command line. Columns go by their names, numbers are as typed.
struct fit_request
{
    regression kind = regression::polynomial;
    /// Not of a nonlinear regression, whose model names its columns.
    std::string dependent = {};
    /// One of a polynomial.
    std::vector<std::string> independents = {};
    bool through_origin = false;

    /// The selected degrees of a polynomial, rising.
    std::vector<int> degrees = {};
    std::optional<std::string> derivative_point = {};
    std::optional<std::pair<std::string, std::string>> integral_bounds = {};

    nonlinear_method method = nonlinear_method::mrqmin;
    /// "y = a*x^b".
    std::string model = {};
    /// Guesses of other names than the model's parameters are ignored.
    std::vector<table_guess> guesses = {};

    bool graph = false;
    bool residuals = false;
    /// The column that takes the model.
    std::optional<std::string> model_column = {};
};

/// The text of a method's item, "L-M".
const char* method_text(nonlinear_method method);

} // namespace kelvarin
