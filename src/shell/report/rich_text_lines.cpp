// SPDX-License-Identifier: MIT
#include "shell/report/rich_text.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

using font_key = std::pair<std::string, font_class>;

/// The distinct fonts and colours of some lines, in order of first appearance.
struct style_tables
{
    std::vector<font_key> fonts;
    std::vector<rgb_colour> colours;

    explicit style_tables(std::span<const styled_line> lines)
    {
        for (const styled_line& line : lines) {
            for (const styled_run& run : line) {
                number_in(fonts, font_key(run.font, run.family));
                number_in(colours, run.colour);
            }
        }
    }

    /// The index of a value in a list; a missing value is appended.
    template <class Value> static std::size_t number_in(std::vector<Value>& list, const Value& value)
    {
        const auto found = std::ranges::find(list, value);
        if (found != list.end()) return static_cast<std::size_t>(found - list.begin());
        list.push_back(value);
        return list.size() - 1;
    }
};

std::string_view family_word(font_class family)
{
    switch (family) {
    case font_class::serif:
        return R"(\froman)";
    case font_class::sans:
        return R"(\fswiss)";
    case font_class::monospace:
        break;
    }
    return R"(\fmodern)";
}

std::string font_entry(std::size_t number, const font_key& entry)
{
    std::string name = escape_rich_text(entry.first);
    // A semicolon would end the entry.
    for (std::size_t at = name.find(';'); at != std::string::npos; at = name.find(';', at))
        name.replace(at, 1, R"(\'3b)");
    return R"({\f)" + std::to_string(number) + std::string(family_word(entry.second)) + ' ' + name + ";}";
}

std::string prolog_of(const style_tables& tables)
{
    std::string prolog = R"({\rtf1\ansi\ansicpg1252\deff0\deftab)" + std::to_string(tab_distance) + R"({\fonttbl)";
    for (std::size_t i = 0; i < tables.fonts.size(); ++i)
        prolog += font_entry(i, tables.fonts[i]);
    prolog += R"(}{\colortbl)";
    for (const rgb_colour& colour : tables.colours) {
        prolog += R"(\red)" + std::to_string(colour.red) + R"(\green)" + std::to_string(colour.green) + R"(\blue)" +
                  std::to_string(colour.blue) + ';';
    }
    return prolog + "}\n";
}

void append_text(std::string& document, std::string_view text)
{
    for (std::size_t tab = text.find('\t'); tab != std::string_view::npos; tab = text.find('\t')) {
        document += escape_rich_text(text.substr(0, tab)) + R"(\tab )";
        text.remove_prefix(tab + 1);
    }
    document += escape_rich_text(text);
}

void append_run(std::string& document, const styled_run& run, style_tables& tables)
{
    document += R"({\f)" + std::to_string(style_tables::number_in(tables.fonts, font_key(run.font, run.family)));
    document += R"(\fs)" + std::to_string(run.size);
    document += R"(\cf)" + std::to_string(style_tables::number_in(tables.colours, run.colour));
    if (run.bold) document += R"(\b)";
    if (run.italic) document += R"(\i)";
    if (run.underline) document += R"(\ul)";
    document += ' ';
    append_text(document, run.text);
    document += '}';
}

} // namespace

std::string rich_text_of(std::span<const styled_line> lines)
{
    style_tables tables(lines);
    std::string document = prolog_of(tables);
    for (const styled_line& line : lines) {
        for (const styled_run& run : line)
            append_run(document, run, tables);
        document += "\\par\n";
    }
    return document + "}\n";
}

} // namespace kelvarin
