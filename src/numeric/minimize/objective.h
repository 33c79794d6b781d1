// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <utility>

namespace kelvarin
{

/// The ratio of the successive steps of ridders_gradient.
inline constexpr double gradient_step_ratio = 1.4;

/// A function of n variables that is to become as small as possible, as the minimizers see it.
class objective
{
public:
    struct value_pair
    {
        double above = 0.0;
        double below = 0.0;
    };

    virtual ~objective() = default;

    /// n
    virtual int size() const = 0;
    virtual double value(std::span<const double> x) = 0;

    /// The values with x[variable] + offset and x[variable] - offset in place of x[variable], asked for with ever
    /// smaller offsets. Two evaluations, the greater x first; an objective that evaluates several points at once may
    /// have looked ahead, as long as the bits stay and a point that nobody asks for does not fail.
    virtual value_pair values_beside(std::span<const double> x, std::size_t variable, double offset,
                                     std::span<double> point);
};

/// An objective given by a callable; for tests and for functions that are no typed equations.
class function_objective final : public objective
{
public:
    using function = std::function<double(std::span<const double>)>;

    function_objective(int size, function f) : size_(size), f_(std::move(f)) {}

    int size() const override { return size_; }
    double value(std::span<const double> x) override
    {
        ++evaluations;
        return f_(x);
    }

    int evaluations = 0;

private:
    int size_;
    function f_;
};

/// The gradient g of an objective at x by Ridders' extrapolation of central differences, for each variable in turn: ten
/// steps from 5.0 on, each 1.4 times smaller, ended as soon as the extrapolation gets worse. The first step is the same
/// for every variable, whatever its scale. `point` (n) is memory for moved points. Throws runtime_failure 6 where a
/// value is not finite. [Ridders1982], [Press1992] sec. 5.7
void ridders_gradient(objective& target, std::span<const double> x, std::span<double> g, std::span<double> point);

} // namespace kelvarin
