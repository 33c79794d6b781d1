// SPDX-License-Identifier: MIT
#include "platform/run_time_text.h"

#include "platform/decimal_digits.h"
#include "platform/runtime_failure.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <system_error>

namespace kelvarin
{

namespace
{

constexpr bool is_digit(char letter)
{
    return letter >= '0' && letter <= '9';
}
constexpr bool is_blank(char letter)
{
    return letter == ' ' || letter == '\t';
}

/// The extent of a number at the start of a text and the position of its exponent letter. Length 0: no number.
struct number_shape
{
    std::size_t length = 0;
    std::size_t exponent_letter = std::string_view::npos;
};

std::size_t past_digits(std::string_view text, std::size_t at)
{
    while (at < text.size() && is_digit(text[at]))
        ++at;
    return at;
}

std::size_t past_sign(std::string_view text, std::size_t at)
{
    return at < text.size() && (text[at] == '+' || text[at] == '-') ? at + 1 : at;
}

// std::from_chars would also accept "inf", "nan" and hexadecimal digits, so it only reads what this scan has accepted.
// The exponent letter may be d.
number_shape measure_number(std::string_view text)
{
    number_shape shape;
    const std::size_t first = past_sign(text, 0);
    std::size_t end = past_digits(text, first);
    std::size_t digits = end - first;
    if (end < text.size() && text[end] == '.') {
        const std::size_t after_point = end + 1;
        end = past_digits(text, after_point);
        digits += end - after_point;
    }
    if (digits == 0) return shape;
    shape.length = end;
    if (end < text.size() && std::string_view("eEdD").find(text[end]) != std::string_view::npos) {
        const std::size_t exponent = past_sign(text, end + 1);
        const std::size_t exponent_end = past_digits(text, exponent);
        if (exponent_end > exponent) {
            shape.exponent_letter = end;
            shape.length = exponent_end;
        }
    }
    return shape;
}

/// Whether a number outside the range of doubles is too large rather than too small, by the power of ten of its first
/// nonzero digit.
bool is_too_large(std::string_view number, const number_shape& shape)
{
    const std::string_view mantissa = number.substr(0, shape.exponent_letter);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    long long power = static_cast<long long>(point) - static_cast<long long>(first);
    if (shape.exponent_letter != std::string_view::npos) {
        std::string_view exponent = number.substr(shape.exponent_letter + 1);
        if (exponent.front() == '+') exponent.remove_prefix(1);
        long long value = 0;
        const auto read = std::from_chars(exponent.data(), exponent.data() + exponent.size(), value);
        if (read.ec != std::errc()) return exponent.front() != '-';
        power += value;
    }
    return power > 0;
}

/// The value of a text that is a number as a whole. Returns nullopt if it is too large for a double.
std::optional<double> value_of_number(std::string_view number, const number_shape& shape)
{
    std::string with_e;
    std::string_view readable = number;
    if (shape.exponent_letter != std::string_view::npos) {
        const char letter = number[shape.exponent_letter];
        if (letter == 'd' || letter == 'D') {
            with_e = number;
            with_e[shape.exponent_letter] = 'e';
            readable = with_e;
        }
    }
    if (readable.front() == '+') readable.remove_prefix(1);
    double value = 0.0;
    const auto read = std::from_chars(readable.data(), readable.data() + readable.size(), value);
    if (read.ec == std::errc()) return value;
    if (is_too_large(number, shape)) return std::nullopt;
    return 0.0;
}

std::string_view without_blanks_in_front(std::string_view text)
{
    while (!text.empty() && is_blank(text.front()))
        text.remove_prefix(1);
    return text;
}

void append_fixed(std::string& text, const decimal_digits& number)
{
    for (int position = std::max(number.exponent, 0); position >= 0; --position)
        text += number.digit_at(position);
    const int last = number.exponent + 1 - static_cast<int>(number.digits.size());
    if (last < 0) text += '.';
    for (int position = -1; position >= last; --position)
        text += number.digit_at(position);
}

} // namespace

std::optional<double> numeric_value(std::string_view text)
{
    text = without_blanks_in_front(text);
    while (!text.empty() && is_blank(text.back()))
        text.remove_suffix(1);
    const number_shape shape = measure_number(text);
    if (shape.length == 0 || shape.length != text.size()) return std::nullopt;
    return value_of_number(text, shape);
}

bool is_numeric(std::string_view text)
{
    return numeric_value(text).has_value();
}

std::optional<double> prefix_value(std::string_view text)
{
    text = without_blanks_in_front(text);
    const number_shape shape = measure_number(text);
    if (shape.length == 0) return 0.0;
    return value_of_number(text.substr(0, shape.length), shape);
}

double val(std::string_view text)
{
    const std::optional<double> value = prefix_value(text);
    if (!value) throw runtime_failure(failure_number::overflow);
    return *value;
}

namespace
{

std::string text_of(const decimal_digits& number)
{
    constexpr int least_fixed_exponent = -4;
    constexpr int largest_fixed_exponent = 14;

    if (number.is_zero()) return "0";
    std::string text;
    text.reserve(24);
    if (number.negative) text += '-';
    if (number.exponent >= least_fixed_exponent && number.exponent <= largest_fixed_exponent) {
        append_fixed(text, number);
        return text;
    }
    text += number.digits.front();
    if (number.digits.size() > 1) {
        text += '.';
        text.append(number.digits, 1);
    }
    append_exponent(text, number.exponent, 2, true);
    return text;
}

} // namespace

std::string plain_text(double value)
{
    constexpr double exponent_form_from = 1e15;

    // Fast path: reports print mostly whole numbers.
    if (std::fabs(value) < exponent_form_from && value == std::trunc(value)) {
        std::array<char, 24> buffer{};
        const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), static_cast<long long>(value));
        return std::string(buffer.data(), written.ptr);
    }
    return text_of(significant_digits(value));
}

std::string plain_text(double value, int digits)
{
    constexpr int usual_digits = 15;
    if (digits > usual_digits) return text_of(significant_digits(value, digits));
    return text_of(rounded_to(significant_digits(value), digits));
}

} // namespace kelvarin
