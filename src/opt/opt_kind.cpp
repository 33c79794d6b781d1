// SPDX-License-Identifier: MIT
#include "opt/opt_kind.h"

#include "opt/opt_content.h"
#include "opt/opt_file.h"
#include "opt/opt_problem.h"
#include "opt/opt_samples.h"

#include <array>
#include <memory>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr std::array<setting_line, 2> conjugate_settings = {
    {{"eps", "opt_cg_eps"}, {"Maximum number of iterations", "opt_cg_MAXITER"}}};
constexpr std::array<setting_line, 2> newton_settings = {
    {{"eps", "opt_qn_eps"}, {"Maximum number of iterations", "opt_qn_MAXITER"}}};

/// In the order of opt_method.
constexpr std::array<problem_method, 3> methods = {
    {{opt_method_items[0].data(), "Conjugate gradients with restarts: for many variables", conjugate_settings},
     {opt_method_items[1].data(), "Variable metric with a careful line search: for most problems", newton_settings},
     {opt_method_items[2].data(), "Variable metric with a backtracking line search; at most 200 iterations", {}}}};

std::vector<std::string> example_titles()
{
    std::vector<std::string> titles;
    for (opt_content& sample : opt_samples())
        titles.push_back(std::move(sample.title));
    return titles;
}

} // namespace

const problem_kind& opt_kind()
{
    static constexpr problem_kind kind = {
        .key = "opt",
        .name = "Optimization",
        .window_name = "frmOPT",
        .caption = "Minima Maxima Solver",
        .recent_suffix = "\\files_opt",
        .open_filter = problem_open_filter,
        .save_filter = problem_open_filter,
        .unsaved_on_close = problem_unsaved_on_open,
        .unsaved_on_open = problem_unsaved_on_open,
        .opened_by_own_windows = true,
        .claims = is_opt_file,
        .methods = methods,
        .example_titles = example_titles,
        .make_document = []() -> std::unique_ptr<problem_document> { return std::make_unique<opt_problem>(); }};
    return kind;
}

} // namespace kelvarin
