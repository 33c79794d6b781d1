// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Text and number functions used everywhere.
namespace kelvarin
{

/// A number as reports show it: usually 10 characters, a minus sign or blank, then the digits padded with blanks to 9.
/// `x` must be finite.
std::string format_number(double x);

/// A finite number as the cells of formula columns show it: with `digits` significant digits, of which at most 17 are
/// written, in the form of plain_text.
std::string format_digits(double x, int digits);

/// LF, CR and tab become blanks; doubled blanks inside the text become single ones.
std::string clean_expression_text(std::string_view text);
/// The text without CR and tab.
std::string strip_line_controls(std::string_view text);
/// Renames whole words: an occurrence is one if both neighbours are among "+-/*( )^=", CR, LF, tab, or the ends of the
/// text.
std::string replace_name(std::string_view text, std::string_view old_name, std::string_view new_name);

/// Splits at the last separator: the part after it, or with `before` the part in front. Without a separator the result
/// is empty, or with `before` the whole text.
std::string part_after_last(std::string_view text, bool before, std::string_view separator);

/// The text after the last `/` or `\`.
std::string file_name_of(std::string_view path);
/// The text up to and including the last `/` or `\`.
std::string folder_of(std::string_view path);
/// The short form of a long path for display: its first folder, "/..." and the file's name. Short paths are unchanged.
std::string shorten_path(std::string_view path);

} // namespace kelvarin
