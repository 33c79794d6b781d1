// SPDX-License-Identifier: MIT
#include "nle/nle_kind.h"

#include "expr/basParse.h"
#include "nle/nle_problem.h"
#include "nle/nle_samples.h"
#include "platform/text_file.h"

#include <array>

namespace kelvarin
{

namespace
{

bool has_equals_sign(std::string_view line)
{
    return line.find('=') != std::string_view::npos;
}

/// The reader's condition on the second line of a nonlinear problem.
bool is_equation_row(std::string_view line)
{
    if (!has_equals_sign(line)) return false;
    return line.starts_with("f(") || is_valid_name(trimmed(line.substr(0, line.find('='))));
}

bool recognises_nle(std::span<const std::string_view> lines)
{
    // A file of one explicit equation has no third line.
    if (lines.size() == 2) return is_equation_row(lines[1]);
    return lines[1].starts_with("f(") || (!lines[1].starts_with("d(") && has_equals_sign(lines[1]));
}

constexpr std::array<setting_line, 3> mnewt_settings = {
    {{"Tolerance X ", "mnewt_tolx"}, {"Tolerance F ", "mnewt_tolf"}, {"Max trials ", "mnewt_n"}}};
constexpr std::array<setting_line, 4> newt_settings = {{{"Max iterations ", "newt_MAXITS"},
                                                        {"Tolerance F ", "newt_TOLF"},
                                                        {"Tolerance X", "newt_TOLX"},
                                                        {"Tolerance min", "newt_TOLMIN"}}};
constexpr std::array<setting_line, 5> broydn_settings = {{{"Max iterations ", "broydn_MAXITS"},
                                                          {R"(eps \tab)", "broydn_EPS"},
                                                          {"Tolerance F", "broydn_TOLF"},
                                                          {"Tolerance X ", "broydn_TOLX"},
                                                          {"Tolerance min", "broydn_TOLMIN"}}};
constexpr std::array<setting_line, 2> cnle_settings = {
    {{"Convergence tolerance ", "cnle_tol"}, {"Maxumum # of iterations ", "cnle_maxiter"}}};

/// In the order of nle_method.
constexpr std::array<problem_method, 4> methods = {
    {{nle_method_items[0].data(), "Newton's method with full steps", mnewt_settings},
     {nle_method_items[1].data(), "Newton's method with a line search", newt_settings},
     {nle_method_items[2].data(), "Broyden's method with a line search", broydn_settings},
     {nle_method_items[3].data(), "Damped steps that keep the signs asked for; systems only", cnle_settings}}};

std::vector<std::string> example_titles()
{
    std::vector<std::string> titles;
    for (nle_content& sample : nle_samples())
        titles.push_back(std::move(sample.title));
    return titles;
}

} // namespace

const problem_kind& nle_kind()
{
    static constexpr problem_kind kind = {
        .key = "nle",
        .name = "Nonlinear Equations",
        .window_name = "frmNLE",
        .caption = "Nonlinear Equations Solver",
        .recent_suffix = "\\files_nle",
        .open_filter = problem_open_filter,
        .save_filter = problem_save_filter,
        .older_format_filter = problem_older_format_filter,
        .older_format_question = problem_older_format_question,
        .unsaved_on_close = "NLE Problem not saved. Do you want to save it before closing ?",
        .unsaved_on_open = problem_unsaved_on_open,
        .passes_on_other_files = true,
        .recognises = recognises_nle,
        .methods = methods,
        .example_titles = example_titles,
        .make_document = []() -> std::unique_ptr<problem_document> { return std::make_unique<nle_problem>(); }};
    return kind;
}

} // namespace kelvarin
