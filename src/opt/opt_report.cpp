// SPDX-License-Identifier: MIT
#include "opt/opt_report.h"

#include "opt/opt_kind.h"
#include "platform/text_file.h"
#include "shell/general_lib.h"
#include "shell/report/report_text.h"
#include "shell/report/rich_text.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr std::string_view target_label = "Target F";

/// What the report says of an ending; nothing of a minimum that was found.
std::string_view ending_words(conmin_ending ending)
{
    switch (ending) {
    case conmin_ending::too_many_rounds:
        return " E: Maximum number of function evaluations.";
    case conmin_ending::line_search_failed:
        return " E: Linear search failure.";
    case conmin_ending::no_descent_direction:
        return " E: Search vector failure.";
    case conmin_ending::converged:
        break;
    }
    return {};
}

/// The number of characters of a text in UTF-8.
std::size_t width_of(std::string_view text)
{
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0u) != 0x80u; }));
}

/// The column of names of the tables.
class name_column
{
public:
    explicit name_column(const opt_outcome& outcome) : width_(target_label.size())
    {
        for (const auto* names : {&outcome.names, &outcome.explicit_names})
            for (const std::string& name : *names)
                width_ = std::max(width_, width_of(name));
    }

    /// The name, padded with blanks, in rich text.
    std::string cell(std::string_view name) const
    {
        return escape_rich_text(name) + std::string(width_ - width_of(name), ' ');
    }

private:
    std::size_t width_;
};

void add_solution(report_text& report, const opt_outcome& outcome)
{
    const name_column names(outcome);
    report.line({R"({\b\cf1\f5\fs20\ul OPT Solution })"});
    if (outcome.ending && *outcome.ending != conmin_ending::converged)
        report.line({R"({\cf3\b )", ending_words(*outcome.ending), "}"});
    report.line({R"({\cf1\f6  {\ul Variable}    {\ul Ini guess}    {\ul Opt value}})"});
    for (std::size_t i = 0; i < outcome.names.size(); ++i) {
        report.line({R"({\f6  )", names.cell(outcome.names[i]), "   ", format_number(outcome.start[i]), "   ",
                     format_number(outcome.x[i]), "}"});
    }
    report.line({R"({\f6\cf6  )", names.cell(target_label), "   ", format_number(outcome.start_value), "   ",
                 format_number(outcome.objective), "}"});
    report.line();
    if (outcome.explicit_names.empty()) return;
    report.line({R"({\cf1\f6  {\ul Expl var}    {\ul Opt value}})"});
    for (std::size_t i = 0; i < outcome.explicit_names.size(); ++i) {
        report.line({R"({\f6  )", names.cell(outcome.explicit_names[i]), "   ",
                     format_number(outcome.explicit_values[i]), "}"});
    }
    report.line();
}

void add_equations(report_text& report, const opt_content& content)
{
    report.line({R"({\cf1  The target function as entered by the user})"});
    report.line({R"({\f6  )", escape_rich_text(trimmed(content.target)), "}"});
    bool has_head = false;
    for (std::size_t i = 0; i < content.rows.size(); ++i) {
        const equation_parts parts = parts_of(content.rows[i].equation, opt_row_form);
        if (parts.implicit || content.rows[i].equation.empty()) continue;
        if (!std::exchange(has_head, true)) report.line({R"({\cf1  Explicit equations as entered by the user})"});
        report.numbered_line(i + 1, {parts.name, " = ", parts.right_side});
    }
}

void add_comments(report_text& report, const std::vector<equation_row>& rows)
{
    bool has_head = false;
    for (const equation_row& row : rows) {
        if (trimmed(row.comment).empty()) continue;
        if (!std::exchange(has_head, true)) report.line({R"({\cf1  Comments})"});
        const std::string_view left_side = trimmed(std::string_view(row.equation).substr(0, row.equation.find('=')));
        report.line({R"({\cf6  )", escape_rich_text(left_side), ": }", escape_rich_text(trimmed(row.comment))});
    }
}

void add_general(report_text& report, const opt_run_problem& problem, const opt_outcome& outcome)
{
    report.line({R"({\cf1  General})"});
    report.margin_line({"degrees of freedom: ", std::to_string(outcome.names.size())});
    report.margin_line({"number of explicit equations: ", std::to_string(outcome.explicit_names.size())});
    report.margin_line({"number of iterations : ", std::to_string(outcome.iterations)});
    report.data_file(problem.path);
    report.elapsed_time(outcome.elapsed_seconds);
}

} // namespace

std::string opt_report(const opt_run_problem& problem, const opt_outcome& outcome, const settings& store,
                       calendar_date date, bool with_comments)
{
    report_text report(problem.content.title, date);
    report.reserve(4096 + 256 * problem.content.rows.size());
    add_solution(report, outcome);
    report.line({R"({\b\cf1\f5\fs20\ul OPT Report ()", method_text(outcome.method), ") }"});
    add_equations(report, problem.content);
    const std::span<const setting_line> lines = opt_kind().methods[static_cast<std::size_t>(outcome.method)].settings;
    if (!lines.empty()) {
        report.line({R"({\cf1  Settings})"});
        report.settings_of(lines, store);
    }
    if (with_comments) add_comments(report, problem.content.rows);
    add_general(report, problem, outcome);
    return report.document();
}

} // namespace kelvarin
