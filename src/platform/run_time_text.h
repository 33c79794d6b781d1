// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The whole-string numeric test: the value of `text` if it is, apart from blanks and tabs around it, a
/// number as a whole, else nothing. A number is an optional sign, digits with at most one ".", at least
/// one digit, then optionally an exponent letter e, E, d or D, an optional sign and digits. A number too
/// large for a double is none; one too small is 0. The locale plays no part.
std::optional<double> numeric_value(std::string_view text);

/// Whether numeric_value gives a value.
bool is_numeric(std::string_view text);

/// Prefix reading: the number that `text` begins with, in the forms of numeric_value, blanks and tabs in
/// front skipped; 0 where it begins with none. Throws runtime_failure 6 where it is too large for a double.
double val(std::string_view text);

/// The same, with nothing in place of the failure.
std::optional<double> prefix_value(std::string_view text);

/// The plain text of a finite double: 15 significant digits without trailing zeros, "." whatever the
/// locale, exponent form ("1E-07", "1E+15") below 0.0001 and from 1E+15 up. Negative zero is "0".
std::string plain_text(double value);

} // namespace kelvarin
