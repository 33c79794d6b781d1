// SPDX-License-Identifier: MIT
#include "batch/solve_files.h"

#include "batch/exit_status.h"
#include "batch/kinds/kind_answerer.h"
#include "graph/graph_kind.h"
#include "kinds/kinds.h"
#include "platform/file_bounds.h"
#include "platform/run_listener.h"
#include "platform/runtime_failure.h"
#include "platform/text_file.h"
#include "shell/document/recognition.h"

#include <algorithm>
#include <new>
#include <optional>
#include <string>
#include <utility>

namespace kelvarin
{

namespace
{

message_box refusal_box(std::string text)
{
    return {std::move(text), box_icon::exclamation};
}

/// The box that says why a file can't be answered.
message_box no_answerer_box(const std::string& file, const recognised_document& found)
{
    switch (found.form) {
    case document_form::report:
    case document_form::text:
        return refusal_box("By its name " + file +
                           " is a report or a text, not a problem file. With --kind nle it is "
                           "solved as a nonlinear problem.");
    case document_form::problem:
    case document_form::graph:
    case document_form::unknown:
        break;
    }
    return refusal_box(unknown_format_text(file));
}

/// Why the options of the command line do not fit this kind; nullopt where they do.
std::optional<message_box> option_refusal(const kind_answerer& answerer, const batch_request& request)
{
    for (const auto& [name, values] : request.kind_options) {
        const auto option = std::ranges::find(answerer.options, name, &kind_option::name);
        if (option == answerer.options.end())
            return refusal_box(name + ": not an option of problems of the kind " + answerer.kind->key + ".");
        if (!option->refusal) continue;
        for (const std::string& value : values)
            if (std::optional<std::string> refused = option->refusal(value)) return refusal_box(std::move(*refused));
    }
    return std::nullopt;
}

message_box unreadable_box(const std::string& reason)
{
    return refusal_box("The file can not be read: " + reason);
}

message_box out_of_memory_box()
{
    return refusal_box(std::string(runtime_failure_text(failure_number::out_of_memory)));
}

/// Reads and recognises a file, and calls `answer` with its kind's answerer and its text.
template <class Answer>
file_answer answer_file(const std::string& file, const batch_request& request, run_listener& listener, Answer answer)
try {
    text_file content = read_text_input(file, [&listener] { return listener.stop_asked(); });
    if (!content.ok())
        return refused_answer(file, recognised_document().key(), unreadable_box(content.failure.reason), request);
    const recognised_document found = request.kind ? recognised_document{document_form::problem, request.kind}
                                                   : recognise_document(file, content.text, problem_kinds());
    const problem_kind* const kind = found.form == document_form::graph ? &graph_kind() : found.kind;
    const kind_answerer* const answerer = kind ? answerer_of(*kind) : nullptr;
    if (!answerer) return refused_answer(file, found.key(), no_answerer_box(file, found), request);
    if (const std::optional<std::string> excess = excess_of(content.text, kind->bounds))
        return refused_answer(file, answerer->kind->key, unreadable_box(*excess), request);
    if (const std::optional<message_box> refused = option_refusal(*answerer, request))
        return refused_answer(file, answerer->kind->key, *refused, request);
    try {
        return answer(*answerer, problem_text{file, std::move(content.text)});
    } catch (const std::bad_alloc&) {
        // The memory of this file is free again; the others are answered.
        file_answer failed = refused_answer(file, answerer->kind->key, out_of_memory_box(), request);
        failed.status = exit_status::a_run_failed;
        return failed;
    }
} catch (const std::bad_alloc&) {
    return refused_answer(file, recognised_document().key(), unreadable_box("out of memory"), request);
}

} // namespace

file_answer solve_file(const std::string& file, const batch_request& request, const batch_surroundings& surroundings,
                       run_listener& listener)
{
    return answer_file(file, request, listener, [&](const kind_answerer& answerer, const problem_text& problem) {
        return answerer.solve(problem, request, surroundings, listener);
    });
}

file_answer check_file(const std::string& file, const batch_request& request, run_listener& listener)
{
    return answer_file(file, request, listener, [&](const kind_answerer& answerer, const problem_text& problem) {
        return answerer.check(problem, request);
    });
}

} // namespace kelvarin
