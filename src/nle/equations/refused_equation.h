// SPDX-License-Identifier: MIT
#pragma once

#include "expr/compiled_system.h"
#include "nle/equations/explicit_equations.h"
#include "platform/message_box.h"

#include <cstddef>
#include <span>
#include <string_view>

namespace kelvarin
{

/// The box of an equation of a run that does not compile, with its place in the problem: "label" and its number in
/// `equations`, then what is wrong. `right_side_offsets`: where the right side begins in the text of each row of the
/// problem.
message_box refused_equation_box(const refused_expression& refused, const equation_list& equations,
                                 std::span<const std::size_t> right_side_offsets, std::string_view label);

} // namespace kelvarin
