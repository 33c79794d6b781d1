// SPDX-License-Identifier: MIT
#pragma once

#include "tools/data_lines.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// The file of constants, for find_data_file.
inline constexpr std::string_view constants_file_name = "constant.txt";

/// The texts of a constant's line; the value is usually a number.
struct physical_constant
{
    std::string name;
    std::string value;
    std::string units;
};

struct constant_group
{
    /// Empty for constants before the first group line.
    std::string name;
    std::vector<physical_constant> constants;
};

struct constant_list
{
    /// In order of first appearance; a repeated group name continues the earlier group.
    std::vector<constant_group> groups;
    std::vector<data_fault> faults;
};

/// Reads lines ":group" and "name = value | units", all trimmed; the value is between the first "=" and the next "|".
/// Without "|" the units are empty. Blank lines and those that begin with an apostrophe are skipped. A line without
/// "=", name or value is a fault and gives no constant.
constant_list read_constants(std::string_view text);

/// The constants for which each word occurs in the group's name, the constant's name or its units, ignoring case;
/// groups without such constants are left out.
std::vector<constant_group> search_constants(const std::vector<constant_group>& groups, std::string_view words);

/// A group's constants as lines for a fixed-width font: name and value are padded with blanks to the longest of the
/// group.
std::vector<std::string> constant_lines(const constant_group& group);

/// A constant for the clipboard: "name = value units".
std::string copied_line(const physical_constant& constant);

} // namespace kelvarin
