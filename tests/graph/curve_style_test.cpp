// SPDX-License-Identifier: MIT
#include "graph/curve_style.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace kelvarin
{
namespace
{

using triple = std::array<double, 3>;
using matrix3 = std::array<triple, 3>;

constexpr matrix3 full_vision = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
/// Severity 1.0, on linear RGB. [MachadoOliveiraFernandes2009]
constexpr matrix3 without_red = {
    {{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}};
constexpr matrix3 without_green = {
    {{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}};
constexpr matrix3 without_blue = {
    {{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}};

triple times(const matrix3& m, const triple& v)
{
    triple product = {};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            product[i] += m[i][j] * v[j];
    return product;
}

/// CIE L*a*b* under D65 of a colour of the sRGB space (IEC 61966-2-1), as a kind of vision sees it.
triple lab_of(drawn_colour colour, const matrix3& vision)
{
    triple linear = {};
    for (std::size_t i = 0; i < 3; ++i) {
        const double part = ((colour >> (16 - 8 * i)) & 0xFFU) / 255.0;
        linear[i] = part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    }
    triple seen = times(vision, linear);
    for (double& part : seen)
        part = std::clamp(part, 0.0, 1.0);
    constexpr matrix3 to_xyz = {{{0.4124, 0.3576, 0.1805}, {0.2126, 0.7152, 0.0722}, {0.0193, 0.1192, 0.9505}}};
    const triple xyz = times(to_xyz, seen);
    const auto f = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116.0; };
    const double x = f(xyz[0] / 0.9505);
    const double y = f(xyz[1]);
    const double z = f(xyz[2] / 1.089);
    return {116.0 * y - 16.0, 500.0 * (x - y), 200.0 * (y - z)};
}

TEST(CurvePalette, NeighboursDifferForAllKindsOfVisionAndInGrey)
{
    constexpr double clearly_different = 15.0;
    constexpr double different_in_grey = 10.0;
    for (std::size_t i = 0; i < curve_palette().size(); ++i) {
        const drawn_colour one = curve_style_of(i).colour;
        const drawn_colour next = curve_style_of(i + 1).colour;
        for (const matrix3& vision : {full_vision, without_red, without_green, without_blue}) {
            const triple a = lab_of(one, vision);
            const triple b = lab_of(next, vision);
            EXPECT_GE(std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]), clearly_different) << i;
        }
        EXPECT_GE(std::abs(lab_of(one, full_vision)[0] - lab_of(next, full_vision)[0]), different_in_grey) << i;
    }
}

TEST(CurveStyle, RepeatsNoneOfFortyCurves)
{
    for (std::size_t a = 0; a < 40; ++a)
        for (std::size_t b = 0; b < a; ++b) {
            const curve_style one = curve_style_of(a);
            const curve_style other = curve_style_of(b);
            EXPECT_NE(one.marker, other.marker);
            EXPECT_FALSE(one.colour == other.colour && std::ranges::equal(one.dashes, other.dashes)) << a << ", " << b;
        }
}

TEST(MarkerOutline, FortyAreThereAndNoMore)
{
    for (int shape = 0; shape < marker_count; ++shape)
        EXPECT_FALSE(marker_outline(shape).empty()) << shape;
    EXPECT_TRUE(marker_outline(40).empty());
    EXPECT_TRUE(marker_outline(-1).empty());
}

} // namespace
} // namespace kelvarin
