// SPDX-License-Identifier: MIT
#include "nle/nle_problem.h"

#include "nle/nle_file.h"
#include "nle/nle_listing.h"
#include "nle/nle_recovery.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

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

constexpr std::string_view guess_refusal = "Please enter a valid numeric value for initial guess.";

/// A guess with its suffix as cells hold it: "1 p".
std::string with_one_blank(std::string_view guess)
{
    const std::string number(trimmed(guess_without_suffix(guess)));
    const std::string_view suffix = trimmed(guess.substr(std::min(guess.find_first_of("ap"), guess.size())));
    if (suffix == "p" || suffix == "ap") return number + ' ' + std::string(suffix);
    return std::string(trimmed(guess));
}

} // namespace

nle_problem::nle_problem() : equation_document(nle_format) {}

bool nle_problem::is_blank() const
{
    return content().rows.empty() && content().title.empty() && path().empty();
}

nle_problem::refusal nle_problem::check_implicit(std::string_view name, std::string_view expression,
                                                 std::string_view guess, int row) const
{
    if (refusal refused = check_expression_field(expression)) return refused;
    if (refusal refused = check_number_field(guess, guess_refusal)) return refused;
    return check_name_field(name, content().rows, nle_row_form, row);
}

nle_problem::refusal nle_problem::check_explicit(std::string_view name, std::string_view expression, int row) const
{
    return check_row(content(), {.name = std::string(name), .expression = std::string(expression)}, row);
}

nle_problem::refusal nle_problem::check_row(const nle_content& in, const typed_row& typed, int row) const
{
    if (refusal refused = check_expression_field(typed.expression)) return refused;
    if (typed.implicit)
        if (refusal refused = check_value(typed.value.value_or(""))) return refused;
    if (refusal refused = check_name_field(typed.name, in.rows, nle_row_form, row)) return refused;
    return typed.implicit ? std::nullopt : check_circular_definition(typed.name, typed.expression);
}

nle_problem::refusal nle_problem::check_value(std::string_view value) const
{
    return check_number_field(guess_without_suffix(value), guess_refusal);
}

std::optional<typed_row> nle_problem::read_row(std::string_view text) const
{
    if (holds_a_bound(text)) return std::nullopt;
    return row_of_text(text, nle_row_form);
}

equation_row nle_problem::make_row(const nle_content&, const typed_row& typed) const
{
    if (!typed.implicit) return make_explicit_row(typed.name, typed.expression, typed.comment);
    equation_row made;
    made.equation.append(nle_row_form.letters).append(trimmed(typed.name)).append(") = ");
    made.equation += trimmed(typed.expression);
    made.guess = with_one_blank(typed.value.value_or(""));
    made.comment = one_line(typed.comment);
    return made;
}

bool nle_problem::take_line(nle_content& next, std::string_view line) const
{
    return holds_a_bound(line) && take_bounds(line, next);
}

nle_problem::refusal nle_problem::put_implicit(std::string_view name, std::string_view expression,
                                               std::string_view guess, int constraint, std::string_view comment,
                                               int row)
{
    static constexpr std::array<std::string_view, 3> suffixes = {"", " p", " ap"};
    if (refusal refused = check_implicit(name, expression, guess, row)) return refused;
    const std::string value = std::string(guess) + std::string(suffixes.at(static_cast<std::size_t>(constraint)));
    return put(make_row(content(), {true, std::string(name), std::string(expression), value, std::string(comment)}),
               row);
}

nle_problem::refusal nle_problem::put_explicit(std::string_view name, std::string_view expression,
                                               std::string_view comment, int row)
{
    if (refusal refused = check_explicit(name, expression, row)) return refused;
    return put(make_explicit_row(name, expression, comment), row);
}

void nle_problem::set_bounds(std::string_view lower, std::string_view upper)
{
    nle_content next = content();
    next.lower_bound = one_line(lower);
    next.upper_bound = one_line(upper);
    change_on("Change bounds", without_unused_bounds(std::move(next)));
}

void nle_problem::choose_method(nle_method method)
{
    change("Choose method", with_method(content(), method));
}

bool nle_problem::use_as_guesses(std::span<const solved_value> solution)
{
    static constexpr std::array<std::string_view, 3> suffixes = {"", " p", " ap"};
    nle_content next = content();
    for (equation_row& row : next.rows) {
        const equation_parts parts = parts_of(row.equation, nle_row_form);
        const auto found = std::ranges::find(solution, parts.name, &solved_value::name);
        if (!parts.implicit || found == solution.end()) continue;
        const std::string_view suffix = suffixes[static_cast<std::size_t>(constraint_of(row.guess))];
        row.guess = plain_text(found->value).append(suffix);
    }
    const bool changes = next != content();
    change("Use solution as guesses", std::move(next));
    return changes;
}

nle_problem::refusal nle_problem::rename_variable(std::string_view old_name, std::string_view new_name)
{
    return take_rows("Rename variable", rename_in_rows(content().rows, nle_row_form, old_name, new_name));
}

void nle_problem::load_example(nle_content example)
{
    change_to_example(without_unused_bounds(std::move(example)));
}

nle_content nle_problem::after_row_edit(nle_content edited) const
{
    return without_unused_bounds(std::move(edited));
}

} // namespace kelvarin
