// SPDX-License-Identifier: MIT
#pragma once

#include "batch/kinds/table_action.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kelvarin
{

inline constexpr const char* dependent_option = "--dep";
inline constexpr const char* independent_option = "--indep";
inline constexpr const char* table_method_option = "--method";

/// What is wrong with a method's name; nullopt if some kind of analysis has it, by its text or by its number.
std::optional<std::string> analysis_method_refusal(std::string_view value);

/// --interpolate, --differentiate and --integrate with their values.
std::span<const kind_option> analysis_options();
std::span<const table_action> analysis_actions();

} // namespace kelvarin
