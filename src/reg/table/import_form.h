// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace kelvarin
{

/// How a text is read.
struct import_form
{
    /// Comma, semicolon, tab, "|", or blank_delimiter.
    char delimiter = ',';
    /// Point or comma.
    char decimal_sign = '.';
    /// Whether the first line has the names of the columns.
    bool has_header = false;

    friend bool operator==(const import_form&, const import_form&) = default;
};

/// The cell with a point in place of its comma if the decimal sign is a comma and the result is a number; else the
/// cell.
std::string with_decimal_point(std::string_view cell, char decimal_sign);

/// The form in which most cells of the text's first lines are numbers and most lines have equally many cells.
import_form guess_form(std::string_view text);

} // namespace kelvarin
