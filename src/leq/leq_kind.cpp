// SPDX-License-Identifier: MIT
#include "leq/leq_kind.h"

#include "leq/leq_problem.h"
#include "platform/run_time_text.h"

namespace kelvarin
{

namespace
{

/// The second line is the number of equations less 1.
bool recognises_leq(std::span<const std::string_view> lines)
{
    return lines.size() > 2 && is_numeric(lines[1]);
}

} // namespace

const problem_kind& leq_kind()
{
    static constexpr problem_kind kind = {
        .key = "leq",
        .name = "Linear Equations",
        .window_name = "frmLEQ",
        .caption = "Linear Equations Solver",
        .recent_suffix = "\\files_leq",
        .open_filter = "Kelvarin (*.kvr)|*.kvr|Text (*.txt)|*.txt|All file (*.*)|*.*",
        .save_filter = "Kelvarin (*.kvr)|*.kvr|Kelvarin 4.x (*.kvr)|*.kvr|Text (*.txt)|*.txt|All file (*.*)|*.*",
        .older_format_filter = 2,
        .older_format_question =
            "Saving as older Kelvarin format may result in loosing some formating data. Do you want to continue ?",
        .unsaved_on_close = "LEQ Problem not saved. Do you want to save it before closing ?",
        .unsaved_on_open = "Problem not saved. Do you wish to save it now ?",
        .passes_on_other_files = true,
        .recognises = recognises_leq,
        .make_document = []() -> std::unique_ptr<problem_document> { return std::make_unique<leq_problem>(); }};
    return kind;
}

} // namespace kelvarin
