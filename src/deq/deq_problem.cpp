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

message_box name_box(std::string text)
{
    message_box box = {std::move(text), box_icon::exclamation};
    box.field = entry_field::name;
    return box;
}

/// Refuses a derivative by another variable than the independent one.
std::optional<message_box> check_independent(const deq_content& content, const typed_row& typed)
{
    const std::string_view present = trimmed(content.independent);
    if (typed.independent.empty() || typed.independent == present) return std::nullopt;
    if (present.empty()) {
        if (std::optional<message_box> refused = check_valid_name_field(typed.independent)) return refused;
        return independent_refusal(typed.independent, content.rows);
    }
    return name_box("The independent variable of this problem is '" + std::string(present) + "', not '" +
                    typed.independent + "'.");
}

/// "dy/dt = ..." and "y' = ..." as "d(y)/d(t) = ..." and "d(y)/d() = ..."; other texts as they are.
std::string in_full(std::string_view text)
{
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos) return std::string(text);
    const std::string_view left = trimmed(text.substr(0, equals));
    const auto derivative = [&](std::string_view name, std::string_view by) {
        if (!is_valid_name(name) || !(by.empty() || is_valid_name(by))) return std::string(text);
        return "d(" + std::string(name) + ")/d(" + std::string(by) + ") " + std::string(text.substr(equals));
    };
    if (left.ends_with('\'')) return derivative(trimmed(left.substr(0, left.size() - 1)), {});
    const std::size_t over = left.find('/');
    if (!left.starts_with('d') || over == std::string_view::npos) return std::string(text);
    const std::string_view by = trimmed(left.substr(over + 1));
    if (!by.starts_with('d') || by.starts_with("d(")) return std::string(text);
    return derivative(trimmed(left.substr(1, over - 1)), by.substr(1));
}

/// "t" of "d(y)/d(t) = ..."; empty if the left side has no such part.
std::string variable_of_derivative(std::string_view text)
{
    const std::string_view left = text.substr(0, text.find('='));
    const std::size_t open = left.find('(', left.find('/'));
    if (left.find('/') == std::string_view::npos || open == std::string_view::npos) return {};
    return std::string(trimmed(left.substr(open + 1, left.find(')', open) - open - 1)));
}

/// The end of the range in the form of problem files: "t(f)=5".
std::optional<typed_value> final_value_of(std::string_view text)
{
    const equation_parts parts = parts_of(text, row_form{"", "(f)"});
    if (!parts.implicit || !is_valid_name(parts.name)) return std::nullopt;
    return typed_value{std::string(parts.name), std::string(parts.right_side)};
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
    return check_row(content(), {true, std::string(name), std::string(expression), std::string(value)}, row);
}

deq_problem::refusal deq_problem::check_explicit(std::string_view name, std::string_view expression, int row) const
{
    return check_row(content(), {false, std::string(name), std::string(expression)}, row);
}

deq_problem::refusal deq_problem::check_row(const deq_content& in, const typed_row& typed, int row) const
{
    if (refusal refused = check_expression_field(typed.expression)) return refused;
    if (!typed.implicit) {
        if (refusal refused = check_valid_name_field(typed.name)) return refused;
        if (refusal refused = check_circular_definition(typed.name, typed.expression)) return refused;
        return check_new_name_field(typed.name, in.rows, deq_row_form, row);
    }
    if (refusal refused = check_value(typed.value.value_or(""))) return refused;
    if (refusal refused = check_independent(in, typed)) return refused;
    if (trimmed(typed.name) == trimmed(prepared(in, typed).independent))
        return name_box("Differential var must be different than independet var.");
    return check_name_field(typed.name, in.rows, deq_row_form, row);
}

deq_problem::refusal deq_problem::check_value(std::string_view value) const
{
    return check_number_field(value, "Please enter a valid initial value.");
}

std::optional<typed_row> deq_problem::read_row(std::string_view text) const
{
    if (final_value_of(text)) return std::nullopt;
    const std::string full = in_full(text);
    std::optional<typed_row> typed = row_of_text(full, deq_row_form);
    if (!typed) return typed;
    typed->independent = variable_of_derivative(full);
    typed->text = trimmed(text.substr(0, text.find_first_of("#\t")));
    // Places are those in the text as typed; what was written in full stands in front of the equals sign.
    if (full != text) {
        typed->expression_offset = text.size() - (full.size() - typed->expression_offset);
        typed->name_offset = text.find(typed->name);
    }
    return typed;
}

equation_row deq_problem::make_row(const deq_content& in, const typed_row& typed) const
{
    if (!typed.implicit) return make_explicit_row(typed.name, typed.expression, typed.comment);
    return {differential_equation(typed.name, in.independent, typed.expression),
            std::string(trimmed(typed.value.value_or(""))), one_line(typed.comment)};
}

deq_content deq_problem::prepared(deq_content next, const typed_row& typed) const
{
    if (typed.independent.empty() || !trimmed(next.independent).empty()) return next;
    return with_independent(std::move(next), typed.independent);
}

bool deq_problem::take_line(deq_content& next, std::string_view line) const
{
    const auto take = [&](const typed_value& given, std::string& field) {
        if (given.name != trimmed(next.independent) || !field.empty()) return false;
        field = given.value;
        return true;
    };
    if (const std::optional<typed_value> final = final_value_of(line)) return take(*final, next.final_value);
    const std::vector<typed_value> values = values_of_text(line);
    return values.size() == 1 && take(values.front(), next.initial_value);
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
