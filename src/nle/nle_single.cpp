// SPDX-License-Identifier: MIT
#include "nle/nle_solve.h"
#include "platform/run_time_text.h"
#include "platform/runtime_failure.h"

namespace kelvarin
{

namespace
{

constexpr int scan_points = 167;
constexpr int scan_intervals = scan_points - 1;
/// A point is a root up to this sum of absolute residuals.
constexpr double largest_root_residual = 0.1;

bool opposite_signs(double a, double b)
{
    return (a < 0.0 && b > 0.0) || (a > 0.0 && b < 0.0);
}

/// The search for the roots of one equation.
class root_search
{
public:
    root_search(nle_system& system, const settings& store, nle_outcome& outcome)
        : system_(system), store_(store), outcome_(outcome)
    {
    }

    /// The values at the problem's guess, for the report alone.
    void initial_values()
    {
        double fvec = 0.0;
        system_.evaluate(system_.guesses(), {&fvec, 1});
        outcome_.initial_values = solution_of(system_, system_.guesses(), {&fvec, 1}, system_.guesses());
        // A failure at the guess must not blank the scan.
        system_.context().clear_failure();
    }

    /// The values on the grid. Behind a point that can not be evaluated they are zeros.
    void scan()
    {
        for (int i = 1; i <= scan_points; ++i)
            outcome_.scan_x.push_back(point(i));
        outcome_.scan_f.resize(outcome_.scan_x.size());
        system_.evaluate_points(outcome_.scan_x, outcome_.scan_f);
    }

    /// A local search at every change of sign, and at the guess if none of them left a root. False when a
    /// local search met a failed evaluation.
    bool find_roots(run_listener& listener)
    {
        for (int i = 1; i <= scan_intervals; ++i) {
            listener.fraction_done(static_cast<double>(i) / scan_intervals);
            const auto left = static_cast<std::size_t>(i - 1);
            if (!opposite_signs(outcome_.scan_f[left], outcome_.scan_f[left + 1])) continue;
            if (!local_search(point(i + 0.5))) return false;
        }
        return !outcome_.roots.empty() || local_search(system_.guesses().front());
    }

private:
    /// Point i of the grid; the upper bound is its last one, the lower bound none.
    double point(double i) const
    {
        return finite(outcome_.lower + finite(i * finite(outcome_.upper - outcome_.lower)) / scan_points);
    }

    bool local_search(double start)
    {
        system_.context().clear_failure();
        double x = start;
        double fvec = 0.0;
        solve_nle(outcome_.method, system_, {&x, 1}, {&fvec, 1}, store_, {});
        if (system_.context().eval_error_flag()) {
            outcome_.boxes.push_back(evaluation_box(system_.context(), "Expression evaluation error"));
            return false;
        }
        if (is_known(x) || sum_of_absolutes({&fvec, 1}) > largest_root_residual) return true;
        outcome_.roots.push_back(solution_of(system_, {&x, 1}, {&fvec, 1}, {&start, 1}));
        return true;
    }

    /// Whether a kept root lies within a hundredth of `x`. The test is by quotient, which a root of exactly
    /// 0 makes a division by zero.
    bool is_known(double x) const
    {
        for (const nle_solution& root : outcome_.roots) {
            const double kept = root.implicit.front().value;
            if (kept == 0.0) throw runtime_failure(failure_number::division_by_zero);
            const double quotient = finite(x / kept);
            if (quotient > 0.99 && quotient < 1.01) return true;
        }
        return false;
    }

    nle_system& system_;
    const settings& store_;
    nle_outcome& outcome_;
};

} // namespace

void run_nle_single(const nle_content& content, nle_system& system, const settings& store, const wall_clock& clock,
                    run_listener& listener, nle_outcome& outcome)
{
    outcome.lower = val(content.lower_bound);
    outcome.upper = val(content.upper_bound);
    root_search search(system, store, outcome);
    search.initial_values();
    search.scan();

    const std::int64_t start = clock.whole_seconds();
    const bool searched = search.find_roots(listener);
    outcome.elapsed_seconds = clock.whole_seconds() - start;
    outcome.has_report = searched;
}

} // namespace kelvarin
