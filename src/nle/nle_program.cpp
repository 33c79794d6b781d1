// SPDX-License-Identifier: MIT
#include "nle/nle_program.h"

#include <algorithm>
#include <bit>
#include <iterator>
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

std::vector<std::vector<std::size_t>> nle_program::results_reached_by_columns() const
{
    std::vector<std::vector<std::size_t>> reached(size_);
    for (std::size_t result = 0; result < program_->output_count(); ++result) {
        const std::span<const std::uint64_t> inputs = program_->inputs_of(result);
        for (std::size_t w = 0; w < inputs.size(); ++w)
            for (std::uint64_t word = inputs[w]; word != 0; word &= word - 1)
                reached[w * 64 + static_cast<std::size_t>(std::countr_zero(word))].push_back(result);
    }
    return reached;
}

void nle_program::make_groups()
{
    const std::size_t results = program_->output_count();
    // For each group the results that its columns reach.
    std::vector<std::vector<bool>> reached;
    // The first group moves nothing: f need not be F(x), and then unmoved rows differ from it as well.
    groups_.emplace_back();
    const std::vector<std::vector<std::size_t>> reached_by = results_reached_by_columns();
    for (std::size_t column = 0; column < size_; ++column) {
        const std::vector<std::size_t>& reaches = reached_by[column];
        std::ranges::copy_if(reaches, std::back_inserter(rows_), [&](std::size_t result) { return result < size_; });
        row_ends_.push_back(rows_.size());
        const auto free = std::ranges::find_if(reached, [&](const std::vector<bool>& taken) {
            return std::ranges::none_of(reaches, [&](std::size_t result) { return taken[result]; });
        });
        const auto group = static_cast<std::size_t>(free - reached.begin());
        if (free == reached.end()) {
            reached.emplace_back(results, false);
            groups_.emplace_back();
        }
        groups_[group + 1].push_back(column);
        for (const std::size_t result : reaches)
            reached[group][result] = true;
    }
}

std::span<const std::size_t> nle_program::rows_of(std::size_t column) const
{
    const std::size_t first = column == 0 ? 0 : row_ends_[column - 1];
    return std::span(rows_).subspan(first, row_ends_[column] - first);
}

bool nle_program::difference_columns(std::span<const double> x, std::span<const double> f,
                                     std::span<const double> moved, std::span<const double> divisors, matrix& df)
{
    if (groups_.empty()) make_groups();
    std::size_t first = 0;
    for (; first + 1 < groups_.size(); first += program::lanes) {
        if (!difference_side_by_side(first, x, f, moved, divisors, df)) return false;
    }
    return first >= groups_.size() || difference_group(groups_[first], x, f, moved, divisors, df);
}

template <class Output>
void nle_program::take_differences(const column_group& group, std::span<const double> f,
                                   std::span<const double> divisors, matrix& df, Output output)
{
    if (group.empty()) {
        const bool ascending = std::ranges::all_of(divisors, [](double divisor) { return divisor > 0.0; });
        for (std::size_t row = 0; row < size_; ++row) {
            const double difference = output(row) - f[row];
            const std::span<double> elements = df.row(static_cast<int>(row));
            if (difference == 0.0 && ascending) {
                std::ranges::fill(elements, 0.0); // what the divisions would give
                continue;
            }
            for (std::size_t column = 0; column < size_; ++column)
                elements[column] = difference / divisors[column];
        }
        return;
    }
    for (const std::size_t column : group) {
        for (const std::size_t row : rows_of(column))
            df(static_cast<int>(row), static_cast<int>(column)) = (output(row) - f[row]) / divisors[column];
    }
}

bool nle_program::difference_side_by_side(std::size_t first, std::span<const double> x, std::span<const double> f,
                                          std::span<const double> moved, std::span<const double> divisors, matrix& df)
{
    constexpr auto lanes = static_cast<std::size_t>(program::lanes);
    const std::size_t count = std::min(lanes, groups_.size() - first);
    const std::span<double> inputs = program_->lane_inputs();
    for (std::size_t i = 0; i < size_; ++i)
        std::fill_n(inputs.begin() + static_cast<std::ptrdiff_t>(i * lanes), lanes, x[i]);
    for (std::size_t p = 0; p < count; ++p) {
        for (const std::size_t column : groups_[first + p])
            inputs[column * lanes + p] = moved[column];
    }
    if (!program_->run_lanes_in_place()) {
        // Points that take different branches are no failure: one by one they tell.
        return std::all_of(
            groups_.begin() + static_cast<std::ptrdiff_t>(first),
            groups_.begin() + static_cast<std::ptrdiff_t>(first + count),
            [&](const column_group& group) { return difference_group(group, x, f, moved, divisors, df); });
    }
    for (std::size_t p = 0; p < count; ++p) {
        take_differences(groups_[first + p], f, divisors, df,
                         [&](std::size_t row) { return program_->lane_output(row, static_cast<int>(p)); });
    }
    return true;
}

bool nle_program::difference_group(const column_group& group, std::span<const double> x, std::span<const double> f,
                                   std::span<const double> moved, std::span<const double> divisors, matrix& df)
{
    const std::span<double> inputs = program_->inputs();
    std::ranges::copy(x, inputs.begin());
    for (const std::size_t column : group)
        inputs[column] = moved[column];
    if (!program_->run_in_place()) return false;
    take_differences(group, f, divisors, df, [&](std::size_t row) { return program_->output(row); });
    return true;
}

} // namespace kelvarin
