// SPDX-License-Identifier: MIT
#pragma once

#include "expr/basParse.h"
#include "platform/message_box.h"
#include "reg/table/table_content.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// The text of a calculated cell that could not be calculated.
inline constexpr const char* cell_error = "$Err!";

/// The formula columns of a table, compiled for a series of evaluations.
///
/// A formula is evaluated in a row by putting the texts of its source cells, in parentheses, in place of their columns'
/// names: whole words between the separators of replace_name, all at once. Names next to "<", ">" or "," stay and fail.
/// A column is a source if the formula contains its name anywhere, even inside another name; a blank source blocks the
/// row. Where all sources are plain numbers the formula's tree is evaluated with their values instead, which gives the
/// same text.
///
/// Columns are evaluated once, from left to right: a column to the left of its source lags behind until the next edit.
class formula_columns
{
public:
    /// Reads names, formulas and digits now; `context` lends the generator behind `rand`.
    formula_columns(const table_content& content, evaluation_context& context);

    /// `check_other_transpose_columns`: the cells of all formula columns but `changed` in a row. A blank source empties
    /// the cell, a failure gives cell_error.
    void check_other_transpose_columns(cell_editor& cells, int row, int changed);
    /// Whether several edits of a row followed by one evaluation give what an evaluation after each of them would:
    /// every formula column has its sources to its left, and none draws random numbers.
    bool settle_at_once() const { return settle_at_once_; }
    bool any() const { return any_; }

    /// All cells of a column that gets a new formula, with the other formula columns of their rows. A blank source
    /// leaves the cell as it is.
    void fill_column(cell_editor& cells, int rows, int column, std::string_view formula);

private:
    struct compiled_formula;
    struct source_text;

    std::optional<std::string> evaluate(const compiled_formula& formula, const cell_editor& cells, int row);
    std::optional<double> value_by_tree(const compiled_formula& formula, const cell_editor& cells, int row);
    std::optional<double> value_by_text(const std::string& text);
    compiled_formula compile(std::string_view text);

    std::vector<std::string> names_;
    int calc_digits_ = 10;
    evaluation_context& context_;
    /// Holds the source cells by slots of their own; otherwise empty.
    clsParse store_;
    std::vector<clsParse::slot> slots_;
    std::vector<std::shared_ptr<const compiled_formula>> formulas_;
    bool settle_at_once_ = true;
    bool any_ = false;
};

/// The text that stands for a formula in a row: each of its source columns replaced by the cell in parentheses.
std::string substituted_formula(const table_content& content, int row, std::string_view formula);

/// Evaluates all formula columns anew, row by row, from a store of the row's numbers in full precision under the names
/// of their columns, so that `A>2` works here. Blank cells of formula columns stay blank and are no sources.
void recalc_all_formula_columns(table_content& content, evaluation_context& context);

/// Why a text can't be the formula of a column: a circle over two columns, or what the checker of expressions says.
/// Names are looked for anywhere in the texts; a circle over three columns is not noticed.
std::optional<message_box> formula_fault(const table_content& content, int column, std::string_view formula);

/// Makes a text the formula of a column and calculates its cells. Refused by formula_fault, nothing is changed.
std::optional<message_box> define_column(table_content& content, int column, std::string_view formula,
                                         evaluation_context& context);

} // namespace kelvarin
