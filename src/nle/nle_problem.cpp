// SPDX-License-Identifier: MIT
#include "nle/nle_problem.h"

#include "expr/basParse.h"
#include "nle/nle_file.h"
#include "nle/nle_listing.h"
#include "nle/nle_recovery.h"
#include "platform/run_time_text.h"
#include "platform/runtime_failure.h"
#include "platform/text_file.h"
#include "shell/general_lib.h"

#include <algorithm>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr std::string_view positive_suffix = " p";
constexpr std::string_view absolute_suffix = "ap";

constexpr const char* example_step = "Load example";

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

std::string_view method_text(nle_method method)
{
    return nle_method_items[static_cast<std::size_t>(method)];
}

std::optional<nle_method> method_named(std::string_view text)
{
    for (std::size_t i = 0; i < nle_method_items.size(); ++i) {
        if (text == nle_method_items[i] || text == std::to_string(i)) return static_cast<nle_method>(i);
    }
    return std::nullopt;
}

sign_constraint constraint_of(std::string_view guess)
{
    if (guess.ends_with(absolute_suffix)) return sign_constraint::absolutely_positive;
    if (guess.ends_with(positive_suffix)) return sign_constraint::physically_positive;
    return sign_constraint::any;
}

std::string guess_without_suffix(std::string_view guess)
{
    std::size_t end = guess.find(absolute_suffix);
    if (end == std::string_view::npos) end = guess.find('p');
    return end == std::string_view::npos ? std::string(guess) : std::string(trimmed(guess.substr(0, end)));
}

bool nle_problem::is_blank() const
{
    return content_.rows.empty() && content_.title.empty() && path().empty();
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
    return check_name(name, content_.rows, row);
}

nle_problem::refusal nle_problem::check_explicit(std::string_view name, std::string_view expression, int row) const
{
    if (refusal refused = check_text(expression)) return refused;
    if (refusal refused = check_name(name, content_.rows, row)) return refused;
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
    nle_content next = content_;
    if (row > 0) {
        next.rows.at(static_cast<std::size_t>(row - 1)) = std::move(next_row);
        change("Edit equation", std::move(next));
        return std::nullopt;
    }
    if (refusal refused = may_add()) return refused;
    next.rows.push_back(std::move(next_row));
    change("Add equation", std::move(next));
    return std::nullopt;
}

nle_problem::refusal nle_problem::remove(int row)
{
    if (equation_count() == 1) return message_box{"Can not remove last equation.", box_icon::exclamation};
    if (row < 1 || row > equation_count()) return std::nullopt;
    nle_content next = content_;
    next.rows.erase(next.rows.begin() + (row - 1));
    change("Remove equation", std::move(next));
    return std::nullopt;
}

bool nle_problem::move(int row, bool up)
{
    const int other = up ? row - 1 : row + 1;
    if (std::min(row, other) < 1 || std::max(row, other) > equation_count()) return false;
    nle_content next = content_;
    std::swap(next.rows[static_cast<std::size_t>(row - 1)], next.rows[static_cast<std::size_t>(other - 1)]);
    change("Move equation", std::move(next));
    return true;
}

void nle_problem::set_comment(int row, std::string comment)
{
    nle_content next = content_;
    next.rows.at(static_cast<std::size_t>(row - 1)).comment = one_line(std::move(comment));
    change("Edit comment", std::move(next));
}

void nle_problem::set_title(std::string title)
{
    nle_content next = content_;
    next.title = trimmed(one_line(std::move(title)));
    change("Change title", std::move(next));
}

void nle_problem::set_bounds(std::string lower, std::string upper)
{
    static constexpr std::string_view step = "Change bounds";
    nle_content next = content_;
    next.lower_bound = one_line(std::move(lower));
    next.upper_bound = one_line(std::move(upper));
    const bool goes_on = history_.undo_step() == step && !history_.can_redo() && !history_.is_clean();
    if (goes_on) {
        content_ = std::move(next);
    } else {
        change(std::string(step), std::move(next));
    }
}

void nle_problem::choose_method(nle_method method)
{
    nle_content next = content_;
    next.method = method;
    if (method != nle_method::constrained) {
        for (equation_row& row : next.rows) {
            if (trimmed(row.guess).empty()) break;
            row.guess = guess_without_suffix(row.guess);
        }
    }
    change("Choose method", std::move(next));
}

nle_problem::refusal nle_problem::rename_variable(std::string_view old_name, std::string_view new_name)
{
    const std::string_view from = trimmed(old_name);
    const std::string_view to = trimmed(new_name);
    if (from == to || !is_valid_name(from)) return std::nullopt;
    if (refusal refused = check_name(to, content_.rows, 0)) return refused;
    nle_content next = content_;
    for (equation_row& row : next.rows) {
        rename_in(row, from, to);
        const equation_parts parts = parts_of(row.equation);
        if (parts.implicit || parts.name != to) continue;
        if (refusal refused = check_circle(to, parts.right_side)) return refused;
    }
    change("Rename variable", std::move(next));
    return std::nullopt;
}

void nle_problem::load_example(nle_content example)
{
    change(example_step, std::move(example));
    place_.leave();
}

bool nle_problem::undo()
{
    if (!history_.undo(content_)) return false;
    if (history_.is_clean()) place_.come_back();
    return true;
}

bool nle_problem::redo()
{
    const bool to_example = history_.redo_step() == example_step;
    if (!history_.redo(content_)) return false;
    if (to_example) place_.leave();
    return true;
}

nle_problem::refusal nle_problem::nles_open(const std::filesystem::path& path)
{
    const text_file file = read_text_file(path);
    std::optional<nle_content> content = file.ok() ? read_nle(file.text, content_.method) : std::nullopt;
    if (!content) return message_box{"Error while trying to open file.", box_icon::critical};
    content_ = std::move(*content);
    place_.set(path);
    history_.clear();
    return std::nullopt;
}

nle_problem::refusal nle_problem::save(const std::filesystem::path& path, bool older_format, const save_calls& calls)
{
    const message_box failed = {"Error while trying to save file.", box_icon::critical};
    try {
        if (save_file(path, write_nle(content_, older_format), calls)) return failed;
    } catch (const runtime_failure&) {
        return failed;
    }
    place_.set(path);
    history_.mark_clean();
    return std::nullopt;
}

void nle_problem::clear()
{
    content_ = {};
    place_.set({});
    history_.clear();
}

std::string nle_problem::recovery_text() const
{
    return nle_recovery_text(content_);
}

bool nle_problem::restore(std::string_view recovery_text, const std::filesystem::path& path)
{
    std::optional<nle_content> content = read_nle_recovery(recovery_text);
    if (!content) return false;
    content_ = std::move(*content);
    place_.set(path);
    history_.clear();
    history_.mark_unsaved();
    return true;
}

std::string nle_problem::printed_listing() const
{
    return nle_listing(content_, path());
}

void nle_problem::change(std::string step, nle_content next)
{
    // The fields of the bounds are emptied when they disappear.
    const auto implicit_rows = std::count_if(next.rows.begin(), next.rows.end(),
                                             [](const equation_row& row) { return is_implicit(row.equation); });
    if (implicit_rows != 1) {
        next.lower_bound.clear();
        next.upper_bound.clear();
    }
    if (next == content_) return;
    history_.record(std::exchange(content_, std::move(next)), std::move(step));
}

} // namespace kelvarin
