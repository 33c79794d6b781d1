// SPDX-License-Identifier: MIT
#pragma once

#include "shell/document/problem_kind.h"

#include <span>
#include <string>
#include <string_view>

namespace kelvarin
{

enum class document_form
{
    unknown,
    graph,
    report,
    text,
    problem
};

/// The type of a file.
struct recognised_document
{
    document_form form = document_form::unknown;
    /// The kind of a problem; null otherwise.
    const problem_kind* kind = nullptr;

    /// "nle", "graph", "report", "text" or "unknown", as in JSON answers.
    std::string_view key() const;
};

/// The type of a file by its name's extension and its lines: a graph, a report, a text, or a problem of the first of
/// `kinds` that recognises it.
recognised_document recognise_document(std::string_view path, std::string_view text,
                                       std::span<const problem_kind* const> kinds);

/// Whether a text holds a problem of this kind, regardless of the file's name.
bool holds_problem(std::string_view text, const problem_kind& kind);

/// "The file format of " + path + " does not match any of the Kelvarin input files format."
std::string unknown_format_text(std::string_view path);

} // namespace kelvarin
