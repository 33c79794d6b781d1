// SPDX-License-Identifier: MIT
#include "reg/reg_kind.h"

#include "platform/run_time_text.h"

#include <cstddef>

namespace kelvarin
{

namespace
{

/// The second line has the numbers of columns and rows.
bool recognises_reg(std::span<const std::string_view> lines)
{
    const std::size_t blank = lines[1].find(' ');
    if (lines.size() < 3 || blank == std::string_view::npos) return false;
    const auto is_size = [](std::string_view text) { return prefix_value(text).value_or(0.0) > 0.0; };
    return is_size(lines[1].substr(0, blank)) && is_size(lines[1].substr(blank));
}

} // namespace

const problem_kind& reg_kind()
{
    static constexpr problem_kind kind = {.key = "reg",
                                          .name = "Regression",
                                          .window_name = "frmRGT",
                                          .recent_suffix = "\\files_rgt",
                                          .missing_text = "Data tables are not yet solved by this version.",
                                          .recognises = recognises_reg};
    return kind;
}

} // namespace kelvarin
