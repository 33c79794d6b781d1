// SPDX-License-Identifier: MIT
#include "kinds/kinds.h"
#include "platform/text_file.h"
#include "promise.h"
#include "shell/document/problem_document.h"
#include "shell/document/recovery_file.h"

#include <string>

/// Any recovery file is read or refused, and so is the content of a problem in it, by every kind: what is restored is
/// kept and restored the same.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size)
{
    using namespace kelvarin;
    using fuzz::promise;
    const std::string text = to_utf8(std::string_view(reinterpret_cast<const char*>(bytes), size));
    std::string content = text;
    if (const auto entry = read_recovery_file(text)) {
        promise(read_recovery_file(recovery_file_text(*entry)) == entry, "an entry comes back the same");
        content = entry->content;
    }
    for (const problem_kind* kind : problem_kinds()) {
        const auto document = kind->make_document();
        if (!document->restore(content, {})) continue;
        const std::string kept = document->recovery_text();
        const auto again = kind->make_document();
        promise(again->restore(kept, {}), "what was kept is restored");
        promise(again->recovery_text() == kept, "what was kept comes back the same");
    }
    return 0;
}
