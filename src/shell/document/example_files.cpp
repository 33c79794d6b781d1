// SPDX-License-Identifier: MIT
#include "shell/document/example_files.h"

#include "platform/text_file.h"
#include "shell/document/recognition.h"

#include <algorithm>
#include <memory>
#include <system_error>

namespace kelvarin
{

namespace
{

namespace fs = std::filesystem;

/// The example in a file; its kind is null if there is none.
example_file example_in(const fs::path& path, std::span<const problem_kind* const> kinds)
{
    const text_file file = read_text_file(path);
    if (!file.ok()) return {};
    const problem_kind* kind = recognise_document(path.string(), file.text, kinds).kind;
    if (!kind || !kind->make_document) return {};
    const std::unique_ptr<problem_document> document = kind->make_document();
    if (document->open(path)) return {};
    return {path, document->title().empty() ? path.stem().string() : document->title(), kind};
}

} // namespace

std::vector<example_file> example_files(const fs::path& folder, std::span<const problem_kind* const> kinds)
{
    std::vector<example_file> examples;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (entry->path().extension() != ".kvr") continue;
        if (example_file example = example_in(entry->path(), kinds); example.kind)
            examples.push_back(std::move(example));
    }
    const auto place = [&](const example_file& example) { return std::ranges::find(kinds, example.kind); };
    std::ranges::sort(examples, [&](const example_file& a, const example_file& b) {
        return a.kind == b.kind ? a.title < b.title : place(a) < place(b);
    });
    return examples;
}

} // namespace kelvarin
