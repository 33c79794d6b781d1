// SPDX-License-Identifier: MIT
#include "expr/program.h"

#include "expr/program_code.h"
#include "expr/program_lanes.h"
#include "expr/program_machine.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <numeric>

namespace kelvarin
{

namespace
{

/// Whether four points side by side are compared with single ones.
#ifdef KELVARIN_CHECKED
constexpr bool compares_evaluations = true;
#else
[[maybe_unused]] constexpr bool compares_evaluations = false;
#endif

/// For each output the inputs it depends on, as rows of bits.
class dependence_table
{
public:
    explicit dependence_table(const program_graph& graph) : words_((graph.input_count() + 63) / 64)
    {
        std::vector<std::uint64_t> of_value(graph.values().size() * words_, 0);
        for (std::size_t id = 0; id < graph.values().size(); ++id) {
            const program_graph::value& v = graph.values()[id];
            std::uint64_t* row = of_value.data() + id * words_;
            if (v.kind == program_graph::value_kind::input) {
                const auto input = static_cast<std::size_t>(v.input);
                row[input / 64] |= std::uint64_t{1} << (input % 64);
            }
            for (const program_graph::value_id used : {v.a, v.b, v.c}) {
                if (used == program_graph::none) continue;
                for (std::size_t w = 0; w < words_; ++w)
                    row[w] |= of_value[static_cast<std::size_t>(used) * words_ + w];
            }
        }
        rows_.reserve(graph.outputs().size() * words_);
        for (const program_graph::value_id id : graph.outputs()) {
            const auto first = of_value.begin() + static_cast<std::ptrdiff_t>(static_cast<std::size_t>(id) * words_);
            rows_.insert(rows_.end(), first, first + static_cast<std::ptrdiff_t>(words_));
        }
    }

    std::span<const std::uint64_t> inputs_of(std::size_t output) const
    {
        return {rows_.data() + output * words_, words_};
    }

private:
    std::size_t words_;
    std::vector<std::uint64_t> rows_;
};

} // namespace

struct program::parts
{
    parts(const program_graph& graph, program_code made)
        : code(std::move(made)), single(code), registers(code.register_count), dependences(graph)
    {
        for (const auto& [number, constant] : code.constants)
            registers[number] = constant;
    }

    program_code code;
    machine::loaded_program<double> single;
    std::vector<double> registers;
    dependence_table dependences;
    /// Made when lanes are first asked for.
    std::unique_ptr<lane_program> four;
    /// The registers of four points where the processor has no lanes.
    std::vector<double> spread_inputs;
    std::vector<double> spread_outputs;
    std::vector<std::uint16_t> spread_registers;
};

program::program() = default;
program::~program() = default;

std::unique_ptr<program> program::compile(const tree_system& system)
{
    const auto graph = program_graph::of(system);
    if (!graph) return nullptr;
    auto code = program_code::of(*graph);
    if (!code) return nullptr;
    std::unique_ptr<program> made(new program);
    made->parts_ = std::make_unique<parts>(*graph, std::move(*code));
    made->registers_ = made->parts_->registers.data();
    made->output_registers_ = made->parts_->code.output_registers.data();
    made->input_count_ = graph->input_count();
    return made;
}

std::size_t program::output_count() const
{
    return parts_->code.output_registers.size();
}

bool program::run_in_place()
{
    return parts_->single.run(registers_) == 0.0;
}

bool program::run(std::span<const double> values, std::span<double> outputs)
{
    std::ranges::copy(values, registers_);
    if (!run_in_place()) return false;
    for (std::size_t i = 0; i < outputs.size(); ++i)
        outputs[i] = output(i);
    return true;
}

std::span<const std::uint64_t> program::inputs_of(std::size_t output) const
{
    return parts_->dependences.inputs_of(output);
}

std::span<double> program::lane_inputs()
{
    parts& own = *parts_;
    if (lane_registers_ == nullptr) {
        own.four = lane_program::load(own.code);
        if (own.four) {
            lane_registers_ = own.four->registers();
            lane_output_registers_ = output_registers_;
        } else {
            own.spread_inputs.resize(input_count_ * lanes);
            own.spread_outputs.resize(output_count() * lanes);
            own.spread_registers.resize(output_count());
            std::iota(own.spread_registers.begin(), own.spread_registers.end(), std::uint16_t{0});
            lane_registers_ = own.spread_outputs.data();
            lane_output_registers_ = own.spread_registers.data();
        }
    }
    return {own.four ? own.four->registers() : own.spread_inputs.data(), input_count_ * lanes};
}

bool program::lanes_agree_with_single_points()
{
    const std::vector<double> values(lane_inputs().begin(), lane_inputs().end());
    for (int p = 0; p < lanes; ++p) {
        for (std::size_t i = 0; i < input_count(); ++i)
            inputs()[i] = values[i * lanes + static_cast<std::size_t>(p)];
        if (!run_in_place()) return false;
        for (std::size_t i = 0; i < output_count(); ++i)
            if (std::bit_cast<std::uint64_t>(output(i)) != std::bit_cast<std::uint64_t>(lane_output(i, p)))
                return false;
    }
    return true;
}

bool program::run_lanes_in_place()
{
    const std::span<double> values = lane_inputs();
    parts& own = *parts_;
    if (own.four) {
        if (!own.four->run()) return false;
        assert(!compares_evaluations || lanes_agree_with_single_points());
        return true;
    }
    for (int p = 0; p < lanes; ++p) {
        for (std::size_t i = 0; i < input_count_; ++i)
            own.registers[i] = values[i * lanes + static_cast<std::size_t>(p)];
        if (!run_in_place()) return false;
        for (std::size_t i = 0; i < output_count(); ++i)
            own.spread_outputs[i * lanes + static_cast<std::size_t>(p)] = output(i);
    }
    return true;
}

bool program::run_lanes(std::span<const double> values, std::span<double> outputs)
{
    std::ranges::copy(values, lane_inputs().begin());
    if (!run_lanes_in_place()) return false;
    for (std::size_t i = 0; i < output_count(); ++i)
        for (int p = 0; p < lanes; ++p)
            outputs[i * lanes + static_cast<std::size_t>(p)] = lane_output(i, p);
    return true;
}

} // namespace kelvarin
