// SPDX-License-Identifier: MIT
#include "nle/nle_run.h"

#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "shell/general_lib.h"
#include "shell/report/rich_text.h"

#include <array>
#include <initializer_list>
#include <span>

namespace kelvarin
{

namespace
{

constexpr std::string_view empty_line = R"(\par )";

/// A line of a report: its parts, then the line end.
void add_line(std::string& report, std::initializer_list<std::string_view> parts)
{
    for (const std::string_view part : parts)
        report += part;
    report += empty_line;
}

/// The last 8 characters of a name, padded with blanks to 8.
std::string name_block(std::string_view name)
{
    static constexpr std::size_t width = 8;
    std::size_t begin = name.size();
    std::size_t characters = 0;
    while (begin > 0 && characters < width) {
        --begin;
        // The bytes behind the first of a character are no characters of their own.
        if ((static_cast<unsigned char>(name[begin]) & 0xC0u) != 0x80u) ++characters;
    }
    return escape_rich_text(name.substr(begin)) + std::string(width - characters, ' ');
}

void add_explicit_rows(std::string& report, std::span<const explicit_result> rows)
{
    for (const explicit_result& row : rows) {
        add_line(report, {R"({\f6  )", name_block(row.name), "   ", format_number(row.value), "}"});
    }
}

/// The rows of a result table behind its head.
void add_rows(std::string& report, const nle_solution& solution)
{
    for (const implicit_result& row : solution.implicit) {
        add_line(report, {R"({\f6  )", name_block(row.name), "   ", format_number(row.value), "   ",
                          format_number(row.residual), "   ", format_number(row.guess), "}"});
    }
    add_explicit_rows(report, solution.explicit_values);
    report += empty_line;
}

void add_table(std::string& report, const nle_solution& solution)
{
    add_line(report, {R"({\cf1\f6  \ul Variable      Value       f(x)       Ini Guess})"});
    add_rows(report, solution);
}

void add_equation(std::string& report, std::size_t number, std::initializer_list<std::string_view> text)
{
    report += R"({\cf3\f6  [)" + std::to_string(number) + "] }";
    for (const std::string_view part : text)
        report += escape_rich_text(part);
    report += empty_line;
}

void add_explicit_equations(std::string& report, const nle_outcome& outcome)
{
    for (std::size_t i = 0; i < outcome.explicit_names.size(); ++i) {
        add_equation(report, i + 1, {outcome.explicit_names[i], " = ", outcome.explicit_right_sides[i]});
    }
    report += empty_line;
}

void add_equations(std::string& report, const nle_outcome& outcome)
{
    add_line(report, {R"({\f6  }{\cf1\fs20 Nonlinear equations })"});
    for (std::size_t i = 0; i < outcome.implicit_names.size(); ++i) {
        add_equation(report, i + 1, {"f(", outcome.implicit_names[i], ") = ", outcome.implicit_right_sides[i], " = 0"});
    }
    report += empty_line;
    if (outcome.explicit_names.empty()) return;
    add_line(report, {R"({\f6  }{\cf1\fs20 Explicit equations })"});
    add_explicit_equations(report, outcome);
}

/// The comments, numbered by their rows in the problem, with a head of the given text.
void add_comments(std::string& report, std::span<const equation_row> rows, std::string_view head)
{
    std::string text;
    std::size_t number = 0;
    for (const equation_row& row : rows) {
        ++number;
        if (row.equation.empty() || row.comment.empty()) continue;
        add_equation(text, number, {trimmed(row.equation)});
        const std::string blanks(std::to_string(number).size(), ' ');
        add_line(text, {R"({\f6     )", blanks, R"(}{\i\cf6 )", escape_rich_text(row.comment), " }"});
    }
    if (text.empty()) return;
    add_line(report, {head});
    report += text;
    report += empty_line;
}

void add_conditions(std::string& report, const nle_outcome& outcome)
{
    static constexpr std::array<std::string_view, 3> words = {"Any real value", "Physically Positive ",
                                                              "Absolutely Positive "};
    add_line(report, {R"({\f6  }{\cf1\fs20 Conditions for solution})"});
    for (std::size_t i = 0; i < outcome.implicit_names.size(); ++i) {
        const auto condition = static_cast<std::size_t>(outcome.constraints[i]);
        add_equation(report, i + 1, {outcome.implicit_names[i], " : ", words[condition]});
    }
    report += empty_line;
}

struct setting_line
{
    std::string_view label;
    std::string_view key;
};

/// The settings that a method reads, with their labels in reports.
std::span<const setting_line> setting_lines(nle_method method)
{
    static constexpr std::array<setting_line, 3> mnewt_lines = {
        {{"Tolerance X ", "mnewt_tolx"}, {"Tolerance F ", "mnewt_tolf"}, {"Max trials ", "mnewt_n"}}};
    static constexpr std::array<setting_line, 4> newt_lines = {{{"Max iterations ", "newt_MAXITS"},
                                                                {"Tolerance F ", "newt_TOLF"},
                                                                {"Tolerance X", "newt_TOLX"},
                                                                {"Tolerance min", "newt_TOLMIN"}}};
    static constexpr std::array<setting_line, 5> broydn_lines = {{{"Max iterations ", "broydn_MAXITS"},
                                                                  {R"(eps \tab)", "broydn_EPS"},
                                                                  {"Tolerance F", "broydn_TOLF"},
                                                                  {"Tolerance X ", "broydn_TOLX"},
                                                                  {"Tolerance min", "broydn_TOLMIN"}}};
    static constexpr std::array<setting_line, 2> cnle_lines = {
        {{"Convergence tolerance ", "cnle_tol"}, {"Maxumum # of iterations ", "cnle_maxiter"}}};
    switch (method) {
    case nle_method::fastnewt:
        return mnewt_lines;
    case nle_method::safenewt:
        return newt_lines;
    case nle_method::safebroydn:
        return broydn_lines;
    case nle_method::constrained:
        break;
    }
    return cnle_lines;
}

void add_setting(std::string& report, std::string_view label, std::string_view value)
{
    add_line(report, {R"({\f6  })", label, R"(\tab = )", value});
}

void add_settings(std::string& report, const nle_outcome& outcome, const settings& store)
{
    add_line(report, {R"({\f6  }{\cf1\fs20 Settings })"});
    for (const setting_line& line : setting_lines(outcome.method)) {
        add_setting(report, line.label, plain_text(store.number(line.key)));
    }
    if (outcome.method == nle_method::constrained) {
        add_setting(report, "# of iterations used", std::to_string(outcome.iterations.value_or(0)));
    }
    report += empty_line;
}

/// The lines behind the head "General".
void add_general(std::string& report, const nle_run_problem& problem, const nle_outcome& outcome)
{
    static constexpr std::string_view indent = R"({\f6  })";
    if (outcome.kind == nle_run_kind::single) {
        add_line(report, {indent, "Search range:  ", plain_text(outcome.upper), " > ",
                          escape_rich_text(outcome.implicit_names.front()), " > ", plain_text(outcome.lower)});
    }
    add_line(report, {indent, "number of implicit equations: ", std::to_string(outcome.implicit_names.size())});
    add_line(report, {indent, "number of explicit equations: ", std::to_string(outcome.explicit_names.size())});
    if (!problem.path.empty()) {
        add_line(report, {indent, "Data file: ", escape_rich_text(shorten_path(problem.path.string()))});
    }
    if (outcome.elapsed_seconds > 0) {
        // Reports have always counted 100000 seconds a day.
        const double elapsed = static_cast<double>(outcome.elapsed_seconds) / 86400.0 * 100000.0;
        add_line(report, {indent, "Elapsed time: ", format_masked(elapsed, "0.0000"), " sec"});
    }
}

void add_solution_head(std::string& report, std::string_view head)
{
    add_line(report, {empty_line, empty_line, head});
    report += empty_line;
}

void add_report_head(std::string& report, std::string_view head, const nle_outcome& outcome)
{
    add_line(report, {head, method_text(outcome.method), ")}"});
    report += empty_line;
}

void add_system_solution(std::string& report, const nle_outcome& outcome)
{
    static constexpr std::array<std::string_view, 6> errors = {
        "",
        R"({\b  Error: Improper parameters input })",
        R"({\b  Error: Initial estimate of solution does not satisfy constraints })",
        R"({\b  Error: Number of iterations greater than allowed in settings})",
        R"({\b  Error: DTHETA has reached a minimal value})",
        R"({\b  Error: Iteration is not making progress or is diverging })"};
    add_solution_head(report, R"({\b\cf1\f5\fs21\ul NLES Solution })");
    if (outcome.residual_sum() > largest_residual_sum) {
        add_line(report, {R"({\b  Solution did not converge !})"});
        add_line(report, {R"({\b  Give better first estimates and try again.})"});
        report += empty_line;
    }
    if (outcome.method == nle_method::constrained && outcome.code != cnle_code::converged) {
        add_line(report, {errors[static_cast<std::size_t>(outcome.code)]});
        report += empty_line;
    }
    add_table(report, outcome.solution);
    add_report_head(report, R"({\b\cf1\f5\fs21\ul NLES Report ()", outcome);
}

void add_single_solution(std::string& report, const nle_outcome& outcome)
{
    add_solution_head(report, R"({\b\cf1\f5\fs21\ul NLE Solution })");
    const std::size_t count = outcome.roots.size();
    if (count == 0) {
        add_line(report, {R"({\b No solution was found. Please give better first estimates and try again.} )"});
        report += empty_line;
    }
    for (std::size_t i = 0; i < count; ++i) {
        if (count > 1) {
            add_line(report,
                     {R"({\f6  }{\cf2\f5 Solution #)", std::to_string(i + 1), " of ", std::to_string(count), "}"});
        }
        add_table(report, outcome.roots[i]);
    }
    add_report_head(report, R"({\b\cf1\f5\fs21\ul NLE Report ()", outcome);
}

void add_initial_values(std::string& report, const nle_outcome& outcome)
{
    add_line(report, {R"({\f6  }{\cf1\fs20 Initial values data })"});
    add_line(report, {R"({\cf3\f6  \ul Variable      Value       f(x)       Ini Guess})"});
    add_rows(report, outcome.initial_values);
}

void add_implicit_report(std::string& report, const nle_run_problem& problem, const nle_outcome& outcome,
                         const settings& store)
{
    const bool single = outcome.kind == nle_run_kind::single;
    if (single) {
        add_single_solution(report, outcome);
    } else {
        add_system_solution(report, outcome);
    }
    add_equations(report, outcome);
    if (single) add_initial_values(report, outcome);
    add_comments(report, problem.content.rows, R"({\f6  }{\cf1\fs20 Comments})");
    if (outcome.method == nle_method::constrained) add_conditions(report, outcome);
    add_settings(report, outcome, store);
    add_line(report, {R"({\f6  }{\cf1\fs20 General})"});
    add_general(report, problem, outcome);
}

void add_explicit_report(std::string& report, const nle_run_problem& problem, const nle_outcome& outcome)
{
    add_line(report, {R"({\b\cf1\f5\fs20\ul Explicit Algebraic Equations Solution })", empty_line});
    add_line(report, {R"({\cf1\f6  {\ul Variable}    {\ul Value  }  }  )"});
    add_explicit_rows(report, outcome.solution.explicit_values);
    report += empty_line;
    report += empty_line;
    add_line(report, {R"({\b\cf1\f5\fs20\ul Explicit Algebraic Equations Report })", empty_line});
    add_line(report, {R"({\f6  }{\cf1 Explicit equations })"});
    add_explicit_equations(report, outcome);
    add_comments(report, problem.content.rows, R"({\f6  }{\cf1 Comments})");
    add_line(report, {R"({\f6  }{\cf1 General})"});
    add_general(report, problem, outcome);
}

} // namespace

std::string nle_report(const nle_run_problem& problem, const nle_outcome& outcome, const settings& store,
                       calendar_date date)
{
    std::string report;
    report.reserve(4096 + 256 * problem.content.rows.size());
    report += report_head(problem.content.title, date);
    if (outcome.kind == nle_run_kind::explicit_only) {
        add_explicit_report(report, problem, outcome);
    } else {
        add_implicit_report(report, problem, outcome, store);
    }
    return rich_text_document(report);
}

} // namespace kelvarin
