// SPDX-License-Identifier: MIT
#include "shell/report/rich_text_scanner.h"

#include "platform/utf8.h"

#include <algorithm>
#include <array>

namespace kelvarin
{

namespace
{

constexpr bool is_digit(char byte)
{
    return byte >= '0' && byte <= '9';
}
constexpr bool is_plain_byte(char byte)
{
    return byte >= 0x20 && byte < 0x7F && byte != '\\' && byte != '{' && byte != '}';
}

std::optional<int> hex_digit(char byte)
{
    if (is_digit(byte)) return byte - '0';
    if (byte >= 'a' && byte <= 'f') return byte - 'a' + 10;
    if (byte >= 'A' && byte <= 'F') return byte - 'A' + 10;
    return std::nullopt;
}

} // namespace

char32_t ansi_letter(unsigned char byte)
{
    // Code page 1252 in the range of Latin-1's controls, 0x80 to 0x9f. Its five gaps are as in Latin-1.
    constexpr std::size_t first = 0x80;
    constexpr std::array<char16_t, 32> letters = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                  0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                  0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                  0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
    const bool has_own_letter = byte >= first && byte < first + letters.size();
    return has_own_letter ? letters[byte - first] : static_cast<char32_t>(byte);
}

void rich_text_scanner::skip_bytes(std::optional<int> count)
{
    const auto wanted = static_cast<std::size_t>(std::max(count.value_or(0), 0));
    at_ += std::min(wanted, document_.size() - at_);
}

std::string_view rich_text_scanner::take_plain()
{
    const std::size_t first = at_;
    while (!at_end() && is_plain_byte(peek()))
        ++at_;
    return document_.substr(first, at_ - first);
}

char32_t rich_text_scanner::take_letter()
{
    const auto byte = static_cast<unsigned char>(peek());
    const utf8_letter letter = first_utf8_letter(document_.substr(at_)).value_or(utf8_letter{byte, 1});
    at_ += letter.length;
    return letter.code;
}

control_word rich_text_scanner::take_word()
{
    constexpr int largest_parameter = 1 << 24;
    control_word word;
    const std::size_t first = at_;
    while (!at_end() && is_letter(peek()))
        ++at_;
    word.name = document_.substr(first, at_ - first);
    const bool negative = at_ + 1 < document_.size() && peek() == '-' && is_digit(document_[at_ + 1]);
    if (negative) ++at_;
    if (!at_end() && is_digit(peek())) {
        int number = 0;
        for (; !at_end() && is_digit(peek()); ++at_)
            number = std::min(number * 10 + (peek() - '0'), largest_parameter);
        word.parameter = negative ? -number : number;
    }
    if (!at_end() && peek() == ' ') ++at_;
    return word;
}

std::optional<unsigned char> rich_text_scanner::take_hex()
{
    const auto digit = [this](std::size_t place) {
        return place < document_.size() ? hex_digit(document_[place]) : std::nullopt;
    };
    const std::optional<int> high = digit(at_);
    const std::optional<int> low = digit(at_ + 1);
    if (!high || !low) return std::nullopt;
    at_ += 2;
    return static_cast<unsigned char>(*high * 16 + *low);
}

std::string_view rich_text_scanner::take_group()
{
    const std::size_t first = at_;
    std::size_t depth = 0;
    while (!at_end()) {
        const char byte = peek();
        if (byte == '\\') {
            skip_control();
            continue;
        }
        if (byte == '}' && depth == 0) break;
        if (byte == '{') ++depth;
        if (byte == '}') --depth;
        ++at_;
    }
    return document_.substr(first, at_ - first);
}

void rich_text_scanner::skip_control()
{
    ++at_;
    if (at_end()) return;
    if (!is_letter(peek())) {
        ++at_;
        return;
    }
    // Binary data may contain braces.
    if (const control_word word = take_word(); word.name == "bin") skip_bytes(word.parameter);
}

} // namespace kelvarin
