// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_content.h"
#include "expr/compiled_system.h"
#include "nle/equations/evaluation_failed.h"
#include "nle/equations/explicit_equations.h"
#include "nle/equations/system_jacobian.h"
#include "numeric/linear/matrix.h"
#include "numeric/linear/sparsity.h"
#include "numeric/ode/ode_system.h"
#include "platform/message_box.h"
#include "platform/run_listener.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kelvarin
{

/// The equations of one run: the differential equations of a problem as a system y' = f(x, y). Explicit variables are
/// not part of y; each evaluation computes them in sorted order.
///
/// Call sort(), then compile_deq_expressions(), before any evaluation.
class deq_system final : public ode_system
{
public:
    /// Reads the rows. Throws runtime_failure 6 if an initial value is too large for a double.
    deq_system(const deq_content& content, run_listener& listener);
    deq_system(const deq_system&) = delete;
    deq_system& operator=(const deq_system&) = delete;

    /// Sorts the explicit equations into the order of their evaluation. Throws runtime_failure 8888 if they are
    /// circular or an equation uses its own variable.
    void sort();
    /// Compiles all equations, differential ones first. Returns the box of the first that is not valid.
    std::optional<message_box> compile_deq_expressions();

    int size() const override { return differential_.size(); }
    /// `evaluate_derivatives`: evaluates the explicit equations, then the right sides. Throws evaluation_failed.
    void derivatives(double x, std::span<const double> y, std::span<double> dydx) override;
    /// The same without a trace: returns false if an expression can't be evaluated. The explicit variables are those of
    /// this call then, until the next call of `derivatives`.
    bool try_derivatives(double x, std::span<const double> y, std::span<double> dydx);
    /// Whether evaluations change what later ones give, by drawing random numbers.
    bool draws_random() { return compiled_->fast_program() == nullptr; }
    /// Computes columns in lanes and by the sparsity pattern. Throws evaluation_failed, and run_stopped if the listener
    /// asks to stop.
    void differences(double x, std::span<const double> y, ode_jacobian& jacobian) override;
    /// The explicit variables at the last call of `derivatives`, in sorted order.
    std::span<const double> explicit_values() { return compiled_->definition_values(); }

    const equation_list& differential_equations() const { return differential_; }
    const equation_list& explicit_equations() const { return explicit_; }
    /// In the order of the differential equations.
    const std::vector<double>& initial_values() const { return initial_values_; }
    const evaluation_context& context() const { return compiled_->context(); }
    /// Row and part of the text of the evaluation that failed; nullopt if none did.
    std::optional<text_place> failed_place() const;

private:
    void set_inputs(double x, std::span<const double> y);
    void end_after_failure() const;

    run_listener& listener_;
    equation_list differential_;
    equation_list explicit_;
    /// The offset of the right side in the text of each row of the problem.
    std::vector<std::size_t> right_side_offsets_;
    std::vector<double> initial_values_;
    /// The inputs of the compiled system: x, then y.
    std::vector<std::string> input_names_;
    std::vector<double> inputs_;

    std::unique_ptr<compiled_system> compiled_;
    std::unique_ptr<system_jacobian> differences_;
    /// Arguments of the difference quotients: moved inputs, and their increments.
    std::vector<double> moved_;
    std::vector<double> increments_;
    /// The difference quotients: a row for each right side, a column for each input; and their sparsity pattern.
    matrix columns_;
    const sparsity_pattern* pattern_ = nullptr;
};

} // namespace kelvarin
