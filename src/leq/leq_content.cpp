// SPDX-License-Identifier: MIT
#include "leq/leq_content.h"

#include "platform/run_time_text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <cassert>
#include <cstddef>

namespace kelvarin
{

namespace
{

bool is_empty(std::string_view cell)
{
    return trimmed(cell).empty();
}

message_box fault_box(std::string_view cell, int row, int column)
{
    const std::string place = "(" + std::to_string(row + 1) + "," + std::to_string(column + 1) + ")";
    if (is_empty(cell)) return {"The coefficients matrix contains one or more empty cells " + place};
    return {"The coefficients matrix contains a cell that is not a number " + place + ": '" +
            std::string(trimmed(cell)) + "'"};
}

/// Appends default names, skipping those in use.
void name_further_columns(std::vector<std::string>& names, int count)
{
    while (static_cast<int>(names.size()) < count) {
        std::string name = default_leq_name(static_cast<int>(names.size()));
        while (std::ranges::find(names, name) != names.end())
            name += '_';
        names.push_back(std::move(name));
    }
}

} // namespace

std::string default_leq_name(int column)
{
    return "x" + std::to_string(column + 1);
}

leq_content::leq_content(int count) : cells(count, count + 1)
{
    name_further_columns(names, count);
}

std::optional<leq_fault> first_leq_fault(const leq_content& content, std::optional<leq_cell> edited)
{
    for (int row = 0; row < content.count(); ++row) {
        for (int column = 0; column <= content.count(); ++column) {
            const std::string& cell = content.cell(row, column);
            if (is_numeric(cell) || edited == leq_cell{row, column}) continue;
            message_box box = fault_box(cell, row, column);
            box.icon = box_icon::exclamation;
            return leq_fault{{row, column}, std::move(box)};
        }
    }
    return std::nullopt;
}

bool ok_to_run(const leq_content& content, std::optional<leq_cell> edited)
{
    return !first_leq_fault(content, edited);
}

leq_content with_count(const leq_content& content, int count)
{
    assert(count >= least_leq_count && count <= largest_leq_count);
    leq_content next(count);
    next.title = content.title;
    const int kept = std::min(count, content.count());
    next.names.assign(content.names.begin(), content.names.begin() + kept);
    name_further_columns(next.names, count);
    const auto move_column = [&](int from, int to) {
        std::vector<std::string> cells = content.cells.cells_of(from);
        cells.resize(static_cast<std::size_t>(count));
        next.cells.set_column(to, std::move(cells));
    };
    for (int column = 0; column < kept; ++column)
        move_column(column, column);
    move_column(content.count(), count);
    return next;
}

int count_empty_cells(const leq_content& content)
{
    std::ptrdiff_t empty = 0;
    for (int column = 0; column <= content.count(); ++column)
        empty += std::ranges::count_if(content.cells.cells_of(column), is_empty);
    return static_cast<int>(empty);
}

leq_content with_zeros(leq_content content)
{
    for (int column = 0; column <= content.count(); ++column)
        content.cells.edit_column(
            column, [](std::vector<std::string>& cells) { std::ranges::replace_if(cells, is_empty, "0"); });
    return content;
}

} // namespace kelvarin
