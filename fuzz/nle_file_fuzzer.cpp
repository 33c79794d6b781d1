// SPDX-License-Identifier: MIT
#include "expr/basParse.h"
#include "impatient_listener.h"
#include "kinds/kinds.h"
#include "nle/equations/equation_rows.h"
#include "nle/nle_analysis.h"
#include "nle/nle_file.h"
#include "nle/nle_report.h"
#include "nle/nle_run.h"
#include "promise.h"
#include "saving.h"
#include "shell/document/recognition.h"
#include "shell/report/rich_text.h"
#include "shell/settings.h"

#include <algorithm>
#include <string>

namespace
{

constexpr int patience = 50;

/// Rows as the dialogs make them. A file may hold others, which are kept for the user to see, but what they
/// become when they are saved is not promised.
bool is_regular(const kelvarin::nle_content& content)
{
    return std::ranges::all_of(content.rows, [](const kelvarin::equation_row& row) {
        const kelvarin::equation_parts parts = kelvarin::parts_of(row.equation, kelvarin::nle_row_form);
        const bool equal_sign = row.equation.find('=') != std::string::npos;
        return equal_sign && kelvarin::is_valid_name(parts.name) && parts.implicit == (row.guess != kelvarin::no_guess);
    });
}

} // namespace

/// Any file is read or refused; what is read can be analysed, listed and run, and once written comes back
/// the same.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size)
{
    using namespace kelvarin;
    using fuzz::promise;
    const std::string text = to_utf8(std::string_view(reinterpret_cast<const char*>(bytes), size));
    recognise_document("fuzz.kvr", text, problem_kinds());

    const auto content = read_nle(text);
    if (!content) return 0;
    const nle_analysis analysis = analyse_nle(*content);
    listing_warnings(*content);
    promise(!plain_text_of(read_rich_text(rich_text_document(show_all_vars(*content)))).empty(), "a listing has lines");

    if (!content->rows.empty() && is_regular(*content)) {
        const nle_content again = fuzz::check_saving(
            *content, [](const auto& each) { return write_nle(each); },
            [](const std::string& each) { return read_nle(each); });
        promise(again.rows.size() == content->rows.size(), "no row is lost or made by saving");
    }

    fuzz::impatient_listener listener(patience);
    const fixed_clock clock;
    const nle_run_problem problem = {*content, "fuzz.kvr"};
    const settings store;
    const nle_outcome outcome = run_nle(problem, store, clock, listener);
    promise(analysis.green || !outcome.has_report, "a red problem does not run");
    promise(outcome.has_report || outcome.stopped || !outcome.boxes.empty(), "a run without a report says why");
    if (outcome.has_report)
        promise(!plain_text_of(read_rich_text(nle_report(problem, outcome, store, clock.today()))).empty(),
                "a report can be read");
    return 0;
}
