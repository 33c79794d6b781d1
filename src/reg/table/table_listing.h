// SPDX-License-Identifier: MIT
#pragma once

#include "reg/table/table_content.h"

#include <filesystem>
#include <string>

namespace kelvarin
{

/// The whole table as text, for the clipboard and for print: title, formulas, names, and the used cells, separated by
/// tabs. Numbers have the form of format_number, blank cells are three blanks, other texts stay.
std::string table_listing(const table_content& content);
std::string table_listing(const table_content& content, const std::filesystem::path& path);

} // namespace kelvarin
