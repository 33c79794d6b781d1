// SPDX-License-Identifier: MIT
#include "help/help_page.h"

#include "platform/letter_case.h"

#include <algorithm>
#include <optional>

namespace kelvarin
{

namespace
{

bool is_fence(std::string_view line)
{
    return line.starts_with("```");
}

std::optional<help_heading> read_heading(std::string_view line)
{
    const std::size_t level = std::min(line.find_first_not_of('#'), line.size());
    if (level == 0 || level == line.size() || line[level] != ' ') return std::nullopt;
    help_heading heading{static_cast<int>(level), reading_form(line.substr(level + 1)), {}};
    heading.anchor = anchor_of_heading(heading.text);
    return heading;
}

/// A link that begins at the bracket `at`, and where it ends; nullopt if none does.
struct found_link
{
    help_link link;
    std::size_t end = 0;
};

std::optional<found_link> link_at(std::string_view line, std::size_t at)
{
    const std::size_t middle = line.find("](", at);
    if (line[at] != '[' || middle == std::string_view::npos) return std::nullopt;
    // A bracket before that is no caption.
    if (line.substr(at + 1, middle - at - 1).find('[') != std::string_view::npos) return std::nullopt;
    const std::size_t end = line.find(')', middle);
    if (end == std::string_view::npos) return std::nullopt;
    return found_link{
        {std::string(line.substr(at + 1, middle - at - 1)), std::string(line.substr(middle + 2, end - middle - 2))},
        end + 1};
}

/// Calls `text` with each character outside of links and `link` with each link; code is passed to `text`.
template <class Text, class Link> void walk_line(std::string_view line, Text text, Link link)
{
    bool in_code = false;
    for (std::size_t at = 0; at < line.size();) {
        if (line[at] == '`') in_code = !in_code;
        if (const auto found = in_code ? std::nullopt : link_at(line, at)) {
            link(found->link);
            at = found->end;
            continue;
        }
        text(line[at], in_code);
        ++at;
    }
}

/// Table lines such as "|---|---|" hold nothing to read.
bool is_rule(std::string_view line)
{
    return !line.empty() && line.find_first_not_of("|-: ") == std::string_view::npos;
}

} // namespace

std::string anchor_of_heading(std::string_view heading)
{
    std::string anchor;
    for (const char letter : lower_case(heading)) {
        if (letter == ' ')
            anchor += '-';
        else if (letter == '-' || letter == '_' || (letter >= 'a' && letter <= 'z') ||
                 (letter >= '0' && letter <= '9') || (static_cast<unsigned char>(letter) & 0x80U) != 0)
            anchor += letter;
    }
    return anchor;
}

std::string reading_form(std::string_view markdown_line)
{
    std::string read;
    walk_line(
        markdown_line,
        [&](char letter, bool in_code) {
            if (letter == '`' || (letter == '*' && !in_code)) return;
            read += letter == '|' && !in_code ? ' ' : letter;
        },
        [&](const help_link& link) {
            if (read.ends_with('!')) read.pop_back();
            read += reading_form(link.caption);
        });
    return read;
}

help_page read_help_page(std::string name, std::string_view markdown)
{
    help_page page{.name = std::move(name), .title = {}, .markdown = {}, .sections = {}, .links = {}};
    bool in_code = false;
    while (!markdown.empty()) {
        const std::size_t end = std::min(markdown.find('\n'), markdown.size());
        const std::string_view line = markdown.substr(0, end);
        markdown.remove_prefix(std::min(end + 1, markdown.size()));
        if (!in_code && line.starts_with("<!--")) continue;
        page.markdown.append(line).append("\n");
        if (is_fence(line)) {
            in_code = !in_code;
            continue;
        }
        if (const auto heading = in_code ? std::nullopt : read_heading(line)) {
            if (page.title.empty()) page.title = heading->text;
            page.sections.push_back({*heading, {}});
            continue;
        }
        if (page.sections.empty()) page.sections.emplace_back();
        std::string& text = page.sections.back().text;
        if (in_code) {
            text.append(line).append("\n");
        } else if (!is_rule(line)) {
            text.append(reading_form(line)).append("\n");
            walk_line(
                line, [](char, bool) {}, [&page](const help_link& link) { page.links.push_back(link); });
        }
    }
    return page;
}

} // namespace kelvarin
