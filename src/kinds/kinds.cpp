// SPDX-License-Identifier: MIT
#include "kinds/kinds.h"

#include "deq/deq_kind.h"
#include "leq/leq_kind.h"
#include "nle/nle_kind.h"
#include "opt/opt_kind.h"
#include "reg/reg_kind.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

namespace kelvarin
{

std::span<const problem_kind* const> problem_kinds()
{
    static const std::array<const problem_kind*, 5> kinds = {&leq_kind(), &nle_kind(), &deq_kind(), &reg_kind(),
                                                             &opt_kind()};
    return kinds;
}

std::span<const problem_kind* const> kinds_of_main_window()
{
    static const std::vector<const problem_kind*> kinds = [] {
        std::vector<const problem_kind*> found;
        std::ranges::copy_if(problem_kinds(), std::back_inserter(found),
                             [](const problem_kind* kind) { return !kind->opened_by_own_windows; });
        return found;
    }();
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
