// SPDX-License-Identifier: MIT
#include "nle/nle_report.h"

#include "nle/equations/row_comments.h"
#include "nle/nle_kind.h"
#include "platform/format_mask.h"
#include "platform/run_time_text.h"
#include "shell/general_lib.h"
#include "shell/report/report_text.h"
#include "shell/report/rich_text.h"

#include <array>
#include <span>
#include <string_view>
#include <variant>
#include <vector>

namespace kelvarin
{

namespace
{

/// The second blank after \f6 indents the line like the headings above it.
constexpr report_layout layout = {.margin = R"({\f6  })", .equals = R"(\tab = )"};

/// The last 8 characters of a name, padded with blanks to 8.
std::string name_block(std::string_view name)
{
    static constexpr std::size_t width = 8;
    std::size_t begin = name.size();
    std::size_t characters = 0;
    while (begin > 0 && characters < width) {
        --begin;
        // UTF-8 continuation bytes are not characters of their own.
        if ((static_cast<unsigned char>(name[begin]) & 0xC0u) != 0x80u) ++characters;
    }
    return escape_rich_text(name.substr(begin)) + std::string(width - characters, ' ');
}

void add_explicit_rows(report_text& report, std::span<const explicit_result> rows)
{
    for (const explicit_result& row : rows) {
        report.line({R"({\f6  )", name_block(row.name), "   ", format_number(row.value), "}"});
    }
}

/// Adds the rows of a result table below its head.
void add_rows(report_text& report, const nle_solution& solution)
{
    for (const implicit_result& row : solution.implicit) {
        report.line({R"({\f6  )", name_block(row.name), "   ", format_number(row.value), "   ",
                     format_number(row.residual), "   ", format_number(row.guess), "}"});
    }
    add_explicit_rows(report, solution.explicit_values);
    report.line();
}

void add_table(report_text& report, const nle_solution& solution)
{
    report.line({R"({\cf1\f6  \ul Variable      Value       f(x)       Ini Guess})"});
    add_rows(report, solution);
}

void add_explicit_equations(report_text& report, const nle_outcome& outcome)
{
    for (std::size_t i = 0; i < outcome.explicit_names.size(); ++i) {
        report.numbered_line(i + 1, {outcome.explicit_names[i], " = ", outcome.explicit_right_sides[i]});
    }
    report.line();
}

void add_equations(report_text& report, const nle_outcome& outcome)
{
    report.line({R"({\f6  }{\cf1\fs20 Nonlinear equations })"});
    for (std::size_t i = 0; i < outcome.implicit_names.size(); ++i) {
        report.numbered_line(i + 1, {"f(", outcome.implicit_names[i], ") = ", outcome.implicit_right_sides[i], " = 0"});
    }
    report.line();
    if (outcome.explicit_names.empty()) return;
    report.line({R"({\f6  }{\cf1\fs20 Explicit equations })"});
    add_explicit_equations(report, outcome);
}

void add_conditions(report_text& report, const nle_outcome& outcome)
{
    static constexpr std::array<std::string_view, 3> words = {"Any real value", "Physically Positive ",
                                                              "Absolutely Positive "};
    report.line({R"({\f6  }{\cf1\fs20 Conditions for solution})"});
    for (std::size_t i = 0; i < outcome.implicit_names.size(); ++i) {
        const auto condition = static_cast<std::size_t>(outcome.constraints[i]);
        report.numbered_line(i + 1, {outcome.implicit_names[i], " : ", words[condition]});
    }
    report.line();
}

/// `iterations` is the number that the run used.
void add_settings(report_text& report, const nle_outcome& outcome, const settings& store, int iterations)
{
    report.line({R"({\f6  }{\cf1\fs20 Settings })"});
    report.settings_of(nle_kind().methods[static_cast<std::size_t>(outcome.method)].settings, store);
    if (outcome.method == nle_method::constrained) report.setting("# of iterations used", std::to_string(iterations));
    report.line();
}

/// Adds the lines below the head "General".
void add_general(report_text& report, const nle_run_problem& problem, const nle_outcome& outcome)
{
    report.margin_line({"number of implicit equations: ", std::to_string(outcome.implicit_names.size())});
    report.margin_line({"number of explicit equations: ", std::to_string(outcome.explicit_names.size())});
    report.data_file(problem.path);
    // Report times count 100000 seconds a day.
    if (outcome.elapsed_seconds > 0) report.elapsed_time(outcome.elapsed_seconds / 86400.0 * 100000.0);
}

void add_solution_head(report_text& report, std::string_view head)
{
    report.line();
    report.line();
    report.line({head});
    report.line();
}

void add_report_head(report_text& report, std::string_view head, const nle_outcome& outcome)
{
    report.line({head, method_text(outcome.method), ")}"});
    report.line();
}

/// Adds the solution of several equations, up to the head of the report.
void add_solution(report_text& report, const nle_outcome& outcome, const nle_system_result& system)
{
    static constexpr std::array<std::string_view, 6> errors = {
        "",
        R"({\b  Error: Improper parameters input })",
        R"({\b  Error: Initial estimate of solution does not satisfy constraints })",
        R"({\b  Error: Number of iterations greater than allowed in settings})",
        R"({\b  Error: DTHETA has reached a minimal value})",
        R"({\b  Error: Iteration is not making progress or is diverging })"};
    add_solution_head(report, R"({\b\cf1\f5\fs21\ul NLES Solution })");
    if (system.residual_sum() > largest_residual_sum) {
        report.line({R"({\b  Solution did not converge !})"});
        report.line({R"({\b  Give better first estimates and try again.})"});
        report.line();
    }
    if (outcome.method == nle_method::constrained && system.code != cnle_code::converged) {
        report.line({errors[static_cast<std::size_t>(system.code)]});
        report.line();
    }
    add_table(report, system.solution);
    add_report_head(report, R"({\b\cf1\f5\fs21\ul NLES Report ()", outcome);
}

/// Adds the roots of one equation, up to the head of the report.
void add_solution(report_text& report, const nle_outcome& outcome, const nle_single_result& single)
{
    add_solution_head(report, R"({\b\cf1\f5\fs21\ul NLE Solution })");
    const std::size_t count = single.roots.size();
    if (count == 0) {
        report.line({R"({\b No solution was found. Please give better first estimates and try again.} )"});
        report.line();
    }
    for (std::size_t i = 0; i < count; ++i) {
        if (count > 1)
            report.line({R"({\f6  }{\cf2\f5 Solution #)", std::to_string(i + 1), " of ", std::to_string(count), "}"});
        add_table(report, single.roots[i]);
    }
    add_report_head(report, R"({\b\cf1\f5\fs21\ul NLE Report ()", outcome);
}

void add_initial_values(report_text& report, const nle_single_result& single)
{
    report.line({R"({\f6  }{\cf1\fs20 Initial values data })"});
    report.line({R"({\cf3\f6  \ul Variable      Value       f(x)       Ini Guess})"});
    add_rows(report, single.initial_values);
}

void add_search_range(report_text& report, const nle_outcome& outcome, const nle_single_result& single)
{
    report.margin_line({"Search range:  ", plain_text(single.upper), " > ",
                        escape_rich_text(outcome.implicit_names.front()), " > ", plain_text(single.lower)});
}

void add_explicit_report(report_text& report, const nle_run_problem& problem, const nle_outcome& outcome,
                         const nle_explicit_result& result)
{
    report.line({R"({\b\cf1\f5\fs20\ul Explicit Algebraic Equations Solution })"});
    report.line();
    report.line({R"({\cf1\f6  {\ul Variable}    {\ul Value  }  }  )"});
    add_explicit_rows(report, result.values);
    report.line();
    report.line();
    report.line({R"({\b\cf1\f5\fs20\ul Explicit Algebraic Equations Report })"});
    report.line();
    report.line({R"({\f6  }{\cf1 Explicit equations })"});
    add_explicit_equations(report, outcome);
    if (report.comments(R"({\f6  }{\cf1 Comments})", commented_rows(problem.content.rows))) report.line();
    report.line({R"({\f6  }{\cf1 General})"});
    add_general(report, problem, outcome);
}

void add_implicit_report(report_text& report, const nle_run_problem& problem, const nle_outcome& outcome,
                         const settings& store)
{
    const auto* single = std::get_if<nle_single_result>(&outcome.result);
    const auto* system = std::get_if<nle_system_result>(&outcome.result);
    if (single) add_solution(report, outcome, *single);
    if (system) add_solution(report, outcome, *system);
    add_equations(report, outcome);
    if (single) add_initial_values(report, *single);
    if (report.comments(R"({\f6  }{\cf1\fs20 Comments})", commented_rows(problem.content.rows))) report.line();
    if (outcome.method == nle_method::constrained) add_conditions(report, outcome);
    add_settings(report, outcome, store, system ? system->iterations : 0);
    report.line({R"({\f6  }{\cf1\fs20 General})"});
    if (single) add_search_range(report, outcome, *single);
    add_general(report, problem, outcome);
}

} // namespace

std::string nle_report(const nle_run_problem& problem, const nle_outcome& outcome, const settings& store,
                       calendar_date date)
{
    report_text report(problem.content.title, date, layout);
    report.reserve(4096 + 256 * problem.content.rows.size());
    if (const auto* result = std::get_if<nle_explicit_result>(&outcome.result))
        add_explicit_report(report, problem, outcome, *result);
    else
        add_implicit_report(report, problem, outcome, store);
    return report.document();
}

} // namespace kelvarin
