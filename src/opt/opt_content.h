// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_rows.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

enum class opt_method
{
    conjugate_grad = 0,
    quasi_newton = 1,
    dfpmin = 2
};

/// The items of the method list, in its order.
inline constexpr std::array<std::string_view, 3> opt_method_items = {"Conjugate Grad", "Quasi-Newton", "Dfpmin"};

std::string_view method_text(opt_method method);
/// By item text or list index.
std::optional<opt_method> opt_method_named(std::string_view text);

/// The rows of optimization problems: "x(0) = 2" gives a variable of the target its start value, all others are
/// explicit equations.
inline constexpr row_form opt_row_form = {.letters = "", .suffix = "(0)"};

/// The content of an optimization problem, a plain value.
struct opt_content
{
    /// Without blanks around it.
    std::string title;
    opt_method method = opt_method::conjugate_grad;
    /// The function to become as small as possible, on one line as typed.
    std::string target;
    /// The guess of every row is empty: a start value is part of its row's text.
    std::vector<equation_row> rows;

    friend bool operator==(const opt_content&, const opt_content&) = default;
};

} // namespace kelvarin
