// SPDX-License-Identifier: MIT
#include "expr/basParse.h"

#include <algorithm>

namespace kelvarin
{

namespace
{

constexpr std::string_view functions =
    " sqr sqrt sin cos tan sec cosec cotan arcsin arccos arctan arcsec arccosec arccotan ln exp log abs fix int rand "
    "sign srq sinh cosh tanh sech cosech coth arcsinh arccosh arctanh arcsech arccosech arccotanh exp2 exp10 frac "
    "fact cbrt round erf psi ";

/// The words of the equation classifiers. This list and the one above differ on purpose and stay different.
constexpr std::string_view equation_words =
    " sqr sqrt sin cos tan sec cosec cotan arcsin arccos arctan arcsec arccosec arccotan ln exp log alog abs fix int "
    "rand sign srq sinh cosh tanh sech cosech coth arcsinh arccosh arctanh arcsech arccosech arccotanh if then else "
    "erf psi ";

bool is_letter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

} // namespace

bool is_function_name(std::string_view name)
{
    const std::size_t at = functions.find(name);
    if (name.empty() || at == std::string_view::npos || at == 0) return false;
    const std::size_t behind = at + name.size();
    return functions[at - 1] == ' ' && behind < functions.size() && functions[behind] == ' ';
}

bool is_valid_name(std::string_view name)
{
    return !name.empty() && is_letter(name.front()) &&
           std::ranges::all_of(name, [](char c) { return is_letter(c) || is_digit(c) || c == '_'; });
}

bool is_equation_word(std::string_view name)
{
    // Most names hold something that no word does, such as a digit.
    const auto stands_in_list = [](char c) { return (c >= 'a' && c <= 'z') || c == ' '; };
    if (!std::ranges::all_of(name, stands_in_list)) return false;
    // A word is surrounded by blanks in the list, and no name holds a blank.
    for (std::size_t at = equation_words.find(name); at != std::string_view::npos && !name.empty();
         at = equation_words.find(name, at + 1)) {
        const std::size_t behind = at + name.size();
        if (at > 0 && equation_words[at - 1] == ' ' && behind < equation_words.size() && equation_words[behind] == ' ')
            return true;
    }
    return false;
}

std::string_view function_list()
{
    return functions;
}

} // namespace kelvarin
