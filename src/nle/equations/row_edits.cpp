// SPDX-License-Identifier: MIT
#include "nle/equations/row_edits.h"

#include "expr/basParse.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "shell/general_lib.h"

#include <algorithm>
#include <utility>

namespace kelvarin
{

namespace
{

message_box refusal_box(std::string text, entry_field field = entry_field::none)
{
    message_box box = {std::move(text), box_icon::exclamation};
    box.field = field;
    return box;
}

/// The name that a row defines, as the entry dialogs extract it: the text in the brackets, also for an explicit row.
std::string_view defined_name(std::string_view equation, const row_form& form)
{
    if (form.letters.empty()) return parts_of(equation, form).name;
    std::string_view name = equation.substr(0, equation.find('='));
    if (const auto open = name.find('('); open != std::string_view::npos) name.remove_prefix(open + 1);
    return trimmed(name.substr(0, name.find(')')));
}

void rename_in_row(equation_row& row, const row_form& form, std::string_view old_name, std::string_view new_name)
{
    const equation_parts parts = parts_of(row.equation, form);
    std::string left_side(row.equation, 0, parts.right_side_offset);
    if (parts.name == old_name) left_side.replace(parts.name_offset, parts.name.size(), new_name);
    row.equation = left_side + rename_in_expression(parts.right_side, old_name, new_name);
}

/// The 0-based indexes of the valid row numbers, ascending and without duplicates.
std::vector<std::size_t> row_indexes(std::span<const int> numbers, std::size_t count)
{
    std::vector<std::size_t> indexes;
    for (const int number : numbers) {
        if (number >= 1 && static_cast<std::size_t>(number) <= count)
            indexes.push_back(static_cast<std::size_t>(number - 1));
    }
    std::ranges::sort(indexes);
    indexes.erase(std::unique(indexes.begin(), indexes.end()), indexes.end());
    return indexes;
}

} // namespace

row_refusal check_room(std::size_t count)
{
    if (count < static_cast<std::size_t>(equation_limit)) return std::nullopt;
    const std::string limit = std::to_string(equation_limit);
    return message_box{"Kelvarin can not add new equation. Kelvarin can solve up to " + limit + " equations only.",
                       box_icon::critical};
}

row_refusal check_expression_field(std::string_view expression)
{
    check_result checked = check_expression(expression);
    if (checked.ok) return std::nullopt;
    message_box box = refusal_box(std::move(checked.message), entry_field::expression);
    if (checked.place) box.place = text_place{0, checked.place->offset, checked.place->length};
    return box;
}

row_refusal check_number_field(std::string_view number, std::string_view message)
{
    if (is_numeric(number)) return std::nullopt;
    return refusal_box(std::string(message), entry_field::value);
}

row_refusal check_valid_name_field(std::string_view name)
{
    const std::string wanted(trimmed(name));
    if (is_valid_name(wanted)) return std::nullopt;
    return refusal_box("Variable format for '" + wanted +
                           "' not valid.\rAll variables must start with a string character and may contain the chars "
                           "A..Z, a..z, 0..9, or underscore",
                       entry_field::name);
}

row_refusal check_new_name_field(std::string_view name, std::span<const equation_row> rows, const row_form& form,
                                 int own_row)
{
    const std::string_view wanted = trimmed(name);
    if (row_defining(wanted, rows, form, own_row) == 0) return std::nullopt;
    return already_defined_box(wanted);
}

row_refusal check_name_field(std::string_view name, std::span<const equation_row> rows, const row_form& form,
                             int own_row)
{
    if (row_refusal refused = check_valid_name_field(name)) return refused;
    return check_new_name_field(name, rows, form, own_row);
}

message_box already_defined_box(std::string_view name)
{
    return refusal_box("The variable '" + std::string(name) + "' has already been defined.", entry_field::name);
}

message_box not_an_equation_box(std::string_view form_in_words)
{
    return refusal_box("This is no equation. Write " + std::string(form_in_words) + '.', entry_field::expression);
}

row_refusal check_circular_definition(std::string_view name, std::string_view expression)
{
    const std::string_view wanted = trimmed(name);
    for (const token& word : scan_tokens(expression)) {
        if (word.kind != token_kind::tokName || word.text != wanted) continue;
        message_box box =
            refusal_box("Circular definition of '" + std::string(wanted) +
                            "'\rThe explicit varible being defined can not appear on the left hand side of "
                            "the equation.",
                        entry_field::expression);
        box.place = text_place{0, word.offset, word.length};
        return box;
    }
    return std::nullopt;
}

int row_defining(std::string_view name, std::span<const equation_row> rows, const row_form& form, int own_row)
{
    int number = 0;
    for (const equation_row& row : rows) {
        if (++number != own_row && defined_name(row.equation, form) == name) return number;
    }
    return 0;
}

equation_row make_explicit_row(std::string_view name, std::string_view expression, std::string_view comment)
{
    std::string equation(trimmed(name));
    equation.append(" = ").append(trimmed(expression));
    return {std::move(equation), std::string(no_guess), one_line(comment)};
}

edited_rows put_row(std::vector<equation_row> rows, equation_row next, int row)
{
    if (row > 0) {
        rows.at(static_cast<std::size_t>(row - 1)) = std::move(next);
        return rows;
    }
    if (row_refusal refused = check_room(rows.size())) return std::move(*refused);
    rows.push_back(std::move(next));
    return rows;
}

edited_rows remove_rows(std::vector<equation_row> rows, std::span<const int> numbers)
{
    const std::vector<std::size_t> indexes = row_indexes(numbers, rows.size());
    if (rows.size() == 1 || (!rows.empty() && indexes.size() == rows.size()))
        return refusal_box("Can not remove last equation.");
    for (auto index = indexes.rbegin(); index != indexes.rend(); ++index)
        rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(*index));
    return rows;
}

std::optional<std::vector<equation_row>> move_rows(std::vector<equation_row> rows, std::span<const int> numbers,
                                                   bool up)
{
    const std::vector<std::size_t> indexes = row_indexes(numbers, rows.size());
    if (indexes.empty() || (up ? indexes.front() == 0 : indexes.back() + 1 == rows.size())) return std::nullopt;
    // The first row to move makes room for the next one.
    if (up) {
        for (const std::size_t index : indexes)
            std::swap(rows[index - 1], rows[index]);
    } else {
        for (auto index = indexes.rbegin(); index != indexes.rend(); ++index)
            std::swap(rows[*index], rows[*index + 1]);
    }
    return rows;
}

std::string rename_in_expression(std::string_view expression, std::string_view old_name, std::string_view new_name)
{
    // A row may define the name of a function or "then", but in right sides these mean the function or the keyword.
    if (is_function_name(old_name) || is_equation_word(old_name)) return std::string(expression);
    // replace_name doesn't take comparison signs as ends of a word, so words next to them are found by the scanner.
    const std::string replaced = replace_name(expression, old_name, new_name);
    std::string renamed;
    std::size_t copied = 0;
    for (const token& word : scan_tokens(replaced)) {
        if (word.kind != token_kind::tokName || word.text != old_name) continue;
        renamed.append(replaced, copied, word.offset - copied).append(new_name);
        copied = word.offset + word.length;
    }
    return renamed.append(replaced, copied);
}

edited_rows rename_in_rows(std::vector<equation_row> rows, const row_form& form, std::string_view old_name,
                           std::string_view new_name)
{
    const std::string from(trimmed(old_name));
    const std::string to(trimmed(new_name));
    if (from == to || !is_valid_name(from)) return rows;
    if (row_refusal refused = check_name_field(to, rows, form, 0)) return std::move(*refused);
    for (equation_row& row : rows) {
        rename_in_row(row, form, from, to);
        const equation_parts parts = parts_of(row.equation, form);
        if (parts.implicit || parts.name != to) continue;
        if (row_refusal refused = check_circular_definition(to, parts.right_side)) return std::move(*refused);
    }
    return rows;
}

} // namespace kelvarin
