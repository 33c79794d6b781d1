// SPDX-License-Identifier: MIT
#include "kinds/kinds.h"

#include "deq/deq_kind.h"
#include "leq/leq_kind.h"
#include "nle/nle_kind.h"
#include "opt/opt_kind.h"
#include "reg/reg_kind.h"

#include <algorithm>
#include <array>

namespace kelvarin
{

std::span<const problem_kind* const> problem_kinds()
{
    static const std::array<const problem_kind*, 5> kinds = {&leq_kind(), &nle_kind(), &deq_kind(), &reg_kind(),
                                                             &opt_kind()};
    return kinds;
}

const problem_kind* problem_kind_of(std::string_view key)
{
    const auto kinds = problem_kinds();
    const auto found =
        std::ranges::find(kinds, key, [](const problem_kind* kind) { return std::string_view(kind->key); });
    return found == kinds.end() ? nullptr : *found;
}

} // namespace kelvarin
