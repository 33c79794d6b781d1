// SPDX-License-Identifier: MIT
#include "leq/leq_sample.h"

#include <cstdlib>
#include <numeric>
#include <random>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

/// Random whole numbers that are the same on every platform; the standard distributions are not.
class random_integers
{
public:
    explicit random_integers(std::uint32_t seed) : engine_(seed) {}

    int between(int least, int largest)
    {
        return least + static_cast<int>(engine_() % static_cast<std::uint32_t>(largest - least + 1));
    }

private:
    std::mt19937 engine_;
};

/// The column of each row's largest coefficient: a random permutation.
std::vector<int> random_order(int n, random_integers& random)
{
    std::vector<int> order(static_cast<std::size_t>(n));
    std::iota(order.begin(), order.end(), 0);
    for (int i = n - 1; i > 0; --i)
        std::swap(order[static_cast<std::size_t>(i)], order[static_cast<std::size_t>(random.between(0, i))]);
    return order;
}

} // namespace

leq_content sample_leq(std::uint32_t seed)
{
    constexpr int largest_side_coefficient = 5;
    constexpr int largest_unknown = 9;
    random_integers random(seed);
    const int n = random.between(3, 6);
    leq_content content(n);
    content.title = "Sample random problem";
    std::vector<int> solution(static_cast<std::size_t>(n));
    for (int& value : solution)
        value = random.between(-largest_unknown, largest_unknown);
    const std::vector<int> order = random_order(n, random);
    for (int row = 0; row < n; ++row) {
        const int large = order[static_cast<std::size_t>(row)];
        std::vector<int> coefficients;
        int others = 0;
        for (int column = 0; column < n; ++column) {
            coefficients.push_back(
                column == large ? 0 : random.between(-largest_side_coefficient, largest_side_coefficient));
            others += std::abs(coefficients.back());
        }
        const int sign = random.between(0, 1) == 0 ? -1 : 1;
        coefficients[static_cast<std::size_t>(large)] = sign * (others + random.between(1, largest_side_coefficient));
        int beta = 0;
        for (int column = 0; column < n; ++column) {
            const int coefficient = coefficients[static_cast<std::size_t>(column)];
            content.cells.set_cell(row, column, std::to_string(coefficient));
            beta += coefficient * solution[static_cast<std::size_t>(column)];
        }
        content.cells.set_cell(row, n, std::to_string(beta));
    }
    return content;
}

} // namespace kelvarin
