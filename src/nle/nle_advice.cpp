// SPDX-License-Identifier: MIT
#include "nle/nle_advice.h"

#include "nle/equations/set_texts.h"
#include "platform/runtime_failure.h"

#include <algorithm>
#include <variant>

namespace kelvarin
{

namespace
{

/// Whether a solver gave up. A circle of definitions is told in the same kind of box, with its rows.
bool solver_gave_up(const nle_outcome& outcome)
{
    if (outcome.has_report) return !outcome.converged();
    const std::string number = '(' + std::to_string(failure_number::numeric) + ')';
    return !outcome.stopped && std::ranges::any_of(outcome.boxes, [&](const message_box& box) {
        return box.rows.empty() && box.text.find(number) != std::string::npos;
    });
}

} // namespace

nle_advice advice_after(const nle_outcome& outcome)
{
    if (!solver_gave_up(outcome)) return {};
    const bool single = std::holds_alternative<nle_single_result>(outcome.result);
    nle_advice advice;
    for (const nle_method method : {nle_method::safenewt, nle_method::constrained})
        if (method != outcome.method && !(single && method == nle_method::constrained))
            advice.things.emplace_back(method_text(method));
    advice.things.emplace_back(single ? other_bounds : other_guesses);
    advice.text =
        (single ? "No root was found. Try: " : "The run did not converge. Try: ") + joined_names(advice.things);
    return advice;
}

} // namespace kelvarin
