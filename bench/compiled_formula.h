// SPDX-License-Identifier: MIT
#pragma once

#include "expr/program.h"
#include "formulas.h"
#include "nle/nle_system.h"

#include <memory>
#include <vector>

namespace kelvarin::bench
{

/// A formula as this program evaluates it: by its trees and by the program made of them.
class compiled_formula
{
public:
    /// Checks, builds and compiles the texts; throws where one is refused.
    explicit compiled_formula(const formula& source);

    program& fast() { return *program_; }
    /// The plain walk, results into their slots.
    double walk();

private:
    clsParse store_;
    evaluation_context context_;
    std::vector<expression_tree> trees_;
    std::vector<clsParse::slot> slots_;
    std::unique_ptr<program> program_;
};

/// Broyden's tridiagonal system, read from its texts and compiled as a run does it.
class broyden_system
{
public:
    explicit broyden_system(int n);

    nle_system& system() { return system_; }
    const std::vector<double>& start() const { return system_.guesses(); }

private:
    recording_listener listener_;
    nle_system system_;
};

} // namespace kelvarin::bench
