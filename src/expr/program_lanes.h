// SPDX-License-Identifier: MIT
#pragma once

#include "expr/program_code.h"

#include <memory>

namespace kelvarin
{

/// The machine that runs a program at four points side by side, with its registers. Lane p of register i is
/// registers()[4 * i + p].
class lane_program
{
public:
    virtual ~lane_program() = default;

    /// Returns nullptr on processors without registers of four doubles.
    static std::unique_ptr<lane_program> load(const program_code& code);

    virtual double* registers() = 0;
    /// False where something failed in any lane, or lanes wanted different branches.
    virtual bool run() = 0;
};

} // namespace kelvarin
