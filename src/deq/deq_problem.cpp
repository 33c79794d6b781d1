// SPDX-License-Identifier: MIT
#include "deq/deq_problem.h"

#include "deq/deq_file.h"
#include "deq/deq_listing.h"
#include "deq/deq_recovery.h"
#include "expr/basParse.h"
#include "platform/text_file.h"

#include <optional>
#include <utility>
#include <variant>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr content_format<deq_content> deq_format = {
    .kind = "deq",
    .example_step = "Load example",
    .read = [](std::string_view text, const deq_content& current) { return read_deq(text, current.method); },
    .write = write_deq,
    .recovery_text = deq_recovery_text,
    .read_recovery = read_deq_recovery,
    .listing = deq_listing};

/// The box that refuses a name for the independent variable; nullopt if it may have this name.
std::optional<message_box> independent_refusal(std::string_view name, std::span<const equation_row> rows)
{
    static constexpr std::string_view text = "Please do not use the same valriable name for independent variable and ";
    const auto defined_by = [&](bool differential) {
        for (const equation_row& row : rows) {
            const equation_parts parts = parts_of(row.equation, deq_row_form);
            if (parts.implicit == differential && parts.name == name) return true;
        }
        return false;
    };
    if (name.empty()) return std::nullopt;
    if (defined_by(true)) return message_box{std::string(text) + "differential variable.", box_icon::exclamation};
    if (defined_by(false)) return message_box{std::string(text) + "explicit variable.", box_icon::exclamation};
    return std::nullopt;
}

} // namespace

deq_problem::deq_problem() : equation_document(deq_format) {}

bool deq_problem::is_blank() const
{
    deq_content nothing;
    nothing.method = content().method;
    return content() == nothing && path().empty();
}

deq_problem::refusal deq_problem::check_differential(std::string_view name, std::string_view expression,
                                                     std::string_view value, int row) const
{
    if (refusal refused = check_expression_field(expression)) return refused;
    if (refusal refused = check_number_field(value, "Please enter a valid initial value.")) return refused;
    if (trimmed(name) == trimmed(content().independent))
        return message_box{"Differential var must be different than independet var.", box_icon::exclamation};
    return check_name_field(name, content().rows, deq_row_form, row);
}

deq_problem::refusal deq_problem::check_explicit(std::string_view name, std::string_view expression, int row) const
{
    if (refusal refused = check_expression_field(expression)) return refused;
    if (refusal refused = check_valid_name_field(name)) return refused;
    if (refusal refused = check_circular_definition(name, expression)) return refused;
    return check_new_name_field(name, content().rows, deq_row_form, row);
}

deq_problem::refusal deq_problem::put_differential(std::string_view name, std::string_view expression,
                                                   std::string_view value, std::string_view comment, int row)
{
    if (refusal refused = check_differential(name, expression, value, row)) return refused;
    return put({differential_equation(name, content().independent, expression), std::string(trimmed(value)),
                one_line(comment)},
               row);
}

deq_problem::refusal deq_problem::put_explicit(std::string_view name, std::string_view expression,
                                               std::string_view comment, int row)
{
    if (refusal refused = check_explicit(name, expression, row)) return refused;
    return put(make_explicit_row(name, expression, comment), row);
}

deq_problem::refusal deq_problem::set_independent(std::string_view name)
{
    if (one_line(name) == content().independent) return std::nullopt;
    if (refusal refused = independent_refusal(trimmed(name), content().rows)) return refused;
    change_on("Change independent variable", with_independent(content(), name));
    return std::nullopt;
}

void deq_problem::set_range(std::string_view initial, std::string_view final)
{
    deq_content next = content();
    next.initial_value = one_line(initial);
    next.final_value = one_line(final);
    change_on("Change range", std::move(next));
}

void deq_problem::choose_method(deq_method method)
{
    deq_content next = content();
    next.method = method;
    change("Choose method", std::move(next));
}

deq_problem::refusal deq_problem::rename_variable(std::string_view old_name, std::string_view new_name)
{
    const std::string_view from = trimmed(old_name);
    const std::string_view to = trimmed(new_name);
    const std::string_view independent = trimmed(content().independent);
    if (from == to || !is_valid_name(from)) return std::nullopt;
    if (to == independent) return already_defined_box(to);
    edited_rows edited = rename_in_rows(content().rows, deq_row_form, from, to);
    if (from != independent) return take_rows("Rename variable", std::move(edited));
    if (message_box* refused = std::get_if<message_box>(&edited)) return std::move(*refused);
    deq_content next = content();
    next.rows = std::get<std::vector<equation_row>>(std::move(edited));
    change("Rename variable", with_independent(std::move(next), to));
    return std::nullopt;
}

void deq_problem::load_example(deq_content example)
{
    example.method = content().method;
    change_to_example(std::move(example));
}

} // namespace kelvarin
