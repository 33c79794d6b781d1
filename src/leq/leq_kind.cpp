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
        .open_filter = problem_open_filter,
        .save_filter = problem_save_filter,
        .older_format_filter = problem_older_format_filter,
        .older_format_question = problem_older_format_question,
        .unsaved_on_close = "LEQ Problem not saved. Do you want to save it before closing ?",
        .unsaved_on_open = problem_unsaved_on_open,
        .passes_on_other_files = true,
        .recognises = recognises_leq,
        .make_document = []() -> std::unique_ptr<problem_document> { return std::make_unique<leq_problem>(); }};
    return kind;
}

} // namespace kelvarin
