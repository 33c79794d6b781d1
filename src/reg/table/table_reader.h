// SPDX-License-Identifier: MIT
#pragma once

#include "reg/table/table_content.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// Whether a count of rows may reach the last row of the table. Statistics, the degrees of polynomials and the analysis
/// of columns leave it out, regressions don't; in a table filled to its last row they differ by one.
enum class last_row
{
    counts,
    left_out
};

/// How regressions, analysis and matrices read a data table: by column numbers from 0, which they get from names, and
/// numbers that were parsed when the cells changed. It copies nothing; the content must outlive it.
///
///     const table_reader table(content);
///     const std::vector<int> offered = table.numeric_columns();             // for the lists of a page
///     const std::optional<int> x = table.column_of("T"), y = table.column_of("Cp");
///     const int columns[] = {*x, *y};
///     const int n = table.leading_rows(columns);                            // data end at the first blank
///     const std::vector<double> xs = table.prefix_values(*x, n);            // "12abc" is 12, "$Err!" is 0
///     const std::optional<std::vector<double>> ys = table.strict_values(*y, n);
class table_reader
{
public:
    explicit table_reader(const table_content& content) : content_(&content) {}

    int rows() const { return content_->rows(); }
    int columns() const { return content_->columns(); }
    const std::string& name(int column) const { return content_->name(column); }
    /// The names of these columns.
    std::vector<std::string> names_of(std::span<const int> columns) const;
    /// The first column of exactly this name. Names read from a file may occur twice or be empty.
    std::optional<int> column_of(std::string_view name) const;

    /// The columns whose cells in the first two rows are both numbers: those that a regression may use.
    std::vector<int> numeric_columns() const;
    /// The columns whose cells in the first two rows are both no numbers: those that can take a model.
    std::vector<int> model_columns() const;
    /// The columns whose cell in the first row is not blank: those that the analysis may use.
    std::vector<int> started_columns() const;

    /// The number of leading rows without a blank cell in any of these columns.
    int leading_rows(std::span<const int> columns, last_row last = last_row::counts) const;
    /// The number of rows, anywhere in the table, in which all these columns have numbers.
    int numeric_rows(std::span<const int> columns) const;

    bool is_blank(int row, int column) const { return content_->cells.number(row, column).is_blank(); }
    /// The number that a cell begins with; 0 if it begins with none. Throws runtime_failure 6 if it is too large for a
    /// double.
    double prefix_value(int row, int column) const;
    /// The value of a cell that is a number as a whole.
    std::optional<double> strict_value(int row, int column) const;
    /// The first `count` cells of a column by prefix_value.
    std::vector<double> prefix_values(int column, int count) const;
    /// The first `count` cells of a column. Returns nullopt unless all are numbers as a whole.
    std::optional<std::vector<double>> strict_values(int column, int count) const;

private:
    template <class Test> std::vector<int> columns_where(Test test) const;

    const table_content* content_;
};

/// What the name scan of a model finds, each list in order of first appearance.
struct model_names
{
    /// Columns that are numeric.
    std::vector<std::string> independents;
    /// All other names but functions of the language in front of "(" and its words (if, then, else, and, or).
    std::vector<std::string> parameters;
};

/// Scans the right-hand side of a model.
model_names names_in_model(std::string_view expression, const table_reader& table);

/// A guess for each parameter of the model, in order of first appearance: the earlier one of that name, else a blank
/// one. `model` is "name = expression", or an expression alone.
std::vector<table_guess> guesses_for(std::string_view model, const table_reader& table,
                                     std::span<const table_guess> earlier);

} // namespace kelvarin
