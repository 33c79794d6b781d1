// SPDX-License-Identifier: MIT
#include "batch/kinds/table_edit_commands.h"

#include "platform/text_file.h"
#include "reg/table/column_formulas.h"
#include "reg/table/table_edits.h"
#include "reg/table/table_reader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>
#include <utility>

namespace kelvarin
{

namespace
{

using refusal = std::optional<message_box>;

/// A text divided at its first blank.
std::pair<std::string_view, std::string_view> first_word(std::string_view text)
{
    text = trimmed(text);
    const std::string_view word = text.substr(0, text.find(' '));
    return {word, trimmed(text.substr(word.size()))};
}

/// A number of a row or column, from 1.
std::optional<int> place_number(std::string_view text)
{
    int number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec != std::errc() || read.ptr != text.data() + text.size() || number < 1) return std::nullopt;
    return number;
}

/// "R,C".
std::optional<std::pair<int, int>> cell_place(std::string_view text)
{
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos) return std::nullopt;
    const std::optional<int> row = place_number(text.substr(0, comma));
    const std::optional<int> column = place_number(text.substr(comma + 1));
    if (!row || !column) return std::nullopt;
    return std::pair{*row, *column};
}

message_box no_place(const std::string& what)
{
    return {"The table has no " + what + ".", box_icon::exclamation};
}

refusal edit_cell(table_content& content, std::string_view value, evaluation_context& context)
{
    const auto [place_text, text] = first_word(value);
    const auto [row, column] = *cell_place(place_text);
    if (column > content.columns()) return no_place("column " + std::to_string(column));
    if (row >= largest_table_extent) return no_place("row " + std::to_string(row));
    if (content.has_formula(column - 1)) return formula_cells_box();
    // As a paste does, with one row more.
    if (row > content.rows()) content.grow({row + 1, content.columns()});
    put_cell(content, row - 1, column - 1, field_text(text), context);
    return std::nullopt;
}

template <class Edit> refusal with_column(const table_content& content, std::string_view name, Edit edit)
{
    const std::optional<int> column = table_reader(content).column_of(name);
    if (!column) return no_place("column '" + std::string(name) + "'");
    return edit(*column);
}

refusal define(table_content& content, std::string_view value, evaluation_context& context)
{
    const auto [name, formula] = first_word(value);
    return with_column(content, name,
                       [&, text = formula](int column) { return define_column(content, column, text, context); });
}

refusal undefine(table_content& content, std::string_view name, evaluation_context&)
{
    return with_column(content, name, [&](int column) -> refusal {
        content.formulas[static_cast<std::size_t>(column)].clear();
        return std::nullopt;
    });
}

refusal rename(table_content& content, std::string_view value, evaluation_context&)
{
    const auto [old_name, new_name] = first_word(value);
    return with_column(content, old_name,
                       [&, name = new_name](int column) { return change_column_name(content, name, column).box; });
}

template <class Edit> refusal with_row(const table_content& content, std::string_view text, Edit edit)
{
    const int row = *place_number(text);
    if (row > content.rows()) return no_place("row " + std::to_string(row));
    edit(row - 1);
    return std::nullopt;
}

refusal insert(table_content& content, std::string_view row, evaluation_context&)
{
    return with_row(content, row, [&](int place) { insert_row(content, place); });
}

refusal remove(table_content& content, std::string_view row, evaluation_context&)
{
    return with_row(content, row, [&](int place) { delete_row(content, place); });
}

struct edit_command
{
    std::string_view name;
    /// What follows the name, for messages.
    std::string_view form;
    bool (*fits)(std::string_view value);
    refusal (*apply)(table_content& content, std::string_view value, evaluation_context& context);
};

bool is_something(std::string_view value)
{
    return !value.empty();
}

bool is_two_things(std::string_view value)
{
    return !first_word(value).second.empty();
}

bool is_row(std::string_view value)
{
    return place_number(value).has_value();
}

constexpr std::array<edit_command, 7> commands = {
    {{"cell", "R,C TEXT", [](std::string_view value) { return cell_place(first_word(value).first).has_value(); },
      edit_cell},
     {"define", "NAME FORMULA", is_something, define},
     {"undefine", "NAME", is_something, undefine},
     {"rename", "OLD NEW", is_two_things, rename},
     {"digits", "N", is_something, set_calc_digits},
     {"insert", "R", is_row, insert},
     {"delete", "R", is_row, remove}}};

const edit_command* command_named(std::string_view name)
{
    const auto found = std::ranges::find(commands, name, &edit_command::name);
    return found == commands.end() ? nullptr : &*found;
}

} // namespace

std::optional<std::string> table_edit_refusal(std::string_view command)
{
    const auto [name, value] = first_word(command);
    const edit_command* const found = command_named(name);
    if (!found) return "--edit: there is no command '" + std::string(name) + "' for tables.";
    if (!found->fits(value))
        return "--edit: " + std::string(name) + " " + std::string(found->form) + " is expected, not '" +
               std::string(command) + "'.";
    return std::nullopt;
}

std::optional<message_box> edit_table(table_content& content, std::string_view command, evaluation_context& context)
{
    const auto [name, value] = first_word(command);
    return command_named(name)->apply(content, value, context);
}

} // namespace kelvarin
