// SPDX-License-Identifier: MIT
#pragma once

#include "reg/table/table_content.h"
#include "shell/document/value_document.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// A data table as a document. Rows and columns count from 0.
///
/// Whether it counts as saved is a flag of its own, "table_saved": inserting and deleting rows, keys that make no digit
/// and examples leave it set, and copying clears it. Undo and recovery copies follow every change all the same.
class table_document final : public value_document<table_content>
{
public:
    explicit table_document(table_size size = {});

    /// Whether there is nothing but a size and a number of digits, and no file.
    bool is_blank() const override;
    bool problem_saved() const override { return content().saved_mark == saved_mark_; }
    bool needs_recovery() const override { return !problem_saved() || !value_document::problem_saved(); }
    void set_title(std::string_view title) override;
    refusal open(const std::filesystem::path& path) override;
    refusal save(const std::filesystem::path& path, bool older_format = false,
                 const save_calls& calls = system_save_calls()) override;
    bool restore(std::string_view recovery_text, const std::filesystem::path& path) override;

    /// The size that New gives and to which a file's table is extended.
    void set_new_size(table_size size);
    /// Clears the saved flag without a step of undo, as copying does.
    void mark_table_unsaved();

    /// Replaces a cell of a plain column as typed or pasted. Does nothing in a formula column.
    void set_cell(int row, int column, std::string_view text);

    /// The model of the nonlinear regression with its guesses, as one step.
    void set_model(std::string_view model, std::vector<table_guess> guesses);
    /// Turns a column into the formula column of a fitted model, as one step: `cells` are the texts of its first rows,
    /// the others stay. The formula may be empty.
    void store_model_column(int column, std::string_view formula, const std::vector<std::string>& cells);

    /// Replaces the table by an example as one step of undo; the document has no file afterwards and counts as saved.
    void load_sample_table(int index, std::uint32_t seed);

private:
    /// `change` to a content that counts as unsaved, however it came about.
    void change_unsaved(std::string_view step, table_content next);

    /// The mark of the contents that count as saved.
    int saved_mark_ = 0;
};

} // namespace kelvarin
