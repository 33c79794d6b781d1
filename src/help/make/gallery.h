// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace kelvarin
{

/// A table of examples: what each is about, its kind and its method, as `answer_of` says in JSON for a file. Throws
/// std::runtime_error for a file that is not solved.
std::string gallery_table(const std::vector<std::string>& files,
                          const std::function<std::string(const std::string&)>& answer_of);

} // namespace kelvarin
