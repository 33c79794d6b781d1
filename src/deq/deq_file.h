// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_content.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kelvarin
{

/// Whether the lines are a differential problem that can't be recognised by its second line: one of the older format,
/// which begins with its first equation, or one whose first rows are explicit.
bool is_deq_file(std::span<const std::string_view> lines);

/// The content of a problem file's text (UTF-8), as far as a truncated file goes; `method` is used if the file names
/// none. Returns nullopt if the text is not a differential problem.
std::optional<deq_content> read_deq(std::string_view text, deq_method method = deq_method::rkf45);

/// The text of a problem file with CR LF line ends, in the current or the older format.
std::string write_deq(const deq_content& content, bool older_format = false);

} // namespace kelvarin
