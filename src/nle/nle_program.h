// SPDX-License-Identifier: MIT
#pragma once

#include "expr/program.h"
#include "numeric/matrix.h"

#include <cstdint>
#include <memory>
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

    /// As nonlinear_system::difference_columns; false, and `df` without meaning, where something failed.
    bool difference_columns(std::span<const double> x, std::span<const double> f, std::span<const double> moved,
                            std::span<const double> divisors, matrix& df);

private:
    /// Columns that no equation shares.
    using column_group = std::vector<std::size_t>;

    explicit nle_program(std::unique_ptr<program> compiled, std::size_t size);

    std::vector<std::vector<std::size_t>> results_reached_by_columns() const;
    void make_groups();
    std::span<const std::size_t> rows_of(std::size_t column) const;
    /// Writes what one point of a Jacobian tells: the columns of its group, or, where it moves nothing, all
    /// elements as those of rows that do not depend on their column.
    template <class Output>
    void take_differences(const column_group& group, std::span<const double> f, std::span<const double> divisors,
                          matrix& df, Output output);
    bool difference_side_by_side(std::size_t first, std::span<const double> x, std::span<const double> f,
                                 std::span<const double> moved, std::span<const double> divisors, matrix& df);
    bool difference_group(const column_group& group, std::span<const double> x, std::span<const double> f,
                          std::span<const double> moved, std::span<const double> divisors, matrix& df);

    std::unique_ptr<program> program_;
    std::size_t size_;
    /// Column by column the residuals that depend on it, and where those of each column end.
    std::vector<std::size_t> rows_;
    std::vector<std::size_t> row_ends_;
    std::vector<column_group> groups_;
};

} // namespace kelvarin
