// SPDX-License-Identifier: MIT
#pragma once

#include "nle/nle_run.h"
#include "platform/clock.h"
#include "platform/run_listener.h"
#include "shell/settings.h"

#include <string>
#include <utility>
#include <variant>
#include <vector>

/// Nonlinear problems and their runs, written short.
namespace kelvarin::test
{

inline nle_content system_of(std::vector<equation_row> rows, nle_method method = nle_method::fastnewt)
{
    nle_content content;
    content.method = method;
    content.rows = std::move(rows);
    return content;
}

inline nle_content single_of(std::vector<equation_row> rows, std::string lower, std::string upper,
                             nle_method method = nle_method::fastnewt)
{
    nle_content content = system_of(std::move(rows), method);
    content.lower_bound = std::move(lower);
    content.upper_bound = std::move(upper);
    return content;
}

/// A run with default settings on a clock that stands still.
inline nle_outcome run_of(const nle_content& content, const settings& store = settings())
{
    recording_listener listener;
    return run_nle({content, {}}, store, fixed_clock(), listener);
}

/// What the run of a system found out; the test ends where the outcome is that of another kind of run.
inline const nle_system_result& system_result(const nle_outcome& outcome)
{
    return std::get<nle_system_result>(outcome.result);
}

inline const nle_single_result& single_result(const nle_outcome& outcome)
{
    return std::get<nle_single_result>(outcome.result);
}

} // namespace kelvarin::test
