// SPDX-License-Identifier: MIT
#include "shell/general_lib.h"

#include "platform/format_mask.h"
#include "platform/run_time_text.h"
#include "platform/utf8.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace kelvarin
{

namespace
{

constexpr std::string_view path_separators = "/\\";

std::string number_body(double size)
{
    constexpr double largest_plain = 10000.0;
    constexpr double least_plain = 0.001;
    constexpr std::size_t widest_body = 9;

    if (size == 0.0) return "0";
    if (size > largest_plain || size < least_plain) {
        std::string body = format_masked(size, "0.0##E+00");
        return body.size() > widest_body ? format_masked(size, "0.0#E+00") : body;
    }
    // Single precision rounds values just below a power of ten up to it.
    const int digits = static_cast<int>(std::floor(static_cast<float>(std::log(size) / std::log(10.0))));
    switch (digits) {
    case 1:
        return format_masked(size, "00.######");
    case 2:
        return format_masked(size, "000.#####");
    case 3:
        return format_masked(size, "0000.####");
    case 4:
        return format_masked(size, "00000.###");
    default:
        return format_masked(size, "0.#######");
    }
}

bool separates_words(char letter)
{
    return std::string_view("+-/*( )^=\r\n\t").find(letter) != std::string_view::npos;
}

std::size_t letter_count(std::string_view text)
{
    std::size_t count = 0;
    for (const char byte : text)
        if ((static_cast<unsigned char>(byte) & 0xC0) != 0x80) ++count;
    return count;
}

} // namespace

std::string format_number(double x)
{
    constexpr std::size_t width = 9;
    std::string body = number_body(std::fabs(x));
    if (body.ends_with('.')) body.pop_back();
    if (body.size() < width) body.append(width - body.size(), ' ');
    return (x < 0.0 ? '-' : ' ') + body;
}

std::string format_digits(double x, int digits)
{
    constexpr int most_digits = 17;
    return plain_text(x, std::clamp(digits, 1, most_digits));
}

std::string clean_expression_text(std::string_view text)
{
    std::string clean;
    clean.reserve(text.size());
    for (const char letter : text) {
        const bool blank = letter == ' ' || letter == '\t' || letter == '\r' || letter == '\n';
        if (blank && clean.ends_with(' ')) continue;
        clean += blank ? ' ' : letter;
    }
    return clean;
}

std::string strip_line_controls(std::string_view text)
{
    std::string stripped(text);
    std::erase_if(stripped, [](char letter) { return letter == '\r' || letter == '\t'; });
    return stripped;
}

std::string replace_name(std::string_view text, std::string_view old_name, std::string_view new_name)
{
    if (old_name.empty()) return std::string(text);
    std::string renamed;
    std::size_t copied = 0;
    for (std::size_t hit = text.find(old_name); hit != std::string_view::npos;) {
        const std::size_t end = hit + old_name.size();
        const bool begins_word = hit == 0 || separates_words(text[hit - 1]);
        const bool ends_word = end == text.size() || separates_words(text[end]);
        if (begins_word && ends_word) {
            renamed += text.substr(copied, hit - copied);
            renamed += new_name;
            copied = end;
        }
        hit = text.find(old_name, begins_word && ends_word ? end : hit + 1);
    }
    renamed += text.substr(copied);
    return renamed;
}

std::string part_after_last(std::string_view text, bool before, std::string_view separator)
{
    const std::size_t at = separator.empty() ? std::string_view::npos : text.rfind(separator);
    if (at == std::string_view::npos) return before ? std::string(text) : std::string();
    return std::string(before ? text.substr(0, at) : text.substr(at + separator.size()));
}

std::string file_name_of(std::string_view path)
{
    return std::string(path.substr(path.find_last_of(path_separators) + 1));
}

std::string folder_of(std::string_view path)
{
    return std::string(path.substr(0, path.find_last_of(path_separators) + 1));
}

std::string shorten_path(std::string_view path)
{
    constexpr std::size_t longest_whole = 20;
    if (letter_count(path) <= longest_whole) return std::string(path);
    const std::size_t first = path.find_first_not_of(path_separators);
    const std::size_t folder_end = path.find_first_of(path_separators, first);
    const std::size_t last = path.find_last_of(path_separators);
    // There is nothing between the first folder and the file name.
    if (first == std::string_view::npos || folder_end == std::string_view::npos || folder_end == last)
        return std::string(path);
    std::string name(path.substr(0, folder_end));
    name += "/.../";
    name += path.substr(last + 1);
    return name.size() < path.size() ? name : std::string(path);
}

} // namespace kelvarin
