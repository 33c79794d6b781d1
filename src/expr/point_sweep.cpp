// SPDX-License-Identifier: MIT
#include "expr/point_sweep.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr std::size_t lanes = program::lanes;

#ifdef KELVARIN_CHECKED
constexpr bool compares_with_walk = true;
#else
[[maybe_unused]] constexpr bool compares_with_walk = false;
#endif

} // namespace

point_sweep::point_sweep(compiled_system& system, evaluation_hook before_each)
    : system_(system), before_each_(std::move(before_each)), inputs_(system.input_count()), point_(system.input_count())
{
    assert(system.output_count() == 1);
}

std::optional<std::size_t> point_sweep::run(std::span<double> values, std::size_t first)
{
    const evaluation_context& context = system_.context();
    program* const fast = system_.fast_program();
    if (fast != nullptr) set_same_inputs(*fast);
    for (std::size_t row = first; row < values.size();) {
        const std::size_t end = std::min(row + lanes, values.size());
        if (before_each_) before_each_();
        if (fast != nullptr && !context.eval_error_flag() && run_lanes(*fast, row, values.subspan(row, end - row))) {
            row = end;
            continue;
        }
        for (; row < end; ++row) {
            system_.evaluate(point_at(row), values.subspan(row, 1));
            if (!context.eval_error_flag()) continue;
            std::ranges::fill(values.subspan(row + 1), 0.0);
            return row;
        }
    }
    return std::nullopt;
}

/// Runs leave the inputs in their places, so what is the same at all points is set once.
void point_sweep::set_same_inputs(program& fast)
{
    const std::span<double> lane_inputs = fast.lane_inputs();
    for (std::size_t i = 0; i < inputs_.size(); ++i)
        if (inputs_[i].column.empty()) std::ranges::fill(lane_inputs.subspan(i * lanes, lanes), inputs_[i].value);
}

bool point_sweep::run_lanes(program& fast, std::size_t row, std::span<double> values)
{
    double* lane_inputs = fast.lane_inputs().data();
    for (const input_values& input : inputs_) {
        if (!input.column.empty()) {
            const double* const from = input.column.data() + row;
            // Lanes behind the last row repeat it.
            for (std::size_t lane = 0; lane < lanes; ++lane)
                lane_inputs[lane] = from[std::min(lane, values.size() - 1)];
        }
        lane_inputs += lanes;
    }
    if (!fast.run_lanes_in_place()) return false;
    for (std::size_t lane = 0; lane < values.size(); ++lane)
        values[lane] = fast.lane_output(0, static_cast<int>(lane));
    assert(!compares_with_walk || agrees_with_walk(row, values));
    return true;
}

bool point_sweep::agrees_with_walk(std::size_t row, std::span<const double> values)
{
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (!system_.agrees_with_walk(point_at(row + i), values.subspan(i, 1))) return false;
    }
    return true;
}

std::span<const double> point_sweep::point_at(std::size_t row)
{
    std::ranges::transform(inputs_, point_.begin(), [&](const input_values& input) { return input.at(row); });
    return point_;
}

} // namespace kelvarin
