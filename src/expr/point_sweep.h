// SPDX-License-Identifier: MIT
#pragma once

#include "expr/compiled_system.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace kelvarin
{

/// The one output of a system at many points, evaluated in lanes: a column of values for each input that varies, and a
/// column of results. Same bits and failures as one evaluation after the other.
class point_sweep
{
public:
    /// All inputs are 0 at first. The system must outlive the sweep and has one output.
    explicit point_sweep(compiled_system& system, evaluation_hook before_each = {});

    /// Gives an input the same value at all points.
    void set_input(std::size_t input, double value) { inputs_[input] = {value, {}}; }
    /// Gives an input the values of a column, one a row; the column must outlive the runs.
    void set_input(std::size_t input, std::span<const double> column) { inputs_[input] = {0.0, column}; }

    /// Evaluates the rows from `first` to the end of `values`. Returns the first row whose evaluation failed, or
    /// nullopt: its value is what the walk leaves there, the values behind it are zeros, and the failure stands in the
    /// system's context. To go on behind it, clear the failure and run again from the next row.
    std::optional<std::size_t> run(std::span<double> values, std::size_t first = 0);

private:
    struct input_values
    {
        double value = 0.0;
        std::span<const double> column;

        double at(std::size_t row) const { return column.empty() ? value : column[row]; }
    };

    void set_same_inputs(program& fast);
    /// Rows from `row` on, as many as `values` has and at most a lane each; false if they are to be evaluated alone.
    bool run_lanes(program& fast, std::size_t row, std::span<double> values);
    bool agrees_with_walk(std::size_t row, std::span<const double> values);
    std::span<const double> point_at(std::size_t row);

    compiled_system& system_;
    evaluation_hook before_each_;
    std::vector<input_values> inputs_;
    std::vector<double> point_;
};

} // namespace kelvarin
