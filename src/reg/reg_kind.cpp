// SPDX-License-Identifier: MIT
#include "reg/reg_kind.h"

#include "reg/table/table_file.h"

namespace kelvarin
{

namespace
{

bool recognises_reg(std::span<const std::string_view> lines)
{
    return lines.size() > 2 && table_extent_of(lines[1]);
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
