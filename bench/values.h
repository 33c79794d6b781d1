// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>

/// A time counts only where the right values came out.
namespace kelvarin::bench
{

inline void require(bool holds, const std::string& otherwise)
{
    if (!holds) throw std::runtime_error(otherwise);
}

inline void require_same_bits(double a, double b, const std::string& what)
{
    require(std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b), what + ": the last bits differ");
}

inline void require_same_bits(std::span<const double> a, std::span<const double> b, const std::string& what)
{
    require(a.size() == b.size(), what + ": the numbers of values differ");
    for (std::size_t i = 0; i < a.size(); ++i)
        require_same_bits(a[i], b[i], what);
}

/// Equal but for `tolerance`, absolute below 1 and relative above.
inline void require_close(double a, double b, double tolerance, const std::string& what)
{
    const double scale = std::fmax(1.0, std::fmax(std::fabs(a), std::fabs(b)));
    require(std::fabs(a - b) <= tolerance * scale, what + ": the values differ");
}

inline void require_close(std::span<const double> a, std::span<const double> b, double tolerance,
                          const std::string& what)
{
    require(a.size() == b.size(), what + ": the numbers of values differ");
    for (std::size_t i = 0; i < a.size(); ++i)
        require_close(a[i], b[i], tolerance, what);
}

} // namespace kelvarin::bench
