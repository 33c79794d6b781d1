// SPDX-License-Identifier: MIT
#pragma once

#include "shell/document/cell_columns.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

enum class cell_kind : std::uint8_t
{
    blank,
    /// A number as a whole.
    number,
    /// Anything else.
    text,
    /// A text that begins with a number too large for a double.
    too_large
};

/// What a cell's text means as a number.
struct parsed_cell
{
    /// The number that the text begins with; 0 if there is none.
    double value = 0.0;
    cell_kind kind = cell_kind::blank;

    bool is_blank() const { return kind == cell_kind::blank; }
    bool is_number() const { return kind == cell_kind::number; }
};

parsed_cell parse_cell(std::string_view text);

/// The cells of a data table: their texts, which are the data, and beside them the numbers, parsed once when a text
/// changes. Copies share columns as those of cell_columns do. Rows and columns count from 0.
class table_cells
{
public:
    table_cells() = default;
    table_cells(int rows, int columns);

    int rows() const { return texts_.rows(); }
    int columns() const { return texts_.columns(); }
    bool is_inside(int row, int column) const { return texts_.is_inside(row, column); }
    const cell_columns& texts() const { return texts_; }
    const std::string& text(int row, int column) const { return texts_.cell(row, column); }
    const parsed_cell& number(int row, int column) const { return numbers_of(column)[static_cast<std::size_t>(row)]; }
    std::span<const parsed_cell> numbers_of(int column) const { return *numbers_[static_cast<std::size_t>(column)]; }

    /// Replaces one column; `cells` must have rows() elements.
    void set_column(int column, std::vector<std::string> cells);
    void set_cell(int row, int column, std::string_view text);

    /// A row of blank cells before `row`; deletes `row`.
    void insert_row(int row);
    void delete_row(int row);
    /// Adds blank rows and columns at the ends. Never shrinks.
    void grow(int rows, int columns);

    /// By texts.
    friend bool operator==(const table_cells& left, const table_cells& right) { return left.texts_ == right.texts_; }

private:
    using parsed_column = std::vector<parsed_cell>;

    friend class cell_editor;

    /// Stores a column with the numbers that belong to it.
    void put_column(int column, std::vector<std::string> cells, parsed_column numbers);
    /// The same columns with other rows: `edit` changes texts or numbers of one column alike.
    template <class Edit> void change_rows(int rows, Edit edit);

    cell_columns texts_;
    std::vector<std::shared_ptr<const parsed_column>> numbers_;
};

/// Many changes of single cells as one: columns are copied when they are first written to and stored by `commit`.
/// Cells read through it show what was written. The cells must outlive it and must not be changed otherwise meanwhile.
class cell_editor
{
public:
    explicit cell_editor(table_cells& cells);

    const std::string& text(int row, int column) const;
    const parsed_cell& number(int row, int column) const;
    void set(int row, int column, std::string_view text);
    void commit();

private:
    struct open_column
    {
        std::vector<std::string> texts;
        std::vector<parsed_cell> numbers;
    };

    table_cells& cells_;
    /// One for each column; null if it was not written to.
    std::vector<std::unique_ptr<open_column>> open_;
};

} // namespace kelvarin
