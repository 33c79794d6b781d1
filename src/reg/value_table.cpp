// SPDX-License-Identifier: MIT
#include "reg/value_table.h"

#include "shell/general_lib.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

bool is_free(const table_content& content, int column)
{
    return !content.has_formula(column) && content.name(column) == default_column_name(column) &&
           std::ranges::all_of(content.cells.numbers_of(column), &parsed_cell::is_blank);
}

/// The first two free columns; the table grows by those that are missing.
std::pair<int, int> free_columns(table_content& content)
{
    std::vector<int> found;
    for (int column = 0; column < content.columns() && found.size() < 2; ++column)
        if (is_free(content, column)) found.push_back(column);
    for (int column = content.columns(); found.size() < 2; ++column) {
        content.grow({content.rows(), column + 1});
        found.push_back(column);
    }
    return {found[0], found[1]};
}

std::string unused_name(const table_content& content, const std::string& wish)
{
    std::string name = wish;
    for (int number = 2; std::ranges::find(content.names, name) != content.names.end(); ++number)
        name = wish + "_" + std::to_string(number);
    return name;
}

/// The text of a method's result; empty where it fails.
std::string value_text(const analysis_points& points, const analysis_request& request, double x, int digits,
                       const pause_point& pause)
{
    try {
        return format_digits(analysis_value(points, request.kind, request.method, x, pause), digits);
    } catch (const runtime_failure&) {
        return {};
    }
}

void put_column(table_content& content, int column, std::string name, std::vector<std::string> cells)
{
    cells.resize(static_cast<std::size_t>(content.rows()));
    content.names[static_cast<std::size_t>(column)] = std::move(name);
    content.cells.set_column(column, std::move(cells));
}

void fill(value_table& filled, const analysis_points& points, const analysis_request& request, int count,
          run_listener& listener)
{
    table_content& content = filled.content;
    const pause_point pause = stop_at(listener);
    std::vector<std::string> xs;
    std::vector<std::string> values;
    for (int i = 0; i < count; ++i) {
        pause();
        const double part = static_cast<double>(i) / (count - 1);
        listener.fraction_done(part);
        const double x = (1.0 - part) * points.x.front() + part * points.x.back();
        xs.push_back(format_digits(x, content.calc_digits));
        values.push_back(value_text(points, request, x, content.calc_digits, pause));
    }
    const std::string x_name = content.name(*request.columns.independent) + "_table";
    const std::string value_name =
        content.name(*request.columns.dependent) + "_" + std::string(analysis_methods(request.kind)[request.method]);
    // The last row of a table is never counted.
    content.grow({std::max(content.rows(), count + 1), content.columns()});
    const auto [x_column, value_column] = free_columns(content);
    put_column(content, x_column, unused_name(content, x_name), std::move(xs));
    put_column(content, value_column, unused_name(content, value_name), std::move(values));
    filled.column = x_column;
    filled.has_report = true;
}

} // namespace

value_table fill_table_of_values(table_content content, const analysis_request& request, int count,
                                 run_listener& listener)
{
    value_table filled;
    filled.content = std::move(content);
    guard_run(filled, {analysis_failure_box, {}}, [&] {
        analysis_points points = load_analysis_data(table_reader(filled.content), request.columns);
        if (std::optional<message_box> refused = sort_analysis_data(points)) return filled.refuse(std::move(*refused));
        if (std::optional<message_box> refused = count_refusal(points, request.kind))
            return filled.refuse(std::move(*refused));
        fill(filled, points, request, count, listener);
    });
    return filled;
}

} // namespace kelvarin
