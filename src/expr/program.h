// SPDX-License-Identifier: MIT
#pragma once

#include "expr/program_graph.h"

#include <cstdint>
#include <memory>
#include <span>

namespace kelvarin
{

/// The fast form of a list of trees: many evaluations of the same expressions at different values.
///
/// How it comes about: trees -> a graph in which each different value stands once (program_graph) ->
/// straight code over registers and an accumulator (program_code) -> instructions of a machine
/// (program_machine), one for single points and one for four side by side.
///
/// The plain walk (evaluate_tree) defines what it means. The program gives the same bits where
/// all goes well, and says so when something failed; which failure came first, its message and the zeros
/// behind it are then found by the walk, from the same inputs. Inside the program the order of
/// evaluation is free, constants are folded where the result is finite, and the branch of a conditional
/// that is not taken is not evaluated.
///
/// A program owns its registers: one run, one thread.
class program
{
public:
    /// Points that are evaluated side by side.
    static constexpr int lanes = 4;

    /// Returns nullptr if only the walk gives the right meaning (`rand`, variables that may be empty) or if
    /// the code would be too long.
    static std::unique_ptr<program> compile(const tree_system& system);

    ~program();
    program(const program&) = delete;
    program& operator=(const program&) = delete;

    std::size_t input_count() const { return input_count_; }
    std::size_t output_count() const;

    /// Evaluates the outputs at one point; false, and outputs without meaning, where something failed.
    bool run(std::span<const double> inputs, std::span<double> outputs);

    /// The inputs' values, to be set in place before run_in_place, and then each output's value.
    std::span<double> inputs() { return {registers_, input_count_}; }
    bool run_in_place();
    double output(std::size_t i) const { return registers_[output_registers_[i]]; }

    /// Evaluates four points side by side: input i of point p is inputs[i * lanes + p], likewise the
    /// outputs. False where any of them failed, or where they take different branches; run() distinguishes the two.
    bool run_lanes(std::span<const double> inputs, std::span<double> outputs);
    /// The same in place: input i of point p.
    std::span<double> lane_inputs();
    bool run_lanes_in_place();
    double lane_output(std::size_t i, int point) const { return lane_value(lane_register(i, point)); }
    /// The number of the lane register that holds an output at a point, for callers that read many. Call lane_inputs
    /// before.
    std::uint32_t lane_register(std::size_t i, int point) const
    {
        return std::uint32_t{lane_output_registers_[i]} * lanes + static_cast<std::uint32_t>(point);
    }
    double lane_value(std::uint32_t number) const { return lane_registers_[number]; }

    /// The inputs with which an output can change, as words of bits: input j is bit j % 64 of word j / 64.
    std::span<const std::uint64_t> inputs_of(std::size_t output) const;

private:
    program();

    bool lanes_agree_with_single_points();

    struct parts;
    std::unique_ptr<parts> parts_;
    // What every evaluation needs, at hand: the parts' registers and where the outputs are among them.
    double* registers_ = nullptr;
    const std::uint16_t* output_registers_ = nullptr;
    std::size_t input_count_ = 0;
    /// The same for four points side by side, set when they are first asked for.
    const double* lane_registers_ = nullptr;
    const std::uint16_t* lane_output_registers_ = nullptr;
};

} // namespace kelvarin
