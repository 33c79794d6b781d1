// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/set_analysis.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The texts that the kinds of equation problems share: panels of the status, listing of variables, warnings.
namespace kelvarin
{

/// "a, b, c"
std::string joined_names(std::span<const std::string> names);

/// The panel "head: count ", with the blank at its end.
std::string count_panel(std::string_view head, int count);
/// "Undefined Variable: a " or "Undefined Variables: a, b "; empty without names.
std::string undefined_panel(std::span<const std::string> names);
/// "Variable defined more than once: a " or "Variables defined more than once: a, b "; empty without names.
std::string duplicates_panel(std::span<const std::string> names);

/// Appends a section of a listing as rich text: the head (rich text itself), the number of names, the names, and a
/// blank line.
void add_names_section(std::string& listing, std::string_view head, std::span<const std::string> names);

// Warnings, without the word "Warning: " in front. Which of them a kind gives, and in which order, is its own affair.
inline constexpr const char* duplicate_implicit_warning = "Duplicate implicit variable/s exist/s.";
inline constexpr const char* duplicate_explicit_warning = "Duplicate explicit variable/s exist/s.";
inline constexpr const char* more_equations_warning = "More equations than variables exist.";
inline constexpr const char* undefined_warning = "Undefined variable/s exist.";

/// Appends the warnings to a listing as rich text, a line each.
void add_warnings(std::string& listing, std::span<const std::string> warnings);
/// The warnings as plain text, from "Warning: " on.
std::vector<std::string> plain_warnings(std::span<const std::string> warnings);

} // namespace kelvarin
