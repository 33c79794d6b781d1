// SPDX-License-Identifier: MIT
#include "opt/opt_kind.h"

namespace kelvarin
{

const problem_kind& opt_kind()
{
    static constexpr problem_kind kind = {.key = "opt",
                                          .name = "Optimization",
                                          .window_name = "frmOPT",
                                          .recent_suffix = "\\files_opt",
                                          .missing_text = "Optimization problems are not yet solved by this version."};
    return kind;
}

} // namespace kelvarin
