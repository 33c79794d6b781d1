// SPDX-License-Identifier: MIT
#include "expr/clsParse.h"

#include "expr/basParse.h"
#include "platform/text_file.h"

#include <algorithm>

namespace kelvarin
{

std::optional<clsParse::slot> clsParse::find(std::string_view name) const
{
    const auto found = slots_.find(name);
    if (found == slots_.end()) return std::nullopt;
    return found->second;
}

clsParse::slot clsParse::slot_of(std::string_view name)
{
    if (const auto known = find(name)) return *known;
    const auto made = static_cast<slot>(names_.size());
    names_.emplace_back(name);
    values_.push_back(0.0);
    fillings_.push_back(0);
    slots_.emplace(names_.back(), made);
    return made;
}

std::optional<double> clsParse::get_var(std::string_view name) const
{
    const auto place = find(name);
    if (!place || !holds(*place)) return std::nullopt;
    return values_[*place];
}

bool clsParse::Add_new_var(std::string_view name, double value)
{
    const std::string_view wanted = trimmed(name);
    if (!is_valid_name(wanted) || var_exists(wanted)) return false;
    set(slot_of(wanted), value);
    return true;
}

void clsParse::modify_add_var_value(std::string_view name, double value)
{
    set(slot_of(trimmed(name)), value);
}

bool clsParse::Remove_var(std::string_view name)
{
    const auto place = find(name);
    return place && remove(*place);
}

bool clsParse::remove(slot place)
{
    if (!holds(place)) return false;
    fillings_[place] = 0;
    present_.erase(std::ranges::find(present_, place));
    return true;
}

void clsParse::remove_all_vars()
{
    ++filling_;
    present_.clear();
}

std::vector<std::string> clsParse::get_all_vars() const
{
    std::vector<std::string> names;
    names.reserve(present_.size());
    for (const slot place : present_)
        names.emplace_back(names_[place]);
    return names;
}

solved_expression clsParse::Solve_expression(std::string_view text, evaluation_context& context)
{
    solved_expression solved;
    built_tree built = build_tree(scan_tokens(text), *this);
    if (!built.ok()) {
        solved.message = std::move(built.message);
        solved.fatal = built.fatal;
        return solved;
    }
    context.clear_failure();
    solved.value = evaluate_tree(built.tree, expression_tree::root, *this, context);
    solved.message = context.eval_error_message();
    context.clear_failure();
    solved.ok = solved.message.empty();
    return solved;
}

} // namespace kelvarin
