// SPDX-License-Identifier: MIT
#pragma once

#include "opt/opt_content.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kelvarin
{

/// Whether the lines are an optimization problem: the second line is an expression, and a later one gives a start
/// value.
bool is_opt_file(std::span<const std::string_view> lines);

/// The content of a problem file's text (UTF-8), as far as a truncated file goes; `method` is the content's, since
/// files name none. Returns nullopt if the text has no line.
std::optional<opt_content> read_opt(std::string_view text, opt_method method = opt_method::conjugate_grad);

/// The text of a problem file with CR LF line ends.
std::string write_opt(const opt_content& content);

} // namespace kelvarin
