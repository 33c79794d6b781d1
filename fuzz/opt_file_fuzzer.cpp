// SPDX-License-Identifier: MIT
#include "impatient_listener.h"
#include "kinds/kinds.h"
#include "opt/opt_analysis.h"
#include "opt/opt_file.h"
#include "opt/opt_graph.h"
#include "opt/opt_listing.h"
#include "opt/opt_recovery.h"
#include "opt/opt_report.h"
#include "opt/opt_run.h"
#include "platform/text_file.h"
#include "promise.h"
#include "saving.h"
#include "shell/document/recognition.h"
#include "shell/report/rich_text.h"
#include "shell/settings.h"

#include <cmath>
#include <string>

namespace
{

constexpr int patience = 2000;

} // namespace

/// Any file is read or refused; what is read can be analysed, listed, run and drawn, and once written comes back the
/// same.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size)
{
    using namespace kelvarin;
    using fuzz::promise;
    const std::string text = to_utf8(std::string_view(reinterpret_cast<const char*>(bytes), size));
    recognise_document("fuzz.kvr", text, problem_kinds());

    auto content = read_opt(text);
    if (!content) return 0;
    const opt_analysis analysis = analyse_opt(*content);
    promise(analysis.green || !red_light_boxes(analysis).empty(), "a red problem says why");
    promise(!plain_text_of(read_rich_text(rich_text_document(show_all_vars(*content)))).empty(), "a listing has lines");
    promise(!opt_listing(*content, "fuzz.kvr").empty(), "a printed listing has lines");
    promise(fuzz::check_saving(
                *content, [](const auto& each) { return write_opt(each); },
                [](const std::string& each) { return read_opt(each); }) == *content,
            "a saved problem comes back the same");
    promise(read_opt_recovery(opt_recovery_text(*content)) == *content, "recovery keeps everything");

    const fixed_clock clock;
    const settings store;
    for (std::size_t method = 0; method < opt_method_items.size(); ++method) {
        content->method = static_cast<opt_method>(method);
        fuzz::impatient_listener listener(patience);
        const opt_run_problem problem = {*content, "fuzz.kvr"};
        const opt_outcome outcome = run_opt(problem, store, clock, listener);
        promise(analysis.green || !outcome.has_report, "a red problem does not run");
        promise(outcome.has_report || !outcome.boxes.empty(), "a run without a report says why");
        if (!outcome.has_report) continue;
        for (const double x : outcome.x)
            promise(std::isfinite(x), "results are finite");
        promise(!plain_text_of(read_rich_text(opt_report(problem, outcome, store, clock.today()))).empty(),
                "a report can be read");
        fuzz::impatient_listener patient(patience);
        try {
            opt_graph_start(*content, outcome, 1, patient);
        } catch (const run_stopped&) {
        }
    }
    return 0;
}
