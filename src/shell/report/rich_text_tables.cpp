// SPDX-License-Identifier: MIT
#include "shell/report/rich_text_tables.h"

#include "platform/text_file.h"
#include "platform/utf8.h"
#include "shell/report/rich_text_scanner.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace kelvarin
{

namespace
{

/// Reads a font table, collecting the parts of the current entry.
class font_table_reader
{
public:
    explicit font_table_reader(std::string_view group) : scanner_(group) {}
    font_table read();

private:
    void read_control();
    void apply(const control_word& word);
    void append_letter(char32_t code);
    void skip_replacement();
    void end_entry();

    rich_text_scanner scanner_;
    font_table fonts_;
    std::optional<int> number_;
    std::string name_;
    /// The high surrogate of an incomplete pair of \u escapes.
    char32_t high_surrogate_ = 0;
    std::optional<font_class> family_;
    std::optional<font_class> pitch_;
};

font_table font_table_reader::read()
{
    while (!scanner_.at_end()) {
        const char byte = scanner_.peek();
        if (byte == '{' || byte == '}')
            scanner_.advance();
        else if (byte == '\\')
            read_control();
        else if (byte == ';') {
            scanner_.advance();
            end_entry();
        } else
            append_letter(scanner_.take_letter());
    }
    end_entry();
    return std::move(fonts_);
}

void font_table_reader::read_control()
{
    scanner_.advance();
    if (scanner_.at_end()) return;
    const char byte = scanner_.peek();
    if (rich_text_scanner::is_letter(byte)) return apply(scanner_.take_word());
    scanner_.advance();
    if (byte == '*')
        // Alternative names, shape data or embedded fonts.
        scanner_.take_group();
    else if (byte == '\'') {
        if (const std::optional<unsigned char> letter = scanner_.take_hex()) append_letter(ansi_letter(*letter));
    } else if (byte == '\\' || byte == '{' || byte == '}')
        append_letter(static_cast<unsigned char>(byte));
}

void font_table_reader::apply(const control_word& word)
{
    const int number = word.parameter.value_or(0);
    if (word.name == "f")
        number_ = number;
    else if (word.name == "froman")
        family_ = font_class::serif;
    else if (word.name == "fswiss")
        family_ = font_class::sans;
    else if (word.name == "fmodern")
        family_ = font_class::monospace;
    else if (word.name == "fprq" && number == 1)
        pitch_ = font_class::monospace;
    else if (word.name == "u" && word.parameter) {
        append_letter(static_cast<char32_t>(number < 0 ? number + 0x10000 : number));
        skip_replacement();
    } else if (word.name == "bin")
        scanner_.skip_bytes(word.parameter);
}

void font_table_reader::append_letter(char32_t code)
{
    const char32_t high = std::exchange(high_surrogate_, 0);
    if (code >= 0xD800 && code <= 0xDBFF)
        high_surrogate_ = code;
    else if (code >= 0xDC00 && code <= 0xDFFF && high != 0)
        append_utf8(name_, 0x10000 + ((high - 0xD800) << 10) + (code - 0xDC00));
    else if (code >= 0x20 && code != 0x7F)
        append_utf8(name_, code);
}

/// Skips the character after \u that replaces it.
void font_table_reader::skip_replacement()
{
    if (scanner_.at_end() || scanner_.peek() == '{' || scanner_.peek() == '}' || scanner_.peek() == ';') return;
    const bool is_control = scanner_.peek() == '\\';
    scanner_.advance();
    if (!is_control || scanner_.at_end() || scanner_.peek() != '\'') return;
    scanner_.advance();
    scanner_.take_hex();
}

void font_table_reader::end_entry()
{
    const std::string_view name = trimmed(name_);
    if (number_ && !name.empty()) {
        const font_class otherwise = family_.value_or(pitch_.value_or(font_class::sans));
        fonts_[*number_] = {std::string(name), class_of_font(name, otherwise)};
    }
    number_.reset();
    name_.clear();
    family_.reset();
    pitch_.reset();
}

} // namespace

const font_table& report_fonts()
{
    static const font_table fonts = read_font_table(report_font_group);
    return fonts;
}

const colour_table& report_colours()
{
    static const colour_table colours = read_colour_table(report_colour_group);
    return colours;
}

font_table read_font_table(std::string_view group)
{
    return font_table_reader(group).read();
}

colour_table read_colour_table(std::string_view group)
{
    // More would only let a malformed table use up memory.
    constexpr std::size_t most_colours = 4096;
    constexpr int largest_part = 255;
    rich_text_scanner scanner(group);
    colour_table colours;
    rgb_colour colour;
    while (!scanner.at_end() && colours.size() < most_colours) {
        const char byte = scanner.peek();
        scanner.advance();
        if (byte == ';') colours.push_back(std::exchange(colour, {}));
        if (byte != '\\' || scanner.at_end() || !rich_text_scanner::is_letter(scanner.peek())) continue;
        const control_word word = scanner.take_word();
        const auto part = static_cast<std::uint8_t>(std::clamp(word.parameter.value_or(0), 0, largest_part));
        if (word.name == "red") colour.red = part;
        if (word.name == "green") colour.green = part;
        if (word.name == "blue") colour.blue = part;
    }
    return colours;
}

} // namespace kelvarin
