// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

/// The folders of a user's files by the XDG Base Directory Specification 0.8, which declares relative paths in its
/// variables invalid; they are ignored.
namespace kelvarin
{

/// `$XDG_CONFIG_HOME/kelvarin`, by default `~/.config/kelvarin`: configuration.
std::filesystem::path user_config_folder();
/// `$XDG_STATE_HOME/kelvarin`, by default `~/.local/state/kelvarin`: state to be kept between starts, less important
/// than files.
std::filesystem::path user_state_folder();
/// `$XDG_DATA_HOME/kelvarin`, by default `~/.local/share/kelvarin`: the user's own data files.
std::filesystem::path user_data_folder();

} // namespace kelvarin
