// SPDX-License-Identifier: MIT
#include "nle/equations/refused_equation.h"

#include "expr/basParse.h"

#include <string>

namespace kelvarin
{

namespace
{

/// Equation `number` (from 1) of a list, and what of its right side is meant: all of it if that is not known.
text_place place_in_problem(const equation_list& equations, int number, const std::optional<byte_range>& part,
                            std::span<const std::size_t> right_side_offsets)
{
    const auto index = static_cast<std::size_t>(number - 1);
    const int row = equations.rows[index];
    text_place place = {row, right_side_offsets[static_cast<std::size_t>(row - 1)],
                        equations.right_sides[index].size()};
    if (part) {
        place.offset += part->offset;
        place.length = part->length;
    }
    return place;
}

} // namespace

message_box refused_equation_box(const refused_expression& refused, const equation_list& equations,
                                 std::span<const std::size_t> right_side_offsets, std::string_view label)
{
    message_box box = {refused.message, box_icon::critical};
    box.place = place_in_problem(equations, refused.number, refused.place, right_side_offsets);
    if (refused.fatal) {
        box.title = fatal_title;
        box.fatal = true;
    } else {
        box.text = std::string(label) + std::to_string(refused.number) + '\r' + refused.message;
    }
    return box;
}

std::optional<text_place> failed_place(const compiled_system& system, const equation_list& outputs,
                                       const equation_list& definitions,
                                       std::span<const std::size_t> right_side_offsets)
{
    const std::optional<failed_expression> failed = system.failed_part();
    if (!failed) return std::nullopt;
    return place_in_problem(failed->is_output ? outputs : definitions, failed->number, failed->place,
                            right_side_offsets);
}

} // namespace kelvarin
