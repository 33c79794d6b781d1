// SPDX-License-Identifier: MIT
#include "deq/deq_content.h"

#include "platform/text_file.h"
#include "shell/document/method_items.h"

#include <utility>

namespace kelvarin
{

std::string_view method_text(deq_method method)
{
    return deq_method_items[static_cast<std::size_t>(method)];
}

std::optional<deq_method> deq_method_named(std::string_view text)
{
    const std::optional<std::size_t> item = method_item_named(text, deq_method_items);
    if (!item) return std::nullopt;
    return static_cast<deq_method>(*item);
}

std::string row_symbol(std::string_view name)
{
    const std::string_view symbol = trimmed(name);
    return symbol.find_first_of("(=)#") == std::string_view::npos ? one_line(symbol) : std::string();
}

std::string differential_equation(std::string_view name, std::string_view independent, std::string_view expression)
{
    std::string equation(deq_row_form.letters);
    equation.append(row_symbol(name)).append(")/d(").append(row_symbol(independent)).append(") = ");
    return equation.append(trimmed(expression));
}

deq_content with_independent(deq_content content, std::string_view independent)
{
    content.independent = one_line(independent);
    for (equation_row& row : content.rows) {
        const equation_parts parts = parts_of(row.equation, deq_row_form);
        if (parts.implicit) row.equation = differential_equation(parts.name, content.independent, parts.right_side);
    }
    return content;
}

} // namespace kelvarin
