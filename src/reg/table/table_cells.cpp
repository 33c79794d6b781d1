// SPDX-License-Identifier: MIT
#include "reg/table/table_cells.h"

#include "platform/run_time_text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace kelvarin
{

parsed_cell parse_cell(std::string_view text)
{
    if (trimmed(text).empty()) return {};
    if (const std::optional<double> value = numeric_value(text)) return {*value, cell_kind::number};
    if (const std::optional<double> value = prefix_value(text)) return {*value, cell_kind::text};
    return {0.0, cell_kind::too_large};
}

table_cells::table_cells(int rows, int columns)
    : texts_(rows, columns),
      numbers_(static_cast<std::size_t>(columns), std::make_shared<const parsed_column>(static_cast<std::size_t>(rows)))
{
}

void table_cells::put_column(int column, std::vector<std::string> cells, parsed_column numbers)
{
    if (cells == texts_.cells_of(column)) return;
    texts_.set_column(column, std::move(cells));
    numbers_[static_cast<std::size_t>(column)] = std::make_shared<const parsed_column>(std::move(numbers));
}

void table_cells::set_column(int column, std::vector<std::string> cells)
{
    const std::vector<std::string>& before = texts_.cells_of(column);
    parsed_column numbers = *numbers_[static_cast<std::size_t>(column)];
    for (std::size_t row = 0; row < cells.size(); ++row)
        if (cells[row] != before[row]) numbers[row] = parse_cell(cells[row]);
    put_column(column, std::move(cells), std::move(numbers));
}

void table_cells::set_cell(int row, int column, std::string_view text)
{
    cell_editor editor(*this);
    editor.set(row, column, text);
    editor.commit();
}

template <class Edit> void table_cells::change_rows(int rows, Edit edit)
{
    table_cells changed(rows, columns());
    for (int column = 0; column < columns(); ++column) {
        // Most columns of most tables are empty and stay one.
        const auto numbers = numbers_of(column);
        if (std::ranges::all_of(numbers, &parsed_cell::is_blank) &&
            std::ranges::all_of(texts_.cells_of(column), &std::string::empty))
            continue;
        std::vector<std::string> new_texts = texts_.cells_of(column);
        parsed_column new_numbers(numbers.begin(), numbers.end());
        edit(new_texts);
        edit(new_numbers);
        changed.put_column(column, std::move(new_texts), std::move(new_numbers));
    }
    *this = std::move(changed);
}

void table_cells::insert_row(int row)
{
    change_rows(rows() + 1, [row](auto& cells) { cells.insert(cells.begin() + row, {{}}); });
}

void table_cells::delete_row(int row)
{
    change_rows(rows() - 1, [row](auto& cells) { cells.erase(cells.begin() + row); });
}

void table_cells::grow(int rows, int columns)
{
    const int new_rows = std::max(rows, this->rows());
    if (new_rows > this->rows())
        change_rows(new_rows, [new_rows](auto& cells) { cells.resize(static_cast<std::size_t>(new_rows)); });
    if (columns <= this->columns()) return;
    table_cells wider(new_rows, columns);
    for (int column = 0; column < this->columns(); ++column) {
        wider.texts_.share_column(column, texts_, column);
        wider.numbers_[static_cast<std::size_t>(column)] = numbers_[static_cast<std::size_t>(column)];
    }
    *this = std::move(wider);
}

cell_editor::cell_editor(table_cells& cells) : cells_(cells), open_(static_cast<std::size_t>(cells.columns())) {}

const std::string& cell_editor::text(int row, int column) const
{
    const auto& open = open_[static_cast<std::size_t>(column)];
    return open ? open->texts[static_cast<std::size_t>(row)] : cells_.text(row, column);
}

const parsed_cell& cell_editor::number(int row, int column) const
{
    const auto& open = open_[static_cast<std::size_t>(column)];
    return open ? open->numbers[static_cast<std::size_t>(row)] : cells_.number(row, column);
}

void cell_editor::set(int row, int column, std::string_view text)
{
    if (this->text(row, column) == text) return;
    auto& open = open_[static_cast<std::size_t>(column)];
    if (!open) {
        const auto numbers = cells_.numbers_of(column);
        open = std::make_unique<open_column>(
            open_column{cells_.texts().cells_of(column), {numbers.begin(), numbers.end()}});
    }
    open->texts[static_cast<std::size_t>(row)] = text;
    open->numbers[static_cast<std::size_t>(row)] = parse_cell(text);
}

void cell_editor::commit()
{
    for (std::size_t column = 0; column < open_.size(); ++column) {
        if (!open_[column]) continue;
        cells_.put_column(static_cast<int>(column), std::move(open_[column]->texts), std::move(open_[column]->numbers));
        open_[column].reset();
    }
}

} // namespace kelvarin
