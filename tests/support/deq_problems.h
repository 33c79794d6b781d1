// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_content.h"

#include <string>
#include <utility>
#include <vector>

/// Differential problems, written short.
namespace kelvarin::test
{

inline equation_row differential_row(const std::string& name, const std::string& expression,
                                     const std::string& value = "1")
{
    return {differential_equation(name, "t", expression), value, ""};
}

/// A problem over a range of t, or of another variable.
inline deq_content integrated(std::vector<equation_row> rows, std::string initial = "0", std::string final = "1",
                              std::string independent = "t")
{
    deq_content content;
    content.rows = std::move(rows);
    content.initial_value = std::move(initial);
    content.final_value = std::move(final);
    return with_independent(std::move(content), independent);
}

} // namespace kelvarin::test
