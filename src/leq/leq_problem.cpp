// SPDX-License-Identifier: MIT
#include "leq/leq_problem.h"

#include "expr/basParse.h"
#include "leq/leq_file.h"
#include "leq/leq_listing.h"
#include "leq/leq_recovery.h"
#include "leq/leq_sample.h"
#include "platform/text_file.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr content_format<leq_content> leq_format = {
    .kind = "leq",
    .example_step = "Load sample",
    .read = [](std::string_view text, const leq_content&) { return read_leq(text); },
    .write = write_leq,
    .recovery_text = leq_recovery_text,
    .read_recovery = read_leq_recovery,
    .listing = leq_listing};

} // namespace

leq_problem::leq_problem() : value_document(leq_format) {}

bool leq_problem::is_blank() const
{
    return path().empty() && content() == leq_content(equation_count());
}

void leq_problem::set_cell(int row, int column, std::string_view text)
{
    leq_content next = content();
    next.cells.set_cell(row, column, field_text(text));
    change("Edit cell", std::move(next));
}

void leq_problem::init_grids(int n)
{
    change("Number of equations", with_count(content(), n));
}

void leq_problem::clean_grid()
{
    leq_content next = content();
    next.cells = cell_columns(next.cells.rows(), next.cells.columns());
    change("Clean grid", std::move(next));
}

void leq_problem::fill_empty_cells_with_zeros()
{
    change("Fill with zeros", with_zeros(content()));
}

leq_problem::refusal leq_problem::rename_variable(int column, std::string_view name)
{
    assert(column >= 0 && column < equation_count());
    const std::string wanted(trimmed(name));
    if (!is_valid_name(wanted)) return message_box{wanted + " is not a valid variable name.", box_icon::exclamation};
    leq_content next = content();
    next.names[static_cast<std::size_t>(column)] = wanted;
    if (std::ranges::count(next.names, wanted) > 1)
        return message_box{wanted + " is already defined for different column.", box_icon::exclamation};
    change("Rename variable", std::move(next));
    return std::nullopt;
}

std::string leq_problem::cut(cell_range range)
{
    std::string text = copy(range);
    leq_content next = content();
    clear_block(next.cells, range);
    change("Cut", std::move(next));
    return text;
}

void leq_problem::clear_cells(cell_range range)
{
    leq_content next = content();
    clear_block(next.cells, range);
    change("Clear", std::move(next));
}

leq_problem::refusal leq_problem::paste(cell_range range, const cell_block& block)
{
    leq_content next = content();
    const std::vector<std::string> left_out = paste_block(next.cells, range, block);
    change("Paste", std::move(next));
    if (left_out.empty()) return std::nullopt;
    return left_out_box(left_out);
}

void leq_problem::load_sample(std::uint32_t seed)
{
    change_to_example(sample_leq(seed));
}

} // namespace kelvarin
