// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// The text and number helpers that all subsystems share.
namespace kelvarin
{

/// The report form of a number: as a rule 10 characters, a sign or blank, then the digits padded with
/// blanks to 9. `x` is finite.
std::string format_number(double x);

/// LF, CR and tab become blanks; doubled blanks inside the text become single ones.
std::string clean_expression_text(std::string_view text);
/// The text without CR and tab.
std::string strip_line_controls(std::string_view text);
/// Renames whole words: a hit counts when both neighbours are among "+-/*( )^=", CR, LF, tab, or the ends.
std::string replace_name(std::string_view text, std::string_view old_name, std::string_view new_name);

/// Splits at the last separator: the part behind it, or (`before`) the part in front; the whole text
/// (`before`) or nothing where there is no separator.
std::string part_after_last(std::string_view text, bool before, std::string_view separator);

/// The text behind the last `/` or `\`.
std::string file_name_of(std::string_view path);
/// The text up to the last `/` or `\`, which is included.
std::string folder_of(std::string_view path);
/// The display name of a long path: its first folder, "/..." and the file's name. Short ones stay.
std::string shorten_path(std::string_view path);

} // namespace kelvarin
