// SPDX-License-Identifier: MIT
#include "deq/deq_json.h"

#include "deq/deq_analysis.h"
#include "deq/deq_kind.h"
#include "shell/report/outcome_json.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace kelvarin
{

namespace
{

void write_table(json_writer& writer, const named_columns& points)
{
    writer.key("table");
    writer.begin_object();
    writer.member("names", std::span<const std::string>(points.names));
    writer.key("rows");
    writer.begin_array();
    std::vector<double> row(points.column_count());
    for (std::size_t r = 0; r < points.row_count(); ++r) {
        for (std::size_t c = 0; c < row.size(); ++c)
            row[c] = points.columns[c][r];
        writer.value(std::span<const double>(row));
    }
    writer.end_array();
    writer.end_object();
}

void write_extremes(json_writer& writer, std::span<const deq_summary_row> summary)
{
    writer.member_objects("minmax", summary, [&](const deq_summary_row& row) {
        writer.member("name", row.name);
        writer.member("initial", row.initial);
        writer.member("minimum", row.minimal);
        writer.member("maximum", row.maximal);
        writer.member("final", row.final);
    });
}

void write_final_values(json_writer& writer, std::span<const deq_summary_row> summary)
{
    writer.member_objects("final", summary.subspan(1), [&](const deq_summary_row& row) {
        writer.member("name", row.name);
        writer.member("value", row.final);
    });
}

void write_statistics(json_writer& writer, const deq_outcome& outcome)
{
    writer.key("stats");
    writer.begin_object();
    writer.member("steps", outcome.statistics.steps);
    writer.member("evaluations", outcome.statistics.evaluations);
    // The Fehlberg methods don't report these counters.
    if (outcome.method != deq_method::rkf45 && outcome.method != deq_method::rkf56) {
        writer.member("good", outcome.statistics.good);
        writer.member("bad", outcome.statistics.bad);
    }
    writer.end_object();
}

/// A generous estimate of the size of an answer in bytes.
std::size_t size_of_answer(const deq_outcome& outcome, std::string_view report)
{
    constexpr std::size_t frame = 1024;
    constexpr std::size_t of_number = 32;
    constexpr std::size_t of_variable = 250;
    const std::size_t columns = outcome.points.column_count();
    return frame + of_number * columns * outcome.points.row_count() + of_variable * columns + report.size() * 9 / 8;
}

} // namespace

void write_deq_json(json_writer& writer, std::string_view file, const deq_content& content, const deq_outcome& outcome,
                    std::string_view report)
{
    writer.reserve(size_of_answer(outcome, report));
    begin_answer(writer, file, deq_kind().key, content.title);
    write_ending(writer, outcome.has_report, outcome.boxes);
    writer.member("method", method_text(content.method));
    if (outcome.has_report) {
        write_table(writer, outcome.points);
        write_extremes(writer, outcome.summary);
        write_final_values(writer, outcome.summary);
        write_statistics(writer, outcome);
    }
    writer.member("report", report);
    writer.end_object();
}

void write_deq_check_json(json_writer& writer, std::string_view file, const deq_content& content)
{
    const deq_analysis analysis = analyse_deq(content);
    begin_answer(writer, file, deq_kind().key, content.title);
    writer.member("method", method_text(content.method));
    writer.member("green", analysis.green);
    writer.member("panels", std::span<const std::string>(analysis.panels));
    writer.member("undefined", std::span<const std::string>(analysis.set.undefined));
    writer.member("duplicates", std::span<const std::string>(analysis.set.duplicates));
    const std::vector<std::string> warnings = listing_warnings(content);
    writer.member("warnings", std::span<const std::string>(warnings));
    writer.end_object();
}

} // namespace kelvarin
