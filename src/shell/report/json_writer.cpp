// SPDX-License-Identifier: MIT
#include "shell/report/json_writer.h"

#include "platform/utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include <nlohmann/json.hpp>

namespace kelvarin
{

namespace
{

/// The letter of a character's short escape after the backslash; 0 if it has none.
constexpr char short_escape(char c)
{
    switch (c) {
    case '"':
    case '\\':
        return c;
    case '\b':
        return 'b';
    case '\f':
        return 'f';
    case '\n':
        return 'n';
    case '\r':
        return 'r';
    case '\t':
        return 't';
    default:
        return 0;
    }
}

enum class byte_treatment : char
{
    as_it_is,
    escaped,
    /// Part of a multi-byte character, if the text is UTF-8.
    beyond_ascii
};

constexpr auto treatments = [] {
    std::array<byte_treatment, 256> made{};
    for (std::size_t i = 0; i < made.size(); ++i) {
        if (i >= 0x80)
            made[i] = byte_treatment::beyond_ascii;
        else if (i < 0x20 || short_escape(static_cast<char>(i)) != 0)
            made[i] = byte_treatment::escaped;
    }
    return made;
}();

byte_treatment treatment_of(char c)
{
    return treatments[static_cast<unsigned char>(c)];
}

void append_escaped(std::string& text, char c)
{
    static constexpr std::string_view digits = "0123456789abcdef";
    text += '\\';
    if (const char letter = short_escape(c); letter != 0) {
        text += letter;
        return;
    }
    text += "u00";
    text += digits[static_cast<unsigned char>(c) / 16];
    text += digits[static_cast<unsigned char>(c) % 16];
}

} // namespace

void json_writer::separate()
{
    if (!stands_alone_) text_.append(line_end_, is_first_ ? 1 : 0);
    is_first_ = stands_alone_ = false;
}

void json_writer::begin(char bracket)
{
    separate();
    text_ += bracket;
    line_end_.append(step, ' ');
    is_first_ = true;
}

void json_writer::end(char bracket)
{
    line_end_.resize(line_end_.size() - step);
    if (!is_first_) text_.append(line_end_, 1);
    text_ += bracket;
    is_first_ = false;
}

void json_writer::key(std::string_view name)
{
    separate();
    text_.append(1, '"').append(name).append("\": ");
    stands_alone_ = true;
}

void json_writer::value(std::string_view text)
{
    separate();
    const std::size_t before = text_.size();
    text_ += '"';
    bool beyond_ascii = false;
    for (std::size_t start = 0; start < text.size();) {
        std::size_t end = start;
        while (end < text.size() && treatment_of(text[end]) != byte_treatment::escaped) {
            beyond_ascii |= treatment_of(text[end]) == byte_treatment::beyond_ascii;
            ++end;
        }
        text_.append(text, start, end - start);
        if (end < text.size()) append_escaped(text_, text[end++]);
        start = end;
    }
    text_ += '"';
    if (!beyond_ascii || is_utf8(text)) return;
    // Invalid UTF-8 is rare and left to the library, which replaces it.
    text_.resize(before);
    text_ += nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

void json_writer::value(bool truth)
{
    separate();
    text_ += truth ? "true" : "false";
}

void json_writer::value(std::int64_t number)
{
    separate();
    std::array<char, 24> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    text_.append(digits.data(), end);
}

void json_writer::value(std::span<const std::string> texts)
{
    begin_array();
    for (const std::string& text : texts)
        value(text);
    end_array();
}

void json_writer::value(double number)
{
    if (!std::isfinite(number)) return null();
    separate();
    // The library decides on the form and chooses among equally short digits.
    std::array<char, 64> digits;
    const char* const begin = digits.data();
    const char* const end = nlohmann::detail::to_chars(digits.data(), digits.data() + digits.size(), number);
    text_.append(begin, end);
}

void json_writer::value(std::span<const double> numbers)
{
    begin_array();
    for (const double number : numbers)
        value(number);
    end_array();
}

void json_writer::null()
{
    separate();
    text_ += "null";
}

void json_writer::raw(std::string_view text)
{
    separate();
    text_ += text;
}

} // namespace kelvarin
