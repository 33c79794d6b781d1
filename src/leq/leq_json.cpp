// SPDX-License-Identifier: MIT
#include "leq/leq_json.h"

#include "leq/leq_kind.h"
#include "shell/report/outcome_json.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kelvarin
{

namespace
{

void write_variables(json_writer& writer, std::span<const std::string> names, std::span<const double> values)
{
    auto name = names.begin();
    writer.member_objects("variables", values, [&](double value) {
        writer.member("name", *name++);
        writer.member("value", value);
    });
}

} // namespace

void write_leq_json(json_writer& writer, std::string_view file, const leq_content& content, const leq_outcome& outcome,
                    std::string_view report)
{
    begin_answer(writer, file, leq_kind().key, content.title);
    write_ending(writer, outcome.has_report, outcome.boxes);
    if (outcome.has_report) {
        write_variables(writer, content.names, outcome.solution);
        writer.member("residual", outcome.residual);
    }
    writer.member("report", report);
    writer.end_object();
}

void write_leq_check_json(json_writer& writer, std::string_view file, const leq_content& content)
{
    std::vector<std::string> warnings;
    if (const std::optional<leq_fault> fault = first_leq_fault(content)) warnings.push_back(fault->box.text);
    begin_answer(writer, file, leq_kind().key, content.title);
    writer.member("green", warnings.empty());
    writer.member("variables", std::span<const std::string>(content.names));
    writer.member("warnings", std::span<const std::string>(warnings));
    writer.end_object();
}

} // namespace kelvarin
