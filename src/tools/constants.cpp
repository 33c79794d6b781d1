// SPDX-License-Identifier: MIT
#include "tools/constants.h"

#include "platform/text_file.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace kelvarin
{

namespace
{

/// The groups by name: files may have very many.
class group_table
{
public:
    explicit group_table(std::vector<constant_group>& groups) : groups_(groups) {}

    constant_group& named(std::string_view name)
    {
        const auto [found, is_new] = index_.try_emplace(std::string(name), groups_.size());
        if (is_new) groups_.push_back({std::string(name), {}});
        return groups_[found->second];
    }

private:
    std::vector<constant_group>& groups_;
    std::unordered_map<std::string, std::size_t> index_;
};

/// Adds the constant of a line. Returns what is wrong with the line, or an empty text.
std::string add_constant(std::string_view line, std::string_view group, group_table& groups)
{
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return "there is no \"=\"";
    const std::size_t bar = std::min(line.find('|', equals), line.size());
    const std::string_view name = trimmed(line.substr(0, equals));
    const std::string_view value = trimmed(line.substr(equals + 1, bar - equals - 1));
    if (name.empty() || value.empty()) return "name or value is missing";
    const std::string_view units = bar == line.size() ? std::string_view() : trimmed(line.substr(bar + 1));
    groups.named(group).constants.push_back({std::string(name), std::string(value), std::string(units)});
    return {};
}

std::size_t letter_count(std::string_view text)
{
    // UTF-8 continuation bytes are not characters of their own.
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0u) != 0x80u; }));
}

std::string padded(std::string_view text, std::size_t width)
{
    return std::string(text) + std::string(width - letter_count(text), ' ');
}

} // namespace

constant_list read_constants(std::string_view text)
{
    constant_list list;
    group_table groups(list.groups);
    std::string_view group;
    int number = 0;
    while (!text.empty()) {
        const std::string_view line = take_line(text);
        ++number;
        const std::string_view content = trimmed(line);
        if (is_passed_over(content)) continue;
        if (content.front() == ':') {
            group = trimmed(content.substr(1));
            groups.named(group);
        } else if (std::string reason = add_constant(content, group, groups); !reason.empty()) {
            list.faults.push_back({number, std::move(reason)});
        }
    }
    return list;
}

std::vector<constant_group> search_constants(const std::vector<constant_group>& groups, std::string_view words)
{
    const word_search wanted(words);
    std::vector<constant_group> found;
    for (const constant_group& group : groups) {
        constant_group left = {group.name, {}};
        for (const physical_constant& each : group.constants)
            if (wanted.all_in({group.name, each.name, each.units})) left.constants.push_back(each);
        if (!left.constants.empty()) found.push_back(std::move(left));
    }
    return found;
}

std::vector<std::string> constant_lines(const constant_group& group)
{
    std::size_t name_width = 0;
    std::size_t value_width = 0;
    for (const physical_constant& each : group.constants) {
        name_width = std::max(name_width, letter_count(each.name));
        value_width = std::max(value_width, letter_count(each.value));
    }
    std::vector<std::string> lines;
    for (const physical_constant& each : group.constants) {
        std::string line = padded(each.name, name_width) + "  " + padded(each.value, value_width) + "  " + each.units;
        line.erase(line.find_last_not_of(' ') + 1);
        lines.push_back(std::move(line));
    }
    return lines;
}

std::string copied_line(const physical_constant& constant)
{
    std::string line = constant.name + " = " + constant.value;
    if (!constant.units.empty()) line += " " + constant.units;
    return line;
}

} // namespace kelvarin
