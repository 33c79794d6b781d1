// SPDX-License-Identifier: MIT
#include "reg/table/import_bytes.h"

#include "platform/utf8.h"

#include <cstddef>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";
constexpr std::string_view little_mark = "\xFF\xFE";
constexpr std::string_view big_mark = "\xFE\xFF";

// UTF-16 writes a character beyond FFFF as two halves of ten bits.
constexpr char32_t first_high_half = 0xD800;
constexpr char32_t first_low_half = 0xDC00;
constexpr char32_t last_half = 0xDFFF;
constexpr char32_t beyond_16_bits = 0x10000;

bool is_high(char32_t unit)
{
    return unit >= first_high_half && unit < first_low_half;
}

bool is_low(char32_t unit)
{
    return unit >= first_low_half && unit <= last_half;
}

} // namespace

void import_bytes::find_encoding()
{
    const auto begins_with = [this](std::string_view mark, encoding found) {
        if (!std::string_view(rest_).starts_with(mark)) return false;
        encoding_ = found;
        rest_.erase(0, mark.size());
        return true;
    };
    if (!begins_with(utf8_mark, encoding::single_bytes) && !begins_with(little_mark, encoding::utf16_little) &&
        !begins_with(big_mark, encoding::utf16_big))
        encoding_ = encoding::single_bytes;
}

std::string import_bytes::take(std::string_view bytes)
{
    rest_ += bytes;
    if (encoding_ == encoding::not_known) {
        if (rest_.size() < utf8_mark.size()) return {};
        find_encoding();
    }
    return encoding_ == encoding::single_bytes ? std::exchange(rest_, {}) : decoded();
}

std::string import_bytes::finish()
{
    if (encoding_ == encoding::not_known) find_encoding();
    std::string text = encoding_ == encoding::single_bytes ? std::exchange(rest_, {}) : decoded();
    if (high_half_ != 0) append_utf8(text, std::exchange(high_half_, 0));
    return text;
}

std::string import_bytes::decoded()
{
    constexpr char32_t byte_values = 256;
    constexpr char32_t half_values = 0x400;
    std::string text;
    std::size_t at = 0;
    for (; at + 2 <= rest_.size(); at += 2) {
        const auto first = static_cast<unsigned char>(rest_[at]);
        const auto second = static_cast<unsigned char>(rest_[at + 1]);
        const char32_t unit =
            encoding_ == encoding::utf16_little ? second * byte_values + first : first * byte_values + second;
        const char32_t high = std::exchange(high_half_, is_high(unit) ? unit : 0);
        if (high != 0 && is_low(unit)) {
            append_utf8(text, beyond_16_bits + (high - first_high_half) * half_values + (unit - first_low_half));
            continue;
        }
        // A half alone is no character and becomes U+FFFD.
        if (high != 0) append_utf8(text, high);
        if (!is_high(unit)) append_utf8(text, unit);
    }
    rest_.erase(0, at);
    return text;
}

} // namespace kelvarin
