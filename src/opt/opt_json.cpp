// SPDX-License-Identifier: MIT
#include "opt/opt_json.h"

#include "opt/opt_analysis.h"
#include "opt/opt_kind.h"
#include "shell/report/outcome_json.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace kelvarin
{

namespace
{

/// Writes an array of objects, one for each name: "name", "value" and, where there is one, "guess".
void write_values(json_writer& writer, std::string_view key, std::span<const std::string> names,
                  std::span<const double> values, std::span<const double> guesses)
{
    writer.key(key);
    writer.begin_array();
    for (std::size_t i = 0; i < names.size(); ++i) {
        writer.begin_object();
        writer.member("name", names[i]);
        writer.member("value", values[i]);
        if (!guesses.empty()) writer.member("guess", guesses[i]);
        writer.end_object();
    }
    writer.end_array();
}

} // namespace

void write_opt_json(json_writer& writer, std::string_view file, const opt_content& content, const opt_outcome& outcome,
                    std::string_view report)
{
    begin_answer(writer, file, opt_kind().key, content.title);
    write_ending(writer, outcome.has_report, outcome.boxes);
    writer.member("method", method_text(content.method));
    if (outcome.has_report) {
        write_values(writer, "variables", outcome.names, outcome.x, outcome.start);
        write_values(writer, "explicit", outcome.explicit_names, outcome.explicit_values, {});
        writer.member("objective", outcome.objective);
        writer.member("iterations", outcome.iterations);
        writer.member("evaluations", outcome.evaluations);
        if (outcome.ending) writer.member("ending", static_cast<int>(*outcome.ending));
    }
    writer.member("report", report);
    writer.end_object();
}

void write_opt_check_json(json_writer& writer, std::string_view file, const opt_content& content)
{
    const opt_analysis analysis = analyse_opt(content);
    begin_answer(writer, file, opt_kind().key, content.title);
    writer.member("green", analysis.green);
    writer.member("panels", std::span<const std::string>(analysis.panels));
    writer.member("undefined", std::span<const std::string>(analysis.undefined));
    const std::vector<std::string> warnings = listing_warnings(analysis);
    writer.member("warnings", std::span<const std::string>(warnings));
    writer.end_object();
}

} // namespace kelvarin
