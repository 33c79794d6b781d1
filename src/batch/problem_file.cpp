// SPDX-License-Identifier: MIT
#include "batch/problem_file.h"

#include "leq/leq_file.h"
#include "nle/nle_file.h"
#include "platform/text_file.h"

namespace kelvarin
{

namespace
{

message_box refusal_box(std::string text)
{
    return {std::move(text), box_icon::exclamation};
}

/// Why a file of this kind has no answer; nothing for the kind that is solved.
std::optional<message_box> kind_refusal(document_kind kind, const std::string& file)
{
    switch (kind) {
    case document_kind::nle:
    case document_kind::leq:
        return std::nullopt;
    case document_kind::unknown:
        return refusal_box(unknown_format_text(file));
    case document_kind::report:
    case document_kind::text:
        return refusal_box("By its name " + file +
                           " is a report or a text, not a problem file. With --kind nle it is "
                           "solved as a nonlinear problem.");
    case document_kind::graph:
        return refusal_box(file + " is a graph file, not a problem file.");
    case document_kind::deq:
        return refusal_box("Differential equations are not yet solved by this version.");
    case document_kind::reg:
        return refusal_box("Data tables are not yet solved by this version.");
    }
    return refusal_box(unknown_format_text(file));
}

constexpr const char* open_error = "Error while trying to open file.";

void read_linear_equations(std::string_view text, problem_file& read)
{
    read.linear = read_leq(text);
    if (read.linear) return;
    read.refusal = refusal_box(
        std::string(open_error) + "\rIts second line is to be the number of equations less 1, a whole number from " +
        std::to_string(least_leq_count - 1) + " to " + std::to_string(largest_leq_count - 1) + ".");
}

} // namespace

problem_file read_problem_file(const std::string& file, const batch_request& request)
{
    problem_file read;
    const text_file content = read_text_file(file);
    if (!content.ok()) {
        read.refusal = refusal_box("The file can not be read: " + content.failure.reason);
        return read;
    }
    read.kind = request.kind ? *request.kind : recognise_document(file, content.text);
    read.refusal = kind_refusal(read.kind, file);
    if (read.refusal) return read;

    if (read.kind == document_kind::leq) {
        read_linear_equations(content.text, read);
        return read;
    }
    auto problem = read_nle(content.text);
    if (!problem) {
        read.refusal = refusal_box(open_error);
        return read;
    }
    read.content = std::move(*problem);
    if (request.method) read.content.method = *request.method;
    return read;
}

} // namespace kelvarin
