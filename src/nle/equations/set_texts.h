// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/set_analysis.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Texts that the kinds of equation problems share: status panels, listing of variables, warnings.
namespace kelvarin
{

/// "a, b, c"
std::string joined_names(std::span<const std::string> names);

/// The panel "head: count ", including its trailing blank.
std::string count_panel(std::string_view head, int count);
/// "Undefined Variable: a " or "Undefined Variables: a, b "; empty if there are no names.
std::string undefined_panel(std::span<const std::string> names);
/// "Variable defined more than once: a " or "Variables defined more than once: a, b "; empty if there are no names.
std::string duplicates_panel(std::span<const std::string> names);

/// Appends a section of a listing as rich text: the head (itself rich text), the number of names, the names, and an
/// empty line.
void add_names_section(std::string& listing, std::string_view head, std::span<const std::string> names);

// Warnings without the leading "Warning: ". Each kind chooses which to give and in which order.
inline constexpr const char* duplicate_implicit_warning = "Duplicate implicit variable/s exist/s.";
inline constexpr const char* duplicate_explicit_warning = "Duplicate explicit variable/s exist/s.";
inline constexpr const char* more_equations_warning = "More equations than variables exist.";
inline constexpr const char* undefined_warning = "Undefined variable/s exist.";

/// Appends the warnings to a listing as rich text, one per line.
void add_warnings(std::string& listing, std::span<const std::string> warnings);
/// The warnings as plain text, each beginning with "Warning: ".
std::vector<std::string> plain_warnings(std::span<const std::string> warnings);

} // namespace kelvarin
