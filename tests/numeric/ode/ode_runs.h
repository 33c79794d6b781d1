// SPDX-License-Identifier: MIT
#pragma once

#include "failures.h"
#include "numeric/ode/fehlberg.h"
#include "numeric/ode/ode_drivers.h"

#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

/// Integrations of plain functions by all methods, with all that they say on their way.
namespace kelvarin::test
{

using state = std::span<const double>;
using slopes = std::span<double>;
using right_sides = std::function<void(double, state, slopes)>;

/// A system that remembers where it was last called.
class recorded_system final : public ode_system
{
public:
    recorded_system(std::size_t size, right_sides f) : size_(static_cast<int>(size)), f_(std::move(f)) {}

    int size() const override { return size_; }
    void derivatives(double x, state y, slopes dydx) override
    {
        ++calls;
        last_x = x;
        last_y.assign(y.begin(), y.end());
        f_(x, y, dydx);
    }

    int calls = 0;
    double last_x = 0.0;
    std::vector<double> last_y;

private:
    int size_;
    right_sides f_;
};

struct recorded_point
{
    double x;
    std::vector<double> y;
    /// Where the right sides were last called by then.
    double called_x;
    std::vector<double> called_y;
};

/// Wishes to stop once `stop_at` calls are made, if that is not 0.
class ode_recorder final : public ode_observer
{
public:
    explicit ode_recorder(const recorded_system& system, int stop_at = 0) : system_(system), stop_at_(stop_at) {}

    void store(double x, state y) override
    {
        points.push_back({x, {y.begin(), y.end()}, system_.last_x, system_.last_y});
    }
    void step_done(const ode_summary& so_far, state /*y*/) override { steps.push_back(so_far); }
    bool stop_wished() const override { return stop_at_ > 0 && system_.calls >= stop_at_; }

    std::vector<recorded_point> points;
    std::vector<ode_summary> steps;

private:
    const recorded_system& system_;
    int stop_at_;
};

struct ode_settings
{
    double h = 1e-4;
    double tol = 1e-6;
    double hmin = 1e-12;
    int stop_at = 0;
};

struct ode_method
{
    std::string name;
    std::function<ode_summary(ode_system&, std::span<double>, const ode_range&, const ode_settings&, ode_observer&)>
        integrate;
};

inline ode_method fehlberg_method(const std::string& name, decltype(&integrate_rkf45) integrate)
{
    return {name, [=](auto& system, auto y, auto& range, auto& set, auto& observer) {
                return integrate(system, y, range, {.h = set.h, .tol = set.tol}, observer);
            }};
}

inline ode_method driven_method(const std::string& name, decltype(&odeint_bs) integrate)
{
    return {name, [=](auto& system, auto y, auto& range, auto& set, auto& observer) {
                return integrate(system, y, range, {.eps = set.tol, .h1 = set.h, .hmin = set.hmin}, observer);
            }};
}

inline const ode_method rkf45 = fehlberg_method("RKF45", integrate_rkf45);
inline const ode_method rkf56 = fehlberg_method("RKF56", integrate_rkf56);
inline const ode_method by_bs = driven_method("ODEINT_BS", odeint_bs);
inline const ode_method by_st = driven_method("ODEINT_ST", odeint_st);
inline const ode_method by_bsst = driven_method("ODEINT_BSST", odeint_bsst);
inline const std::vector<ode_method> drivers = {by_bs, by_st, by_bsst};
inline const std::vector<ode_method> all_methods = {rkf45, rkf56, by_bs, by_st, by_bsst};

struct ode_run
{
    ode_summary summary;
    std::vector<double> y;
    std::vector<recorded_point> points;
    std::vector<ode_summary> steps;
    int calls = 0;
    std::string failure;
};

inline ode_run run(const ode_method& method, right_sides f, std::vector<double> start, const ode_range& range,
                   const ode_settings& set = {})
{
    recorded_system system(start.size(), std::move(f));
    ode_recorder recorder(system, set.stop_at);
    ode_run made;
    made.y = std::move(start);
    made.failure = failure_of([&] { made.summary = method.integrate(system, made.y, range, set, recorder); });
    made.points = recorder.points;
    made.steps = recorder.steps;
    made.calls = system.calls;
    return made;
}

inline void nothing(double /*x*/, state /*y*/, slopes dydx)
{
    dydx[0] = 0.0;
}

inline void growth(double /*x*/, state y, slopes dydx)
{
    dydx[0] = y[0];
}

/// From 1 at 0: 1/(1 - x).
inline void pole(double /*x*/, state y, slopes dydx)
{
    dydx[0] = y[0] * y[0];
}

inline void jump(double x, state /*y*/, slopes dydx)
{
    dydx[0] = x > 0.33 ? 1.0 : 0.0;
}

} // namespace kelvarin::test
