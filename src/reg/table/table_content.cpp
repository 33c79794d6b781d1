// SPDX-License-Identifier: MIT
#include "reg/table/table_content.h"

#include <algorithm>

namespace kelvarin
{

namespace
{

/// At least two digits.
std::string two_digits(int number)
{
    return (number < 10 ? "0" : "") + std::to_string(number);
}

} // namespace

table_size size_to_hold(table_size filled, table_size start)
{
    return {filled.rows > start.rows ? filled.rows + 1 : start.rows, std::max(filled.columns, start.columns)};
}

std::string default_column_name(int column)
{
    return "C" + two_digits(column + 1);
}

std::string row_label(int row)
{
    return two_digits(row + 1);
}

table_content::table_content(table_size size) : cells(size.rows, size.columns), new_size(size)
{
    grow(size);
}

void table_content::grow(table_size size)
{
    cells.grow(size.rows, size.columns);
    while (static_cast<int>(names.size()) < cells.columns())
        names.push_back(default_column_name(static_cast<int>(names.size())));
    formulas.resize(names.size());
}

bool operator==(const table_content& left, const table_content& right)
{
    return left.title == right.title && left.names == right.names && left.formulas == right.formulas &&
           left.calc_digits == right.calc_digits && left.model == right.model && left.guesses == right.guesses &&
           left.cells == right.cells;
}

table_size used_size(const table_content& content)
{
    table_size used = {0, 0};
    for (int column = 0; column < content.columns(); ++column) {
        const auto numbers = content.cells.numbers_of(column);
        int row = content.rows();
        while (row > 0 && numbers[static_cast<std::size_t>(row - 1)].is_blank())
            --row;
        used.rows = std::max(used.rows, row);
        if (row > 0 || content.has_formula(column)) used.columns = column + 1;
    }
    return used;
}

} // namespace kelvarin
