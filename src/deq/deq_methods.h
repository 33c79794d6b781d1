// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_content.h"
#include "numeric/ode/ode_observer.h"
#include "numeric/ode/ode_system.h"
#include "numeric/ode/output_grid.h"
#include "shell/settings.h"

#include <span>

namespace kelvarin
{

/// `deq_output_step`: the range divided by the number of intermediate points in the settings. Throws runtime_failure 11
/// if that is 0.
double output_step_from(const settings& store, double x1, double x2);

/// Integrates with the method's present settings; see fehlberg.h and ode_drivers.h for what is stored and thrown. First
/// and smallest step of BS are fractions of the range, all other steps are absolute.
ode_summary integrate_by(deq_method method, ode_system& system, std::span<double> y, const ode_range& range,
                         const settings& store, ode_observer& observer);

} // namespace kelvarin
