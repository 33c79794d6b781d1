// SPDX-License-Identifier: MIT
#pragma once

#include "reg/table/table_cells.h"

#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// Row and column numbers are 16 bits wide and count the header row and the column of labels.
inline constexpr int largest_table_extent = 32766;
/// No file and no paste may make more cells than this. Blank columns don't count: they take no memory.
inline constexpr long long most_table_cells = 8'000'000;

inline constexpr int least_calc_digits = 8;
inline constexpr int largest_calc_digits = 22;

/// Data rows and data columns.
struct table_size
{
    int rows = 300;
    int columns = 30;
};

/// The initial guess of a model parameter, as typed.
struct table_guess
{
    std::string name;
    std::string value;

    friend bool operator==(const table_guess&, const table_guess&) = default;
};

/// The content of a data table: a plain value. Rows and columns count from 0. Every column has a name and a formula; an
/// empty formula marks a plain column.
struct table_content
{
    /// Trimmed.
    std::string title;
    table_cells cells;
    std::vector<std::string> names;
    /// "col_transpose_functions"; the cells of a column with a formula are calculated and can't be typed.
    std::vector<std::string> formulas;
    /// The number of digits of calculated cells, 8 to 22.
    int calc_digits = 10;
    /// The model of the nonlinear regression, "y = a*x^b", in one line; empty if there is none.
    std::string model;
    /// The initial guesses of the model's parameters.
    std::vector<table_guess> guesses;

    /// What File, New gives. Not part of the value.
    table_size new_size;
    /// Which saving this content stems from; set by the document. Not part of the value.
    int saved_mark = 0;

    /// Blank cells and default names.
    explicit table_content(table_size size = {});

    int rows() const { return cells.rows(); }
    int columns() const { return cells.columns(); }
    const std::string& name(int column) const { return names[static_cast<std::size_t>(column)]; }
    const std::string& formula(int column) const { return formulas[static_cast<std::size_t>(column)]; }
    bool has_formula(int column) const { return !formula(column).empty(); }

    /// Adds blank rows, and blank columns with default names, at the ends. Never shrinks.
    void grow(table_size size);

    friend bool operator==(const table_content& left, const table_content& right);
};

/// The size of a table for so many filled rows and columns: `start`, extended where that is too small; a table that
/// gets longer gets one row more, since some counts leave out the last row.
table_size size_to_hold(table_size filled, table_size start);

/// "C01" for column 0.
std::string default_column_name(int column);
/// "01" for row 0.
std::string row_label(int row);

/// The rows and columns up to the last cell that is not blank; a column with a formula counts as used.
table_size used_size(const table_content& content);

} // namespace kelvarin
