// SPDX-License-Identifier: MIT
#include "reg/reg_kind.h"

#include "reg/table/table_document.h"
#include "reg/table/table_file.h"
#include "reg/table/table_samples.h"

namespace kelvarin
{

namespace
{

constexpr const char* table_filter = "Kelvarin table files (*.kvr)|*.kvr|All files (*.*)|*.*";

bool recognises_reg(std::span<const std::string_view> lines)
{
    return lines.size() > 2 && table_extent_of(lines[1]);
}

} // namespace

const problem_kind& reg_kind()
{
    static constexpr problem_kind kind = {
        .key = "reg",
        .name = "Regression",
        .window_name = "frmRGT",
        .caption = "Data Table",
        .recent_suffix = "\\files_rgt",
        .open_caption = "Open Table file",
        .save_caption = "Save table File",
        .open_filter = table_filter,
        .save_filter = table_filter,
        .unsaved_on_close = "Data table not saved. Do you want to save it before closing ?",
        .unsaved_on_open = "Data table not saved. Do you wish to save it now ?",
        .passes_on_other_files = true,
        .recognises = recognises_reg,
        .bounds = bounds_of_numbers,
        .example_titles = table_sample_titles,
        .make_document = []() -> std::unique_ptr<problem_document> { return std::make_unique<table_document>(); }};
    return kind;
}

} // namespace kelvarin
