// SPDX-License-Identifier: MIT
#include "reg/table/table_edits.h"

#include "platform/format_mask.h"
#include "platform/run_time_numbers.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "reg/table/column_formulas.h"
#include "shell/general_lib.h"

#include <algorithm>
#include <cassert>
#include <cstddef>

namespace kelvarin
{

namespace
{

/// Changes cells of plain columns row by row; the formula columns of each row follow.
class row_writer
{
public:
    row_writer(table_content& content, evaluation_context& context)
        : content_(content), formulas_(content, context), cells_(content.cells)
    {
    }

    void write(int row, int column, std::string_view text)
    {
        assert(!content_.has_formula(column));
        if (row != row_) settle_row();
        row_ = row;
        cells_.set(row, column, text);
        if (!formulas_.settle_at_once()) formulas_.check_other_transpose_columns(cells_, row, column);
    }
    void commit()
    {
        settle_row();
        cells_.commit();
    }

private:
    void settle_row()
    {
        constexpr int no_column = -1;
        if (row_ >= 0 && formulas_.any() && formulas_.settle_at_once())
            formulas_.check_other_transpose_columns(cells_, row_, no_column);
    }

    table_content& content_;
    formula_columns formulas_;
    cell_editor cells_;
    int row_ = -1;
};

/// The rows of a block up to the last one with a cell that is not blank, and the columns of its longest row.
table_size extent_of(const cell_block& block)
{
    table_size size = {0, 0};
    for (std::size_t row = 0; row < block.size(); ++row) {
        size.columns = std::max(size.columns, static_cast<int>(block[row].size()));
        if (!std::ranges::all_of(block[row], [](const std::string& cell) { return trimmed(cell).empty(); }))
            size.rows = static_cast<int>(row) + 1;
    }
    return size;
}

/// Makes room for a block below the last row, with one row more, since some counts leave out the last row.
void grow_for(table_content& content, int rows_needed)
{
    if (rows_needed <= content.rows()) return;
    const long long most_rows = most_table_cells / std::max(content.columns(), 1);
    const int rows = std::min(rows_needed + 1, largest_table_extent);
    if (rows >= rows_needed && rows <= most_rows) content.grow({rows, content.columns()});
}

} // namespace

bool selection_has_formula(const table_content& content, int first_column, int last_column)
{
    for (int column = first_column; column <= last_column; ++column)
        if (content.has_formula(column)) return true;
    return false;
}

void put_cell(table_content& content, int row, int column, std::string_view text, evaluation_context& context)
{
    if (content.has_formula(column)) return;
    row_writer writer(content, context);
    writer.write(row, column, text);
    writer.commit();
}

name_change change_column_name(table_content& content, std::string_view name, int column)
{
    if (name.empty()) return {};
    std::string error;
    for (int other = 0; other < content.columns(); ++other)
        if (other != column && trimmed(content.name(other)) == trimmed(name)) error = "Column name must be unique.";
    if (!is_valid_name(name))
        error = "The variable name must start with a letter and may contain only a combination of letters, numbers and "
                "\"_\" sign.";
    if (!error.empty()) return {false, message_box{"Error: " + error, box_icon::critical}};
    const std::string old_name = content.name(column);
    for (std::string& formula : content.formulas)
        formula = replace_name(formula, old_name, name);
    content.names[static_cast<std::size_t>(column)] = name;
    return {true, std::nullopt};
}

void add_columns(table_content& content, int count)
{
    content.grow({content.rows(), std::min(content.columns() + count, largest_table_extent)});
}

void insert_row(table_content& content, int row)
{
    if (content.rows() < largest_table_extent) content.cells.insert_row(row);
}

void delete_row(table_content& content, int row)
{
    if (content.rows() > 1) content.cells.delete_row(row);
}

void clear_cells(table_content& content, const cell_range& range, evaluation_context& context)
{
    row_writer writer(content, context);
    for (int row = range.row; row < range.row + range.rows; ++row)
        for (int column = range.column; column < range.column + range.columns; ++column)
            if (!content.has_formula(column)) writer.write(row, column, "");
    writer.commit();
}

std::string copied_cells(const table_content& content, const cell_range& range)
{
    std::string text = block_text(content.cells.texts(), range);
    for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 2))
        text.insert(at, 1, '\r');
    return text;
}

std::string copied_with_headers(const table_content& content, const cell_range& range)
{
    std::string text;
    for (int column = range.column; column < range.column + range.columns; ++column)
        text.append(column > range.column ? "\t" : "").append(content.name(column));
    return text + "\r\n" + copied_cells(content, range);
}

message_box formula_cells_box()
{
    return {
        "Some destination cells contain formulas that can not be modified.\rNote that some data has not been pasted "
        "in this action.",
        box_icon::exclamation};
}

paste_result paste_cells(table_content& content, int row, int column, const cell_block& block,
                         evaluation_context& context)
{
    paste_result result = {{row, column}, {}};
    const table_size extent = extent_of(block);
    if (static_cast<long long>(block.size()) * extent.columns > most_table_cells) {
        result.boxes.push_back({"The clipboard holds more cells than a table can have.", box_icon::exclamation});
        return result;
    }
    grow_for(content, row + extent.rows);
    result.pasted.rows = std::clamp(static_cast<int>(block.size()), 1, content.rows() - row);
    result.pasted.columns = std::clamp(extent.columns, 1, content.columns() - column);

    bool any_invalid = false;
    bool any_formula = false;
    std::vector<std::string> left_out;
    row_writer writer(content, context);
    for (std::size_t i = 0; i < block.size(); ++i)
        for (std::size_t j = 0; j < block[i].size(); ++j) {
            std::string text = field_text(block[i][j]);
            const int to_row = row + static_cast<int>(i);
            const int to_column = column + static_cast<int>(j);
            if (!content.cells.is_inside(to_row, to_column)) {
                if (!text.empty()) left_out.push_back(std::move(text));
            } else if (content.has_formula(to_column)) {
                any_formula = true;
            } else {
                any_invalid = any_invalid || (!text.empty() && !is_numeric(text));
                writer.write(to_row, to_column, text);
            }
        }
    writer.commit();
    if (any_invalid) result.boxes.push_back({"Invalid numerical data cells were detected.", box_icon::exclamation});
    if (any_formula) result.boxes.push_back(formula_cells_box());
    if (!left_out.empty()) result.boxes.push_back(left_out_box(left_out));
    return result;
}

void format_selection(table_content& content, const cell_range& range, std::string_view mask)
{
    cell_editor cells(content.cells);
    for (int column = range.column; column < range.column + range.columns; ++column)
        for (int row = range.row; row < range.row + range.rows; ++row)
            if (const parsed_cell cell = cells.number(row, column); cell.is_number())
                cells.set(row, column, format_masked(cell.value, mask));
    cells.commit();
}

void store_model_column(table_content& content, int column, std::string_view formula,
                        const std::vector<std::string>& cells)
{
    assert(cells.size() <= static_cast<std::size_t>(content.rows()));
    content.formulas[static_cast<std::size_t>(column)] = field_text(formula);
    std::vector<std::string> stored = content.cells.texts().cells_of(column);
    std::ranges::copy(cells, stored.begin());
    content.cells.set_column(column, std::move(stored));
}

std::optional<message_box> set_calc_digits(table_content& content, std::string_view text, evaluation_context& context)
{
    if (trimmed(text).empty()) return std::nullopt;
    const double digits = round_half_even(prefix_value(text).value_or(0.0));
    std::optional<message_box> refused;
    if (digits >= least_calc_digits && digits <= largest_calc_digits)
        content.calc_digits = static_cast<int>(digits);
    else
        refused = message_box{"Numer of digits must be in the interval: 8 < n < 22", box_icon::critical};
    recalc_all_formula_columns(content, context);
    return refused;
}

} // namespace kelvarin
