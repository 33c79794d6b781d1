// SPDX-License-Identifier: MIT
#pragma once

#include "nle/nle_run.h"

#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

inline constexpr std::string_view other_guesses = "other guesses";
inline constexpr std::string_view other_bounds = "other bounds";

/// What may help after a run that found no solution: a line, and the things to try that it names behind its colon,
/// which are methods or one of the texts above. Empty if a solution was found or the failure has other causes.
struct nle_advice
{
    std::string text;
    std::vector<std::string> things;
};

nle_advice advice_after(const nle_outcome& outcome);

} // namespace kelvarin
