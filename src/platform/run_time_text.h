// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The value of a text that, apart from blanks and tabs around it, is a number as a whole. Returns nullopt otherwise. A
/// number is an optional sign, digits with at most one ".", at least one digit, then optionally an exponent letter e,
/// E, d or D, an optional sign and digits. A number too large for a double is not accepted; one too small is 0.
/// Independent of the locale.
std::optional<double> numeric_value(std::string_view text);

/// Whether numeric_value returns a value.
bool is_numeric(std::string_view text);

/// The number that `text` begins with, in the forms of numeric_value, after skipping blanks and tabs; 0 if it begins
/// with none. Throws runtime_failure 6 if it is too large for a double.
double val(std::string_view text);

/// The same, but returns nullopt if the number is too large.
std::optional<double> prefix_value(std::string_view text);

/// The plain text of a finite double: 15 significant digits without trailing zeros, "." in every locale, exponent form
/// ("1E-07", "1E+15") below 0.0001 and from 1E+15 up. Negative zero is "0".
std::string plain_text(double value);

/// The same with `digits` significant digits (1 to 17), halves rounded away from zero.
std::string plain_text(double value, int digits);

} // namespace kelvarin
