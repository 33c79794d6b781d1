// SPDX-License-Identifier: MIT
#include "help/make/tables.h"

#include "expr/operations.h"
#include "kinds/kinds.h"
#include "platform/run_time_text.h"
#include "shell/document/problem_kind.h"
#include "shell/settings.h"

#include <algorithm>
#include <span>
#include <stdexcept>
#include <vector>

namespace kelvarin
{

namespace
{

std::string code(std::string_view text)
{
    return "`" + std::string(text) + "`";
}

/// A text in a cell: a bar would end the cell.
std::string cell(std::string_view text)
{
    std::string safe;
    for (const char letter : text)
        safe += letter == '|' ? std::string("\\|") : std::string(1, letter);
    return safe;
}

std::string bounds_of(const setting_row& row)
{
    switch (row.type) {
    case setting_type::boolean:
        return "True or False";
    case setting_type::string:
        return "any text";
    case setting_type::integer:
        return "whole, " + plain_text(row.minimum_value) + " to " + plain_text(row.maximum_value);
    default:
        return plain_text(row.minimum_value) + " to " + plain_text(row.maximum_value);
    }
}

std::string example_cells(const operation_row& row)
{
    return code(row.example) + " | " + plain_text(row.example_value) + " |\n";
}

std::string settings_table_of(std::span<const setting_row* const> rows)
{
    std::string text = "| setting | key | default | bounds |\n|---|---|---|---|\n";
    for (const setting_row* row : rows) {
        const std::string caption = row->caption.empty() ? "(not in the tree)" : cell(row->caption);
        const std::string given = row->default_value.empty() ? "(empty)" : std::string(row->default_value);
        text += "| " + caption + " | " + code(row->key) + " | " + given + " | " + bounds_of(*row) + " |\n";
    }
    return text;
}

const setting_row& row_of_key(std::string_view key)
{
    return settings_table()[settings::find(key).value()];
}

} // namespace

std::string operators_table()
{
    std::string text = "| operator | binds | meaning | example | value |\n|---|---|---|---|---|\n";
    for (const operation_row& row : operation_rows().subspan(1))
        if (row.priority > 0)
            text += "| " + code(row.spelling) + " | " + std::to_string(row.priority) + " | " +
                    std::string(row.meaning) + " | " + example_cells(row);
    return text;
}

std::string functions_table()
{
    std::string text = "| function | meaning | example | value |\n|---|---|---|---|\n";
    for (const operation_row& row : operation_rows().subspan(1))
        if (row.priority == 0)
            text += "| " + code(row.spelling) + " | " + std::string(row.meaning) + " | " + example_cells(row);
    return text;
}

std::string settings_rows(std::string_view prefix)
{
    std::vector<const setting_row*> rows;
    for (const setting_row& row : settings_table())
        if (row.key.starts_with(prefix)) rows.push_back(&row);
    if (rows.empty()) throw std::runtime_error("no settings begin with " + std::string(prefix));
    return settings_table_of(rows);
}

std::string method_table(std::string_view kind, std::string_view method)
{
    const problem_kind* found = problem_kind_of(kind);
    if (found == nullptr) throw std::runtime_error("no kind " + std::string(kind));
    const auto which = std::ranges::find(found->methods, method, &problem_method::name);
    if (which == found->methods.end()) throw std::runtime_error("no method " + std::string(method));
    std::vector<const setting_row*> rows;
    for (const setting_line& line : which->settings)
        rows.push_back(&row_of_key(line.key));
    return "*" + std::string(which->tip) + ".*\n\n" + (rows.empty() ? "" : settings_table_of(rows));
}

} // namespace kelvarin
