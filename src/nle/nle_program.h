// SPDX-License-Identifier: MIT
#pragma once

#include "expr/program.h"
#include "numeric/linear/matrix.h"
#include "numeric/linear/sparsity.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace kelvarin
{

/// The fast form of a system of n residuals in n unknowns: one program for all equations, and columns of
/// the Jacobian that share no equation differenced together. [CurtisPowellReid1974]
///
/// It gives the bits of the plain walk or refuses, and then the walk tells what happened.
class nle_program
{
public:
    /// `system` has the unknowns as inputs, the explicit equations as definitions and the residuals as
    /// outputs. Nothing where only the walk may evaluate it.
    static std::unique_ptr<nle_program> compile(tree_system system);

    /// f = F(x); false where something failed.
    bool evaluate(std::span<const double> x, std::span<double> f);

    /// As nonlinear_system::difference_quotients; nothing, and `df` without meaning, where something failed.
    std::optional<const sparsity_pattern*> difference_quotients(std::span<const double> x, std::span<const double> f,
                                                                std::span<const double> moved,
                                                                std::span<const double> divisors, matrix& df,
                                                                const sparsity_pattern* left);

private:
    static constexpr std::size_t lanes = program::lanes;

    /// Columns that no equation shares.
    using column_group = std::vector<std::size_t>;

    /// The arguments of difference_quotients.
    struct differences
    {
        std::span<const double> x, f, moved, divisors;
        matrix& df;
    };

    /// The results that each column reaches, one column behind the other, and where those of each end.
    struct reached_results
    {
        std::vector<std::size_t> results;
        std::vector<std::size_t> ends;

        std::span<const std::size_t> of(std::size_t column) const
        {
            const std::size_t first = column == 0 ? 0 : ends[column - 1];
            return std::span(results).subspan(first, ends[column] - first);
        }
    };

    /// An element of a Jacobian, and what it is made from.
    struct fill
    {
        /// Among all elements of the matrix.
        std::uint32_t element = 0;
        std::uint32_t lane_place = 0;
        std::uint32_t row = 0;
        std::uint32_t column = 0;
    };

    explicit nle_program(std::unique_ptr<program> compiled, std::size_t size);

    template <class Visit> void for_each_input(std::size_t result, Visit visit) const;
    reached_results results_reached_by_columns() const;
    void make_groups();
    void make_places();
    /// Writes what the point that moves nothing tells: all elements as those of rows that do not depend on
    /// their column. `zero_elsewhere` tells whether outside of the places the elements are zero already,
    /// and then whether they are.
    template <class Output> void take_unmoved(const differences& wanted, bool& zero_elsewhere, Output output) const;
    /// One pass: groups `first` and those behind it as points side by side.
    bool difference_side_by_side(std::size_t first, const differences& wanted, bool& zero_elsewhere);
    bool difference_group(std::size_t group, const differences& wanted, bool& zero_elsewhere);

    std::unique_ptr<program> program_;
    std::size_t size_;
    std::vector<column_group> groups_;
    std::vector<std::size_t> group_of_;
    sparsity_pattern pattern_;
    /// The places are few enough to be worth a caller's while.
    bool is_sparse_ = false;
    /// For each pass the elements that it gives.
    std::vector<std::vector<fill>> fills_;
};

} // namespace kelvarin
