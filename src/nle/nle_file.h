// SPDX-License-Identifier: MIT
#pragma once

#include "nle/nle_content.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// Whether the second line of a file is that of a nonlinear problem.
bool is_nle_second_line(std::string_view line);

/// The content of a problem file's text (UTF-8); `method` is used if the file names none. Returns nullopt if the text
/// is not a nonlinear problem.
std::optional<nle_content> read_nle(std::string_view text, nle_method method = nle_method::fastnewt);

/// The text of a problem file with CR LF line ends, in the current or the older format.
std::string write_nle(const nle_content& content, bool older_format = false);

/// Whether a line gives a bound as problem files do: "x(min)=1, x(max)=2", or one of them.
bool holds_a_bound(std::string_view line);
/// Sets the bounds that such a line gives where the content of a single equation has none, and its missing guess to
/// their middle. Returns false if nothing was set.
bool take_bounds(std::string_view line, nle_content& content);

} // namespace kelvarin
