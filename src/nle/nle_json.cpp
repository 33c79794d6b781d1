// SPDX-License-Identifier: MIT
#include "nle/nle_json.h"

#include "nle/nle_analysis.h"
#include "nle/nle_kind.h"
#include "shell/report/outcome_json.h"

#include <cstddef>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace kelvarin
{

namespace
{

void write_implicit(json_writer& writer, std::span<const implicit_result> results)
{
    writer.member_objects("implicit", results, [&](const implicit_result& result) {
        writer.member("name", result.name);
        writer.member("value", result.value);
        writer.member("residual", result.residual);
        writer.member("guess", result.guess);
    });
}

void write_explicit(json_writer& writer, std::span<const explicit_result> results)
{
    writer.member_objects("explicit", results, [&](const explicit_result& result) {
        writer.member("name", result.name);
        writer.member("value", result.value);
    });
}

void write_solution(json_writer& writer, const nle_solution& solution)
{
    write_implicit(writer, solution.implicit);
    write_explicit(writer, solution.explicit_values);
}

/// The keys of a result; each kind of result has its own.
struct result_keys
{
    json_writer& writer;
    bool has_report;

    void operator()(const nle_system_result& system) const
    {
        if (has_report) writer.member("iterations", system.iterations);
        write_solution(writer, system.solution);
    }

    void operator()(const nle_single_result& single) const
    {
        writer.member_objects("solutions", single.roots,
                              [&](const nle_solution& root) { write_solution(writer, root); });
        writer.key("scan");
        writer.begin_object();
        write_scan_column(single.scan, "x", 0);
        write_scan_column(single.scan, "f", 1);
        writer.end_object();
    }

    void operator()(const nle_explicit_result& result) const
    {
        write_implicit(writer, {});
        write_explicit(writer, result.values);
    }

    void write_scan_column(const named_columns& scan, std::string_view key, std::size_t column) const
    {
        const bool exists = column < scan.column_count();
        writer.member(key, exists ? std::span<const double>(scan.columns[column]) : std::span<const double>());
    }
};

/// An estimate of an answer's size in bytes, on the high side.
std::size_t size_of_answer(const nle_outcome& outcome, std::string_view report)
{
    constexpr std::size_t frame = 1024;
    constexpr std::size_t of_row = 200;
    return frame + of_row * (outcome.implicit_names.size() + outcome.explicit_names.size()) + report.size() * 9 / 8;
}

} // namespace

void write_nle_json(json_writer& writer, std::string_view file, const nle_content& content, const nle_outcome& outcome,
                    std::string_view report)
{
    writer.reserve(size_of_answer(outcome, report));
    begin_answer(writer, file, nle_kind().key, content.title);
    writer.member("method", method_text(content.method));
    write_ending(writer, outcome.has_report, outcome.boxes);
    writer.member("converged", outcome.has_report && outcome.converged());
    std::visit(result_keys{writer, outcome.has_report}, outcome.result);
    writer.member("report", report);
    writer.end_object();
}

void write_nle_check_json(json_writer& writer, std::string_view file, const nle_content& content)
{
    const nle_analysis analysis = analyse_nle(content);
    begin_answer(writer, file, nle_kind().key, content.title);
    writer.member("method", method_text(content.method));
    writer.member("green", analysis.green);
    writer.member("panels", std::span<const std::string>(analysis.panels));
    writer.member("implicit", std::span<const std::string>(analysis.set.implicit_names));
    writer.member("explicit", std::span<const std::string>(analysis.set.explicit_names));
    writer.member("undefined", std::span<const std::string>(analysis.set.undefined));
    writer.member("duplicates", std::span<const std::string>(analysis.set.duplicates));
    const std::vector<std::string> warnings = listing_warnings(content);
    writer.member("warnings", std::span<const std::string>(warnings));
    writer.end_object();
}

} // namespace kelvarin
