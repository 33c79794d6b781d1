// SPDX-License-Identifier: MIT
#include "batch/kinds/kind_answerer.h"
#include "batch/kinds/deq_answerer.h"
#include "batch/kinds/graph_answerer.h"
#include "batch/kinds/leq_answerer.h"
#include "batch/kinds/nle_answerer.h"
#include "batch/kinds/opt_answerer.h"
#include "batch/kinds/reg_answerer.h"

#include <algorithm>
#include <array>

namespace kelvarin
{

std::span<const kind_answerer> kind_answerers()
{
    static const std::array<kind_answerer, 6> answerers = {nle_answerer(), leq_answerer(), deq_answerer(),
                                                           reg_answerer(), opt_answerer(), graph_answerer()};
    return answerers;
}

const kind_answerer* answerer_of(const problem_kind& kind)
{
    const auto answerers = kind_answerers();
    const auto found = std::ranges::find(answerers, &kind, &kind_answerer::kind);
    return found == answerers.end() ? nullptr : &*found;
}

} // namespace kelvarin
