// SPDX-License-Identifier: MIT
#pragma once

#include <tuple>
#include <vector>

namespace kelvarin::test
{

/// The cases of a test, a row each: `for (const auto& [text, expected] : table<const char*, double>{{"1", 1.0}})`.
template <class... Columns> using table = std::vector<std::tuple<Columns...>>;

} // namespace kelvarin::test
