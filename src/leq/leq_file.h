// SPDX-License-Identifier: MIT
#pragma once

#include "leq/leq_content.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The content that a problem file's text (UTF-8) holds, in the current or the older format: title; the number
/// of equations less one; names; rows of coefficients; a row of betas. Cells end in tabs; missing ones are
/// empty, further ones are passed over. Nothing where the second line is no number of equations.
std::optional<leq_content> read_leq(std::string_view text);

/// The text of a problem file with CR LF line ends; the last line has a CR more. The older format has no
/// names.
std::string write_leq(const leq_content& content, bool older_format = false);

} // namespace kelvarin
