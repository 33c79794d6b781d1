// SPDX-License-Identifier: MIT
#include "shell/document/recognition.h"

#include "platform/file_bounds.h"
#include "platform/letter_case.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "shell/general_lib.h"

#include <algorithm>
#include <array>
#include <vector>

namespace kelvarin
{

namespace
{

/// Whether the line is the marker of a graph file, alone or after the hexadecimal number that graph files have.
bool is_graph_marker(std::string_view line)
{
    constexpr std::string_view marker = "KVRGRF/V500//";
    if (!line.ends_with(marker)) return false;
    line.remove_suffix(marker.size());
    return std::ranges::all_of(line, [](char letter) {
        return std::string_view("0123456789ABCDEFabcdef").find(letter) != std::string_view::npos;
    });
}

bool recognises(const problem_kind& kind, std::span<const std::string_view> lines)
{
    return kind.recognises && kind.recognises(lines);
}

bool claims(const problem_kind& kind, std::span<const std::string_view> lines)
{
    return kind.claims && kind.claims(lines);
}

/// All lines of a file within its bounds; of a larger one, which is not read anyway, enough to recognise it.
std::vector<std::string_view> first_lines(std::string_view text)
{
    return split_lines(text, file_bounds().lines);
}

/// The kind of problem of these lines; null if it is none of `kinds`.
const problem_kind* kind_of_lines(std::span<const std::string_view> lines, std::span<const problem_kind* const> kinds)
{
    // A file without a second line is no problem of any kind.
    if (lines.size() < 2) return nullptr;
    for (const auto test : {claims, recognises}) {
        const auto kind = std::ranges::find_if(kinds, [&](const problem_kind* each) { return test(*each, lines); });
        if (kind != kinds.end()) return *kind;
    }
    return nullptr;
}

} // namespace

std::string_view recognised_document::key() const
{
    switch (form) {
    case document_form::graph:
        return "graph";
    case document_form::report:
        return "report";
    case document_form::text:
        return "text";
    case document_form::problem:
        return kind->key;
    case document_form::unknown:
        break;
    }
    return "unknown";
}

recognised_document recognise_document(std::string_view path, std::string_view text,
                                       std::span<const problem_kind* const> kinds)
{
    const std::string extension = lower_case(part_after_last(file_name_of(path), false, "."));
    const std::vector<std::string_view> lines = first_lines(text);
    if (extension == "kvg" && !lines.empty() && is_graph_marker(lines.front())) return {document_form::graph};
    if (extension == "rtf") return {document_form::report};
    if (extension == "txt") return {document_form::text};
    const problem_kind* const kind = kind_of_lines(lines, kinds);
    if (!kind) return {};
    return {document_form::problem, kind};
}

bool holds_problem(std::string_view text, const problem_kind& kind)
{
    const std::array<const problem_kind*, 1> kinds = {&kind};
    return kind_of_lines(first_lines(text), kinds) != nullptr;
}

std::string unknown_format_text(std::string_view path)
{
    return "The file format of " + std::string(path) + " does not match any of the Kelvarin input files format.";
}

} // namespace kelvarin
