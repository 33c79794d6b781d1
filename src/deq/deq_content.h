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

enum class deq_method
{
    rkf45 = 0,
    rkf56 = 1,
    bs = 2,
    stiff = 3,
    stiffbs = 4
};

/// The items of the method list, in its order.
inline constexpr std::array<std::string_view, 5> deq_method_items = {"RKF45", "RKF56", "BS", "STIFF", "STIFFBS"};

std::string_view method_text(deq_method method);
/// By item text or list index.
std::optional<deq_method> deq_method_named(std::string_view text);
/// Whether the method is made for stiff problems.
inline bool is_for_stiff(deq_method method)
{
    return method == deq_method::stiff || method == deq_method::stiffbs;
}

/// The rows of differential problems: "d(y)/d(t) = ...", with the initial value of y beside it.
inline constexpr row_form deq_row_form = {"d("};

/// The content of a differential problem, a plain value.
struct deq_content
{
    /// Without blanks around it.
    std::string title;
    deq_method method = deq_method::rkf45;
    /// Differential rows contain the independent variable as row_symbol gives it.
    std::vector<equation_row> rows;
    /// The texts of the fields of the independent variable, each on one line: its name, initial and final value.
    std::string independent;
    std::string initial_value;
    std::string final_value;

    friend bool operator==(const deq_content&, const deq_content&) = default;
};

/// A variable's name as written in rows and files: trimmed, and empty if it contains characters that would change how
/// the equation is read.
std::string row_symbol(std::string_view name);

/// "d(name)/d(independent) = expression", all trimmed.
std::string differential_equation(std::string_view name, std::string_view independent, std::string_view expression);

/// The content with `independent` as the text of that field and its name in every differential row.
deq_content with_independent(deq_content content, std::string_view independent);

} // namespace kelvarin
