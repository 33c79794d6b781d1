// SPDX-License-Identifier: MIT
#pragma once

#include "expr/compiled_system.h"
#include "expr/point_sweep.h"
#include "platform/run_listener.h"

#include <memory>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace kelvarin
{

/// A typed model over the rows of a table, compiled once: all rows are evaluated at a time, in lanes.
class row_model
{
public:
    /// The names of parameters and independent variables in the order of their values; one vector for each variable.
    struct names_and_values
    {
        std::span<const std::string> parameters;
        std::span<const std::string> independents;
        std::span<const std::vector<double>> x;
    };

    /// `x` must outlive the model. Returns why the text can't be compiled.
    static std::variant<std::unique_ptr<row_model>, refused_expression>
    compile(const std::string& expression, const names_and_values& names, run_listener& listener);

    /// The model's values for all rows. Throws runtime_failure 8888 with the evaluator's message where a row can't be
    /// evaluated, and run_stopped when the listener asks for it.
    void operator()(std::span<const double> parameters, std::span<double> values);

private:
    row_model(std::unique_ptr<compiled_system> system, const names_and_values& names, run_listener& listener);

    std::unique_ptr<compiled_system> system_;
    point_sweep sweep_;
    run_listener& listener_;
};

} // namespace kelvarin
