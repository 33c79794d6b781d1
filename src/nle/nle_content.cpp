// SPDX-License-Identifier: MIT
#include "nle/nle_content.h"

#include "platform/text_file.h"
#include "shell/document/method_items.h"

#include <algorithm>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr std::string_view positive_suffix = " p";
constexpr std::string_view absolute_suffix = "ap";

} // namespace

std::string_view method_text(nle_method method)
{
    return nle_method_items[static_cast<std::size_t>(method)];
}

std::optional<nle_method> method_named(std::string_view text)
{
    const std::optional<std::size_t> item = method_item_named(text, nle_method_items);
    if (!item) return std::nullopt;
    return static_cast<nle_method>(*item);
}

sign_constraint constraint_of(std::string_view guess)
{
    if (guess.ends_with(absolute_suffix)) return sign_constraint::absolutely_positive;
    if (guess.ends_with(positive_suffix)) return sign_constraint::physically_positive;
    return sign_constraint::any;
}

std::string guess_without_suffix(std::string_view guess)
{
    std::size_t end = guess.find(absolute_suffix);
    if (end == std::string_view::npos) end = guess.find('p');
    return end == std::string_view::npos ? std::string(guess) : std::string(trimmed(guess.substr(0, end)));
}

nle_content without_unused_bounds(nle_content content)
{
    const auto is_unknown = [](const equation_row& row) { return is_implicit(row.equation, nle_row_form); };
    if (std::ranges::count_if(content.rows, is_unknown) != 1) {
        content.lower_bound.clear();
        content.upper_bound.clear();
    }
    return content;
}

nle_content with_method(nle_content content, nle_method method)
{
    content.method = method;
    if (method == nle_method::constrained) return content;
    for (equation_row& row : content.rows) {
        if (trimmed(row.guess).empty()) break;
        row.guess = guess_without_suffix(row.guess);
    }
    return content;
}

} // namespace kelvarin
