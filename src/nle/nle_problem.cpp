// SPDX-License-Identifier: MIT
#include "nle/nle_problem.h"

#include "expr/basParse.h"
#include "nle/equations/equation_rows.h"
#include "nle/nle_file.h"
#include "nle/nle_listing.h"
#include "nle/nle_recovery.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "shell/general_lib.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr content_format<nle_content> nle_format = {
    .kind = "nle",
    .example_step = "Load example",
    .read = [](std::string_view text, const nle_content& current) { return read_nle(text, current.method); },
    .write = write_nle,
    .recovery_text = nle_recovery_text,
    .read_recovery = read_nle_recovery,
    .listing = nle_listing};

/// A text for a field of one line.
std::string one_line(std::string text)
{
    for (char& c : text) {
        if (c == '\r' || c == '\n') c = ' ';
    }
    return text;
}

message_box refusal_box(std::string text)
{
    return {std::move(text), box_icon::exclamation};
}

/// The name that a row defines, as the entry dialogs cut it out.
std::string_view defined_name(std::string_view equation)
{
    std::string_view name = equation.substr(0, equation.find('='));
    if (const auto open = name.find('('); open != std::string_view::npos) name.remove_prefix(open + 1);
    name = name.substr(0, name.find(')'));
    return trimmed(name);
}

nle_problem::refusal check_text(std::string_view expression)
{
    check_result checked = check_expression(expression);
    if (checked.ok) return std::nullopt;
    message_box box = refusal_box(std::move(checked.message));
    if (checked.place) box.place = text_place{0, checked.place->offset, checked.place->length};
    return box;
}

nle_problem::refusal check_name(std::string_view name, const std::vector<equation_row>& rows, int own_row)
{
    const std::string wanted(trimmed(name));
    if (!is_valid_name(wanted)) {
        return refusal_box("Variable format for '" + wanted +
                           "' not valid.\rAll variables must start with a string character and may contain the chars "
                           "A..Z, a..z, 0..9, or underscore");
    }
    int number = 0;
    for (const equation_row& row : rows) {
        if (++number == own_row || defined_name(row.equation) != wanted) continue;
        return refusal_box("The variable '" + wanted + "' has already been defined.");
    }
    return std::nullopt;
}

/// Refuses an explicit equation that uses its own variable.
nle_problem::refusal check_circle(std::string_view name, std::string_view expression)
{
    for (const token& word : scan_tokens(expression)) {
        if (word.kind != token_kind::tokName || word.text != name) continue;
        message_box box = refusal_box("Circular definition of '" + std::string(name) +
                                      "'\rThe explicit varible being defined can not appear on the left hand side of "
                                      "the equation.");
        box.place = text_place{0, word.offset, word.length};
        return box;
    }
    return std::nullopt;
}

/// The expression with one variable renamed. What replace_name takes for the ends of a word leaves out commas
/// and comparisons, so the words that stand beside those are taken from the scanner.
std::string renamed_in(std::string_view expression, std::string_view old_name, std::string_view new_name)
{
    // A row may carry the name of a function or "then", but right sides mean the function or the word.
    if (is_function_name(old_name) || is_equation_word(old_name)) return std::string(expression);
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

void rename_in(equation_row& row, std::string_view old_name, std::string_view new_name)
{
    const equation_parts parts = parts_of(row.equation);
    std::string left_side(row.equation, 0, parts.right_side_offset);
    if (parts.name == old_name) left_side.replace(parts.name_offset, parts.name.size(), new_name);
    row.equation = left_side + renamed_in(parts.right_side, old_name, new_name);
}

} // namespace

nle_problem::nle_problem() : value_document(nle_format) {}

bool nle_problem::is_blank() const
{
    return content().rows.empty() && content().title.empty() && path().empty();
}

nle_problem::refusal nle_problem::may_add() const
{
    if (equation_count() < equation_limit) return std::nullopt;
    const std::string limit = std::to_string(equation_limit);
    return message_box{"Kelvarin can not add new equation. Kelvarin can solve up to " + limit + " equations only.",
                       box_icon::critical};
}

nle_problem::refusal nle_problem::check_implicit(std::string_view name, std::string_view expression,
                                                 std::string_view guess, int row) const
{
    if (refusal refused = check_text(expression)) return refused;
    if (!is_numeric(guess)) return refusal_box("Please enter a valid numeric value for initial guess.");
    return check_name(name, content().rows, row);
}

nle_problem::refusal nle_problem::check_explicit(std::string_view name, std::string_view expression, int row) const
{
    if (refusal refused = check_text(expression)) return refused;
    if (refusal refused = check_name(name, content().rows, row)) return refused;
    return check_circle(trimmed(name), expression);
}

nle_problem::refusal nle_problem::put_implicit(std::string_view name, std::string_view expression,
                                               std::string_view guess, int constraint, std::string_view comment,
                                               int row)
{
    static constexpr std::array<std::string_view, 3> suffixes = {"", " p", " ap"};
    if (refusal refused = check_implicit(name, expression, guess, row)) return refused;
    equation_row next;
    next.equation.append("f(").append(trimmed(name)).append(") = ").append(trimmed(expression));
    next.guess.append(trimmed(guess)).append(suffixes.at(static_cast<std::size_t>(constraint)));
    next.comment = one_line(std::string(comment));
    return put_row(std::move(next), row);
}

nle_problem::refusal nle_problem::put_explicit(std::string_view name, std::string_view expression,
                                               std::string_view comment, int row)
{
    if (refusal refused = check_explicit(name, expression, row)) return refused;
    equation_row next;
    next.equation.append(trimmed(name)).append(" = ").append(trimmed(expression));
    next.guess = no_guess;
    next.comment = one_line(std::string(comment));
    return put_row(std::move(next), row);
}

nle_problem::refusal nle_problem::put_row(equation_row next_row, int row)
{
    nle_content next = content();
    if (row > 0) {
        next.rows.at(static_cast<std::size_t>(row - 1)) = std::move(next_row);
        change_rows("Edit equation", std::move(next));
        return std::nullopt;
    }
    if (refusal refused = may_add()) return refused;
    next.rows.push_back(std::move(next_row));
    change_rows("Add equation", std::move(next));
    return std::nullopt;
}

nle_problem::refusal nle_problem::remove(int row)
{
    if (equation_count() == 1) return message_box{"Can not remove last equation.", box_icon::exclamation};
    if (row < 1 || row > equation_count()) return std::nullopt;
    nle_content next = content();
    next.rows.erase(next.rows.begin() + (row - 1));
    change_rows("Remove equation", std::move(next));
    return std::nullopt;
}

bool nle_problem::move(int row, bool up)
{
    const int other = up ? row - 1 : row + 1;
    if (std::min(row, other) < 1 || std::max(row, other) > equation_count()) return false;
    nle_content next = content();
    std::swap(next.rows[static_cast<std::size_t>(row - 1)], next.rows[static_cast<std::size_t>(other - 1)]);
    change_rows("Move equation", std::move(next));
    return true;
}

void nle_problem::set_comment(int row, std::string_view comment)
{
    nle_content next = content();
    next.rows.at(static_cast<std::size_t>(row - 1)).comment = one_line(std::string(comment));
    change_rows("Edit comment", std::move(next));
}

void nle_problem::set_bounds(std::string lower, std::string upper)
{
    nle_content next = content();
    next.lower_bound = one_line(std::move(lower));
    next.upper_bound = one_line(std::move(upper));
    change_on("Change bounds", without_unused_bounds(std::move(next)));
}

void nle_problem::choose_method(nle_method method)
{
    change("Choose method", with_method(content(), method));
}

nle_problem::refusal nle_problem::rename_variable(std::string_view old_name, std::string_view new_name)
{
    const std::string_view from = trimmed(old_name);
    const std::string_view to = trimmed(new_name);
    if (from == to || !is_valid_name(from)) return std::nullopt;
    if (refusal refused = check_name(to, content().rows, 0)) return refused;
    nle_content next = content();
    for (equation_row& row : next.rows) {
        rename_in(row, from, to);
        const equation_parts parts = parts_of(row.equation);
        if (parts.implicit || parts.name != to) continue;
        if (refusal refused = check_circle(to, parts.right_side)) return refused;
    }
    change_rows("Rename variable", std::move(next));
    return std::nullopt;
}

void nle_problem::load_example(nle_content example)
{
    change_to_example(without_unused_bounds(std::move(example)));
}

void nle_problem::change_rows(std::string_view step, nle_content next)
{
    change(step, without_unused_bounds(std::move(next)));
}

} // namespace kelvarin
