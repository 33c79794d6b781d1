// SPDX-License-Identifier: MIT
#pragma once

#include "expr/basParse.h"
#include "reg/table/table_content.h"
#include "reg/table/table_edits.h"
#include "shell/document/cell_block.h"
#include "shell/document/value_document.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kelvarin
{

/// A data table as a document. Rows and columns count from 0.
///
/// Whether it counts as saved is a flag of its own, "table_saved": inserting and deleting rows, keys that make no digit
/// and examples leave it set; the commands of the clipboard clear it, even if they change nothing. Undo and recovery
/// copies follow every change all the same.
class table_document final : public value_document<table_content>
{
public:
    explicit table_document(table_size size = {});

    /// Whether there is nothing but a size and a number of digits, and no file.
    bool is_blank() const override;
    bool problem_saved() const override { return content().saved_mark == saved_mark_; }
    bool needs_recovery() const override { return !problem_saved() || !value_document::problem_saved(); }
    void set_title(std::string_view title) override;
    refusal save(const std::filesystem::path& path, bool older_format = false,
                 const save_calls& calls = system_save_calls()) override;
    bool restore(std::string_view recovery_text, const std::filesystem::path& path) override;

    /// The size that New gives and to which a file's table is extended.
    void set_new_size(table_size size);
    /// Clears the saved flag without a step of undo, as copying does.
    void mark_table_unsaved();

    /// Shows a text while a cell is typed in; consecutive ones in one cell are one step. Formula columns don't follow
    /// before `finish_typing`. Does nothing in a formula column.
    void type_cell(int row, int column, std::string_view text, bool clears_saved);
    /// Evaluates the formula columns of a row in which a cell was typed, as part of the same step.
    void finish_typing(int row, int column);
    /// Replaces a cell of a plain column; formula columns follow. Does nothing in a formula column.
    void set_cell(int row, int column, std::string_view text);

    /// New: blank cells, default names and no formulas, title or file; starts the undo stack anew.
    void start_new(table_size size);
    /// Starts with a content that was made elsewhere and needs no saving; no title, file or step is left of this one.
    void start_with(table_content content);
    /// The same with a content that came from another program and is unsaved.
    void start_imported(table_content content);
    /// Refused by a box, or in silence if the name is empty. Returns whether the name stands.
    name_change rename_column(int column, std::string_view name);
    void add_columns(int count);
    void insert_row(int row);
    void delete_row(int row);
    std::string cut(const cell_range& range);
    std::string copy(const cell_range& range);
    std::string copy_with_headers(const cell_range& range);
    void clear_cells(const cell_range& range);
    paste_result paste(int row, int column, const cell_block& block);
    void format_selection(const cell_range& range, std::string_view mask);
    refusal set_calc_digits(std::string_view text);

    /// Formulas. A refused definition changes nothing.
    refusal define_column(int column, std::string_view formula);
    void clear_definition(int column);
    void clear_all_definitions();

    /// The model of the nonlinear regression with its guesses, as one step.
    void set_model(std::string_view model, std::vector<table_guess> guesses);
    /// Replaces the initial guesses alone.
    void set_guesses(std::vector<table_guess> guesses);
    /// Turns a column into the formula column of a fitted model, as one step: `cells` are the texts of its first rows,
    /// the others stay. The formula may be empty.
    void store_model_column(int column, std::string_view formula, const std::vector<std::string>& cells);

    /// Takes over this table with free columns filled, as one step; formula columns follow.
    void fill_columns(table_content filled);

    /// Replaces the table by an example as one step of undo; the document has no file afterwards and counts as saved.
    void load_sample_table(int index, std::uint32_t seed);

protected:
    message_box open_refusal(const text_file& file) const override;
    /// The size that New gives is no part of a file.
    void file_taken_over(const table_content& before) override;

private:
    /// `change` to a content that counts as unsaved, however it came about.
    void change_unsaved(std::string_view step, table_content next);

    evaluation_context context_;
    /// The cell that the last step typed in.
    std::optional<std::pair<int, int>> typed_cell_;
    /// The mark of the contents that count as saved.
    int saved_mark_ = 0;
};

} // namespace kelvarin
