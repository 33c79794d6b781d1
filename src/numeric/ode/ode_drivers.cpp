// SPDX-License-Identifier: MIT
#include "numeric/ode/ode_drivers.h"

#include "numeric/ode/bader_deuflhard.h"
#include "numeric/ode/bulirsch_stoer.h"
#include "numeric/ode/rosenbrock.h"
#include "numeric/ode/watched_system.h"
#include "numeric/work_array.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

namespace
{

/// The error of a stiff method is measured in hundredths, whatever the variable.
constexpr double fixed_scale = 0.01;
/// Keeps the scale of a variable at 0 above 0.
constexpr double smallest_scale = 1e-30;
constexpr double tightest_unrelaxed = 1e-5;
constexpr double relaxation = 1000.0;

/// In what the drivers differ beside their stepper.
struct driver_rules
{
    std::string_view name;
    /// Errors in units of fixed_scale, and hmin instead of a shorter step.
    bool for_stiff;
};

template <class Stepper> class driven_integration
{
public:
    driven_integration(const driver_rules& rules, ode_system& system, std::span<double> y, const ode_range& range,
                       const odeint_options& options, ode_observer& observer)
        : rules_(rules), system_(system, observer, summary_), observer_(observer), output_(range.spacing, observer),
          range_(range), hmin_(options.hmin), h_(std::fabs(options.h1)), dydx_(work_array(system.size())),
          yscal_(static_cast<std::size_t>(system.size()), fixed_scale), at_{range.x1, y, dydx_}, stepper_(system_)
    {
        summary_.tolerance = options.eps;
        summary_.x = range.x1;
    }

    ode_summary run()
    {
        system_.derivatives(at_.x, at_.y, dydx_);
        output_.store(at_.x, at_.y, summary_);
        for (int nstp = 0; nstp < most_odeint_steps; ++nstp) {
            ++summary_.steps;
            prepare();
            advance();
            if ((at_.x - range_.x2) * (range_.x2 - range_.x1) >= 0.0) return finish();
            plan();
        }
        nrerror(std::string(rules_.name) + ": Too many steps in routine odeint");
    }

private:
    void prepare()
    {
        system_.derivatives(at_.x, at_.y, dydx_);
        if (!rules_.for_stiff) scale_by_state();
        if (output_.due(at_.x)) output_.store(at_.x, at_.y, summary_);
        observer_.step_done(summary_, at_.y);
        system_.stop_if_wished();
        if ((at_.x + h_ - range_.x1) * (at_.x + h_ - range_.x2) > 0.0) h_ = range_.x2 - at_.x;
    }

    void scale_by_state()
    {
        for (std::size_t i = 0; i < yscal_.size(); ++i)
            yscal_[i] = finite(std::fabs(at_.y[i]) + std::fabs(h_ * dydx_[i]) + smallest_scale);
    }

    void advance()
    {
        stepper_.advance(at_, h_, summary_.tolerance, yscal_, step_);
        summary_.x = at_.x;
        ++(step_.hdid == h_ ? summary_.good : summary_.bad);
        const double length = std::fabs(step_.hdid);
        summary_.smallest_step = summary_.steps == 1 ? length : std::min(summary_.smallest_step, length);
        summary_.largest_step = std::max(summary_.largest_step, length);
    }

    ode_summary finish()
    {
        if (!output_.full()) output_.store(at_.x, at_.y, summary_);
        summary_.end_reached = true;
        return summary_;
    }

    /// The next step. What the stepper proposed stays as it is, since it looks whether it is followed.
    void plan()
    {
        if (std::fabs(step_.hnext) <= hmin_) {
            if (!rules_.for_stiff) nrerror(std::string(rules_.name) + ": Step size too small in odeint");
            step_.hnext = hmin_;
            relax();
        }
        h_ = step_.hnext <= output_.spacing() ? step_.hnext : output_.longest_step();
    }

    void relax()
    {
        if (!(summary_.tolerance < tightest_unrelaxed)) return;
        summary_.tolerance *= relaxation;
        ++summary_.relaxations;
    }

    driver_rules rules_;
    ode_summary summary_;
    watched_system system_;
    ode_observer& observer_;
    output_grid output_;
    ode_range range_;
    double hmin_;
    double h_;
    std::vector<double> dydx_;
    std::vector<double> yscal_;
    ode_position at_;
    ode_step step_;
    Stepper stepper_;
};

template <class Stepper>
ode_summary integrate(const driver_rules& rules, ode_system& system, std::span<double> y, const ode_range& range,
                      const odeint_options& options, ode_observer& observer)
{
    check_range(range, rules.name);
    check_positive(options.eps, "accuracy eps", rules.name);
    finite(options.h1);
    return driven_integration<Stepper>(rules, system, y, range, options, observer).run();
}

} // namespace

ode_summary odeint_bs(ode_system& system, std::span<double> y, const ode_range& range, const odeint_options& options,
                      ode_observer& observer)
{
    return integrate<bsstep>({"ODEINT_BS", false}, system, y, range, options, observer);
}

ode_summary odeint_st(ode_system& system, std::span<double> y, const ode_range& range, const odeint_options& options,
                      ode_observer& observer)
{
    return integrate<stiff>({"ODEINT_ST", true}, system, y, range, options, observer);
}

ode_summary odeint_bsst(ode_system& system, std::span<double> y, const ode_range& range, const odeint_options& options,
                        ode_observer& observer)
{
    return integrate<stifbs>({"ODEINT_BSST", true}, system, y, range, options, observer);
}

} // namespace kelvarin
