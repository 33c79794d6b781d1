// SPDX-License-Identifier: MIT
#include "expr/basParse.h"
#include "platform/text_file.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstdint>
#include <unordered_set>

namespace kelvarin
{

namespace
{

/// More tokens than this could not be counted; the text is refused as a whole.
constexpr std::size_t most_tokens = 32767;

/// Why a text is refused, and where.
struct complaint
{
    std::string text;
    std::optional<byte_range> place;
};

using finding = std::optional<complaint>;

bool is_operator(const token& t)
{
    return t.kind == token_kind::tokOperator;
}
bool is_name(const token& t)
{
    return t.kind == token_kind::tokName;
}
bool is_number(const token& t)
{
    return t.kind == token_kind::tokNumber;
}
bool is_verb(const token& t)
{
    return t.kind == token_kind::tokVerb;
}
bool is_boolean(const token& t)
{
    return t.kind == token_kind::tokBoolean;
}

std::string lower_case(std::string_view text)
{
    std::string lowered(text);
    for (char& c : lowered)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    return lowered;
}

byte_range range_of(const token& t)
{
    return {t.offset, t.length};
}

byte_range range_of(const token& a, const token& b)
{
    return {a.offset, b.offset + b.length - a.offset};
}

complaint about(const token& t, std::string_view sentence)
{
    return {std::string(sentence), range_of(t)};
}

/// The sentence with the pair behind it, as in "...; x y".
complaint about(const token& a, const token& b, std::string_view sentence)
{
    std::string text(sentence);
    text.append(a.text).append(" ").append(b.text);
    return {std::move(text), range_of(a, b)};
}

complaint quoting(const token& t, std::string_view sentence)
{
    std::string text(sentence);
    text.append("'").append(t.text).append("'");
    return {std::move(text), range_of(t)};
}

/// The first neighbours for which `holds`, as the index of the left one.
template <class Predicate> std::optional<std::size_t> first_pair(const token_list& tokens, Predicate holds)
{
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i)
        if (holds(tokens[i], tokens[i + 1])) return i;
    return std::nullopt;
}

template <class Predicate>
finding about_first_pair(const token_list& tokens, std::string_view sentence, Predicate holds)
{
    const auto at = first_pair(tokens, holds);
    if (!at) return std::nullopt;
    return about(tokens[*at], tokens[*at + 1], sentence);
}

template <class Predicate> const token* first_token(const token_list& tokens, Predicate holds)
{
    const auto at = std::ranges::find_if(tokens, holds);
    return at == tokens.end() ? nullptr : &*at;
}

// ------------------------------------------------------------------ the checks, in groups and in order

/// Checks 2 and 3: how the text begins.
finding check_beginning(const token_list& tokens)
{
    static constexpr std::string_view not_in_front = "^*/)";
    if (tokens.empty()) return complaint{"cannot begin with an operator (except -)", std::nullopt};
    if (not_in_front.find(tokens.front().text) != std::string_view::npos)
        return about(tokens.front(), "cannot begin with an operator (except -)");
    if (is_boolean(tokens.front())) return about(tokens.front(), "cannot begin with a boolean operator");
    return std::nullopt;
}

/// The number of bytes of the character at the front: a whole UTF-8 sequence, or one byte.
std::size_t character_length(std::string_view text)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const std::size_t length = byte(0) < 0xC2 ? 1 : byte(0) < 0xE0 ? 2 : byte(0) < 0xF0 ? 3 : byte(0) < 0xF5 ? 4 : 1;
    if (length > text.size()) return 1;
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(i) & 0xC0) != 0x80) return 1;
    return length;
}

bool may_stand_in_expressions(char c)
{
    static constexpr auto table = [] {
        std::array<bool, 256> allowed{};
        for (const char each :
             std::string_view("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789 _.+-/*^()><="))
            allowed[static_cast<unsigned char>(each)] = true;
        return allowed;
    }();
    return table[static_cast<unsigned char>(c)];
}

/// Checks 4 to 6 look at the raw text.
finding check_raw_text(std::string_view text)
{
    const auto odd = std::ranges::find_if_not(text, may_stand_in_expressions);
    if (odd != text.end()) {
        const auto at = static_cast<std::size_t>(odd - text.begin());
        const std::size_t length = character_length(text.substr(at));
        return complaint{"invalid character '" + to_utf8(text.substr(at, length)) + "'", byte_range{at, length}};
    }
    if (const std::size_t at = text.find(")("); at != std::string_view::npos)
        return complaint{"missing operator between parantheses ') ('", byte_range{at, 2}};
    if (const std::size_t at = text.find("()"); at != std::string_view::npos)
        return complaint{"missing expression between parantheses '( )'", byte_range{at, 2}};
    return std::nullopt;
}

bool is_sequenced_operator(const token& t)
{
    // All operators but parentheses.
    return is_operator(t) && t.text.front() != '(' && t.text.front() != ')';
}

/// Checks 7 to 10 share one pass: the leftmost pair decides.
finding check_neighbours(const token_list& tokens)
{
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
        const token& a = tokens[i];
        const token& b = tokens[i + 1];
        if (is_sequenced_operator(a) && is_sequenced_operator(b))
            return about(a, b, "two operators in sequence not allowed; ");
        if (is_boolean(a) && is_boolean(b)) return about(a, b, "two boolean operators in sequence not allowed; ");
        if (is_name(a) && is_name(b)) return about(a, b, "missing operator between variables; ");
        if (a.text == ")" && is_name(b))
            return about(a, b, "function or variable name not allowed after closing parantheses; ");
    }
    return std::nullopt;
}

/// Check 11.
finding check_unknown_functions(const token_list& tokens)
{
    const auto at = first_pair(tokens, [](const token& a, const token& b) { return a.is_variable() && b.text == "("; });
    if (!at) return std::nullopt;
    return quoting(tokens[*at], "unknown function ");
}

/// Checks 12 and 13.
finding check_parentheses_balance(const token_list& tokens)
{
    const auto opened = std::ranges::count(tokens, std::string_view("("), &token::text);
    const auto closed = std::ranges::count(tokens, std::string_view(")"), &token::text);
    if (opened > closed) return complaint{"unequal number of parantheses. Too many '('", std::nullopt};
    if (closed > opened) return complaint{"unequal number of parantheses. Too many ')'", std::nullopt};
    return std::nullopt;
}

/// Checks 14 and 15: malformed names, functions without an argument.
finding check_names(const token_list& tokens)
{
    const token* malformed =
        first_token(tokens, [](const token& t) { return t.is_variable() && !is_valid_name(t.text); });
    if (malformed) return quoting(*malformed, "invalid number ");
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const bool called = i + 1 < tokens.size() && tokens[i + 1].text == "(";
        if (tokens[i].is_function() && !called)
            return about(tokens[i], "missing '(' after a function or function name is used as a variable name." +
                                        std::string(tokens[i].text));
    }
    return std::nullopt;
}

/// Checks 16 to 19, a pass each.
finding check_missing_operators(const token_list& tokens)
{
    static constexpr std::string_view sentence = "missing operator; ";
    using pair_test = bool (*)(const token&, const token&);
    static constexpr std::array<pair_test, 4> passes = {
        [](const token& a, const token& b) { return is_number(a) && b.text == "("; },
        [](const token& a, const token& b) { return a.text == ")" && is_number(b); },
        [](const token& a, const token& b) { return (is_number(a) && is_name(b)) || (is_name(a) && is_number(b)); },
        [](const token& a, const token& b) { return is_number(a) && is_number(b); },
    };
    for (const pair_test test : passes)
        if (auto found = about_first_pair(tokens, sentence, test)) return found;
    return std::nullopt;
}

/// Checks 20 and 21: how the text ends.
finding check_ending(const token_list& tokens)
{
    static constexpr std::string_view not_at_end = "+-/*^";
    const token& last = tokens.back();
    if (not_at_end.find(last.text) != std::string_view::npos || is_boolean(last))
        return about(last, "extra operator at the end of the expression; " + std::string(last.text));
    if (is_verb(last)) return quoting(last, "expression cannot end with ");
    return std::nullopt;
}

/// Checks 22 and 23: the verbs' numbers, in any case.
finding check_verb_counts(const token_list& tokens)
{
    std::ptrdiff_t ifs = 0, thens = 0, elses = 0;
    for (const token& t : tokens) {
        if (!is_verb(t)) continue;
        const std::string word = lower_case(t.text);
        ++(word == "if" ? ifs : word == "then" ? thens : elses);
    }
    if (ifs != thens) return complaint{"unequal number of 'if' and 'then' statements", std::nullopt};
    if (elses != thens) return complaint{"unequal number of 'then' and 'else' statements", std::nullopt};
    return std::nullopt;
}

/// Checks 24 and 25: the verbs' order, compared exactly.
finding check_verb_order(const token_list& tokens)
{
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (tokens[i].text != "if") continue;
        const auto next = std::find_if(tokens.begin() + static_cast<std::ptrdiff_t>(i) + 1, tokens.end(), is_verb);
        if (next == tokens.end() || next->text != "then")
            return about(tokens[i], "the 'then' verb must follow the 'if' verb");
    }
    const auto at = first_pair(tokens, [](const token& a, const token& b) {
        const bool chained = (a.text == "then" || a.text == "else") && b.text == "if";
        return is_verb(a) && is_verb(b) && !chained;
    });
    if (!at) return std::nullopt;
    const token& a = tokens[*at];
    const token& b = tokens[*at + 1];
    return complaint{"no elemets found between " + std::string(a.text) + "/" + std::string(b.text) + " verbs",
                     range_of(a, b)};
}

/// Checks 26 to 28: assignments, undefined names, empty parentheses with blanks.
finding check_remainder(const token_list& tokens, const clsParse* defined)
{
    if (const token* t = first_token(tokens, [](const token& each) { return each.text == "="; }))
        return about(*t, "only '==' is valid for equation conditioning operator ('=' is invalid)");
    if (defined) {
        const token* t = first_token(tokens, [&](const token& each) {
            return each.is_variable() && is_valid_name(each.text) && !defined->var_exists(each.text);
        });
        if (t) return quoting(*t, "variable name not defined ");
    }
    const auto at = first_pair(tokens, [](const token& a, const token& b) { return a.text == "(" && b.text == ")"; });
    if (!at) return std::nullopt;
    return complaint{"missing expression between parantheses '( )'", range_of(tokens[*at], tokens[*at + 1])};
}

finding first_complaint(std::string_view text, const token_list& tokens, const clsParse* defined)
{
    if (text.empty()) return complaint{"No expression entered.", std::nullopt};
    if (tokens.size() > most_tokens) return complaint{"Expression could not be evaluated.", std::nullopt};
    if (auto found = check_beginning(tokens)) return found;
    if (auto found = check_raw_text(text)) return found;
    if (auto found = check_neighbours(tokens)) return found;
    if (auto found = check_unknown_functions(tokens)) return found;
    if (auto found = check_parentheses_balance(tokens)) return found;
    if (auto found = check_names(tokens)) return found;
    if (auto found = check_missing_operators(tokens)) return found;
    if (auto found = check_ending(tokens)) return found;
    if (std::ranges::any_of(tokens, is_verb)) {
        if (auto found = check_verb_counts(tokens)) return found;
        if (auto found = check_verb_order(tokens)) return found;
    }
    return check_remainder(tokens, defined);
}

// ------------------------------------------------------------------ texts that need none of the checks

/// What a token is beside its neighbours, as far as most texts go.
enum class part : std::uint8_t
{
    sign,
    opening,
    closing,
    variable,
    function,
    number,
    /// Verbs, booleans and assignments: the checks decide.
    other
};

part part_of(const token& t)
{
    switch (t.kind) {
    case token_kind::tokNumber:
        return part::number;
    case token_kind::tokName:
        return t.is_function() ? part::function : part::variable;
    case token_kind::tokOperator:
        if (t.text == "(") return part::opening;
        if (t.text == ")") return part::closing;
        return t.text == "=" ? part::other : part::sign;
    case token_kind::tokBoolean:
    case token_kind::tokVerb:
        break;
    }
    return part::other;
}

constexpr bool ends_operand(part p)
{
    return p == part::closing || p == part::variable || p == part::number;
}

constexpr bool begins_operand(part p)
{
    return p == part::opening || p == part::variable || p == part::function || p == part::number;
}

/// Whether no check can find fault with two neighbours. A minus in front is for the checks to decide.
constexpr bool are_plain_neighbours(part a, part b)
{
    if (ends_operand(a)) return b == part::sign || b == part::closing;
    if (a == part::function) return b == part::opening;
    return (a == part::sign || a == part::opening) && begins_operand(b);
}

/// Whether one look at each token is enough to see that checks 1 to 28 accept the text, which they do with nearly all
/// texts. False decides nothing.
bool is_plainly_right(std::string_view text, const token_list& tokens, std::span<const std::string_view> names,
                      const clsParse* defined)
{
    if (tokens.empty() || tokens.size() > most_tokens || !std::ranges::all_of(text, may_stand_in_expressions))
        return false;
    part before = part_of(tokens.front());
    if (!begins_operand(before)) return false;
    std::ptrdiff_t open = before == part::opening ? 1 : 0;
    for (std::size_t i = 1; i < tokens.size(); ++i) {
        const part here = part_of(tokens[i]);
        if (!are_plain_neighbours(before, here)) return false;
        if (here == part::opening) ++open;
        if (here == part::closing) --open;
        before = here;
    }
    if (open != 0 || !ends_operand(before)) return false;
    return std::ranges::all_of(names, [&](std::string_view name) {
        return is_valid_name(name) && (defined == nullptr || defined->var_exists(name));
    });
}

#ifdef KELVARIN_CHECKED
constexpr bool compares_checks = true;
#else
[[maybe_unused]] constexpr bool compares_checks = false;
#endif

} // namespace

std::vector<std::string_view> collect_variable_names(std::span<const token> tokens)
{
    constexpr std::size_t few = 16; // up to here comparing is faster than hashing
    std::vector<std::string_view> names;
    names.reserve(std::min(tokens.size(), few));
    std::unordered_set<std::string_view> seen;
    for (const token& t : tokens) {
        if (!t.is_variable()) continue;
        const bool known =
            names.size() <= few ? std::ranges::find(names, t.text) != names.end() : seen.contains(t.text);
        if (known) continue;
        names.push_back(t.text);
        if (names.size() == few + 1)
            seen.insert(names.begin(), names.end());
        else if (names.size() > few)
            seen.insert(t.text);
    }
    return names;
}

check_result check_expression(std::string_view text, const clsParse* defined)
{
    check_result result;
    result.tokens = scan_tokens(text);
    result.names = collect_variable_names(result.tokens);
    if (is_plainly_right(text, result.tokens, result.names, defined)) {
        assert(!compares_checks || !first_complaint(text, result.tokens, defined));
        result.ok = true;
    } else if (auto found = first_complaint(text, result.tokens, defined)) {
        result.message = "Syntax Error: " + found->text;
        result.place = found->place;
    } else {
        result.ok = true;
    }
    return result;
}

} // namespace kelvarin
