// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_rows.h"

#include <filesystem>
#include <span>
#include <string>
#include <string_view>

/// The printed listing of equation problems, in lines that end in LF.
namespace kelvarin
{

/// Heading and file name, which is empty if the problem has no file.
std::string listing_head(std::string_view heading, const std::filesystem::path& path);

/// A block for each row: its number and equation, then "label: " and the guess, then the comment if there is one.
void add_listed_rows(std::string& listing, std::span<const equation_row> rows, std::string_view guess_label);

/// A line "label: value".
void add_listed_value(std::string& listing, std::string_view label, std::string_view value);

} // namespace kelvarin
