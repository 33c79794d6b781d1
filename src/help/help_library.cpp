// SPDX-License-Identifier: MIT
#include "help/help_library.h"

#include "platform/letter_case.h"

#include <algorithm>
#include <utility>

namespace kelvarin
{

namespace
{

/// Columns by which a nested list of the contents is indented.
constexpr std::size_t indent = 2;
constexpr std::size_t excerpt_before = 40;
constexpr std::size_t excerpt_length = 140;
/// What a word weighs by where it stands.
constexpr int weight_in_heading = 100;
constexpr int weight_in_title = 20;
constexpr int most_in_text = 10;

std::string_view page_name(std::string_view target)
{
    return target.substr(0, target.find('#'));
}

/// "graphs.md#zoom" as "graphs#zoom".
std::string target_of_link(std::string_view link)
{
    const std::size_t ending = link.find(".md");
    if (ending == std::string_view::npos) return std::string(link);
    return std::string(link.substr(0, ending)) + std::string(link.substr(ending + 3));
}

std::vector<help_entry> read_contents(std::string_view markdown)
{
    std::vector<help_entry> entries;
    while (!markdown.empty()) {
        const std::size_t end = std::min(markdown.find('\n'), markdown.size());
        const std::string_view line = markdown.substr(0, end);
        markdown.remove_prefix(std::min(end + 1, markdown.size()));
        const std::size_t dash = line.find_first_not_of(' ');
        if (dash == std::string_view::npos || !line.substr(dash).starts_with("- ")) continue;
        const std::string_view item = line.substr(dash + 2);
        const std::size_t middle = item.find("](");
        help_entry entry{static_cast<int>(dash / indent), reading_form(item), {}};
        if (item.starts_with("[") && middle != std::string_view::npos) {
            entry.caption = std::string(item.substr(1, middle - 1));
            entry.target = target_of_link(item.substr(middle + 2, item.find(')', middle) - middle - 2));
        }
        entries.push_back(std::move(entry));
    }
    return entries;
}

int occurrences(std::string_view text, std::string_view word)
{
    int number = 0;
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + word.size()))
        ++number;
    return number;
}

bool continues_letter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The text around `at`, blanks in place of line ends.
std::string excerpt_around(std::string_view text, std::size_t at)
{
    std::size_t from = at > excerpt_before ? text.find_first_of(" \n", at - excerpt_before) + 1 : 0;
    if (from > at) from = at;
    std::size_t to = std::min(text.size(), from + excerpt_length);
    while (to < text.size() && continues_letter(text[to]))
        --to;
    std::string excerpt;
    for (const char letter : text.substr(from, to - from)) {
        const bool blank = letter == '\n' || letter == ' ';
        if (!blank)
            excerpt += letter;
        else if (!excerpt.empty() && !excerpt.ends_with(' '))
            excerpt += ' ';
    }
    return excerpt;
}

/// What a section is worth; 0 if a word is missing.
int weight_of(const help_page& page, const help_section& section, const std::vector<std::string>& words)
{
    const std::string title = lower_case(page.title);
    const std::string heading = lower_case(section.heading.text);
    const std::string text = lower_case(section.text);
    int weight = 0;
    for (const std::string& word : words) {
        const int found = (occurrences(heading, word) > 0 ? weight_in_heading : 0) +
                          (occurrences(title, word) > 0 ? weight_in_title : 0) +
                          std::min(occurrences(text, word), most_in_text);
        if (found == 0) return 0;
        weight += found;
    }
    return weight;
}

help_hit hit_in(const help_page& page, const help_section& section, const std::vector<std::string>& words)
{
    const std::string text = lower_case(section.text);
    std::size_t first = text.size();
    for (const std::string& word : words)
        first = std::min(first, text.find(word));
    return {&page, &section, excerpt_around(section.text, first < text.size() ? first : 0)};
}

} // namespace

std::string help_hit::target() const
{
    return section == &page->sections.front() ? page->name : page->name + "#" + section->heading.anchor;
}

help_library::help_library(std::vector<help_page> pages) : pages_(std::move(pages))
{
    if (const help_page* page = page_of(help_contents_page)) contents_ = read_contents(page->markdown);
}

const help_page* help_library::page_of(std::string_view target) const
{
    const auto found = std::ranges::find(pages_, page_name(target), &help_page::name);
    return found == pages_.end() ? nullptr : &*found;
}

bool help_library::has(std::string_view target) const
{
    const help_page* page = page_of(target);
    const std::size_t mark = target.find('#');
    if (page == nullptr || mark == std::string_view::npos) return page != nullptr;
    return std::ranges::any_of(page->sections, [anchor = target.substr(mark + 1)](const help_section& section) {
        return section.heading.anchor == anchor;
    });
}

std::vector<std::string> words_of_search(std::string_view text)
{
    std::vector<std::string> words;
    const std::string lower = lower_case(text);
    for (std::size_t at = lower.find_first_not_of(' '); at != std::string::npos;) {
        const std::size_t end = std::min(lower.find(' ', at), lower.size());
        words.push_back(lower.substr(at, end - at));
        at = lower.find_first_not_of(' ', end);
    }
    return words;
}

std::vector<help_hit> help_library::search(std::string_view text) const
{
    const std::vector<std::string> words = words_of_search(text);
    if (words.empty()) return {};
    std::vector<std::pair<int, help_hit>> found;
    for (const help_page& page : pages_) {
        if (page.name == help_contents_page) continue;
        for (const help_section& section : page.sections)
            if (const int weight = weight_of(page, section, words); weight > 0)
                found.emplace_back(weight, hit_in(page, section, words));
    }
    std::ranges::stable_sort(found, std::greater<>(), &std::pair<int, help_hit>::first);
    std::vector<help_hit> hits;
    for (auto& [weight, hit] : found)
        hits.push_back(std::move(hit));
    return hits;
}

} // namespace kelvarin
