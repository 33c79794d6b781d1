// SPDX-License-Identifier: MIT
#include "reg/table/table_document.h"

#include "platform/text_file.h"
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

constexpr content_format<table_content> table_format = {
    .kind = "reg",
    .example_step = "Load sample",
    .read = read_table,
    .write = [](const table_content& content, bool) { return write_table(content); },
    .recovery_text = table_recovery_text,
    .read_recovery = read_table_recovery,
    .listing = table_listing};

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

table_document::refusal table_document::open(const std::filesystem::path& path)
{
    const table_size new_size = content().new_size;
    if (refusal refused = value_document::open(path)) return refused;
    unrecorded().new_size = new_size;
    unrecorded().saved_mark = ++saved_mark_;
    return std::nullopt;
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

void table_document::set_cell(int row, int column, std::string_view text)
{
    if (content().has_formula(column)) return;
    table_content next = content();
    next.cells.set_cell(row, column, field_text(text));
    change_unsaved("Edit cell", std::move(next));
}

void table_document::set_model(std::string_view model, std::vector<table_guess> guesses)
{
    table_content next = content();
    next.model = one_line(model);
    next.guesses = std::move(guesses);
    change_unsaved("Enter model", std::move(next));
}

void table_document::store_model_column(int column, std::string_view formula, const std::vector<std::string>& cells)
{
    assert(cells.size() <= static_cast<std::size_t>(content().rows()));
    table_content next = content();
    next.formulas[static_cast<std::size_t>(column)] = field_text(formula);
    std::vector<std::string> stored = next.cells.texts().cells_of(column);
    std::ranges::copy(cells, stored.begin());
    next.cells.set_column(column, std::move(stored));
    change_unsaved("Store model", std::move(next));
}

void table_document::load_sample_table(int index, std::uint32_t seed)
{
    table_content sample = table_sample(index, content(), seed);
    sample.new_size = content().new_size;
    sample.saved_mark = saved_mark_;
    change_to_example(std::move(sample));
}

} // namespace kelvarin
