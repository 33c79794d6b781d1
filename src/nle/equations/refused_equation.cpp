// SPDX-License-Identifier: MIT
#include "nle/equations/refused_equation.h"

#include "expr/basParse.h"

#include <string>

namespace kelvarin
{

message_box refused_equation_box(const refused_expression& refused, const equation_list& equations,
                                 std::span<const std::size_t> right_side_offsets, std::string_view label)
{
    const auto index = static_cast<std::size_t>(refused.number - 1);
    const int row = equations.rows[index];
    message_box box = {refused.message, box_icon::critical};
    box.place =
        text_place{row, right_side_offsets[static_cast<std::size_t>(row - 1)], equations.right_sides[index].size()};
    if (refused.place) {
        box.place->offset += refused.place->offset;
        box.place->length = refused.place->length;
    }
    if (refused.fatal) {
        box.title = fatal_title;
        box.fatal = true;
    } else {
        box.text = std::string(label) + std::to_string(refused.number) + '\r' + refused.message;
    }
    return box;
}

} // namespace kelvarin
