// SPDX-License-Identifier: MIT
#include "shell/document/recognition.h"

#include "expr/basParse.h"
#include "platform/letter_case.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "shell/general_lib.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace kelvarin
{

namespace
{

/// The marker of a graph file, alone or behind the hexadecimal number that graphs are written with.
bool is_graph_marker(std::string_view line)
{
    constexpr std::string_view marker = "KVRGRF/V500//";
    if (!line.ends_with(marker)) return false;
    line.remove_suffix(marker.size());
    return std::ranges::all_of(line, [](char letter) {
        return std::string_view("0123456789ABCDEFabcdef").find(letter) != std::string_view::npos;
    });
}

bool has_equals_sign(std::string_view line)
{
    return line.find('=') != std::string_view::npos;
}

/// What the reader of nonlinear problems asks of its second line before it takes a file.
bool is_equation_row(std::string_view line)
{
    if (!has_equals_sign(line)) return false;
    return line.starts_with("f(") || is_valid_name(trimmed(line.substr(0, line.find('='))));
}

bool holds_two_sizes(std::string_view line)
{
    const std::size_t blank = line.find(' ');
    if (blank == std::string_view::npos) return false;
    const auto is_size = [](std::string_view text) { return prefix_value(text).value_or(0.0) > 0.0; };
    return is_size(line.substr(0, blank)) && is_size(line.substr(blank));
}

document_kind problem_kind(std::string_view second_line)
{
    const bool is_differential = second_line.starts_with("d(");
    if (second_line.starts_with("f(") || (!is_differential && has_equals_sign(second_line))) return document_kind::nle;
    if (is_differential) return document_kind::deq;
    if (is_numeric(second_line)) return document_kind::leq;
    if (holds_two_sizes(second_line)) return document_kind::reg;
    return document_kind::unknown;
}

} // namespace

document_kind recognise_document(std::string_view path, std::string_view text)
{
    constexpr std::size_t lines_of_a_problem = 3;
    const std::string extension = lower_case(part_after_last(file_name_of(path), false, "."));
    const std::vector<std::string_view> lines = split_lines(text);
    if (extension == "kvg" && !lines.empty() && is_graph_marker(lines.front())) return document_kind::graph;
    if (extension == "rtf") return document_kind::report;
    if (extension == "txt") return document_kind::text;
    if (lines.size() < 2) return document_kind::unknown;
    // A problem of one explicit equation has no third line, and must open again.
    if (lines.size() < lines_of_a_problem && !is_equation_row(lines[1])) return document_kind::unknown;
    return problem_kind(lines[1]);
}

std::string unknown_format_text(std::string_view path)
{
    return "The file format of " + std::string(path) + " does not match any of the Kelvarin input files format.";
}

std::string_view kind_name(document_kind kind)
{
    switch (kind) {
    case document_kind::graph:
        return "graph";
    case document_kind::report:
        return "report";
    case document_kind::text:
        return "text";
    case document_kind::nle:
        return "nle";
    case document_kind::deq:
        return "deq";
    case document_kind::leq:
        return "leq";
    case document_kind::reg:
        return "reg";
    case document_kind::unknown:
        break;
    }
    return "unknown";
}

} // namespace kelvarin
