// SPDX-License-Identifier: MIT
#include "shell/report/styled_text.h"

#include "platform/letter_case.h"
#include "platform/text_file.h"

#include <algorithm>
#include <array>

namespace kelvarin
{

namespace
{

struct name_word
{
    std::string_view word;
    font_class family;
};

/// The order matters: "Sans Serif" is sans, and "Sans Mono" is monospace.
constexpr std::array<name_word, 22> name_words = {
    {{"courier", font_class::monospace},    {"mono", font_class::monospace},  {"consol", font_class::monospace},
     {"typewriter", font_class::monospace}, {"fixed", font_class::monospace}, {"menlo", font_class::monospace},
     {"terminal", font_class::monospace},   {"sans", font_class::sans},       {"arial", font_class::sans},
     {"helvetica", font_class::sans},       {"verdana", font_class::sans},    {"tahoma", font_class::sans},
     {"calibri", font_class::sans},         {"times", font_class::serif},     {"serif", font_class::serif},
     {"roman", font_class::serif},          {"georgia", font_class::serif},   {"garamond", font_class::serif},
     {"cambria", font_class::serif},        {"palatino", font_class::serif},  {"bookman", font_class::serif},
     {"schoolbook", font_class::serif}}};

} // namespace

font_class class_of_font(std::string_view family, font_class otherwise)
{
    const std::string name = lower_case(family);
    const auto found =
        std::ranges::find_if(name_words, [&](const name_word& each) { return name.find(each.word) != name.npos; });
    return found == name_words.end() ? otherwise : found->family;
}

std::string plain_text_of(std::span<const styled_line> lines)
{
    std::string text;
    for (const styled_line& line : lines) {
        for (const styled_run& run : line)
            text += run.text;
        text += '\n';
    }
    return text;
}

std::vector<styled_line> styled_plain_text(std::string_view text)
{
    const auto is_control = [](char byte) {
        const auto code = static_cast<unsigned char>(byte);
        return (code < 0x20 && byte != '\t') || code == 0x7F;
    };
    const std::string valid = to_utf8(text);
    std::vector<styled_line> lines;
    for (std::string_view rest = valid; !rest.empty();) {
        const std::string_view line = take_line(rest);
        styled_run run;
        run.text = line;
        std::ranges::replace_if(run.text, is_control, ' ');
        run.font = "Courier New";
        run.family = font_class::monospace;
        lines.emplace_back();
        if (!run.text.empty()) lines.back().push_back(std::move(run));
    }
    return lines;
}

} // namespace kelvarin
