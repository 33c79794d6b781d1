// SPDX-License-Identifier: MIT
#include "reg/regression_lists.h"

#include "platform/runtime_failure.h"
#include "reg/table/table_reader.h"

#include <algorithm>
#include <optional>

namespace kelvarin
{

regression_lists initialize_regression(const table_content& content)
{
    constexpr std::size_t most_numeric_columns = 200;
    const table_reader table(content);
    regression_lists lists = {table.names_of(table.numeric_columns()), table.names_of(table.model_columns())};
    if (lists.numeric_columns.size() > most_numeric_columns) throw runtime_failure(failure_number::subscript);
    return lists;
}

int default_dependent(std::size_t offered)
{
    return offered >= 2 ? 1 : -1;
}

std::vector<std::string> without_dependent(const std::vector<std::string>& numeric_columns, std::string_view dependent)
{
    std::vector<std::string> offered = numeric_columns;
    std::erase(offered, dependent);
    return offered;
}

int highest_degree(const table_content& content, std::string_view dependent, std::string_view independent,
                   bool through_origin)
{
    const table_reader table(content);
    const std::optional<int> y = table.column_of(dependent);
    const std::optional<int> x = table.column_of(independent);
    if (!x || !y) return 1;
    const int columns[] = {*x, *y};
    const int n = table.leading_rows(columns, last_row::left_out);
    return std::max(1, through_origin ? n : n - 1);
}

} // namespace kelvarin
