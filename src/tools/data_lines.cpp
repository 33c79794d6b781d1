// SPDX-License-Identifier: MIT
#include "tools/data_lines.h"

#include "platform/letter_case.h"

#include <algorithm>

namespace kelvarin
{

bool is_passed_over(std::string_view line)
{
    return line.empty() || line.front() == '\'';
}

word_search::word_search(std::string_view words)
{
    constexpr std::string_view blanks = " \t";
    for (std::size_t at = words.find_first_not_of(blanks); at != std::string_view::npos;) {
        const std::size_t end = std::min(words.find_first_of(blanks, at), words.size());
        words_.push_back(lower_case(words.substr(at, end - at)));
        at = words.find_first_not_of(blanks, end);
    }
}

bool word_search::all_in(std::initializer_list<std::string_view> texts) const
{
    // Words contain no line end, so none is found across two texts.
    std::string whole;
    for (const std::string_view text : texts)
        whole.append(lower_case(text)).append("\n");
    return std::ranges::all_of(words_, [&](const std::string& word) { return whole.find(word) != std::string::npos; });
}

message_box missing_data_box(std::string_view file_name)
{
    return {"\"" + std::string(file_name) + "\" file not found.\rThis option cannot be continued.", box_icon::critical,
            "WinKelvarin Guide"};
}

} // namespace kelvarin
