// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/explicit_equations.h"
#include "nle/nle_content.h"
#include "nle/nle_program.h"
#include "numeric/nonlinear/nonlinear_system.h"
#include "platform/message_box.h"
#include "platform/run_listener.h"

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace kelvarin
{

/// The tables of one run: the equations of a problem as a system in the unknowns of its implicit rows.
/// Explicit variables are no unknowns; each evaluation computes them afresh, in sorted order.
///
/// Built from the rows, then sorted, then compiled; only then evaluated.
class nle_system final : public nonlinear_system
{
public:
    /// Takes the rows apart. Throws runtime_failure 6 where a guess is too large a number.
    nle_system(const nle_content& content, run_listener& listener);

    /// Puts the explicit equations in the order of their evaluation and enters all names in the store.
    /// Throws runtime_failure 8888 for a circle.
    void sort();
    /// Compiles all equations, explicit ones first. The box tells the first that is refused.
    std::optional<message_box> compile_equations();

    int size() const override { return implicit_.size(); }
    /// One evaluation of F (`eval_system`). A failed evaluation shows in the context alone. Throws
    /// run_stopped where the listener asks for it.
    void evaluate(std::span<const double> x, std::span<double> f) override;
    void difference_columns(std::span<const double> x, std::span<const double> f, std::span<const double> moved,
                            std::span<const double> divisors, matrix& df) override
    {
        difference_quotients(x, f, moved, divisors, df, nullptr);
    }
    const sparsity_pattern* difference_quotients(std::span<const double> x, std::span<const double> f,
                                                 std::span<const double> moved, std::span<const double> divisors,
                                                 matrix& df, const sparsity_pattern* left) override;

    /// Evaluates the explicit equations of a problem without unknowns, in sorted order. A failure shows in
    /// the context.
    std::vector<double> evaluate_explicit();
    /// The explicit variables at `x` for display, in sorted order. A variable that can not be evaluated is
    /// shown as 0 and hinders no other; the failure state is clear afterwards.
    std::vector<double> explicit_values(std::span<const double> x);

    const equation_list& implicit_equations() const { return implicit_; }
    const equation_list& explicit_equations() const { return explicit_; }
    /// The guesses in the order of the implicit equations.
    const std::vector<double>& guesses() const { return guesses_; }
    const std::vector<sign_constraint>& constraints() const { return constraints_; }
    evaluation_context& context() { return context_; }

private:
    std::optional<message_box> compile(equation_list& equations, std::string_view label);
    void make_program();
    /// One evaluation tree by tree, which is what an evaluation means.
    void walk(std::span<const double> x, std::span<double> f);
    bool agrees_with_walk(std::span<const double> x, std::span<const double> f);

    run_listener& listener_;
    equation_list implicit_;
    equation_list explicit_;
    /// Where the right side begins in the text of each row of the problem.
    std::vector<std::size_t> right_side_offsets_;
    std::vector<double> guesses_;
    std::vector<sign_constraint> constraints_;

    clsParse nle_parser_;
    evaluation_context context_;
    std::vector<clsParse::slot> implicit_slots_;
    std::vector<clsParse::slot> explicit_slots_;
    /// The fast form, where there is one.
    std::unique_ptr<nle_program> program_;
};

} // namespace kelvarin
