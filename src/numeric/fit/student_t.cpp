// SPDX-License-Identifier: MIT
#include "numeric/fit/student_t.h"

#include <array>
#include <cstddef>

namespace kelvarin
{

namespace
{

/// By degrees of freedom, from 0. From 31 on these are not the values of a printed table: every fit ever reported uses
/// them.
constexpr std::array<double, 50> t_values = {0.0,   12.707, 4.303, 3.182, 2.776, 2.571, 2.447, 2.365, 2.306, 2.262,
                                             2.228, 2.201,  2.179, 2.16,  2.145, 2.131, 2.12,  2.11,  2.101, 2.093,
                                             2.086, 2.08,   2.074, 2.069, 2.064, 2.06,  2.056, 2.052, 2.048, 2.045,
                                             2.042, 2.038,  2.034, 2.03,  2.026, 2.022, 2.017, 2.013, 2.009, 2.005,
                                             2.001, 1.997,  1.993, 1.989, 1.985, 1.98,  1.976, 1.972, 1.968, 1.964};

constexpr double t_of_many = 1.96;

} // namespace

double Td(int df)
{
    if (df < 0 || df >= static_cast<int>(t_values.size())) return t_of_many;
    return t_values[static_cast<std::size_t>(df)];
}

} // namespace kelvarin
