// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace kelvarin::bench
{

/// The text of a problem of so many equations, a fifth of them explicit and each of these used by one
/// residual: tridiagonal systems, number by number another kind, coefficient and method.
std::string problem_text(int equations, int number);

/// Writes problems 0 to count - 1 and gives their paths.
std::vector<std::string> write_problems(const std::filesystem::path& folder, int equations, int count);

} // namespace kelvarin::bench
