// SPDX-License-Identifier: MIT
#include "expr/basParse.h"
#include "platform/run_time_text.h"

#include <algorithm>
#include <array>

namespace kelvarin
{

namespace
{

constexpr std::string_view operator_characters = "+-/*^()><=";
constexpr std::array<std::string_view, 7> merged_comparisons = {">=", "<=", "><", "<>", "==", "=>", "=<"};

bool is_operator_character(char c)
{
    static constexpr auto table = [] {
        std::array<bool, 256> marked{};
        for (const char each : operator_characters)
            marked[static_cast<unsigned char>(each)] = true;
        return marked;
    }();
    return table[static_cast<unsigned char>(c)];
}

/// What an operator of one character computes.
operation_code operator_of_character(char c)
{
    static const auto table = [] {
        std::array<operation_code, 256> codes{};
        for (const char& each : operator_characters)
            codes[static_cast<unsigned char>(each)] = operator_of({&each, 1});
        return codes;
    }();
    return table[static_cast<unsigned char>(c)];
}

bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

/// Whether the character at `i` is the sign of an exponent. Only the raw characters around it count, so
/// `1e-3` is one number, `xe-3` a subtraction, and `k2e-3` one malformed number.
bool is_exponent_sign(std::string_view text, std::size_t i)
{
    if ((text[i] != '+' && text[i] != '-') || i < 2 || i + 1 >= text.size()) return false;
    const bool after_letter = text[i - 1] == 'e' || text[i - 1] == 'E';
    const bool after_mantissa = is_digit(text[i - 2]) || text[i - 2] == '.';
    return after_letter && after_mantissa && is_digit(text[i + 1]);
}

/// Equal without case to a word in lower case.
bool is_word(std::string_view text, std::string_view word)
{
    if (text.size() != word.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i)
        if ((text[i] | 0x20) != word[i]) return false;
    return true;
}

/// The value of a text of few digits, which needs no general reading of numbers.
std::optional<double> short_whole_number(std::string_view text)
{
    constexpr std::size_t exact_digits = 15;
    if (text.size() > exact_digits) return std::nullopt;
    std::int64_t value = 0;
    for (const char c : text) {
        if (!is_digit(c)) return std::nullopt;
        value = value * 10 + (c - '0');
    }
    return static_cast<double>(value);
}

/// The kind of a word of the language that is no function, or of a name.
token_kind kind_of_word(std::string_view text)
{
    switch (text.size()) {
    case 2:
        if (is_word(text, "or")) return token_kind::tokBoolean;
        return is_word(text, "if") ? token_kind::tokVerb : token_kind::tokName;
    case 3:
        return is_word(text, "and") ? token_kind::tokBoolean : token_kind::tokName;
    case 4:
        return is_word(text, "then") || is_word(text, "else") ? token_kind::tokVerb : token_kind::tokName;
    default:
        return token_kind::tokName;
    }
}

/// Sets the kind of a token and what comes with it: a number's value, a function's operation.
void classify(token& t)
{
    const char first = t.text.front();
    if (is_digit(first) || first == '.') {
        auto number = short_whole_number(t.text);
        if (!number) number = numeric_value(t.text);
        if (number) {
            t.kind = token_kind::tokNumber;
            t.value = *number;
            return;
        }
    }
    if (t.text.size() == 1 && is_operator_character(first)) {
        t.kind = token_kind::tokOperator;
        t.operation = operator_of_character(first);
        return;
    }
    t.kind = kind_of_word(t.text);
    // OR and AND in other letters bind nothing.
    if (t.kind == token_kind::tokBoolean) t.operation = operator_of(t.text);
    if (t.kind == token_kind::tokName) t.operation = function_of(t.text);
}

void add_token(token_list& tokens, std::string_view text, std::size_t from, std::size_t to)
{
    token& made = tokens.emplace_back();
    made.text = text.substr(from, to - from);
    made.offset = from;
    made.length = to - from;
    classify(made);
}

/// Splits the text into tokens, comparisons still in single characters.
token_list split(std::string_view text)
{
    token_list tokens;
    tokens.reserve(text.size() / 2 + 4);
    std::size_t start = 0; // of the pending token
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == ' ') {
            if (i > start) add_token(tokens, text, start, i);
            while (i + 1 < text.size() && text[i + 1] == ' ')
                ++i;
            start = i + 1;
        } else if (is_operator_character(text[i]) && !is_exponent_sign(text, i)) {
            if (i > start) add_token(tokens, text, start, i);
            add_token(tokens, text, i, i + 1);
            start = i + 1;
        }
    }
    if (start < text.size()) add_token(tokens, text, start, text.size());
    return tokens;
}

/// The merged comparison that two operator tokens spell together, or nothing.
std::string_view merged(const token& a, const token& b)
{
    if (a.kind != token_kind::tokOperator || b.kind != token_kind::tokOperator) return {};
    if (a.text.size() != 1 || b.text.size() != 1) return {};
    for (std::string_view comparison : merged_comparisons)
        if (comparison[0] == a.text[0] && comparison[1] == b.text[0]) return comparison;
    return {};
}

/// Whether the text holds two characters of comparisons; most have none.
bool may_hold_comparison(std::string_view text)
{
    return std::ranges::count_if(text, [](char c) { return c >= '<' && c <= '>'; }) > 1;
}

/// Merges from the left. One pass does: a merged token never takes a third character.
void merge_comparisons(token_list& tokens)
{
    std::size_t kept = 0;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        token& here = tokens[kept++] = tokens[i];
        if (i + 1 == tokens.size()) break;
        const std::string_view comparison = merged(here, tokens[i + 1]);
        if (comparison.empty()) continue;
        here.text = comparison;
        here.length = tokens[i + 1].offset + 1 - here.offset;
        here.operation = operator_of(comparison);
        ++i;
    }
    tokens.resize(kept);
}

} // namespace

token_list scan_tokens(std::string_view text)
{
    token_list tokens = split(text);
    if (may_hold_comparison(text)) merge_comparisons(tokens);
    return tokens;
}

} // namespace kelvarin
