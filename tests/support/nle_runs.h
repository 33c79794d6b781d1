// SPDX-License-Identifier: MIT
#pragma once

#include "nle/nle_run.h"
#include "platform/clock.h"
#include "platform/run_listener.h"
#include "shell/settings.h"

#include <string>
#include <utility>
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

} // namespace kelvarin::test
