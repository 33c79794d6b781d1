// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

/// Where a user's files belong, by the XDG Base Directory Specification 0.8. A relative path in one of its
/// variables is invalid there, and counts as not set.
namespace kelvarin
{

/// `$XDG_CONFIG_HOME/kelvarin`, by default `~/.config/kelvarin`: what a user has chosen.
std::filesystem::path user_config_folder();
/// `$XDG_STATE_HOME/kelvarin`, by default `~/.local/state/kelvarin`: what lasts between starts, but matters
/// less than files.
std::filesystem::path user_state_folder();
/// `$XDG_DATA_HOME/kelvarin`, by default `~/.local/share/kelvarin`: a user's own data files.
std::filesystem::path user_data_folder();

} // namespace kelvarin
