// SPDX-License-Identifier: MIT
#include "platform/utf8.h"

namespace kelvarin
{

namespace
{

constexpr bool is_letter_code(char32_t code)
{
    return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

} // namespace

std::optional<utf8_letter> first_utf8_letter(std::string_view text)
{
    if (text.empty()) return std::nullopt;
    const auto lead = static_cast<unsigned char>(text.front());
    if (lead < 0x80) return utf8_letter{lead, 1};

    utf8_letter letter;
    char32_t least = 0;
    if ((lead & 0xE0) == 0xC0)
        letter = {lead & 0x1Fu, 2}, least = 0x80;
    else if ((lead & 0xF0) == 0xE0)
        letter = {lead & 0x0Fu, 3}, least = 0x800;
    else if ((lead & 0xF8) == 0xF0)
        letter = {lead & 0x07u, 4}, least = 0x10000;
    else
        return std::nullopt;
    if (text.size() < letter.length) return std::nullopt;
    for (std::size_t at = 1; at < letter.length; ++at) {
        const auto next = static_cast<unsigned char>(text[at]);
        if ((next & 0xC0) != 0x80) return std::nullopt;
        letter.code = letter.code << 6 | (next & 0x3Fu);
    }
    if (letter.code < least || !is_letter_code(letter.code)) return std::nullopt;
    return letter;
}

bool is_utf8(std::string_view bytes)
{
    while (!bytes.empty()) {
        if (static_cast<unsigned char>(bytes.front()) < 0x80) {
            bytes.remove_prefix(1);
            continue;
        }
        const std::optional<utf8_letter> letter = first_utf8_letter(bytes);
        if (!letter) return false;
        bytes.remove_prefix(letter->length);
    }
    return true;
}

void append_utf8(std::string& text, char32_t code)
{
    if (!is_letter_code(code)) code = 0xFFFD;
    const auto tail = [code](int shift) { return static_cast<char>(0x80 | (code >> shift & 0x3F)); };
    if (code < 0x80)
        text += static_cast<char>(code);
    else if (code < 0x800) {
        text += static_cast<char>(0xC0 | code >> 6);
        text += tail(0);
    } else if (code < 0x10000) {
        text += static_cast<char>(0xE0 | code >> 12);
        text += tail(6);
        text += tail(0);
    } else {
        text += static_cast<char>(0xF0 | code >> 18);
        text += tail(12);
        text += tail(6);
        text += tail(0);
    }
}

} // namespace kelvarin
