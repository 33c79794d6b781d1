// SPDX-License-Identifier: MIT
#include "opt/opt_problem.h"

#include "expr/basParse.h"
#include "opt/opt_file.h"
#include "opt/opt_listing.h"
#include "opt/opt_recovery.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr content_format<opt_content> opt_format = {
    .kind = "opt",
    .example_step = "Load example",
    .read = [](std::string_view text, const opt_content& current) { return read_opt(text, current.method); },
    // There is no older format.
    .write = [](const opt_content& content, bool) { return write_opt(content); },
    .recovery_text = opt_recovery_text,
    .read_recovery = read_opt_recovery,
    .listing = opt_listing};

message_box refusal_box(std::string text, entry_field field)
{
    message_box box = {std::move(text), box_icon::exclamation};
    box.field = field;
    return box;
}

/// Refuses a start value that is not a number.
row_refusal check_start_value(const equation_parts& parts)
{
    if (is_numeric(parts.right_side)) return std::nullopt;
    const std::string value(parts.right_side);
    message_box box =
        scan_tokens(value).size() == 1
            ? refusal_box("<" + value + "> is not a valid number.", entry_field::expression)
            : refusal_box("Initialization value for <" + std::string(parts.name) + "> must be a valid number.",
                          entry_field::expression);
    box.place = text_place{0, parts.right_side_offset, value.size()};
    return box;
}

/// Refuses a right side that is not a valid expression.
row_refusal check_right_side(const equation_parts& parts)
{
    row_refusal refused = check_expression_field(parts.right_side);
    if (refused && refused->place) refused->place->offset += parts.right_side_offset;
    return refused;
}

message_box no_equals_sign_box()
{
    return refusal_box("No \"=\" sign entered. \r"
                       "You must enter either an explicit equation or a variable initialization expression.\r"
                       "<var name> = <math expression>\r"
                       "   OR \r"
                       "<var name>(0) = <initialization number>",
                       entry_field::expression);
}

/// The checks of a text that becomes row `row` of `rows`, or a new one (0).
row_refusal check_among(const std::vector<equation_row>& rows, std::string_view text, int row)
{
    const equation_parts parts = parts_of(text, opt_row_form);
    if (const int other = row_defining(parts.name, rows, opt_row_form, row); other > 0) {
        return refusal_box("The variable <" + std::string(parts.name) + "> has been already defined in equation " +
                               std::to_string(other) + ".",
                           entry_field::name);
    }
    if (text.find('=') == std::string_view::npos) return no_equals_sign_box();
    if (row_refusal refused = parts.implicit ? check_start_value(parts) : check_right_side(parts)) return refused;
    return check_valid_name_field(parts.name);
}

} // namespace

opt_problem::opt_problem() : equation_document(opt_format) {}

bool opt_problem::is_blank() const
{
    opt_content nothing;
    nothing.method = content().method;
    return content() == nothing && path().empty();
}

opt_problem::refusal opt_problem::check_opt_row(std::string_view text, int row) const
{
    return check_among(content().rows, text, row);
}

message_box opt_problem::no_equation_box() const
{
    return no_equals_sign_box();
}

opt_problem::refusal opt_problem::check_row(const opt_content& in, const typed_row& typed, int row) const
{
    refusal refused = check_among(in.rows, typed.text, row);
    // All places are in the right side.
    if (refused && refused->place) refused->place->offset -= parts_of(typed.text, opt_row_form).right_side_offset;
    return refused;
}

equation_row opt_problem::make_row(const opt_content&, const typed_row& typed) const
{
    return {one_line(typed.text), "", one_line(typed.comment)};
}

opt_problem::refusal opt_problem::put_row_text(std::string_view text, std::string_view comment, int row)
{
    const std::string line = one_line(trimmed(text));
    if (refusal refused = check_opt_row(line, row)) return refused;
    return put({line, "", one_line(comment)}, row);
}

void opt_problem::set_target(std::string_view target)
{
    opt_content next = content();
    next.target = one_line(target);
    change_on("Change target", std::move(next));
}

void opt_problem::choose_method(opt_method method)
{
    opt_content next = content();
    next.method = method;
    change("Choose method", std::move(next));
}

bool opt_problem::use_as_guesses(std::span<const solved_value> solution)
{
    opt_content next = content();
    for (equation_row& row : next.rows) {
        const equation_parts parts = parts_of(row.equation, opt_row_form);
        const auto found = std::ranges::find(solution, parts.name, &solved_value::name);
        if (!parts.implicit || found == solution.end()) continue;
        row.equation = row.equation.substr(0, parts.right_side_offset) + plain_text(found->value);
    }
    const bool changes = next != content();
    change("Use solution as guesses", std::move(next));
    return changes;
}

opt_problem::refusal opt_problem::rename_variable(std::string_view old_name, std::string_view new_name)
{
    const std::string_view from = trimmed(old_name);
    const std::string_view to = trimmed(new_name);
    if (from == to || !is_valid_name(from)) return std::nullopt;
    edited_rows edited = rename_in_rows(content().rows, opt_row_form, from, to);
    if (message_box* refused = std::get_if<message_box>(&edited)) return std::move(*refused);
    opt_content next = content();
    next.rows = std::get<std::vector<equation_row>>(std::move(edited));
    next.target = rename_in_expression(next.target, from, to);
    change("Rename variable", std::move(next));
    return std::nullopt;
}

void opt_problem::load_example(opt_content example)
{
    example.method = content().method;
    change_to_example(std::move(example));
}

message_box opt_problem::open_refusal(const text_file& file) const
{
    message_box refused = equation_document::open_refusal(file);
    const std::string& reason = file.failure.reason;
    refused.text = "Error while trying to open file (" + (reason.empty() ? "The file is empty." : reason) + ")";
    return refused;
}

} // namespace kelvarin
