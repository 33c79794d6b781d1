// SPDX-License-Identifier: MIT
#pragma once

#include "expr/compiled_system.h"
#include "expr/point_sweep.h"
#include "nle/equations/evaluation_failed.h"
#include "nle/equations/explicit_equations.h"
#include "numeric/minimize/objective.h"
#include "opt/opt_content.h"
#include "opt/opt_points.h"
#include "platform/message_box.h"
#include "platform/run_listener.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kelvarin
{

/// The equations of one run: the target of a problem as a function of the variables with a start value. Explicit
/// variables are computed in sorted order at each evaluation. Where several rows define a name, the first start value
/// counts, and then the first explicit equation; the others are evaluated and not used.
///
/// Call opt_sort_explicit(), then opt_compile(), before any evaluation. An evaluation that fails throws
/// evaluation_failed, and run_stopped if the listener asks to stop.
class opt_system final : public objective
{
public:
    /// Reads the rows. Throws runtime_failure 13 if a start value is not a number.
    opt_system(const opt_content& content, run_listener& listener);
    opt_system(const opt_system&) = delete;
    opt_system& operator=(const opt_system&) = delete;

    /// Sorts the explicit equations into the order of their evaluation. Throws runtime_failure 8888 if they are
    /// circular or an equation uses its own variable.
    void opt_sort_explicit();
    /// Compiles the explicit equations, then the target. Returns the box of the first that is not valid; a place in the
    /// target has row 0.
    std::optional<message_box> opt_compile();

    int size() const override { return static_cast<int>(names_.size()); }
    /// `opt_eval_target`: evaluates the explicit equations, then the target.
    double value(std::span<const double> x) override;
    /// Looks ahead by one step, so that four points are evaluated side by side.
    value_pair values_beside(std::span<const double> x, std::size_t variable, double offset,
                             std::span<double> point) override;
    /// The value without a trace: returns nullopt if it can't be computed.
    std::optional<double> try_value(std::span<const double> x);

    /// The variables with a start value, in row order.
    const std::vector<std::string>& variable_names() const { return names_; }
    const std::vector<double>& start_values() const { return start_values_; }
    const equation_list& explicit_equations() const { return explicit_; }
    /// The explicit variables at x, in sorted order, as the target would see them.
    std::vector<double> explicit_values(std::span<const double> x);

    /// Evaluations of the target that a minimizer asked for.
    std::int64_t evaluations() const { return evaluations_; }
    /// The points of all calls of value(), in their order.
    const std::vector<target_point>& points() const { return points_; }
    /// Of the evaluation that threw evaluation_failed, if it was one of values_beside().
    const std::optional<failed_difference>& failed() const { return failed_; }
    const evaluation_context& context() const { return compiled_->context(); }
    /// The place of the evaluation that failed, with row 0 if it is in the target; nullopt if none did.
    std::optional<text_place> failed_place() const;

private:
    /// The pairs at two successive offsets of one variable.
    struct look_ahead
    {
        std::vector<double> x;
        std::size_t variable = 0;
        double next_offset = 0.0;
        std::optional<value_pair> next;
    };

    void read_row(int number, std::string_view equation);
    /// A part of the target, or all of it if that is not known, as a place of the problem.
    text_place place_in_target(const std::optional<byte_range>& part) const;
    /// The names under which the explicit equations are compiled: one that can't be written in an expression where the
    /// name is taken.
    std::vector<std::string> definition_names() const;
    std::span<const double> inputs_at(std::span<const double> x);
    void throw_if_stopped() const;
    value_pair sweep_pairs(std::span<const double> x, std::size_t variable, double offset);

    run_listener& listener_;
    std::string target_;
    /// Where it begins in the problem's text of the target.
    std::size_t target_offset_ = 0;
    std::vector<std::string> names_;
    std::vector<double> start_values_;
    equation_list explicit_;
    /// The offset of the right side in the text of each row of the problem.
    std::vector<std::size_t> right_side_offsets_;

    /// The inputs of the compiled system: each name once, with the variable that gives its value.
    std::vector<std::string> input_names_;
    std::vector<std::size_t> input_variables_;
    std::vector<double> inputs_;

    std::unique_ptr<compiled_system> compiled_;
    std::unique_ptr<point_sweep> sweep_;
    /// Arguments and results of a sweep.
    std::array<double, 4> column_{};
    std::array<double, 4> swept_{};
    look_ahead ahead_;

    std::int64_t evaluations_ = 0;
    std::vector<target_point> points_;
    std::optional<failed_difference> failed_;
};

} // namespace kelvarin
