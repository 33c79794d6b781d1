// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/nonlinear/NR_vbCNLE.h"
#include "numeric/nonlinear/NR_vbNLE.h"
#include "shell/settings.h"

namespace kelvarin
{

/// The solvers' options from the current settings.
mnewt_options mnewt_options_from(const settings& store);
newt_options newt_options_from(const settings& store);
broydn_options broydn_options_from(const settings& store);
cnle_options cnle_options_from(const settings& store);

} // namespace kelvarin
