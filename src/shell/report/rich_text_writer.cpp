// SPDX-License-Identifier: MIT
#include "shell/report/rich_text.h"

#include "platform/text_file.h"
#include "platform/utf8.h"
#include "shell/report/rich_text_tables.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace kelvarin
{

namespace
{

const std::string& document_head()
{
    static const std::string head = R"({\rtf1\ansi\deff0\deftab)" + std::to_string(tab_distance) + R"({\fonttbl)" +
                                    std::string(report_font_group) + R"(}{\colortbl)" +
                                    std::string(report_colour_group) + R"(}\plain\f3\fs18)";
    return head;
}
constexpr std::string_view document_tail = R"(\par })";

constexpr bool stands_for_itself(char letter)
{
    return letter >= 0x20 && letter < 0x7F && letter != '{' && letter != '}' && letter != '\\';
}

/// Appends one \u escape; its number is signed 16-bit, and readers without Unicode show the "?".
void append_unit(std::string& text, char16_t unit)
{
    text += "\\u";
    text += std::to_string(static_cast<std::int16_t>(unit));
    text += '?';
}

void append_escaped_letter(std::string& text, char32_t code)
{
    constexpr char32_t first_pair = 0x10000;
    if (code < first_pair) {
        append_unit(text, static_cast<char16_t>(code));
        return;
    }
    const char32_t offset = code - first_pair;
    append_unit(text, static_cast<char16_t>(0xD800 + (offset >> 10)));
    append_unit(text, static_cast<char16_t>(0xDC00 + (offset & 0x3FF)));
}

void append_padded(std::string& text, int number, std::size_t width)
{
    const std::string digits = std::to_string(number);
    if (digits.size() < width) text.append(width - digits.size(), '0');
    text += digits;
}

} // namespace

std::string escape_rich_text(std::string_view text)
{
    std::string escaped;
    escaped.reserve(text.size() + text.size() / 8);
    while (!text.empty()) {
        const auto special = std::ranges::find_if_not(text, stands_for_itself);
        escaped.append(text.begin(), special);
        text.remove_prefix(static_cast<std::size_t>(special - text.begin()));
        if (text.empty()) break;
        const auto byte = static_cast<unsigned char>(text.front());
        if (byte < 0x80) {
            if (byte == '{' || byte == '}' || byte == '\\') escaped += '\\';
            escaped += byte < 0x20 || byte == 0x7F ? ' ' : static_cast<char>(byte);
            text.remove_prefix(1);
            continue;
        }
        // An invalid byte is read as Latin-1, as in files.
        const utf8_letter letter = first_utf8_letter(text).value_or(utf8_letter{byte, 1});
        append_escaped_letter(escaped, letter.code);
        text.remove_prefix(letter.length);
    }
    return escaped;
}

std::string rich_text_document(std::string_view body)
{
    std::string document;
    const std::string& head = document_head();
    document.reserve(head.size() + body.size() + document_tail.size());
    document += head;
    document += body;
    document += document_tail;
    return document;
}

std::string_view program_version()
{
    return "5.0.0";
}

std::string report_head(std::string_view title, calendar_date date)
{
    std::string head = R"({\b\cf2\f5\fs24\ul KELVARIN Results}\par )";
    head += report_title_group(title);
    head += report_date_group(date);
    head += R"(\par )";
    return head;
}

std::string report_title_group(std::string_view title)
{
    return R"({\cf2\f5\fs20\b )" + escape_rich_text(trimmed(title)) + "}";
}

std::string report_date(calendar_date date)
{
    std::string text;
    append_padded(text, date.month, 2);
    text += '-';
    append_padded(text, date.day, 2);
    text += '-';
    append_padded(text, date.year, 4);
    return text;
}

std::string report_date_group(calendar_date date)
{
    std::string group = R"({\cf2\f5\fs16\ )" + report_date(date) + ",   Rev";
    group += program_version();
    group += " }";
    return group;
}

} // namespace kelvarin
