// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"
#include "numeric/ode/ode_stepper.h"

#include <array>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// Polynomial extrapolation to 0 of vectors that depend on the square of a step, column by column of Neville's
/// tableau. [Press1992] sec. 16.4, [StoerBulirsch2002] sec. 2.1
class pzextr
{
public:
    pzextr(int columns, int size);

    /// Takes the estimate `yest` at `xest` as column `iest`, counted from 0; xest differs from those of the
    /// columns before. `yz` becomes the extrapolated value, `dy` its last correction.
    void operator()(int iest, double xest, std::span<const double> yest, std::span<double> yz, std::span<double> dy);

private:
    std::vector<double> xpts_;
    matrix d_;
    std::vector<double> c_;
};

/// A step that is made several times, with more and more substeps, and extrapolated to infinitely many;
/// chooses its length and the number of columns so that the work per unit of x is least. [Deuflhard1983],
/// [Press1992] sec. 16.4
class extrapolation_stepper : public ode_stepper
{
public:
    static constexpr int most_columns = 8;

    void advance(ode_position& at, double htry, double eps, std::span<const double> yscal, ode_step& step) final;

protected:
    /// `sequence`: substeps by column, one column more than are used. `start_work`: evaluations at the start
    /// of a step beside those of the rule. `underflow`: the failure of a step that x does not feel.
    extrapolation_stepper(int size, std::span<const int> sequence, int start_work, std::string_view underflow);

    virtual void start_step(const ode_position& /*at*/) {}
    /// The state after a step of htot from y at x, made in `substeps`.
    virtual void base_rule(double x, std::span<const double> y, std::span<const double> dydx, double htot, int substeps,
                           std::span<double> yout) = 0;

private:
    void make_tables(double eps);
    void sum_work(double at_start);
    std::optional<int> make_columns(const ode_position& at, double eps, std::span<const double> yscal);
    double largest_error(double eps, std::span<const double> yscal) const;
    std::optional<double> reduction(int column) const;
    double next_step(int column, bool reduced);

    std::span<const int> sequence_;
    int columns_;
    int start_work_;
    std::string_view underflow_;

    /// The tolerance for which the tables hold.
    double tables_eps_ = -1.0;
    /// By column: evaluations that a step costs up to it.
    std::array<double, most_columns + 1> work_ = {};
    /// Element [k][q]: the factor by which a step that converges in column k has to be shorter for column q.
    std::array<std::array<double, most_columns>, most_columns> alf_ = {};
    /// The last column that a step may use, and the one in which it is expected to converge.
    int kmax_ = 0;
    int kopt_ = 0;
    /// The step is not the one that the last step planned.
    bool first_ = true;
    /// Where the last step aimed.
    double xnew_ = 0.0;
    double h_ = 0.0;
    /// By column before the present one: the error over the permitted one, as a factor of the step.
    std::array<double, most_columns> err_ = {};

    std::vector<double> start_y_;
    std::vector<double> estimate_;
    std::vector<double> correction_;
    pzextr extrapolate_;
};

} // namespace kelvarin
