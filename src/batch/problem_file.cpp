// SPDX-License-Identifier: MIT
#include "batch/problem_file.h"

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
    case document_kind::leq:
        return refusal_box("Linear equations are not yet solved by this version.");
    case document_kind::reg:
        return refusal_box("Data tables are not yet solved by this version.");
    }
    return refusal_box(unknown_format_text(file));
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
    read.kind = request.kind_is_nle ? document_kind::nle : recognise_document(file, content.text);
    read.refusal = kind_refusal(read.kind, file);
    if (read.refusal) return read;

    auto problem = read_nle(content.text);
    if (!problem) {
        read.refusal = refusal_box("Error while trying to open file.");
        return read;
    }
    read.content = std::move(*problem);
    if (request.method) read.content.method = *request.method;
    return read;
}

} // namespace kelvarin
