// SPDX-License-Identifier: MIT
#pragma once

#include "expr/compiled_system.h"
#include "numeric/linear/matrix.h"
#include "numeric/linear/sparsity.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace kelvarin
{

/// Jacobians by difference quotients of a compiled system of m outputs in n inputs. The sparsity pattern is read from
/// the program; columns that share no output and no definition get one colour and are moved together, and several
/// colours are evaluated in lanes. [CurtisPowellReid1974]
class system_jacobian
{
public:
    /// The system must outlive the object. Pattern and colouring are computed at the first use.
    explicit system_jacobian(compiled_system& system, evaluation_hook before_each = {})
        : system_(system), before_each_(std::move(before_each))
    {
    }

    /// Column j of df (m x n) = (f(x with moved[j] in place of x[j]) - f) / divisors[j], where f = f(x) has m elements
    /// and x, moved and divisors have n. Results and failures are bit for bit those of one evaluation per column.
    /// Returns the pattern outside of which df is zero, valid during the life of this object, or nullptr if any element
    /// may differ from zero. `known` is what the last call with this df returned if df is unchanged since, else
    /// nullptr. A failure is stored in the system's context.
    const sparsity_pattern* difference_quotients(std::span<const double> x, std::span<const double> f,
                                                 std::span<const double> moved, std::span<const double> divisors,
                                                 matrix& df, const sparsity_pattern* known);

private:
    /// The arguments of difference_quotients.
    struct differences
    {
        std::span<const double> x, f, moved, divisors;
        matrix& df;
    };

    /// The results (outputs and definitions) that depend on each column, listed column by column.
    struct column_results
    {
        std::vector<std::size_t> results;
        std::vector<std::size_t> ends;

        std::span<const std::size_t> of(std::size_t column) const
        {
            const std::size_t first = column == 0 ? 0 : ends[column - 1];
            return std::span(results).subspan(first, ends[column] - first);
        }
    };

    /// An element of the pattern and the source of its numerator.
    struct pattern_element
    {
        /// Index in row-major order of the whole matrix.
        std::uint32_t element = 0;
        std::uint32_t lane_register = 0;
        std::uint32_t row = 0;
        std::uint32_t column = 0;
    };

    std::size_t rows() const { return system_.output_count(); }
    std::size_t columns() const { return system_.input_count(); }

    void prepare(program& fast);
    template <class Visit> static void for_each_input(const program& fast, std::size_t result, Visit visit);
    column_results results_of_columns(const program& fast) const;
    void make_colours(const program& fast);
    void make_pattern(program& fast);
    /// Sets all elements to the values of rows that do not depend on their column. `zero_elsewhere`: whether elements
    /// outside of the pattern are zero, before and after the call.
    template <class Output> void write_unmoved(const differences& wanted, bool& zero_elsewhere, Output output) const;
    /// Evaluates colour `first` and the following ones in lanes. Returns false if an evaluation failed.
    bool difference_lanes(program& fast, std::size_t first, const differences& wanted, bool& zero_elsewhere);
    bool difference_colour(program& fast, std::size_t colour, const differences& wanted, bool& zero_elsewhere);
    bool difference_all(program& fast, const differences& wanted, bool& zero_elsewhere);
    void difference_columns(const differences& wanted);

    void before_each() const
    {
        if (before_each_) before_each_();
    }

    compiled_system& system_;
    evaluation_hook before_each_;
    /// The columns of each colour.
    std::vector<std::vector<std::size_t>> colours_;
    std::vector<std::size_t> colour_of_;
    sparsity_pattern pattern_;
    /// Whether the pattern has few enough elements to be worth using.
    bool is_sparse_ = false;
    /// The elements that each pass yields.
    std::vector<std::vector<pattern_element>> passes_;
};

} // namespace kelvarin
