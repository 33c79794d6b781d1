// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_rows.h"
#include "numeric/nonlinear/sign_constraint.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// The rows of nonlinear problems: "f(x) = ...".
inline constexpr row_form nle_row_form = {"f("};

enum class nle_method
{
    fastnewt = 0,
    safenewt = 1,
    safebroydn = 2,
    constrained = 3
};

/// The items of the method list, in its order.
inline constexpr std::array<std::string_view, 4> nle_method_items = {"fastnewt", "safenewt", "safebroydn",
                                                                     "constrained"};

std::string_view method_text(nle_method method);
/// Finds a method by its item text or its list index. Returns nullopt if there is no such method.
std::optional<nle_method> method_named(std::string_view text);

/// The content of a nonlinear problem: a plain value.
struct nle_content
{
    /// Trimmed.
    std::string title;
    nle_method method = nle_method::fastnewt;
    std::vector<equation_row> rows;
    /// The texts of the two bound fields, used only with exactly one implicit row.
    std::string lower_bound;
    std::string upper_bound;

    friend bool operator==(const nle_content&, const nle_content&) = default;
};

/// The sign condition that the suffix of a guess cell asks for: "ap" or " p" at its very end.
sign_constraint constraint_of(std::string_view guess);
/// A guess cell without its suffix.
std::string guess_without_suffix(std::string_view guess);

/// The content with empty bounds, unless it has exactly one implicit row: the bound fields are emptied when they
/// disappear.
nle_content without_unused_bounds(nle_content content);

/// The content with another method. Any method but `constrained` strips the suffixes of the guesses, up to the first
/// row whose guess is empty.
nle_content with_method(nle_content content, nle_method method);

} // namespace kelvarin
