// SPDX-License-Identifier: MIT
#include "expr/operations.h"

#include "expr/operation_table.h"

#include <string>
#include <unordered_map>

namespace kelvarin
{

namespace
{

using code = operation_code;
using operation_table::rows;

constexpr bool rows_stand_in_code_order()
{
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i].code != static_cast<code>(i)) return false;
    return true;
}
static_assert(rows_stand_in_code_order());

const std::unordered_map<std::string_view, code>& codes_by_spelling()
{
    static const std::unordered_map<std::string_view, code> map = [] {
        std::unordered_map<std::string_view, code> made;
        for (const operation_row& row : rows)
            if (!row.spelling.empty() && row.code != code::if_then_else) made.emplace(row.spelling, row.code);
        return made;
    }();
    return map;
}

code code_of(std::string_view spelling)
{
    const auto& map = codes_by_spelling();
    const auto found = map.find(spelling);
    return found == map.end() ? code::none : found->second;
}

} // namespace

std::span<const operation_row> operation_rows()
{
    return rows;
}

const operation_row& row_of(operation_code operation)
{
    return rows[static_cast<std::size_t>(operation)];
}

operation_code operator_of(std::string_view spelling)
{
    const code found = code_of(spelling);
    return row_of(found).priority > 0 ? found : code::none;
}

operation_code function_of(std::string_view spelling)
{
    const code found = code_of(spelling);
    return row_of(found).priority == 0 ? found : code::none;
}

double power_value(double left, double right)
{
    if (right == 2.0) return left * left;
    if (right == 3.0) return left * left * left;
    return std::pow(left, right);
}

} // namespace kelvarin
