// SPDX-License-Identifier: MIT
#include "platform/format_mask.h"

#include "platform/decimal_digits.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace kelvarin
{

namespace
{

/// The parts of a numeric mask.
struct mask_shape
{
    int integer_places = 0;
    int forced_integers = 0;
    bool point = false;
    int fraction_places = 0;
    int forced_fractions = 0;
    bool exponent = false;
    bool exponent_plus = false;
    std::size_t exponent_digits = 0;
};

mask_shape shape_of_mask(std::string_view mask)
{
    mask_shape shape;
    for (const char letter : mask) {
        if (shape.exponent) {
            if (letter == '+') shape.exponent_plus = true;
            if (letter == '0') ++shape.exponent_digits;
        } else if (letter == 'E')
            shape.exponent = true;
        else if (letter == '.')
            shape.point = true;
        else if (shape.point) {
            ++shape.fraction_places;
            if (letter == '0') shape.forced_fractions = shape.fraction_places;
        } else {
            ++shape.integer_places;
            if (letter == '0' || shape.forced_integers > 0) ++shape.forced_integers;
        }
    }
    return shape;
}

std::string fixed_by_mask(const decimal_digits& number, const mask_shape& shape)
{
    std::string text;
    const int first = std::max(number.is_zero() ? -1 : number.exponent, shape.forced_integers - 1);
    for (int position = first; position >= 0; --position)
        text += number.digit_at(position);
    if (shape.point) text += '.';
    const int used = static_cast<int>(number.digits.size()) - 1 - number.exponent;
    for (int place = 1; place <= std::max(used, shape.forced_fractions); ++place)
        text += number.digit_at(-place);
    return text;
}

} // namespace

std::string format_masked(double value, std::string_view mask)
{
    const mask_shape shape = shape_of_mask(mask);
    decimal_digits number = significant_digits(value);
    std::string text;
    if (shape.exponent) {
        number = rounded_to(std::move(number), shape.integer_places + shape.fraction_places);
        const int scale = number.is_zero() ? 0 : number.exponent - (shape.integer_places - 1);
        if (!number.is_zero()) number.exponent = shape.integer_places - 1;
        text = fixed_by_mask(number, shape);
        append_exponent(text, scale, shape.exponent_digits, shape.exponent_plus);
    } else {
        const int digits = number.exponent + 1 + shape.fraction_places;
        number = rounded_to(std::move(number), digits);
        text = fixed_by_mask(number, shape);
    }
    if (number.negative && !number.is_zero()) text.insert(0, 1, '-');
    return text;
}

} // namespace kelvarin
