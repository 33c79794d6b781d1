// SPDX-License-Identifier: MIT
#pragma once

#include "expr/basParse.h"
#include "platform/message_box.h"
#include "reg/table/table_content.h"
#include "shell/document/cell_block.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The commands of a data table on its content. Rows and columns count from 0; `context` lends the generator behind
/// `rand` to formula columns, which follow every change of cells.
namespace kelvarin
{

inline constexpr int most_added_columns = 20;

bool selection_has_formula(const table_content& content, int first_column, int last_column);

/// Replaces a cell of a plain column; the formula columns of its row follow. Formula columns are left as they are.
void put_cell(table_content& content, int row, int column, std::string_view text, evaluation_context& context);

/// What changing a name came to: done, refused with a box, or, for an empty name, refused in silence.
struct name_change
{
    bool changed = false;
    std::optional<message_box> box;
};
/// Names a column and follows in all formulas. Another column must not have the name, blanks around both not counted.
name_change change_column_name(table_content& content, std::string_view name, int column);

/// Columns with default names at the end. Names in use are not avoided.
void add_columns(table_content& content, int count);
/// A blank row before `row`; formula columns are not evaluated. Does nothing if there are as many rows as there may be.
void insert_row(table_content& content, int row);
/// Does nothing to the only row.
void delete_row(table_content& content, int row);

/// Empties the cells of plain columns.
void clear_cells(table_content& content, const cell_range& range, evaluation_context& context);

/// The selected cells with tabs between cells and CR LF between rows.
std::string copied_cells(const table_content& content, const cell_range& range);
/// The same below a line with the names of the columns.
std::string copied_with_headers(const table_content& content, const cell_range& range);

/// What a paste came to.
struct paste_result
{
    /// The block's place in the table.
    cell_range pasted;
    /// In the order in which they are shown.
    std::vector<message_box> boxes;
};
/// Writes a block from a cell on. Cells of formula columns are skipped, rows are added where the table is too short,
/// and what lies beside its last column is left out; boxes tell so, and of cells that are no numbers. A block that
/// would exceed the limits of tables is refused as a whole.
paste_result paste_cells(table_content& content, int row, int column, const cell_block& block,
                         evaluation_context& context);
/// "Some destination cells contain formulas that can not be modified." and so on.
message_box formula_cells_box();

/// Rewrites the numbers of a range, those of formula columns as well, by a mask such as "0.000".
void format_selection(table_content& content, const cell_range& range, std::string_view mask);

/// Turns a column into the formula column of a fitted model: `cells` are the texts of its first rows, the others stay.
/// The formula may be empty. Other formula columns are not evaluated.
void store_model_column(table_content& content, int column, std::string_view formula,
                        const std::vector<std::string>& cells);

/// Takes over a typed number of digits from 8 to 22 and evaluates all formula columns anew, which is also done if the
/// number is refused. Nothing happens for a blank text.
std::optional<message_box> set_calc_digits(table_content& content, std::string_view text, evaluation_context& context);

} // namespace kelvarin
