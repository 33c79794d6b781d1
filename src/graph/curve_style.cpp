// SPDX-License-Identifier: MIT
#include "graph/curve_style.h"

#include <array>

namespace kelvarin
{

namespace
{

constexpr std::array<drawn_colour, 8> palette = {0x0072B2, 0xCC79A7, 0x7A5C00, 0x009E73,
                                                 0xE69F00, 0xD55E00, 0x56B4E9, 0x000000};

constexpr std::array<double, 2> dashed = {5.0, 3.0};
constexpr std::array<double, 2> dotted = {1.0, 2.5};
constexpr std::array<double, 4> dash_dotted = {6.0, 2.5, 1.0, 2.5};
constexpr std::array<double, 2> long_dashed = {10.0, 3.0};
} // namespace

std::span<const double> dashes_of(std::size_t number)
{
    switch (number % dash_count) {
    case 1:
        return dashed;
    case 2:
        return dash_dotted;
    case 3:
        return dotted;
    case 4:
        return long_dashed;
    default:
        return {};
    }
}

std::span<const drawn_colour> curve_palette()
{
    return palette;
}

curve_style curve_style_of(std::size_t index)
{
    return {palette[index % palette.size()], dashes_of(index / palette.size()),
            static_cast<int>(index % std::size_t{marker_count})};
}

} // namespace kelvarin
