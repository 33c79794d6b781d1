// SPDX-License-Identifier: MIT
#pragma once

#include "expr/compiled_system.h"
#include "nle/equations/explicit_equations.h"
#include "platform/message_box.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace kelvarin
{

/// The box of an equation that does not compile, with its place in the problem: `label` and the number in `equations`,
/// then the message. `right_side_offsets`: the offset of the right side in the text of each row of the problem.
message_box refused_equation_box(const refused_expression& refused, const equation_list& equations,
                                 std::span<const std::size_t> right_side_offsets, std::string_view label);

/// The place in the problem of the evaluation that failed; nullopt if none did. `outputs` and `definitions` are those
/// that `system` was compiled from.
std::optional<text_place> failed_place(const compiled_system& system, const equation_list& outputs,
                                       const equation_list& definitions,
                                       std::span<const std::size_t> right_side_offsets);

} // namespace kelvarin
