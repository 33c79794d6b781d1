// SPDX-License-Identifier: MIT
#include "expr/syntax_hint.h"

#include "expr/basParse.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace kelvarin
{

namespace
{

bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

std::string joined(std::string_view before, std::string_view sign, std::string_view behind)
{
    return std::string(before).append(sign).append(behind);
}

/// The token that stands so many places behind another one; null beyond the ends.
const token* neighbour(const token_list& tokens, std::size_t i, std::ptrdiff_t distance)
{
    const auto at = static_cast<std::ptrdiff_t>(i) + distance;
    return at >= 0 && at < std::ssize(tokens) ? &tokens[static_cast<std::size_t>(at)] : nullptr;
}

bool is_operand(const token* t)
{
    return t && (t->kind == token_kind::tokName || t->kind == token_kind::tokNumber);
}

std::string hint_of_double_star(const token_list& tokens, std::size_t i)
{
    const token* next = neighbour(tokens, i, 1);
    if (tokens[i].text != "*" || !next || next->text != "*") return {};
    const token* base = neighbour(tokens, i, -1);
    const token* power = neighbour(tokens, i, 2);
    if (!is_operand(base) || !is_operand(power)) return "Powers are written with ^, as in x^2.";
    return "Powers are written with ^: " + joined(base->text, "^", power->text);
}

/// `2x`: a factor and a name.
std::string hint_of_missing_star(std::string_view text)
{
    if (text.empty() || !is_digit(text.front())) return {};
    const std::size_t end = text.find_first_not_of("0123456789.");
    if (end == std::string_view::npos || !is_valid_name(text.substr(end))) return {};
    return "A product needs its sign: " + joined(text.substr(0, end), "*", text.substr(end));
}

/// `5,2`: the scanner takes comma and digits for one word, or the comma for a word of its own.
std::string hint_of_comma(std::string_view text)
{
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos || comma == 0 || comma + 1 == text.size()) return {};
    const std::string_view before = text.substr(0, comma);
    const std::string_view behind = text.substr(comma + 1);
    if (!std::ranges::all_of(before, is_digit) || !std::ranges::all_of(behind, is_digit)) return {};
    return "Decimals stand behind a point: " + joined(before, ".", behind);
}

/// A name and "=" in front of everything else.
std::string hint_of_left_side(const token_list& tokens)
{
    if (tokens.size() < 2 || tokens[0].kind != token_kind::tokName || tokens[1].text != "=") return {};
    return "Only the right side is written here: what stands behind \"" + std::string(tokens[0].text) + " =\".";
}

/// Signs that word processors and web pages put in place of those on the keyboard.
std::string hint_of_foreign_sign(std::string_view expression)
{
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 9> signs = {{{"\u2212", "-"},
                                                                                            {"\u2013", "-"},
                                                                                            {"\u00d7", "*"},
                                                                                            {"\u00b7", "*"},
                                                                                            {"\u00f7", "/"},
                                                                                            {"\u00b2", "^2"},
                                                                                            {"\u00b3", "^3"},
                                                                                            {"\u2264", "<="},
                                                                                            {"\u2265", ">="}}};
    for (const auto& [foreign, plain] : signs) {
        if (expression.find(foreign) == std::string_view::npos) continue;
        return joined("In place of \"", foreign, "\" write ").append(plain);
    }
    const std::size_t bracket = expression.find_first_of("[]{}");
    return bracket == std::string_view::npos ? std::string() : "Only ( and ) are parentheses.";
}

} // namespace

std::string syntax_hint(std::string_view expression)
{
    const token_list tokens = scan_tokens(expression);
    if (std::string hint = hint_of_left_side(tokens); !hint.empty()) return hint;
    if (std::string hint = hint_of_foreign_sign(expression); !hint.empty()) return hint;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (std::string hint = hint_of_double_star(tokens, i); !hint.empty()) return hint;
        if (std::string hint = hint_of_missing_star(tokens[i].text); !hint.empty()) return hint;
        const token* comma = neighbour(tokens, i, 1);
        const token* decimals = neighbour(tokens, i, 2);
        const std::string_view word =
            comma && decimals && comma->text == ","
                ? expression.substr(tokens[i].offset, decimals->offset + decimals->length - tokens[i].offset)
                : tokens[i].text;
        if (std::string hint = hint_of_comma(word); !hint.empty()) return hint;
    }
    return {};
}

} // namespace kelvarin
