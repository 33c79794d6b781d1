// SPDX-License-Identifier: MIT
#include "nle/equations/system_jacobian.h"

#include <algorithm>
#include <bit>
#include <numeric>

namespace kelvarin
{

namespace
{

constexpr std::size_t lanes = program::lanes;

} // namespace

const sparsity_pattern* system_jacobian::difference_quotients(std::span<const double> x, std::span<const double> f,
                                                              std::span<const double> moved,
                                                              std::span<const double> divisors, matrix& df,
                                                              const sparsity_pattern* known)
{
    const differences wanted = {x, f, moved, divisors, df};
    program* const fast = system_.fast_program();
    if (fast != nullptr && !system_.context().eval_error_flag()) {
        prepare(*fast);
        bool zero_elsewhere = known == &pattern_;
        if (difference_all(*fast, wanted, zero_elsewhere)) return zero_elsewhere && is_sparse_ ? &pattern_ : nullptr;
    }
    // Evaluating column by column finds the failure that occurs first.
    difference_columns(wanted);
    return nullptr;
}

void system_jacobian::difference_columns(const differences& wanted)
{
    std::vector<double> point(wanted.x.begin(), wanted.x.end());
    std::vector<double> values(rows());
    for (std::size_t column = 0; column < columns(); ++column) {
        point[column] = wanted.moved[column];
        before_each();
        system_.evaluate(point, values);
        point[column] = wanted.x[column];
        for (std::size_t row = 0; row < rows(); ++row)
            wanted.df(static_cast<int>(row), static_cast<int>(column)) =
                (values[row] - wanted.f[row]) / wanted.divisors[column];
    }
}

void system_jacobian::prepare(program& fast)
{
    if (!colours_.empty()) return;
    make_colours(fast);
    make_pattern(fast);
}

template <class Visit> void system_jacobian::for_each_input(const program& fast, std::size_t result, Visit visit)
{
    const std::span<const std::uint64_t> inputs = fast.inputs_of(result);
    for (std::size_t w = 0; w < inputs.size(); ++w)
        for (std::uint64_t word = inputs[w]; word != 0; word &= word - 1)
            visit(w * 64 + static_cast<std::size_t>(std::countr_zero(word)));
}

/// Counting sort: counts the results of each column, then lists them column by column.
system_jacobian::column_results system_jacobian::results_of_columns(const program& fast) const
{
    column_results made;
    made.ends.assign(columns(), 0);
    const std::size_t results = fast.output_count();
    for (std::size_t result = 0; result < results; ++result)
        for_each_input(fast, result, [&](std::size_t column) { ++made.ends[column]; });
    made.results.resize(std::accumulate(made.ends.begin(), made.ends.end(), std::size_t{0}));
    std::exclusive_scan(made.ends.begin(), made.ends.end(), made.ends.begin(), std::size_t{0});
    for (std::size_t result = 0; result < results; ++result)
        for_each_input(fast, result, [&](std::size_t column) { made.results[made.ends[column]++] = result; });
    return made;
}

/// Greedy colouring: each column gets the first colour none of whose columns shares a result with it, as in the
/// grouping of [CurtisPowellReid1974]. Definitions count as results: columns that share only a definition must not be
/// moved together either, since a failing definition is a failure of the system.
void system_jacobian::make_colours(const program& fast)
{
    const column_results results = results_of_columns(fast);
    // For each colour, the results that depend on its columns.
    std::vector<std::vector<bool>> taken;
    // Colour 0 moves no column: f need not be f(x), and then the rows that depend on no column differ from it as well.
    colours_.emplace_back();
    colour_of_.reserve(columns());
    for (std::size_t column = 0; column < columns(); ++column) {
        const std::span<const std::size_t> own = results.of(column);
        const auto free = std::ranges::find_if(taken, [&](const std::vector<bool>& by_colour) {
            return std::ranges::none_of(own, [&](std::size_t result) { return by_colour[result]; });
        });
        const auto colour = static_cast<std::size_t>(free - taken.begin());
        if (free == taken.end()) {
            taken.emplace_back(fast.output_count(), false);
            colours_.emplace_back();
        }
        for (const std::size_t result : own)
            taken[colour][result] = true;
        colours_[colour + 1].push_back(column);
        colour_of_.push_back(colour + 1);
    }
}

/// Fills the pattern row by row, and lists for each pass over a group of colours the elements that it yields.
void system_jacobian::make_pattern(program& fast)
{
    fast.lane_inputs();
    passes_.resize((colours_.size() + lanes - 1) / lanes);
    for (std::size_t row = 0; row < rows(); ++row) {
        for_each_input(fast, row, [&](std::size_t column) {
            const std::size_t colour = colour_of_[column];
            passes_[colour / lanes].push_back({static_cast<std::uint32_t>(row * columns() + column),
                                               fast.lane_register(row, static_cast<int>(colour % lanes)),
                                               static_cast<std::uint32_t>(row), static_cast<std::uint32_t>(column)});
            pattern_.columns.push_back(static_cast<std::uint32_t>(column));
        });
        pattern_.row_ends.push_back(static_cast<std::uint32_t>(pattern_.columns.size()));
    }
    constexpr std::size_t sparse_part = 2;
    is_sparse_ = pattern_.columns.size() * sparse_part <= rows() * columns();
}

bool system_jacobian::difference_all(program& fast, const differences& wanted, bool& zero_elsewhere)
{
    std::size_t first = 0;
    for (; first + 1 < colours_.size(); first += lanes) {
        if (!difference_lanes(fast, first, wanted, zero_elsewhere)) return false;
    }
    return first >= colours_.size() || difference_colour(fast, first, wanted, zero_elsewhere);
}

template <class Output>
void system_jacobian::write_unmoved(const differences& wanted, bool& zero_elsewhere, Output output) const
{
    // The quotient is 0 / divisor; a negative divisor would give a negative zero.
    bool unchanged = std::ranges::all_of(wanted.divisors, [](double divisor) { return divisor > 0.0; });
    for (std::size_t row = 0; row < rows(); ++row)
        unchanged = unchanged && output(row) - wanted.f[row] == 0.0;
    if (unchanged) {
        if (!zero_elsewhere) std::ranges::fill(wanted.df.values(), 0.0);
        zero_elsewhere = true;
        return;
    }
    zero_elsewhere = false;
    for (std::size_t row = 0; row < rows(); ++row) {
        const double difference = output(row) - wanted.f[row];
        const std::span<double> elements = wanted.df.row(static_cast<int>(row));
        for (std::size_t column = 0; column < columns(); ++column)
            elements[column] = difference / wanted.divisors[column];
    }
}

bool system_jacobian::difference_lanes(program& fast, std::size_t first, const differences& wanted,
                                       bool& zero_elsewhere)
{
    before_each();
    const std::size_t count = std::min(lanes, colours_.size() - first);
    const std::span<double> inputs = fast.lane_inputs();
    for (std::size_t i = 0; i < columns(); ++i)
        std::fill_n(inputs.data() + i * lanes, lanes, wanted.x[i]);
    for (std::size_t lane = 0; lane < count; ++lane) {
        for (const std::size_t column : colours_[first + lane])
            inputs[column * lanes + lane] = wanted.moved[column];
    }
    if (!fast.run_lanes_in_place()) {
        // Lanes that take different branches are not a failure: each lane is evaluated alone, which shows whether one
        // fails.
        for (std::size_t lane = 0; lane < count; ++lane) {
            if (!difference_colour(fast, first + lane, wanted, zero_elsewhere)) return false;
        }
        return true;
    }
    if (first == 0) write_unmoved(wanted, zero_elsewhere, [&](std::size_t row) { return fast.lane_output(row, 0); });
    const std::span<double> elements = wanted.df.values();
    for (const pattern_element& each : passes_[first / lanes])
        elements[each.element] =
            (fast.lane_value(each.lane_register) - wanted.f[each.row]) / wanted.divisors[each.column];
    return true;
}

bool system_jacobian::difference_colour(program& fast, std::size_t colour, const differences& wanted,
                                        bool& zero_elsewhere)
{
    before_each();
    const std::span<double> inputs = fast.inputs();
    std::ranges::copy(wanted.x, inputs.begin());
    for (const std::size_t column : colours_[colour])
        inputs[column] = wanted.moved[column];
    if (!fast.run_in_place()) return false;
    if (colour == 0) write_unmoved(wanted, zero_elsewhere, [&](std::size_t row) { return fast.output(row); });
    const std::span<double> elements = wanted.df.values();
    for (const pattern_element& each : passes_[colour / lanes]) {
        if (colour_of_[each.column] != colour) continue;
        elements[each.element] = (fast.output(each.row) - wanted.f[each.row]) / wanted.divisors[each.column];
    }
    return true;
}

} // namespace kelvarin
