// SPDX-License-Identifier: MIT
#include "nle/nle_problem.h"

#include "nle/nle_file.h"
#include "nle/nle_listing.h"
#include "nle/nle_recovery.h"
#include "platform/text_file.h"

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
    if (refusal refused = check_number_field(guess, "Please enter a valid numeric value for initial guess."))
        return refused;
    return check_name_field(name, content().rows, nle_row_form, row);
}

nle_problem::refusal nle_problem::check_explicit(std::string_view name, std::string_view expression, int row) const
{
    if (refusal refused = check_expression_field(expression)) return refused;
    if (refusal refused = check_name_field(name, content().rows, nle_row_form, row)) return refused;
    return check_circular_definition(name, expression);
}

nle_problem::refusal nle_problem::put_implicit(std::string_view name, std::string_view expression,
                                               std::string_view guess, int constraint, std::string_view comment,
                                               int row)
{
    static constexpr std::array<std::string_view, 3> suffixes = {"", " p", " ap"};
    if (refusal refused = check_implicit(name, expression, guess, row)) return refused;
    equation_row next;
    next.equation.append(nle_row_form.letters).append(trimmed(name)).append(") = ").append(trimmed(expression));
    next.guess.append(trimmed(guess)).append(suffixes.at(static_cast<std::size_t>(constraint)));
    next.comment = one_line(comment);
    return put(std::move(next), row);
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
