// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace kelvarin
{

/// A dense matrix of doubles, row by row.
class matrix
{
public:
    matrix() = default;
    matrix(int rows, int columns, double value = 0.0)
        : rows_(rows), columns_(columns),
          values_(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns), value)
    {
    }

    int rows() const { return rows_; }
    int columns() const { return columns_; }
    double& operator()(int row, int column) { return values_[index(row, column)]; }
    double operator()(int row, int column) const { return values_[index(row, column)]; }
    std::span<double> row(int r) { return {values_.data() + index(r, 0), static_cast<std::size_t>(columns_)}; }
    std::span<const double> row(int r) const
    {
        return {values_.data() + index(r, 0), static_cast<std::size_t>(columns_)};
    }
    std::span<double> values() { return values_; }
    std::span<const double> values() const { return values_; }

private:
    std::size_t index(int row, int column) const
    {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) + static_cast<std::size_t>(column);
    }

    int rows_ = 0;
    int columns_ = 0;
    std::vector<double> values_;
};

} // namespace kelvarin
