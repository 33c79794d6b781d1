// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_content.h"
#include "deq/deq_system.h"
#include "numeric/ode/ode_observer.h"
#include "numeric/ode/output_grid.h"
#include "numeric/ode/stiffness_watch.h"
#include "platform/run_listener.h"
#include "shell/document/named_columns.h"

#include <atomic>
#include <optional>
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
    /// `stiffness_suspected` is set as soon as that is the case.
    deq_points(const std::string& independent, deq_system& system, const ode_range& range, deq_method method,
               run_listener& listener, std::atomic<bool>& stiffness_suspected);

    void store(double x, std::span<const double> y) override;
    void step_done(const ode_summary& so_far, std::span<const double> y) override;
    bool stop_wished() const override { return listener_.stop_asked(); }

    /// The summary as of the last step, for an integration that was ended by an exception.
    const ode_summary& so_far() const { return so_far_; }
    named_columns take() { return std::move(points_); }

private:
    deq_system& system_;
    run_listener& listener_;
    ode_range range_;
    std::optional<stiffness_watch> watch_;
    std::atomic<bool>& stiffness_suspected_;
    named_columns points_;
    std::vector<double> row_;
    ode_summary so_far_;
};

} // namespace kelvarin
