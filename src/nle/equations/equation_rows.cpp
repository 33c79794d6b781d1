// SPDX-License-Identifier: MIT
#include "nle/equations/equation_rows.h"

#include "platform/text_file.h"

namespace kelvarin
{

namespace
{

/// Where a part of a text stands in it; an empty part stands at `otherwise`.
std::size_t offset_in(std::string_view text, std::string_view part, std::size_t otherwise)
{
    return part.empty() ? otherwise : static_cast<std::size_t>(part.data() - text.data());
}

std::string_view implicit_name(std::string_view equation)
{
    const std::size_t open = equation.find('(');
    const std::size_t close = equation.find(')', open + 1);
    if (close == std::string_view::npos) return equation.substr(open + 1, 0);
    return trimmed(equation.substr(open + 1, close - open - 1));
}

} // namespace

bool is_implicit(std::string_view equation)
{
    return equation.starts_with("f(");
}

equation_parts parts_of(std::string_view equation)
{
    equation_parts parts;
    parts.implicit = is_implicit(equation);
    const std::size_t equals = equation.find('=');
    parts.name = parts.implicit ? implicit_name(equation) : trimmed(equation.substr(0, equals));
    parts.name_offset = offset_in(equation, parts.name, 0);
    const std::size_t behind = equals == std::string_view::npos ? equation.size() : equals + 1;
    parts.right_side = trimmed(equation.substr(behind));
    parts.right_side_offset = offset_in(equation, parts.right_side, behind);
    return parts;
}

} // namespace kelvarin
