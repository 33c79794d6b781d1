// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_system.h"
#include "numeric/ode/ode_observer.h"
#include "platform/run_listener.h"
#include "shell/document/named_columns.h"

#include <span>
#include <string>
#include <utility>
#include <vector>

namespace kelvarin
{

/// Collects the points of an integration as columns: independent variable, differential variables in row order,
/// explicit variables in sorted order. The explicit values are those of the last evaluation of the derivatives; some
/// methods evaluate last at another point, so they may lag behind. Reports progress to the listener and stops when it
/// asks to.
class deq_points final : public ode_observer
{
public:
    deq_points(const std::string& independent, deq_system& system, double x1, double x2, run_listener& listener);

    void store(double x, std::span<const double> y) override;
    void step_done(const ode_summary& so_far) override;
    bool stop_wished() const override { return listener_.stop_asked(); }

    /// The summary as of the last step, for an integration that was ended by an exception.
    const ode_summary& so_far() const { return so_far_; }
    named_columns take() { return std::move(points_); }

private:
    deq_system& system_;
    run_listener& listener_;
    double x1_;
    double range_;
    named_columns points_;
    std::vector<double> row_;
    ode_summary so_far_;
};

} // namespace kelvarin
