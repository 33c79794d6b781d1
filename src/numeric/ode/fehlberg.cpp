// SPDX-License-Identifier: MIT
#include "numeric/ode/fehlberg.h"

#include "numeric/linear/matrix.h"
#include "numeric/ode/butcher_tableau.h"
#include "numeric/ode/watched_system.h"
#include "numeric/work_array.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr double smallest_significant_step = 1e-10;
constexpr double part_that_counts_as_all = 0.95;
/// What may be missing of a range whose end counts as reached; a last step below the smallest is not made.
constexpr double part_nobody_misses = 1e-6;
constexpr double tightest_unrelaxed = 1e-5;
constexpr double relaxation = 1000.0;
/// Steps are sized for this part of the tolerance.
constexpr double aimed_part = 20.0;
constexpr double smallest_error = 1e-20;
/// Passes in a row that leave x where it is. More of them, and nobody would see the end.
constexpr int most_idle_passes = 100'000;

/// Variables that are worked on side by side, so that the loops over them become vector instructions.
constexpr std::size_t lanes = 4;

int whole_lanes(int count)
{
    constexpr int width = lanes;
    return (count + width - 1) / width * width;
}

struct fehlberg_method
{
    std::string_view name;
    const butcher_tableau& tableau;
    /// The largest error of a step starts from that of the step before it instead of 0.
    bool carries_error;
};

class fehlberg_integration
{
public:
    fehlberg_integration(const fehlberg_method& method, ode_system& system, std::span<double> y, const ode_range& range,
                         const fehlberg_options& options, ode_observer& observer)
        : method_(method), tableau_(method.tableau), system_(system, observer, summary_), observer_(observer),
          output_(range.spacing, observer), range_(range), y_(y), start_(work_array(system.size())),
          k_(tableau_.stages, whole_lanes(system.size())), x_(range.x1),
          step_(std::min(std::fabs(options.h), range.x2 - range.x1)), aim_(options.tol / aimed_part)
    {
        summary_.tolerance = options.tol;
        summary_.x = x_;
    }

    ode_summary run()
    {
        system_.derivatives(x_, y_, stage(0));
        output_.store(x_, y_, summary_);
        for (;;) {
            ++summary_.steps;
            x_start_ = x_;
            std::ranges::copy(y_, start_.begin());
            system_.derivatives(x_, y_, stage(0));
            if (std::fabs(step_) < smallest_significant_step) {
                if (near_end()) return finish();
                relax();
            }
            attempt();
            observer_.step_done(summary_, y_);
            system_.stop_if_wished();
        }
    }

private:
    std::span<double> stage(int m) { return k_.row(m).first(y_.size()); }

    bool near_end() const { return (x_ - range_.x1) / (range_.x2 - range_.x1) >= part_that_counts_as_all; }

    ode_summary finish()
    {
        if (output_.last_x() != range_.x2) output_.store(range_.x2, y_, summary_);
        summary_.end_reached = range_.x2 - x_ <= part_nobody_misses * (range_.x2 - range_.x1);
        return summary_;
    }

    /// The way out of a step that has collapsed far from the end. The size that steps aim at stays.
    void relax()
    {
        if (step_ == 0.0) fail_without_advance();
        if (!(summary_.tolerance < tightest_unrelaxed)) return;
        summary_.tolerance *= relaxation;
        ++summary_.relaxations;
    }

    [[noreturn]] void fail_without_advance() const
    {
        nrerror(std::string(method_.name) + ": The steps do not advance the independent variable any more.");
    }

    void attempt()
    {
        for (int m = 1; m < tableau_.stages; ++m) {
            move(tableau_.a[static_cast<std::size_t>(m)], m);
            x_ = x_start_ + tableau_.c[static_cast<std::size_t>(m)] * step_;
            system_.derivatives(x_, y_, stage(m));
        }
        move(tableau_.b, tableau_.stages);
        require_finite(y_);
        largest_error_ = finite(std::fabs(step_) * error_norm()) + smallest_error;

        const double used = step_;
        step_ = std::min(std::pow(aim_ / largest_error_, 1.0 / tableau_.order) * step_, output_.longest_step());
        if (largest_error_ > summary_.tolerance)
            reject();
        else
            accept(used);
        idle_passes_ = x_ == x_start_ ? idle_passes_ + 1 : 0;
        if (idle_passes_ > most_idle_passes) fail_without_advance();
    }

    /// y = start + step times the weighted sum of the first stages.
    void move(const butcher_tableau::stage_weights& weights, int stages)
    {
        for_each_sum(weights, stages, [this](std::size_t i, double sum) { y_[i] = start_[i] + step_ * sum; });
    }

    /// The largest estimated error of a variable, per unit of step, relative to the variable.
    double error_norm()
    {
        double largest = method_.carries_error ? largest_error_ : 0.0;
        for_each_sum(tableau_.e, tableau_.stages, [&](std::size_t i, double sum) {
            const double size = std::max(std::fabs(y_[i]), summary_.tolerance);
            largest = std::max(largest, finite(std::fabs(sum * tableau_.error_factor) / size));
        });
        return largest;
    }

    /// Calls `use` with each variable's number and the weighted sum of its first stages, in their order.
    template <class Use> void for_each_sum(const butcher_tableau::stage_weights& weights, int stages, Use use) const
    {
        for (std::size_t first = 0; first < y_.size(); first += lanes) {
            double sums[lanes] = {};
            for (int l = 0; l < stages; ++l) {
                const double weight = weights[static_cast<std::size_t>(l)];
                const double* const k = k_.row(l).data() + first;
                for (std::size_t lane = 0; lane < lanes; ++lane)
                    sums[lane] += weight * k[lane];
            }
            const std::size_t end = std::min(first + lanes, y_.size());
            for (std::size_t i = first; i < end; ++i)
                use(i, sums[i - first]);
        }
    }

    void reject()
    {
        ++summary_.bad;
        x_ = x_start_;
        std::ranges::copy(start_, y_.begin());
    }

    void accept(double used)
    {
        const double length = std::fabs(used);
        summary_.smallest_step = summary_.good == 0 ? length : std::min(summary_.smallest_step, length);
        summary_.largest_step = std::max(summary_.largest_step, length);
        ++summary_.good;
        x_ = summary_.x = x_start_ + used;
        if (std::fabs(range_.x2 - x_) < std::fabs(step_)) step_ = range_.x2 - x_;
        if (output_.due(x_)) output_.store(x_, y_, summary_);
    }

    const fehlberg_method& method_;
    const butcher_tableau& tableau_;
    ode_summary summary_;
    watched_system system_;
    ode_observer& observer_;
    output_grid output_;
    ode_range range_;
    std::span<double> y_;
    std::vector<double> start_;
    /// By stage the right sides, and nothing up to whole lanes.
    matrix k_;
    double x_;
    double x_start_ = 0.0;
    double step_;
    /// A twentieth of the tolerance as asked: relaxing leaves it.
    double aim_;
    double largest_error_ = 0.0;
    int idle_passes_ = 0;
};

ode_summary integrate(const fehlberg_method& method, ode_system& system, std::span<double> y, const ode_range& range,
                      const fehlberg_options& options, ode_observer& observer)
{
    check_range(range, method.name);
    check_positive(std::fabs(options.h), "initial step size", method.name);
    check_positive(options.tol, "truncation error tolerance", method.name);
    return fehlberg_integration(method, system, y, range, options, observer).run();
}

} // namespace

ode_summary integrate_rkf45(ode_system& system, std::span<double> y, const ode_range& range,
                            const fehlberg_options& options, ode_observer& observer)
{
    static constexpr fehlberg_method method = {"RKF45", fehlberg_45, false};
    return integrate(method, system, y, range, options, observer);
}

ode_summary integrate_rkf56(ode_system& system, std::span<double> y, const ode_range& range,
                            const fehlberg_options& options, ode_observer& observer)
{
    static constexpr fehlberg_method method = {"RKF56", fehlberg_56, true};
    return integrate(method, system, y, range, options, observer);
}

} // namespace kelvarin
