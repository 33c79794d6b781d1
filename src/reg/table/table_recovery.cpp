// SPDX-License-Identifier: MIT
#include "reg/table/table_recovery.h"

#include "shell/document/json_value.h"
#include "shell/report/json_writer.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

/// To be raised when a field changes its meaning, so that an older program doesn't misread a newer text.
constexpr int recovery_format = 1;

/// The cells of a column up to the last one that is not empty.
std::span<const std::string> filled_cells(const std::vector<std::string>& cells)
{
    std::size_t count = cells.size();
    while (count > 0 && cells[count - 1].empty())
        --count;
    return std::span(cells).first(count);
}

void read_column(const json_value& written, int column, table_content& content)
{
    const auto at = static_cast<std::size_t>(column);
    content.names[at] = written.at("name").text();
    content.formulas[at] = written.at("formula").text();
    std::vector<std::string> cells = written.at("cells").texts();
    if (cells.size() > static_cast<std::size_t>(content.rows())) throw json_mismatch("no number of cells");
    cells.resize(static_cast<std::size_t>(content.rows()));
    content.cells.set_column(column, std::move(cells));
}

table_content content_of(const json_value& text)
{
    text.at("format").whole_number(recovery_format, recovery_format);
    const json_value::array& columns = text.at("columns").items();
    const int rows = text.at("rows").whole_number(1, largest_table_extent);
    if (columns.empty() || columns.size() > static_cast<std::size_t>(largest_table_extent))
        throw json_mismatch("no number of columns");
    table_content content({rows, static_cast<int>(columns.size())});
    content.title = text.at("title").text();
    content.calc_digits = text.at("calc_digits").whole_number(least_calc_digits, largest_calc_digits);
    content.model = text.at("model").text();
    for (const json_value& guess : text.at("guesses").items())
        content.guesses.push_back({guess.at("name").text(), guess.at("value").text()});
    for (int column = 0; column < content.columns(); ++column)
        read_column(columns[static_cast<std::size_t>(column)], column, content);
    return content;
}

} // namespace

std::string table_recovery_text(const table_content& content)
{
    json_writer text;
    text.begin_object();
    text.member("format", recovery_format);
    text.member("title", content.title);
    text.member("calc_digits", content.calc_digits);
    text.member("model", content.model);
    text.member_objects("guesses", content.guesses, [&text](const table_guess& guess) {
        text.member("name", guess.name);
        text.member("value", guess.value);
    });
    text.member("rows", content.rows());
    text.key("columns");
    text.begin_array();
    for (int column = 0; column < content.columns(); ++column) {
        text.begin_object();
        text.member("name", content.name(column));
        text.member("formula", content.formula(column));
        text.member("cells", filled_cells(content.cells.texts().cells_of(column)));
        text.end_object();
    }
    text.end_array();
    text.end_object();
    return text.take();
}

std::optional<table_content> read_table_recovery(std::string_view text)
{
    return read_json(text, content_of);
}

} // namespace kelvarin
