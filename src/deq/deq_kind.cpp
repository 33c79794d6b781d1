// SPDX-License-Identifier: MIT
#include "deq/deq_kind.h"

#include "deq/deq_content.h"
#include "deq/deq_file.h"
#include "deq/deq_problem.h"
#include "deq/deq_samples.h"

#include <array>
#include <memory>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr std::array<setting_line, 2> rkf45_settings = {
    {{"Step size guess. h", "RKF45_H"}, {"Truncation error tolerance. eps", "RKF45_TETOL"}}};
constexpr std::array<setting_line, 2> rkf56_settings = {
    {{"Step size guess. h", "RKF56_H"}, {"Truncation error tolerance. eps", "RKF56_TETOL"}}};
constexpr std::array<setting_line, 3> bs_settings = {{{"Independent variable accuracy. eps", "bs_eps"},
                                                      {"First stepsize guess. h1", "bs_h1"},
                                                      {"Minimum allowed stepsize. hmin", "bs_hmin"}}};
constexpr std::array<setting_line, 3> stiff_settings = {{{"Independent variable accuracy. eps", "stiff_eps"},
                                                         {"First stepsize guess. h1", "stiff_h1"},
                                                         {"Minimum allowed stepsize. hmin", "stiff_hmin"}}};
constexpr std::array<setting_line, 3> stiffbs_settings = {{{"Independent variable accuracy. eps", "stiffbs_eps"},
                                                           {"First stepsize guess. h1", "stiffbs_h1"},
                                                           {"Minimum allowed stepsize. hmin", "stiffbs_hmin"}}};

/// In the order of deq_method.
constexpr std::array<problem_method, 5> methods = {
    {{deq_method_items[0].data(), "Runge-Kutta-Fehlberg of orders 4 and 5: for most problems", rkf45_settings},
     {deq_method_items[1].data(),
      "Runge-Kutta-Fehlberg of orders 5 and 6; not for right sides of the independent variable alone", rkf56_settings},
     {deq_method_items[2].data(), "Bulirsch-Stoer extrapolation: for smooth problems", bs_settings},
     {deq_method_items[3].data(), "Rosenbrock method: for stiff problems", stiff_settings},
     {deq_method_items[4].data(), "Bader-Deuflhard extrapolation: for smooth stiff problems", stiffbs_settings}}};

std::vector<std::string> example_titles()
{
    std::vector<std::string> titles;
    for (deq_content& sample : deq_samples())
        titles.push_back(std::move(sample.title));
    return titles;
}

} // namespace

const problem_kind& deq_kind()
{
    static constexpr problem_kind kind = {
        .key = "deq",
        .name = "Differential Equations",
        .window_name = "frmDEQ",
        .caption = "Ordinary Differential Equations Solver",
        .recent_suffix = "\\files_deq",
        .open_filter = problem_open_filter,
        .save_filter = problem_save_filter,
        .older_format_filter = problem_older_format_filter,
        .older_format_question = problem_older_format_question,
        .unsaved_on_close = "DEQ Problem not saved. Do you want to save it before closing ?",
        .unsaved_on_open = problem_unsaved_on_open,
        .passes_on_other_files = true,
        .recognises =
            [](std::span<const std::string_view> lines) { return lines.size() > 2 && lines[1].starts_with("d("); },
        .claims = is_deq_file,
        .methods = methods,
        .example_titles = example_titles,
        .make_document = []() -> std::unique_ptr<problem_document> { return std::make_unique<deq_problem>(); }};
    return kind;
}

} // namespace kelvarin
