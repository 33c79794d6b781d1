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

    /// Whether there is no cell text, no title, no changed name and no file; the number of equations alone is not worth
    /// saving.
    bool is_blank() const override;
    int equation_count() const { return content().count(); }

    void set_cell(int row, int column, std::string_view text);
    /// Sizes the grid for n equations (2 to 64): cells and names that fit stay, beta stays beta.
    void init_grids(int n);
    /// Empties the cells.
    void clean_grid();
    void fill_empty_cells_with_zeros();
    /// Refused if the name is invalid or belongs to another column.
    refusal rename_variable(int column, std::string_view name);

    std::string copy(cell_range range) const { return block_text(content().cells, range); }
    std::string cut(cell_range range);
    void clear_cells(cell_range range);
    /// Overwrites cells by a block. Returns a box if part of the block lies outside the grid.
    refusal paste(cell_range range, const cell_block& block);

    /// Replaces the problem by a random one as one step of undo; the document has no file afterwards.
    void load_sample(std::uint32_t seed);

    refusal leq_open(const std::filesystem::path& path) { return open(path); }
};

} // namespace kelvarin
