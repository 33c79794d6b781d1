// SPDX-License-Identifier: MIT
#pragma once

#include "leq/leq_content.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The content of a problem file's text (UTF-8), in the current or the older format: title; the number of equations
/// less one; names; rows of coefficients; a row of betas. Cells end in tabs; missing ones are empty, excess ones are
/// ignored. Returns nullopt if the second line is not a valid number of equations.
std::optional<leq_content> read_leq(std::string_view text);

/// The text of a problem file with CR LF line ends; the last line has an additional CR. The older format has no names.
std::string write_leq(const leq_content& content, bool older_format = false);

} // namespace kelvarin
