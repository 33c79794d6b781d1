// SPDX-License-Identifier: MIT
#pragma once

#include "tools/data_lines.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// The file that holds the constants, as find_data_file finds it.
inline constexpr std::string_view constants_file_name = "constant.txt";

/// A constant as its line tells it: texts, of which the value is usually a number.
struct physical_constant
{
    std::string name;
    std::string value;
    std::string units;
};

struct constant_group
{
    /// Empty for constants that stand before the first group's line.
    std::string name;
    std::vector<physical_constant> constants;
};

struct constant_list
{
    /// In order of first appearance; a group that is named again goes on.
    std::vector<constant_group> groups;
    std::vector<data_fault> faults;
};

/// Reads lines ":group" and "name = value | units", all trimmed; the value stands between the first "=" and the
/// first "|" behind it. Without "|" the units are empty. Blank lines and those that begin with an apostrophe are
/// passed over. A line without "=", name or value is a fault and gives no constant.
constant_list read_constants(std::string_view text);

/// What of the groups holds each of the words in its group's name, its own name or its units, in any case; groups
/// of which nothing is left are gone.
std::vector<constant_group> search_constants(const std::vector<constant_group>& groups, std::string_view words);

/// A group's constants as lines of a list in a font of one width: name and value padded with blanks to the longest
/// of the group.
std::vector<std::string> constant_lines(const constant_group& group);

/// A constant for the clipboard: "name = value units".
std::string copied_line(const physical_constant& constant);

} // namespace kelvarin
