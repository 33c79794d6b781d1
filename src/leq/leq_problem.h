// SPDX-License-Identifier: MIT
#pragma once

#include "leq/leq_block.h"
#include "leq/leq_content.h"
#include "shell/document/document_path.h"
#include "shell/document/history.h"
#include "shell/document/problem_document.h"

#include <cstdint>

namespace kelvarin
{

/// A problem of linear equations as a document: content, path, saved flag, undo. Rows and columns count from 0;
/// column n is beta. Every operation that is refused answers with the box to show and changes nothing. Undo
/// names its steps "Edit cell", "Paste", "Cut", "Clear", "Fill with zeros", "Clean grid", "Number of equations",
/// "Rename variable", "Change title", "Load sample".
class leq_problem final : public problem_document
{
public:
    std::string_view kind() const override { return "leq"; }
    const leq_content& content() const { return content_; }
    const std::string& title() const override { return content_.title; }
    const std::filesystem::path& path() const override { return place_.path(); }
    bool problem_saved() const override { return history_.is_clean(); }
    /// No cell, no title, no name, no file; the number of equations alone is nothing to lose.
    bool is_blank() const override;
    int equation_count() const { return content_.count(); }

    void set_cell(int row, int column, std::string_view text);
    /// Sizes the grid for n equations (2 to 64): cells and names that fit stay, beta stays beta.
    void init_grids(int n);
    /// Empties the cells.
    void clean_grid();
    /// Answers how many cells were empty.
    int fill_empty_cells_with_zeros();
    /// Refused where the name is not valid, or given to another column.
    refusal rename_variable(int column, std::string_view name);
    void set_title(std::string title) override;

    std::string copy(cell_range range) const { return block_text(content_, range); }
    std::string cut(cell_range range);
    void clear_cells(cell_range range);
    /// Puts a block in; the box, if any, tells of cells that lay outside the grid.
    refusal paste(cell_range range, const cell_block& block);

    /// Puts a random problem in place of this one. The path goes, so that no save writes the sample over the file
    /// that was open.
    void load_sample(std::uint32_t seed);

    bool undo() override;
    bool redo() override;
    std::string undo_step() const override { return history_.undo_step(); }
    std::string redo_step() const override { return history_.redo_step(); }

    refusal open(const std::filesystem::path& path) override { return leq_open(path); }
    /// Reads a file into this document; on failure the document stays as it was.
    refusal leq_open(const std::filesystem::path& path);
    refusal save(const std::filesystem::path& path, bool older_format = false,
                 const save_calls& calls = system_save_calls()) override;
    void clear() override;

    std::string recovery_text() const override;
    bool restore(std::string_view recovery_text, const std::filesystem::path& path) override;

    std::string printed_listing() const override;

private:
    void change(std::string step, leq_content next);

    leq_content content_;
    document_path place_;
    history<leq_content> history_;
};

} // namespace kelvarin
