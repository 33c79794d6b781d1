// SPDX-License-Identifier: MIT
#include "nle/equations/equation_rows.h"

#include "platform/text_file.h"

#include <optional>

namespace kelvarin
{

namespace
{

/// Byte offset of `part` within `text`, of which it is a view; `otherwise` if the part is empty.
std::size_t offset_in(std::string_view text, std::string_view part, std::size_t otherwise)
{
    return part.empty() ? otherwise : static_cast<std::size_t>(part.data() - text.data());
}

std::string_view name_in_brackets(std::string_view equation)
{
    const std::size_t open = equation.find('(');
    const std::size_t close = equation.find(')', open + 1);
    if (close == std::string_view::npos) return equation.substr(open + 1, 0);
    return trimmed(equation.substr(open + 1, close - open - 1));
}

std::string_view left_side_of(std::string_view equation)
{
    return equation.substr(0, equation.find('='));
}

/// The text in front of the suffix, trimmed. Returns nullopt if the left side doesn't end in the suffix.
std::optional<std::string_view> name_before(std::string_view suffix, std::string_view left_side)
{
    std::string_view name = trimmed(left_side);
    for (; !suffix.empty(); suffix.remove_suffix(1)) {
        if (!name.ends_with(suffix.back())) return std::nullopt;
        name = trimmed(name.substr(0, name.size() - 1));
    }
    return name;
}

std::string_view name_of(std::string_view equation, const row_form& form, bool implicit)
{
    if (!implicit) return trimmed(left_side_of(equation));
    if (!form.letters.empty()) return name_in_brackets(equation);
    return name_before(form.suffix, left_side_of(equation)).value_or(equation);
}

} // namespace

bool is_implicit(std::string_view equation, const row_form& form)
{
    if (!form.letters.empty()) return equation.starts_with(form.letters);
    if (form.suffix.empty() || equation.find('=') == std::string_view::npos) return false;
    return name_before(form.suffix, left_side_of(equation)).has_value();
}

equation_parts parts_of(std::string_view equation, const row_form& form)
{
    equation_parts parts;
    parts.implicit = is_implicit(equation, form);
    parts.name = name_of(equation, form, parts.implicit);
    parts.name_offset = offset_in(equation, parts.name, 0);
    const std::size_t equals = equation.find('=');
    const std::size_t behind = equals == std::string_view::npos ? equation.size() : equals + 1;
    parts.right_side = trimmed(equation.substr(behind));
    parts.right_side_offset = offset_in(equation, parts.right_side, behind);
    return parts;
}

} // namespace kelvarin
