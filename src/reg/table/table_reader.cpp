// SPDX-License-Identifier: MIT
#include "reg/table/table_reader.h"

#include "expr/basParse.h"
#include "platform/letter_case.h"
#include "platform/runtime_failure.h"

#include <algorithm>
#include <array>

namespace kelvarin
{

namespace
{

bool is_in(const std::vector<std::string>& names, std::string_view name)
{
    return std::ranges::find(names, name) != names.end();
}

bool is_operator_word(std::string_view name)
{
    const std::array<std::string_view, 5> words = {"if", "then", "else", "and", "or"};
    return std::ranges::find(words, lower_case(name)) != words.end();
}

bool follows_parenthesis(const token_list& tokens, std::size_t at)
{
    return at + 1 < tokens.size() && tokens[at + 1].text == "(";
}

} // namespace

std::vector<std::string> table_reader::names_of(std::span<const int> columns) const
{
    std::vector<std::string> names;
    for (const int column : columns)
        names.push_back(name(column));
    return names;
}

std::optional<int> table_reader::column_of(std::string_view name) const
{
    const auto found = std::ranges::find(content_->names, name);
    if (found == content_->names.end()) return std::nullopt;
    return static_cast<int>(found - content_->names.begin());
}

template <class Test> std::vector<int> table_reader::columns_where(Test test) const
{
    std::vector<int> found;
    for (int column = 0; column < columns(); ++column)
        if (test(content_->cells.numbers_of(column))) found.push_back(column);
    return found;
}

std::vector<int> table_reader::numeric_columns() const
{
    return columns_where([](auto cells) { return cells.size() > 1 && cells[0].is_number() && cells[1].is_number(); });
}

std::vector<int> table_reader::model_columns() const
{
    return columns_where([](auto cells) { return cells.size() > 1 && !cells[0].is_number() && !cells[1].is_number(); });
}

std::vector<int> table_reader::started_columns() const
{
    return columns_where([](auto cells) { return !cells.empty() && !cells[0].is_blank(); });
}

int table_reader::leading_rows(std::span<const int> columns, last_row last) const
{
    const int end = rows() - (last == last_row::left_out ? 1 : 0);
    int row = 0;
    while (row < end && std::ranges::none_of(columns, [&](int column) { return is_blank(row, column); }))
        ++row;
    return row;
}

int table_reader::numeric_rows(std::span<const int> columns) const
{
    int count = 0;
    for (int row = 0; row < rows(); ++row)
        if (std::ranges::all_of(columns, [&](int column) { return content_->cells.number(row, column).is_number(); }))
            ++count;
    return count;
}

double table_reader::prefix_value(int row, int column) const
{
    const parsed_cell& cell = content_->cells.number(row, column);
    if (cell.kind == cell_kind::too_large) throw runtime_failure(failure_number::overflow);
    return cell.value;
}

std::optional<double> table_reader::strict_value(int row, int column) const
{
    const parsed_cell& cell = content_->cells.number(row, column);
    if (!cell.is_number()) return std::nullopt;
    return cell.value;
}

std::vector<double> table_reader::prefix_values(int column, int count) const
{
    std::vector<double> values(static_cast<std::size_t>(count));
    for (int row = 0; row < count; ++row)
        values[static_cast<std::size_t>(row)] = prefix_value(row, column);
    return values;
}

std::optional<std::vector<double>> table_reader::strict_values(int column, int count) const
{
    std::vector<double> values;
    values.reserve(static_cast<std::size_t>(count));
    for (const parsed_cell& cell : content_->cells.numbers_of(column).first(static_cast<std::size_t>(count))) {
        if (!cell.is_number()) return std::nullopt;
        values.push_back(cell.value);
    }
    return values;
}

model_names names_in_model(std::string_view expression, const table_reader& table)
{
    const std::vector<std::string> numeric = table.names_of(table.numeric_columns());
    const token_list tokens = scan_tokens(expression);
    model_names found;
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        const std::string_view name = tokens[at].text;
        if (!is_valid_name(name) || is_operator_word(name)) continue;
        if (is_function_name(name) && follows_parenthesis(tokens, at)) continue;
        std::vector<std::string>& list = is_in(numeric, name) ? found.independents : found.parameters;
        if (!is_in(list, name)) list.emplace_back(name);
    }
    return found;
}

std::vector<table_guess> guesses_for(std::string_view model, const table_reader& table,
                                     std::span<const table_guess> earlier)
{
    std::vector<table_guess> guesses;
    const std::string_view expression = model.substr(model.find('=') + 1);
    for (std::string& name : names_in_model(expression, table).parameters) {
        const auto known = std::ranges::find(earlier, name, &table_guess::name);
        guesses.push_back({std::move(name), known == earlier.end() ? std::string() : known->value});
    }
    return guesses;
}

} // namespace kelvarin
