// SPDX-License-Identifier: MIT
#include "reg/table/table_document.h"

#include "platform/text_file.h"
#include "reg/table/column_formulas.h"
#include "reg/table/table_file.h"
#include "reg/table/table_listing.h"
#include "reg/table/table_recovery.h"
#include "reg/table/table_samples.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace kelvarin
{

namespace
{

/// Of a content that no saving made the saved one.
constexpr int never_saved = -1;

constexpr std::string_view typing_step = "Type";

constexpr content_format<table_content> table_format = {
    .kind = "reg",
    .example_step = "Load sample",
    .read = read_table,
    .write = [](const table_content& content, bool) { return write_table(content); },
    .recovery_text = table_recovery_text,
    .read_recovery = read_table_recovery,
    .listing = table_listing,
    .bounds = bounds_of_numbers};

} // namespace

table_document::table_document(table_size size) : value_document(table_format)
{
    unrecorded() = table_content(size);
}

bool table_document::is_blank() const
{
    table_content blank({content().rows(), content().columns()});
    blank.calc_digits = content().calc_digits;
    return path().empty() && content() == blank;
}

void table_document::set_title(std::string_view title)
{
    const std::string before = this->title();
    value_document::set_title(title);
    if (this->title() != before) mark_table_unsaved();
}

message_box table_document::open_refusal(const text_file& file) const
{
    return table_open_refusal(file.failure.reason, file.text);
}

void table_document::file_taken_over(const table_content& before)
{
    unrecorded().new_size = before.new_size;
    unrecorded().saved_mark = ++saved_mark_;
}

table_document::refusal table_document::save(const std::filesystem::path& path, bool older_format,
                                             const save_calls& calls)
{
    if (refusal refused = value_document::save(path, older_format, calls)) return refused;
    unrecorded().saved_mark = ++saved_mark_;
    return std::nullopt;
}

bool table_document::restore(std::string_view recovery_text, const std::filesystem::path& path)
{
    const table_size new_size = content().new_size;
    if (!value_document::restore(recovery_text, path)) return false;
    unrecorded().new_size = new_size;
    mark_table_unsaved();
    return true;
}

void table_document::set_new_size(table_size size)
{
    unrecorded().new_size = size;
}

void table_document::mark_table_unsaved()
{
    unrecorded().saved_mark = never_saved;
}

void table_document::change_unsaved(std::string_view step, table_content next)
{
    next.saved_mark = never_saved;
    change(step, std::move(next));
}

void table_document::type_cell(int row, int column, std::string_view text, bool clears_saved)
{
    if (content().has_formula(column)) return;
    table_content next = content();
    next.cells.set_cell(row, column, field_text(text));
    if (next == content()) return;
    if (clears_saved) next.saved_mark = never_saved;
    const std::pair cell = {row, column};
    if (typed_cell_ == cell)
        change_on(typing_step, std::move(next));
    else
        change(typing_step, std::move(next));
    typed_cell_ = cell;
}

void table_document::finish_typing(int row, int column)
{
    table_content next = content();
    formula_columns formulas(next, context_);
    if (formulas.any()) {
        cell_editor cells(next.cells);
        formulas.check_other_transpose_columns(cells, row, column);
        cells.commit();
        if (next != content()) change_on(typing_step, std::move(next));
    }
    typed_cell_.reset();
}

void table_document::set_cell(int row, int column, std::string_view text)
{
    table_content next = content();
    put_cell(next, row, column, field_text(text), context_);
    change_unsaved("Edit cell", std::move(next));
}

void table_document::start_new(table_size size)
{
    table_content blank(size);
    blank.calc_digits = content().calc_digits;
    start_with(std::move(blank));
}

void table_document::start_with(table_content content)
{
    content.saved_mark = ++saved_mark_;
    typed_cell_.reset();
    start_clean(std::move(content));
}

void table_document::start_imported(table_content content)
{
    content.new_size = this->content().new_size;
    typed_cell_.reset();
    start_unsaved(std::move(content));
    mark_table_unsaved();
}

name_change table_document::rename_column(int column, std::string_view name)
{
    table_content next = content();
    const name_change changed = change_column_name(next, name, column);
    if (changed.changed) change_unsaved("Rename column", std::move(next));
    return changed;
}

void table_document::add_columns(int count)
{
    table_content next = content();
    kelvarin::add_columns(next, count);
    change_unsaved("Add columns", std::move(next));
}

void table_document::insert_row(int row)
{
    table_content next = content();
    kelvarin::insert_row(next, row);
    change("Insert row", std::move(next));
}

void table_document::delete_row(int row)
{
    table_content next = content();
    kelvarin::delete_row(next, row);
    change("Delete row", std::move(next));
}

std::string table_document::cut(const cell_range& range)
{
    std::string text = copied_cells(content(), range);
    table_content next = content();
    kelvarin::clear_cells(next, range, context_);
    change_unsaved("Cut", std::move(next));
    mark_table_unsaved();
    return text;
}

std::string table_document::copy(const cell_range& range)
{
    mark_table_unsaved();
    return copied_cells(content(), range);
}

std::string table_document::copy_with_headers(const cell_range& range)
{
    mark_table_unsaved();
    return copied_with_headers(content(), range);
}

void table_document::clear_cells(const cell_range& range)
{
    table_content next = content();
    kelvarin::clear_cells(next, range, context_);
    change_unsaved("Clear", std::move(next));
    mark_table_unsaved();
}

paste_result table_document::paste(int row, int column, const cell_block& block)
{
    table_content next = content();
    paste_result result = paste_cells(next, row, column, block, context_);
    change_unsaved("Paste", std::move(next));
    mark_table_unsaved();
    return result;
}

void table_document::format_selection(const cell_range& range, std::string_view mask)
{
    table_content next = content();
    kelvarin::format_selection(next, range, mask);
    change_unsaved("Format", std::move(next));
}

table_document::refusal table_document::set_calc_digits(std::string_view text)
{
    table_content next = content();
    refusal refused = kelvarin::set_calc_digits(next, text, context_);
    change_unsaved("Calc digits", std::move(next));
    return refused;
}

table_document::refusal table_document::define_column(int column, std::string_view formula)
{
    table_content next = content();
    if (refusal refused = kelvarin::define_column(next, column, field_text(formula), context_)) return refused;
    change_unsaved("Define column", std::move(next));
    return std::nullopt;
}

void table_document::clear_definition(int column)
{
    table_content next = content();
    next.formulas[static_cast<std::size_t>(column)].clear();
    change_unsaved("Clear definition", std::move(next));
}

void table_document::clear_all_definitions()
{
    table_content next = content();
    next.formulas.assign(next.formulas.size(), std::string());
    change_unsaved("Clear all definitions", std::move(next));
}

void table_document::set_model(std::string_view model, std::vector<table_guess> guesses)
{
    table_content next = content();
    next.model = one_line(model);
    next.guesses = std::move(guesses);
    change_unsaved("Enter model", std::move(next));
}

void table_document::set_guesses(std::vector<table_guess> guesses)
{
    table_content next = content();
    next.guesses = std::move(guesses);
    change_unsaved("Initial guess", std::move(next));
}

void table_document::store_model_column(int column, std::string_view formula, const std::vector<std::string>& cells)
{
    table_content next = content();
    kelvarin::store_model_column(next, column, formula, cells);
    change_unsaved("Store model", std::move(next));
}

void table_document::fill_columns(table_content filled)
{
    recalc_all_formula_columns(filled, context_);
    change_unsaved("Table of values", std::move(filled));
}

void table_document::load_sample_table(int index, std::uint32_t seed)
{
    table_content sample = table_sample(index, content(), seed);
    sample.new_size = content().new_size;
    sample.saved_mark = saved_mark_;
    change_to_example(std::move(sample));
}

} // namespace kelvarin
