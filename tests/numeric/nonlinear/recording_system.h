// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/nonlinear/nonlinear_system.h"

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace kelvarin::test
{

/// A system that writes down where it was evaluated.
class recording_system final : public nonlinear_system
{
public:
    recording_system(int size, function_system::function evaluate) : size_(size), evaluate_(std::move(evaluate)) {}

    int size() const override { return size_; }
    void evaluate(std::span<const double> x, std::span<double> f) override
    {
        points.emplace_back(x.begin(), x.end());
        evaluate_(x, f);
    }

    std::vector<std::vector<double>> points;

private:
    int size_;
    function_system::function evaluate_;
};

/// One equation whose residuals are told beforehand, whatever x; the last one stays.
inline function_system::function scripted(std::vector<double> residuals)
{
    return [residuals = std::move(residuals), next = std::size_t{0}](std::span<const double>,
                                                                     std::span<double> f) mutable {
        f[0] = residuals[next];
        if (next + 1 < residuals.size()) ++next;
    };
}

} // namespace kelvarin::test
