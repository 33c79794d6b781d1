// SPDX-License-Identifier: MIT
#include "deq/deq_analysis.h"
#include "deq/deq_file.h"
#include "deq/deq_listing.h"
#include "deq/deq_recovery.h"
#include "deq/deq_report.h"
#include "deq/deq_run.h"
#include "deq/deq_run_card.h"
#include "impatient_listener.h"
#include "kinds/kinds.h"
#include "platform/text_file.h"
#include "promise.h"
#include "saving.h"
#include "shell/document/recognition.h"
#include "shell/report/rich_text.h"
#include "shell/settings.h"

#include <string>

namespace
{

constexpr int patience = 500;

} // namespace

/// Any file is read or refused; what is read can be analysed, listed and run, and once written comes back the same.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size)
{
    using namespace kelvarin;
    using fuzz::promise;
    const std::string text = to_utf8(std::string_view(reinterpret_cast<const char*>(bytes), size));
    recognise_document("fuzz.kvr", text, problem_kinds());

    auto content = read_deq(text);
    if (!content) return 0;
    const deq_analysis analysis = analyse_deq(*content);
    listing_warnings(*content);
    promise(!plain_text_of(read_rich_text(rich_text_document(show_all_vars(*content)))).empty(), "a listing has lines");
    promise(!deq_listing(*content, "fuzz.kvr").empty(), "a printed listing has lines");
    fuzz::check_saving(
        *content, [](const auto& each) { return write_deq(each); },
        [](const std::string& each) { return read_deq(each); });
    promise(read_deq_recovery(deq_recovery_text(*content)) == *content, "recovery keeps everything");

    const fixed_clock clock;
    const settings store;
    for (std::size_t method = 0; method < deq_method_items.size(); ++method) {
        content->method = static_cast<deq_method>(method);
        fuzz::impatient_listener listener(patience);
        const deq_run_problem problem = {*content, "fuzz.kvr"};
        const deq_outcome outcome = run_deq(problem, store, listener);
        promise(analysis.green || !outcome.has_report, "a red problem does not run");
        promise(outcome.has_report || !outcome.boxes.empty(), "a run without a report says why");
        deq_run_card_of(*content, outcome);
        if (!outcome.has_report) continue;
        promise(!plain_text_of(read_rich_text(deq_report(problem, outcome, store, clock.today()))).empty(),
                "a report can be read");
    }
    return 0;
}
