// SPDX-License-Identifier: MIT
#include "platform/decimal_digits.h"

#include <array>
#include <cassert>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <string_view>

namespace kelvarin
{

namespace
{

void drop_trailing_zeros(decimal_digits& number)
{
    number.digits.erase(number.digits.find_last_not_of('0') + 1);
    if (number.is_zero()) number.exponent = 0;
}

} // namespace

char decimal_digits::digit_at(int position) const
{
    const int index = exponent - position;
    if (index < 0 || index >= static_cast<int>(digits.size())) return '0';
    return digits[static_cast<std::size_t>(index)];
}

decimal_digits significant_digits(double value, int count)
{
    assert(std::isfinite(value));
    // "d.dddddddddddddde-308"
    std::array<char, 32> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                                       std::chars_format::scientific, count - 1);
    const std::string_view text(buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data()));

    decimal_digits number;
    number.negative = std::signbit(value);
    number.digits.reserve(static_cast<std::size_t>(count));
    number.digits += text[0];
    // A single digit has no point behind it.
    if (count > 1) number.digits += text.substr(2, static_cast<std::size_t>(count - 1));
    std::size_t exponent_at = text.find('e') + 1;
    if (text[exponent_at] == '+') ++exponent_at;
    std::from_chars(text.data() + exponent_at, text.data() + text.size(), number.exponent);
    drop_trailing_zeros(number);
    return number;
}

decimal_digits rounded_to(decimal_digits number, int kept)
{
    if (kept >= static_cast<int>(number.digits.size())) return number;
    const bool up = kept >= 0 && number.digits[static_cast<std::size_t>(kept)] >= '5';
    number.digits.resize(kept > 0 ? static_cast<std::size_t>(kept) : 0);
    if (up) {
        while (!number.digits.empty() && number.digits.back() == '9')
            number.digits.pop_back();
        if (number.digits.empty()) {
            number.digits.assign(1, '1');
            ++number.exponent;
        } else
            ++number.digits.back();
    }
    drop_trailing_zeros(number);
    return number;
}

void append_exponent(std::string& text, int exponent, std::size_t least_digits, bool plus)
{
    text += 'E';
    if (exponent < 0)
        text += '-';
    else if (plus)
        text += '+';
    const std::string digits = std::to_string(std::abs(exponent));
    if (digits.size() < least_digits) text.append(least_digits - digits.size(), '0');
    text += digits;
}

} // namespace kelvarin
