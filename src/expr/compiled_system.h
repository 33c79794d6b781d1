// SPDX-License-Identifier: MIT
#pragma once

#include "expr/basParse.h"
#include "expr/program.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace kelvarin
{

/// The texts of a system: named inputs, definitions `name = text`, and outputs. A definition may use the inputs and the
/// definitions before it, an output all of them.
struct system_texts
{
    /// Of inputs of the same name the last one's value counts.
    std::span<const std::string> inputs;
    std::span<const std::string> definition_names;
    std::span<const std::string> definitions;
    std::span<const std::string> outputs;
    /// Which list is compiled first, and so which refusal is found first.
    bool outputs_first = false;
};

/// The text at which compiling ended.
struct refused_expression
{
    bool is_output = false;
    /// From 1, in the order of its list.
    int number = 0;
    std::string message;
    /// The tree builder has no rule for the text; the message is that of the box titled "Fatal Error".
    bool fatal = false;
    /// What in the text the message is about, if that is known.
    std::optional<byte_range> place;
};

/// The text whose evaluation failed.
struct failed_expression
{
    bool is_output = false;
    /// From 1, in the order of its list.
    int number = 0;
    /// What in the text failed, if that is known.
    std::optional<byte_range> place;
};

/// Called by loops over many points before each of their evaluations; it may end the loop by an exception.
using evaluation_hook = std::function<void()>;

class compiled_system;
using compilation = std::variant<std::unique_ptr<compiled_system>, refused_expression>;

/// A system of expressions, compiled for one run: m outputs and the definitions as functions of n inputs.
///
/// An evaluation is made by the fast program. It gives the same bits as the plain walk over the trees or reports that
/// something failed; then the walk makes the evaluation again and leaves the failure in the context, where it stays:
/// while a failure stands, every value is 0. Systems that draw random numbers are evaluated by the walk alone.
class compiled_system
{
public:
    static compilation compile(const system_texts& texts);

    std::size_t input_count() const { return inputs_.size(); }
    std::size_t definition_count() const { return definitions_.size(); }
    std::size_t output_count() const { return output_trees_.size(); }

    /// f (m) = the outputs at the inputs x (n). A failure shows in the context alone. Allocates nothing and throws
    /// nothing unless the evaluation fails.
    void evaluate(std::span<const double> x, std::span<double> f);
    /// The definitions at the x of the last evaluate(), in their order. Not to be asked for after difference quotients
    /// or a sweep before the next evaluate(). Valid until the next call of any member.
    std::span<const double> definition_values();
    /// The definitions at x for display: one that can not be evaluated counts as 0 and does not hinder the others, and
    /// of inputs of the same name the first one counts. The failure state is clear afterwards.
    std::vector<double> displayed_definitions(std::span<const double> x);

    evaluation_context& context() { return context_; }
    const evaluation_context& context() const { return context_; }

    /// Where the failure that stands in the context arose; nullopt if none stands.
    std::optional<failed_expression> failed_part() const;

    /// The fast form for callers that evaluate several points at once, or nullptr where only the walk may evaluate the
    /// system. Its outputs are those of the system and then the definitions.
    program* fast_program();
    /// For assertions: whether the walk gives these bits at x, and no failure.
    bool agrees_with_walk(std::span<const double> x, std::span<const double> f);

private:
    using slots = std::vector<clsParse::slot>;
    using trees = std::vector<expression_tree>;

    /// Where the definitions of the last evaluation stand.
    enum class definitions_in
    {
        nowhere,
        program,
        store
    };

    compiled_system() = default;

    slots enter_names(std::span<const std::string> names);
    std::optional<refused_expression> compile_texts(std::span<const std::string> texts, bool are_outputs);
    void make_program();
    /// One evaluation tree by tree, which defines what an evaluation is.
    void walk(std::span<const double> x, std::span<double> f);
    bool definitions_agree_with_walk() const;

    clsParse store_;
    evaluation_context context_;
    slots inputs_;
    slots definitions_;
    trees definition_trees_;
    trees output_trees_;
    std::unique_ptr<program> program_;
    definitions_in last_ = definitions_in::nowhere;
    /// Set by the walk in which an evaluation fails.
    failed_expression failed_;
    std::vector<double> definition_values_;
};

} // namespace kelvarin
