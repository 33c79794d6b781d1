// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/ode/ode_observer.h"
#include "numeric/ode/ode_system.h"

#include <functional>
#include <span>
#include <utility>
#include <vector>

namespace kelvarin::test
{

/// A system given by a callable that remembers where it was last called.
class recorded_system final : public ode_system
{
public:
    using function = std::function<void(double, std::span<const double>, std::span<double>)>;

    recorded_system(int size, function derivatives) : size_(size), derivatives_(std::move(derivatives)) {}

    int size() const override { return size_; }
    void derivatives(double x, std::span<const double> y, std::span<double> dydx) override
    {
        ++calls;
        last_x = x;
        last_y.assign(y.begin(), y.end());
        derivatives_(x, y, dydx);
    }

    int calls = 0;
    double last_x = 0.0;
    std::vector<double> last_y;

private:
    int size_;
    function derivatives_;
};

/// Keeps all that an integration says: points, where the derivatives were last called by then, and the
/// summary of each step. It wishes to stop once `stop_at` calls of the derivatives are made.
class ode_recorder final : public ode_observer
{
public:
    explicit ode_recorder(const recorded_system& system) : system_(system) {}

    void store(double x, std::span<const double> y) override
    {
        points.push_back({x, {y.begin(), y.end()}, system_.last_x, system_.last_y});
    }
    void step_done(const ode_summary& so_far) override { steps.push_back(so_far); }
    bool stop_wished() const override { return stop_at > 0 && system_.calls >= stop_at; }

    struct point
    {
        double x;
        std::vector<double> y;
        double called_x;
        std::vector<double> called_y;
    };

    std::vector<point> points;
    std::vector<ode_summary> steps;
    int stop_at = 0;

private:
    const recorded_system& system_;
};

} // namespace kelvarin::test
