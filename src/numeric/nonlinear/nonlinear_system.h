// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"
#include "numeric/linear/sparsity.h"

#include <functional>
#include <span>

namespace kelvarin
{

/// A system F(x) = 0 of n equations in n unknowns, as the solvers see it.
class nonlinear_system
{
public:
    virtual ~nonlinear_system() = default;

    /// n
    virtual int size() const = 0;
    /// f = F(x); both of n elements.
    virtual void evaluate(std::span<const double> x, std::span<double> f) = 0;

    /// Forward differences: column j of df is (F(x with moved[j] in place of x[j]) - f) / divisors[j], where
    /// f = F(x). The plain loop over the columns, one evaluation each; a system that knows which equation
    /// depends on which unknown may save evaluations as long as the bits stay.
    virtual void difference_columns(std::span<const double> x, std::span<const double> f, std::span<const double> moved,
                                    std::span<const double> divisors, matrix& df);

    /// The same difference quotients for a matrix that is used again from call to call. Returns the pattern outside
    /// of which df is zero, valid as long as the system, or nullptr if any element may differ from zero. `known` is
    /// what the last call with this df returned, df being unchanged since, or nullptr: the zeros that it promises
    /// need not be written again.
    virtual const sparsity_pattern* difference_quotients(std::span<const double> x, std::span<const double> f,
                                                         std::span<const double> moved,
                                                         std::span<const double> divisors, matrix& df,
                                                         const sparsity_pattern* known);
};

/// A system given by a callable (x, f); for tests and for systems that are no typed equations.
class function_system final : public nonlinear_system
{
public:
    using function = std::function<void(std::span<const double>, std::span<double>)>;

    function_system(int size, function evaluate) : size_(size), evaluate_(std::move(evaluate)) {}

    int size() const override { return size_; }
    void evaluate(std::span<const double> x, std::span<double> f) override
    {
        ++evaluations;
        evaluate_(x, f);
    }

    int evaluations = 0;

private:
    int size_;
    function evaluate_;
};

/// Called before each iteration with its number and the limit.
using iteration_hook = std::function<void(int iteration, int limit)>;

} // namespace kelvarin
