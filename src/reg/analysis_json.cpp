// SPDX-License-Identifier: MIT
#include "reg/analysis_json.h"

#include <cmath>

namespace kelvarin
{

void write_analysis_members(json_writer& writer, const analysis_outcome& outcome)
{
    const auto& methods = analysis_methods(outcome.kind);
    writer.member("analysis", analysis_name(outcome.kind));
    writer.member("n", outcome.n);
    if (outcome.has_report) {
        std::size_t method = 0;
        writer.member_objects("methods", methods, [&](std::string_view name) {
            writer.member("name", name);
            writer.member("value", outcome.values[method++]);
        });
    }
    writer.member("chosen", methods[outcome.chosen]);
    if (!outcome.has_report) return;
    writer.member("value", outcome.value());
    if (outcome.error) writer.member("err", *outcome.error);
    writer.member("dev", outcome.deviation);
    writer.member("warning", outcome.warns);
}

void write_matrix_members(json_writer& writer, const matrix_outcome& outcome)
{
    writer.member("matrix", matrix_operation_name(outcome.operation));
    if (!outcome.has_report) return;
    if (outcome.operation == matrix_operation::explore) {
        writer.member("rows", outcome.matrices.a->rows());
        writer.member("columns", outcome.matrices.a->columns());
        writer.member("rank", outcome.rank);
        if (outcome.trace) writer.member("trace", *outcome.trace);
        if (outcome.determinant) writer.member("determinant", *outcome.determinant);
        return;
    }
    writer.key("c");
    writer.begin_array();
    for (int row = 0; row < outcome.c.rows(); ++row)
        writer.value(outcome.c.row(row));
    writer.end_array();
}

} // namespace kelvarin
