// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <span>
#include <utility>
#include <vector>

namespace kelvarin
{

/// The immutable numbers of a column: copies of a content share them, so that a step of undo stores only what it
/// changed.
class shared_values
{
public:
    shared_values() : shared_values(std::vector<double>()) {}
    explicit shared_values(std::vector<double> values)
        : values_(std::make_shared<const std::vector<double>>(std::move(values)))
    {
    }

    std::size_t size() const { return values_->size(); }
    double operator[](std::size_t i) const { return (*values_)[i]; }
    std::span<const double> span() const { return *values_; }

    /// Compares by value; gaps (NaN) are equal to each other.
    friend bool operator==(const shared_values& a, const shared_values& b)
    {
        const auto same = [](double left, double right) {
            return left == right || (std::isnan(left) && std::isnan(right));
        };
        return a.values_ == b.values_ || std::ranges::equal(*a.values_, *b.values_, same);
    }

private:
    std::shared_ptr<const std::vector<double>> values_;
};

} // namespace kelvarin
