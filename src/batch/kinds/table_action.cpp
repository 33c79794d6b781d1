// SPDX-License-Identifier: MIT
#include "batch/kinds/table_action.h"

#include <algorithm>
#include <utility>

namespace kelvarin
{

namespace
{

bool has_detail(const table_action& action, std::string_view option)
{
    return std::ranges::find(action.details, option) != action.details.end();
}

} // namespace

table_answer wrong_usage(std::string text)
{
    table_answer answer;
    answer.refuse({std::move(text), box_icon::exclamation});
    answer.is_wrong_usage = true;
    return answer;
}

const table_action* action_asked_for(std::span<const table_action> actions, const batch_request& request,
                                     const table_action* otherwise, std::string& refused)
{
    const table_action* asked = nullptr;
    for (const table_action& action : actions) {
        if (!request.option(action.option)) continue;
        if (asked) {
            refused = std::string(asked->option) + " and " + action.option + " can not be asked for together.";
            return nullptr;
        }
        asked = &action;
    }
    if (!asked) asked = otherwise;
    for (const auto& [name, values] : request.kind_options) {
        const auto owner = std::ranges::find_if(
            actions, [&, option = std::string_view(name)](const auto& action) { return has_detail(action, option); });
        if (owner == actions.end() || (asked && has_detail(*asked, name))) continue;
        refused = name + ": " +
                  (asked ? std::string("not an option of ") + asked->option : "of no use without an action") + ".";
        return nullptr;
    }
    return asked;
}

} // namespace kelvarin
