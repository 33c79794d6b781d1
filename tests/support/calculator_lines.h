// SPDX-License-Identifier: MIT
#pragma once

#include "expr/basParse.h"

#include <string>
#include <string_view>

namespace kelvarin::test
{

/// What a text comes to when it is checked against a store and evaluated: the value, or the message of the
/// first step that refused it.
inline solved_expression solve_text(std::string_view text, clsParse& store, evaluation_context& context)
{
    const check_result checked = check_expression(text, &store);
    if (!checked.ok) return {false, 0.0, checked.message, false};
    return store.Solve_expression(text, context);
}

inline solved_expression solve_text(std::string_view text)
{
    clsParse store;
    evaluation_context context;
    return solve_text(text, store, context);
}

} // namespace kelvarin::test
