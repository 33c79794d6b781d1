// SPDX-License-Identifier: MIT
#include "nle/nle_single.h"

#include "nle/nle_solve.h"
#include "numeric/arithmetic_check.h"
#include "platform/run_time_text.h"
#include "platform/runtime_failure.h"

#include <optional>
#include <utility>
#include <vector>

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
    root_search(nle_system& system, const settings& store, nle_method method, double lower, double upper)
        : system_(system), store_(store), method_(method)
    {
        const std::string& name = system.implicit_equations().names.front();
        result_.scan = named_columns({name, "f(" + name + ")"});
        result_.lower = lower;
        result_.upper = upper;
    }

    /// Evaluates the values at the problem's guess, used by the report alone.
    void initial_values()
    {
        double fvec = 0.0;
        system_.evaluate(system_.guesses(), {&fvec, 1});
        result_.initial_values = solution_of(system_, system_.guesses(), {&fvec, 1}, system_.guesses());
        // A failure at the guess must not suppress the scan.
        system_.context().clear_failure();
    }

    /// Evaluates the right side on the grid. The values after a point that fails are zeros.
    void scan()
    {
        std::vector<double>& x = result_.scan.columns[0];
        std::vector<double>& f = result_.scan.columns[1];
        for (int i = 1; i <= scan_points; ++i)
            x.push_back(point(i));
        f.resize(x.size());
        system_.evaluate_points(x, f);
    }

    /// Runs a local search at every change of sign, and at the guess if none of them found a root. Returns the box if
    /// an evaluation failed in a local search.
    std::optional<message_box> find_roots(run_listener& listener)
    {
        const std::vector<double>& f = result_.scan.columns[1];
        for (int i = 1; i <= scan_intervals; ++i) {
            listener.fraction_done(static_cast<double>(i) / scan_intervals);
            const auto left = static_cast<std::size_t>(i - 1);
            if (!opposite_signs(f[left], f[left + 1])) continue;
            if (auto failed = local_search(point(i + 0.5))) return failed;
        }
        if (!result_.roots.empty()) return std::nullopt;
        return local_search(system_.guesses().front());
    }

    /// What was found.
    nle_single_result take() { return std::move(result_); }

private:
    /// Point i of the grid: i = scan_points gives the upper bound; the lower bound is not a grid point.
    double point(double i) const
    {
        return finite(result_.lower + finite(i * finite(result_.upper - result_.lower)) / scan_points);
    }

    std::optional<message_box> local_search(double start)
    {
        system_.context().clear_failure();
        double x = start;
        double fvec = 0.0;
        solve_nle(method_, system_, {&x, 1}, {&fvec, 1}, store_, {});
        if (system_.context().eval_error_flag()) return evaluation_box(system_, "Expression evaluation error");
        if (!is_known(x) && !(sum_of_absolutes({&fvec, 1}) > largest_root_residual))
            result_.roots.push_back(solution_of(system_, {&x, 1}, {&fvec, 1}, {&start, 1}));
        return std::nullopt;
    }

    /// Whether a known root lies within a hundredth of `x`. The test is by quotient, so a known root of exactly 0 is a
    /// division by zero.
    bool is_known(double x) const
    {
        for (const nle_solution& root : result_.roots) {
            const double kept = root.implicit.front().value;
            if (kept == 0.0) throw runtime_failure(failure_number::division_by_zero);
            const double quotient = finite(x / kept);
            if (quotient > 0.99 && quotient < 1.01) return true;
        }
        return false;
    }

    nle_system& system_;
    const settings& store_;
    nle_method method_;
    nle_single_result result_;
};

} // namespace

void run_nle_single(const nle_content& content, nle_system& system, const settings& store, const wall_clock& clock,
                    run_listener& listener, nle_outcome& outcome)
{
    root_search search(system, store, outcome.method, val(content.lower_bound), val(content.upper_bound));
    search.initial_values();
    search.scan();

    const std::int64_t start = clock.whole_seconds();
    std::optional<message_box> failed = search.find_roots(listener);
    outcome.elapsed_seconds = static_cast<double>(clock.whole_seconds() - start);
    if (failed) return outcome.refuse(std::move(*failed));
    outcome.result = search.take();
    outcome.has_report = true;
}

} // namespace kelvarin
