// SPDX-License-Identifier: MIT
#pragma once

#include "expr/compiled_system.h"
#include "nle/equations/explicit_equations.h"
#include "nle/equations/system_jacobian.h"
#include "nle/nle_content.h"
#include "numeric/nonlinear/nonlinear_system.h"
#include "platform/message_box.h"
#include "platform/run_listener.h"

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace kelvarin
{

/// The equations of a problem as a system in the unknowns of its implicit rows, for one run. Explicit variables are not
/// unknowns; each evaluation computes them, in sorted order.
///
/// The steps are: construct from the rows, sort, compile, evaluate.
class nle_system final : public nonlinear_system
{
public:
    /// Splits the rows into names and right sides. Throws runtime_failure 6 if a guess is too large a number.
    nle_system(const nle_content& content, run_listener& listener);
    nle_system(const nle_system&) = delete;
    nle_system& operator=(const nle_system&) = delete;

    /// Sorts the explicit equations into the order of evaluation. Throws runtime_failure 8888 if they are circular.
    void sort();
    /// Compiles all equations, explicit ones first. Returns the box of the first that is refused, or nullopt.
    std::optional<message_box> compile_equations();

    int size() const override { return implicit_.size(); }
    /// Evaluates F at x (`eval_system`); both have size() elements. A failed evaluation is stored in the context alone.
    /// This and all other evaluations throw run_stopped if the listener asks the run to stop.
    void evaluate(std::span<const double> x, std::span<double> f) override;
    void difference_columns(std::span<const double> x, std::span<const double> f, std::span<const double> moved,
                            std::span<const double> divisors, matrix& df) override
    {
        difference_quotients(x, f, moved, divisors, df, nullptr);
    }
    const sparsity_pattern* difference_quotients(std::span<const double> x, std::span<const double> f,
                                                 std::span<const double> moved, std::span<const double> divisors,
                                                 matrix& df, const sparsity_pattern* known) override;
    /// f[i] = F(x[i]) for a system of one unknown. After a point that can not be evaluated all f are 0, and the context
    /// holds the failure.
    void evaluate_points(std::span<const double> x, std::span<double> f);

    /// Evaluates the explicit equations of a problem without unknowns, in sorted order. A failure is stored in the
    /// context.
    std::vector<double> evaluate_explicit();
    /// The explicit variables at `x` for display, in sorted order. A variable that can not be evaluated is shown as 0
    /// and does not affect the others; the failure state is clear afterwards.
    std::vector<double> explicit_values(std::span<const double> x) { return compiled_->displayed_definitions(x); }

    const equation_list& implicit_equations() const { return implicit_; }
    const equation_list& explicit_equations() const { return explicit_; }
    /// The guesses in the order of the implicit equations.
    const std::vector<double>& guesses() const { return guesses_; }
    const std::vector<sign_constraint>& constraints() const { return constraints_; }
    evaluation_context& context() { return compiled_->context(); }
    /// Row and part of the text of the evaluation that failed; nullopt if none did.
    std::optional<text_place> failed_place() const;

private:
    run_listener& listener_;
    equation_list implicit_;
    equation_list explicit_;
    /// Byte offset of the right side in the text of each row.
    std::vector<std::size_t> right_side_offsets_;
    std::vector<double> guesses_;
    std::vector<sign_constraint> constraints_;

    std::unique_ptr<compiled_system> compiled_;
    std::unique_ptr<system_jacobian> jacobian_;
};

} // namespace kelvarin
