// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_content.h"
#include "deq/deq_run.h"
#include "platform/run_listener.h"
#include "shell/settings.h"

#include <algorithm>
#include <array>
#include <cstddef>
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

/// A run that takes no time.
inline deq_outcome run_of(const deq_content& content, const settings& store = settings())
{
    recording_listener listener;
    return run_deq({content, {}}, store, listener, [] { return 0.0; });
}

inline deq_outcome run_by(deq_method method, deq_content content, const settings& store = settings())
{
    content.method = method;
    return run_of(content, store);
}

inline constexpr std::array all_deq_methods = {deq_method::rkf45, deq_method::rkf56, deq_method::bs, deq_method::stiff,
                                               deq_method::stiffbs};

/// The values of a variable at the stored points.
inline const std::vector<double>& column_of(const deq_outcome& outcome, const std::string& name)
{
    const std::vector<std::string>& names = outcome.points.names;
    return outcome.points.columns.at(static_cast<std::size_t>(std::ranges::find(names, name) - names.begin()));
}

} // namespace kelvarin::test
