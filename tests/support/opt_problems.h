// SPDX-License-Identifier: MIT
#pragma once

#include "opt/opt_run.h"

#include <initializer_list>
#include <string>
#include <string_view>

/// Optimization problems, written short.
namespace kelvarin::test
{

inline opt_content target_of(std::string_view target, std::initializer_list<std::string_view> rows,
                             opt_method method = opt_method::conjugate_grad)
{
    opt_content content;
    content.method = method;
    content.target = target;
    for (const std::string_view row : rows)
        content.rows.push_back({std::string(row), "", ""});
    return content;
}

inline opt_outcome run_of(const opt_content& content, const settings& store = settings())
{
    recording_listener listener;
    return run_opt({content, {}}, store, fixed_clock(), listener);
}

} // namespace kelvarin::test
