// SPDX-License-Identifier: MIT
#include "deq/deq_kind.h"

namespace kelvarin
{

const problem_kind& deq_kind()
{
    static constexpr problem_kind kind = {.key = "deq",
                                          .name = "Differential Equations",
                                          .window_name = "frmDEQ",
                                          .recent_suffix = "\\files_deq",
                                          .missing_text = "Differential equations are not yet solved by this version.",
                                          .recognises = [](std::span<const std::string_view> lines) {
                                              return lines.size() > 2 && lines[1].starts_with("d(");
                                          }};
    return kind;
}

} // namespace kelvarin
