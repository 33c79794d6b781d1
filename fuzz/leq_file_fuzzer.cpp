// SPDX-License-Identifier: MIT
#include "leq/leq_file.h"
#include "leq/leq_recovery.h"
#include "leq/leq_report.h"
#include "leq/leq_run.h"
#include "platform/text_file.h"
#include "promise.h"
#include "saving.h"
#include "shell/report/rich_text.h"

#include <string>

/// Any file is read or refused; what is read comes back the same from files and recovery copies, and runs or says why
/// not.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size)
{
    using namespace kelvarin;
    using fuzz::promise;
    const auto content = read_leq(to_utf8(std::string_view(reinterpret_cast<const char*>(bytes), size)));
    if (!content) return 0;
    fuzz::check_saving(
        *content, [](const auto& each) { return write_leq(each); },
        [](const std::string& each) { return read_leq(each); });
    promise(read_leq_recovery(leq_recovery_text(*content)) == content, "what was kept comes back the same");

    const leq_outcome outcome = run_leq(*content);
    promise(outcome.has_report || !outcome.boxes.empty(), "a run without a report says why");
    if (outcome.has_report)
        promise(!read_rich_text(leq_report({*content, "fuzz.kvr"}, outcome, fixed_clock().today())).empty(),
                "a report can be read");
    return 0;
}
