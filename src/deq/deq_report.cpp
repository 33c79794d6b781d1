// SPDX-License-Identifier: MIT
#include "deq/deq_report.h"

#include "deq/deq_kind.h"
#include "nle/equations/row_comments.h"
#include "platform/run_time_text.h"
#include "shell/general_lib.h"
#include "shell/report/report_text.h"
#include "shell/report/rich_text.h"

#include <string_view>

namespace kelvarin
{

namespace
{

/// The second blank behind \f6 indents the line like the heads above it.
constexpr report_layout layout = {.margin = R"({\f6  })", .ends_last_line = false};

/// The first 9 characters of a name, padded with blanks to 9.
std::string name_block(std::string_view name)
{
    static constexpr std::size_t width = 9;
    std::size_t end = 0;
    std::size_t characters = 0;
    for (; end < name.size(); ++end) {
        // Continuation bytes of UTF-8 are not counted.
        if ((static_cast<unsigned char>(name[end]) & 0xC0u) == 0x80u) continue;
        if (characters == width) break;
        ++characters;
    }
    return escape_rich_text(name.substr(0, end)) + std::string(width - characters, ' ');
}

void add_head(report_text& report, const deq_run_problem& problem, calendar_date date)
{
    report.line({R"({\b\cf2\f5\fs24\ul Kelvarin Results})"});
    report.line({report_title_group(problem.content.title)});
    report.line({report_date_group(date)});
}

void add_summary(report_text& report, const deq_outcome& outcome)
{
    report.line({R"({\b\cf1\f5\fs20\ul Calculated values of the DEQ variables})"});
    report.line();
    report.line({R"( {\f6\cf1 {\ul Variable}  {\ul initial value}  {\ul minimal value}  {\ul maximal value}  )"
                 R"({\ul final value}})"});
    for (const deq_summary_row& row : outcome.summary) {
        report.line({R"( {\f6 )", name_block(row.name), "  ", format_number(row.initial), "     ",
                     format_number(row.minimal), "     ", format_number(row.maximal), "    ", format_number(row.final),
                     "}"});
    }
    report.line();
}

void add_equations(report_text& report, const deq_outcome& outcome)
{
    report.line({R"({\cf1  Differential equations as entered by the user})"});
    for (std::size_t i = 0; i < outcome.differential_names.size(); ++i) {
        report.numbered_line(i + 1, {"d(", outcome.differential_names[i], ")/d(", outcome.independent,
                                     ") = ", outcome.differential_right_sides[i]});
    }
    report.line({R"({\cf1  Explicit equations as entered by the user})"});
    for (std::size_t i = 0; i < outcome.explicit_names.size(); ++i)
        report.numbered_line(i + 1, {outcome.explicit_names[i], " = ", outcome.explicit_right_sides[i]});
}

void add_range(report_text& report, const deq_outcome& outcome)
{
    report.line({R"({\cf1  Independent variable })"});
    report.margin_line({"variable name : ", escape_rich_text(outcome.independent)});
    report.margin_line({"initial value : ", plain_text(outcome.x1)});
    report.margin_line({"final value : ", plain_text(outcome.x2)});
}

void add_precision(report_text& report, const deq_outcome& outcome, const settings& store)
{
    report.line({R"({\cf1  Precision })"});
    report.settings_of(deq_kind().methods[static_cast<std::size_t>(outcome.method)].settings, store);
    if (!is_for_stiff(outcome.method)) return;
    report.margin_line({"Good steps = ", std::to_string(outcome.statistics.good)});
    report.margin_line({"Bad steps = ", std::to_string(outcome.statistics.bad)});
}

void add_general(report_text& report, const deq_run_problem& problem, const deq_outcome& outcome)
{
    report.line({R"({\cf1  General})"});
    report.margin_line({"number of differential equations: ", std::to_string(outcome.differential_names.size())});
    report.margin_line({"number of explicit equations: ", std::to_string(outcome.explicit_names.size())});
    report.elapsed_time(outcome.elapsed_seconds);
    report.data_file(problem.path);
}

} // namespace

std::string deq_report(const deq_run_problem& problem, const deq_outcome& outcome, const settings& store,
                       calendar_date date, bool with_comments)
{
    report_text report(layout);
    report.reserve(4096 + 256 * problem.content.rows.size());
    add_head(report, problem, date);
    add_summary(report, outcome);
    report.line({R"({\b\cf1\f5\fs20\ul ODE Report ()", method_text(outcome.method), ")}"});
    add_equations(report, outcome);
    if (with_comments) report.comments(R"({\cf1  Comments})", commented_rows(problem.content.rows));
    add_range(report, outcome);
    add_precision(report, outcome, store);
    add_general(report, problem, outcome);
    return report.document();
}

} // namespace kelvarin
