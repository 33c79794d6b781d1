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

constexpr const char* sample_step = "Load sample";

} // namespace

bool leq_problem::is_blank() const
{
    return path().empty() && content_ == leq_content(content_.count());
}

void leq_problem::set_cell(int row, int column, std::string_view text)
{
    leq_content next = content_;
    next.cell(row, column) = cell_text(text);
    change("Edit cell", std::move(next));
}

void leq_problem::init_grids(int n)
{
    change("Number of equations", with_count(content_, n));
}

void leq_problem::clean_grid()
{
    leq_content next = content_;
    std::ranges::fill(next.cells, std::string());
    change("Clean grid", std::move(next));
}

int leq_problem::fill_empty_cells_with_zeros()
{
    leq_content next = content_;
    const int filled = fill_empty_cells(next);
    change("Fill with zeros", std::move(next));
    return filled;
}

leq_problem::refusal leq_problem::rename_variable(int column, std::string_view name)
{
    assert(column >= 0 && column < equation_count());
    const std::string wanted(trimmed(name));
    if (!is_valid_name(wanted)) return message_box{wanted + " is not a valid variable name.", box_icon::exclamation};
    leq_content next = content_;
    next.names[static_cast<std::size_t>(column)] = wanted;
    if (std::ranges::count(next.names, wanted) > 1)
        return message_box{wanted + " is already defined for different column.", box_icon::exclamation};
    change("Rename variable", std::move(next));
    return std::nullopt;
}

void leq_problem::set_title(std::string title)
{
    leq_content next = content_;
    next.title = cell_text(title);
    change("Change title", std::move(next));
}

std::string leq_problem::cut(cell_range range)
{
    std::string text = copy(range);
    leq_content next = content_;
    clear_block(next, range);
    change("Cut", std::move(next));
    return text;
}

void leq_problem::clear_cells(cell_range range)
{
    leq_content next = content_;
    clear_block(next, range);
    change("Clear", std::move(next));
}

leq_problem::refusal leq_problem::paste(cell_range range, const cell_block& block)
{
    leq_content next = content_;
    const std::vector<std::string> left_out = paste_block(next, range, block);
    change("Paste", std::move(next));
    if (left_out.empty()) return std::nullopt;
    return left_out_box(left_out);
}

void leq_problem::load_sample(std::uint32_t seed)
{
    change(sample_step, sample_leq(seed));
    place_.leave();
}

bool leq_problem::undo()
{
    if (!history_.undo(content_)) return false;
    if (history_.is_clean()) place_.come_back();
    return true;
}

bool leq_problem::redo()
{
    const bool to_sample = history_.redo_step() == sample_step;
    if (!history_.redo(content_)) return false;
    if (to_sample) place_.leave();
    return true;
}

leq_problem::refusal leq_problem::leq_open(const std::filesystem::path& path)
{
    const text_file file = read_text_file(path);
    std::optional<leq_content> content = file.ok() ? read_leq(file.text) : std::nullopt;
    if (!content) return message_box{"Error while trying to open file.", box_icon::critical};
    content_ = std::move(*content);
    place_.set(path);
    history_.clear();
    return std::nullopt;
}

leq_problem::refusal leq_problem::save(const std::filesystem::path& path, bool older_format, const save_calls& calls)
{
    if (save_file(path, write_leq(content_, older_format), calls))
        return message_box{"Error while trying to save file.", box_icon::critical};
    place_.set(path);
    history_.mark_clean();
    return std::nullopt;
}

void leq_problem::clear()
{
    content_ = leq_content();
    place_.set({});
    history_.clear();
}

std::string leq_problem::recovery_text() const
{
    return leq_recovery_text(content_);
}

bool leq_problem::restore(std::string_view recovery_text, const std::filesystem::path& path)
{
    std::optional<leq_content> content = read_leq_recovery(recovery_text);
    if (!content) return false;
    content_ = std::move(*content);
    place_.set(path);
    history_.clear();
    history_.mark_unsaved();
    return true;
}

std::string leq_problem::printed_listing() const
{
    return leq_listing(content_, path());
}

void leq_problem::change(std::string step, leq_content next)
{
    if (next == content_) return;
    history_.record(std::exchange(content_, std::move(next)), std::move(step));
}

} // namespace kelvarin
