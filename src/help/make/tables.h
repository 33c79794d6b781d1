// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// The program's own tables as tables of Markdown.
namespace kelvarin
{

std::string operators_table();
std::string functions_table();
/// The settings whose keys begin with `prefix`.
std::string settings_rows(std::string_view prefix);
/// A method's description and its settings. Throws std::runtime_error for an unknown one.
std::string method_table(std::string_view kind, std::string_view method);

} // namespace kelvarin
