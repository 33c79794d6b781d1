// SPDX-License-Identifier: MIT
#pragma once

#include "shell/settings.h"

#include <string>

namespace kelvarin
{

/// All settings as a table of aligned columns: key, value, default, bounds.
std::string settings_listing(const settings& store);

} // namespace kelvarin
