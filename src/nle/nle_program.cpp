// SPDX-License-Identifier: MIT
#include "nle/nle_program.h"

#include <algorithm>
#include <bit>
#include <numeric>
#include <utility>

namespace kelvarin
{

std::unique_ptr<nle_program> nle_program::compile(tree_system system)
{
    const std::size_t size = system.outputs.size();
    if (size == 0) return nullptr;
    // The definitions are results as well: two columns that meet in a definition alone must not be moved
    // together, since its failure is one of the system.
    for (const tree_system::definition& definition : system.definitions)
        system.outputs.push_back(definition.tree);
    std::unique_ptr<program> compiled = program::compile(system);
    if (!compiled) return nullptr;
    return std::unique_ptr<nle_program>(new nle_program(std::move(compiled), size));
}

nle_program::nle_program(std::unique_ptr<program> compiled, std::size_t size)
    : program_(std::move(compiled)), size_(size)
{
}

bool nle_program::evaluate(std::span<const double> x, std::span<double> f)
{
    return program_->run(x, f);
}

template <class Visit> void nle_program::for_each_input(std::size_t result, Visit visit) const
{
    const std::span<const std::uint64_t> inputs = program_->inputs_of(result);
    for (std::size_t w = 0; w < inputs.size(); ++w)
        for (std::uint64_t word = inputs[w]; word != 0; word &= word - 1)
            visit(w * 64 + static_cast<std::size_t>(std::countr_zero(word)));
}

/// The results that each column reaches: counted first, then listed one column behind the other.
nle_program::reached_results nle_program::results_reached_by_columns() const
{
    reached_results made;
    made.ends.assign(size_, 0);
    const std::size_t results = program_->output_count();
    for (std::size_t result = 0; result < results; ++result)
        for_each_input(result, [&](std::size_t column) { ++made.ends[column]; });
    made.results.resize(std::accumulate(made.ends.begin(), made.ends.end(), std::size_t{0}));
    std::exclusive_scan(made.ends.begin(), made.ends.end(), made.ends.begin(), std::size_t{0});
    for (std::size_t result = 0; result < results; ++result)
        for_each_input(result, [&](std::size_t column) { made.results[made.ends[column]++] = result; });
    return made;
}

/// Gives each column to the first group none of whose columns reaches a result that it reaches.
void nle_program::make_groups()
{
    const reached_results reached_by = results_reached_by_columns();
    // For each group the results that its columns reach.
    std::vector<std::vector<bool>> reached;
    // The first group moves nothing: f need not be F(x), and then unmoved rows differ from it as well.
    groups_.emplace_back();
    group_of_.reserve(size_);
    for (std::size_t column = 0; column < size_; ++column) {
        const std::span<const std::size_t> reaches = reached_by.of(column);
        const auto free = std::ranges::find_if(reached, [&](const std::vector<bool>& taken) {
            return std::ranges::none_of(reaches, [&](std::size_t result) { return taken[result]; });
        });
        const auto group = static_cast<std::size_t>(free - reached.begin());
        if (free == reached.end()) {
            reached.emplace_back(program_->output_count(), false);
            groups_.emplace_back();
        }
        for (const std::size_t result : reaches)
            reached[group][result] = true;
        groups_[group + 1].push_back(column);
        group_of_.push_back(group + 1);
    }
}

/// The pattern row by row, and for each pass those that it fills.
void nle_program::make_places()
{
    program_->lane_inputs();
    fills_.resize((groups_.size() + lanes - 1) / lanes);
    for (std::size_t row = 0; row < size_; ++row) {
        for_each_input(row, [&](std::size_t column) {
            const std::size_t group = group_of_[column];
            fills_[group / lanes].push_back({static_cast<std::uint32_t>(row * size_ + column),
                                             program_->lane_place(row, static_cast<int>(group % lanes)),
                                             static_cast<std::uint32_t>(row), static_cast<std::uint32_t>(column)});
            pattern_.columns.push_back(static_cast<std::uint32_t>(column));
        });
        pattern_.row_ends.push_back(static_cast<std::uint32_t>(pattern_.columns.size()));
    }
    constexpr std::size_t sparse_part = 2;
    is_sparse_ = pattern_.columns.size() * sparse_part <= size_ * size_;
}

std::optional<const sparsity_pattern*>
nle_program::difference_quotients(std::span<const double> x, std::span<const double> f, std::span<const double> moved,
                                  std::span<const double> divisors, matrix& df, const sparsity_pattern* left)
{
    if (groups_.empty()) {
        make_groups();
        make_places();
    }
    const differences wanted = {x, f, moved, divisors, df};
    bool zero_elsewhere = left == &pattern_;
    std::size_t first = 0;
    for (; first + 1 < groups_.size(); first += lanes) {
        if (!difference_side_by_side(first, wanted, zero_elsewhere)) return std::nullopt;
    }
    if (first < groups_.size() && !difference_group(first, wanted, zero_elsewhere)) return std::nullopt;
    return zero_elsewhere && is_sparse_ ? &pattern_ : nullptr;
}

template <class Output>
void nle_program::take_unmoved(const differences& wanted, bool& zero_elsewhere, Output output) const
{
    // What the divisions of 0 would give; where a divisor descends, it is another zero.
    bool unchanged = std::ranges::all_of(wanted.divisors, [](double divisor) { return divisor > 0.0; });
    for (std::size_t row = 0; row < size_; ++row)
        unchanged = unchanged && output(row) - wanted.f[row] == 0.0;
    if (unchanged) {
        if (!zero_elsewhere) std::ranges::fill(wanted.df.values(), 0.0);
        zero_elsewhere = true;
        return;
    }
    zero_elsewhere = false;
    for (std::size_t row = 0; row < size_; ++row) {
        const double difference = output(row) - wanted.f[row];
        const std::span<double> elements = wanted.df.row(static_cast<int>(row));
        for (std::size_t column = 0; column < size_; ++column)
            elements[column] = difference / wanted.divisors[column];
    }
}

bool nle_program::difference_side_by_side(std::size_t first, const differences& wanted, bool& zero_elsewhere)
{
    const std::size_t count = std::min(lanes, groups_.size() - first);
    const std::span<double> inputs = program_->lane_inputs();
    for (std::size_t i = 0; i < size_; ++i)
        std::fill_n(inputs.data() + i * lanes, lanes, wanted.x[i]);
    for (std::size_t p = 0; p < count; ++p) {
        for (const std::size_t column : groups_[first + p])
            inputs[column * lanes + p] = wanted.moved[column];
    }
    if (!program_->run_lanes_in_place()) {
        // Points that take different branches are no failure: one by one they tell.
        for (std::size_t p = 0; p < count; ++p) {
            if (!difference_group(first + p, wanted, zero_elsewhere)) return false;
        }
        return true;
    }
    if (first == 0)
        take_unmoved(wanted, zero_elsewhere, [&](std::size_t row) { return program_->lane_output(row, 0); });
    const std::span<double> elements = wanted.df.values();
    for (const fill& each : fills_[first / lanes])
        elements[each.element] =
            (program_->lane_value(each.lane_place) - wanted.f[each.row]) / wanted.divisors[each.column];
    return true;
}

bool nle_program::difference_group(std::size_t group, const differences& wanted, bool& zero_elsewhere)
{
    const std::span<double> inputs = program_->inputs();
    std::ranges::copy(wanted.x, inputs.begin());
    for (const std::size_t column : groups_[group])
        inputs[column] = wanted.moved[column];
    if (!program_->run_in_place()) return false;
    if (group == 0) take_unmoved(wanted, zero_elsewhere, [&](std::size_t row) { return program_->output(row); });
    const std::span<double> elements = wanted.df.values();
    for (const fill& each : fills_[group / lanes]) {
        if (group_of_[each.column] != group) continue;
        elements[each.element] = (program_->output(each.row) - wanted.f[each.row]) / wanted.divisors[each.column];
    }
    return true;
}

} // namespace kelvarin
