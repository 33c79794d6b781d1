// SPDX-License-Identifier: MIT
#pragma once

#include "leq/leq_content.h"
#include "shell/document/cell_block.h"
#include "shell/document/value_document.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace kelvarin
{

/// A problem of linear equations as a document. Rows and columns count from 0; column n is beta. Every operation that
/// is refused returns the box to show and changes nothing. Undo names its steps "Edit cell", "Paste", "Cut", "Clear",
/// "Fill with zeros", "Clean grid", "Number of equations", "Rename variable", "Change title", "Load sample".
class leq_problem final : public value_document<leq_content>
{
public:
    leq_problem();

    /// No cell, no title, no name, no file; the number of equations alone is nothing to lose.
    bool is_blank() const override;
    int equation_count() const { return content().count(); }

    void set_cell(int row, int column, std::string_view text);
    /// Sizes the grid for n equations (2 to 64): cells and names that fit stay, beta stays beta.
    void init_grids(int n);
    /// Empties the cells.
    void clean_grid();
    void fill_empty_cells_with_zeros();
    /// Refused where the name is not valid, or given to another column.
    refusal rename_variable(int column, std::string_view name);

    std::string copy(cell_range range) const { return block_text(content().cells, range); }
    std::string cut(cell_range range);
    void clear_cells(cell_range range);
    /// Puts a block in; the box, if any, tells of cells that lay outside the grid.
    refusal paste(cell_range range, const cell_block& block);

    /// Puts a random problem in place of this one, in one step, and leaves the file.
    void load_sample(std::uint32_t seed);

    refusal leq_open(const std::filesystem::path& path) { return open(path); }
};

} // namespace kelvarin
