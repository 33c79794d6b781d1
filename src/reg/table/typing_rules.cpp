// SPDX-License-Identifier: MIT
#include "reg/table/typing_rules.h"

#include "platform/run_time_text.h"
#include "platform/text_file.h"

namespace kelvarin
{

namespace
{

constexpr std::string_view exponent_letters = "Ee";

bool ends_in_exponent_letter(std::string_view text)
{
    return !text.empty() && exponent_letters.find(text.back()) != std::string_view::npos;
}

/// Whether a key may be appended.
bool may_follow(std::string_view text, char key)
{
    switch (key) {
    case '.':
        return text.find_first_of(".eE") == std::string_view::npos;
    case '-':
        return text.empty() || ends_in_exponent_letter(text);
    case '+':
        return ends_in_exponent_letter(text);
    case 'e':
    case 'E':
        return !text.empty() && text != "." && text.find_first_of(exponent_letters) == std::string_view::npos;
    default:
        return key >= '0' && key <= '9';
    }
}

/// Characters of several bytes go as a whole.
void remove_last_character(std::string& text)
{
    constexpr unsigned char continuation_mask = 0xC0;
    constexpr unsigned char continuation = 0x80;
    while (!text.empty()) {
        const auto byte = static_cast<unsigned char>(text.back());
        text.pop_back();
        if ((byte & continuation_mask) != continuation) return;
    }
}

} // namespace

std::optional<typed_text> typed_key(std::string_view text, char key, bool first)
{
    if (key == backspace_key) {
        typed_text typed = {std::string(text), false};
        remove_last_character(typed.text);
        return typed;
    }
    // Digits behind a text would make no number.
    if (first && !is_numeric(text)) text = {};
    if (!may_follow(text, key)) return std::nullopt;
    return typed_text{std::string(text) + key, key == '.' || (key >= '0' && key <= '9')};
}

std::string entered_text(std::string_view text)
{
    if (ends_in_exponent_letter(text)) text.remove_suffix(1);
    return std::string(text);
}

std::optional<std::string> followed_text(std::string_view line)
{
    const std::optional<double> value = numeric_value(line);
    if (!value) return std::nullopt;
    return plain_text(*value);
}

std::optional<std::string> accepted_text(std::string_view line)
{
    if (trimmed(line).empty()) return std::string();
    return followed_text(line);
}

std::optional<std::string> converted_text(std::string_view line)
{
    const std::optional<double> value = prefix_value(line);
    if (!value) return std::nullopt;
    return plain_text(*value);
}

} // namespace kelvarin
