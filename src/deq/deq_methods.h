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

/// `deq_output_step`: the part of a range that the setting of intermediate points asks for. Throws runtime_failure 11
/// for a setting of 0.
double output_step_from(const settings& store, double x1, double x2);

/// Integrates by a method with the settings as they are at this moment: the driver's comments say what it does and
/// throws. First and smallest step of BS are parts of the range, all other steps are taken as they are.
ode_summary integrate_by(deq_method method, ode_system& system, std::span<double> y, const ode_range& range,
                         const settings& store, ode_observer& observer);

} // namespace kelvarin
