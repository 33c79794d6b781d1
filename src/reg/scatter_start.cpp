// SPDX-License-Identifier: MIT
#include "reg/scatter_start.h"

#include "reg/column_analysis.h"
#include "reg/table/table_reader.h"

namespace kelvarin
{

namespace
{

void take_columns(const table_content& content, const scatter_request& request, scatter_outcome& outcome)
{
    if (request.y.empty()) return outcome.refuse({"Select at least one column to draw.", box_icon::exclamation});
    const table_reader table(content);
    std::vector<int> columns = {request.x};
    columns.insert(columns.end(), request.y.begin(), request.y.end());
    const int rows = table.leading_rows(columns);
    if (rows == 0)
        return outcome.refuse({"The first row has a blank cell in one of these columns.", box_icon::exclamation});
    outcome.start.caption = "Scatter points graph";
    outcome.start.connected = request.connected;
    outcome.start.points = request.points;
    for (const int column : columns)
        outcome.start.columns.push_back({table.name(column), table.prefix_values(column, rows)});
    outcome.has_report = true;
}

} // namespace

scatter_outcome start_scatter_graph(const table_content& content, const scatter_request& request)
{
    scatter_outcome outcome;
    guard_run(outcome, {analysis_failure_box, {}}, [&] { take_columns(content, request, outcome); });
    return outcome;
}

} // namespace kelvarin
