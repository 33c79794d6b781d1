// SPDX-License-Identifier: MIT
#include "expr/clsParse.h"

#include "expr/basParse.h"
#include "platform/text_file.h"

#include <algorithm>

namespace kelvarin
{

namespace
{

/// FNV-1a, folded: names are short, and a call of a general hash costs more than looking at them.
std::size_t hash_of(std::string_view name)
{
    std::uint64_t hash = 0xCBF29CE484222325u;
    for (const char c : name)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3u;
    return static_cast<std::size_t>(hash ^ (hash >> 32));
}

} // namespace

std::size_t clsParse::bucket_of(std::string_view name) const
{
    const std::size_t mask = buckets_.size() - 1;
    std::size_t i = hash_of(name) & mask;
    while (buckets_[i] != no_slot && names_[buckets_[i]] != name)
        i = (i + 1) & mask;
    return i;
}

std::optional<clsParse::slot> clsParse::find(std::string_view name) const
{
    if (buckets_.empty()) return std::nullopt;
    const slot found = buckets_[bucket_of(name)];
    if (found == no_slot) return std::nullopt;
    return found;
}

void clsParse::grow_buckets()
{
    constexpr std::size_t fewest = 32;
    buckets_.assign(std::max(fewest, buckets_.size() * 2), no_slot);
    for (std::size_t i = 0; i < names_.size(); ++i)
        buckets_[bucket_of(names_[i])] = static_cast<slot>(i);
}

clsParse::slot clsParse::slot_of(std::string_view name)
{
    if (names_.size() * 2 >= buckets_.size()) grow_buckets();
    slot& place = buckets_[bucket_of(name)];
    if (place != no_slot) return place;
    place = static_cast<slot>(names_.size());
    names_.emplace_back(name);
    values_.push_back(0.0);
    fillings_.push_back(0);
    return place;
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
    if (!is_valid_name(wanted)) return false;
    const slot place = slot_of(wanted);
    if (holds(place)) return false;
    set(place, value);
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
